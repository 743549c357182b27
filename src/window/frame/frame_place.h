#pragma once

#include <QMainWindow>

#include "platform/platform.h"
#include "shell/settings.h"

namespace tessara {

// The size of the frame as Op7 and Op8 tell it, and where it stands and whether it is maximised, which is a setting of
// its own.
class FramePlace {
 public:
  FramePlace(QMainWindow& frame, SettingsStore& store, Platform& platform, Settings& settings);

  // On a small screen the frame may be made as small as that.
  void BoundLeastSize();
  void UseDefaultSize();
  // The size of the settings, unless the frame is maximised.
  void ApplySize();
  // A place that no screen shows any more is left to the window system; a maximised frame knows the size to go back to.
  void Restore();
  void Store();

 private:
  QMainWindow& frame_;
  SettingsStore& store_;
  Platform& platform_;
  Settings& settings_;
};

}  // namespace tessara
