#pragma once

#include <QScrollArea>

namespace tessara {

// A part of a form that scrolls where the window has no room for it. The widget that takes the keyboard comes into
// sight.
class Scrolled : public QScrollArea {
  Q_OBJECT

 public:
  explicit Scrolled(QWidget* content, QWidget* parent = nullptr);

  // Scrolls until the widget is in sight, or as much of it as there is room for.
  void BringIntoSight(const QWidget* part);

  QSize sizeHint() const override;  // as the content wants it
  QSize minimumSizeHint() const override;
};

}  // namespace tessara
