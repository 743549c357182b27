#pragma once

#include <QObject>

#include "platform/settings_store.h"

class QAction;
class QKeySequence;
class QWidget;

namespace tessara {

// The size of type in the views of a window: Ctrl+Plus, Ctrl+Minus, Ctrl+0, and Ctrl with the wheel. It is kept from
// one start to the next.
class Zoom : public QObject {
  Q_OBJECT

 public:
  static constexpr int kUsual = 100;  // percent

  Zoom(SettingsStore& store, QWidget* window);

  // While the keyboard or the pointer is in this widget, its invokable ZoomBy(int steps) is called instead.
  static void LeaveTo(QWidget* widget);

  int percent() const { return percent_; }
  void Set(int percent);
  // By so many steps of ten percent; none for the usual size.
  void Step(int steps);

 signals:
  void Changed(int percent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void StepAt(QWidget* place, int steps);
  void AddAction(const char* name, const QString& text, const QList<QKeySequence>& keys, int steps);

  SettingsStore& store_;
  QWidget* window_;
  int percent_ = kUsual;
  int wheel_rest_ = 0;
};

}  // namespace tessara
