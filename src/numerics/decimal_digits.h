#pragma once

#include <array>
#include <cstddef>

// A finite double as decimal digits: what number texts and masks are laid out from.

namespace tessara {

// The value is d.ddd times ten to the exponent, the digits being '0' to '9' without zeros at either end. Zero has no
// digits.
struct DecimalDigits {
  bool negative = false;
  int count = 0;
  int exponent = -1;
  std::array<char, 20> digits;

  // The digit that counts for ten to the given power.
  char DigitAt(int power) const {
    const int index = exponent - power;
    return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
  }

  // Keeps that many leading digits, rounding half away from zero; a negative number leaves nothing.
  void RoundTo(int kept) noexcept;
};

// The shortest digits that read back as the same double, at most 17.
DecimalDigits ShortestDigits(double value) noexcept;

// The exact value rounded once to at most 17 significant digits, half away from zero.
DecimalDigits SignificantDigits(double value, int significant) noexcept;

}  // namespace tessara
