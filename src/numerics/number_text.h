#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "numerics/checked.h"
#include "numerics/tagged_value.h"

// Numbers in and out of text. One grammar serves the numeric test and the conversion, so what passes the test converts:
//
//   blanks  [+ or -]  digits, commas behind the first of them  [. digits]  [E, e, D or d  [+ or -]  digits]  blanks
//
// with at least one digit ahead of the exponent. Commas are ignored. Nothing here looks at a locale or allocates, but
// for the routines that return a std::string.

namespace tessara {

// Conversion: the number that the whole text stands for. Fails when the text is not numeric, the empty text among them,
// or its value is beyond the range of a double. A value too small for a double is 0, and so is a zero of either sign.
Checked ToNumber(std::string_view text) noexcept;

// The same of a value; the empty tag gives 0.
inline Checked ToNumber(const TaggedView& value) noexcept {
  return value.is_text() ? ToNumber(value.text()) : Checked(value.number());
}

// The number that a text stands for, for callers that branch on whether there is one.
inline std::optional<double> ParseNumber(std::string_view text) noexcept {
  const Checked number = ToNumber(text);
  return number.failed() ? std::nullopt : std::optional(number.value());
}

// The numeric test.
inline bool IsNumeric(std::string_view text) noexcept { return !ToNumber(text).failed(); }
inline bool IsNumeric(const TaggedView& value) noexcept { return value.is_number() || IsNumeric(value.text()); }

// Any kind of string is a text here, though a tagged value could be made of it as well.
template <std::convertible_to<std::string_view> Text>
Checked ToNumber(const Text& text) noexcept {
  return ToNumber(std::string_view(text));
}
template <std::convertible_to<std::string_view> Text>
bool IsNumeric(const Text& text) noexcept {
  return IsNumeric(std::string_view(text));
}

// The value of the longest leading stretch that reads as a number (blanks skipped, no commas); 0 when there is none.
// Fails when that number is beyond the range of a double.
Checked NumberPrefix(std::string_view text) noexcept;

// Integer conversion: rounds half to even. The 16-bit form yields nothing outside -32768 to 32767 and for a failed
// value.
double RoundHalfEven(double value) noexcept;
std::optional<std::int16_t> ToInt16(Checked value) noexcept;

// The longest general text has 24 characters.
using NumberBuffer = std::array<char, 32>;

// General text: the shortest decimal digits that read back as the same double, plain while the decimal exponent is from
// -5 to 14, else as 1.5E-07. The view lives as long as the buffer.
std::string_view WriteGeneralText(double value, NumberBuffer& buffer) noexcept;
std::string GeneralText(double value);

// The text of a tagged value: the general text of a number, nothing for the empty tag. The view refers to the value's
// own text or to the buffer.
std::string_view TextOf(const TaggedView& value, NumberBuffer& buffer) noexcept;
std::string TextOf(const TaggedView& value);

// The value as a single-precision number with seven significant digits: 0.3333333, 1.234568E+11. Nothing when the value
// is beyond the range of single precision.
std::optional<std::string> SingleText(double value);

}  // namespace tessara
