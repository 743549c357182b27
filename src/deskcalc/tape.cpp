#include "deskcalc/tape.h"

#include <algorithm>

#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::size_t kOperatorField = 5;
constexpr std::size_t kLineWidth = 22;
constexpr int kRuleMargin = 3;
constexpr int kRuleWidth = 23;
constexpr int kNoteRows = 10;
constexpr std::size_t kNoteRowWidth = 60;

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Without(std::string_view text, std::string_view part) {
  std::string rest;
  rest.reserve(text.size());
  std::size_t start = 0;
  for (std::size_t found = text.find(part); found != text.npos; found = text.find(part, start)) {
    rest.append(text.substr(start, found - start));
    start = found + part.size();
  }
  return rest.append(text.substr(start));
}

}  // namespace

std::string TapeLine(std::string_view operator_text, std::string_view number) {
  std::string line(operator_text);
  line.resize(std::max(line.size(), kOperatorField), ' ');
  if (line.size() + number.size() < kLineWidth) line.append(kLineWidth - line.size() - number.size(), ' ');
  return line.append(number);
}

std::string TapeRule() { return Blanks(kRuleMargin) + DashedRule(kRuleWidth); }

std::optional<std::string_view> LineOfTape(std::span<const std::string> tape, int line) {
  if (line < 0 || static_cast<std::size_t>(line) >= tape.size()) return std::nullopt;
  return tape[static_cast<std::size_t>(line)];
}

std::string WithoutOperators(std::string_view line) {
  std::string rest(line);
  for (const std::string_view part : {"sqrt", "sq", "+", "-", "/", "*", "="}) rest = Without(rest, part);
  return std::string(Trimmed(rest));
}

std::optional<std::string> NumberBesideOperator(std::string_view line) {
  if (line.size() <= kOperatorField) return std::nullopt;
  const std::string_view number = Trimmed(line.substr(kOperatorField));
  return IsNumeric(number) ? std::optional<std::string>(number) : std::nullopt;
}

std::string JoinedTape(std::span<const std::string> tape) {
  std::string text;
  for (const std::string& line : tape) {
    if (!text.empty()) text += kLineEnd;
    text += line;
  }
  return text;
}

std::string PrintedTape(std::span<const std::string> tape) {
  std::string text("Abaquill Calculator Output");
  text.append(kLineEnd).append(kLineEnd).append(JoinedTape(tape)).append(kLineEnd).append(kLineEnd);
  text.append("Notes").append(kLineEnd);
  for (int row = 0; row < kNoteRows; ++row) {
    if (row > 0) text += kLineEnd;  // room for a pen
    text.append(kNoteRowWidth, '_').append(kLineEnd);
  }
  return text;
}

}  // namespace tessara
