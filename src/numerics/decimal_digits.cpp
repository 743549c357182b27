#include "numerics/decimal_digits.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace tessara {

namespace {

// A double has no more significant digits than this, written out exactly.
constexpr int kExactDigits = 767;

// Whether the exact value of a positive number is at least the number that its shortest digits show.
bool ReachesItsDigits(double magnitude, const DecimalDigits& shown) {
  std::array<char, kExactDigits + 16> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific,
                                 kExactDigits - 1)
                       .ptr;
  if (end - buffer.data() < shown.count + 1) return true;
  if (buffer[0] != shown.digits[0]) return buffer[0] > shown.digits[0];
  const std::string_view exact(buffer.data() + 2, static_cast<std::size_t>(shown.count - 1));
  return exact >= std::string_view(shown.digits.data() + 1, exact.size());
}

void DropLastZeros(DecimalDigits& number) {
  while (number.count > 0 && number.digits[static_cast<std::size_t>(number.count - 1)] == '0') --number.count;
}

// Reads back what std::to_chars writes in scientific form, at most 20 digits of it.
DecimalDigits ReadScientific(const char* p, const char* end) {
  DecimalDigits result;
  for (; *p != 'e'; ++p) {
    if (*p != '.') result.digits[static_cast<std::size_t>(result.count++)] = *p;
  }
  ++p;
  const bool below_one = *p++ == '-';
  int exponent = 0;
  for (; p != end; ++p) exponent = exponent * 10 + (*p - '0');
  result.exponent = below_one ? -exponent : exponent;
  return result;
}

// Most numbers of a data set have a few decimals only. Where a whole number of up to 15 digits, divided by the power of
// ten, is the value again, its digits are the shortest: no two texts of so few digits read as one double.
std::optional<DecimalDigits> DigitsOfFewDecimals(double value) {
  constexpr int kDecimals = 4;
  constexpr double kScale = 1e4;
  constexpr double kSixteenDigits = 1e15;
  const double scaled = std::fabs(value) * kScale;
  if (!(scaled < kSixteenDigits)) return std::nullopt;
  // Where the sum rounds, the test below finds out.
  const auto whole = static_cast<std::int64_t>(scaled + 0.5);  // NOLINT(bugprone-incorrect-roundings)
  if (static_cast<double>(whole) / kScale != std::fabs(value)) return std::nullopt;
  DecimalDigits result;
  result.negative = value < 0;
  const auto end = std::to_chars(result.digits.data(), result.digits.data() + result.digits.size(), whole).ptr;
  result.count = static_cast<int>(end - result.digits.data());
  result.exponent = result.count - 1 - kDecimals;
  DropLastZeros(result);
  return result;
}

// The shortest digits of a subnormal number can be too few to be rounded. Its exact digits are hundreds, so that no
// half is among these numbers and the library's rounding of halves does not show.
DecimalDigits SubnormalDigits(double value, int significant) {
  if (value == 0) return {};
  std::array<char, 32> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                 std::chars_format::scientific, significant - 1)
                       .ptr;
  DecimalDigits result = ReadScientific(buffer.data(), end);
  result.negative = value < 0;
  DropLastZeros(result);
  return result;
}

}  // namespace

void DecimalDigits::RoundTo(int kept) noexcept {
  if (kept >= count) return;
  const bool up = kept >= 0 && digits[static_cast<std::size_t>(kept)] >= '5';
  count = kept > 0 ? kept : 0;
  if (up) {
    while (count > 0 && digits[static_cast<std::size_t>(count - 1)] == '9') --count;
    if (count > 0) {
      ++digits[static_cast<std::size_t>(count - 1)];
    } else {  // all nines, or a first digit that was rounded itself: the next power of ten
      digits[0] = '1';
      count = 1;
      ++exponent;
    }
  }
  DropLastZeros(*this);
  if (count == 0) exponent = -1;
}

DecimalDigits ShortestDigits(double value) noexcept {
  if (value == 0 || !std::isfinite(value)) return {};
  if (const std::optional<DecimalDigits> few = DigitsOfFewDecimals(value)) return *few;
  std::array<char, 32> buffer;
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), std::chars_format::scientific).ptr;
  DecimalDigits result = ReadScientific(buffer.data(), end);
  result.negative = value < 0;
  return result;
}

DecimalDigits SignificantDigits(double value, int significant) noexcept {
  if (std::fabs(value) < std::numeric_limits<double>::min()) return SubnormalDigits(value, significant);
  // A half that separates two results is itself a text of one digit more. Were one strictly between the value and its
  // shortest digits, it would have been chosen in their stead; so the digits round like the value unless they are a
  // half.
  DecimalDigits result = ShortestDigits(value);
  if (result.count == significant + 1 && result.digits[static_cast<std::size_t>(significant)] == '5' &&
      !ReachesItsDigits(std::fabs(value), result)) {
    result.digits[static_cast<std::size_t>(significant)] = '4';
  }
  result.RoundTo(significant);
  return result;
}

}  // namespace tessara
