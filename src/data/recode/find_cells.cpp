#include "data/recode/find_cells.h"

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

unsigned char Small(char c) { return kSmallLetters[static_cast<unsigned char>(c)]; }

bool CellMatches(const TextSearch& search, const TaggedView& cell) {
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

TextSearch::TextSearch(std::string_view wanted) : wanted_(wanted), borders_(wanted.size() + 1) {
  for (char& c : wanted_) c = static_cast<char>(Small(c));
  std::size_t border = 0;
  for (std::size_t i = 1; i < wanted_.size(); ++i) {
    while (border > 0 && wanted_[border] != wanted_[i]) border = borders_[border];
    if (wanted_[border] == wanted_[i]) ++border;
    borders_[i + 1] = border;
  }
}

bool TextSearch::IsIn(std::string_view text) const {
  if (wanted_.empty() || text.size() < wanted_.size()) return false;
  std::size_t matched = 0;
  for (const char c : text) {
    const char small = static_cast<char>(Small(c));
    while (matched > 0 && wanted_[matched] != small) matched = borders_[matched];
    if (wanted_[matched] == small && ++matched == wanted_.size()) return true;
  }
  return false;
}

std::size_t FindNextCell(RecodePanel& panel, DataSet& data) {
  panel.Label21 = false;
  if (panel.FindRow == 0) panel.FindRow = kFirstRecordRow;
  const TextSearch search(panel.Text12);
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
  const TextSearch search(panel.Text12);
  std::size_t count = 0;
  data.matrix.ForEachRecord(panel.RecodeColumn, data.RecordCount, [&](std::size_t, const TaggedView& cell) {
    if (CellMatches(search, cell)) ++count;
  });
  return count;
}

}  // namespace tessara
