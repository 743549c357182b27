#pragma once

#include <cstddef>
#include <set>
#include <utility>

#include "data/change_notes.h"

// What the Data Grid shows of a cell beside its value: bold matches of Find, and the zeros of divided variables. They
// belong to the view, not to the data: no file holds them.

namespace tessara {

class GridMarks {
 public:
  bool IsBold(std::size_t row, std::size_t column) const { return bold_.contains({column, row}); }
  // A zero that stands for a quotient shows its decimals until the data are read from a file again.
  bool ShowsDecimals(std::size_t column) const { return quotients_.contains(column); }

  void MarkBold(std::size_t row, std::size_t column);
  void MarkQuotients(std::size_t column);
  void RemoveBold();
  bool has_bold() const { return !bold_.empty(); }
  // Counts up with each match, also of a cell that was bold before; and the place of the latest.
  std::size_t finds() const { return finds_; }
  std::size_t found_row() const { return found_row_; }
  std::size_t found_column() const { return found_column_; }

  // Counts up whenever a mark comes or goes.
  std::size_t version() const { return version_; }

  // Marks move with their rows and columns, and go with them; without the memory for it all of them go.
  void Follow(const ChangeNote& note) noexcept;

 private:
  void Move(const ChangeNote& note);

  std::set<std::pair<std::size_t, std::size_t>> bold_;  // column, row of the matrix
  std::set<std::size_t> quotients_;
  std::size_t version_ = 0;
  std::size_t finds_ = 0;
  std::size_t found_row_ = 0;
  std::size_t found_column_ = 0;
};

// Where a column, or a row, stands behind a change; 0 when it has gone, and for 0.
std::size_t ColumnBehind(std::size_t column, const ChangeNote& note);
std::size_t RowBehind(std::size_t row, const ChangeNote& note);

}  // namespace tessara
