#include "data/recode/grid_marks.h"

#include <new>

#include "data/column_place.h"

namespace tessara {

std::size_t ColumnBehind(std::size_t column, const ChangeNote& note) {
  if (note.kind == ChangeKind::kWholeData) return 0;
  return MovesColumns(note) ? PlaceBehind(column, note) : column;
}

std::size_t RowBehind(std::size_t row, const ChangeNote& note) {
  if (note.kind == ChangeKind::kWholeData) return 0;
  const bool added = note.kind == ChangeKind::kRowsAdded;
  if (!added && note.kind != ChangeKind::kRowsRemoved) return row;
  const ChangeExtent& extent = note.extent;
  if (row == 0 || row < extent.first_row) return row;
  if (added) return row + extent.row_count;
  return row < extent.first_row + extent.row_count ? 0 : row - extent.row_count;
}

void GridMarks::MarkBold(std::size_t row, std::size_t column) {
  bold_.emplace(column, row);
  ++version_;
  ++finds_;
  found_row_ = row;
  found_column_ = column;
}

void GridMarks::MarkQuotients(std::size_t column) {
  quotients_.insert(column);
  ++version_;
}

void GridMarks::RemoveBold() {
  bold_.clear();
  ++version_;
}

void GridMarks::Follow(const ChangeNote& note) noexcept {
  const bool shape = note.kind != ChangeKind::kCells && note.kind != ChangeKind::kDictionary &&
                     note.kind != ChangeKind::kColumnsReplaced;
  if (!shape || (bold_.empty() && quotients_.empty())) return;
  try {
    Move(note);
  } catch (const std::bad_alloc&) {
    bold_.clear();
    quotients_.clear();
  }
  ++version_;
}

void GridMarks::Move(const ChangeNote& note) {
  std::set<std::pair<std::size_t, std::size_t>> bold;
  for (const auto& [column, row] : bold_) {
    const std::size_t column_behind = ColumnBehind(column, note);
    const std::size_t row_behind = RowBehind(row, note);
    if (column_behind != 0 && row_behind != 0) bold.emplace(column_behind, row_behind);
  }
  std::set<std::size_t> quotients;
  for (const std::size_t column : quotients_) {
    if (const std::size_t behind = ColumnBehind(column, note); behind != 0) quotients.insert(behind);
  }
  bold_.swap(bold);
  quotients_.swap(quotients);
}

}  // namespace tessara
