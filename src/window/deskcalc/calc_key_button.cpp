#include "window/deskcalc/calc_key_button.h"

#include <QEnterEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>

namespace tessara {
namespace {

constexpr int kFlash = 110;  // milliseconds
constexpr qreal kRaisedSize = 0.68;
constexpr qreal kFocusWidth = 2;
constexpr qreal kLineOfKey = 0.26;  // the shares of the second colour in a mixed one
constexpr qreal kFunctionTint = 0.07;
constexpr qreal kOperatorTint = 0.22;
constexpr qreal kHoverTint = 0.10;
constexpr qreal kPressedTint = 0.24;
constexpr int kPressedDarker = 125;  // percent

QColor Mixed(const QColor& a, const QColor& b, qreal share_of_b) {
  const auto mix = [share_of_b](int x, int y) { return static_cast<int>(x + (y - x) * share_of_b); };
  return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

QFont RaisedFont(QFont font) {
  if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * kRaisedSize);
  return font;
}

}  // namespace

CalcKeyButton::CalcKeyButton(const CalcKeyFace& face, QWidget* parent) : QAbstractButton(parent), face_(face) {
  setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard where it is
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CalcKeyButton::Flash() {
  setDown(true);
  QTimer::singleShot(kFlash, this, [this] { setDown(false); });
}

QSize CalcKeyButton::sizeHint() const {
  const int height = fontMetrics().height();
  if (face_.kind == CalcKeyKind::kMemory) return {height * 2, height * 3 / 2};
  return {height * 9 / 4, height * 2};
}

QColor CalcKeyButton::Ground() const {
  const QPalette& colours = palette();
  const QColor window = colours.color(QPalette::Window);
  const QColor text = colours.color(QPalette::WindowText);
  const QColor accent = colours.color(QPalette::Active, QPalette::Highlight);
  QColor ground;
  switch (face_.kind) {
    case CalcKeyKind::kDigit:
      ground = colours.color(QPalette::Base);
      break;
    case CalcKeyKind::kOperator:
      ground = Mixed(window, accent, kOperatorTint);
      break;
    case CalcKeyKind::kEqual:
      ground = accent;
      break;
    case CalcKeyKind::kFunction:
    case CalcKeyKind::kMemory:
      ground = Mixed(window, text, kFunctionTint);
      break;
  }
  if (isDown())
    return face_.kind == CalcKeyKind::kEqual ? ground.darker(kPressedDarker) : Mixed(ground, text, kPressedTint);
  return underMouse() && isEnabled() ? Mixed(ground, text, kHoverTint) : ground;
}

QColor CalcKeyButton::Ink() const {
  const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
  if (face_.kind == CalcKeyKind::kEqual) return palette().color(group, QPalette::HighlightedText);
  return palette().color(group, face_.kind == CalcKeyKind::kDigit ? QPalette::Text : QPalette::WindowText);
}

void CalcKeyButton::PaintFace(QPainter& painter, const QRectF& place) const {
  const QString text = QString::fromUtf8(face_.text);
  const QString raised = QString::fromUtf8(face_.raised);
  const QFont small = RaisedFont(font());
  const QFontMetricsF metrics(font());
  const qreal width = metrics.horizontalAdvance(text);
  const qreal whole = width + QFontMetricsF(small).horizontalAdvance(raised);
  const QPointF start(place.center().x() - whole / 2, place.center().y() + (metrics.ascent() - metrics.descent()) / 2);
  painter.setFont(font());
  painter.drawText(start, text);
  if (raised.isEmpty()) return;
  painter.setFont(small);
  painter.drawText(start + QPointF(width, -metrics.ascent() * 0.42), raised);
}

void CalcKeyButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF place = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const qreal corner = std::min(place.height(), place.width()) * 0.14;
  const QColor line = Mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), kLineOfKey);
  painter.setPen(line);
  painter.setBrush(Ground());
  painter.drawRoundedRect(place, corner, corner);
  if (hasFocus()) {
    painter.setBrush(Qt::NoBrush);
    const bool accent = face_.kind == CalcKeyKind::kEqual;
    painter.setPen(QPen(palette().color(accent ? QPalette::HighlightedText : QPalette::Highlight), kFocusWidth));
    const qreal inside = accent ? 2 * kFocusWidth : kFocusWidth;
    painter.drawRoundedRect(place.adjusted(inside, inside, -inside, -inside), corner, corner);
  }
  painter.setPen(Ink());
  PaintFace(painter, place);
}

void CalcKeyButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void CalcKeyButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

}  // namespace tessara
