#include "calculators/brevarum_panel.h"

#include <gtest/gtest.h>

#include <set>

#include "calculators/tests/text_lines.h"
#include "numerics/number_text.h"
#include "platform/scripted_platform.h"

namespace tessara {
namespace {

constexpr int kLetter = 'A';

class BrevarumPanelTest : public testing::Test {
 protected:
  void Fill(const std::vector<std::pair<std::string_view, std::string_view>>& texts) {
    for (const auto& [box, text] : texts) EXPECT_TRUE(SetBox(panel, box, text)) << box;
  }
  Calculation Run() { return Calculate(panel, output, platform); }
  void FillTwoMeans() {
    Fill({{"tx1", "82.4"}, {"tx2", "78.1"}, {"ts1", "6.3"}, {"ts2", "7.1"}, {"tn1", "25"}, {"tn2", "22"}});
  }

  BrevarumPanel panel;
  OutputLog output;
  ScriptedPlatform platform;
};

TEST_F(BrevarumPanelTest, StartsWithTwoSampleMeans) {
  EXPECT_EQ(panel.CurrentPanel, 0);
  EXPECT_EQ(CurrentRow(panel).frame, "Frame4");
  EXPECT_EQ(panel.frame_caption, "Two Sample Means");
  EXPECT_EQ(panel.Label43, "  Instructions");
  EXPECT_EQ(
      panel.Text25,
      CrLf("Two-sample t-test:\tCompare two independent sample means.\n\nEnter the summary statistics in the boxes "
           "for each sample as indicated and click the calculate button."));
  EXPECT_EQ(panel.Box("Text11"), "Sample(1)");
  EXPECT_EQ(panel.Box("Text18"), "Sample(2)");
  EXPECT_EQ(panel.Box("Alpha"), ".05");
  EXPECT_EQ(panel.Box("Beta"), ".80");
  EXPECT_EQ(panel.Box("tx1"), "");
  EXPECT_FALSE(CanCopyResult(panel));
}

TEST_F(BrevarumPanelTest, EachButtonHasItsPanel) {
  struct Row {
    int option;
    bool one_sample;
    int panel;
    const char* caption;
    const char* help_page;
  };
  for (const Row& row : {Row{0, false, 0, "Two Sample Means", "UserManual3.html#sumt"},
                         Row{0, true, 9, "One Sample Mean", "UserManual3.html#sumt"},
                         Row{1, true, 1, "Two or More Sample Means", "UserManual3.html#sumanova"},
                         Row{2, false, 2, "Two Sample Proportions", "UserManual3.html#sumztest"},
                         Row{2, true, 10, "One Sample Proportion", "UserManual3.html#sumztest"},
                         Row{3, true, 3, "Chi-Square Test of Independence", "UserManual3.html#sumchi"},
                         Row{4, false, 4, " Margin of Error for Means", "UserManual3.html#summean"},
                         Row{5, false, 5, " Margin of Error for Proportions", "UserManual3.html#sumprop"},
                         Row{6, false, 6, " Standardized Scores", "UserManual3.html#sumz"},
                         Row{7, true, 7, "Diagnostic Accuracy", "UserManual3.html#sumacc"},
                         Row{8, false, 8, "Sample Size Estimator", "UserManual3.html#sumpower"}}) {
    SelectSamples(panel, row.one_sample);
    SelectPanel(panel, row.option);
    EXPECT_EQ(panel.CurrentPanel, row.panel);
    EXPECT_EQ(panel.frame_caption, row.caption);
    EXPECT_EQ(CurrentRow(panel).help_page, row.help_page);
    EXPECT_EQ(panel.Text25, CurrentRow(panel).instructions);
    EXPECT_FALSE(panel.Text25.empty());
  }
}

TEST_F(BrevarumPanelTest, OneSampleWaitsForAPanelThatUsesIt) {
  SelectPanel(panel, 3);
  panel.Text25 = "as it was";
  SelectSamples(panel, true);
  EXPECT_EQ(panel.CurrentPanel, 3);
  EXPECT_EQ(panel.Text25, "as it was");
  SelectPanel(panel, 2);
  EXPECT_EQ(panel.CurrentPanel, 10);
  SelectSamples(panel, false);
  EXPECT_EQ(panel.CurrentPanel, 2);
}

TEST_F(BrevarumPanelTest, TheTableOfPanelsIsWhole) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < BrevarumPanelRows().size(); ++i) {
    const BrevarumPanelRow& row = BrevarumPanelRows()[i];
    EXPECT_EQ(row.panel, static_cast<int>(i));
    EXPECT_TRUE(names.insert(row.command_name).second);
    EXPECT_EQ(FindBrevarumPanel(row.command_name), &row);
    std::set<std::string_view> boxes;
    for (const BrevarumBox& box : row.boxes) {
      EXPECT_TRUE(boxes.insert(box.name).second) << box.name;
      EXPECT_EQ(panel.boxes.count(box.name), 1U) << box.name;
      EXPECT_EQ(FindBrevarumBox(row, box.name)->name, box.name);
    }
  }
  EXPECT_EQ(BrevarumPanelRows()[3].boxes.size(), 35U);
  EXPECT_EQ(FindBrevarumPanel("t-tests"), nullptr);
  EXPECT_EQ(FindBrevarumBox(BrevarumPanelRows()[0], "An1"), nullptr);
  EXPECT_NE(FindBrevarumBox(BrevarumPanelRows()[0], "Text20"), nullptr);
}

TEST_F(BrevarumPanelTest, ACalculationGoesToTheLogAndStandsAloneInTheMostRecentOutput) {
  AppendReport(output, "earlier");
  FillTwoMeans();
  const Calculation result = Run();
  const std::string report = result.report.value_or("");
  ASSERT_TRUE(report.starts_with("Two-Sample Difference of Means"));
  const std::string separator(kReportSeparator);
  EXPECT_EQ(output.OutputLogText, "earlier" + separator + report + "\r\n" + separator);
  EXPECT_EQ(output.MostRecentText, report + "\r\n" + separator);
  EXPECT_EQ(output.BoxText(), output.MostRecentText);
  EXPECT_EQ(panel.BrevarumResults[0], "\r\n" + report + "\r\n\r\n");
  EXPECT_EQ(panel.T5, result.short_report);
  EXPECT_EQ(panel.Text25, result.narrative);
  EXPECT_EQ(panel.Label43, "  Results");
}

TEST_F(BrevarumPanelTest, ABranchThatDidNotRunLeavesItsTextsAlone) {
  const std::string empty = panel.T5;
  Run();
  EXPECT_EQ(panel.Label43, "  Instructions");
  EXPECT_EQ(panel.Text25, CurrentRow(panel).instructions);
  Fill({{"Text21", "104.2"}, {"Text22", "12.5"}, {"Text23", "36"}, {"Text20", "100"}});
  Run();
  EXPECT_TRUE(panel.Text25.starts_with("One-Sample T-Test"));
  EXPECT_EQ(panel.Label43, "  Results");
  EXPECT_EQ(panel.T5, empty);
  EXPECT_EQ(output.OutputLogText, "");
  EXPECT_FALSE(CanCopyResult(panel));
}

TEST_F(BrevarumPanelTest, TheOneSampleBoxesLoseTheirCommas) {
  Fill({{"Text20", "1,000"}, {"Text21", "1,004"}, {"Text22", "12"}, {"Text23", "1,0"}, {"tn1", "1,000"}});
  Run();
  EXPECT_EQ(panel.Box("Text20"), "1000");
  EXPECT_EQ(panel.Box("Text21"), "1004");
  EXPECT_EQ(panel.Box("Text23"), "10");
  EXPECT_EQ(panel.Box("tn1"), "1,000");
}

TEST_F(BrevarumPanelTest, TooFewCasesShowInTheTitleAlone) {
  SelectPanel(panel, 1);
  Fill({{"An1", "6"}, {"An2", "6"}, {"Ax1", "1"}, {"Ax2", "2"}, {"As1", "1"}, {"As2", "1"}});
  const std::string empty = panel.T5;
  Run();
  EXPECT_EQ(panel.Label43, "Minimum of 10 cases required for each sample");
  EXPECT_EQ(panel.Text25, CurrentRow(panel).instructions);
  EXPECT_EQ(panel.T5, empty);
  EXPECT_EQ(output.OutputLogText, "");
}

TEST_F(BrevarumPanelTest, EachPanelKeepsItsCompactResult) {
  FillTwoMeans();
  Run();
  const std::string means = panel.T5;
  SelectPanel(panel, 2);
  Fill({{"zp1", ".62"}, {"zn1", "150"}, {"zp2", ".51"}, {"zn2", "140"}});
  Run();
  const std::string proportions = panel.T5;
  EXPECT_NE(means, proportions);
  SelectPanel(panel, 0);
  EXPECT_EQ(panel.T5, means);
  EXPECT_EQ(panel.Label43, "  Instructions");
  EXPECT_EQ(panel.Text25, CurrentRow(panel).instructions);
  SelectPanel(panel, 2);
  EXPECT_EQ(panel.T5, proportions);
  EXPECT_EQ(panel.Box("zp1"), ".62");
}

TEST_F(BrevarumPanelTest, ThePanelsOfTheSharedFrameKeepTheirBoxes) {
  SelectPanel(panel, 6);
  Fill({{"T1", "130"}, {"T2", "100"}, {"T3", "15"}});
  Run();
  EXPECT_EQ(panel.labels[4], "2.0000");  // (130 - 100) / 15
  EXPECT_NE(panel.marker, kMarkerMiddle);
  SelectPanel(panel, 5);
  EXPECT_EQ(panel.Box("T1"), "");
  EXPECT_EQ(panel.labels[1], "Proportion");
  EXPECT_EQ(panel.labels[4], "");
  Fill({{"T1", "50"}});  // typed, and not calculated
  SelectPanel(panel, 8);
  EXPECT_EQ(panel.labels[4], "Sample2 Proportion");
  Fill({{"Alpha", ".10"}, {"T4", "9"}});
  SelectPanel(panel, 6);
  EXPECT_EQ(panel.Box("T1"), "130");
  EXPECT_EQ(panel.Box("T3"), "15");
  EXPECT_EQ(panel.labels[4], "2.0000");
  SelectPanel(panel, 5);
  EXPECT_EQ(panel.Box("T1"), "50");
  EXPECT_EQ(panel.Box("T3"), "");
  SelectPanel(panel, 8);
  EXPECT_EQ(panel.Box("Alpha"), ".10");
  EXPECT_EQ(panel.Box("T4"), "9");
}

TEST_F(BrevarumPanelTest, ThePowerPanelTakesItsSelectors) {
  SelectPanel(panel, 8);
  Fill({{"Alpha", ".10"}, {"Beta", ".95"}, {"T3", "5"}, {"T4", "10"}});
  const Calculation result = Run();
  // 4 * 100 * (1.645 + 1.645)^2 / 25 = 173.19
  EXPECT_TRUE(result.short_report.value_or("").ends_with("= 173"));
  EXPECT_NE(result.report.value_or("").find("Alpha)   = 0.10"), std::string::npos);
  EXPECT_NE(result.report.value_or("").find("Beta)           = 0.95"), std::string::npos);
}

TEST_F(BrevarumPanelTest, TheAccuracyPanelShowsItsTotals) {
  SelectPanel(panel, 7);
  Fill({{"T1", "90"}, {"T2", "20"}, {"T3", "10"}, {"T4", "80"}});
  Run();
  const std::vector<std::string> totals(panel.labels.begin() + 5, panel.labels.end());
  EXPECT_EQ(totals, (std::vector<std::string>{" 110", " 90", " 100", " 100", " 200"}));
  SelectPanel(panel, 4);
  EXPECT_EQ(panel.labels[5], "");
  SelectPanel(panel, 7);
  EXPECT_EQ(panel.labels[5], " 110");
  EXPECT_EQ(panel.labels[4], "       Total");
  ClearPanel(panel);
  EXPECT_EQ(panel.labels[9], "");
}

TEST_F(BrevarumPanelTest, TheTableOfCountsReadsItsBoxesByColumnAndRow) {
  SelectPanel(panel, 3);
  Fill({{"Text1", "Left"}, {"Text7", "Below"}, {"C1R1", "11"}, {"C2R1", "21"}, {"C1R2", "12"}, {"C2R2", "22"}});
  const Calculation result = Run();
  const std::string report = result.report.value_or("");
  EXPECT_NE(report.find("|      11 |      21 |       0 |       0 |       0 |      32\r\n"), std::string::npos);
  EXPECT_NE(report.find("Below     |      12 |      22 |"), std::string::npos);
  EXPECT_NE(report.find("          |Left     |"), std::string::npos);
  EXPECT_EQ(panel.frame_caption, " Chi-square test of Independence");
  EXPECT_TRUE(panel.Label28.starts_with("Note: \r\n0 cells (0.0%)"));
  Fill({{"C1R1", "1"}});
  SetBox(panel, "C2R1", "1");
  Run();
  EXPECT_EQ(panel.frame_caption, "Warning! Chi-square assumption violated.");
  SelectPanel(panel, 0);
  SelectPanel(panel, 3);
  EXPECT_EQ(panel.frame_caption, "Warning! Chi-square assumption violated.");
  ClearPanel(panel);
  EXPECT_EQ(panel.frame_caption, "Chi-Square Test of Independence");
  EXPECT_EQ(panel.Label28, "");
  Run();
  EXPECT_EQ(panel.Label43, "Error: No cases in table");
}

TEST_F(BrevarumPanelTest, ClearingSetsTheDefaultsAndTheReportWithZeros) {
  FillTwoMeans();
  Fill({{"Text11", "Boys"}, {"Text20", "5"}});
  Run();
  ClearPanel(panel);
  EXPECT_EQ(panel.Box("tx1"), "");
  EXPECT_EQ(panel.Box("Text11"), "Sample(1)");
  EXPECT_EQ(panel.Box("Text20"), "5");  // of another panel
  EXPECT_EQ(panel.Label43, "  Instructions");
  EXPECT_EQ(panel.Text25, CurrentRow(panel).instructions);
  EXPECT_FALSE(CanCopyResult(panel));
  EXPECT_EQ(panel.T5, CrLf("Two-Sample Difference of Means (2-tailed)\n"
                           "\n"
                           "            Homogeneity of Variance\n"
                           "    F= 0.00    DF= (0, 0)     p < 0.000\n"
                           "\n"
                           "             T-statistic      DF          p < \n"
                           "Equal            0.0000        0          0.0000\n"
                           "Unequal          0.0000        0.00       0.0000"));
  SelectPanel(panel, 1);
  SelectPanel(panel, 0);
  EXPECT_TRUE(panel.T5.starts_with("Two-Sample"));
}

TEST_F(BrevarumPanelTest, TheEmptyCompactResults) {
  const auto shown = [&](int option, bool one_sample) {
    SelectSamples(panel, one_sample);
    SelectPanel(panel, option);
    return panel.T5;
  };
  EXPECT_EQ(shown(0, true), CrLf("One-Sample Difference of Means (2-Tailed)\n"
                                 "\n"
                                 "Population Mean             0.0000\n"
                                 "Sample Mean                 0.0000\n"
                                 "Std Deviation               0.0000\n"
                                 "Sample Size (n)             0\n"
                                 "Test statistic              0.0000\n"
                                 "            p <             0.0000\n"
                                 "\n"
                                 "\n"));
  EXPECT_EQ(shown(1, false), CrLf("Analysis of Variance (ANOVA)\n"
                                  "\n"
                                  "          Sum of Squares    df       Mean SQ\n"
                                  "         ----------------  ----  -------------\n"
                                  "Between              0.00    0          0.00\n"
                                  " Within              0.00    0          0.00\n"
                                  "  Total              0.00    0\n"
                                  "\n"
                                  "      F Statistic = 0.00    p < 0.000"));
  EXPECT_EQ(shown(2, false), CrLf("Two-Sample Difference of Proportions (2-tailed)\n"
                                  "\n"
                                  "                    Sample(1)      Sample(2)\n"
                                  "Sample Proportion            0.0000        0.0000\n"
                                  "Sample Size (n)        0        0\n"
                                  "\n"
                                  "           Z-statistic         p < \n"
                                  "        0.0000          0.0000"));
  EXPECT_EQ(shown(2, true), CrLf("One-Sample Difference of Proportions\n"
                                 "\n"
                                 "\n"
                                 "Population Proportion     0.0000\n"
                                 "Sample Proportion         0.0000\n"
                                 "Sample Size (n)           0\n"
                                 "Test statistic            0.0000\n"
                                 "            p <           0.0000  (2-tailed)\n"
                                 "\n"));
  EXPECT_EQ(shown(4, false), CrLf(" n = 0   Mean = 0   StdDev = 0\n"
                                  "\n"
                                  " 90% Confidence Interval\n"
                                  " +/- 0.0000  LL 0.0000  UL 0.0000\n"
                                  "\n"
                                  " 95% Confidence Interval\n"
                                  " +/- 0.0000  LL 0.0000  UL 0.0000\n"
                                  "\n"
                                  " 99% Confidence Interval\n"
                                  " +/- 0.0000  LL 0.0000  UL 0.0000\n"
                                  "\n"));
  EXPECT_TRUE(shown(5, false).starts_with(" n = 0   Proportion = 0   SEp = 0.000\r\n\r\n 90% "));
  EXPECT_EQ(shown(6, false), "");
  EXPECT_TRUE(shown(7, false).starts_with("Sensitivity                   0.000\r\n"));
  EXPECT_TRUE(shown(8, false).ends_with("Means (two sample t-test)\r\nEstimated Total Sample Size   = 0"));
}

// A report of zeros has as many lines, and its captions at the same places, as one with figures.
TEST_F(BrevarumPanelTest, TheEmptyCompactResultsHaveTheShapeOfFilledOnes) {
  const auto shape = [](std::string_view text) {
    std::string letters;
    for (const char c : text) {
      if (c != ' ' && c != '.' && c != '-' && (c < '0' || c > '9')) letters += c;
    }
    return letters;
  };
  for (const int option : {3, 4, 5, 7, 8}) {
    SelectPanel(panel, option);
    const std::string empty = panel.T5;
    if (option == 3) {
      Fill({{"C1R1", "10"}, {"C2R1", "20"}, {"C3R1", "30"}, {"C1R2", "30"}, {"C2R2", "20"}, {"C3R2", "10"}});
    } else if (option == 5) {
      Fill({{"T1", "100"}, {"T2", ".4"}});
    } else {
      Fill({{"T1", "30"}, {"T2", ".4"}, {"T3", "10"}, {"T4", "20"}});
    }
    Run();
    EXPECT_NE(panel.T5, empty) << option;
    EXPECT_EQ(shape(panel.T5), shape(empty)) << option;
  }
}

TEST_F(BrevarumPanelTest, CopiesTheResultOfThePanel) {
  CopyResult(panel, platform);
  EXPECT_EQ(platform.clipboard, "");
  FillTwoMeans();
  Run();
  ASSERT_TRUE(CanCopyResult(panel));
  CopyResult(panel, platform);
  EXPECT_EQ(platform.clipboard, panel.BrevarumResults[0]);
  SelectPanel(panel, 1);
  EXPECT_FALSE(CanCopyResult(panel));
}

TEST_F(BrevarumPanelTest, PrintsTheResultIndented) {
  panel.BrevarumResults[0] = "\r\nfirst\r\nsecond\r\n";
  platform.print_answers = {PrintChoice{}, PrintChoice{2}, std::nullopt};
  const std::string blanks(58, ' ');
  const std::string body = "\r\n     first\r\n     second\r\n     ";
  const std::string head = "\r\n\r\n\r\n     Tessara Output";
  EXPECT_TRUE(PrintResult(panel, platform, {.date = true, .notes_caption = true}));
  EXPECT_TRUE(PrintResult(panel, platform, {.date = false, .notes_caption = false}));
  EXPECT_FALSE(PrintResult(panel, platform, {}));
  ASSERT_EQ(platform.printed.size(), 2U);
  EXPECT_EQ(platform.printed[0], std::vector<std::string>{head + blanks + "11/5/2026" + body +
                                                          "\r\n\r\n\r\n     Notes\r\n     " + std::string(95, '_')});
  EXPECT_EQ(platform.printed[1], (std::vector<std::string>{head + body, head + body}));
}

TEST_F(BrevarumPanelTest, APrinterThatRefusesIsTold) {
  platform.print_answers = {PrintChoice{}};
  platform.printer_works = false;
  EXPECT_FALSE(PrintResult(panel, platform, {}));
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].title, "Printer Error");
}

TEST_F(BrevarumPanelTest, EnterCleansTheBoxAndMovesOn) {
  SetBox(panel, "tx1", "5\r\n");
  EXPECT_EQ(BoxKeyReleased(panel, platform, "tx1", kKeyEnter), "tx2");
  EXPECT_EQ(panel.Box("tx1"), "5");
  EXPECT_EQ(BoxKeyReleased(panel, platform, "tx2", kKeyEnter), "ts1");           // empty: no entry test
  EXPECT_EQ(BoxKeyReleased(panel, platform, "tn2", kKeyEnter), kCalculateNext);  // the last one
  EXPECT_EQ(BoxKeyReleased(panel, platform, "An1", kKeyEnter), "");              // not of this panel
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(BrevarumPanelTest, ALetterIsAnsweredAtOnce) {
  SetBox(panel, "tx1", "5a");
  EXPECT_EQ(BoxKeyReleased(panel, platform, "tx1", kLetter), "");
  ASSERT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(platform.messages[0].title, "Error!");
  EXPECT_EQ(platform.messages[0].text, "Non-numerical entry.");
  EXPECT_EQ(panel.Box("tx1"), "5a");
}

TEST_F(BrevarumPanelTest, ALoneSignOrPointIsNot) {
  for (const auto& [text, key] : {std::pair{"-", kKeyMinus}, {".", kKeyPoint}, {"", kKeyBackspace}}) {
    SetBox(panel, "tx1", text);
    BoxKeyReleased(panel, platform, "tx1", key);
  }
  SetBox(panel, "tx1", "1,250");
  BoxKeyReleased(panel, platform, "tx1", '0');
  SetBox(panel, "Text11", "Boys");
  BoxKeyReleased(panel, platform, "Text11", kLetter);  // a label takes any text
  EXPECT_TRUE(platform.messages.empty());
  SetBox(panel, "tx1", "");
  BoxKeyReleased(panel, platform, "tx1", 46 + 128);  // any other key: an empty box is not numeric
  EXPECT_EQ(platform.messages.size(), 1U);
}

// Every panel with nothing, letters, zeros, negative and huge numbers in every box: no crash, and figures stay finite.
TEST_F(BrevarumPanelTest, EveryPanelAnswersEveryText) {
  for (const char* text : {"", "abc", "0", "-7", "1e15", "1e308", "-1e308", "1e-308", "1,234,567", "5,", ".5", "1e999",
                           "\r\n", "12", "32768"}) {
    for (const BrevarumPanelRow& row : BrevarumPanelRows()) {
      SelectSamples(panel, row.samples == kOneSample);
      SelectPanel(panel, row.option);
      for (const BrevarumBox& box : row.boxes) {
        if (box.kind != BrevarumBoxKind::kChoice) SetBox(panel, box.name, text);
      }
      const Calculation result = Run();
      for (const auto& shown : {result.report, result.short_report, result.narrative}) {
        EXPECT_EQ(shown.value_or("").find("nan"), std::string::npos) << row.command_name << text;
        EXPECT_EQ(shown.value_or("").find("inf"), std::string::npos) << row.command_name << text;
      }
    }
  }
}

}  // namespace
}  // namespace tessara
