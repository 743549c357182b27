#include "window/charts/counted_dots.h"

#include <QChart>
#include <QCursor>
#include <QGraphicsSceneHoverEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "numerics/number_text.h"
#include "window/charts/point_cloud.h"
#include "window/widgets/text.h"

namespace tessara {
namespace {

constexpr qreal kDotOfOneCase = 9;  // pixels
constexpr qreal kLargestDot = 30;
constexpr qreal kSmallestDot = 3;

struct HashOfPlace {
  std::size_t operator()(const std::pair<double, double>& place) const {
    return std::hash<double>()(place.first) * 31 + std::hash<double>()(place.second);
  }
};

QString NumberWords(double value) {
  NumberBuffer buffer;
  return ToQt(WriteGeneralText(value, buffer));
}

}  // namespace

std::optional<QList<CountedDot>> PlacesOfPoints(const Chart& chart) {
  std::unordered_map<std::pair<double, double>, std::size_t, HashOfPlace> cases;
  for (std::size_t i = 0; i < PointCount(chart); ++i) {
    ++cases[{(*chart.x)[i], (*chart.y)[i]}];
    if (cases.size() > kMostSinglePoints) return std::nullopt;
  }
  QList<CountedDot> dots;
  for (const auto& [place, count] : cases) dots += {DrawablePoint(place.first, place.second), count};
  std::ranges::sort(dots, [](const CountedDot& a, const CountedDot& b) {
    if (a.cases != b.cases) return a.cases > b.cases;
    return std::pair(a.place.x(), a.place.y()) < std::pair(b.place.x(), b.place.y());
  });
  return dots;
}

qreal DiameterOfDot(std::size_t cases, std::size_t most) {
  const qreal one =
      std::min(kDotOfOneCase, kLargestDot / std::sqrt(static_cast<qreal>(std::max<std::size_t>(most, 1))));
  return std::max(kSmallestDot, one * std::sqrt(static_cast<qreal>(cases)));
}

CountedDots::CountedDots(QChart* chart, QList<CountedDot> dots, const QColor& colour)
    : QGraphicsItem(chart), chart_(chart), dots_(std::move(dots)), colour_(colour) {
  setZValue(10);  // above the grid of the plot
  setAcceptHoverEvents(true);
}

void CountedDots::Place() {
  prepareGeometryChange();
  area_ = chart_->plotArea().adjusted(-kLargestDot, -kLargestDot, kLargestDot, kLargestDot);
}

QPointF CountedDots::Middle(const CountedDot& dot) const { return chart_->mapToPosition(dot.place); }

// The dots of few cases are painted last, so that none is hidden; the one on top tells.
QString CountedDots::HintAt(const QPointF& at) const {
  for (auto dot = dots_.crbegin(); dot != dots_.crend(); ++dot) {
    const QPointF away = Middle(*dot) - at;
    if (std::hypot(away.x(), away.y()) > DiameterOfDot(dot->cases, most()) / 2) continue;
    const QString place = NumberWords(dot->place.x()) + ", " + NumberWords(dot->place.y());
    return place + "\n" + (dot->cases == 1 ? QObject::tr("1 case") : QObject::tr("%1 cases").arg(dot->cases));
  }
  return {};
}

void CountedDots::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  QColor fill = colour_;
  fill.setAlphaF(0.7F);
  painter->setBrush(fill);
  painter->setPen(Qt::NoPen);
  for (const CountedDot& dot : dots_) {
    const qreal radius = DiameterOfDot(dot.cases, most()) / 2;
    painter->drawEllipse(Middle(dot), radius, radius);
  }
}

void CountedDots::hoverMoveEvent(QGraphicsSceneHoverEvent* event) {
  const QString hint = HintAt(event->pos());
  if (hint.isEmpty()) return QToolTip::hideText();
  QToolTip::showText(QCursor::pos(), hint.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
}

void CountedDots::hoverLeaveEvent(QGraphicsSceneHoverEvent*) { QToolTip::hideText(); }

}  // namespace tessara
