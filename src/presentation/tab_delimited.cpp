#include "presentation/tab_delimited.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

namespace tessara {
namespace {

struct Replacement {
  std::string_view find;
  std::string_view by;  // never longer than what is found
};

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

constexpr bool NoneGrows() {
  for (const Replacement& step : kReplacements) {
    if (step.by.size() > step.find.size()) return false;
  }
  return true;
}
static_assert(NoneGrows(), "a text is replaced within its own bytes");

// Replaces from left to right; what was put in is not looked at again. One pass, in place.
void ReplaceAll(std::string& text, const Replacement& step) {
  char* const bytes = text.data();
  std::size_t written = 0;
  std::size_t read = 0;
  const auto keep_up_to = [&](std::size_t end) {
    if (written != read) std::memmove(bytes + written, bytes + read, end - read);
    written += end - read;
    read = end;
  };
  // What lies from `read` on has not been touched yet, so the search goes on in the same text.
  for (std::size_t found; (found = text.find(step.find, read)) != text.npos; read += step.find.size()) {
    keep_up_to(found);
    std::memcpy(bytes + written, step.by.data(), step.by.size());
    written += step.by.size();
  }
  keep_up_to(text.size());
  text.resize(written);
}

}  // namespace

std::string TabDelimited(std::string text) {
  for (const Replacement& step : kReplacements) ReplaceAll(text, step);
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
