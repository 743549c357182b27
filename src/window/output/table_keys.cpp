#include "window/output/table_keys.h"

#include <algorithm>

namespace tessara {
namespace {

std::optional<TableMove> MoveOf(int key) {
  switch (key) {
    case Qt::Key_Up:
      return TableMove::kUp;
    case Qt::Key_Down:
      return TableMove::kDown;
    case Qt::Key_Left:
      return TableMove::kLeft;
    case Qt::Key_Right:
      return TableMove::kRight;
    default:
      return std::nullopt;
  }
}

TablePlace ByArrow(const QKeyEvent& event, const TableGrid& grid, const TablePlace& from, TableMove move) {
  if ((event.modifiers() & Qt::ControlModifier) != 0) return EdgeOfTable(grid, from, move);
  const bool extends = (event.modifiers() & Qt::ShiftModifier) != 0;
  if (!extends || move != TableMove::kRight) return PlaceBehind(grid, from, move);
  return {from.row, std::min(from.column + 1, ShownTableColumns(grid))};
}

}  // namespace

std::optional<TablePlace> TablePlaceByKey(const QKeyEvent& event, const TableGrid& grid, const TablePlace& from,
                                          std::size_t page) {
  if (const auto move = MoveOf(event.key())) return ByArrow(event, grid, from, *move);
  const bool far = (event.modifiers() & Qt::ControlModifier) != 0;
  const std::size_t last_row = std::max<std::size_t>(grid.RowCount(), 1);
  const std::size_t last_column = std::max<std::size_t>(grid.ColumnCount(), 1);
  switch (event.key()) {
    case Qt::Key_Home:
      return TablePlace{far ? 1 : from.row, 1};
    case Qt::Key_End:
      return TablePlace{far ? last_row : from.row, last_column};
    case Qt::Key_PageUp:
      return TablePlace{from.row > page ? from.row - page : 1, from.column};
    case Qt::Key_PageDown:
      return TablePlace{std::min(from.row + page, ShownTableRows(grid)), from.column};
    case Qt::Key_Return:
    case Qt::Key_Enter: {
      const bool back = (event.modifiers() & Qt::ShiftModifier) != 0;
      return PlaceBehind(grid, from, back ? TableMove::kUp : TableMove::kDown);
    }
    default:
      return std::nullopt;
  }
}

}  // namespace tessara
