#include "calculators/chi_square_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "calculators/tests/typed_table.h"

namespace tessara {
namespace {

// The figures of these tests come from scipy.stats (chi2_contingency with and without correction and with the
// log-likelihood, fisher_exact of one side, doubled, contingency.association) and from statsmodels' Table2x2; lambda
// and kappa were worked out by their formulas in numpy.

class TwoByTwo : public testing::Test {
 protected:
  static ChiSquareCalculation Calculate() {
    ChiSquareBoxes boxes = Typed({{"10", "20"}, {"30", "15"}});
    boxes.row_labels = {"Men", "Women", "", "", ""};
    boxes.column_labels = {"Yes", "No", "", "", ""};
    return CalculateChiSquareTable(boxes);
  }
  const ChiSquareCalculation result = Calculate();
};

TEST_F(TwoByTwo, LongReport) {
  EXPECT_EQ(result.calculation.report,
            "Chi-Square Test of Independence\r\n"
            "\r\n"
            "          |Yes      |No       |         |         |         |   RTotal\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Men       |      10 |      20 |       0 |       0 |       0 |      30\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Women     |      30 |      15 |       0 |       0 |       0 |      45\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "   CTotal |      40 |      35 |       0 |       0 |       0 |      75\r\n"
            "\r\n"
            "\r\n"
            "Chi-Square                      Value      df          p <  \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                         8.036       1       0.0046\r\n"
            "Likelihood Ratio                8.161       1       0.0043\r\n"
            "Yate's Correction               6.752       1       0.0094\r\n"
            "Fisher's Exact (2-tailed)                           0.0090\r\n"
            "\r\n"
            "Risk Measures                     SE      95%LL      95%UL\r\n"
            "-----------------------------------------------------------\r\n"
            "Odds Ratio           0.250     0.500      0.094      0.666\r\n"
            "Relative Risk        0.438     0.311      0.238      0.804\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .327\r\n"
            "Pearson C                   .311\r\n"
            "Lambda Symmetric            .231\r\n"
            "Lambda Dependent=Row        .167\r\n"
            "Lambda Dependent=Column     .286\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .333\r\n"
            "Kappa Statistic            -.316\r\n"
            "Kappa Standard Error        .114\r\n"
            "Kappa Significance (p<)     .0056\r\n"
            "\r\n"
            "Note: \r\n"
            "0 cells (0.0%) have expected frequency < 5\r\n"
            "\r\n");
}

TEST_F(TwoByTwo, ShortReport) {
  EXPECT_EQ(result.calculation.short_report,
            "Chi-Square Test of Independence       n = 75\r\n"
            "-----------------------------------------------\r\n"
            "          |Yes      |No       |         |         |         |   RTotal\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Men       |      10 |      20 |       0 |       0 |       0 |      30\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Women     |      30 |      15 |       0 |       0 |       0 |      45\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "   CTotal |      40 |      35 |       0 |       0 |       0 |      75\r\n"
            "\r\n"
            "\r\n"
            "Chi-Square            Value     df          p <\r\n"
            "Pearson               8.036      1       0.0046\r\n"
            "Likelihood Ratio      8.161      1       0.0043\r\n"
            "Yate's Correction     6.752      1       0.0094\r\n"
            "Fisher's (2-tailed)                      0.0090\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "   ** See Output tab for more statistics **");
}

TEST_F(TwoByTwo, Narrative) {
  EXPECT_EQ(result.calculation.narrative,
            "Chi-Square Test of Independent\r\n"
            "\r\n"
            "Based on a benchmark of .05 alpha, the estimated p-value of 0.005 suggests there is a statistically "
            "significant association between the two comparison variables.\r\n"
            "\r\n"
            "No cells (0.0%) have an expected frequency less than 5.\r\n"
            "\r\n"
            "------------------------------------------------------\r\n"
            "\r\n");
}

TEST_F(TwoByTwo, TheBoxesOfThePanel) {
  EXPECT_EQ(result.note, "Note: \r\n0 cells (0.0%) have expected frequency < 5");
  EXPECT_EQ(result.frame_title, " Chi-square test of Independence");
  EXPECT_EQ(result.calculation.results_title, std::nullopt);
  EXPECT_TRUE(result.calculation.messages.empty());
}

class ThreeByThree : public testing::Test {
 protected:
  static Calculation Calculate() {
    ChiSquareBoxes boxes = Typed({{"20", "5", "2"}, {"4", "15", "6"}, {"1", "5", "22"}});
    boxes.row_labels = {"Low", "Middle", "Higher than", "", ""};
    boxes.column_labels = {"Never", "Sometimes", "Very often", "", ""};
    return CalculateChiSquareTable(boxes).calculation;
  }
  const Calculation calculation = Calculate();
};

// No Yates, no Fisher and no risk; agreement stands. Labels are cut to 9.
TEST_F(ThreeByThree, LongReport) {
  EXPECT_EQ(calculation.report,
            "Chi-Square Test of Independence\r\n"
            "\r\n"
            "          |Never    |Sometimes|Very ofte|         |         |   RTotal\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Low       |      20 |       5 |       2 |       0 |       0 |      27\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Middle    |       4 |      15 |       6 |       0 |       0 |      25\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Higher th |       1 |       5 |      22 |       0 |       0 |      28\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "   CTotal |      25 |      25 |      30 |       0 |       0 |      80\r\n"
            "\r\n"
            "\r\n"
            "Chi-Square                      Value      df          p <  \r\n"
            "-----------------------------------------------------------\r\n"
            "Pearson                        54.520       4       0.0000\r\n"
            "Likelihood Ratio               54.272       4       0.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "Measures of Association\r\n"
            "-------------------------------------\r\n"
            "Cramer's V                  .584\r\n"
            "Pearson C                   .637\r\n"
            "Lambda Symmetric            .549\r\n"
            "Lambda Dependent=Row        .558\r\n"
            "Lambda Dependent=Column     .540\r\n"
            "\r\n"
            "\r\n"
            "Agreement Statistics\r\n"
            "-------------------------------------\r\n"
            "Proportion Agree            .713\r\n"
            "Kappa Statistic             .568\r\n"
            "Kappa Standard Error        .079\r\n"
            "Kappa Significance (p<)     .0001\r\n"
            "\r\n"
            "Note: \r\n"
            "0 cells (0.0%) have expected frequency < 5\r\n"
            "\r\n");
}

TEST_F(ThreeByThree, ShortReport) {
  EXPECT_EQ(calculation.short_report,
            "Chi-Square Test of Independence       n = 80\r\n"
            "-----------------------------------------------\r\n"
            "          |Never    |Sometimes|Very ofte|         |         |   RTotal\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Low       |      20 |       5 |       2 |       0 |       0 |      27\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Middle    |       4 |      15 |       6 |       0 |       0 |      25\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "Higher th |       1 |       5 |      22 |       0 |       0 |      28\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "          |       0 |       0 |       0 |       0 |       0 |       0\r\n"
            "          +---------+---------+---------+---------+---------+---------\r\n"
            "   CTotal |      25 |      25 |      30 |       0 |       0 |      80\r\n"
            "\r\n"
            "\r\n"
            "Chi-Square            Value     df          p <\r\n"
            "Pearson              54.520      4       0.0000\r\n"
            "Likelihood Ratio     54.272      4       0.0000\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "   ** See Output tab for more statistics **");
}

TEST_F(ThreeByThree, Narrative) {
  EXPECT_EQ(calculation.narrative,
            "Chi-Square Test of Independent\r\n"
            "\r\n"
            "Based on a benchmark of .05 alpha, the estimated p-value of 0.000 suggests there is a statistically "
            "significant association between the two comparison variables.\r\n"
            "\r\n"
            "No cells (0.0%) have an expected frequency less than 5.\r\n"
            "\r\n"
            "------------------------------------------------------\r\n"
            "\r\n");
}

void ExpectNoCases(const ChiSquareCalculation& result) {
  EXPECT_EQ(result.calculation.results_title, "Error: No cases in table");
  EXPECT_EQ(result.calculation.report, std::nullopt);
  EXPECT_EQ(result.calculation.short_report, std::nullopt);
  EXPECT_EQ(result.calculation.narrative, std::nullopt);
  EXPECT_EQ(result.note, std::nullopt);
  EXPECT_EQ(result.frame_title, std::nullopt);
  EXPECT_TRUE(result.calculation.messages.empty());
}

TEST(ChiSquareTable, EmptyBoxesHaveNoCases) { ExpectNoCases(CalculateChiSquareTable({})); }

TEST(ChiSquareTable, LettersCountZero) { ExpectNoCases(CalculateChiSquareTable(Typed({{"abc", "-"}, {".", "1 2"}}))); }

TEST(ChiSquareTable, CountsThatCancelHaveNoCases) { ExpectNoCases(CalculateChiSquareTable(Typed({{"5"}, {"-5"}}))); }

// The total is -1, but no column counts: the table is as one without cases.
TEST(ChiSquareTable, ATableWithoutACountedColumnHasNoCases) {
  ExpectNoCases(CalculateChiSquareTable(Typed({{"5"}, {"-6"}})));
}

TEST(ChiSquareTable, CommasAreStripped) {
  EXPECT_EQ(ReportOf({{"1,234", "1,000"}, {"2,000", ",1500"}}), ReportOf({{"1234", "1000"}, {"2000", "1500"}}));
}

TEST(ChiSquareTable, LettersAmongCountsAreZeros) {
  EXPECT_EQ(ReportOf({{"10", "20", "x"}, {"30", "15", "1e999"}}), ReportOf({{"10", "20"}, {"30", "15"}}));
}

}  // namespace
}  // namespace tessara
