#include "data/recode/grid_marks.h"

namespace tessara {
namespace {

std::size_t PlaceBehind(std::size_t place, std::size_t first, std::size_t count, bool added) {
  if (place == 0 || place < first) return place;
  if (added) return place + count;
  return place < first + count ? 0 : place - count;
}

}  // namespace

std::size_t ColumnBehind(std::size_t column, const ChangeNote& note) {
  if (note.kind == ChangeKind::kWholeData) return 0;
  const bool added = note.kind == ChangeKind::kColumnsAdded;
  if (!added && note.kind != ChangeKind::kColumnsRemoved) return column;
  return PlaceBehind(column, note.extent.first_column, note.extent.column_count, added);
}

std::size_t RowBehind(std::size_t row, const ChangeNote& note) {
  if (note.kind == ChangeKind::kWholeData) return 0;
  const bool added = note.kind == ChangeKind::kRowsAdded;
  if (!added && note.kind != ChangeKind::kRowsRemoved) return row;
  return PlaceBehind(row, note.extent.first_row, note.extent.row_count, added);
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

void GridMarks::Follow(const ChangeNote& note) {
  const bool shape = note.kind != ChangeKind::kCells && note.kind != ChangeKind::kDictionary &&
                     note.kind != ChangeKind::kColumnsReplaced;
  if (!shape || (bold_.empty() && quotients_.empty())) return;
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
  ++version_;
}

}  // namespace tessara
