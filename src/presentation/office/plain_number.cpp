#include "presentation/office/plain_number.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "numerics/number_text.h"
#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::size_t kExactDigits = 15;   // of a number in a sheet
constexpr std::size_t kMostDecimals = 15;  // that a mask shows
constexpr std::size_t kDigitsOfGroup = 3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// "1,234,567": up to three digits, then groups of three.
bool HasThousands(std::string_view whole) {
  std::size_t at = whole.find(',');
  if (at == whole.npos) return true;
  if (at == 0 || at > kDigitsOfGroup) return false;
  for (; at < whole.size(); at += kDigitsOfGroup + 1) {
    const std::string_view group = whole.substr(at + 1, kDigitsOfGroup);
    if (whole[at] != ',' || group.size() != kDigitsOfGroup || !std::ranges::all_of(group, IsDigit)) return false;
  }
  return true;
}

// The digits of a written number ahead of its point and behind it.
struct WrittenDigits {
  std::string_view whole;  // commas among them
  std::string_view fraction;
  bool has_exponent = false;
};

WrittenDigits DigitsOf(std::string_view number) {
  number = Trimmed(number);
  if (!number.empty() && (number.front() == '-' || number.front() == '+')) number.remove_prefix(1);
  WrittenDigits digits;
  const std::size_t end = std::min(number.find_first_of("eEdD"), number.size());
  digits.has_exponent = end < number.size();
  number = number.substr(0, end);
  const std::size_t point = std::min(number.find('.'), number.size());
  digits.whole = number.substr(0, point);
  if (point < number.size()) digits.fraction = number.substr(point + 1);
  return digits;
}

// Whether the value is the same behind the 16 digits of the file.
bool SurvivesInFile(double value) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.16G", value);
  return std::strtod(text.data(), nullptr) == value;
}

std::size_t SignificantDigits(std::string_view whole) {
  const std::size_t first = std::min(whole.find_first_not_of("0,"), whole.size());
  return static_cast<std::size_t>(std::ranges::count_if(whole.substr(first), IsDigit));
}

// Thousands, leading zeros and decimals are kept; what an exponent was written with has the usual form.
std::string MaskOf(const WrittenDigits& digits) {
  const bool grouped = digits.whole.find(',') != digits.whole.npos;
  const bool has_leading_zeros = digits.whole.size() > 1 && digits.whole.front() == '0' && !grouped;
  if (digits.has_exponent || digits.fraction.size() > kMostDecimals || digits.whole.size() > 2 * kExactDigits)
    return {};
  if (digits.fraction.empty() && !grouped && !has_leading_zeros) return {};
  std::string mask = grouped ? "#,##0" : std::string(has_leading_zeros ? digits.whole.size() : 1, '0');
  if (digits.whole.empty()) mask.clear();
  if (!digits.fraction.empty()) mask += "." + std::string(digits.fraction.size(), '0');
  return mask;
}

}  // namespace

std::optional<PlainNumber> FindPlainNumber(std::string_view text) {
  const auto value = ParseNumber(text);
  if (!value) return std::nullopt;
  const WrittenDigits digits = DigitsOf(text);
  if (!HasThousands(digits.whole)) return std::nullopt;
  if (!digits.has_exponent && SignificantDigits(digits.whole) > kExactDigits) return std::nullopt;
  const bool is_short = digits.whole.size() + digits.fraction.size() <= kExactDigits;
  return PlainNumber{*value, MaskOf(digits), is_short || SurvivesInFile(*value)};
}

}  // namespace tessara
