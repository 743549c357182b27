#pragma once

#include <algorithm>
#include <cstddef>

#include "data/data_set.h"

// Places of the Data Grid, as the cursor counts them: row 0 is the heading row, which holds the names of the variables,
// and column 0 that of the record numbers. Grid row r is row r + 15 of the matrix.

namespace tessara {

struct GridPlace {
  std::size_t row = 1;
  std::size_t column = 1;

  friend bool operator==(const GridPlace&, const GridPlace&) = default;
};

// A selection: both ends belong to it, and the first ones are not behind the last ones.
struct GridBlock {
  std::size_t first_row = 1;
  std::size_t last_row = 1;
  std::size_t first_column = 1;
  std::size_t last_column = 1;

  friend bool operator==(const GridBlock&, const GridBlock&) = default;
};

// The block that two places span, whichever comes first.
inline GridBlock BlockBetween(const GridPlace& one, const GridPlace& other) {
  return {std::min(one.row, other.row), std::max(one.row, other.row), std::min(one.column, other.column),
          std::max(one.column, other.column)};
}

inline GridPlace CursorOf(const DataSet& data) { return {data.CurrentRow, data.CurrentColumn}; }

inline void MoveCursor(DataSet& data, const GridPlace& place) {
  data.CurrentRow = place.row;
  data.CurrentColumn = place.column;
}

// The cells of a block as the matrix has them. Record numbers are no cells, and what reaches beyond the data is cut.
inline ChangeExtent ExtentOf(const DataSet& data, const GridBlock& block) {
  const std::size_t first_column = std::max<std::size_t>(block.first_column, 1);
  const std::size_t last_column = std::min(block.last_column, data.VariableCount);
  const std::size_t last_row = std::min(block.last_row, data.RecordCount);
  if (first_column > last_column || block.first_row > last_row) return {};
  return {.first_row = kHeaderRowCount + block.first_row,
          .row_count = last_row - block.first_row + 1,
          .first_column = first_column,
          .column_count = last_column - first_column + 1};
}

}  // namespace tessara
