#include "numerics/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace tessara {
namespace {

struct TextAndNumber {
  std::string text;
  double number;
};

void ExpectNumbers(const std::vector<TextAndNumber>& cases) {
  for (const auto& [text, number] : cases) {
    SCOPED_TRACE("\"" + text.substr(0, 60) + "\"");
    const std::optional<double> parsed = ParseNumber(text);
    ASSERT_TRUE(parsed.has_value());
    EXPECT_EQ(*parsed, number);
    EXPECT_FALSE(std::signbit(*parsed) && *parsed == 0);
    EXPECT_TRUE(IsNumeric(text));
    EXPECT_EQ(ToNumber(text).value_or(-99), number);
  }
}

void ExpectNoNumbers(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    SCOPED_TRACE("\"" + text.substr(0, 60) + "\"");
    EXPECT_FALSE(ParseNumber(text).has_value());
    EXPECT_FALSE(IsNumeric(text));
    EXPECT_TRUE(ToNumber(text).failed());
  }
}

TEST(NumberIn, PlainDecimals) {
  ExpectNumbers({{"0", 0}, {"3", 3}, {"70.5", 70.5}, {"-12.34567", -12.34567}, {"007", 7}, {"-0.25", -0.25}});
}

TEST(NumberIn, ASignOfEitherKind) { ExpectNumbers({{"+5", 5}, {"-5", -5}, {"+.5", 0.5}, {"-.5", -0.5}}); }

TEST(NumberIn, DigitsOnOneSideOfThePointAreEnough) { ExpectNumbers({{".5", 0.5}, {"5.", 5}, {"-5.", -5}}); }

TEST(NumberIn, BlanksAround) {
  ExpectNumbers({{" 7 ", 7}, {"   7", 7}, {"7   ", 7}, {"  -1.5e2 ", -150}});
  ExpectNoNumbers({"\t7", "7\t", "7\r", "7\n",
                   "\xA0"
                   "7",
                   std::string("7\0", 2)});
}

TEST(NumberIn, CommasBehindTheFirstDigitAndAheadOfThePoint) {
  ExpectNumbers({{"1,234.5", 1234.5}, {"1,,2", 12}, {"1,", 1}, {"12,3,.5", 123.5}, {"1,e2", 100}, {"-1,2", -12}});
  ExpectNoNumbers({",5", "-,5", "1.2,3", "1e1,0", "1e5,", ",", "1.,", ".,5"});
}

TEST(NumberIn, ExponentLetters) {
  ExpectNumbers(
      {{"-1e3", -1000}, {"1E+3", 1000}, {"1d-3", 0.001}, {"2.5D2", 250}, {"5.e1", 50}, {".5e1", 5}, {"1e007", 1e7}});
}

TEST(NumberIn, ADigitMustStandAheadOfTheExponent) { ExpectNoNumbers({"e5", ".e5", "-e5", "+.d1"}); }

TEST(NumberIn, AnExponentNeedsADigit) { ExpectNoNumbers({"1e", "1e+", "1d-", "1e 5", "1e.5", "1e1.5", "1e--5"}); }

TEST(NumberIn, OtherTextIsNotNumeric) {
  ExpectNoNumbers({"",    " ",     ".",   "-",   "+",   "-.",   "--1",      "+-1",  "- 1",   "1 2",   "1-", "$5",  "5%",
                   "(5)", "12abc", "abc", "nan", "inf", "-inf", "infinity", "0x10", "1.2.3", "1e5e5", "1f", "\xB2"});
}

TEST(NumberIn, BeyondTheRangeFails) {
  ExpectNumbers({{"1.7976931348623157e308", std::numeric_limits<double>::max()},
                 {"1.7976931348623158e308", std::numeric_limits<double>::max()}});
  ExpectNoNumbers({"1.7976931348623159e308", "1e309", "-1e309", "1e999999999999999999999999", "17976931348623159e292"});
}

TEST(NumberIn, TooSmallIsZero) {
  ExpectNumbers({{"1e-400", 0},
                 {"-1e-400", 0},
                 {"1e-324", 0},
                 {"2.4703282292062327e-324", 0},  // just below half of the smallest double
                 {"5e-324", std::numeric_limits<double>::denorm_min()},
                 {"1e-999999999999999999999999", 0}});
}

TEST(NumberIn, ZeroHasNoSignAndNoExponent) {
  ExpectNumbers({{"-0", 0}, {"-0.0", 0}, {"-0e5", 0}, {"0e999999999999999999999", 0}, {"0,0.00", 0}, {" -.0", 0}});
}

TEST(NumberIn, NearestDouble) {
  ExpectNumbers({{"0.1", 0.1},
                 {"1e22", 1e22},
                 {"1e23", 1e23},
                 {"9007199254740992", 9007199254740992.0},
                 {"9007199254740993", 9007199254740992.0},  // half way: to the even neighbour
                 {"9007199254740995", 9007199254740996.0},
                 {"9007199254740993.0000000000000000000000000000001", 9007199254740994.0},
                 {"12345678901234567890", 12345678901234567890.0},
                 {"0.1234567890123456789", 0.1234567890123456789},
                 {"2.2250738585072011e-308", 2.2250738585072011e-308},
                 {"123,456,789,012,345,678,901", 123456789012345678901.0}});
}

TEST(NumberIn, FourDecimalsAtOnceStopAtTheFirstOther) {
  ExpectNumbers({{"0.1234", 0.1234}, {"0.12345678", 0.12345678}, {"0.123456789", 0.123456789}, {"1.0009", 1.0009}});
  ExpectNoNumbers({"0.123:", "0.12/4", "0.1 34", "0.,234",
                   "0.\xB1"
                   "234",
                   "0.1234x", "0.12345:78", "0.9:99"});
}

TEST(NumberIn, AMillionDigits) {
  const std::string zeros(1'000'000, '0');
  const std::string nines(1'000'000, '9');
  ExpectNumbers({{zeros + "12.5", 12.5},
                 {"0." + zeros + "1", 0},
                 {"1" + zeros + "e-1000000", 1},
                 {"-0." + zeros + "1e1000001", -1},
                 {"0." + nines, 1},
                 {"1." + zeros, 1},
                 {"1" + std::string(1'000'000, ','), 1},
                 {"1e-" + nines, 0},
                 {"9007199254740993." + zeros, 9007199254740992.0},
                 {"9007199254740993." + zeros + "1", 9007199254740994.0},
                 {"9007199254740992." + nines, 9007199254740992.0},
                 {"9007199254740993" + zeros + "1e-1000001", 9007199254740994.0}});
  ExpectNoNumbers({nines, "1e" + nines, zeros + "x", "1." + zeros + ","});
}

TEST(NumberIn, TheTagDecides) {
  EXPECT_EQ(ToNumber(TaggedView()).value_or(-99), 0);
  EXPECT_TRUE(ToNumber(TaggedView("")).failed());
  EXPECT_EQ(ToNumber(TaggedView("1,5")).value_or(-99), 15);
  EXPECT_EQ(ToNumber(TaggedView(2.5)).value_or(-99), 2.5);
  EXPECT_TRUE(IsNumeric(TaggedView(0.0)));
  EXPECT_TRUE(IsNumeric(TaggedView("0")));
  EXPECT_FALSE(IsNumeric(TaggedView("zero")));
  EXPECT_FALSE(IsNumeric(TaggedView()));
}

TEST(NumberPrefix, TakesTheLongestNumberAtTheStart) {
  const std::vector<TextAndNumber> cases = {
      {"12abc", 12}, {"  7 days", 7}, {"1,234", 1},   {"-.5x", -0.5},    {"5.", 5},      {"5.e", 5},
      {"1e", 1},     {"1e+", 1},      {"1e2e3", 100}, {"1d2", 100},      {"1.2.3", 1.2}, {"+3+4", 3},
      {"1 2", 1},    {"50%", 50},     {"-0", 0},      {"1e-999 too", 0}, {"12", 12}};
  for (const auto& [text, number] : cases) EXPECT_EQ(NumberPrefix(text).value_or(-99), number) << '"' << text << '"';
}

TEST(NumberPrefix, NothingTakenIsZero) {
  for (const char* text : {"", " ", "abc", "-", "+", ".", "-.", ".e5", "e5", ",5", "$5", "\t5", "- 5", "inf", "nan"}) {
    EXPECT_EQ(NumberPrefix(text).value_or(-99), 0) << '"' << text << '"';
  }
}

TEST(NumberPrefix, BeyondTheRangeFails) { EXPECT_TRUE(NumberPrefix("1e999 and more").failed()); }

TEST(IntegerConversion, HalvesGoToTheEvenNeighbour) {
  const std::vector<std::pair<double, double>> cases = {{0.5, 0},   {1.5, 2},  {2.5, 2},  {-0.5, 0}, {-1.5, -2},
                                                        {-2.5, -2}, {2.51, 3}, {2.49, 2}, {7, 7},    {1e300, 1e300}};
  for (const auto& [value, whole] : cases) EXPECT_EQ(RoundHalfEven(value), whole) << value;
}

TEST(IntegerConversion, SixteenBits) {
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(32767.0), 32767);
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(ToInt16(32767.5), std::nullopt);
  EXPECT_EQ(ToInt16(-32768.51), std::nullopt);
  EXPECT_EQ(ToInt16(1e300), std::nullopt);
  EXPECT_EQ(ToInt16(Checked::Failed()), std::nullopt);
}

struct NumberAndText {
  double number;
  std::string text;
};

void ExpectGeneralTexts(const std::vector<NumberAndText>& cases) {
  for (const auto& [number, text] : cases) EXPECT_EQ(GeneralText(number), text);
}

TEST(GeneralText, ShortestDigitsThatReadBack) {
  ExpectGeneralTexts({{0.1, "0.1"},
                      {1.0 / 3, "0.3333333333333333"},
                      {0.1 + 0.2, "0.30000000000000004"},
                      {-70.5, "-70.5"},
                      {2, "2"},
                      {-15, "-15"},
                      {123456.789, "123456.789"}});
}

TEST(GeneralText, PlainFromMinusFiveToFourteen) {
  ExpectGeneralTexts({{0.00001, "0.00001"},
                      {0.000012345, "0.000012345"},
                      {123456789012345, "123456789012345"},
                      {999999999999999, "999999999999999"},
                      {100000000000000, "100000000000000"},
                      {-123456789012345, "-123456789012345"},
                      {123456789012345.6, "123456789012345.6"}});
}

TEST(GeneralText, ExponentOutsideOfThat) {
  ExpectGeneralTexts({{1e15, "1E+15"},
                      {-1e15, "-1E+15"},
                      {1234567890123456, "1.234567890123456E+15"},
                      {0.000009, "9E-06"},
                      {1.5e-7, "1.5E-07"},
                      {-1.5e-7, "-1.5E-07"},
                      {1e100, "1E+100"},
                      {1e-100, "1E-100"},
                      {5e-324, "5E-324"},
                      {std::numeric_limits<double>::max(), "1.7976931348623157E+308"}});
}

TEST(GeneralText, ZeroAheadOfALeadingPoint) { ExpectGeneralTexts({{0.5, "0.5"}, {-0.5, "-0.5"}, {0.05, "0.05"}}); }

TEST(GeneralText, ZeroOfEitherSign) { ExpectGeneralTexts({{0.0, "0"}, {-0.0, "0"}}); }

TEST(GeneralText, TheLongestFitsTheBuffer) {
  NumberBuffer buffer;
  EXPECT_EQ(WriteGeneralText(-1.2345678901234568e-5, buffer), "-0.000012345678901234568");
  EXPECT_EQ(WriteGeneralText(-2.2250738585072014e-308, buffer), "-2.2250738585072014E-308");
}

TEST(TextOf, ATaggedValue) {
  EXPECT_EQ(TextOf(TaggedView()), "");
  EXPECT_EQ(TextOf(TaggedView(0.0)), "0");
  EXPECT_EQ(TextOf(TaggedView(1e15)), "1E+15");
  EXPECT_EQ(TextOf(TaggedView(" 1.0 ")), " 1.0 ");
}

void ExpectSingleTexts(const std::vector<NumberAndText>& cases) {
  for (const auto& [number, text] : cases) EXPECT_EQ(SingleText(number), text);
}

TEST(SingleText, SevenSignificantDigits) {
  ExpectSingleTexts({{1.0 / 3, "0.3333333"},
                     {1234.5, "1234.5"},
                     {123456789012.0, "1.234568E+11"},
                     {0.1, "0.1"},
                     {-2.0 / 3, "-0.6666667"},
                     {100, "100"},
                     {0.0, "0"},
                     {-0.0, "0"}});
}

// 2^24 + 1 is no single: the nearest is 16777216. 100000.05 as a single is 100000.046875, which rounds down although
// the text of the double has a half in its eighth place.
TEST(SingleText, TheSinglesOwnValueIsRounded) {
  ExpectSingleTexts({{16777217, "1.677722E+07"}, {100000.05, "100000"}});
}

// 4194304.5 and 1048577.25 are singles exactly; the half of the first goes away from zero.
TEST(SingleText, AnExactHalfGoesAwayFromZero) {
  ExpectSingleTexts(
      {{4194304.5, "4194305"}, {-4194304.5, "-4194305"}, {1048577.25, "1048577"}, {1048577.5, "1048578"}});
}

TEST(SingleText, ExponentFromTheEighthPlaceUp) {
  ExpectSingleTexts(
      {{9999999, "9999999"}, {10000000, "1E+07"}, {12345678, "1.234568E+07"}, {1e10, "1E+10"}, {-2.5e20, "-2.5E+20"}});
}

TEST(SingleText, TheLowEndIsThatOfTheGeneralText) {
  ExpectSingleTexts({{0.00001, "0.00001"}, {0.000009, "9E-06"}, {1.5e-7, "1.5E-07"}, {1e-60, "0"}});
}

TEST(SingleText, BeyondTheRangeOfASingle) {
  EXPECT_EQ(SingleText(1e39), std::nullopt);
  EXPECT_EQ(SingleText(-1e300), std::nullopt);
  EXPECT_EQ(SingleText(3.4028234663852886e38), "3.402823E+38");
  EXPECT_EQ(SingleText(3.4028235677973362e38), "3.402823E+38");  // nearer to the largest single than to the next power
  EXPECT_EQ(SingleText(0x1.ffffffp+127), std::nullopt);          // half way, and the power is the even one
}

}  // namespace
}  // namespace tessara
