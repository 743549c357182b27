#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calculators/tests/typed_table.h"

namespace tessara {
namespace {

// The figures come from scipy.stats and statsmodels, as in the tests of the whole pages.

// With 100 cases and more the Fisher rows are absent; the risk rows follow the Yates row.
TEST(ChiSquareSections, FisherIsGivenBelowAHundredCases) {
  const Calculation calculation = CalculateChiSquareTable(Typed({{"60", "20"}, {"30", "40"}})).calculation;
  EXPECT_EQ(Between(*calculation.report, "Pearson  ", "\r\n\r\n\r\n\r\nMeasures"),
            "Pearson                        16.071       1       0.0001\r\n"
            "Likelihood Ratio               16.323       1       0.0001\r\n"
            "Yate's Correction              14.760       1       0.0001\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           4.000     0.354      2.000      7.999\r\n"
            "Relative Risk        2.000     0.197      1.359      2.944");
  EXPECT_EQ(Between(*calculation.short_report, "Pearson  ", "   **"),
            "Pearson              16.071      1       0.0001\r\n"
            "Likelihood Ratio     16.323      1       0.0001\r\n"
            "Yate's Correction    14.760      1       0.0001\r\n"
            "\r\n\r\n\r\n");
  EXPECT_TRUE(Contains(ReportOf({{"25", "25"}, {"24", "25"}}), "Fisher's Exact"));   // 99 cases
  EXPECT_FALSE(Contains(ReportOf({{"25", "25"}, {"25", "25"}}), "Fisher's Exact"));  // 100
}

// All four cells are below 5; the exact p is 34/70, as in the tasting of eight cups of tea.
TEST(ChiSquareSections, FourLowCellsWarnTwice) {
  const ChiSquareCalculation result = CalculateChiSquareTable(Typed({{"3", "1"}, {"1", "3"}}));
  EXPECT_EQ(result.note, "Note: \r\n4 cells (100.0%) have expected frequency < 5");
  EXPECT_EQ(result.frame_title, "Warning! Chi-square assumption violated.");
  EXPECT_EQ(*result.calculation.narrative,
            "Chi-Square Test of Independent\r\n"
            "\r\n"
            "Based on a benchmark of .05 alpha, the estimated p-value of 0.157 suggests there is not a statistically "
            "significant association between the two comparison variables.\r\n"
            "\r\n"
            "4 cells (100.0%) have an expected frequency less than 5.\r\n"
            "\r\n"
            "Warning! The chi-square assumption requiring that no more than 20% of the cells may have an expected "
            "frequency less than 5 has been violated.\r\n"
            "\r\n"
            "------------------------------------------------------\r\n"
            "\r\n");
  EXPECT_TRUE(Contains(*result.calculation.report,
                       "Pearson                         2.000       1       0.1573\r\n"
                       "Likelihood Ratio                2.093       1       0.1480\r\n"
                       "Yate's Correction               0.500       1       0.4795\r\n"
                       "Fisher's Exact (2-tailed)                           0.4857\r\n"
                       "\r\n"
                       "Risk Measures                     SE      95%LL      95%UL\r\n"
                       "-----------------------------------------------------------\r\n"
                       "Odds Ratio           9.000     1.633      0.367    220.940\r\n"
                       "Relative Risk        3.000     0.913      0.501     17.954\r\n"));
}

TEST(ChiSquareSections, OneLowCellOfSixDoesNotWarn) {
  const ChiSquareCalculation result = CalculateChiSquareTable(Typed({{"20", "20", "4"}, {"20", "20", "6"}}));
  EXPECT_EQ(result.note, "Note: \r\n1 cells (16.7%) have expected frequency < 5");
  EXPECT_EQ(result.frame_title, " Chi-square test of Independence");
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "\r\n\r\n1 cell (16.7%) has an expected frequency less than 5.\r\n\r\n---"));
  // Two degrees of freedom: no Yates row, and as the sides differ no agreement.
  EXPECT_EQ(result.calculation.report->substr(result.calculation.report->find("Chi-Square   ")),
            "Chi-Square                      Value      df          p <  \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                         0.356       2       0.8371\r\n"
            "Likelihood Ratio                0.358       2       0.8360\r\n"
            "\r\n\r\n\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .063\r\n"
            "Pearson C                   .063\r\n"
            "Lambda Symmetric            .000\r\n"
            "Lambda Dependent=Row        .000\r\n"
            "Lambda Dependent=Column     .000\r\n"
            "\r\n"
            "Note: \r\n"
            "1 cells (16.7%) have expected frequency < 5\r\n"
            "\r\n");
}

// The last column expects 43 and 45 times 8 / 88.
TEST(ChiSquareSections, TwoLowCellsOfSixWarnTwice) {
  const ChiSquareCalculation result = CalculateChiSquareTable(Typed({{"20", "20", "3"}, {"20", "20", "5"}}));
  EXPECT_EQ(result.note, "Note: \r\n2 cells (33.3%) have expected frequency < 5");
  EXPECT_EQ(result.frame_title, "Warning! Chi-square assumption violated.");
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "2 cells (33.3%) have an expected frequency less than 5.\r\n\r\nWarning! The chi-square"));
}

// 2 of 10 cells: the last column expects 8 * 44 / 89 and 8 * 45 / 89.
TEST(ChiSquareSections, AShareOfExactlyTwentyPercentDoesNotWarn) {
  const ChiSquareCalculation result =
      CalculateChiSquareTable(Typed({{"10", "10", "10", "10", "4"}, {"9", "12", "10", "10", "4"}}));
  EXPECT_EQ(result.note, "Note: \r\n2 cells (20.0%) have expected frequency < 5");
  EXPECT_EQ(result.frame_title, " Chi-square test of Independence");
  EXPECT_FALSE(Contains(*result.calculation.narrative, "Warning!"));
}

// df is 0, chi-square is 0 and has no p: Pearson's becomes the smallest, that of G is blank. V divides by 0, C and both
// lambdas that divide by 0 keep 0.
TEST(ChiSquareSections, OneCountedRowHasNoDegreesOfFreedom) {
  const Calculation calculation = CalculateChiSquareTable(Typed({{"12", "30"}})).calculation;
  EXPECT_EQ(Between(*calculation.report, "Pearson   ", "\r\nNote"),
            "Pearson                         0.000       0       0.0001\r\n"
            "Likelihood Ratio                0.000       0             \r\n"
            "\r\n\r\n\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .000\r\n"
            "Pearson C                   .000\r\n"
            "Lambda Symmetric            .000\r\n"
            "Lambda Dependent=Row        .000\r\n"
            "Lambda Dependent=Column     .000\r\n");
  EXPECT_EQ(Between(*calculation.short_report, "Pearson   ", "   **"),
            "Pearson               0.000      0       0.0001\r\n"
            "Likelihood Ratio      0.000      0             \r\n"
            "\r\n\r\n\r\n");
  EXPECT_TRUE(Contains(*calculation.narrative, "the estimated p-value of 0.000 suggests there is a statistically"));
}

// A single counted cell is a table of one by one, in which all agree.
TEST(ChiSquareSections, ASingleCellAgreesWithItself) {
  const std::string report = ReportOf({{"", "7"}});
  EXPECT_EQ(Between(report, "Agreement", "\r\nNote"),
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            1.000\r\n"
            "Kappa Statistic             .000\r\n"
            "Kappa Standard Error          NA\r\n"
            "Kappa Significance (p<)       NA\r\n");
}

// The printed table keeps the gap; the statistics, those of the diagonal too, are of the counted rows and columns.
TEST(ChiSquareSections, AnEmptyColumnAndRowDoNotCountAndKeepTheirPlace) {
  const std::string gap = ReportOf({{"10", "", "20"}, {"", "", ""}, {"30", "0", "15"}});
  const std::string closed = ReportOf({{"10", "20"}, {"30", "15"}});
  EXPECT_EQ(Between(gap, "Chi-Square   ", "no end"), Between(closed, "Chi-Square   ", "no end"));
  EXPECT_TRUE(Contains(gap, "\r\n          |      10 |       0 |      20 |       0 |       0 |      30\r\n"));
  EXPECT_TRUE(Contains(gap, "\r\n          |       0 |       0 |       0 |       0 |       0 |       0\r\n"));
  EXPECT_TRUE(Contains(gap, "\r\n   CTotal |      40 |       0 |      35 |       0 |       0 |      75\r\n\r\n\r\n"));
}

// A cell of 0 has no odds ratio; with b = 0 there is no relative risk either: two labels alone.
TEST(ChiSquareSections, AZeroCellLeavesTheLabelsOfTheRisksAlone) {
  const std::string report = ReportOf({{"12", "0"}, {"5", "9"}});
  EXPECT_EQ(Between(report, "Pearson   ", "Measures of"),
            "Pearson                        11.798       1       0.0006\r\n"
            "Likelihood Ratio               15.293       1       0.0001\r\n"
            "Yate's Correction               9.129       1       0.0025\r\n"
            "Fisher's Exact (2-tailed)                           0.0013\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio      \r\n"
            "Relative Risk   \r\n"
            "\r\n\r\n\r\n");
}

TEST(ChiSquareSections, PerfectAgreementHasNeitherErrorNorSignificance) {
  EXPECT_EQ(Between(ReportOf({{"8", "0"}, {"0", "6"}}), "Agreement", "\r\nNote"),
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            1.000\r\n"
            "Kappa Statistic             1.000\r\n"
            "Kappa Standard Error          NA\r\n"
            "Kappa Significance (p<)       NA\r\n");
}

TEST(ChiSquareSections, AKappaOfZeroHasASignificanceOfOne) {
  EXPECT_TRUE(Contains(ReportOf({{"10", "10"}, {"10", "10"}}), "Kappa Significance (p<)     1.0000\r\n"));
}

// |ad - bc| = n / 2: the corrected value is 0 and has no p, which leaves its column blank. The exact test counts c
// down: (1 + 25 + 100) / 252, doubled.
TEST(ChiSquareSections, ACorrectedValueOfZeroHasNoP) {
  const Calculation calculation = CalculateChiSquareTable(Typed({{"3", "2"}, {"2", "3"}})).calculation;
  EXPECT_EQ(Between(*calculation.report, "Pearson   ", "\r\nRisk"),
            "Pearson                         0.400       1       0.5271\r\n"
            "Likelihood Ratio                0.403       1       0.5257\r\n"
            "Yate's Correction               0.000       1             \r\n"
            "Fisher's Exact (2-tailed)                           1.0000\r\n");
  EXPECT_EQ(Between(*calculation.short_report, "Pearson   ", "\r\n\r\n"),
            "Pearson               0.400      1       0.5271\r\n"
            "Likelihood Ratio      0.403      1       0.5257\r\n"
            "Yate's Correction     0.000      1             \r\n"
            "Fisher's (2-tailed)                      1.0000");
}

TEST(ChiSquareSections, WideLabelsAreCutAndWideCountsPushTheirLine) {
  ChiSquareBoxes boxes = Typed({{"123456789", "0.5"}, {"1", "2"}});
  boxes.row_labels[0] = "Protestants";
  boxes.column_labels[4] = "Unemployed";
  const std::string report = *CalculateChiSquareTable(boxes).calculation.report;
  EXPECT_TRUE(Contains(report, "|Unemploye|   RTotal\r\n"));
  EXPECT_TRUE(
      Contains(report, "\r\nProtestan |   123456789 |     0.5 |       0 |       0 |       0 |   123456789.5\r\n"));
}

TEST(ChiSquareSections, FractionsHaveTheirExactTestOnWholeCounts) {
  const std::string report = ReportOf({{"2.5", "1.5"}, {"1.5", "2.5"}});
  EXPECT_TRUE(Contains(report, "Pearson                         0.500       1       0.4795\r\n"));  // n phi^2, phi 1/4
  EXPECT_TRUE(Contains(report, "Fisher's Exact (2-tailed) "));
}

// Counts that no survey has: each table still gets its whole page, in no time.
TEST(ChiSquareSections, HugeAndNegativeCountsStillGetTheirPage) {
  const std::vector<std::vector<std::vector<std::string>>> tables = {
      {{"1e300", "1e300"}, {"1e300", "-1e299"}},
      {{"1e308", "1e308"}, {"1e308", "1e308"}},
      {{"-1000000000", "1000000001"}, {"1000000001", "-1000000000"}},
      {{"1000000000", "-999999999"}, {"-999999999", "1000000000"}},
      {{"5", "-3"}, {"2", "8"}},
      {{"1e-300", "1e-300"}, {"1e-300", "1e-300"}},
      {{"1e15", "1"}, {"1", "1e15"}},
      {{"-4", "9", "0", "-6"}, {"3", "1", "5", "2"}, {"-9", "1", "2", "3"}},
      {{"5000", "0", "0", "0", "0"},
       {"0", "5000", "0", "0", "0"},
       {"0", "0", "5000", "0", "0"},
       {"0", "0", "0", "5000", "0"},
       {"0", "0", "0", "0", "5000"}},
  };
  for (const auto& table : tables) {
    const std::string report = ReportOf(table);
    EXPECT_TRUE(Contains(report, "\r\nPearson                    ")) << report;
    EXPECT_TRUE(Contains(report, "\r\n\r\nNote: \r\n")) << report;
    EXPECT_FALSE(Contains(report, "nan") || Contains(report, "inf")) << report;
  }
}

// The second row has no total above 0: it is printed, takes part in the totals of the columns, and is no row of the
// statistics. By hand: the row left expects 30 x 7 / 28 = 7.5 and 22.5, chi-square is 2.5^2 / 7.5 + 2.5^2 / 22.5.
TEST(ChiSquareSections, ARowBelowZeroIsPrintedAndDoesNotCount) {
  const std::string report = ReportOf({{"10", "20"}, {"-3", "1"}});
  EXPECT_TRUE(Contains(report, "\r\n          |      -3 |       1 |       0 |       0 |       0 |      -2\r\n"));
  EXPECT_TRUE(Contains(report, "\r\n   CTotal |       7 |      21 |       0 |       0 |       0 |      28\r\n"));
  EXPECT_TRUE(Contains(report, "Pearson                         1.111       0       0.0000\r\n"));
}

}  // namespace
}  // namespace tessara
