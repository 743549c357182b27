#include "window/widgets/zoom.h"

#include <QAction>
#include <QApplication>
#include <QKeySequence>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>

#include "shell/settings.h"

namespace tessara {
namespace {

constexpr char kOwnZoom[] = "zoomOfItsOwn";
constexpr int kStep = 10;
constexpr int kWheelNotch = 120;

int KeptPercent(const SettingsStore& store) {
  const int kept = QString::fromStdString(store.Read(std::string(kZoomSetting)).value_or("")).toInt();
  return kept < kLeastZoom || kept > kMostZoom ? Zoom::kUsual : kept;
}

}  // namespace

Zoom::Zoom(SettingsStore& store, QWidget* window)
    : QObject(window), store_(store), window_(window), percent_(KeptPercent(store)) {
  AddAction("LargerType", tr("Larger Type"),
            {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)}, 1);
  AddAction("SmallerType", tr("Smaller Type"), {QKeySequence(Qt::CTRL | Qt::Key_Minus)}, -1);
  AddAction("UsualType", tr("Usual Size of Type"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, 0);
  qApp->installEventFilter(this);
}

void Zoom::AddAction(const char* name, const QString& text, const QList<QKeySequence>& keys, int steps) {
  auto* action = new QAction(text, window_);
  action->setObjectName(name);
  action->setShortcuts(keys);
  window_->addAction(action);
  connect(action, &QAction::triggered, this, [this, steps] { StepAt(QApplication::focusWidget(), steps); });
}

void Zoom::Set(int percent) {
  percent = std::clamp(percent, kLeastZoom, kMostZoom);
  if (percent == percent_) return;
  percent_ = percent;
  store_.Write(std::string(kZoomSetting),
               std::to_string(percent));  // a store that refuses keeps the size for this run alone
  emit Changed(percent);
}

void Zoom::Step(int steps) { Set(steps == 0 ? kUsual : (percent_ / kStep + steps) * kStep); }

void Zoom::LeaveTo(QWidget* widget) { widget->setProperty(kOwnZoom, true); }

void Zoom::StepAt(QWidget* place, int steps) {
  for (; place; place = place->parentWidget()) {
    if (place->property(kOwnZoom).toBool()) {
      QMetaObject::invokeMethod(place, "ZoomBy", Q_ARG(int, steps));
      return;
    }
  }
  Step(steps);
}

// The wheel is taken ahead of the texts, which would enlarge themselves alone.
bool Zoom::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Wheel) return false;
  const auto* wheel = static_cast<QWheelEvent*>(event);
  auto* widget = qobject_cast<QWidget*>(watched);
  if (!widget || widget->window() != window_ || wheel->modifiers() != Qt::ControlModifier) return false;
  wheel_rest_ += wheel->angleDelta().y();
  const int notches = wheel_rest_ / kWheelNotch;
  wheel_rest_ %= kWheelNotch;
  if (notches != 0) StepAt(widget, notches);
  event->accept();
  return true;
}

}  // namespace tessara
