#pragma once

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "shell/command_row.h"

// The command palette: everything that can be chosen by typing a piece of its name. Commands of all menus, procedures,
// calculators, the variables of the data, topics of the handbook, pages of the help and notes of the glossary.

namespace tessara {

struct CommandTarget {
  int id = 0;
  View view = View::kNone;  // where it stands; kNone when it does so everywhere

  friend bool operator==(const CommandTarget&, const CommandTarget&) = default;
};

struct ProcedureTarget {
  Procedure procedure = Procedure::kNone;
  std::optional<RegressionKind> kind;

  friend bool operator==(const ProcedureTarget&, const ProcedureTarget&) = default;
};

struct CalculatorTarget {
  int panel = 0;  // as CurrentPanel has it

  friend bool operator==(const CalculatorTarget&, const CalculatorTarget&) = default;
};

struct VariableTarget {
  std::size_t column = 0;

  friend bool operator==(const VariableTarget&, const VariableTarget&) = default;
};

struct TopicTarget {
  int row = 0;  // of the topic box, counted from 1

  friend bool operator==(const TopicTarget&, const TopicTarget&) = default;
};

struct PageTarget {
  std::string page;  // of the Help folder

  friend bool operator==(const PageTarget&, const PageTarget&) = default;
};

struct TermTarget {
  std::string subject;

  friend bool operator==(const TermTarget&, const TermTarget&) = default;
};

using PaletteTarget =
    std::variant<CommandTarget, ProcedureTarget, CalculatorTarget, VariableTarget, TopicTarget, PageTarget, TermTarget>;

// Texts are single lines of plain text in the code page, cut to what a line of a list can show.
struct PaletteEntry {
  PaletteTarget target;
  std::string caption;
  std::string where;     // the menu and the view, or what kind of thing it is; of a variable its label
  std::string shortcut;  // "Ctrl+O"
  std::string reason;    // why it cannot be chosen now
  bool enabled = true;
  std::string key;                // caption and where as a search compares them (palette_search.h)
  std::size_t caption_bytes = 0;  // of the key that belong to the caption
  std::uint64_t letters = 0;      // which ones the key has
};

// The state of a view's widgets; nothing for a view that is not in the workspace.
using StateOfView = std::function<std::optional<WidgetState>(View view)>;

// Everything that there is just now: the commands of the view in front come first, variables last.
std::vector<PaletteEntry> BuildPalette(Session& session, const StateOfView& state_of);

// What an entry stands for, but for commands, which the front end runs as its menus do: a procedure is chosen on the
// panel, a calculator on its form, the cursor of the grid goes to a variable, a page or a note is shown.
WidgetAction ChooseFromPalette(Session& session, const PaletteTarget& target);

}  // namespace tessara
