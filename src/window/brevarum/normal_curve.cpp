#include "window/brevarum/normal_curve.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "calculators/standard_score.h"

namespace tessara {
namespace {

constexpr double kEdge = 1900;          // of the marker, from the middle
constexpr double kOneDeviation = 700;   // where a score of 1 stands
constexpr double kShareOfCurve = 0.92;  // of the widget's width
constexpr int kSteps = 160;
constexpr double kTicks[] = {-4, -2, -1, 0, 1, 2, 4};

// The place of a score on the axis, -1 to 1, by the rule that moves the marker, and how far from 0 the score of a place
// is.
double PlaceOf(double z) { return std::copysign(kOneDeviation * std::sqrt(std::fabs(z)), z) / kEdge; }
double DistanceAt(double place) { return std::pow(place * kEdge / kOneDeviation, 2); }

}  // namespace

NormalCurve::NormalCurve(QWidget* parent) : QWidget(parent) {
  setObjectName("NormalCurve");
  setAccessibleName(tr("Normal curve"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void NormalCurve::ShowScore(std::optional<double> centre, const QString& score) {
  place_.reset();
  if (centre) place_ = std::clamp((*centre - kMarkerMiddle) / kEdge, -1.0, 1.0);
  score_ = score;
  setAccessibleDescription(centre && !score.isEmpty() ? tr("The marker stands at z = %1").arg(score) : QString());
  update();
}

QSize NormalCurve::sizeHint() const { return {fontMetrics().averageCharWidth() * 44, fontMetrics().height() * 8}; }
QSize NormalCurve::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 26, fontMetrics().height() * 8};
}

NormalCurve::Plot NormalCurve::PlotOf() const {
  const double line = fontMetrics().height();
  return {.line = line,
          .middle = width() / 2.0,
          .half = width() * kShareOfCurve / 2,
          .base = height() - 1.6 * line,
          .top = 1.7 * line};
}

void NormalCurve::PaintCurve(QPainter& painter, const Plot& plot) const {
  const auto point = [&](double place) {
    const double z = DistanceAt(place);
    return QPointF(plot.X(place), plot.base - (plot.base - plot.top) * std::exp(-z * z / 2));
  };
  QPainterPath curve(point(-1));
  for (int step = 1; step <= kSteps; ++step) curve.lineTo(point(-1 + 2.0 * step / kSteps));
  QPainterPath area = curve;
  area.lineTo(plot.X(1), plot.base);
  area.lineTo(plot.X(-1), plot.base);
  area.closeSubpath();
  const QColor accent = palette().color(QPalette::Highlight);
  QColor fill = accent;
  fill.setAlpha(40);
  painter.fillPath(area, fill);
  painter.setPen(QPen(accent, 2));
  painter.drawPath(curve);
}

void NormalCurve::PaintAxis(QPainter& painter, const Plot& plot) const {
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
  painter.drawLine(QPointF(plot.X(-1), plot.base), QPointF(plot.X(1), plot.base));
  for (const double z : kTicks) {
    const double x = plot.X(PlaceOf(z));
    const double below = plot.base + plot.line / 4;
    painter.drawLine(QPointF(x, plot.base), QPointF(x, below));
    painter.drawText(QRectF(x - 2 * plot.line, below, 4 * plot.line, plot.line * 1.2), Qt::AlignHCenter | Qt::AlignTop,
                     QString::number(z).replace('-', QChar(0x2212)));
  }
}

void NormalCurve::PaintMarker(QPainter& painter, const Plot& plot, double place) const {
  const QColor text = palette().color(QPalette::WindowText);
  const double x = plot.X(place);
  const double line = plot.line;
  painter.setPen(QPen(text, 2));
  painter.drawLine(QPointF(x, plot.top - line / 5), QPointF(x, plot.base));
  QPolygonF head;
  head << QPointF(x, plot.base) << QPointF(x - line / 3, plot.base - line / 1.6)
       << QPointF(x + line / 3, plot.base - line / 1.6);
  painter.setBrush(text);
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(head);
  if (score_.isEmpty()) return;
  painter.setPen(text);
  const QString caption = "z = " + score_;
  const double wide = fontMetrics().horizontalAdvance(caption);
  const double left = std::clamp(x - wide / 2, 0.0, std::max(0.0, width() - wide));
  painter.drawText(QPointF(left, plot.top - line / 2), caption);
}

void NormalCurve::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Plot plot = PlotOf();
  PaintCurve(painter, plot);
  PaintAxis(painter, plot);
  if (place_) PaintMarker(painter, plot, *place_);
}

}  // namespace tessara
