#include "data/recode/find_cells.h"

#include <algorithm>
#include <array>

#include "numerics/number_text.h"

namespace tessara {
namespace {

// The small letter of each byte of code page 1252; a byte that is no large letter stands for itself.
constexpr std::array<unsigned char, 256> kSmallLetters = [] {
  std::array<unsigned char, 256> letters{};
  for (unsigned i = 0; i < letters.size(); ++i) {
    const bool latin = i >= 0xC0 && i <= 0xDE && i != 0xD7;  // D7 is the multiplication sign
    letters[i] = static_cast<unsigned char>((i >= 'A' && i <= 'Z') || latin ? i + 0x20 : i);
  }
  letters[0x8A] = 0x9A;  // S with caron
  letters[0x8C] = 0x9C;  // OE
  letters[0x8E] = 0x9E;  // Z with caron
  letters[0x9F] = 0xFF;  // Y with diaeresis
  return letters;
}();

constexpr std::size_t kLongText = 64;

unsigned char Small(char c) { return kSmallLetters[static_cast<unsigned char>(c)]; }

bool StartsWithSmall(const char* text, std::string_view wanted) {
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    if (Small(text[i]) != static_cast<unsigned char>(wanted[i])) return false;
  }
  return true;
}

bool CellMatches(TextSearch& search, const TaggedView& cell) {
  NumberBuffer buffer;
  return search.IsIn(TextOf(cell, buffer));
}

// The cursor of the grid goes where the grid shows the cell.
void MoveCursor(DataSet& data, std::size_t row, std::size_t column) {
  const std::size_t record = row - kHeaderRowCount;
  if (record > data.GridRecords() || column > data.GridVariables()) return;
  data.CurrentRow = record;
  data.CurrentColumn = column;
}

}  // namespace

TextSearch::TextSearch(std::string_view wanted) : wanted_(wanted) {
  for (char& c : wanted_) c = static_cast<char>(Small(c));
  if (wanted_.size() > kLongText) search_.emplace(wanted_.cbegin(), wanted_.cend());
}

bool TextSearch::IsIn(std::string_view text) {
  if (wanted_.empty() || text.size() < wanted_.size()) return false;
  if (search_) {
    small_.resize(text.size());
    std::ranges::transform(text, small_.begin(), [](char c) { return static_cast<char>(Small(c)); });
    return std::search(small_.cbegin(), small_.cend(), *search_) != small_.cend();
  }
  const std::size_t last = text.size() - wanted_.size();
  for (std::size_t at = 0; at <= last; ++at) {
    if (StartsWithSmall(text.data() + at, wanted_)) return true;
  }
  return false;
}

std::size_t FindNextCell(RecodePanel& panel, DataSet& data) {
  panel.Label21 = false;
  if (panel.FindRow == 0) panel.FindRow = kFirstRecordRow;
  TextSearch search(panel.Text12);
  const Column& column = data.matrix.ColumnAt(panel.RecodeColumn);
  for (std::size_t row = panel.FindRow; row < kFirstRecordRow + data.RecordCount; ++row) {
    if (!CellMatches(search, column.Cell(row))) continue;
    panel.marks.MarkBold(row, panel.RecodeColumn);
    panel.FindRow = row + 1;
    MoveCursor(data, row, panel.RecodeColumn);
    return row;
  }
  panel.Label21 = true;
  panel.FindRow = 0;
  return 0;
}

std::size_t CountMatches(const RecodePanel& panel, const DataSet& data) {
  TextSearch search(panel.Text12);
  std::size_t count = 0;
  data.matrix.ForEachRecord(panel.RecodeColumn, data.RecordCount, [&](std::size_t, const TaggedView& cell) {
    if (CellMatches(search, cell)) ++count;
  });
  return count;
}

}  // namespace tessara
