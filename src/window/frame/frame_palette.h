#pragma once

#include <QObject>
#include <functional>

#include "shell/palette.h"

// The command palette of the frame, and what its choices do there.

namespace tessara {

class FrmMain;
class Palette;

class FramePalette : public QObject {
  Q_OBJECT

 public:
  // How the frame runs an operation: with all that it does around a command.
  using Run = std::function<void(const std::function<WidgetAction()>&)>;

  FramePalette(FrmMain& frame, Run run);

  void Open();

 private:
  std::vector<PaletteEntry> Entries();
  // A command runs as the menus run it, when its view has come to the front and its rule allows it there.
  void Choose(const PaletteEntry& entry);

  FrmMain& frame_;
  Run run_;
  Palette* palette_ = nullptr;
};

}  // namespace tessara
