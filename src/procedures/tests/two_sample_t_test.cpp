#include "procedures/compare/two_sample_t.h"

#include <gtest/gtest.h>

#include <cmath>

#include "procedures/tests/test_data.h"

// The figures of whole reports were computed with scipy (ttest_ind for t, f.sf and t.sf for the probabilities) and laid
// out by the rules of the report; the degrees of freedom of the unequal test with numpy from its formula.

namespace tessara {
namespace {

const std::string kFiveMessage =
    "Procedure was aborted. There are less than five observations in each group.\r\n"
    "Verify you have properly indicated the values (e.g.; 1 for male 2 for female)\r\n"
    "for the independent variable and that they match the data.";
const std::string kVarianceMessage =
    "There is no variance in one of the variables, so this procedure was aborted.\r\n"
    "Verify you have properly indicated the values (e.g.; 1 for male 2 for female)\r\n"
    "for the independent variable and that they match the data.";

// The frame around a message that ends without line ends of its own.
std::string FramedText(const std::string& text) {
  std::string frame = FramedError("T-Test Comparison: Y by G", "@");
  return frame.replace(frame.find("@\r\n\r\n"), 5, text);
}

// The values of both groups one behind the other, with the group in column 2.
std::vector<TestColumn> TwoGroups(const std::vector<double>& one, const std::vector<double>& two) {
  TestColumn y{"Y"};
  TestColumn g{"G"};
  for (const double value : one) {
    y.cells.emplace_back(value);
    g.cells.emplace_back("1");
  }
  for (const double value : two) {
    y.cells.emplace_back(value);
    g.cells.emplace_back("2");
  }
  return {y, g};
}

struct TTestRun : TestRun {
  explicit TTestRun(const std::vector<TestColumn>& columns, const std::string& first = "1",
                    const std::string& second = "2")
      : TestRun(columns) {
    Independent(2);
    options.t_test.group_a = first;
    options.t_test.group_b = second;
  }
  std::string Report() { return TestRun::Report(RunTTest); }
};

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Six values of group 1 and seven of group 2. A missing value, a cell without a number, a case of a third group and one
// without a group are no part of them.
std::vector<TestColumn> Weights() {
  return {{"WEIGHT",
           Texts({"12.5", "9", "14", "10.5", "15.25", "999", "8.25", "heavy", "11", "11", "3", "13.5", "12", "16",
                  "7.5", "", "10", "20"}),
           "Weight in kg", "999||||||"},
          {"SEX",
           Texts({"1", "2", "1", "2", "1", "1", "2", "2", "1", "2", "3", "1", "2", "1", "2", "1", "2", ""}),
           "Sex of the animal",
           "",
           {"1=Male", "2=Female, grown"}}};
}

TEST(TTest, WholeReport) {
  TTestRun run(Weights());
  EXPECT_EQ(run.Report(),
            "Two-Sample Difference of Means\r\n"
            "\r\n"
            "\r\n"
            "Independent Variable: SEX\tSex of the animal\r\n"
            "Dependent Variable: WEIGHT\tWeight in kg\r\n"
            "\r\n"
            "Sample One: 1 Male\r\n"
            "Sample Two: 2 Female, grown\r\n"
            "\r\n"
            "                         Sample 1         Sample 2\r\n"
            "                         Male             Female, \r\n"
            "                    --------------   --------------\r\n"
            "Sample Mean                13.7083           9.7500\r\n"
            "Std Deviation               1.8195           1.5877\r\n"
            "Sample Size (n)             6                7\r\n"
            "\r\n"
            "\r\n"
            "                        Homogeneity of Variance\r\n"
            "         ---------------------------------------------------\r\n"
            "              F-ratio   1.28    DF (5, 6)   p < 0.3822\r\n"
            "\r\n"
            "\r\n"
            "                     T-statistic          DF        p < (2-tailed)\r\n"
            "                   -------------     -------      ----------------\r\n"
            "Equal Variance            4.1930       11                   0.0015\r\n"
            "Unequal Variance          4.1450       11.93                0.0014\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
  EXPECT_FALSE(run.aborted);
}

// Five values each, picked by the control variable; no labels at all, so that the values stand in their place.
TEST(TTest, WholeReportWithControlAndWithoutLabels) {
  TTestRun run({{"Y", Texts({"1", "2", "50", "2", "4", "3", "6", "4", "8", "5", "11", "60"})},
                {"G", Texts({"a", "b", "a", "a", "b", "a", "b", "a", "b", "a", "b", "b"})},
                {"C", Texts({"1", "1", "2", "1", "1", "1", "1", "1", "1", "1", "1", "2"})}},
               "a", "b");
  run.Control(3, ControlRelation::kLessThan, "2");
  EXPECT_EQ(run.Report(),
            "Controlling for C < 2\r\n"
            "\r\n"
            "Two-Sample Difference of Means\r\n"
            "\r\n"
            "\r\n"
            "Independent Variable: G\t\r\n"
            "Dependent Variable: Y\t\r\n"
            "\r\n"
            "Sample One: a a\r\n"
            "Sample Two: b b\r\n"
            "\r\n"
            "                         Sample 1         Sample 2\r\n"
            "                         a                b       \r\n"
            "                    --------------   --------------\r\n"
            "Sample Mean                 3.0000           6.2000\r\n"
            "Std Deviation               1.5811           3.4928\r\n"
            "Sample Size (n)             5                5\r\n"
            "\r\n"
            "\r\n"
            "                        Homogeneity of Variance\r\n"
            "         ---------------------------------------------------\r\n"
            "              F-ratio   4.88    DF (4, 4)   p < 0.0769\r\n"
            "\r\n"
            "\r\n"
            "                     T-statistic          DF        p < (2-tailed)\r\n"
            "                   -------------     -------      ----------------\r\n"
            "Equal Variance           -1.8660        8                   0.0990\r\n"
            "Unequal Variance         -1.8660        6.36                0.1113\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n"
            "\r\n");
}

TEST(TTest, ExchangedGroupsFlipTheSignOfT) {
  TTestRun run(Weights(), "2", "1");
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report, "Sample One: 2 Female, grown\r\nSample Two: 1 Male\r\n"));
  EXPECT_TRUE(Contains(report, "Sample Mean                 9.7500          13.7083\r\n"));
  EXPECT_TRUE(Contains(report, "Sample Size (n)             7                6\r\n"));
  EXPECT_TRUE(Contains(report, "F-ratio   1.28    DF (5, 6)   p < 0.3822\r\n"));
  EXPECT_TRUE(Contains(report, "Equal Variance           -4.1930       11                   0.0015\r\n"));
  EXPECT_TRUE(Contains(report, "Unequal Variance         -4.1450       11.93                0.0014\r\n"));
}

TEST(TTest, BothVariablesMustBeSelected) {
  TTestRun run({{"Y", Texts({"1"})}, {"G", Texts({"1"})}});
  const char* sentence = "You must select an independent and dependent variable.";
  run.roles.main = 0;
  EXPECT_EQ(run.Report(), FramedError("T-Test Comparison:  by G", sentence));
  run.roles.main = 1;
  run.roles.independent = 0;
  EXPECT_EQ(run.Report(), FramedError("T-Test Comparison: Y by ", sentence));
  EXPECT_TRUE(run.aborted);
}

TEST(TTest, BothGroupValuesMustBeTyped) {
  const std::string frame = FramedError("T-Test Comparison: Y by G", "You must select two valid values.");
  TTestRun first(TwoGroups({1, 2}, {3, 4}), "", "2");
  EXPECT_EQ(first.Report(), frame);
  TTestRun second(TwoGroups({1, 2}, {3, 4}), "1", "");
  EXPECT_EQ(second.Report(), frame);
}

TEST(TTest, WithoutCasesThereIsNoMessage) {
  TTestRun run({{"Y"}, {"G"}});
  EXPECT_EQ(run.Report(), "");
  EXPECT_FALSE(run.aborted);
  run.options.t_test.group_a = "";  // the check of the values stands ahead
  EXPECT_EQ(run.Report(), FramedError("T-Test Comparison: Y by G", "You must select two valid values."));
}

TEST(TTest, BlankRecordsAreNoCases) {
  TTestRun run({{"Y", Texts({"", "", ""})}, {"G", Texts({"", "", ""})}});
  EXPECT_EQ(run.Report(), "");
  EXPECT_EQ(run.data.RecordCount, 3u);
}

TEST(TTest, BothGroupsMustReachFive) {
  std::vector<double> hundred;
  for (int i = 0; i < 100; ++i) hundred.push_back(i);
  TTestRun small_first(TwoGroups({1, 2, 3, 4}, hundred));
  EXPECT_EQ(small_first.Report(), FramedText(kFiveMessage));
  EXPECT_TRUE(small_first.aborted);
  TTestRun small_second(TwoGroups(hundred, {1, 2, 3, 4}));
  EXPECT_EQ(small_second.Report(), FramedText(kFiveMessage));
  TTestRun unknown_value(TwoGroups(hundred, hundred), "1", "3");
  EXPECT_EQ(unknown_value.Report(), FramedText(kFiveMessage));
}

TEST(TTest, EqualGroupValuesMatchTheFirstGroup) {
  TTestRun run(TwoGroups({1, 2, 3, 4, 5, 6}, {2, 3, 4, 5, 6, 7}), "1", "1");
  EXPECT_EQ(run.Report(), FramedText(kFiveMessage));
  const TTestCases cases = GatherTTest(CasesOfAllRecords(run.data), run.roles, {"1", "1"});
  EXPECT_EQ(cases[0].size(), 6u);
  EXPECT_EQ(cases[1].size(), 0u);
}

// Six times 0.1 add up to a little less than 0.6, so that a mean taken from it is not 0.1: the values are equal all the
// same.
TEST(TTest, EqualValuesHaveNoVarianceWhateverTheirMeanRoundsTo) {
  const std::vector<double> tenths(6, 0.1);
  TTestRun second(TwoGroups({1, 2, 3, 4, 5}, tenths));
  EXPECT_EQ(second.Report(), FramedText(kVarianceMessage));
  EXPECT_TRUE(second.aborted);
  TTestRun first(TwoGroups(tenths, {1, 2, 3, 4, 5}));
  EXPECT_EQ(first.Report(), FramedText(kVarianceMessage));
  TTestRun too_few(TwoGroups({1, 1, 1, 1}, tenths));  // the sizes are looked at first
  EXPECT_EQ(too_few.Report(), FramedText(kFiveMessage));
}

// n values about a mean with a given deviation: half of them as far below as the others above, one on it if n is odd.
std::vector<double> ValuesWith(std::size_t n, double mean, double deviation) {
  const double paired = static_cast<double>(n - n % 2);
  const double distance = deviation * std::sqrt((static_cast<double>(n) - 1) / paired);
  std::vector<double> values(n, mean);
  for (std::size_t i = 0; i < n - n % 2; ++i) values[i] += i % 2 == 0 ? distance : -distance;
  return values;
}

TEST(TTest, LargeSamples) {
  TTestRun run(TwoGroups(ValuesWith(620, 30000, 22425.1420), ValuesWith(819, 28000, 15186.2995)));
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report, "Std Deviation           22425.1420       15186.2995\r\n"));
  EXPECT_TRUE(Contains(report, "Sample Size (n)           620              819\r\n"));
  EXPECT_TRUE(Contains(report, "F-ratio   2.18    DF (619, 818)   p < 0.0000\r\n"));
  EXPECT_TRUE(Contains(report, "Equal Variance            2.0140     1437                   0.0442\r\n"));
  EXPECT_TRUE(Contains(report, "Unequal Variance          1.9130     1030.76                0.0560\r\n"));
}

// The true p of both tests is far below 0.0001; that of the F test is printed as it is.
TEST(TTest, TinyPValuesPrintAsTheSmallestOne) {
  TTestRun run(TwoGroups({1, 2, 3, 4, 5, 6}, {1001, 1002, 1003, 1004, 1005, 1006.5}));
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report, "Equal Variance         -892.0270       10                   0.0001\r\n"));
  EXPECT_TRUE(Contains(report, "Unequal Variance       -892.0270       11.93                0.0001\r\n")) << report;
}

// With 4.00 degrees of freedom p would be 0.2878.
TEST(TTest, BelowFiveDegreesOfFreedomNoPIsComputed) {
  TTestRun run(TwoGroups({1, 2, 3, 4, 6}, {1, 100, 50, 900, 20}));
  const std::string report = run.Report();
  EXPECT_TRUE(Contains(report, "F-ratio   40100.86    DF (4, 4)   p < 0.0000\r\n"));
  EXPECT_TRUE(Contains(report, "Equal Variance           -1.2250        8                   0.2554\r\n"));
  EXPECT_TRUE(Contains(report, "Unequal Variance         -1.2250        4.00                0.0001\r\n"));
}

// Two samples of one case have no degree of freedom: neither p can be computed, and both are told as the smallest one.
TEST(TTest, APThatCannotBeComputedIsToldAsTheSmallestOne) {
  const TTestSample one{.n = 1, .mean = 5, .squares = 0};
  const TTestSample two{.n = 1, .mean = 7, .squares = 0};
  const TTestResult result = ComputeTTest(one, two);
  EXPECT_EQ(result.equal_df.value(), 0);
  EXPECT_EQ(result.equal.p.value(), 0.0001);
  EXPECT_EQ(result.unequal.p.value(), 0.0001);
}

// A sample without spread leaves the degrees of freedom of the other: six cases have 5, which are enough. The figure is
// that of the closed form for an odd number of degrees, of t = 2.449: .058007.
TEST(TTest, FiveDegreesOfFreedomAreEnough) {
  const TTestSample one{.n = 10, .mean = 10, .squares = 0};
  const TTestSample two{.n = 6, .mean = 8, .squares = 20};
  const TTestResult result = ComputeTTest(one, two);
  EXPECT_EQ(result.unequal_df.value(), 5);
  EXPECT_EQ(result.unequal.t.value(), 2.449);
  EXPECT_EQ(result.unequal.p.value(), 0.058);
}

// The degrees of freedom are 6.5002, which is 6.50 as a text and 6 as an even number: p 0.2410. With 7 it is 0.2344.
TEST(TTest, DegreesOfFreedomAreRoundedToEvenFromTheirText) {
  const TTestSample one{.n = 6, .mean = 3.5, .squares = 100};
  const TTestSample two{.n = 6, .mean = 1, .squares = 10.842};
  const TTestResult result = ComputeTTest(one, two);
  EXPECT_EQ(result.unequal_df.value(), 6.5);
  EXPECT_EQ(result.unequal.t.value(), 1.301);
  EXPECT_EQ(result.unequal.p.value(), 0.241);
}

TEST(TTest, EqualVariancesPutTheSecondSampleOnTop) {
  const TTestSample one{.n = 5, .mean = 0, .squares = 10};
  const TTestSample two{.n = 10, .mean = 0, .squares = 20};
  const TTestResult result = ComputeTTest(one, two);
  EXPECT_EQ(result.ratio.f.value(), 1);
  EXPECT_EQ(result.ratio.numerator_df.value(), 9);
  EXPECT_EQ(result.ratio.denominator_df.value(), 4);
  EXPECT_EQ(result.equal.t.value(), 0);
  EXPECT_EQ(result.equal.p.value(), 1);
}

// The difference of the means is beyond the range of a double, and so is each square: t keeps 0.
TEST(TTest, HugeValuesLeaveTheFailingFiguresAtZero) {
  TTestRun run(TwoGroups({1e308, 1e308, 1e308, 1e308, 9e307}, {-1e308, -1e308, -1e308, -1e308, -9e307}));
  EXPECT_EQ(run.Report(), FramedText(kVarianceMessage));  // no square could be added
  const TTestSample one{.n = 5, .mean = 1e308, .squares = 1e300};
  const TTestSample two{.n = 5, .mean = -1e308, .squares = 1e300};
  const TTestResult result = ComputeTTest(one, two);
  EXPECT_EQ(result.equal.t.value(), 0);
  EXPECT_EQ(result.equal.p.value(), 1);
  EXPECT_EQ(result.unequal_df.value(), 0);  // the square of a share has failed
  EXPECT_EQ(result.unequal.p.value(), 0.0001);
}

// The cells 1 of the file are texts; a computed column holds numbers, and one of them is met by its general text.
TEST(TTest, TypedValuesMeetTextsAndNumbersByTheirText) {
  const DataSet data = MakeTestData(
      {{"Y", Texts({"1", "2", "3", "4", "5", "6"})}, {"G", {"0.5", 0.5, ".5", 2.0, "2", "2.0"}, "", "2||||||"}});
  const CaseSource source = CasesOfAllRecords(data);
  const Roles roles{.main = 1, .independent = 2};
  const TTestCases cases = GatherTTest(source, roles, {"0.5", "2"});
  EXPECT_EQ(cases[0], (std::vector<double>{1, 2}));
  EXPECT_EQ(cases[1], (std::vector<double>{4, 5}));  // though 2 is a missing value of the variable
  EXPECT_EQ(GatherTTest(source, roles, {".5", "2.0"})[0], (std::vector<double>{3}));
  EXPECT_TRUE(GatherTTest(source, roles, {" 2", "x"})[0].empty());
}

TEST(TTest, EachSampleLeavesAHistogram) {
  TTestRun run(Weights());
  run.Control(2);
  run.Report();
  EXPECT_EQ(run.charts.kind, ChartKind::kTTest);
  ASSERT_EQ(run.charts.charts.size(), 2u);
  const Chart& one = run.charts.charts[0];
  EXPECT_EQ(one.type, ChartType::kHistogram);
  EXPECT_EQ(one.title, "Group 1 (Male)");
  EXPECT_EQ(one.horizontal_title, "WEIGHT");
  EXPECT_EQ(one.footnote, "Controlling for SEX");
  EXPECT_EQ(*one.values, (std::vector<double>{12.5, 14, 15.25, 11, 13.5, 16}));
  EXPECT_EQ(run.charts.charts[1].title, "Group 2 (Female, grown)");
  EXPECT_EQ(*run.charts.charts[1].values, (std::vector<double>{9, 10.5, 8.25, 11, 12, 7.5, 10}));
  // Their pictures can be compared: they have the same axes.
  EXPECT_EQ(run.charts.charts[0].beside, run.charts.charts[1].values);
  EXPECT_EQ(run.charts.charts[1].beside, run.charts.charts[0].values);
}

TEST(TTest, NoChartBehindAnErrorOrWhereNoneIsWanted) {
  TTestRun run(Weights());
  run.Report();
  run.wants_charts = false;
  run.Report();
  EXPECT_TRUE(run.charts.charts.empty());
  run.wants_charts = true;
  run.Report();
  EXPECT_EQ(run.charts.charts.size(), 2u);
  run.options.t_test.group_b = "4";
  run.Report();
  EXPECT_TRUE(run.charts.charts.empty());
}

}  // namespace
}  // namespace tessara
