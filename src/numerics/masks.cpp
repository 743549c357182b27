#include "numerics/masks.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "numerics/decimal_digits.h"
#include "numerics/number_text.h"

namespace tessara {

namespace {

constexpr char kPlace = '0';
constexpr char kPoint = '.';
constexpr char kPercent = '%';

// What a mask asks for.
struct MaskShape {
  std::size_t first_place;  // of the places and the point, whichever comes first; the mask's length when it has neither
  int whole_places = 0;
  int decimals = 0;
  int shift = 0;  // the power of ten that the percent signs multiply by
};

MaskShape ReadMask(std::string_view mask) {
  MaskShape shape{.first_place = mask.size()};
  bool behind_point = false;
  for (std::size_t i = 0; i < mask.size(); ++i) {
    switch (mask[i]) {
      case kPlace:
        ++(behind_point ? shape.decimals : shape.whole_places);
        break;
      case kPoint:
        behind_point = true;
        break;
      case kPercent:
        shape.shift += 2;
        continue;
      default:
        continue;
    }
    shape.first_place = std::min(shape.first_place, i);
  }
  return shape;
}

// Values are rounded in the form of so many significant digits.
constexpr int kSignificantDigits = 15;

// The digits of a whole number, which count for 10^-decimals at the end.
DecimalDigits DigitsOfWhole(std::uint64_t whole, int decimals) {
  DecimalDigits result;
  if (whole == 0) return result;
  const auto end = std::to_chars(result.digits.data(), result.digits.data() + result.digits.size(), whole).ptr;
  result.count = static_cast<int>(end - result.digits.data());
  result.exponent = result.count - 1 - decimals;
  return result;
}

// The value times ten to `shift`, rounded to a number of decimals.
DecimalDigits RoundedDigits(double value, int shift, int decimals) {
  constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
  constexpr int kPowers = 11;
  // The form of 15 digits differs from the value by at most 5e-15 of it, and the product below is rounded once. Where
  // the fraction is farther from a half than both, the value is on the same side of the half as its form, and the form
  // is not needed.
  constexpr double kFormTolerance = 6e-15;
  constexpr double kLargestScaled = 1e13;
  const int power = shift + decimals;
  if (power < kPowers) {
    const double scaled = std::fabs(value) * kPowersOfTen[power];
    if (scaled < kLargestScaled) {
      const auto whole = static_cast<std::int64_t>(scaled);
      const double above_half = scaled - static_cast<double>(whole) - 0.5;
      if (std::fabs(above_half) > scaled * kFormTolerance) {
        DecimalDigits result = DigitsOfWhole(static_cast<std::uint64_t>(whole + (above_half > 0 ? 1 : 0)), decimals);
        result.negative = value < 0;
        return result;
      }
    }
  }
  DecimalDigits form = SignificantDigits(value, kSignificantDigits);
  if (form.count == 0) return form;
  form.exponent += shift;
  form.RoundTo(form.exponent + 1 + decimals);
  return form;
}

void AppendUnderMask(const DecimalDigits& number, std::string_view mask, const MaskShape& shape, std::string& out) {
  const bool minus = number.negative && number.count > 0;
  // The digits that have no place of their own stand ahead of the first place, or of the point.
  const bool has_room = shape.first_place < mask.size();
  const int extra_digits = has_room ? std::max(number.exponent + 1 - shape.whole_places, 0) : 0;
  const std::size_t length = mask.size() + static_cast<std::size_t>(extra_digits) + (minus ? 1 : 0);
  out.resize(out.size() + length);
  char* p = out.data() + (out.size() - length);
  if (minus) *p++ = '-';
  p = std::copy_n(mask.data(), shape.first_place, p);
  int power = extra_digits + shape.whole_places;
  for (int i = 0; i < extra_digits; ++i) *p++ = number.DigitAt(--power);
  for (char c : mask.substr(shape.first_place)) *p++ = c == kPlace ? number.DigitAt(--power) : c;
}

}  // namespace

void AppendMasked(double value, std::string_view mask, std::string& out) {
  if (mask.empty()) {
    NumberBuffer buffer;
    out += WriteGeneralText(value, buffer);
    return;
  }
  const MaskShape shape = ReadMask(mask);
  AppendUnderMask(RoundedDigits(value, shape.shift, shape.decimals), mask, shape, out);
}

std::string MaskedNumber(double value, std::string_view mask) {
  std::string text;
  AppendMasked(value, mask, text);
  return text;
}

std::optional<std::string> Masked(Checked value, std::string_view mask) {
  if (value.failed()) return std::nullopt;
  return MaskedNumber(value.value(), mask);
}

Checked RoundedBy(Checked value, std::string_view mask) {
  const auto text = Masked(value, mask);
  return text ? ToNumber(*text) : Checked::Failed();
}

std::string MaskedOrEmpty(const std::optional<double>& value, std::string_view mask) {
  return value ? MaskedNumber(*value, mask) : std::string();
}

std::string MaskedValue(const TaggedView& value, std::string_view mask) {
  if (!value.is_text()) return MaskedNumber(value.number(), mask);
  if (const std::optional<double> number = ParseNumber(value.text())) return MaskedNumber(*number, mask);
  return std::string(value.text());
}

std::string Grouped(double value) {
  constexpr std::size_t kGroup = 3;
  std::string text = MaskedNumber(value, "0");
  const std::size_t first_digit = text.front() == '-' ? 1 : 0;
  for (std::size_t i = text.size(); i > first_digit + kGroup;) {
    i -= kGroup;
    text.insert(i, 1, ',');
  }
  return text;
}

std::string Percentage(double fraction) { return MaskedNumber(fraction, "0.00%"); }

}  // namespace tessara
