#include "procedures/crosstabulation.h"

#include <gtest/gtest.h>

#include "procedures/tests/table_cases.h"

// The figures in the reports come from scipy.stats (chi2_contingency without correction, chi2, norm), the exact test
// from fractions of whole numbers, the others from the formulas worked out in Python; their places on the page from the
// rules of the layout.

namespace tessara {
namespace {

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
