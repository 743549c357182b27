#include "data/edit/grid_places.h"

#include <algorithm>
#include <charconv>

#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostShownOfAName = 40;

bool IsBlank(const DataSet& data, const GridPlace& place) {
  return place.row == 0 || place.column == 0 || data.matrix.Cell(kHeaderRowCount + place.row, place.column).is_blank();
}

std::optional<std::size_t> WholeNumber(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool SameButCase(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, {}, LowerLetter, LowerLetter);
}

std::optional<std::size_t> FindColumn(const DataSet& data, std::string_view name) {
  std::optional<std::size_t> alike;
  for (std::size_t column = 1; column <= data.VariableCount; ++column) {
    const std::string known = data.VariableName(column);
    if (known == name) return column;
    if (!alike && SameButCase(known, name)) alike = column;
  }
  if (alike || !name.starts_with('#')) return alike;
  const auto number = WholeNumber(name.substr(1));
  return number && *number >= 1 && *number <= data.VariableCount ? number : std::nullopt;
}

std::string Quoted(std::string_view name) {
  const bool cut = name.size() > kMostShownOfAName;
  return "\"" + std::string(name.substr(0, kMostShownOfAName)) + (cut ? "...\"" : "\"");
}

std::string WhyNoRecord(const DataSet& data, std::size_t record) {
  if (record > data.RecordCount) return "There is no record " + std::to_string(record);
  return "The grid shows the records 1 to " + std::to_string(data.GridRecords());
}

}  // namespace

GridPlace EdgeOfData(const DataSet& data, const GridPlace& from, GridStep step) {
  const bool by_rows = step == GridStep::kUp || step == GridStep::kDown;
  const bool forward = step == GridStep::kDown || step == GridStep::kRight;
  const std::size_t last = by_rows ? data.GridRecords() : data.GridVariables();
  GridPlace at = from;
  std::size_t& moving = by_rows ? at.row : at.column;
  const auto at_end = [&] { return forward ? moving >= last : moving <= 1; };
  const auto next = [&] {
    GridPlace place = at;
    std::size_t& number = by_rows ? place.row : place.column;
    number = forward ? number + 1 : number - 1;
    return place;
  };
  if (at_end()) return from;
  if (!IsBlank(data, at) && !IsBlank(data, next())) {
    while (!at_end() && !IsBlank(data, next())) at = next();
  } else {
    do at = next();
    while (!at_end() && IsBlank(data, at));
  }
  return at;
}

std::string NameOfPlace(const DataSet& data, const GridPlace& place) {
  const std::string record = std::to_string(place.row);
  return place.column == 0 ? record : record + " " + data.VariableName(place.column);
}

NamedPlace FindPlace(const DataSet& data, std::string_view text, const GridPlace& from) {
  std::string_view rest = Trimmed(text);
  GridPlace place = from;
  const std::string_view first_word = rest.substr(0, rest.find(' '));
  if (const auto record = WholeNumber(first_word)) {
    if (*record > data.GridRecords()) return {std::nullopt, WhyNoRecord(data, *record)};
    place.row = *record;
    rest = Trimmed(rest.substr(first_word.size()));
  }
  if (!rest.empty()) {
    const auto column = FindColumn(data, rest);
    if (!column) return {std::nullopt, "There is no variable " + Quoted(rest)};
    if (*column > data.GridVariables()) {
      return {std::nullopt, "The grid shows the variables 1 to " + std::to_string(data.GridVariables())};
    }
    place.column = *column;
  }
  return {place, {}};
}

}  // namespace tessara
