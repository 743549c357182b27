#include "presentation/table_grid.h"

#include <algorithm>
#include <utility>

namespace tessara {
namespace {

constexpr std::size_t kGapOfColumns = 2;  // characters

TableCell EmptyCell(std::size_t column) { return {.text = {}, .alignment = UsualAlignment(column), .tag = {}}; }

}  // namespace

TableAlignment UsualAlignment(std::size_t column) {
  return column <= kLabelColumns ? TableAlignment::kLeft : TableAlignment::kRight;
}

const TableCell& TableGrid::Cell(std::size_t row, std::size_t column) const {
  static const TableCell label = EmptyCell(1);
  static const TableCell value = EmptyCell(kLabelColumns + 1);
  const bool used = row >= 1 && row <= RowCount() && column >= 1 && column <= ColumnCount();
  if (used) return rows_[row - 1].cells[column - 1];
  return column <= kLabelColumns ? label : value;
}

const std::string& TableGrid::RowTag(std::size_t row) const {
  static const std::string none;
  return row >= 1 && row <= RowCount() ? rows_[row - 1].tag : none;
}

TableCell& TableGrid::Edit(std::size_t row, std::size_t column) {
  Grow(row, column);
  ++revision_;
  return rows_[row - 1].cells[column - 1];
}

void TableGrid::SetRowTag(std::size_t row, std::string tag) {
  Grow(row, 1);
  ++revision_;
  rows_[row - 1].tag = std::move(tag);
}

void TableGrid::Grow(std::size_t row, std::size_t column) {
  if (column > column_count_) InsertColumns(column_count_ + 1, column - column_count_);
  if (row > rows_.size()) InsertRows(rows_.size() + 1, row - rows_.size());
}

void TableGrid::InsertRows(std::size_t before, std::size_t count) {
  Row row;
  for (std::size_t column = 1; column <= column_count_; ++column) row.cells.push_back(EmptyCell(column));
  const auto place = rows_.begin() + static_cast<std::ptrdiff_t>(std::min(before - 1, rows_.size()));
  rows_.insert(place, count, row);
  ++revision_;
}

void TableGrid::InsertColumns(std::size_t before, std::size_t count) {
  const std::size_t at = std::min(before - 1, column_count_);
  for (Row& row : rows_) {
    row.cells.insert(row.cells.begin() + static_cast<std::ptrdiff_t>(at), count, EmptyCell(kLabelColumns + 1));
  }
  if (at < widths_.size()) widths_.insert(widths_.begin() + static_cast<std::ptrdiff_t>(at), count, 0.0);
  for (std::size_t column = at; column < std::min(at + count, kLabelColumns); ++column) {
    for (Row& row : rows_) row.cells[column].alignment = UsualAlignment(column + 1);
  }
  column_count_ += count;
  ++revision_;
}

void TableGrid::RemoveRows(std::size_t first, std::size_t count) {
  if (first < 1 || first > rows_.size()) return;
  const auto from = rows_.begin() + static_cast<std::ptrdiff_t>(first - 1);
  rows_.erase(from, from + static_cast<std::ptrdiff_t>(std::min(count, rows_.size() - (first - 1))));
  ++revision_;
}

void TableGrid::RemoveColumns(std::size_t first, std::size_t count) {
  if (first < 1 || first > column_count_) return;
  const std::size_t gone = std::min(count, column_count_ - (first - 1));
  const auto at = static_cast<std::ptrdiff_t>(first - 1);
  for (Row& row : rows_)
    row.cells.erase(row.cells.begin() + at, row.cells.begin() + at + static_cast<std::ptrdiff_t>(gone));
  if (first <= widths_.size()) {
    const std::size_t widths_gone = std::min(gone, widths_.size() - (first - 1));
    widths_.erase(widths_.begin() + at, widths_.begin() + at + static_cast<std::ptrdiff_t>(widths_gone));
  }
  column_count_ -= gone;
  if (column_count_ == 0) rows_.clear();
  ++revision_;
}

void TableGrid::Clear() {
  rows_.clear();
  widths_.clear();
  column_count_ = 0;
  ++revision_;
}

void TableGrid::Exchange(TableGrid& other) noexcept {
  rows_.swap(other.rows_);
  widths_.swap(other.widths_);
  std::swap(column_count_, other.column_count_);
  revision_ = other.revision_ = std::max(revision_, other.revision_) + 1;
}

double TableGrid::Width(std::size_t column) const {
  const bool set = column >= 1 && column <= widths_.size() && widths_[column - 1] > 0;
  return set ? widths_[column - 1] : kUsualTableWidth;
}

void TableGrid::SetWidth(std::size_t column, double width) {
  if (column < 1) return;
  if (column > widths_.size()) widths_.resize(column);
  widths_[column - 1] = width;
  ++revision_;
}

void TableGrid::FitColumns() {
  for (std::size_t column = 1; column <= column_count_; ++column) {
    std::size_t longest = 0;
    for (const Row& row : rows_) longest = std::max(longest, row.cells[column - 1].text.size());
    SetWidth(column, static_cast<double>(longest + kGapOfColumns) * kCharacterWidth);
  }
}

}  // namespace tessara
