#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The grid of a summary table, as the Output view shows it, the pages print it and the exports write it. It knows
// texts, their alignment and the widths of columns, and nothing of statistics. Rows and columns are counted from 1.

namespace tessara {

// The columns on the left that hold labels; the data stand behind them.
inline constexpr std::size_t kLabelColumns = 2;
// Widths of columns: so many to a character.
inline constexpr double kCharacterWidth = 100;

enum class TableAlignment : std::uint8_t { kLeft, kCentre, kRight };

struct TableCell {
  std::string text;
  TableAlignment alignment = TableAlignment::kLeft;
  // What the cell stands for, in the words of whoever filled the table; it stays with the cell whatever the user writes
  // there or deletes around it.
  std::string tag;
};

// A block of cells; both ends belong to it.
struct TableBlock {
  std::size_t first_row = 1;
  std::size_t last_row = 1;
  std::size_t first_column = 1;
  std::size_t last_column = 1;
};

class TableGrid {
 public:
  // The used area: every row and column that somebody has written to and nobody has removed.
  std::size_t RowCount() const { return rows_.size(); }
  std::size_t ColumnCount() const { return column_count_; }
  bool empty() const { return rows_.empty(); }

  // Beyond the used area an empty cell.
  const TableCell& Cell(std::size_t row, std::size_t column) const;
  const std::string& Text(std::size_t row, std::size_t column) const { return Cell(row, column).text; }
  // What a row stands for, like the tag of a cell.
  const std::string& RowTag(std::size_t row) const;

  // The used area grows as far as the place, with empty cells that are aligned as `Usual` says.
  TableCell& Edit(std::size_t row, std::size_t column);
  void SetText(std::size_t row, std::size_t column, std::string text) { Edit(row, column).text = std::move(text); }
  void SetRowTag(std::size_t row, std::string tag);

  // Empty rows or columns ahead of a place inside the used area or just behind it.
  void InsertRows(std::size_t before, std::size_t count);
  void InsertColumns(std::size_t before, std::size_t count);
  // What reaches beyond the used area is cut.
  void RemoveRows(std::size_t first, std::size_t count);
  void RemoveColumns(std::size_t first, std::size_t count);
  void Clear();
  // Takes the contents of another grid and gives it its own; both count as changed. Asks for no memory.
  void Exchange(TableGrid& other) noexcept;

  // In hundredths of a character; a column that nobody has set has the usual width.
  double Width(std::size_t column) const;
  void SetWidth(std::size_t column, double width);
  // Every column of the used area as wide as its longest text, with a gap of two characters.
  void FitColumns();

  // Counts up with every change.
  std::uint64_t revision() const { return revision_; }

 private:
  struct Row {
    std::string tag;
    std::vector<TableCell> cells;  // as many as there are columns
  };

  void Grow(std::size_t row, std::size_t column);

  std::vector<Row> rows_;
  std::size_t column_count_ = 0;
  std::vector<double> widths_;  // of the first columns; 0 for the usual one
  std::uint64_t revision_ = 0;
};

inline constexpr double kUsualTableWidth = 12 * kCharacterWidth;

// How a cell is aligned when nobody has said otherwise: labels to the left, data to the right.
TableAlignment UsualAlignment(std::size_t column);

}  // namespace tessara
