#include "numerics/masks.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "numerics/number_text.h"

namespace tessara {
namespace {

struct MaskCase {
  double value;
  std::string mask;
  std::string text;
};

void ExpectMasked(const std::vector<MaskCase>& cases) {
  for (const auto& [value, mask, text] : cases) {
    EXPECT_EQ(MaskedNumber(value, mask), text) << GeneralText(value) << " under \"" << mask << '"';
  }
}

TEST(Masks, PlacesBehindThePointAlwaysShow) {
  ExpectMasked(
      {{5, "0.0", "5.0"}, {0.5, "0.000", "0.500"}, {3.14159, "0.00", "3.14"}, {12345678.5, "0.00", "12345678.50"}});
}

TEST(Masks, DigitsAheadOfThePointAreALeastNumber) {
  ExpectMasked({{12, "00000", "00012"}, {123456, "00000", "123456"}, {1.5, "000.0", "001.5"}, {0, "00", "00"}});
}

TEST(Masks, NoPlaceAheadOfThePoint) {
  ExpectMasked({{0.5, ".000", ".500"},
                {12.5, ".000", "12.500"},
                {-0.25, ".000", "-.250"},
                {0, ".000", ".000"},
                {0.9996, ".000", "1.000"}});
}

TEST(Masks, PercentMultipliesByAHundred) {
  ExpectMasked({{0.05, "00.00%", "05.00%"},
                {0.5, "0%", "50%"},
                {0.12345, "0.00%", "12.35%"},
                {1, "0.0%", "100.0%"},
                {-0.071, "0.0%", "-7.1%"},
                {1e307, "0%", "1" + std::string(309, '0') + "%"}});
}

TEST(Masks, OtherCharactersStandAsTheyAre) {
  ExpectMasked({{0.5, " 0.000", " 0.500"},
                {7, "(0.0)", "(7.0)"},
                {5, "0 kg", "5 kg"},
                {12, "~00.", "~12."},
                {3, "n = 0", "n = 3"},
                {1234, "00-00", "12-34"},
                {123456, "00-00", "1234-56"},
                {1.25, "0.0.0", "1.2.5"}});
}

TEST(Masks, MinusGoesAheadOfTheWholeText) {
  ExpectMasked({{-0.5, " 0.000", "- 0.500"}, {-12, "00000", "-00012"}, {-7, "(0)", "-(7)"}});
}

TEST(Masks, HalvesOfTheDecimalFormGoAwayFromZero) {
  ExpectMasked({{2.675, "0.00", "2.68"},
                {1.005, "0.00", "1.01"},
                {0.125, "0.00", "0.13"},
                {-2.675, "0.00", "-2.68"},
                {-0.125, "0.00", "-0.13"},
                {0.5, "0", "1"},
                {1.5, "0", "2"},
                {2.5, "0", "3"},
                {0.00005, "0.0000", "0.0001"},
                {0.285, "0%", "29%"},
                {2.674999, "0.00", "2.67"}});
}

// 0.4999999999999999 has 16 digits; its form of 15 is 0.500000000000000. One digit less stays below the half.
TEST(Masks, FifteenSignificantDigitsDecide) {
  ExpectMasked({{0.4999999999999999, "0", "1"},
                {0.499999999999999, "0", "0"},
                {1.0049999999999999, "0.00", "1.01"},
                {1.00499999999999, "0.00", "1.00"},
                {0.1, "0.00000000000000000000", "0.10000000000000000000"},
                {1.0 / 3, "0.0000000000000000000", "0.3333333333333330000"}});
}

// 1234567890123.125 is a double exactly, and half way between two forms of 15 digits.
TEST(Masks, TheFormItselfIsRoundedAwayFromZero) {
  ExpectMasked({{1234567890123.125, "0.00", "1234567890123.13"}, {-1234567890123.125, "0.000", "-1234567890123.130"}});
}

TEST(Masks, RoundingCarries) {
  ExpectMasked({{999.9996, "0.000", "1000.000"},
                {0.99999, "0.00", "1.00"},
                {9.5, "0", "10"},
                {99999999999999.96, "0.0", "100000000000000.0"}});
}

TEST(Masks, RoundedToZeroHasNoMinus) {
  ExpectMasked({{-0.004, "0.00", "0.00"},
                {-0.0, "0.0", "0.0"},
                {-0.0004, ".000", ".000"},
                {-1e-300, " 0", " 0"},
                {-0.005, "0.00", "-0.01"}});
}

TEST(Masks, EveryFiniteDouble) {
  ExpectMasked({{1e300, "0.00", "1" + std::string(300, '0') + ".00"},
                {-1.5e20, "0.0", "-150000000000000000000.0"},
                {123456789012345678.0, "0", "123456789012346000"},
                {std::numeric_limits<double>::max(), "0", "179769313486232" + std::string(294, '0')},
                {5e-324, "0.00", "0.00"},
                {5e-324, "0." + std::string(323, '0'), "0." + std::string(323, '0')},
                {5e-324, "0." + std::string(324, '0'), "0." + std::string(323, '0') + "5"}});
}

TEST(Masks, TheEmptyMaskIsTheGeneralText) {
  ExpectMasked({{1.5, "", "1.5"}, {1e15, "", "1E+15"}, {1.0 / 3, "", "0.3333333333333333"}, {-0.0, "", "0"}});
}

TEST(Masks, AMaskWithoutPlacesShowsItself) { ExpectMasked({{5, "abc", "abc"}, {0, "%", "%"}}); }

TEST(Masks, AppendingKeepsWhatIsThere) {
  std::string text = "z = ";
  AppendMasked(-1.5, "0.00", text);
  AppendMasked(2, "", text);
  EXPECT_EQ(text, "z = -1.502");
}

TEST(Masks, AFailedValueHasNoText) {
  EXPECT_EQ(Masked(Checked(1) / 0, "0.0"), std::nullopt);
  EXPECT_EQ(Masked(Checked(1) / 2, "0.0"), "0.5");
}

TEST(Masks, ATaggedValue) {
  EXPECT_EQ(MaskedValue(TaggedView(), "0.00"), "0.00");
  EXPECT_EQ(MaskedValue(TaggedView(), ".000"), ".000");
  EXPECT_EQ(MaskedValue(TaggedView(), ""), "0");
  EXPECT_EQ(MaskedValue(TaggedView(""), "0.00"), "");
  EXPECT_EQ(MaskedValue(TaggedView("1,234.5"), "0.00"), "1234.50");
  EXPECT_EQ(MaskedValue(TaggedView(" 7 "), "0.00"), "7.00");
  EXPECT_EQ(MaskedValue(TaggedView("Female"), "0.00"), "Female");
  EXPECT_EQ(MaskedValue(TaggedView(" "), "0.00"), " ");
  EXPECT_EQ(MaskedValue(TaggedView("1e999"), "0.00"), "1e999");
  EXPECT_EQ(MaskedValue(TaggedView(2.5), "0.00"), "2.50");
}

TEST(Grouping, CommasAtEachThirdPlace) {
  const std::vector<std::pair<double, std::string>> cases = {{0, "0"},
                                                             {999, "999"},
                                                             {1000, "1,000"},
                                                             {1234567, "1,234,567"},
                                                             {-999, "-999"},
                                                             {-1000, "-1,000"},
                                                             {123456, "123,456"},
                                                             {999.5, "1,000"},
                                                             {-0.4, "0"},
                                                             {1e18, "1,000,000,000,000,000,000"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(Grouped(value), text);
  EXPECT_EQ(Grouped(1e300).size(), 301u + 100u);
}

TEST(Percentage, TwoDecimals) {
  EXPECT_EQ(Percentage(0.12345), "12.35%");
  EXPECT_EQ(Percentage(0), "0.00%");
  EXPECT_EQ(Percentage(1.5), "150.00%");
  EXPECT_EQ(Percentage(-0.5), "-50.00%");
}

}  // namespace
}  // namespace tessara
