#include "window/widgets/focus_outline.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QPainter>

#include "window/widgets/contrast.h"

namespace tessara {
namespace {

constexpr char kAskedFor[] = "outlineOfFocus";
constexpr int kWidth = 2;

}  // namespace

void FocusOutline::AskFor(QWidget* widget) { widget->setProperty(kAskedFor, true); }

void FocusOutline::Watch(QObject* owner) {
  QObject::connect(qApp, &QApplication::focusChanged, owner,
                   [shown = QPointer<FocusOutline>()](auto*, QWidget* now) mutable {
                     delete shown;
                     if (now && now->property(kAskedFor).toBool() && now->parentWidget()) shown = new FocusOutline(now);
                   });
}

FocusOutline::FocusOutline(QWidget* outlined) : QWidget(outlined->parentWidget()), outlined_(outlined) {
  setObjectName("FocusOutline");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFocusPolicy(Qt::NoFocus);
  outlined->installEventFilter(this);
  Follow();
}

void FocusOutline::Follow() {
  setGeometry(outlined_->geometry());
  setVisible(!outlined_->isHidden());
  raise();
}

bool FocusOutline::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const bool moved = type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show || type == QEvent::Hide;
  if (moved && watched == outlined_) Follow();
  return QWidget::eventFilter(watched, event);
}

void FocusOutline::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool coloured = qobject_cast<QAbstractButton*>(outlined_) != nullptr;
  const QPalette::ColorRole role = coloured ? QPalette::WindowText : QPalette::Highlight;
  const QColor line = StandingOut(
      palette().color(QPalette::Active, role),
      {palette().color(QPalette::Active, QPalette::Window), palette().color(QPalette::Active, QPalette::Base)},
      kContrastOfMarks);
  painter.setPen(QPen(line, kWidth));
  const qreal inside = kWidth / 2.0;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inside, inside, -inside, -inside), kWidth, kWidth);
}

}  // namespace tessara
