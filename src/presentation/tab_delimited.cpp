#include "presentation/tab_delimited.h"

#include <algorithm>
#include <array>

#include "presentation/text_replacement.h"

namespace tessara {
namespace {

// One after the other, each on the whole text.
constexpr std::array<Replacement, 17> kReplacements = {{
    {"          ", "     "},
    {"     ", "  "},
    {"    ", "  "},
    {"   ", "  "},
    {"   ", "  "},
    {"\r\n|", "\r\n\t"},
    {"-", ""},
    {"|", "\t"},
    {"\t  ", "\t"},
    {"  \t", "\t"},
    {"\r\n   ", "\r\n"},
    {"\r\n  ", "\r\n"},
    {"\r\n ", "\r\n"},
    {"  ", "\t"},
    {"\t ", "\t"},
    {" \t", "\t"},
    {"\tby\t", " by "},
}};

}  // namespace

std::string TabDelimited(std::string text) {
  ReplaceAll(text, kReplacements);
  return text;
}

void ConvertOutputToTabDelimited(OutputLog& output) { ConvertBox(output, TabDelimited(output.BoxText())); }

std::string TableRowsText(const TableGrid& grid) {
  std::string text;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    std::string field;
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
      field = grid.Text(row, column);
      std::ranges::replace_if(
          field, [](char c) { return c == '\t' || c == '\r' || c == '\n'; }, ' ');
      text.append(field).append("\t");
    }
    text.append(field).append("\r\n");
  }
  return text;
}

void ConvertTableToTabDelimited(const TableGrid& grid, OutputLog& output) {
  const std::string report = "\r\nSummary Report Results - Tab Delimited" + TableRowsText(grid);
  const std::string separator(kReportSeparator);
  AppendToBoth(output, report + "\r\n\r\n\r\n" + separator, report + separator);
  output.OutputGridMode = false;
}

}  // namespace tessara
