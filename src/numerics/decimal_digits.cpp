#include "numerics/decimal_digits.h"

#include <charconv>
#include <cmath>
#include <cstddef>
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
  while (count > 0 && digits[static_cast<std::size_t>(count - 1)] == '0') --count;
  if (count == 0) exponent = -1;
}

DecimalDigits ShortestDigits(double value) noexcept {
  DecimalDigits result;
  if (value == 0 || !std::isfinite(value)) return result;
  result.negative = value < 0;
  std::array<char, 32> buffer;
  const char* const end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value), std::chars_format::scientific).ptr;
  const char* p = buffer.data();
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

DecimalDigits SignificantDigits(double value, int significant) noexcept {
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
