#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "presentation/table_grid.h"

// The summary table as a face of the Output view: where its cursor is, what is selected, and the steps that the user
// can take back. Behind the used area of the table the face shows some empty rows and columns to write into.

namespace tessara {

struct TablePlace {
  std::size_t row = 1;
  std::size_t column = 1;

  friend bool operator==(const TablePlace&, const TablePlace&) = default;
};

// A block with the cursor in one of its corners.
struct TableSelection {
  TablePlace cursor;
  TablePlace end;  // the corner that moves

  friend bool operator==(const TableSelection&, const TableSelection&) = default;
};

// What a step changes, as the table has it on the other side of the step: cells with the used area around them, the
// widths of the columns, or the whole table.
struct TableCells {
  TableBlock block;
  std::vector<TableCell> cells;  // of the block, row after row
  std::size_t rows = 0;          // of the used area
  std::size_t columns = 0;
};
struct TableWidths {
  std::vector<double> widths;  // of the first columns
};

struct TableStep {
  std::string name;
  std::variant<TableCells, TableWidths, TableGrid> other;
  TableSelection before;
  TableSelection after;
  std::size_t bytes = 0;  // about as many as it holds
};

struct TableFace {
  TableSelection selection;
  std::list<TableStep> done;  // the last one is taken back first
  std::list<TableStep> undone;
};

inline constexpr std::size_t kSpareTableRows = 10;
inline constexpr std::size_t kSpareTableColumns = 2;

// What the face shows of a table: its used area and the empty rows and columns behind it.
std::size_t ShownTableRows(const TableGrid& grid);
std::size_t ShownTableColumns(const TableGrid& grid);

// The selected block, and the part of it that the table uses; of the latter the first row or column is behind the last
// one when there is none.
TableBlock SelectedBlock(const TableFace& face);
TableBlock UsedSelection(const TableGrid& grid, const TableFace& face);
bool IsEmptyBlock(const TableBlock& block);

// Places outside of what the face shows become the nearest ones inside.
void SelectInTable(const TableGrid& grid, TableFace& face, const TablePlace& cursor, const TablePlace& end);
void MoveInTable(const TableGrid& grid, TableFace& face, const TablePlace& place);
// The whole used area.
void SelectTable(const TableGrid& grid, TableFace& face);
// Behind a change of the table: cursor and selection stay where they can.
void FollowTable(const TableGrid& grid, TableFace& face);

// Next and previous are the cells in reading order, of the used area as long as the cursor is in it.
enum class TableMove { kUp, kDown, kLeft, kRight, kNext, kPrevious };
// Where a move leads. Past the last column lies the first column of the next row; the other edges end the move.
TablePlace PlaceBehind(const TableGrid& grid, const TablePlace& from, TableMove move);
// The edge of the used area in that direction; from there on the edge of what is shown.
TablePlace EdgeOfTable(const TableGrid& grid, const TablePlace& from, TableMove move);

}  // namespace tessara
