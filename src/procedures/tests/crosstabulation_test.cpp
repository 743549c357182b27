#include "procedures/crosstabulation.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

// The figures in the reports come from scipy.stats (chi2_contingency without correction, chi2, norm), the exact test
// from fractions of whole numbers, the others from the formulas worked out in Python; their places on the page from the
// rules of the layout.

namespace tessara {
namespace {

using Counts = std::vector<std::vector<int>>;

// The cases of a table, row by row: variable A makes the rows, B the columns.
TestRun CasesOf(const std::vector<TaggedValue>& row_values, const std::vector<TaggedValue>& column_values,
                const Counts& counts) {
  TestColumn a{.name = "A"};
  TestColumn b{.name = "B"};
  for (std::size_t row = 0; row < counts.size(); ++row) {
    for (std::size_t column = 0; column < counts[row].size(); ++column) {
      a.cells.insert(a.cells.end(), static_cast<std::size_t>(counts[row][column]), row_values[row]);
      b.cells.insert(b.cells.end(), static_cast<std::size_t>(counts[row][column]), column_values[column]);
    }
  }
  TestRun run({a, b});
  run.Independent(2);
  return run;
}

// The same with the values 1, 2, 3 ... in both variables.
TestRun CasesOf(const Counts& counts) {
  const std::vector<TaggedValue> values = Texts({"1", "2", "3", "4"});
  return CasesOf(values, values, counts);
}

constexpr PanelChecks kNoBox = {};
constexpr PanelChecks kAllBoxes = {.Check1 = true, .Check2 = true, .Check11 = true, .Check12 = true};
constexpr PanelChecks kChiSquare = {.Check2 = true};
constexpr PanelChecks kRisk = {.Check12 = true};
constexpr PanelChecks kAssociation = {.Check1 = true};
constexpr PanelChecks kAgreement = {.Check11 = true};
constexpr PanelChecks kChiSquareAndRisk = {.Check2 = true, .Check12 = true};

std::string ReportOf(TestRun run, const PanelChecks& checks) {
  run.panel.checks = checks;
  return run.Report(RunCrosstabulation);
}

// What stands behind the table.
std::string Behind(const std::string& report) {
  const std::string end_of_table = "100.00\r\n\r\n\r\n\r\n\r\n";
  return report.substr(report.find(end_of_table) + end_of_table.size());
}

std::string SectionsOf(const Counts& counts, const PanelChecks& checks) {
  return Behind(ReportOf(CasesOf(counts), checks));
}

// The same for a table of more cases than a test should lay down one by one.
std::string SectionsOfMany(const Counts& counts, const PanelChecks& checks) {
  const DataSet data = MakeTestData({{"A"}, {"B"}});
  CountedCases cases;
  std::vector<double> cells;
  for (const std::vector<int>& row : counts) cells.insert(cells.end(), row.begin(), row.end());
  cases.rows.resize(counts.size());
  cases.columns.resize(counts[0].size());
  cases.table = CountedTable(counts.size(), counts[0].size(), cells);
  return Behind(
      CrosstabulationReport(data, {.rows = 1, .columns = 2}, cases, ComputeTableStatistics(cases.table), checks));
}

// G has one digit more than chi-square, so its line is shifted by one: the blanks are those of Pearson's line.
TEST(Crosstabulation, NinetyNineCasesHaveTheExactTest) {
  EXPECT_EQ(ReportOf(CasesOf({{20, 30}, {35, 14}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |       20|       30|       50\r\n"
            "             |    40.00|    60.00|\r\n"
            "             |    36.36|    68.18|    50.51\r\n"
            "             |    20.20|    30.30|\r\n"
            "--------------------------------------------\r\n"
            "           2 |       35|       14|       49\r\n"
            "             |    71.43|    28.57|\r\n"
            "             |    63.64|    31.82|    49.49\r\n"
            "             |    35.35|    14.14|\r\n"
            "--------------------------------------------\r\n"
            "             |       55|       44|       99\r\n"
            "       Total |    55.56|    44.44|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       9.900          1      0.0017\r\n"
            "Likelihood Ratio              10.087          1      0.0015\r\n"
            "Yate's Correction             8.668          1      0.0032\r\n"
            "Fisher's Exact (2-tailed)                           0.0030\r\n"
            "\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           0.267     0.428      0.115      0.617\r\n"
            "Relative Risk        0.533     0.206      0.356      0.799\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .316\r\n"
            "Pearson C                   .302\r\n"
            "Lambda Symmetric            .269\r\n"
            "Lambda Dependent=Row        .306\r\n"
            "Lambda Dependent=Column     .227\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .343\r\n"
            "Kappa Statistic            -.315\r\n"
            "Kappa Standard Error        .101\r\n"
            "Kappa Significance (p<)     .0018\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, OneHundredCasesHaveNoExactTest) {
  EXPECT_EQ(ReportOf(CasesOf({{20, 30}, {35, 15}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |       20|       30|       50\r\n"
            "             |    40.00|    60.00|\r\n"
            "             |    36.36|    66.67|    50.00\r\n"
            "             |    20.00|    30.00|\r\n"
            "--------------------------------------------\r\n"
            "           2 |       35|       15|       50\r\n"
            "             |    70.00|    30.00|\r\n"
            "             |    63.64|    33.33|    50.00\r\n"
            "             |    35.00|    15.00|\r\n"
            "--------------------------------------------\r\n"
            "             |       55|       45|      100\r\n"
            "       Total |    55.00|    45.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       9.091          1      0.0026\r\n"
            "Likelihood Ratio              9.240          1      0.0024\r\n"
            "Yate's Correction             7.919          1      0.0049\r\n"
            "\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           0.286     0.423      0.125      0.654\r\n"
            "Relative Risk        0.545     0.207      0.363      0.819\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .302\r\n"
            "Pearson C                   .289\r\n"
            "Lambda Symmetric            .263\r\n"
            "Lambda Dependent=Row        .300\r\n"
            "Lambda Dependent=Column     .222\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .350\r\n"
            "Kappa Statistic            -.300\r\n"
            "Kappa Standard Error        .100\r\n"
            "Kappa Significance (p<)     .0027\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// The z of kappa is 5.30, above 4.59. There is no Yates, no exact test and no risk section, although its box is set.
TEST(Crosstabulation, ThreeByThreeHasAgreementAndNoRisk) {
  EXPECT_EQ(ReportOf(CasesOf({{12, 5, 2}, {4, 15, 6}, {3, 7, 20}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |       3 |    Total \r\n"
            "------------------------------------------------------\r\n"
            "           1 |       12|        5|        2|       19\r\n"
            "             |    63.16|    26.32|    10.53|\r\n"
            "             |    63.16|    18.52|     7.14|    25.68\r\n"
            "             |    16.22|     6.76|     2.70|\r\n"
            "------------------------------------------------------\r\n"
            "           2 |        4|       15|        6|       25\r\n"
            "             |    16.00|    60.00|    24.00|\r\n"
            "             |    21.05|    55.56|    21.43|    33.78\r\n"
            "             |     5.41|    20.27|     8.11|\r\n"
            "------------------------------------------------------\r\n"
            "           3 |        3|        7|       20|       30\r\n"
            "             |    10.00|    23.33|    66.67|\r\n"
            "             |    15.79|    25.93|    71.43|    40.54\r\n"
            "             |     4.05|     9.46|    27.03|\r\n"
            "------------------------------------------------------\r\n"
            "             |       19|       27|       28|       74\r\n"
            "       Total |    25.68|    36.49|    37.84|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                      31.529          4      0.0000\r\n"
            "Likelihood Ratio             29.631          4      0.0000\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .462\r\n"
            "Pearson C                   .547\r\n"
            "Lambda Symmetric            .400\r\n"
            "Lambda Dependent=Row        .386\r\n"
            "Lambda Dependent=Column     .413\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .635\r\n"
            "Kappa Statistic             .445\r\n"
            "Kappa Standard Error        .084\r\n"
            "Kappa Significance (p<)     .0001\r\n"
            "\r\n"
            "Note: 11.11% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, TwoByThreeHasNoAgreement) {
  EXPECT_EQ(ReportOf(CasesOf({{10, 20, 30}, {25, 15, 5}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |       3 |    Total \r\n"
            "------------------------------------------------------\r\n"
            "           1 |       10|       20|       30|       60\r\n"
            "             |    16.67|    33.33|    50.00|\r\n"
            "             |    28.57|    57.14|    85.71|    57.14\r\n"
            "             |     9.52|    19.05|    28.57|\r\n"
            "------------------------------------------------------\r\n"
            "           2 |       25|       15|        5|       45\r\n"
            "             |    55.56|    33.33|    11.11|\r\n"
            "             |    71.43|    42.86|    14.29|    42.86\r\n"
            "             |    23.81|    14.29|     4.76|\r\n"
            "------------------------------------------------------\r\n"
            "             |       35|       35|       35|      105\r\n"
            "       Total |    33.33|    33.33|    33.33|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                      23.333          2      0.0000\r\n"
            "Likelihood Ratio             25.020          2      0.0000\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .471\r\n"
            "Pearson C                   .426\r\n"
            "Lambda Symmetric            .304\r\n"
            "Lambda Dependent=Row        .333\r\n"
            "Lambda Dependent=Column     .286\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// DF is 0, so neither p can be computed: Pearson's prints as 0.0001 and the other as nothing. V divides by 0.
TEST(Crosstabulation, OneRow) {
  EXPECT_EQ(ReportOf(CasesOf({{4, 2, 3}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |       3 |    Total \r\n"
            "------------------------------------------------------\r\n"
            "           1 |        4|        2|        3|        9\r\n"
            "             |    44.44|    22.22|    33.33|\r\n"
            "             |   100.00|   100.00|   100.00|   100.00\r\n"
            "             |    44.44|    22.22|    33.33|\r\n"
            "------------------------------------------------------\r\n"
            "             |        4|        2|        3|        9\r\n"
            "       Total |    44.44|    22.22|    33.33|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.000          0      0.0001\r\n"
            "Likelihood Ratio              0.000          0      \r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .000\r\n"
            "Pearson C                   .000\r\n"
            "Lambda Symmetric            .000\r\n"
            "Lambda Dependent=Row        .000\r\n"
            "Lambda Dependent=Column     .000\r\n"
            "\r\n"
            "Note: 100.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, OneColumn) {
  EXPECT_EQ(ReportOf(CasesOf({{6}, {2}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |    Total \r\n"
            "----------------------------------\r\n"
            "           1 |        6|        6\r\n"
            "             |   100.00|\r\n"
            "             |    75.00|    75.00\r\n"
            "             |    75.00|\r\n"
            "----------------------------------\r\n"
            "           2 |        2|        2\r\n"
            "             |   100.00|\r\n"
            "             |    25.00|    25.00\r\n"
            "             |    25.00|\r\n"
            "----------------------------------\r\n"
            "             |        8|        8\r\n"
            "       Total |   100.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.000          0      0.0001\r\n"
            "Likelihood Ratio              0.000          0      \r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .000\r\n"
            "Pearson C                   .000\r\n"
            "Lambda Symmetric            .000\r\n"
            "Lambda Dependent=Row        .000\r\n"
            "Lambda Dependent=Column     .000\r\n"
            "\r\n"
            "Note: 50.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// One case in the data is the smallest table. All is agreed, and kappa divides 0 by 0.
TEST(Crosstabulation, OneCell) {
  EXPECT_EQ(ReportOf(CasesOf({{1}}), kAllBoxes),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |    Total \r\n"
            "----------------------------------\r\n"
            "           1 |        1|        1\r\n"
            "             |   100.00|\r\n"
            "             |   100.00|   100.00\r\n"
            "             |   100.00|\r\n"
            "----------------------------------\r\n"
            "             |        1|        1\r\n"
            "       Total |   100.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.000          0      0.0001\r\n"
            "Likelihood Ratio              0.000          0      \r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .000\r\n"
            "Pearson C                   .000\r\n"
            "Lambda Symmetric            .000\r\n"
            "Lambda Dependent=Row        .000\r\n"
            "Lambda Dependent=Column     .000\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            1.000\r\n"
            "Kappa Statistic             .000\r\n"
            "Kappa Standard Error          NA\r\n"
            "Kappa Significance (p<)       NA\r\n"
            "\r\n"
            "Note: 100.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// a is 0: neither the odds ratio nor the relative risk can be computed, and their lines are the labels. The exact test
// counts d down, past tables with a below 0, which add to its sum: 0.0031 where the possible ones alone give 0.0029.
TEST(Crosstabulation, AZeroCellHasNoOddsRatio) {
  EXPECT_EQ(SectionsOf({{0, 10}, {12, 8}}, kChiSquareAndRisk),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                      10.000          1      0.0016\r\n"
            "Likelihood Ratio             13.460          1      0.0002\r\n"
            "Yate's Correction            7.656          1      0.0057\r\n"
            "Fisher's Exact (2-tailed)                           0.0031\r\n"
            "\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio      \r\n"
            "Relative Risk   \r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 25.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// c is 0: the risk of the first column is certain, and its error is that of the second alone.
TEST(Crosstabulation, AZeroCellInTheSecondRowLeavesTheRelativeRisk) {
  EXPECT_EQ(SectionsOf({{10, 5}, {0, 8}}, kRisk),
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio      \r\n"
            "Relative Risk        2.600     0.351      1.307      5.171\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, PerfectAgreementHasNoErrorAndNoSignificance) {
  EXPECT_EQ(SectionsOf({{10, 0, 0}, {0, 7, 0}, {0, 0, 3}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            1.000\r\n"
            "Kappa Statistic             1.000\r\n"
            "Kappa Standard Error          NA\r\n"
            "Kappa Significance (p<)       NA\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, AKappaBelowZeroHangsItsSignOut) {
  EXPECT_EQ(SectionsOf({{4, 6}, {6, 4}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .400\r\n"
            "Kappa Statistic            -.200\r\n"
            "Kappa Standard Error        .224\r\n"
            "Kappa Significance (p<)     .3711\r\n"
            "\r\n"
            "\r\n");
}

// Kappa is -0.0001: it prints without a sign, and its margin is the shorter one all the same.
TEST(Crosstabulation, AKappaThatRoundsToZeroFromBelowHasTheShorterMargin) {
  EXPECT_EQ(SectionsOfMany({{4999, 5000}, {5001, 5000}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .500\r\n"
            "Kappa Statistic            .000\r\n"
            "Kappa Standard Error        .007\r\n"
            "Kappa Significance (p<)     .9887\r\n"
            "\r\n"
            "\r\n");
}

// The z of kappa is 0.0045, so 100 z rounds to 0.
TEST(Crosstabulation, AKappaZThatRoundsToZeroHasASignificanceOfOne) {
  EXPECT_EQ(SectionsOfMany({{12500, 12500}, {12499, 12500}}, kAgreement),
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .500\r\n"
            "Kappa Statistic             .000\r\n"
            "Kappa Standard Error        .004\r\n"
            "Kappa Significance (p<)     1.0000\r\n"
            "\r\n"
            "\r\n");
}

// Chi-square and G are 0, and their p cannot be computed.
TEST(Crosstabulation, AnEmptyPearsonPPrintsAsOneTenThousandthAndAnEmptyLikelihoodPAsNothing) {
  EXPECT_EQ(SectionsOf({{5, 5}, {5, 5}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.000          1      0.0001\r\n"
            "Likelihood Ratio              0.000          1      \r\n"
            "Yate's Correction             0.200          1      0.6547\r\n"
            "Fisher's Exact (2-tailed)                           1.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// |ad - bc| is n / 2: the corrected chi-square is 0, and its p prints nothing behind the shared blanks.
TEST(Crosstabulation, AnEmptyYatesPPrintsNothing) {
  EXPECT_EQ(SectionsOf({{2, 1}, {3, 4}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       0.476          1      0.4902\r\n"
            "Likelihood Ratio              0.483          1      0.4870\r\n"
            "Yate's Correction             0.000          1      \r\n"
            "Fisher's Exact (2-tailed)                           1.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 100.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// 1480 cases in agreement have a chi-square of 1480, at which the series of its p overflows. At 1600 it has ended in 0.
TEST(Crosstabulation, APearsonPThatOverflowsPrintsAsOneTenThousandth) {
  const std::string rule = std::string(59, '-') + "\r\n";
  const std::string head = "Chi-square                    Value         DF         p < \r\n" + rule;
  EXPECT_EQ(SectionsOfMany({{740, 0}, {0, 740}}, kChiSquare)
                .rfind(head + "Pearson                    1480.000          1      0.0001\r\n", 0),
            0u);
  EXPECT_EQ(SectionsOfMany({{800, 0}, {0, 800}}, kChiSquare)
                .rfind(head + "Pearson                    1600.000          1      0.0000\r\n", 0),
            0u);
}

// The padding of a value with more than 9 characters is none. (That of G is 2 x 400000 x ln 2.)
TEST(Crosstabulation, AValueBeyondItsColumnTakesNoPadding) {
  const std::string lines =
      "Chi-square                    Value         DF         p < \r\n"
      "-----------------------------------------------------------\r\n"
      "Pearson                   400000.000          1      0.0000\r\n"
      "Likelihood Ratio          554517.744          1      0.0000\r\n"
      "Yate's Correction         399996.000          1      0.0000\r\n";
  EXPECT_EQ(SectionsOfMany({{200000, 0}, {0, 200000}}, kChiSquare).substr(0, lines.size()), lines);
}

TEST(Crosstabulation, WithAllBoxesClearTheReportEndsBehindTheTotals) {
  EXPECT_EQ(ReportOf(CasesOf({{20, 30}, {35, 14}}), kNoBox),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |       20|       30|       50\r\n"
            "             |    40.00|    60.00|\r\n"
            "             |    36.36|    68.18|    50.51\r\n"
            "             |    20.20|    30.30|\r\n"
            "--------------------------------------------\r\n"
            "           2 |       35|       14|       49\r\n"
            "             |    71.43|    28.57|\r\n"
            "             |    63.64|    31.82|    49.49\r\n"
            "             |    35.35|    14.14|\r\n"
            "--------------------------------------------\r\n"
            "             |       55|       44|       99\r\n"
            "       Total |    55.56|    44.44|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, TheRiskSectionStandsAlone) {
  EXPECT_EQ(SectionsOf({{20, 30}, {35, 14}}, kRisk),
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           0.267     0.428      0.115      0.617\r\n"
            "Relative Risk        0.533     0.206      0.356      0.799\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, TheRiskBoxAloneAddsNothingToALargerTable) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kRisk), "\r\n\r\n");
}

TEST(Crosstabulation, TheAgreementBoxAloneAddsNothingToATableThatIsNotSquare) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kAgreement), "\r\n\r\n");
}

TEST(Crosstabulation, AssociationAlone) {
  EXPECT_EQ(SectionsOf({{10, 20, 30}, {25, 15, 5}}, kAssociation),
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .471\r\n"
            "Pearson C                   .426\r\n"
            "Lambda Symmetric            .304\r\n"
            "Lambda Dependent=Row        .333\r\n"
            "Lambda Dependent=Column     .286\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, ChiSquareAloneEndsInTwoLineEndsAheadOfTheNote) {
  EXPECT_EQ(SectionsOf({{20, 30}, {35, 15}}, kChiSquare),
            "Chi-square                    Value         DF         p < \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                       9.091          1      0.0026\r\n"
            "Likelihood Ratio              9.240          1      0.0024\r\n"
            "Yate's Correction             7.919          1      0.0049\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Note: 00.00% of the cells have an expected frequency <5 \r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

// Labels are cut to 8 characters in the head and to 12 in the rows. 10 stands ahead of 9, and the order is that of the
// values: Apple, the label of 9, comes last.
TEST(Crosstabulation, LabelsAreCutAndTextValuesStandInTextOrder) {
  TestRun run({{"FRUIT", Texts({"9", "10", "10", "9", "10"}), "Fruit bought", "", {"9=Apple", "10=Strawberry jam"}},
               {"PLACE", Texts({"b", "a", "b", "b", "a"}), "Place of sale", "", {"a=Supermarket", "b=Shop"}}});
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCrosstabulation),
            "Crosstabulation: FRUIT (Rows)  by  PLACE (Columns)\r\n"
            "\r\n"
            "Column Variable Label: Place of sale\r\n"
            "Row Variable Label: Fruit bought\r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |Supermar |    Shop |    Total \r\n"
            "--------------------------------------------\r\n"
            "Strawberry j |        2|        1|        3\r\n"
            "             |    66.67|    33.33|\r\n"
            "             |   100.00|    33.33|    60.00\r\n"
            "             |    40.00|    20.00|\r\n"
            "--------------------------------------------\r\n"
            "       Apple |        0|        2|        2\r\n"
            "             |     0.00|   100.00|\r\n"
            "             |     0.00|    66.67|    40.00\r\n"
            "             |     0.00|    40.00|\r\n"
            "--------------------------------------------\r\n"
            "             |        2|        3|        5\r\n"
            "       Total |    40.00|    60.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, ANumberAndATextOfTheSameLookAreTwoCategories) {
  const std::string report = ReportOf(CasesOf({5.0, "5"}, Texts({"x"}), {{1}, {3}}), kNoBox);
  EXPECT_EQ(report,
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       x |    Total \r\n"
            "----------------------------------\r\n"
            "           5 |        1|        1\r\n"
            "             |   100.00|\r\n"
            "             |    25.00|    25.00\r\n"
            "             |    25.00|\r\n"
            "----------------------------------\r\n"
            "           5 |        3|        3\r\n"
            "             |   100.00|\r\n"
            "             |    75.00|    75.00\r\n"
            "             |    75.00|\r\n"
            "----------------------------------\r\n"
            "             |        4|        4\r\n"
            "       Total |   100.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, TheControlCaptionStandsFirst) {
  TestRun run({{"A", Texts({"1", "1", "2", "2", "2"})},
               {"B", Texts({"1", "2", "1", "2", "2"})},
               {"SEX", Texts({"1", "1", "1", "1", "2"})}});
  run.Independent(2);
  run.Control(3, ControlRelation::kEqualTo, "1");
  EXPECT_EQ(run.Report(RunCrosstabulation),
            "Controlling for SEX = 1\r\n"
            "\r\n"
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |        1|        1|        2\r\n"
            "             |    50.00|    50.00|\r\n"
            "             |    50.00|    50.00|    50.00\r\n"
            "             |    25.00|    25.00|\r\n"
            "--------------------------------------------\r\n"
            "           2 |        1|        1|        2\r\n"
            "             |    50.00|    50.00|\r\n"
            "             |    50.00|    50.00|    50.00\r\n"
            "             |    25.00|    25.00|\r\n"
            "--------------------------------------------\r\n"
            "             |        2|        2|        4\r\n"
            "       Total |    50.00|    50.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
  ASSERT_FALSE(run.charts.charts.empty());
  EXPECT_EQ(run.charts.charts[0].footnote, "Controlling for SEX = 1");
}

// Each variable is tested against its own missing values: 9 is missing in A and a value in B.
TEST(Crosstabulation, AMissingValueInEitherVariableDropsTheCase) {
  TestRun run({{"A", Texts({"1", "9", "", "2", "2"}), "", "9||||||"}, {"B", Texts({"9", "1", "1", "", "1"})}});
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCrosstabulation),
            "Crosstabulation: A (Rows)  by  B (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       9 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |        0|        1|        1\r\n"
            "             |     0.00|   100.00|\r\n"
            "             |     0.00|   100.00|    50.00\r\n"
            "             |     0.00|    50.00|\r\n"
            "--------------------------------------------\r\n"
            "           2 |        1|        0|        1\r\n"
            "             |   100.00|     0.00|\r\n"
            "             |   100.00|     0.00|    50.00\r\n"
            "             |    50.00|     0.00|\r\n"
            "--------------------------------------------\r\n"
            "             |        1|        1|        2\r\n"
            "       Total |    50.00|    50.00|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, TheSameVariableInBothRolesLiesOnTheDiagonal) {
  TestRun run({{"A", Texts({"1", "2", "2"})}});
  run.Independent(1);
  EXPECT_EQ(run.Report(RunCrosstabulation),
            "Crosstabulation: A (Rows)  by  A (Columns)\r\n"
            "\r\n"
            "Column Variable Label: \r\n"
            "Row Variable Label: \r\n"
            "\r\n"
            "       Count |\r\n"
            "       Row % |\r\n"
            "       Col % |\r\n"
            "     Total % |       1 |       2 |    Total \r\n"
            "--------------------------------------------\r\n"
            "           1 |        1|        0|        1\r\n"
            "             |   100.00|     0.00|\r\n"
            "             |   100.00|     0.00|    33.33\r\n"
            "             |    33.33|     0.00|\r\n"
            "--------------------------------------------\r\n"
            "           2 |        0|        2|        2\r\n"
            "             |     0.00|   100.00|\r\n"
            "             |     0.00|   100.00|    66.67\r\n"
            "             |     0.00|    66.67|\r\n"
            "--------------------------------------------\r\n"
            "             |        1|        2|        3\r\n"
            "       Total |    33.33|    66.67|   100.00\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(Crosstabulation, AVariableThatIsNotSelected) {
  const std::string sentence = "You must select an independent and dependent variable.";
  TestRun run({{"A", Texts({"1"})}, {"B", Texts({"1"})}});
  EXPECT_EQ(run.Report(RunCrosstabulation), FramedError("Crosstab Comparison: A by ", sentence));
  EXPECT_TRUE(run.aborted);
  run.Independent(2);
  run.data.RoleVariable[kMainRole] = 0;
  EXPECT_EQ(run.Report(RunCrosstabulation), FramedError("Crosstab Comparison:  by B", sentence));
}

TEST(Crosstabulation, NoObservations) {
  TestRun run({{"A", Texts({"1", ""})}, {"B", Texts({"", "1"})}});
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCrosstabulation), FramedError("Crosstab Comparison: A by B", "There are no observations."));
  EXPECT_TRUE(run.aborted);
  EXPECT_EQ(run.data.RecordCount, 2u);
}

TEST(Crosstabulation, NoRecords) {
  TestRun run({{"A", {}}, {"B", {}}});
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCrosstabulation), FramedError("Crosstab Comparison: A by B", "There are no observations."));
}

// 2001 categories in each variable would make more than four million cells.
TEST(Crosstabulation, TooManyCategories) {
  TestColumn a{.name = "A"};
  TestColumn b{.name = "B"};
  for (int i = 0; i < 2001; ++i) {
    a.cells.emplace_back(std::to_string(i));
    b.cells.emplace_back(std::to_string(i));
  }
  TestRun run({a, b});
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCrosstabulation),
            FramedError("Crosstab Comparison: A by B", "There are too many categories for a table."));
  EXPECT_TRUE(run.charts.charts.empty());
}

TEST(CountCases, TheLimitOfCellsIsAllowed) {
  TestRun run = CasesOf({{1, 2, 3}, {4, 5, 6}});
  const CaseControl control(run.data, {});
  EXPECT_FALSE(CountCases(run.data, control, {.rows = 1, .columns = 2}, 6).too_many_categories);
  const CountedCases cases = CountCases(run.data, control, {.rows = 1, .columns = 2}, 5);
  EXPECT_TRUE(cases.too_many_categories);
  EXPECT_EQ(cases.n, 21u);
  EXPECT_TRUE(cases.table.cells.empty());
}

TEST(Crosstabulation, ChartsOfBothVariablesAndOfTheCells) {
  TestRun run({{"A", Texts({"1", "2", "2", "2"}), "", "", {"1=Yes", "2=No"}},
               {"B", Texts({"x", "y", "z", "z"}), "", "", {"z=Last"}}});
  run.Independent(2);
  run.Report(RunCrosstabulation);
  EXPECT_EQ(run.charts.kind, ChartKind::kCrosstabulation);
  EXPECT_EQ(ChartsText(run.charts),
            "chart\tRow Variable\tA\tFrequency\t\r\n"
            "Yes\t1\r\n"
            "No\t3\r\n"
            "chart\tColumn Variable\tB\tFrequency\t\r\n"
            "x\t1\r\n"
            "y\t1\r\n"
            "Last\t2\r\n"
            "chart\tA by B\tA\tFrequency\t\r\n"
            "Yes\t1\t0\t0\r\n"
            "No\t0\t1\t2\r\n");
  ASSERT_EQ(run.charts.charts.size(), 3u);
  EXPECT_EQ(run.charts.charts[0].series[0].name, "Frequency");
  EXPECT_EQ(run.charts.charts[2].series[0].name, "x");
  EXPECT_EQ(run.charts.charts[2].series[2].name, "Last");
}

TEST(Crosstabulation, TwoAnalysisVariablesLeaveNoCharts) {
  TestRun run = CasesOf({{1, 2}, {3, 4}});
  run.panel.SelectedVariables = {1, 2};
  run.Report(RunCrosstabulation);
  EXPECT_TRUE(run.charts.charts.empty());
}

TEST(Crosstabulation, NoChartOfTheCellsBeyondAThousandCategories) {
  TestColumn a{.name = "A"};
  TestColumn b{.name = "B"};
  for (int i = 0; i < 1001; ++i) {
    a.cells.emplace_back(std::to_string(i));
    b.cells.emplace_back("1");
  }
  TestRun run({a, b});
  run.Independent(2);
  run.Report(RunCrosstabulation);
  EXPECT_EQ(run.charts.charts.size(), 2u);
}

TEST(Crosstabulation, TheFullCountsStandBehindTheRun) {
  TestRun run({{"A", Texts({"1", "2", "", ""})}, {"B", Texts({"1", "2", "", ""})}, {"C", Texts({"", "", "", ""})}});
  run.Independent(2);
  run.Report(RunCrosstabulation);
  EXPECT_EQ(run.data.RecordCount, 4u);
  EXPECT_EQ(run.data.VariableCount, 3u);
}

}  // namespace
}  // namespace tessara
