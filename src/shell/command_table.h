#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/command_row.h"

// Menus and toolbar as lists of commands. Entries with the same id are the same command; a front end builds its actions
// from the rows, asks UpdateCommand for their state, and sends each to ExecuteCommand.

namespace tessara {

// Icon alone, or icon and caption.
enum class CommandStyle { kIcon = 0, kIconAndCaption = 3 };

struct BarEntry {
  int id = 0;
  bool begin_group = false;
  std::string_view caption = {};  // empty: that of the row
  CommandStyle style = CommandStyle::kIcon;
  std::string_view word = {};   // a shorter caption beside the icon, whatever the style
  ViewSet begin_group_in = {};  // the views in which a separator comes before it, besides begin_group
};

struct CommandMenu {
  std::string_view title;
  std::vector<BarEntry> entries;
};

const std::vector<CommandMenu>& MenuBar();
const std::vector<BarEntry>& Toolbar();
// Views with keys of their own for what they do go without the toolbar.
bool ToolbarIsVisible(View view);
// The caption of an entry, "&" ahead of its access letter.
std::string_view CaptionOf(const BarEntry& entry);

struct CommandState {
  bool visible = false;
  bool enabled = false;
  std::string caption;  // empty: the caption of the entry stands
  std::string reason;   // why it is not enabled
  bool checked = false;
};

CommandState UpdateCommand(const Session& session, int id, const WidgetState& widgets);
// The same as if that view stood in front, with the state of its widgets.
CommandState UpdateCommandIn(const Session& session, View view, int id, const WidgetState& widgets);

// Runs a command under the wait cursor. A command that no row names does nothing, as does one in a view that its row
// does not name.
WidgetAction ExecuteCommand(Session& session, int id, const WidgetState& widgets);

}  // namespace tessara
