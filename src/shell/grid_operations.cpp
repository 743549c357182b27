#include "shell/grid_operations.h"

#include <algorithm>
#include <string_view>

#include "data/change_door.h"
#include "data/edit/block_edit.h"
#include "data/edit/rows_and_columns.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShownOfAName = 40;

// The name of a step as a line shows it: a variable may be called anything.
std::string ShownName(std::string_view name) {
  std::string shown(name.substr(0, kMostShownOfAName));
  std::ranges::replace_if(
      shown, [](unsigned char c) { return c < ' '; }, ' ');
  if (name.size() > kMostShownOfAName) shown += "...";
  return shown;
}

std::string CaptionWith(std::string_view word, std::string_view name) {
  if (name.empty()) return std::string(word);
  std::string caption = std::string(word) + " ";
  for (const char c : ShownName(name)) caption += c == '&' ? "&&" : std::string(1, c);
  return caption;
}

void SelectChangedCells(Session& session, const ChangeNote& note) {
  const ChangeExtent& extent = note.extent;
  if (note.kind != ChangeKind::kCells && note.kind != ChangeKind::kDictionary) return;
  if (extent.first_row < kVariableNameRow) return;  // something that the grid does not show
  const DataSet& data = session.data;
  const std::size_t row = extent.first_row - kHeaderRowCount;
  if (row > data.GridRecords() || extent.first_column > data.GridVariables()) return;
  MoveCursor(session.data, {row, extent.first_column});
  session.grid_selection = {row, std::min(row + extent.row_count - 1, data.GridRecords()), extent.first_column,
                            std::min(extent.first_column + extent.column_count - 1, data.GridVariables())};
}

void CrossStep(Session& session, bool (*cross)(DataSet&), const char* word, std::string_view name) {
  const std::string told = word + ShownName(name);  // the step is another one behind it
  const auto revision = session.data.Revision();
  if (!cross(session.data)) return;
  if (const auto notes = session.data.notes.Since(revision)) {
    for (const ChangeNote& note : *notes) SelectChangedCells(session, note);
  }
  session.platform.SetStatusPane(kMessagePane, told);
}

}  // namespace

void CopyCells(Session& session) { CopyBlock(session.data, session.grid_selection, session.platform); }

void CutCells(Session& session) { CutBlock(session.data, session.grid_selection, session.platform, session.platform); }

void PasteCells(Session& session) {
  DataSet& data = session.data;
  const WaitCursor wait(session.platform);
  const PasteSize pasted = PasteText(data, session.platform.ClipboardText(), session.platform);
  if (pasted.rows == 0) return;
  const std::size_t column = std::max<std::size_t>(data.CurrentColumn, 1);
  MoveCursor(data, {data.CurrentRow, column});
  session.grid_selection = {data.CurrentRow, data.CurrentRow + pasted.rows - 1, column, column + pasted.columns - 1};
}

void ClearCells(Session& session) { ClearBlock(session.data, session.grid_selection, session.platform); }

void AddGridRows(Session& session) { AddRowsByHand(session.data, session.platform); }

void AddGridColumn(Session& session) { AddColumnByHand(session.data, session.platform); }

void DeleteGridRows(Session& session) { DeleteRowsByHand(session.data, session.grid_selection, session.platform); }

void DeleteGridColumns(Session& session) {
  DeleteColumnsByHand(session.data, session.grid_selection, session.platform);
}

void UndoDataChange(Session& session) { CrossStep(session, UndoChange, "Undone: ", UndoName(session.data)); }

void RedoDataChange(Session& session) { CrossStep(session, RedoChange, "Redone: ", RedoName(session.data)); }

std::string UndoCaption(const Session& session) { return CaptionWith("Undo", UndoName(session.data)); }

std::string RedoCaption(const Session& session) { return CaptionWith("Redo", RedoName(session.data)); }

}  // namespace tessara
