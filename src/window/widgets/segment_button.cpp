#include "window/widgets/segment_button.h"

#include <QPainter>
#include <algorithm>

namespace tessara {

SegmentButton::SegmentButton(QWidget* parent) : QToolButton(parent) { setCheckable(true); }

void SegmentButton::paintEvent(QPaintEvent* event) {
  QToolButton::paintEvent(event);
  if (!isChecked()) return;
  const int line = std::max(2, fontMetrics().height() / 6);
  QPainter(this).fillRect(QRect(0, height() - line, width(), line), palette().highlight());
}

}  // namespace tessara
