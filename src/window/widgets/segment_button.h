#pragma once

#include <QToolButton>

namespace tessara {

// One of a row of buttons that choose what a view shows. The checked ones carry a line in the accent colour: styles
// mark a checked button by a shade alone, which hardly shows in a dark palette.
class SegmentButton : public QToolButton {
  Q_OBJECT

 public:
  explicit SegmentButton(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessara
