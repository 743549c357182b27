#pragma once

#include <QColor>
#include <QGraphicsItem>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>

#include "presentation/chart_data.h"

class QChart;

// The points of a scatter chart on the screen: few of them as they are, many as a picture of the cells that they fall
// into. A million points so cost no more than the picture. The figures of a chart never come from here.

namespace tessara {

inline constexpr std::size_t kMostSinglePoints = 3000;

// A point within the limits that an axis can be drawn in.
QPointF DrawablePoint(double x, double y);
// A range that an axis can be drawn in: within those limits, and wide enough to be one.
Chart::Axes DrawableAxes(Chart::Axes axes);

// The ranges of the points, in the limits within which an axis can be drawn, and wide enough to be one.
QRectF RangeOfPoints(const Chart& chart);

QList<QPointF> SinglePoints(const Chart& chart);

// A picture whose pixels are cells of the range, the highest y on top: clear where no point is, and the stronger the
// more points a cell has.
QImage PictureOfPoints(const Chart& chart, const QRectF& range, const QColor& colour);

// The picture at its place in the plot.
class PointCloud : public QGraphicsItem {
 public:
  PointCloud(QChart* chart, QImage picture, const QRectF& range);

  // Follows the plot when it has another size.
  void Place();

  QRectF boundingRect() const override { return place_; }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  QChart* chart_;
  QImage picture_;
  QRectF range_;
  QRectF place_;
};

}  // namespace tessara
