#include "presentation/office/sheet_text.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tessara {
namespace {

TEST(SheetText, ANegativeNumberBehindABlankKeepsItsMinus) {
  EXPECT_EQ(SheetText("t     -1.9623"), "t\t-1.9623");
  EXPECT_EQ(SheetText("a -5"), "a -5");
}

// "=" ahead of it is no blank, and neither is the start of the text.
TEST(SheetText, ANegativeNumberBehindAnythingElseLosesIt) {
  EXPECT_EQ(SheetText("t=-1.9623"), "t=1.9623");
  EXPECT_EQ(SheetText("-1"), "1");
}

TEST(SheetText, HyphensOfTheWordsOfReportsStay) {
  EXPECT_EQ(SheetText("t-test"), "t-test");
  EXPECT_EQ(SheetText("LSD-test"), "LSD-test");
  EXPECT_EQ(SheetText("LR- 0.25"), "LR- 0.25");
  EXPECT_EQ(SheetText("95% CI (+/-)"), "95% CI (+/-)");
  EXPECT_EQ(SheetText("p -value"), "p -value");
}

TEST(SheetText, AnyOtherHyphenGoesAndJoinsItsWords) {
  EXPECT_EQ(SheetText("Two-Sample Difference of Means"), "TwoSample Difference of Means");
  EXPECT_EQ(SheetText("Chi-Square"), "ChiSquare");
  // The "t" of a word in front of a hyphen is that of "t-".
  EXPECT_EQ(SheetText("Part-Whole"), "Part-Whole");
}

TEST(SheetText, RulesLeaveEmptyLines) { EXPECT_EQ(SheetText("a\r\n" + std::string(65, '-') + "\r\nb"), "a\r\n\r\nb"); }

// A blank ahead of a rule protects the rule's first hyphen; the blank at the start of the line goes.
TEST(SheetText, ARuleBehindABlankLeavesItsFirstHyphen) {
  EXPECT_EQ(SheetText("a\r\n " + std::string(20, '-') + "\r\nb"), "a\r\n-\r\nb");
}

TEST(SheetText, PageBreakMarksGo) {
  EXPECT_EQ(SheetText("a  b\r\n<Page Break>\r\n\r\n\r\n"), "a\tb\r\n\r\n\r\n\r\n");
  EXPECT_EQ(SheetText("x<Page Break>y"), "xy");
}

TEST(SheetText, BlanksAndBarsBecomeTabs) {
  EXPECT_EQ(SheetText("Male               188          47.00"), "Male\t188\t47.00");
  EXPECT_EQ(SheetText("x\r\n| a | b |\r\n|c|"), "x\r\n\ta\tb\t\r\n\tc\t");
  EXPECT_EQ(SheetText("x\r\n                  Total       400"), "x\r\nTotal\t400");
}

TEST(SheetText, ByBetweenTabsIsAWordAgain) { EXPECT_EQ(SheetText("AGE     by     SEX"), "AGE by SEX"); }

TEST(SheetText, ATokenThatTheTextHeldBecomesWhatItStandsFor) { EXPECT_EQ(SheetText("100%$&"), "100t-"); }

TEST(SheetText, EmptyTextStaysEmpty) { EXPECT_EQ(SheetText(""), ""); }

// The steps once more, each as plainly as can be.
std::string StepByStep(std::string text) {
  const std::vector<std::pair<std::string, std::string>> steps = {
      {"<Page Break>", ""},
      {std::string(10, ' '), std::string(5, ' ')},
      {std::string(5, ' '), std::string(2, ' ')},
      {std::string(4, ' '), std::string(2, ' ')},
      {std::string(3, ' '), std::string(2, ' ')},
      {std::string(3, ' '), std::string(2, ' ')},
      {"\r\n|", "\r\n\t"},
      {" -", "%$#"},
      {"+/-", "%$*"},
      {"t-", "%$&"},
      {"D-", "%$@"},
      {"LR-", "%$^"},
      {"-", ""},
      {"%$#", " -"},
      {"%$*", "+/-"},
      {"%$&", "t-"},
      {"%$@", "D-"},
      {"%$^", "LR-"},
      {"|", "\t"},
      {"\t  ", "\t"},
      {"  \t", "\t"},
      {"\r\n   ", "\r\n"},
      {"\r\n  ", "\r\n"},
      {"\r\n ", "\r\n"},
      {"  ", "\t"},
      {"\t ", "\t"},
      {" \t", "\t"},
      {"\tby\t", " by "},
  };
  for (const auto& [find, by] : steps) {
    std::string result;
    for (std::size_t i = 0; i < text.size();) {
      const bool found = text.compare(i, find.size(), find) == 0;
      result += found ? by : text.substr(i, 1);
      i += found ? find.size() : 1;
    }
    text = result;
  }
  return text;
}

TEST(SheetText, AgreesWithTheStepsOnRandomTexts) {
  const std::array<std::string, 14> pieces = {" ",  "  ",  "     ", "-",  "|",  "\t",  "\r\n",
                                              "by", "1.5", "t-",    "D-", "LR", "+/-", "<Page Break>"};
  std::mt19937 random(20261122);
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto length = random() % 40; length > 0; --length) text += pieces[random() % pieces.size()];
    ASSERT_EQ(SheetText(text), StepByStep(text)) << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace tessara
