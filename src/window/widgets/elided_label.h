#pragma once

#include <QLabel>
#include <QPainter>
#include <QStyle>

namespace tessara {

// A label of one line that gives way: what does not fit is cut off with an ellipsis, the whole text is its tool tip.
class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent = nullptr) : QLabel(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setTextFormat(Qt::PlainText);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    if (shown != toolTip()) setToolTip(shown == text() ? QString() : text());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
  }
};

}  // namespace tessara
