#include <gtest/gtest.h>

#include "procedures/compare/crosstabulation.h"
#include "procedures/tests/table_cases.h"

// Which cases and categories come into the table, in which order, and what is left when there are none. The figures
// come from the same computations as those of the other whole reports.

namespace tessara {
namespace {

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
  run.roles.main = 0;
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
  const CaseSource source = CasesOfAllRecords(run.data);
  EXPECT_FALSE(CountCases(source, {.rows = 1, .columns = 2}, 6).too_many_categories);
  const CountedCases cases = CountCases(source, {.rows = 1, .columns = 2}, 5);
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

TEST(Crosstabulation, NoChartsUnlessTheyAreWanted) {
  TestRun run = CasesOf({{1, 2}, {3, 4}});
  run.wants_charts = false;
  run.Report(RunCrosstabulation);
  EXPECT_TRUE(run.charts.charts.empty());
}

// The charts of a table of so many rows and columns.
std::size_t ChartsOf(int rows, int columns) {
  TestColumn a{.name = "A"};
  TestColumn b{.name = "B"};
  for (int i = 0; i < std::max(rows, columns); ++i) {
    a.cells.emplace_back(std::to_string(i % rows));
    b.cells.emplace_back(std::to_string(i % columns));
  }
  TestRun run({a, b});
  run.Independent(2);
  run.Report(RunCrosstabulation);
  return run.charts.charts.size();
}

TEST(Crosstabulation, ChartsOfManyCategories) {
  EXPECT_EQ(ChartsOf(10000, 1), 3u);
  EXPECT_EQ(ChartsOf(5001, 2), 2u);  // too many cells
  EXPECT_EQ(ChartsOf(2, 250), 3u);
  EXPECT_EQ(ChartsOf(2, 251), 2u);  // too many series
  EXPECT_EQ(ChartsOf(10001, 1), 0u);
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
