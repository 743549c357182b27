#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/session.h"

// Menus and toolbar as data. Entries with the same id are the same command; a front end builds its actions from these
// rows, asks UpdateCommand for their state, and sends each to ExecuteCommand.

namespace tessara {

// The commands that front ends name themselves.
inline constexpr int kNewCommand = 101;
inline constexpr int kOpenCommand = 102;
inline constexpr int kPrintCommand = 106;
inline constexpr int kConvertCommand = 211;
inline constexpr int kCopyOutputCommand = 212;
inline constexpr int kRunCommand = 308;
inline constexpr int kToggleOutputCommand = 350;
inline constexpr int kRefreshDocumentationCommand = 502;
inline constexpr int kToggleHelpCommand = 602;

// Icon alone, or icon and caption.
enum class CommandStyle { kIcon = 0, kIconAndCaption = 3 };

struct CommandControl {
  int id = 0;
  std::string_view caption = {};  // "&" ahead of the access letter
  std::string_view tooltip = {};
  bool begin_group = false;
  CommandStyle style = CommandStyle::kIcon;
  std::string_view icon = {};      // name in the icon theme
  std::string_view shortcut = {};  // "Ctrl+O"
};

struct CommandMenu {
  std::string_view title;
  std::vector<CommandControl> commands;
};

const std::vector<CommandMenu>& MenuBar();
const std::vector<CommandControl>& Toolbar();

// What the rules need to know of the front end's widgets.
struct WidgetState {
  bool output_has_selection = false;
  bool clipboard_has_text = false;
  bool can_undo = false;
  bool can_redo = false;
};

struct CommandState {
  bool visible = false;
  bool enabled = false;
  std::string caption;  // empty: the caption of the control stands
};

CommandState UpdateCommand(const Session& session, int id, const WidgetState& widgets);

// What is left to the front end after a command, because only it has the widget.
enum class WidgetAction {
  kNone,
  kCloseFrame,
  kSelectAll,
  kCopy,
  kPaste,
  kCut,
  kUndo,
  kRedo,
  kDefaultSize,
  kToggleHelpPane,
  kShowAbout,
  kOpenHelp,
};

// Runs a command under the wait cursor. An id that no table names does nothing.
WidgetAction ExecuteCommand(Session& session, int id, const WidgetState& widgets);

}  // namespace tessara
