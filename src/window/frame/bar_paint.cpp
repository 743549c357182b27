#include "window/frame/bar_paint.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "shell/toolbar_style.h"
#include "window/widgets/contrast.h"

namespace tessara {
namespace {

constexpr int kNativeTheme = 3;

// What a theme paints with. The ground runs from top to bottom.
struct Paint {
  QColor top, bottom;
  QColor line;  // between a bar and what follows
  QColor text, faint_text;
  QColor hover_top, hover_bottom;
  QColor pressed;  // and of what is on
  QColor focus;
  QString hover_border, pressed_border;
  int left_border = 1;  // of a button: wider where an accent stands there
  int radius = 0;
};

struct Ink {
  QColor window, text, accent;
  bool dark = false;
};

Ink InkOf(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Active, QPalette::Window);
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  return {window, text, palette.color(QPalette::Active, QPalette::Highlight), window.lightness() < text.lightness()};
}

QString Border(const QColor& top_left, const QColor& bottom_right) {
  return QString("border-color: %1 %2 %2 %1;").arg(top_left.name(), bottom_right.name());
}

// Flat grey; what is under the pointer is raised, what is pressed sinks.
Paint GreyPaint(const Ink& ink) {
  Paint paint;
  paint.top = paint.bottom = Mixed(ink.window, ink.text, 0.07);
  paint.line = Mixed(ink.window, ink.text, 0.35);
  paint.hover_top = paint.hover_bottom = paint.top;
  paint.pressed = Mixed(paint.top, Qt::black, 0.08);
  const QColor light = Mixed(paint.top, Qt::white, ink.dark ? 0.45 : 0.85);
  const QColor shadow = Mixed(paint.top, Qt::black, ink.dark ? 0.65 : 0.5);
  paint.hover_border = Border(light, shadow);
  paint.pressed_border = Border(shadow, light);
  return paint;
}

// A flat tint of the accent colour, and a bar of the accent itself at the left of what is under the pointer.
Paint TintedPaint(const Ink& ink) {
  Paint paint;
  paint.top = paint.bottom = Mixed(ink.window, ink.accent, 0.13);
  paint.line = Mixed(ink.window, ink.accent, 0.5);
  paint.hover_top = paint.hover_bottom = Mixed(ink.window, ink.accent, 0.28);
  paint.pressed = Mixed(ink.window, ink.accent, 0.38);
  paint.left_border = 3;
  const QColor bar = StandingOut(ink.accent, {paint.top, paint.hover_top, paint.pressed}, kContrastOfMarks);
  paint.hover_border = QString("border-left-color: %1;").arg(bar.name());
  paint.pressed_border = paint.hover_border;
  return paint;
}

// A soft run of colour, and a thin frame.
Paint GradientPaint(const Ink& ink) {
  Paint paint;
  paint.top = Mixed(ink.window, Qt::white, ink.dark ? 0.14 : 0.75);
  paint.bottom = Mixed(ink.window, ink.accent, 0.2);
  paint.line = Mixed(ink.window, ink.accent, 0.55);
  paint.hover_top = Mixed(paint.top, ink.accent, 0.16);
  paint.hover_bottom = Mixed(paint.bottom, ink.accent, 0.25);
  paint.pressed = Mixed(ink.window, ink.accent, 0.42);
  paint.radius = 2;
  const QColor frame = StandingOut(ink.accent, {paint.top, paint.bottom}, kContrastOfMarks);
  paint.hover_border = Border(frame, frame);
  paint.pressed_border = paint.hover_border;
  return paint;
}

// Nearly the colour of a page at the top; what is under the pointer is a rounded patch without a frame.
Paint LightPaint(const Ink& ink) {
  Paint paint;
  paint.top = Mixed(ink.window, Qt::white, ink.dark ? 0.05 : 0.85);
  paint.bottom = Mixed(ink.window, ink.dark ? Qt::black : Qt::white, ink.dark ? 0.22 : 0.2);
  paint.line = Mixed(ink.window, ink.text, 0.18);
  paint.hover_top = Mixed(paint.top, ink.accent, 0.2);
  paint.hover_bottom = Mixed(paint.bottom, ink.accent, 0.2);
  paint.pressed = Mixed(paint.bottom, ink.accent, 0.35);
  paint.radius = 7;
  return paint;
}

Paint PaintOf(int theme, const QPalette& palette) {
  using Maker = Paint (*)(const Ink&);
  constexpr Maker kMakers[kPaintThemes] = {GreyPaint, TintedPaint, GradientPaint, nullptr, LightPaint};
  const Ink ink = InkOf(palette);
  Paint paint = kMakers[theme](ink);
  paint.text = StandingOut(ink.text, {paint.top, paint.bottom, paint.hover_top, paint.hover_bottom, paint.pressed},
                           kContrastOfText);
  paint.faint_text = palette.color(QPalette::Disabled, QPalette::WindowText);
  paint.focus = StandingOut(ink.accent, {paint.top, paint.bottom, paint.hover_top, paint.pressed}, kContrastOfMarks);
  return paint;
}

QString Ground(const QColor& top, const QColor& bottom) {
  if (top == bottom) return QString("background: %1;").arg(top.name());
  return QString("background: qlineargradient(x1:0, y1:0, x2:0, y2:1, stop:0 %1, stop:1 %2);")
      .arg(top.name(), bottom.name());
}

// The buttons that a selector names.
QString ButtonSheet(const QString& selector, const Paint& paint, int space) {
  return QString(
             "%1 { background: transparent; border: 1px solid transparent; border-left-width: %2px;"
             " border-radius: %3px; padding: %4px; color: %5; }"
             "%1:disabled { color: %6; }"
             "%1:hover { %7 %8 }"
             "%1:pressed, %1:checked { background: %9; ")
             .arg(selector)
             .arg(paint.left_border)
             .arg(paint.radius)
             .arg(space)
             .arg(paint.text.name(), paint.faint_text.name(), Ground(paint.hover_top, paint.hover_bottom),
                  paint.hover_border, paint.pressed.name()) +
         QString("%2 } %1:focus { border: 2px solid %3; padding: %4px; }")
             .arg(selector, paint.pressed_border, paint.focus.name())
             .arg(std::max(space - 1, 0));
}

QString MenuBarSheet(const Paint& paint, int height) {
  return QString(
             "QMenuBar { %1 color: %2; }"
             "QMenuBar::item { background: transparent; border: 1px solid transparent; border-left-width: %3px;"
             " border-radius: %4px; padding: %5px %6px; }"
             "QMenuBar::item:selected { %7 %8 }")
             .arg(Ground(paint.top, paint.top), paint.text.name())
             .arg(paint.left_border)
             .arg(paint.radius)
             .arg(height / 5)
             .arg(height / 2)
             .arg(Ground(paint.hover_top, paint.hover_bottom), paint.hover_border) +
         QString("QMenuBar::item:pressed { background: %1; %2 }").arg(paint.pressed.name(), paint.pressed_border);
}

QString ToolBarSheet(const Paint& paint, int height) {
  return QString(
             "QToolBar { %1 border: none; border-bottom: 1px solid %2; padding: 1px; spacing: 1px; }"
             "QToolBar::separator { background: %2; width: 1px; margin: 4px %3px; }")
             .arg(Ground(paint.top, paint.bottom), paint.line.name())
             .arg(height / 5) +
         ButtonSheet("QToolBar > QToolButton", paint, std::max(2, height / 6)) +
         // The key at its end is too narrow for a space around its picture.
         "QToolBar > QToolButton#qt_toolbar_ext_button { border: none; padding: 0; }";
}

QString StatusBarSheet(const Paint& paint) {
  return QString(
             "QStatusBar { %1 border-top: 1px solid %2; }"
             "QStatusBar::item { border: none; } QStatusBar QLabel { color: %3; }")
      .arg(Ground(paint.top, paint.bottom), paint.line.name(), paint.text.name());
}

QString HeadingSheet(const Paint& paint, int height) {
  return ButtonSheet("QToolButton", paint, height / 5) +
         QString("QToolButton { %1 border-bottom-color: %2; }")
             .arg(Ground(paint.top, paint.bottom), paint.line.name()) +
         QString("QToolButton:hover { %1 %2 } QToolButton:focus { border: 2px solid %3; }")
             .arg(Ground(paint.hover_top, paint.hover_bottom), paint.hover_border, paint.focus.name());
}

// The same sheet once more would cost as much as a new one.
void UseSheet(QWidget* widget, const QString& sheet) {
  if (widget && widget->styleSheet() != sheet) widget->setStyleSheet(sheet);
}

// The key at the end of a toolbar that has not room for all: two arrow heads in the colour of text. The one of the
// system's style is black, whatever it stands on.
QIcon OverflowIcon(const QColor& colour) {
  constexpr int kSide = 64;
  QPixmap picture(kSide, kSide);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour, kSide / 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  for (const double left : {0.2, 0.5}) {
    painter.drawPolyline(
        QPolygonF({QPointF(left, 0.25) * kSide, QPointF(left + 0.25, 0.5) * kSide, QPointF(left, 0.75) * kSide}));
  }
  painter.end();
  return picture;
}

}  // namespace

void PaintBars(QMainWindow& frame, int toolbar_style) {
  const ToolbarStyle& style = ToolbarStyles()[static_cast<std::size_t>(toolbar_style)];
  const QPalette palette = frame.palette();
  const int height = frame.fontMetrics().height();
  const bool native = style.bar_theme == kNativeTheme;
  const Paint bars = native ? Paint{} : PaintOf(style.bar_theme, palette);
  UseSheet(frame.menuBar(), native ? QString() : MenuBarSheet(bars, height));
  UseSheet(frame.statusBar(), native ? QString() : StatusBarSheet(bars));
  for (QToolBar* bar : frame.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly)) {
    UseSheet(bar, native ? QString() : ToolBarSheet(bars, height));
    if (auto* more = bar->findChild<QToolButton*>("qt_toolbar_ext_button")) {
      more->setIcon(OverflowIcon(native ? palette.color(QPalette::Active, QPalette::ButtonText) : bars.text));
    }
  }
  const Paint headings = PaintOf(style.heading_theme, palette);
  for (const char* name : {"ShortcutCaption1", "ShortcutCaption2"}) {
    UseSheet(frame.findChild<QWidget*>(name), HeadingSheet(headings, height));
  }
}

}  // namespace tessara
