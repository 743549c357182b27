#include <QAreaSeries>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>

#include "window/charts/chart_drawing.h"
#include "window/charts/point_cloud.h"

// The bars of a histogram that shares its axes with another: they stand where their intervals lie on an axis of
// numbers.

namespace tessara {
namespace {

constexpr double kThinnestBar = 0.01;  // of the axis: all cases of a group may have one value
constexpr int kSteps = 5;

}  // namespace

void DrawnChart::AddIntervals() {
  const Chart::Axes range = DrawableAxes(*chart_.axes);
  MakeValueAxis(Qt::AlignBottom, chart_.horizontal_title);
  MakeNice(horizontal_, range.low, range.high, kSteps, 0);
  auto* upper = new QLineSeries(this);
  QList<QPointF> points;
  const std::vector<double>& counts = chart_.series[0].values;
  const double thinnest = (horizontal_->max() - horizontal_->min()) * kThinnestBar;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    double left = std::clamp(chart_.edges[i], horizontal_->min(), horizontal_->max());
    double right = std::clamp(chart_.edges[i + 1], horizontal_->min(), horizontal_->max());
    if (right - left < thinnest) {
      if (counts[i] == 0) continue;  // the empty intervals of a single value
      left -= thinnest / 2;
      right = left + thinnest;
    }
    points << QPointF(left, 0) << QPointF(left, counts[i]) << QPointF(right, counts[i]) << QPointF(right, 0);
  }
  upper->replace(points);
  auto* area = new QAreaSeries(upper);
  area->setParent(this);
  area->setBrush(colours_.series[0]);
  area->setPen(QPen(colours_.ground, 1));
  connect(area, &QAreaSeries::hovered, this, [this](const QPointF& point, bool hovered) {
    const auto above = std::ranges::upper_bound(chart_.edges, point.x());
    const auto row = std::clamp<std::ptrdiff_t>(above - chart_.edges.begin() - 1, 0, labels_.size() - 1);
    ShowHint(hovered, row, {}, chart_.series[0].values[static_cast<std::size_t>(row)]);
  });
  Attach(area);
}

}  // namespace tessara
