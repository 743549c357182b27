// Numbers, masks, dates and the code page on any bytes. A rule that does not hold stops the run.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "numerics/code_page.h"
#include "numerics/dates.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"

namespace {

using namespace tessara;

void Require(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", rule);
  std::abort();
}

// The same bits, but that zero has one face.
bool SameNumber(double a, double b) { return a == b && (a != 0 || !std::signbit(b)); }

void CheckGeneralText(double value) {
  NumberBuffer buffer;
  const std::string_view text = WriteGeneralText(value, buffer);
  Require(text.size() <= 24, "a general text has at most 24 characters");
  const auto back = ParseNumber(text);
  Require(back && SameNumber(value, *back), "a general text reads back as the same double");
  Require(SameNumber(value, NumberPrefix(text).value_or(NAN)), "a general text is a prefix as a whole");
}

void CheckSingleText(double value) {
  const auto text = SingleText(value);
  Require(text.has_value() == (std::fabs(value) < 0x1.ffffffp+127), "a single text exists in the range of a single");
  if (!text) return;
  const auto digits =
      std::count_if(text->begin(), text->begin() + static_cast<std::ptrdiff_t>(std::min(text->size(), text->find('E'))),
                    [](char c) { return c >= '1' && c <= '9'; });
  Require(digits <= 7, "a single text has at most seven significant digits");
  const double single = static_cast<float>(value);
  const double back = ParseNumber(*text).value_or(NAN);
  Require(std::fabs(back - single) <= std::fabs(single) * 5.0000001e-7, "a single text is near its single");
}

void CheckDecimals(double value) {
  constexpr double kLastFormInRange =
      1.79769313486231e308;  // the form of the largest doubles is rounded out of the range
  if (std::fabs(value) > kLastFormInRange) return;
  constexpr std::string_view kMasks[] = {"0", "0.0", "0.00", "0.000", "0.0000", "0.00000"};
  double unit = 1;
  for (std::string_view mask : kMasks) {
    const std::string text = MaskedNumber(value, mask);
    const auto back = ParseNumber(text);
    Require(back.has_value(), "a mask of zeros gives a number");
    Require(!text.starts_with('-') || *back != 0, "a zero has no minus sign");
    Require(std::fabs(*back - value) <= 0.5 * unit * (1 + 1e-9) + std::fabs(value) * 6e-15,
            "a mask rounds to the nearest");
    Require(MaskedValue(text, mask) == text, "a masked text stays under its mask");
    Require(Masked(value, mask) == text, "all ways to a mask agree");
    unit /= 10;
  }
  std::string grouped = Grouped(value);
  std::erase(grouped, ',');
  Require(grouped == MaskedNumber(value, "0"), "grouping adds commas only");
  Require(MaskedNumber(value, "0.00%") == Percentage(value), "a percentage is a mask");
}

void CheckNumber(double value) {
  if (!std::isfinite(value)) return;
  CheckGeneralText(value);
  CheckSingleText(value);
  CheckDecimals(value);
}

void CheckTextAsNumber(std::string_view text) {
  const auto number = ParseNumber(text);
  Require(IsNumeric(text) == number.has_value(), "what passes the test converts");
  Require(ToNumber(text).failed() != number.has_value(), "the conversion fails where the test does");
  Require(std::isfinite(NumberPrefix(text).value_or(0)), "a prefix is finite");
  if (!number) {
    Require(MaskedValue(TaggedView(text), "0.00") == text, "other text is itself under a mask");
    return;
  }
  Require(std::isfinite(*number), "a number is finite");
  const std::string blanks = ' ' + std::string(text) + "  ";
  Require(ParseNumber(blanks) == number, "blanks around do not count");
  std::string bare(text);
  std::erase(bare, ',');
  Require(ParseNumber(bare) == number, "commas are ignored");
  Require(NumberPrefix(bare).value_or(NAN) == *number, "a number without commas is its own prefix");
  CheckNumber(*number);
}

void CheckMask(double value, std::string_view mask) {
  if (!std::isfinite(value) || mask.empty()) return;
  const std::string text = MaskedNumber(value, mask);
  Require(text.size() >= mask.size(), "nothing of a mask is dropped");
  std::string appended = "x";
  AppendMasked(value, mask, appended);
  Require(appended == 'x' + text, "appending keeps what is there");
}

void CheckDate(std::string_view text) {
  const auto day = ParseDate(text);
  Require(IsDate(text) == day.has_value() && ToDayNumber(text).failed() != day.has_value(),
          "what passes the date test converts");
  if (!day) return;
  Require(DayOfNumber(DayNumber(*day)) == *day, "a day has one number");
  Require(day->year < 1000 || ParseDate(ShortDate(*day)) == day, "a short date reads back as the same day");
}

void CheckCodePage(std::string_view bytes) {
  const std::string utf8 = ToUtf8(bytes);
  Require(IsUtf8(utf8), "the code page becomes well-formed");
  Require(FromUtf8(utf8) == bytes, "every byte survives the way there and back");
  Require(FromUtf8(bytes).size() <= bytes.size(), "a character is one byte");
  const std::string content = FromTextFile(bytes);
  Require(IsUtf8(bytes) || bytes.starts_with("\xEF\xBB\xBF") || content == bytes,
          "other files are taken byte for byte");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckTextAsNumber(text);
  CheckDate(text);
  CheckCodePage(text);
  std::uint64_t bits = 0;
  if (size >= sizeof bits) {
    std::memcpy(&bits, data, sizeof bits);
    CheckNumber(std::bit_cast<double>(bits));
    CheckMask(std::bit_cast<double>(bits), text.substr(sizeof bits));
  }
  return 0;
}
