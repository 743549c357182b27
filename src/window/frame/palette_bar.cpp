#include "window/frame/palette_bar.h"

#include <QAction>
#include <QEvent>
#include <QLayout>

namespace tessara {

YieldingButton::YieldingButton(QWidget* parent) : QToolButton(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void YieldingButton::Measure() {
  const Qt::ToolButtonStyle style = toolButtonStyle();
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  wide_ = QToolButton::sizeHint();
  setToolButtonStyle(Qt::ToolButtonIconOnly);
  narrow_ = QToolButton::sizeHint();
  setToolButtonStyle(style);
  updateGeometry();
  emit Measured(narrow_.width());
}

bool YieldingButton::event(QEvent* event) {
  if (event->type() == QEvent::Polish) Measure();
  return QToolButton::event(event);
}

void YieldingButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) Measure();
}

void YieldingButton::resizeEvent(QResizeEvent* event) {
  QToolButton::resizeEvent(event);
  const auto style = width() < wide_.width() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon;
  if (style != toolButtonStyle()) setToolButtonStyle(style);
}

QToolBar* MakePaletteBar(QAction* command, QWidget* frame) {
  auto* bar = new QToolBar(QToolBar::tr("Palette"), frame);
  bar->setObjectName("Palette");
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  auto* room = new QWidget(bar);  // keeps the button at the right
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  auto* button = new YieldingButton(bar);
  button->setObjectName("PaletteButton");
  button->setText(QToolButton::tr("Find") + "  " + command->shortcut().toString(QKeySequence::NativeText));
  button->setIcon(command->icon());
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(command->text().remove('&'));
  button->setToolTip(QToolButton::tr("Find a command, a procedure, a variable or a topic"));
  QObject::connect(button, &QToolButton::clicked, command, &QAction::trigger);
  QObject::connect(bar, &QToolBar::iconSizeChanged, button, &QToolButton::setIconSize);
  bar->addWidget(room);
  bar->addWidget(button);
  // A toolbar asks for the least of its first entry alone, and hides the others.
  QObject::connect(button, &YieldingButton::Measured, bar, [bar](int least) {
    const QMargins around = bar->layout()->contentsMargins();
    bar->setMinimumWidth(least + around.left() + around.right() + 2 * bar->layout()->spacing());
  });
  return bar;
}

}  // namespace tessara
