#include "presentation/tab_delimited.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tessara {
namespace {

std::string Gap(std::size_t blanks) {
  std::string text = "ab";
  text.insert(1, blanks, ' ');
  return text;
}

TEST(TabDelimited, SingleBlanksStay) {
  EXPECT_EQ(TabDelimited("Descriptive Statistics"), "Descriptive Statistics");
  EXPECT_EQ(TabDelimited(""), "");
}

TEST(TabDelimited, GapOfUpTo30BlanksBecomesOneTab) {
  for (const std::size_t blanks : {2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 15u, 20u, 30u}) {
    EXPECT_EQ(TabDelimited(Gap(blanks)), "a\tb") << blanks;
  }
}

TEST(TabDelimited, WideGapBecomesTwoTabs) {
  // 79 blanks: seven tens become 35, and 44 become 20, 10, 7 and 5; these are two tabs and a blank that goes.
  EXPECT_EQ(TabDelimited(Gap(79)), "a\t\tb");
}

TEST(TabDelimited, NegativeStatisticLosesItsSign) { EXPECT_EQ(TabDelimited("t  -1.9623"), "t\t1.9623"); }

TEST(TabDelimited, RulesVanish) { EXPECT_EQ(TabDelimited("a\r\n" + std::string(79, '-') + "\r\nb"), "a\r\n\r\nb"); }

TEST(TabDelimited, HyphenThatGoesLetsItsBlanksMeet) { EXPECT_EQ(TabDelimited("a - b"), "a\tb"); }

TEST(TabDelimited, VerticalBarsBecomeTabs) {
  EXPECT_EQ(TabDelimited("x\r\n| a | b |\r\n|c|"), "x\r\n\ta\tb\t\r\n\tc\t");
  EXPECT_EQ(TabDelimited("|a"), "\ta");
}

TEST(TabDelimited, BlanksBesideATabGo) {
  EXPECT_EQ(TabDelimited("a  |  b"), "a\tb");
  EXPECT_EQ(TabDelimited("a |b| c"), "a\tb\tc");
}

TEST(TabDelimited, BlanksAtTheStartOfALineGo) {
  for (const std::size_t blanks : {1u, 2u, 3u, 5u, 10u, 23u, 79u}) {
    EXPECT_EQ(TabDelimited("x\r\n" + std::string(blanks, ' ') + "y"), "x\r\ny") << blanks;
  }
}

TEST(TabDelimited, BlanksAtTheStartOfTheTextAreAGap) {
  EXPECT_EQ(TabDelimited("   y"), "\ty");
  EXPECT_EQ(TabDelimited(" y"), " y");
}

TEST(TabDelimited, ByBetweenTabsIsAWordAgain) {
  EXPECT_EQ(TabDelimited("AGE     by     SEX"), "AGE by SEX");
  EXPECT_EQ(TabDelimited("AGE by SEX"), "AGE by SEX");
  // The tab behind the first "by" has been taken, so the second one has none ahead of it.
  EXPECT_EQ(TabDelimited("a\tby\tby\tc"), "a by by\tc");
}

TEST(TabDelimited, PageBreakMarksStay) {
  EXPECT_EQ(TabDelimited("a  b\r\n<Page Break>\r\n\r\n\r\n"), "a\tb\r\n<Page Break>\r\n\r\n\r\n");
}

TEST(TabDelimited, ReportWithAControlVariable) {
  EXPECT_EQ(TabDelimited("Mean                         2.5000    Pop Std                     -1.1180\r\n"
                         "-------------------------------------------------------------------------------\r\n"
                         "          Total |      4 |\r\n"),
            "Mean\t2.5000\tPop Std\t1.1180\r\n\r\nTotal\t4\t\r\n");
}

// The steps once more, each as plainly as can be.
std::string StepByStep(std::string text) {
  const std::vector<std::pair<std::string, std::string>> steps = {
      {std::string(10, ' '), std::string(5, ' ')},
      {std::string(5, ' '), "  "},
      {std::string(4, ' '), "  "},
      {std::string(3, ' '), "  "},
      {std::string(3, ' '), "  "},
      {"\r\n|", "\r\n\t"},
      {"-", ""},
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

TEST(TabDelimited, AgreesWithTheStepsOnRandomTexts) {
  const std::array<std::string, 10> pieces = {" ", "  ", "     ", "-", "|", "\t", "\r\n", "by", "1.5", "\r"};
  std::mt19937 random(20261105);
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (auto length = random() % 40; length > 0; --length) text += pieces[random() % pieces.size()];
    ASSERT_EQ(TabDelimited(text), StepByStep(text)) << testing::PrintToString(text);
  }
}

TEST(TabDelimited, ConversionStaysInTheBox) {
  OutputLog output;
  AppendReport(output, "p  -1");
  output.OutputChanged = false;
  const BoxVersion shown = output.Version();
  ConvertOutputToTabDelimited(output);
  EXPECT_EQ(output.BoxText(), "p\t1\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_EQ(output.OutputLogText, "p  -1\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_EQ(output.MostRecentText, "p  -1\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_EQ(output.Version().made_from, shown.lineage);
}

TEST(TabDelimited, ConversionOfATextThatStaysTheSameIsNoChange) {
  OutputLog output;
  AppendReport(output, "plain");
  output.OutputChanged = false;
  const BoxVersion shown = output.Version();
  ConvertOutputToTabDelimited(output);
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_EQ(output.Version(), shown);
}

TEST(TabDelimited, ConvertedTextIsKeptLikeAnEdit) {
  OutputLog output;
  AppendReport(output, "p  -1");
  ConvertOutputToTabDelimited(output);
  ToggleOutputMode(output);
  EXPECT_EQ(output.MostRecentText, "p\t1\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_EQ(output.BoxText(), "p  -1\r\n<Page Break>\r\n\r\n\r\n");
}

TableGrid SmallTable() {
  TableGrid grid;
  grid.SetText(1, 3, "   All");
  grid.SetText(2, 1, "Total Count");
  grid.SetText(2, 3, "5");
  return grid;
}

TEST(TabDelimitedTable, TheLastCellOfARowStandsTwice) {
  EXPECT_EQ(TableRowsText(SmallTable()), "\t\t   All\t   All\r\nTotal Count\t\t5\t5\r\n");
}

TEST(TabDelimitedTable, ACellStaysOneFieldWhateverItHolds) {
  TableGrid grid;
  grid.SetText(1, 1, "a\tb\r\nc");
  EXPECT_EQ(TableRowsText(grid), "a b  c\ta b  c\r\n");
}

TEST(TabDelimitedTable, TheConversionGoesToBothTextsAndShowsThem) {
  OutputLog output;
  AppendReport(output, "Earlier\r\n");
  output.OutputGridMode = true;
  ConvertTableToTabDelimited(SmallTable(), output);
  const std::string separator(kReportSeparator);
  const std::string table = "\r\nSummary Report Results - Tab Delimited\t\t   All\t   All\r\nTotal Count\t\t5\t5\r\n";
  EXPECT_EQ(output.MostRecentText, "Earlier\r\n" + separator + table + separator);
  EXPECT_EQ(output.OutputLogText, "Earlier\r\n" + separator + table + "\r\n\r\n\r\n" + separator);
  EXPECT_FALSE(output.OutputGridMode);
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_EQ(output.BoxText(), output.MostRecentText);
}

TEST(TabDelimitedTable, AnEmptyTableIsItsTitle) {
  OutputLog output;
  ConvertTableToTabDelimited({}, output);
  EXPECT_EQ(output.MostRecentText, "\r\nSummary Report Results - Tab Delimited" + std::string(kReportSeparator));
}

}  // namespace
}  // namespace tessara
