#include "presentation/table_face.h"

#include <algorithm>

namespace tessara {
namespace {

// An empty table is a sheet to begin with.
constexpr std::size_t kLeastShownColumns = 6;

TablePlace Within(const TableGrid& grid, const TablePlace& place) {
  return {std::clamp<std::size_t>(place.row, 1, ShownTableRows(grid)),
          std::clamp<std::size_t>(place.column, 1, ShownTableColumns(grid))};
}

// The column behind which the next row begins.
std::size_t LastColumn(const TableGrid& grid, std::size_t column) {
  return column <= grid.ColumnCount() ? grid.ColumnCount() : ShownTableColumns(grid);
}

// From inside the used area to its last place, from there on to the last one shown.
std::size_t FarPlace(std::size_t place, std::size_t used, std::size_t shown) { return place < used ? used : shown; }
std::size_t NearPlace(std::size_t place, std::size_t used) { return place > used && used > 0 ? used : 1; }

}  // namespace

std::size_t ShownTableRows(const TableGrid& grid) { return grid.RowCount() + kSpareTableRows; }

std::size_t ShownTableColumns(const TableGrid& grid) {
  return std::max(grid.ColumnCount() + kSpareTableColumns, kLeastShownColumns);
}

TableBlock SelectedBlock(const TableFace& face) {
  const auto& [cursor, end] = face.selection;
  return {std::min(cursor.row, end.row), std::max(cursor.row, end.row), std::min(cursor.column, end.column),
          std::max(cursor.column, end.column)};
}

TableBlock UsedSelection(const TableGrid& grid, const TableFace& face) {
  TableBlock block = SelectedBlock(face);
  block.last_row = std::min(block.last_row, grid.RowCount());
  block.last_column = std::min(block.last_column, grid.ColumnCount());
  return block;
}

bool IsEmptyBlock(const TableBlock& block) {
  return block.first_row > block.last_row || block.first_column > block.last_column;
}

void SelectInTable(const TableGrid& grid, TableFace& face, const TablePlace& cursor, const TablePlace& end) {
  face.selection = {Within(grid, cursor), Within(grid, end)};
}

void MoveInTable(const TableGrid& grid, TableFace& face, const TablePlace& place) {
  SelectInTable(grid, face, place, place);
}

void SelectTable(const TableGrid& grid, TableFace& face) {
  if (!grid.empty()) SelectInTable(grid, face, {1, 1}, {grid.RowCount(), grid.ColumnCount()});
}

void FollowTable(const TableGrid& grid, TableFace& face) {
  SelectInTable(grid, face, face.selection.cursor, face.selection.end);
}

TablePlace PlaceBehind(const TableGrid& grid, const TablePlace& from, TableMove move) {
  const std::size_t last_row = ShownTableRows(grid);
  TablePlace place = from;
  switch (move) {
    case TableMove::kUp:
      if (place.row > 1) --place.row;
      break;
    case TableMove::kDown:
      if (place.row < last_row) ++place.row;
      break;
    case TableMove::kLeft:
      if (place.column > 1) --place.column;
      break;
    case TableMove::kRight:
    case TableMove::kNext:
      if (place.column < LastColumn(grid, place.column)) {
        ++place.column;
      } else if (place.row < last_row) {
        place = {place.row + 1, 1};
      }
      break;
    case TableMove::kPrevious:
      if (place.column > 1) {
        --place.column;
      } else if (place.row > 1) {
        place = {place.row - 1, LastColumn(grid, 1)};
      }
      break;
  }
  return place;
}

TablePlace EdgeOfTable(const TableGrid& grid, const TablePlace& from, TableMove move) {
  switch (move) {
    case TableMove::kUp:
      return {NearPlace(from.row, grid.RowCount()), from.column};
    case TableMove::kDown:
      return {FarPlace(from.row, grid.RowCount(), ShownTableRows(grid)), from.column};
    case TableMove::kLeft:
    case TableMove::kPrevious:
      return {from.row, NearPlace(from.column, grid.ColumnCount())};
    case TableMove::kRight:
    case TableMove::kNext:
      return {from.row, FarPlace(from.column, grid.ColumnCount(), ShownTableColumns(grid))};
  }
  return from;
}

}  // namespace tessara
