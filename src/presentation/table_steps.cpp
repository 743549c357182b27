#include "presentation/table_steps.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessara {
namespace {

std::size_t BytesOf(const TableCell& cell) { return sizeof(TableCell) + cell.text.size() + cell.tag.size(); }

std::size_t BytesOf(const TableGrid& grid) {
  std::size_t bytes = 0;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    bytes += grid.RowTag(row).size();
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) bytes += BytesOf(grid.Cell(row, column));
  }
  return bytes;
}

std::size_t BytesOf(const TableStep& step) {
  if (const auto* grid = std::get_if<TableGrid>(&step.other)) return BytesOf(*grid);
  if (const auto* widths = std::get_if<TableWidths>(&step.other)) return widths->widths.size() * sizeof(double);
  std::size_t bytes = 0;
  for (const TableCell& cell : std::get<TableCells>(step.other).cells) bytes += BytesOf(cell);
  return bytes;
}

// The same table with a larger used area, made apart: growing can fail in the middle.
void GrowTo(TableGrid& grid, std::size_t rows, std::size_t columns) {
  if (rows <= grid.RowCount() && columns <= grid.ColumnCount()) return;
  TableGrid grown = grid;
  grown.Edit(std::max<std::size_t>(rows, 1), std::max<std::size_t>(columns, 1));
  grid.Exchange(grown);
}

void ShrinkTo(TableGrid& grid, std::size_t rows, std::size_t columns) {
  if (rows < grid.RowCount()) grid.RemoveRows(rows + 1, grid.RowCount() - rows);
  if (columns < grid.ColumnCount()) grid.RemoveColumns(columns + 1, grid.ColumnCount() - columns);
}

// What the table has and what the step has change places.

void Cross(TableGrid& grid, TableCells& other) {
  const std::size_t rows = grid.RowCount();
  const std::size_t columns = grid.ColumnCount();
  const TableBlock& block = other.block;
  GrowTo(grid, std::max(other.rows, block.last_row), std::max(other.columns, block.last_column));
  auto cell = other.cells.begin();
  for (std::size_t row = block.first_row; row <= block.last_row; ++row) {
    for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
      std::swap(grid.Edit(row, column), *cell++);
    }
  }
  ShrinkTo(grid, other.rows, other.columns);
  other.rows = rows;
  other.columns = columns;
}

void Cross(TableGrid& grid, TableWidths& other) {
  const std::size_t count = other.widths.size();
  if (count > 0) grid.SetWidth(count, grid.Width(count));  // room for all of them, ahead of the first change
  for (std::size_t column = 1; column <= count; ++column) {
    const double width = grid.Width(column);
    grid.SetWidth(column, std::exchange(other.widths[column - 1], width));
  }
}

void Cross(TableGrid& grid, TableGrid& other) { grid.Exchange(other); }

// Moves the last step of one end of the history to the other.
bool CrossLast(TableGrid& grid, std::list<TableStep>& from, std::list<TableStep>& to) {
  if (from.empty()) return false;
  TableStep& step = from.back();
  std::visit([&grid](auto& other) { Cross(grid, other); }, step.other);
  step.bytes = std::max(step.bytes, BytesOf(step));
  to.splice(to.end(), from, std::prev(from.end()));
  return true;
}

void Forget(std::list<TableStep>& steps) {
  std::size_t bytes = 0;
  for (const TableStep& step : steps) bytes += step.bytes;
  while (steps.size() > 1 && (steps.size() > kMostTableSteps || bytes > kMostStepBytes)) {
    bytes -= steps.front().bytes;
    steps.pop_front();
  }
}

// The step is now part of the history.
void FollowStep(const TableGrid& grid, TableFace& face) {
  face.undone.clear();
  Forget(face.done);
  face.selection = face.done.back().after;
  FollowTable(grid, face);
}

}  // namespace

void TakeStep(TableGrid& grid, TableFace& face, TableStep step) {
  ReadyStep ready;
  step.bytes = BytesOf(step);
  ready.push_back(std::move(step));
  CrossLast(grid, ready, face.done);
  FollowStep(grid, face);
}

ReadyStep ReadyToReplace(const TableFace& face, TableGrid next, std::string_view name) {
  ReadyStep ready(1);
  TableStep& step = ready.back();
  step.name = name;
  step.before = step.after = face.selection;
  step.other = std::move(next);
  step.bytes = BytesOf(step);
  return ready;
}

void TakeReadyStep(TableGrid& grid, TableFace& face, ReadyStep step) noexcept {
  CrossLast(grid, step, face.done);
  FollowStep(grid, face);
}

bool UndoTableStep(TableGrid& grid, TableFace& face) {
  if (!CrossLast(grid, face.done, face.undone)) return false;
  face.selection = face.undone.back().before;
  FollowTable(grid, face);
  return true;
}

bool RedoTableStep(TableGrid& grid, TableFace& face) {
  if (!CrossLast(grid, face.undone, face.done)) return false;
  face.selection = face.done.back().after;
  FollowTable(grid, face);
  return true;
}

std::string_view UndoTableName(const TableFace& face) {
  return face.done.empty() ? std::string_view() : face.done.back().name;
}

std::string_view RedoTableName(const TableFace& face) {
  return face.undone.empty() ? std::string_view() : face.undone.back().name;
}

}  // namespace tessara
