#include "data/edit/rows_and_columns.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "data/change_door.h"
#include "data/edit/edit_limit.h"

namespace tessara {
namespace {

// A stretch of rows or columns from `first` to `last`, as far as there are any; 0 counts as 1.
struct Stretch {
  Stretch(std::size_t from, std::size_t to, std::size_t count) : first(std::max<std::size_t>(from, 1)) {
    const std::size_t last = std::min(std::max<std::size_t>(to, 1), count);
    length = last < first ? 0 : last - first + 1;
  }

  std::size_t first;
  std::size_t length;
};

}  // namespace

void AddRowsByHand(DataSet& data, Messages& messages) {
  if (!AllowsMoreCells(data, messages)) return MarkChanged(data);
  ApplyChange(data, AddRows(data, kRowsAddedByHand, "Add Rows"));
}

void AddColumnByHand(DataSet& data, Messages& messages) {
  if (!AllowsMoreCells(data, messages)) return MarkChanged(data);
  const std::size_t number = data.VariableCount + 1;
  std::vector<Column> added(1);
  added[0].Set(kVariableNameRow, "V" + std::to_string(number));
  ApplyChange(data, AddColumns(data, std::move(added), "Add Columns"));
  MoveCursor(data, {std::min<std::size_t>(1, data.RecordCount), std::min(number, data.GridVariables())});
}

void DeleteRowsByHand(DataSet& data, const GridBlock& selection, Status& status) {
  if (data.RecordCount <= 1 || data.CurrentColumn != 0) return;
  const WaitCursor wait(status);
  const Stretch rows(selection.first_row, selection.last_row, data.RecordCount);
  if (rows.length == 0) return;
  ApplyChange(data, RemoveRows(data, rows.first, rows.length, "Delete Rows"));
}

void DeleteColumnsByHand(DataSet& data, const GridBlock& selection, Status& status) {
  if (data.VariableCount <= 1 || data.CurrentRow != 0) return;
  const WaitCursor wait(status);
  const std::size_t cursor = std::max<std::size_t>(data.CurrentColumn, 1);
  const Stretch columns(selection.first_column, selection.last_column, data.VariableCount);
  if (columns.length == 0) return;
  ApplyChange(data, RemoveColumns(data, columns.first, columns.length, "Delete Columns"));
  data.CurrentColumn = std::min(cursor - 1, data.GridVariables());
}

}  // namespace tessara
