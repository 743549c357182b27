#include "data/edit/block_edit.h"

#include <algorithm>
#include <utility>

#include "data/change_door.h"
#include "data/edit/edit_limit.h"
#include "data/field_ends.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

void FillWithEmptyText(DataSet& data, const GridBlock& block, const char* name) {
  const ChangeExtent cells = ExtentOf(data, block);
  const std::size_t count = cells.row_count * cells.column_count;
  if (count == 0) return;
  CellBlock values;
  values.Reserve(count);
  for (std::size_t i = 0; i < count; ++i) values.Set(i, "");
  ApplyChange(data, BlockChange(cells, std::move(values), name));
}

bool IsEmptyLine(std::string_view line) { return line.empty() || line == "\n"; }

// Takes the text up to the next separator off its front.
std::string_view TakeUpTo(std::string_view& rest, char separator) {
  const std::size_t end = rest.find(separator);
  const std::string_view taken = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return taken;
}

// A cell as it is stored: what ends lines and fields goes.
std::string_view PastedCell(std::string_view text, std::string& room) {
  const auto goes = [](char c) { return c == '\n' || c == '\t' || c == kFieldSeparator; };
  if (std::ranges::none_of(text, goes)) return text;
  room.assign(text);
  std::erase_if(room, goes);
  return room;
}

CellBlock CellsOfText(std::string_view text, const PasteSize& size) {
  CellBlock cells;
  cells.Reserve(size.rows * size.columns);
  std::string room;
  std::size_t index = 0;
  for (std::size_t row = 0; row < size.rows; ++row) {
    std::string_view line = TakeUpTo(text, '\r');
    // What a line is short of is blank; what it has beyond the block is lost.
    for (std::size_t column = 0; column < size.columns; ++column) {
      cells.Set(index++, PastedCell(TakeUpTo(line, '\t'), room));
    }
  }
  return cells;
}

}  // namespace

std::string BlockText(const DataSet& data, const GridBlock& block) {
  const ChangeExtent cells = ExtentOf(data, block);
  std::string text;
  NumberBuffer buffer;
  for (std::size_t row = 0; row < cells.row_count; ++row) {
    if (row > 0) text += '\r';
    for (std::size_t column = 0; column < cells.column_count; ++column) {
      if (column > 0) text += '\t';
      text += TextOf(data.matrix.Cell(cells.first_row + row, cells.first_column + column), buffer);
    }
  }
  return text;
}

void CopyBlock(const DataSet& data, const GridBlock& block, Clipboard& clipboard) {
  clipboard.SetClipboardText(BlockText(data, block));
}

void ClearBlock(DataSet& data, const GridBlock& block, Messages& messages) {
  if (AllowsBlockEdit(data, messages)) FillWithEmptyText(data, block, "Delete");
}

void CutBlock(DataSet& data, const GridBlock& block, Clipboard& clipboard, Messages& messages) {
  if (!AllowsBlockEdit(data, messages)) return;
  CopyBlock(data, block, clipboard);
  FillWithEmptyText(data, block, "Cut");
}

PasteSize SizeOfPaste(std::string_view text) {
  const auto returns = static_cast<std::size_t>(std::ranges::count(text, '\r'));
  const auto tabs = static_cast<std::size_t>(std::ranges::count(text, '\t'));
  const std::size_t last_return = text.rfind('\r');
  const bool ends_empty = last_return != std::string_view::npos && IsEmptyLine(text.substr(last_return + 1));
  const std::size_t rows = returns + 1 - (ends_empty ? 1 : 0);
  return {rows, tabs / rows + 1};
}

PasteSize PasteText(DataSet& data, std::string_view text, Messages& messages) {
  if (text.empty() || !AllowsBlockEdit(data, messages)) {
    MarkChanged(data);
    return {};
  }
  const GridPlace from = {data.CurrentRow, std::max<std::size_t>(data.CurrentColumn, 1)};
  const PasteSize whole = SizeOfPaste(text);
  const ChangeExtent cells =
      ExtentOf(data, {from.row, from.row + whole.rows - 1, from.column, from.column + whole.columns - 1});
  const PasteSize size = {cells.row_count, cells.column_count};
  if (size.rows == 0) {  // no record, or no variable, to paste into
    MarkChanged(data);
    return {};
  }
  ApplyChange(data, BlockChange(cells, CellsOfText(text, size), "Paste"));
  return size;
}

}  // namespace tessara
