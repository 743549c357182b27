#include "window/charts/point_cloud.h"

#include <QChart>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

namespace tessara {
namespace {

constexpr int kColumns = 300;
constexpr int kRows = 220;
constexpr double kFarthest = 1e300;     // an axis adds and subtracts its ends
constexpr double kLeastSpread = 1e-12;  // of the values' own size: below it a double has too few steps left
constexpr double kLeastRange = 1e-280;
constexpr float kWeakest = 0.35F;

double Within(double value) { return std::clamp(value, -kFarthest, kFarthest); }

struct Range {
  double low = 0;
  double high = 1;
};

Range WideEnough(const Range& range) {
  const double size = std::max(std::abs(range.low), std::abs(range.high));
  if (range.high - range.low > std::max(size * kLeastSpread, kLeastRange)) return range;
  const double room = size > kLeastRange / kLeastSpread ? size / 10 : 1;
  return {Within(range.low - room), Within(range.high + room)};
}

Range RangeOf(const std::vector<double>& values, std::size_t count) {
  if (count == 0) return {};
  const auto [least, greatest] =
      std::minmax_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count));
  return WideEnough({Within(*least), Within(*greatest)});
}

std::size_t CellOf(double value, double low, double width, int cells) {
  const int cell = static_cast<int>((Within(value) - low) / width * cells);
  return static_cast<std::size_t>(std::clamp(cell, 0, cells - 1));
}

}  // namespace

QPointF DrawablePoint(double x, double y) { return {Within(x), Within(y)}; }

Chart::Axes DrawableAxes(Chart::Axes axes) {
  const Range range = WideEnough({Within(axes.low), Within(axes.high)});
  return {range.low, range.high, axes.most};
}

QRectF RangeOfPoints(const Chart& chart) {
  const std::size_t count = PointCount(chart);
  if (count == 0) return {0, 0, 1, 1};
  const Range x = RangeOf(*chart.x, count);
  const Range y = RangeOf(*chart.y, count);
  return {x.low, y.low, x.high - x.low, y.high - y.low};
}

QList<QPointF> SinglePoints(const Chart& chart) {
  QList<QPointF> points;
  for (std::size_t i = 0; i < PointCount(chart); ++i) points += DrawablePoint((*chart.x)[i], (*chart.y)[i]);
  return points;
}

QImage PictureOfPoints(const Chart& chart, const QRectF& range, const QColor& colour) {
  std::vector<std::uint32_t> counts(std::size_t{kColumns} * std::size_t{kRows});
  for (std::size_t i = 0; i < PointCount(chart); ++i) {
    const std::size_t column = CellOf((*chart.x)[i], range.left(), range.width(), kColumns);
    const std::size_t row = kRows - 1 - CellOf((*chart.y)[i], range.top(), range.height(), kRows);
    ++counts[row * kColumns + column];
  }
  const double most = std::log1p(*std::max_element(counts.begin(), counts.end()));
  QImage picture(kColumns, kRows, QImage::Format_ARGB32);
  picture.fill(Qt::transparent);
  QColor shade = colour;
  for (int row = 0; row < kRows; ++row) {
    for (int column = 0; column < kColumns; ++column) {
      const std::uint32_t count = counts[static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column)];
      if (count == 0) continue;
      shade.setAlphaF(kWeakest + (1 - kWeakest) * static_cast<float>(std::log1p(count) / most));
      picture.setPixelColor(column, row, shade);
    }
  }
  return picture;
}

PointCloud::PointCloud(QChart* chart, QImage picture, const QRectF& range)
    : QGraphicsItem(chart), chart_(chart), picture_(std::move(picture)), range_(range) {
  setZValue(10);  // above the grid of the plot
}

void PointCloud::Place() {
  prepareGeometryChange();
  // The y of a chart grows upwards: the range's bottom is its highest y.
  place_ = QRectF(chart_->mapToPosition(QPointF(range_.left(), range_.bottom())),
                  chart_->mapToPosition(QPointF(range_.right(), range_.top())));
}

void PointCloud::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  painter->drawImage(place_, picture_);
}

}  // namespace tessara
