#include "batch/words/variable_lists.h"

#include <charconv>

#include "batch/words/script_line.h"

namespace tessara {
namespace {

std::optional<std::size_t> ColumnNumber(std::string_view word, std::size_t variable_count) {
  if (!word.starts_with('#')) return std::nullopt;
  const char* end = word.data() + word.size();
  std::size_t column = 0;
  const auto read = std::from_chars(word.data() + 1, end, column);
  if (read.ec != std::errc() || read.ptr != end || column == 0 || column > variable_count) return std::nullopt;
  return column;
}

}  // namespace

std::optional<std::size_t> FindVariable(const DataSet& data, std::string_view word) {
  const std::string name = HeldText(word);
  for (std::size_t column = 1; column <= data.VariableCount; ++column) {
    if (data.VariableName(column) == name) return column;
  }
  return ColumnNumber(word, data.VariableCount);
}

std::string UnknownVariable(std::string_view word) { return "unknown variable " + Quoted(word); }

VariableLists ReadVariableLists(const DataSet& data, std::span<const std::string> words) {
  VariableLists lists;
  bool behind_by = false;
  for (const std::string& word : words) {
    if (word == "by") {
      if (behind_by) {
        lists.error = "\"by\" may stand once only";
        return lists;
      }
      behind_by = true;
      continue;
    }
    const auto column = FindVariable(data, word);
    if (!column) {
      lists.error = UnknownVariable(word);
      return lists;
    }
    (behind_by ? lists.second : lists.first).push_back(*column);
  }
  if (lists.first.empty()) lists.error = "VAR is missing ahead of \"by\"";
  if (behind_by && lists.second.empty()) lists.error = "VAR is missing behind \"by\"";
  return lists;
}

}  // namespace tessara
