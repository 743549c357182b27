#pragma once

#include <QColor>
#include <QGraphicsItem>
#include <QList>
#include <QPointF>
#include <optional>

#include "presentation/chart_data.h"

class QChart;

// The points of a scatter chart where several cases share a place, as those of coded values do: a dot for each place,
// whose area tells how many cases it holds.

namespace tessara {

struct CountedDot {
  QPointF place;  // in the chart's values
  std::size_t cases = 0;
};

// Each place once, those with the most cases first; nothing when there are more places than are drawn one by one.
std::optional<QList<CountedDot>> PlacesOfPoints(const Chart& chart);

// The diameter of a dot, in pixels: its area grows with its cases, and the largest dot stays below a bound.
qreal DiameterOfDot(std::size_t cases, std::size_t most);

// The dots at their places in the plot. A hint tells the cases of the dot below the pointer.
class CountedDots : public QGraphicsItem {
 public:
  CountedDots(QChart* chart, QList<CountedDot> dots, const QColor& colour);

  // Follows the plot when it has another size.
  void Place();
  std::size_t most() const { return dots_.isEmpty() ? 0 : dots_.front().cases; }
  // What the hint says at a place of the plot, in pixels; empty beside the dots.
  QString HintAt(const QPointF& at) const;

  QRectF boundingRect() const override { return area_; }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 protected:
  void hoverMoveEvent(QGraphicsSceneHoverEvent* event) override;
  void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;

 private:
  QPointF Middle(const CountedDot& dot) const;

  QChart* chart_;
  QList<CountedDot> dots_;
  QColor colour_;
  QRectF area_;
};

}  // namespace tessara
