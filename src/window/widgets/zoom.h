#pragma once

#include <QObject>

#include "platform/settings_store.h"

class QAction;
class QKeySequence;
class QWidget;

namespace tessara {

inline constexpr const char* kZoomSetting = "Zoom";  // percent; 0 or none for the usual size

// The size of type in the views of a window: Ctrl+Plus, Ctrl+Minus, Ctrl+0, and Ctrl with the wheel. It is kept from
// one start to the next.
class Zoom : public QObject {
  Q_OBJECT

 public:
  static constexpr int kUsual = 100;
  static constexpr int kLeast = 40;
  static constexpr int kMost = 400;

  Zoom(SettingsStore& store, QWidget* window);

  int percent() const { return percent_; }
  void Set(int percent);
  // By so many steps of ten percent; none for the usual size.
  void Step(int steps);

 signals:
  void Changed(int percent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void AddAction(const char* name, const QString& text, const QList<QKeySequence>& keys, int steps);

  SettingsStore& store_;
  QWidget* window_;
  int percent_ = kUsual;
  int wheel_rest_ = 0;
};

}  // namespace tessara
