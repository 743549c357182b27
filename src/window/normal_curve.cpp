#include "window/normal_curve.h"

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

// The place of a score on the axis, -1 to 1, by the rule that moves the marker.
double PlaceOf(double z) { return std::copysign(kOneDeviation * std::sqrt(std::fabs(z)), z) / kEdge; }

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

void NormalCurve::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double line = fontMetrics().height();
  const double middle = width() / 2.0;
  const double half = width() * kShareOfCurve / 2;
  const double base = height() - 1.6 * line;
  const double top = 1.7 * line;  // the score stands above the curve
  const auto x_of = [&](double place) { return middle + place * half; };
  const auto y_of = [&](double place) {
    const double deviations = place * kEdge / kOneDeviation;
    return base - (base - top) * std::exp(-deviations * deviations / 2);
  };

  QPainterPath curve(QPointF(x_of(-1), y_of(-1)));
  for (int step = 1; step <= kSteps; ++step) {
    const double place = -1 + 2.0 * step / kSteps;
    curve.lineTo(x_of(place), y_of(place));
  }
  QPainterPath area = curve;
  area.lineTo(x_of(1), base);
  area.lineTo(x_of(-1), base);
  area.closeSubpath();
  const QColor accent = palette().color(QPalette::Highlight);
  QColor fill = accent;
  fill.setAlpha(40);
  painter.fillPath(area, fill);
  painter.setPen(QPen(accent, 2));
  painter.drawPath(curve);

  const QColor text = palette().color(QPalette::WindowText);
  painter.setPen(QPen(text, 1));
  painter.drawLine(QPointF(x_of(-1), base), QPointF(x_of(1), base));
  for (const double z : kTicks) {
    const double x = x_of(PlaceOf(z));
    painter.drawLine(QPointF(x, base), QPointF(x, base + line / 4));
    painter.drawText(QRectF(x - 2 * line, base + line / 4, 4 * line, line * 1.2), Qt::AlignHCenter | Qt::AlignTop,
                     QString::number(z).replace('-', QChar(0x2212)));
  }

  if (!place_) return;
  const double x = x_of(*place_);
  painter.setPen(QPen(text, 2));
  painter.drawLine(QPointF(x, top - line / 5), QPointF(x, base));
  QPolygonF head;
  head << QPointF(x, base) << QPointF(x - line / 3, base - line / 1.6) << QPointF(x + line / 3, base - line / 1.6);
  painter.setBrush(text);
  painter.setPen(Qt::NoPen);
  painter.drawPolygon(head);
  if (score_.isEmpty()) return;
  painter.setPen(text);
  const QString caption = "z = " + score_;
  const double wide = fontMetrics().horizontalAdvance(caption);
  const double left = std::clamp(x - wide / 2, 0.0, std::max(0.0, width() - wide));
  painter.drawText(QPointF(left, top - line / 2), caption);
}

}  // namespace tessara
