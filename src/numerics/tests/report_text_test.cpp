#include "numerics/report_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

std::string Stars() { return std::string(77, '*'); }

TEST(FormatCol, TheValueStandsAtTheRightEdge) {
  EXPECT_EQ(FormatCol(3.14159, 10, 2), "      3.14");
  EXPECT_EQ(FormatCol(3.14159, 4, 2), "3.14");
  EXPECT_EQ(FormatCol(-3.14159, 10, 2), "     -3.14");
}

TEST(FormatCol, EachCountOfDecimalsHasItsMask) {
  EXPECT_EQ(FormatCol(2.0 / 3, 10, 1), "       0.7");
  EXPECT_EQ(FormatCol(2.0 / 3, 10, 2), "      0.67");
  EXPECT_EQ(FormatCol(2.0 / 3, 10, 3), "     0.667");
  EXPECT_EQ(FormatCol(2.0 / 3, 10, 4), "    0.6667");
  EXPECT_EQ(FormatCol(2.0 / 3, 10, 5), "   0.66667");
  EXPECT_EQ(FormatCol(12, 10, 5), "  12.00000");
}

TEST(FormatCol, HalvesRoundAwayFromZero) {
  EXPECT_EQ(FormatCol(2.675, 6, 2), "  2.68");
  EXPECT_EQ(FormatCol(-0.125, 6, 2), " -0.13");
  EXPECT_EQ(FormatCol(-0.001, 6, 2), "  0.00");
}

TEST(FormatCol, AnOverWideValueIsNeverCut) {
  EXPECT_EQ(FormatCol(12345678.5, 5, 2), "  12345678.50");
  EXPECT_EQ(FormatCol(12.5, 4, 2), "  12.50");
  EXPECT_EQ(FormatCol(12.5, 5, 2), "12.50");
  EXPECT_EQ(FormatCol(1, 0, 0), "  1");
  EXPECT_EQ(FormatCol(1, -3, 0), "  1");
}

TEST(FormatCol, WithoutDecimalsTheFractionIsKept) {
  EXPECT_EQ(FormatCol(1.5, 6, 0), "   1.5");
  EXPECT_EQ(FormatCol(1000, 9, 0), "     1000");
  EXPECT_EQ(FormatCol(0, 3, 0), "  0");
}

TEST(FormatCol, SixDecimalsBehaveAsNone) {
  EXPECT_EQ(FormatCol(1.5, 6, 6), "   1.5");
  EXPECT_EQ(FormatCol(1.5, 6, -1), "   1.5");
  EXPECT_EQ(FormatCol(0.12345678, 12, 6), "  0.12345678");
}

TEST(FormatCol, SixteenCharactersGiveTheSinglePrecisionForm) {
  EXPECT_EQ(FormatCol(123456789012.12, 20, 2), "     123456789012.12");   // 15 characters stay
  EXPECT_EQ(FormatCol(1234567890123.12, 20, 2), "        1.234568E+12");  // 16 do not
  EXPECT_EQ(FormatCol(-123456789012.12, 20, 2), "       -1.234568E+11");  // the sign counts
  EXPECT_EQ(FormatCol(1234567890123.12, 8, 2), "  1.234568E+12");
  EXPECT_EQ(FormatCol(1.0 / 3, 12, 0), "   0.3333333");  // general text of 18 characters
  EXPECT_EQ(FormatCol(-2.0 / 3, 12, 7), "  -0.6666667");
  EXPECT_EQ(FormatCol(1e20, 10, 1), "     1E+20");
}

TEST(FormatCol, BeyondTheRangeOfSinglesTheTextStays) {
  EXPECT_EQ(FormatCol(1e40, 10, 1), "  1" + std::string(40, '0') + ".0");
  EXPECT_EQ(FormatCol(-1.2345678901234567e200, 10, 0), "  -1.2345678901234567E+200");
}

TEST(FormatCol, BelowTheRangeOfSinglesTheTextIsZero) { EXPECT_EQ(FormatCol(1.2345678901234567e-200, 5, 0), "    0"); }

TEST(FormatCol, TakesTexts) {
  EXPECT_EQ(FormatCol("2.5", 8, 2), "    2.50");
  EXPECT_EQ(FormatCol(std::string("1,234"), 8, 1), "  1234.0");
  EXPECT_EQ(FormatCol("abc", 8, 2), "     abc");
  EXPECT_EQ(FormatCol("", 4, 2), "    ");
  EXPECT_EQ(FormatCol(TaggedView(), 6, 2), "  0.00");
  EXPECT_EQ(FormatCol("1234567890123.12", 20, 2), "        1.234568E+12");
  EXPECT_EQ(FormatCol("a text of more than 15", 5, 2), "  a text of more than 15");
  EXPECT_EQ(FormatCol("a text of more than 15", 24, 2), "  a text of more than 15");
}

TEST(FormatCol, TakesNumbers) {
  const Number value = 2.5;
  EXPECT_EQ(FormatCol(value, 8, 2), "    2.50");
  EXPECT_EQ(FormatCol(Number(), 8, 4), "  0.0000");
}

TEST(PadRight, FillsOrCuts) {
  EXPECT_EQ(PadRight("ab", 4), "ab  ");
  EXPECT_EQ(PadRight("abcd", 4), "abcd");
  EXPECT_EQ(PadRight("abcdef", 4), "abcd");
  EXPECT_EQ(PadRight("", 3), "   ");
  EXPECT_EQ(PadRight("abc", 0), "");
  EXPECT_EQ(PadRight("abc", -2), "");
}

TEST(PadRight, TakesAnyValue) {
  EXPECT_EQ(PadRight(12.5, 6), "12.5  ");
  EXPECT_EQ(PadRight(1.0 / 3, 5), "0.333");
  EXPECT_EQ(PadRight(TaggedView(), 2), "  ");
  EXPECT_EQ(PadRight(TaggedValue(7), 2), "7 ");
}

TEST(PadLeftBlank, FillsOrCutsAndAddsABlank) {
  EXPECT_EQ(PadLeftBlank("ab", 4), "  ab ");
  EXPECT_EQ(PadLeftBlank("abcd", 4), "abcd ");
  EXPECT_EQ(PadLeftBlank("abcdef", 4), "abcd ");
  EXPECT_EQ(PadLeftBlank("", 3), "    ");
  EXPECT_EQ(PadLeftBlank("abc", 0), " ");
  EXPECT_EQ(PadLeftBlank("abc", -2), " ");
}

TEST(PadLeftBlank, TakesAnyValue) {
  EXPECT_EQ(PadLeftBlank(12.5, 6), "  12.5 ");
  EXPECT_EQ(PadLeftBlank(TaggedView(), 2), "   ");
  EXPECT_EQ(PadLeftBlank(0.0, 3), "  0 ");
}

TEST(DashedRule, HasSeventyNineDashesUnlessTold) {
  EXPECT_EQ(DashedRule(), "-------------------------------------------------------------------------------");
  EXPECT_EQ(DashedRule().size(), 79);
  EXPECT_EQ(DashedRule(3), "---");
  EXPECT_EQ(DashedRule(0), "");
  EXPECT_EQ(DashedRule(-1), "");
}

TEST(Blanks, AreAsManyAsAsked) {
  EXPECT_EQ(Blanks(3), "   ");
  EXPECT_EQ(Blanks(0), "");
  EXPECT_EQ(Blanks(-1), "");
}

TEST(ReportHead, IsTitleVariableAndRule) {
  EXPECT_EQ(ReportHead("Descriptive Statistics", "AGE", "Age in years"),
            "Descriptive Statistics\r\n"
            "Variable: AGE     Age in years\r\n"
            "-------------------------------------------------------------------------------\r\n");
}

TEST(ErrorFrame, SurroundsThePendingText) {
  EXPECT_EQ(ErrorFrame("Something went wrong."), Stars() +
                                                     "\r\n\r\n"
                                                     "                              -- Error --\r\n\r\n\r\n"
                                                     "Something went wrong.\r\n\r\n" +
                                                     Stars() + "\r\n\r\n");
}

TEST(ErrorMessage, IsTitleNameAndSentence) {
  EXPECT_EQ(ErrorMessage("Frequency Analysis: ", "AGE", "You must select a dependent variable."),
            "Frequency Analysis: AGE\r\n\r\n"
            "You must select a dependent variable.\r\n\r\n");
  EXPECT_EQ(ErrorMessage("Frequency Analysis: ", "", "You must select a dependent variable."),
            "Frequency Analysis: \r\n\r\n"
            "You must select a dependent variable.\r\n\r\n");
}

}  // namespace
}  // namespace tessara
