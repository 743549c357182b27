#include "shell/table_operations.h"

#include <string_view>

#include "presentation/table_edit.h"
#include "presentation/table_steps.h"

namespace tessara {
namespace {

// What was written into the box of the text is kept in the text that shows.
void ShowText(Session& session, bool log) {
  session.output.OutputGridMode = false;
  if (session.output.ShowLogMode != log) ToggleOutputMode(session.output);
}

void CrossStep(Session& session, bool (*cross)(TableGrid&, TableFace&), const char* word, std::string_view name) {
  const std::string told = word + std::string(name);  // the step is another one behind it
  if (cross(session.table.grid, session.table.face)) session.platform.SetStatusPane(kMessagePane, told);
}

std::string CaptionWith(std::string_view word, std::string_view name) {
  return std::string(word) + (name.empty() ? "" : " ") + std::string(name);
}

}  // namespace

void ShowMostRecent(Session& session) { ShowText(session, false); }

void ShowLog(Session& session) { ShowText(session, true); }

void ShowTable(Session& session) { session.output.OutputGridMode = true; }

void SelectWholeTable(Session& session) { SelectTable(session.table.grid, session.table.face); }

void CopyTable(Session& session) { CopyTableCells(session.table.grid, session.table.face, session.platform); }

void CutTable(Session& session) { CutTableCells(session.table.grid, session.table.face, session.platform); }

void PasteTable(Session& session) {
  PasteIntoTable(session.table.grid, session.table.face, session.platform.ClipboardText(), session.platform);
}

void ClearTable(Session& session) { ClearTableCells(session.table.grid, session.table.face); }

void EmptyWholeTable(Session& session) {
  if (session.table.grid.empty()) return;
  EmptyTable(session.table.grid, session.table.face);
  session.platform.SetStatusPane(kMessagePane, "The table is empty; Undo brings it back");
}

void DeleteRowsOfTable(Session& session) { DeleteTableRows(session.table.grid, session.table.face); }

void DeleteColumnsOfTable(Session& session) { DeleteTableColumns(session.table.grid, session.table.face); }

void AlignTable(Session& session, TableAlignment alignment) {
  AlignTableCells(session.table.grid, session.table.face, alignment);
}

void UndoTable(Session& session) { CrossStep(session, UndoTableStep, "Undone: ", UndoTableName(session.table.face)); }

void RedoTable(Session& session) { CrossStep(session, RedoTableStep, "Redone: ", RedoTableName(session.table.face)); }

std::string UndoTableCaption(const Session& session) { return CaptionWith("Undo", UndoTableName(session.table.face)); }

std::string RedoTableCaption(const Session& session) { return CaptionWith("Redo", RedoTableName(session.table.face)); }

}  // namespace tessara
