#include "presentation/table_edit.h"

#include <algorithm>
#include <utility>

#include "numerics/masks.h"
#include "presentation/table_steps.h"

namespace tessara {
namespace {

constexpr std::size_t kGapOfColumns = 2;  // characters

std::vector<TableCell> CellsOf(const TableGrid& grid, const TableBlock& block) {
  std::vector<TableCell> cells;
  cells.reserve((block.last_row - block.first_row + 1) * (block.last_column - block.first_column + 1));
  for (std::size_t row = block.first_row; row <= block.last_row; ++row) {
    for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
      cells.push_back(grid.Cell(row, column));
    }
  }
  return cells;
}

// The step that gives a block other cells; the selection stays with it.
TableStep StepOfCells(const TableGrid& grid, const TableFace& face, const TableBlock& block, const char* name) {
  TableStep step;
  step.name = name;
  step.before = face.selection;
  step.after = face.selection;
  step.other = TableCells{block, CellsOf(grid, block), std::max(grid.RowCount(), block.last_row),
                          std::max(grid.ColumnCount(), block.last_column)};
  return step;
}

template <typename Change>
void ChangeCells(TableGrid& grid, TableFace& face, const char* name, Change change) {
  const TableBlock block = UsedSelection(grid, face);
  if (IsEmptyBlock(block)) return;
  TableStep step = StepOfCells(grid, face, block, name);
  bool changes = false;
  for (TableCell& cell : std::get<TableCells>(step.other).cells) changes = change(cell) || changes;
  if (changes) TakeStep(grid, face, std::move(step));
}

bool EmptyText(TableCell& cell) {
  if (cell.text.empty()) return false;
  cell.text.clear();
  return true;
}

std::string WithoutLineEnds(std::string_view text) {
  std::string line(text);
  std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
  return line;
}

// Takes the text up to the next separator off its front.
std::string_view TakeUpTo(std::string_view& rest, char separator) {
  const std::size_t end = rest.find(separator);
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return taken;
}

struct TextSize {
  std::size_t rows = 0;
  std::size_t columns = 0;  // of the longest line
};

// A line end behind the last line begins no other one.
std::string_view WithoutLastLineEnd(std::string_view text) {
  if (text.ends_with('\n')) text.remove_suffix(1);
  if (text.ends_with('\r')) text.remove_suffix(1);
  return text;
}

TextSize SizeOf(std::string_view text) {
  TextSize size{1, 1};
  std::size_t columns = 1;
  for (const char c : text) {
    if (c == '\t') size.columns = std::max(size.columns, ++columns);
    if (c != '\r') continue;
    ++size.rows;
    columns = 1;
  }
  return size;
}

bool HasRoom(const TableGrid& grid, const TablePlace& first, const TextSize& size) {
  const std::size_t rows = std::max(grid.RowCount(), first.row + size.rows - 1);
  const std::size_t columns = std::max(grid.ColumnCount(), first.column + size.columns - 1);
  const bool grows = rows > grid.RowCount() || columns > grid.ColumnCount();
  return !grows || (columns <= kMostPastedColumns && rows <= kMostPastedCells / columns);
}

std::string Counted(std::size_t count) { return Grouped(static_cast<double>(count)); }

void RefusePaste(const TextSize& size, Messages& messages) {
  messages.ShowMessage(
      {"Operation Aborted!", "The text has " + Counted(size.rows) + " rows and " + Counted(size.columns) +
                                 " columns, and the table has no room for them. It can grow to " +
                                 Counted(kMostPastedCells) + " cells in " + Counted(kMostPastedColumns) + " columns."});
}

void TakeWholeStep(TableGrid& grid, TableFace& face, TableGrid next, std::string_view name,
                   const TableSelection& after) {
  TableStep step;
  step.name = name;
  step.before = face.selection;
  step.after = after;
  step.other = std::move(next);
  TakeStep(grid, face, std::move(step));
}

TableStep StepOfWidths(const TableGrid& grid, const TableFace& face, std::size_t columns) {
  TableWidths widths;
  for (std::size_t column = 1; column <= columns; ++column) widths.widths.push_back(grid.Width(column));
  TableStep step;
  step.name = "Column Width";
  step.before = step.after = face.selection;
  step.other = std::move(widths);
  return step;
}

}  // namespace

void TypeIntoTable(TableGrid& grid, TableFace& face, std::string_view text) {
  std::string line = WithoutLineEnds(text);
  const TablePlace& cursor = face.selection.cursor;
  if (line == grid.Text(cursor.row, cursor.column)) return;
  TableStep step = StepOfCells(grid, face, {cursor.row, cursor.row, cursor.column, cursor.column}, "Typing");
  std::get<TableCells>(step.other).cells.front().text = std::move(line);
  TakeStep(grid, face, std::move(step));
}

std::string TableText(const TableGrid& grid, const TableBlock& block) {
  std::string text;
  for (std::size_t row = block.first_row; row <= block.last_row; ++row) {
    if (row > block.first_row) text += '\r';
    for (std::size_t column = block.first_column; column <= block.last_column; ++column) {
      if (column > block.first_column) text += '\t';
      text += grid.Text(row, column);
    }
  }
  return text;
}

void CopyTableCells(const TableGrid& grid, const TableFace& face, Clipboard& clipboard) {
  clipboard.SetClipboardText(TableText(grid, SelectedBlock(face)));
}

void CutTableCells(TableGrid& grid, TableFace& face, Clipboard& clipboard) {
  CopyTableCells(grid, face, clipboard);
  ChangeCells(grid, face, "Cut", EmptyText);
}

void ClearTableCells(TableGrid& grid, TableFace& face) { ChangeCells(grid, face, "Delete", EmptyText); }

bool PasteIntoTable(TableGrid& grid, TableFace& face, std::string_view text, Messages& messages) {
  if (text.empty()) return true;
  text = WithoutLastLineEnd(text);
  const TextSize size = SizeOf(text);
  const TableBlock selected = SelectedBlock(face);
  const TablePlace first = {selected.first_row, selected.first_column};
  if (!HasRoom(grid, first, size)) {
    RefusePaste(size, messages);
    return false;
  }
  const TablePlace last = {first.row + size.rows - 1, first.column + size.columns - 1};
  TableStep step = StepOfCells(grid, face, {first.row, last.row, first.column, last.column}, "Paste");
  step.after = {first, last};
  auto cell = std::get<TableCells>(step.other).cells.begin();
  for (std::size_t row = 0; row < size.rows; ++row) {
    std::string_view line = TakeUpTo(text, '\r');
    for (std::size_t column = 0; column < size.columns; ++column) {
      (cell++)->text = WithoutLineEnds(TakeUpTo(line, '\t'));
    }
  }
  TakeStep(grid, face, std::move(step));
  return true;
}

void DeleteTableRows(TableGrid& grid, TableFace& face) {
  const TableBlock block = UsedSelection(grid, face);
  if (block.first_row > block.last_row) return;
  TableGrid next = grid;
  next.RemoveRows(block.first_row, block.last_row - block.first_row + 1);
  const TablePlace there = {block.first_row, SelectedBlock(face).first_column};
  TakeWholeStep(grid, face, std::move(next), "Delete Rows", {there, there});
}

void DeleteTableColumns(TableGrid& grid, TableFace& face) {
  const TableBlock block = UsedSelection(grid, face);
  if (block.first_column > block.last_column) return;
  TableGrid next = grid;
  next.RemoveColumns(block.first_column, block.last_column - block.first_column + 1);
  const TablePlace there = {SelectedBlock(face).first_row, block.first_column};
  TakeWholeStep(grid, face, std::move(next), "Delete Columns", {there, there});
}

void AlignTableCells(TableGrid& grid, TableFace& face, TableAlignment alignment) {
  ChangeCells(grid, face, "Alignment",
              [alignment](TableCell& cell) { return std::exchange(cell.alignment, alignment) != alignment; });
}

void SetTableColumnWidth(TableGrid& grid, TableFace& face, std::size_t column, double width) {
  if (column < 1 || width <= 0 || grid.Width(column) == width) return;
  TableStep step = StepOfWidths(grid, face, column);
  std::get<TableWidths>(step.other).widths.back() = width;
  TakeStep(grid, face, std::move(step));
}

void FitTableColumn(TableGrid& grid, TableFace& face, std::size_t column) {
  std::size_t longest = 0;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) longest = std::max(longest, grid.Text(row, column).size());
  SetTableColumnWidth(grid, face, column, static_cast<double>(longest + kGapOfColumns) * kCharacterWidth);
}

void ReplaceTable(TableGrid& grid, TableFace& face, TableGrid next, std::string_view name) {
  TakeReadyStep(grid, face, ReadyToReplace(face, std::move(next), name));
}

void EmptyTable(TableGrid& grid, TableFace& face) {
  if (grid.empty() && grid.ColumnCount() == 0) return;
  TakeWholeStep(grid, face, TableGrid(), "Clear", {});
}

}  // namespace tessara
