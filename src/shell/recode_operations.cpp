#include "shell/recode_operations.h"

#include <algorithm>

#include "data/recode/find_cells.h"
#include "data/recode/recode_run.h"
#include "numerics/masks.h"

namespace tessara {
namespace {

constexpr std::size_t kMostOfAName = 40;

std::string Counted(std::size_t count, const char* one, const char* many) {
  return Grouped(static_cast<double>(count)) + " " + (count == 1 ? one : many);
}

// A name as a line shows it: a variable may be called anything.
std::string ShownName(const DataSet& data, std::size_t column) {
  std::string name = data.VariableName(column);
  if (name.size() > kMostOfAName) name = name.substr(0, kMostOfAName) + "...";
  std::ranges::replace_if(
      name, [](unsigned char c) { return c < ' '; }, ' ');
  return name;
}

void Tell(Session& session, const std::string& text) { session.platform.SetStatusPane(kMessagePane, text); }

void TellChanged(Session& session, std::string_view what, std::size_t cells) {
  Tell(session, std::string(what) + ": " + Counted(cells, "cell", "cells") + " changed");
}

void TellFound(Session& session, std::size_t row) {
  const RecodePanel& panel = session.recode;
  const std::string matches = Counted(CountMatches(panel, session.data), "match", "matches") + " in " +
                              ShownName(session.data, panel.RecodeColumn);
  if (row == 0) return Tell(session, "No Match Found, " + matches);
  const std::size_t record = row - kHeaderRowCount;
  const bool shown = record <= session.data.GridRecords() && panel.RecodeColumn <= session.data.GridVariables();
  const std::string place = "Record " + Grouped(static_cast<double>(record));
  Tell(session, place + (shown ? ", " : ", which the grid does not show, ") + matches);
}

}  // namespace

WidgetAction OpenRecodeMode(Session& session, RecodeMode mode) {
  OpenRecodePanel(session.recode, session.data, mode);
  if (mode == RecodeMode::kFind) session.recode.FindRow = 0;
  session.wanted_view = View::ViewDataGrid;
  return WidgetAction::kShowRecodePanel;
}

void RunRecode(Session& session) {
  const RecodeMode mode = session.recode.mode;
  const RecodeOutcome outcome = RunRecodePanel(session.recode, session.data, session.platform);
  if (outcome.refused) return;
  session.wanted_view = View::ViewDataGrid;
  if (mode == RecodeMode::kFind) {
    TellFound(session, outcome.found_row);
  } else {
    TellChanged(session, RowOfMode(mode).title, outcome.changed_cells);
  }
}

void UndoRecode(Session& session) { TellChanged(session, "Undo", UndoReplace(session.recode, session.data)); }

void ResetRecode(Session& session) { ResetRecodePanel(session.recode); }

void ResetGridSearch(Session& session) { ResetSearch(session.recode); }

}  // namespace tessara
