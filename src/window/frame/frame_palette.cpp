#include "window/frame/frame_palette.h"

#include <QAction>

#include "window/frame/frm_main.h"
#include "window/frame/palette.h"
#include "window/frame/palette_bar.h"

namespace tessara {
namespace {

QAction* ActionOf(const FrmMain& frame, int id) {
  return frame.findChild<QAction*>(QString::number(id), Qt::FindDirectChildrenOnly);
}

}  // namespace

FramePalette::FramePalette(FrmMain& frame, Run run) : QObject(&frame), frame_(frame), run_(std::move(run)) {
  frame.addToolBar(MakePaletteBar(ActionOf(frame, kPaletteCommand), &frame));
}

void FramePalette::Open() {
  if (!palette_) {
    palette_ = new Palette({.window = &frame_,
                            .build = [this] { return Entries(); },
                            .view_in_front = [this] { return frame_.session().ActiveView; },
                            .choose = [this](const PaletteEntry& entry) { Choose(entry); }});
  }
  palette_->Open();
}

std::vector<PaletteEntry> FramePalette::Entries() {
  return BuildPalette(frame_.session(), [this](View view) -> std::optional<WidgetState> {
    if (!frame_.view(view)) return std::nullopt;
    return frame_.StateOf(view);
  });
}

void FramePalette::Choose(const PaletteEntry& entry) {
  const auto* command = std::get_if<CommandTarget>(&entry.target);
  if (!command) return run_([&] { return ChooseFromPalette(frame_.session(), entry.target); });
  if (command->view != View::kNone) frame_.ShowView(command->view);
  QAction* action = ActionOf(frame_, command->id);
  if (action && action->isVisible()) action->trigger();
}

}  // namespace tessara
