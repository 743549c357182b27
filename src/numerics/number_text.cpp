#include "numerics/number_text.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "numerics/decimal_digits.h"

namespace tessara {

namespace {

// Numbers in.

// A whole number up to 2^53 and a power of ten up to 10^22 are exact doubles, so one multiplication or division of the
// two is rounded once and gives the nearest double.
constexpr std::uint64_t kLargestExactWhole = std::uint64_t{1} << 53;
constexpr int kLargestExactPower = 22;
constexpr double kPowersOfTen[kLargestExactPower + 1] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                         1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                         1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// So many digits always fit 64 bits.
constexpr int kDigitsInWord = 19;

// Written exponents are cut off here: beyond any text's length, yet safe to add to one.
constexpr std::int64_t kExponentCutOff = 100'000'000'000'000'000;

// More significant digits than this never move the nearest double, but for whether all of them are zero.
constexpr std::size_t kDecisiveDigits = 770;

enum class Commas { kIgnored, kNotTaken };

constexpr unsigned DigitValue(char c) { return static_cast<unsigned char>(c - '0'); }
constexpr bool IsDigit(char c) { return DigitValue(c) < 10; }

// Four digits in one word: a quarter of the steps of a long fraction. False when one of the characters is none.
bool ReadFourDigits(const char* p, std::uint32_t& value) {
  std::uint32_t word;
  std::memcpy(&word, p, sizeof word);
  word ^= 0x30303030;  // digits become 0 to 9, and nothing else does
  if ((((word + 0x76767676) | word) & 0x80808080) != 0) return false;
  if constexpr (std::endian::native == std::endian::little) {
    word = word * 10 + (word >> 8);  // pairs in the first and third byte
    value = (word & 0xFF) * 100 + (word >> 16 & 0xFF);
  } else {
    word = word + (word >> 8) * 10;  // pairs in the second and fourth byte
    value = (word >> 16 & 0xFF) * 100 + (word & 0xFF);
  }
  return true;
}

// Where the pieces of a number stand in a text.
struct NumberSpan {
  bool found = false;  // at least one digit ahead of the exponent
  bool negative = false;
  std::string_view whole;  // digits, and commas among them
  std::string_view fraction;
  std::int64_t exponent = 0;
  const char* end = nullptr;
};

// Reads an exponent that starts at `p`; one without digits is not taken.
const char* ReadExponent(const char* p, const char* end, std::int64_t& exponent) {
  if (p == end || (*p != 'e' && *p != 'E' && *p != 'd' && *p != 'D')) return p;
  const char* q = p + 1;
  const bool negative = q != end && *q == '-';
  if (q != end && (*q == '-' || *q == '+')) ++q;
  if (q == end || !IsDigit(*q)) return p;
  for (; q != end && IsDigit(*q); ++q) {
    if (exponent < kExponentCutOff) exponent = exponent * 10 + (*q - '0');
  }
  exponent = std::min(exponent, kExponentCutOff);
  if (negative) exponent = -exponent;
  return q;
}

// The longest number at the start of a text.
NumberSpan ReadNumber(const char* p, const char* end, Commas commas) {
  NumberSpan span;
  span.negative = p != end && *p == '-';
  if (p != end && (*p == '-' || *p == '+')) ++p;
  const char* const whole = p;
  while (p != end && (IsDigit(*p) || (*p == ',' && p != whole && commas == Commas::kIgnored))) ++p;
  span.whole = {whole, static_cast<std::size_t>(p - whole)};
  if (p != end && *p == '.') {
    const char* const fraction = ++p;
    while (p != end && IsDigit(*p)) ++p;
    span.fraction = {fraction, static_cast<std::size_t>(p - fraction)};
  }
  span.found = !span.whole.empty() || !span.fraction.empty();
  if (span.found) span.end = ReadExponent(p, end, span.exponent);
  return span;
}

// The significant digits of a number, and the power of ten that counts for the last of them. When there are too many,
// the rest is dropped, and a last 1 says that it was not all zeros.
class SignificantText {
 public:
  explicit SignificantText(const NumberSpan& span) {
    for (char c : span.whole) {
      if (c != ',') Take(c);
    }
    for (char c : span.fraction) Take(c);
    exponent_ = dropped_ - static_cast<std::int64_t>(span.fraction.size()) + span.exponent;
    if (rest_counts_) {
      digits_[count_++] = '1';
      --exponent_;
    }
  }

  bool is_zero() const { return count_ == 0; }
  // The power of ten that counts for the first digit.
  std::int64_t magnitude() const { return exponent_ + static_cast<std::int64_t>(count_) - 1; }

  // The nearest double when it can be had by one exact step.
  std::optional<double> Exactly() const {
    if (count_ > kDigitsInWord || std::abs(exponent_) > kLargestExactPower) return std::nullopt;
    std::uint64_t whole = 0;
    for (std::size_t i = 0; i < count_; ++i) whole = whole * 10 + DigitValue(digits_[i]);
    if (whole > kLargestExactWhole) return std::nullopt;
    const double value = static_cast<double>(whole);
    return exponent_ < 0 ? value / kPowersOfTen[-exponent_] : value * kPowersOfTen[exponent_];
  }

  // The nearest double of a number whose magnitude is in the neighbourhood of the range. Writes behind the digits.
  Checked Nearest() {
    char* p = digits_.data() + count_;
    *p++ = 'e';
    p = std::to_chars(p, digits_.data() + digits_.size(), exponent_).ptr;
    double value = 0;
    const auto [end, error] = std::from_chars(digits_.data(), p, value);
    if (error == std::errc::result_out_of_range) return magnitude() < 0 ? Checked(0) : Checked::Failed();
    return value;
  }

 private:
  void Take(char digit) {
    if (count_ == 0 && digit == '0') return;
    if (count_ < kDecisiveDigits) {
      digits_[count_++] = digit;
    } else {
      ++dropped_;
      rest_counts_ = rest_counts_ || digit != '0';
    }
  }

  std::array<char, kDecisiveDigits + 32> digits_;  // the first count_ of them are set
  std::size_t count_ = 0;
  std::int64_t exponent_ = 0;
  std::int64_t dropped_ = 0;
  bool rest_counts_ = false;
};

// The nearest double; fails beyond the range.
Checked ValueOf(const NumberSpan& span) {
  // A double's decimal exponents run from -324 to 308.
  constexpr std::int64_t kCertainlyBeyond = 400;
  SignificantText text(span);
  if (text.is_zero() || text.magnitude() < -kCertainlyBeyond) return 0.0;
  if (text.magnitude() > kCertainlyBeyond) return Checked::Failed();
  const std::optional<double> exact = text.Exactly();
  const Checked value = exact ? Checked(*exact) : text.Nearest();
  return span.negative ? 0 - value : value;
}

// Everything that the plain loop of ToNumber leaves: commas, exponents, blanks, long texts. Also the texts that fail.
Checked ConvertAnyNumber(const char* begin, const char* end) {
  while (begin != end && *begin == ' ') ++begin;
  while (begin != end && end[-1] == ' ') --end;
  const NumberSpan span = ReadNumber(begin, end, Commas::kIgnored);
  return span.found && span.end == end ? ValueOf(span) : Checked::Failed();
}

// Numbers out.

// From this exponent down, numbers are written with an exponent, and from the first power that is given up.
constexpr int kLastExponentForm = -6;
constexpr int kGeneralExponentForm = 15;
constexpr int kSingleExponentForm = 7;

char* WritePlain(const DecimalDigits& number, char* out) {
  if (number.exponent < 0) *out++ = '0';
  for (int power = number.exponent; power >= 0; --power) *out++ = number.DigitAt(power);
  const int last = number.exponent - number.count + 1;
  if (last < 0) *out++ = '.';
  for (int power = -1; power >= last; --power) *out++ = number.DigitAt(power);
  return out;
}

char* WriteWithExponent(const DecimalDigits& number, char* out) {
  *out++ = number.digits[0];
  if (number.count > 1) *out++ = '.';
  out = std::copy_n(number.digits.data() + 1, number.count - 1, out);
  *out++ = 'E';
  *out++ = number.exponent < 0 ? '-' : '+';
  const int exponent = std::abs(number.exponent);
  if (exponent < 10) *out++ = '0';
  return std::to_chars(out, out + 3, exponent).ptr;
}

std::string_view WriteDigits(const DecimalDigits& number, int first_exponent_form, NumberBuffer& buffer) {
  if (number.count == 0) return "0";
  char* out = buffer.data();
  if (number.negative) *out++ = '-';
  const bool plain = number.exponent > kLastExponentForm && number.exponent < first_exponent_form;
  out = plain ? WritePlain(number, out) : WriteWithExponent(number, out);
  return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

}  // namespace

Checked ToNumber(std::string_view text) noexcept {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  if (begin == end) return Checked::Failed();
  const bool negative = *begin == '-';
  const char* p = begin + (negative ? 1 : 0);
  const char* const digits = p;
  std::uint64_t whole = 0;
  for (; p != end && IsDigit(*p); ++p) whole = whole * 10 + DigitValue(*p);
  std::ptrdiff_t count = p - digits;
  std::ptrdiff_t decimals = 0;
  if (p != end && *p == '.') {
    const char* const fraction = ++p;
    for (std::uint32_t four = 0; end - p >= 4 && ReadFourDigits(p, four); p += 4) whole = whole * 10'000 + four;
    for (; p != end && IsDigit(*p); ++p) whole = whole * 10 + DigitValue(*p);
    decimals = p - fraction;
    count += decimals;
  }
  if (p != end || count == 0 || count > kDigitsInWord || whole > kLargestExactWhole) {
    return ConvertAnyNumber(begin, end);
  }
  double value = static_cast<double>(static_cast<std::int64_t>(whole));
  if (decimals != 0) value /= kPowersOfTen[decimals];
  // The sign without a branch, which random signs would mispredict; adding 0 leaves a zero without one.
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) | static_cast<std::uint64_t>(negative) << 63) + 0.0;
}

Checked NumberPrefix(std::string_view text) noexcept {
  const char* begin = text.data();
  const char* const end = begin + text.size();
  while (begin != end && *begin == ' ') ++begin;
  const NumberSpan span = ReadNumber(begin, end, Commas::kNotTaken);
  return span.found ? ValueOf(span) : Checked(0);
}

double RoundHalfEven(double value) noexcept { return std::nearbyint(value); }

std::optional<std::int16_t> ToInt16(Checked value) noexcept {
  const double whole = RoundHalfEven(value.value());
  if (!(whole >= std::numeric_limits<std::int16_t>::min() && whole <= std::numeric_limits<std::int16_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int16_t>(whole);
}

std::string_view WriteGeneralText(double value, NumberBuffer& buffer) noexcept {
  constexpr double kPlainWholes = 1e15;
  if (std::fabs(value) < kPlainWholes && value == std::trunc(value)) {
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::int64_t>(value)).ptr;
    return {buffer.data(), static_cast<std::size_t>(end - buffer.data())};
  }
  return WriteDigits(ShortestDigits(value), kGeneralExponentForm, buffer);
}

std::string GeneralText(double value) {
  NumberBuffer buffer;
  return std::string(WriteGeneralText(value, buffer));
}

std::string_view TextOf(const TaggedView& value, NumberBuffer& buffer) noexcept {
  return value.is_number() ? WriteGeneralText(value.number(), buffer) : value.text();
}

std::string TextOf(const TaggedView& value) {
  NumberBuffer buffer;
  return std::string(TextOf(value, buffer));
}

std::optional<std::string> SingleText(double value) {
  // Half a step above the largest single; from here on the nearest single would be infinite.
  constexpr double kBeyondSingle = 0x1.ffffffp+127;
  if (!(std::fabs(value) < kBeyondSingle)) return std::nullopt;
  constexpr int kSingleDigits = 7;
  const double single = static_cast<float>(value);
  NumberBuffer buffer;
  return std::string(WriteDigits(SignificantDigits(single, kSingleDigits), kSingleExponentForm, buffer));
}

}  // namespace tessara
