#include "procedures/relate/correlation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

constexpr const char* kHead = "Correlation Comparison: ";

PairSums SumsOf(const std::vector<double>& y, const std::vector<double>& x) {
  return SumPairs(y.size(), [&](std::size_t i, double& y_value, double& x_value) {
    y_value = y[i];
    x_value = x[i];
  });
}

PearsonStatistics Pearson(const std::vector<double>& y, const std::vector<double>& x, PairConstancy constant = {}) {
  return ComputePearson(y.size(), SumsOf(y, x), constant);
}

// Two columns Y and X of numbers, and their report.
TestRun PairRun(const std::vector<double>& y, const std::vector<double>& x) {
  TestRun run({{"Y", {y.begin(), y.end()}}, {"X", {x.begin(), x.end()}}});
  run.Independent(2);
  return run;
}

// The four lines below the scattergram.
std::string LastLines(const std::string& report) {
  return report.substr(std::min(report.size(), report.find("Number of cases")));
}

std::string LinesOf(const std::string& n, const std::string& r, const std::string& p) {
  return "Number of cases: " + n + "\r\nMissing: 0\r\nPearson Correlation: " + r + "\r\np < (2-tailed signif.): " + p +
         "\r\n\r\n";
}

// Six cases are complete, and scipy's pearsonr gives r 0.834573 with p 0.038786 for them. The others: Y is 9, a missing
// value; X is blank; Y is no number; both are blank; X is no number. An 8 is missing in X alone.
const std::vector<TestColumn> kColumns = {
    {"Y", Texts({"2.1", "9", "3.9", "4", "6.2", "x", "7.8", "", "5.5", "8", "9.7", "8"}), "Yield", "9||||||"},
    {"X", Texts({"1", "2", "2", "", "4", "6", "3", "", "5", "y", "7", "8"}), "Dose in g", "8||||||"},
    {"C", Texts({"1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1"})}};

// The row of 7.8 is (1 - 5.7 / 7.6) * 10, in doubles a little more than 2.5.
const std::string kScattergram =
    "       9.7|                               * \r\n"
    "          |                                 \r\n"
    "          |                                 \r\n"
    "          |          *                      \r\n"
    "          |                                 \r\n"
    "       5.9|                *                \r\n"
    "          |                      *          \r\n"
    "          |                                 \r\n"
    "          |       *                         \r\n"
    "          |                                 \r\n"
    "       2.1| *                               \r\n"
    "\r\n"
    "           ---------------|--------------|\r\n"
    "                     1.0           4.0           7.0\r\n"
    "\r\n"
    "          X: Dose in g\r\n";

const std::string kFigures =
    "Number of cases: 6\r\n"
    "Missing: 6\r\n"
    "Pearson Correlation: 0.835\r\n"
    "p < (2-tailed signif.): 0.0388\r\n"
    "\r\n";

TEST(Correlation, WholeReport) {
  TestRun run(kColumns);
  run.Independent(2);
  EXPECT_EQ(run.Report(RunCorrelation), "Pearson's Correlation\r\nY: Yield\r\n" + kScattergram + kFigures);
  EXPECT_FALSE(run.aborted);
}

TEST(Correlation, TheControlCaptionStandsAheadOfTheTitle) {
  TestRun run(kColumns);
  run.Independent(2);
  run.Control(3, ControlRelation::kEqualTo, "1");
  EXPECT_EQ(run.Report(RunCorrelation),
            "Controlling for C = 1\r\n\r\nPearson's Correlation\r\nY: Yield\r\n" + kScattergram + kFigures);
}

TEST(Correlation, CasesThatTheControlExcludesAreMissing) {
  TestRun run(
      {{"Y", Texts({"1", "2", "3", "4"})}, {"X", Texts({"2", "1", "3", "9"})}, {"C", Texts({"a", "a", "a", "b"})}});
  run.Independent(2);
  run.Control(3, ControlRelation::kEqualTo, "a");
  const std::string report = run.Report(RunCorrelation);
  EXPECT_NE(report.find("Number of cases: 3\r\nMissing: 1\r\nPearson Correlation: 0.500\r\n"), std::string::npos);
}

TEST(Correlation, AYWithoutItsXCountsOnceAsMissing) {
  TestRun run({{"Y", Texts({"1", "2", "3", "4"})}, {"X", Texts({"2", "", "1", "3"})}});
  run.Independent(2);
  EXPECT_NE(run.Report(RunCorrelation).find("Number of cases: 3\r\nMissing: 1\r\n"), std::string::npos);
}

TEST(Correlation, BothVariablesMustBeSet) {
  constexpr const char* kSentence = "You must select a dependent and independent variable.";
  TestRun run(kColumns);
  EXPECT_EQ(run.Report(RunCorrelation), FramedError(std::string(kHead) + "Y by ", kSentence));
  EXPECT_TRUE(run.aborted);
  run.roles.independent = 2;
  run.roles.main = 0;
  EXPECT_EQ(run.Report(RunCorrelation), FramedError(std::string(kHead) + " by X", kSentence));
  run.roles.main = 9;  // a column that the data do not have
  EXPECT_EQ(run.Report(RunCorrelation), FramedError(std::string(kHead) + " by X", kSentence));
}

TEST(Correlation, FewerThanTwoCasesGiveTheErrorFrame) {
  const std::string frame = FramedError(std::string(kHead) + "Y by X", "Two or more cases are required.");
  EXPECT_EQ(PairRun({}, {}).Report(RunCorrelation), frame);
  TestRun one = PairRun({5}, {7});
  one.charts.kind = ChartKind::kFrequencies;
  EXPECT_EQ(one.Report(RunCorrelation), frame);
  EXPECT_TRUE(one.aborted);
  EXPECT_EQ(one.charts.kind, ChartKind::kNone);
  TestRun apart({{"Y", Texts({"1", "2", "", ""})}, {"X", Texts({"", "", "1", "2"})}});
  apart.Independent(2);
  EXPECT_EQ(apart.Report(RunCorrelation), frame);
  EXPECT_EQ(apart.data.RecordCount, 4u);
}

TEST(Correlation, TwoCasesHaveNoDegreeOfFreedom) {
  EXPECT_EQ(LastLines(PairRun({1, 2}, {3, 5}).Report(RunCorrelation)), LinesOf("2", "1.000", "."));
  EXPECT_EQ(LastLines(PairRun({2, 1}, {3, 5}).Report(RunCorrelation)), LinesOf("2", "-1.000", ""));
  EXPECT_EQ(LastLines(PairRun({2, 1}, {3, 3}).Report(RunCorrelation)), LinesOf("2", "0.000", ""));
}

// The first is -6 / sqrt(6 * 6), exactly -1: t is not computed, and the p of 0 is 1. The second rounds to -1.000 only:
// r is -0.9999959 and p 0.0018 (scipy).
TEST(Correlation, ThePointBelongsToPlusOneOnly) {
  EXPECT_EQ(LastLines(PairRun({3, 2, 1}, {1, 2, 3}).Report(RunCorrelation)), LinesOf("3", "-1.000", "1.0000"));
  EXPECT_EQ(LastLines(PairRun({3.01, 2, 1}, {1, 2, 3}).Report(RunCorrelation)), LinesOf("3", "-1.000", "0.0018"));
  EXPECT_EQ(LastLines(PairRun({1, 2, 3.01}, {1, 2, 3}).Report(RunCorrelation)), LinesOf("3", "1.000", "."));
}

TEST(Correlation, ACopyCorrelatesPerfectly) {
  const std::vector<double> values = {0.3, 1.7, 2.9, 4.1, 8.3};
  EXPECT_EQ(LastLines(PairRun(values, values).Report(RunCorrelation)), LinesOf("5", "1.000", "."));
}

// Three times 0.3 is not 0.9 in doubles, and 3 * 0.27 less 0.9 squared is not 0. Equal values have no spread all the
// same: r stays 0, t is 0, and its p is 1.
TEST(Correlation, AVariableWithoutSpreadGivesAnROfZero) {
  const std::vector<double> equal = {0.3, 0.3, 0.3};
  const std::vector<double> others = {1, 2, 4};
  ASSERT_NE(3 * SumsOf(equal, others).yy - SumsOf(equal, others).y * SumsOf(equal, others).y, 0);
  EXPECT_EQ(LastLines(PairRun(equal, others).Report(RunCorrelation)), LinesOf("3", "0.000", "1.0000"));
  EXPECT_EQ(LastLines(PairRun(others, equal).Report(RunCorrelation)), LinesOf("3", "0.000", "1.0000"));
  EXPECT_EQ(LastLines(PairRun(equal, equal).Report(RunCorrelation)), LinesOf("3", "0.000", "1.0000"));
}

TEST(Correlation, WholeReportOfAnXWithoutSpread) {
  EXPECT_EQ(PairRun({1, 2, 3}, {5, 5, 5}).Report(RunCorrelation),
            "Pearson's Correlation\r\n"
            "Y: \r\n"
            "       3.0| *                               \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "       2.0| *                               \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "       1.0| *                               \r\n"
            "\r\n"
            "           ---------------|--------------|\r\n"
            "                     5.0           5.0           5.0\r\n"
            "\r\n"
            "          X: \r\n" +
                LinesOf("3", "0.000", "1.0000"));
}

// Steps that overflow are left out one by one; those before and behind them count.
TEST(Correlation, ASumGoesOnBehindAStepThatFails) {
  const PairSums sums = SumsOf({2, 0x1p700, 3}, {1, 0x1p500, 5});
  EXPECT_EQ(sums.y, 0x1p700);  // 5 is nothing beside it
  EXPECT_EQ(sums.yy, 4 + 9);   // 2^1400 has no double
  EXPECT_EQ(sums.xx, 0x1p1000);
  EXPECT_EQ(sums.xy, 2 + 15);  // nor has 2^1200
}

// Only the 9 of the squares of Y can be added, so that r is (3 * -1e200 - 18) / sqrt((27 - 9) * (42 - 36)), or
// -2.88675134594813E+199. Its square fails, t stays 0, and the p of 0 is 1.
TEST(Correlation, HugeValuesPrintAReport) {
  TestRun run = PairRun({1e200, -1e200, 3}, {1, 2, 3});
  const std::string r = "-288675134594813" + std::string(185, '0') + ".000";
  EXPECT_EQ(LastLines(run.Report(RunCorrelation)), LinesOf("3", r, "1.0000"));
}

TEST(Correlation, AProductOfSpreadsThatOverflowsLeavesRAtZero) {
  TestRun run = PairRun({1e100, 2e100, 3e100, 5e100}, {1e60, 2e60, 3e60, 4e60});
  EXPECT_EQ(LastLines(run.Report(RunCorrelation)), LinesOf("4", "0.000", "1.0000"));
}

TEST(Correlation, TIsTakenFromTheUnroundedR) {
  const PearsonStatistics s = Pearson({2.1, 3.9, 6.2, 7.8, 5.5, 9.7}, {1, 2, 4, 3, 5, 7});
  EXPECT_EQ(s.r.value(), 0.835);
  EXPECT_NEAR(s.t.value(), 1.0471428571428567 / 0.3456072738747003, 1e-9);  // slope over its error, scipy's linregress
}

TEST(CorrelationCharts, AScatterChartAndTheFrequenciesOfBoth) {
  TestRun run(kColumns);
  run.Independent(2);
  run.Control(3);
  run.Report(RunCorrelation);
  EXPECT_EQ(run.charts.kind, ChartKind::kCorrelation);
  ASSERT_EQ(run.charts.charts.size(), 3u);
  const Chart& scatter = run.charts.charts[0];
  EXPECT_EQ(scatter.type, ChartType::kScatter);
  EXPECT_EQ(scatter.title, "Y by X");
  EXPECT_EQ(scatter.horizontal_title, "X axis variable - X");
  EXPECT_EQ(scatter.vertical_title, "Y axis variable - Y");
  EXPECT_EQ(scatter.footnote, "Controlling for C");
  EXPECT_EQ(*scatter.y, (std::vector<double>{2.1, 3.9, 6.2, 7.8, 5.5, 9.7}));
  EXPECT_EQ(*scatter.x, (std::vector<double>{1, 2, 4, 3, 5, 7}));
  const Chart& y = run.charts.charts[1];
  EXPECT_EQ(y.type, ChartType::kHistogram);
  EXPECT_EQ(y.title, "Y");
  EXPECT_EQ(y.horizontal_title, "Y");
  EXPECT_EQ(y.vertical_title, "Frequency");
  EXPECT_EQ(y.values, scatter.y);
  const Chart& x = run.charts.charts[2];
  EXPECT_EQ(x.type, ChartType::kHistogram);
  EXPECT_EQ(x.title, "X");
  EXPECT_EQ(x.horizontal_title, "X");
  EXPECT_EQ(x.values, scatter.x);
}

TEST(CorrelationCharts, NoneUnlessTheyAreWanted) {
  TestRun run(kColumns);
  run.Independent(2);
  run.wants_charts = false;
  run.charts.kind = ChartKind::kFrequencies;
  run.Report(RunCorrelation);
  EXPECT_EQ(run.charts.kind, ChartKind::kNone);
  EXPECT_TRUE(run.charts.charts.empty());
}

void RunRegression(ProcedureRun& run, const Roles& roles) {
  RunCorrelationWith(run, roles, {.regression = true, .save_residuals = false});
}
void RunRegressionSaving(ProcedureRun& run, const Roles& roles) {
  RunCorrelationWith(run, roles, {.regression = true, .save_residuals = true});
}

// Slope, intercept, error and deviations by scipy and numpy. R Squared is that of 0.835, and so is the error of the
// estimate: sqrt(1 - 0.697225) * sqrt(5 / 4) * 2.71047.
TEST(SimpleRegression, WholeReport) {
  TestRun run(kColumns);
  run.Independent(2);
  EXPECT_EQ(run.Report(RunRegression),
            "\r\nSimple Regression\r\n"
            "Y = Y:   Yield\r\n"
            "X = X:   Dose in g\r\n"
            "\r\n"
            "Variable Y Mean            5.8667\r\n"
            "Variable Y Std Dev         2.7105\r\n"
            "Variable X Mean            3.6667\r\n"
            "Variable X Std Dev         2.1602\r\n"
            "R Squared                  0.6972\r\n"
            "Y Intercept (a)            2.0271\r\n"
            "Slope (b)                  1.0471\r\n"
            "Std Error (b)              0.3456\r\n"
            "Ho:(b)=0, p <              0.0388\r\n"
            "Std Err of Estimate        1.6675\r\n"
            "Y: Yield\r\n" +
                kScattergram + kFigures);
  EXPECT_EQ(run.data.matrix.ColumnCount(), 3u);  // nothing is saved
}

TEST(SimpleRegression, ResidualsOfTheAcceptedCasesAreSaved) {
  TestRun run(kColumns);
  run.Independent(2);
  run.Report(RunRegressionSaving);
  ASSERT_EQ(run.data.matrix.ColumnCount(), 4u);
  EXPECT_EQ(run.data.VariableCount, 4u);
  EXPECT_EQ(run.data.VariableName(4), "R-Y");
  EXPECT_EQ(run.data.VariableLabel(4), "");
  ASSERT_EQ(run.data.VarList.size(), 5u);
  EXPECT_EQ(run.data.VarList[4].name, "R-Y");
  // By numpy's polyfit.
  const char* expected[] = {"-0.97429", "", "-0.22143", "", "-0.01571", "",
                            "2.63143",  "", "-1.76286", "", "0.34286",  ""};
  for (std::size_t record = 0; record < std::size(expected); ++record) {
    EXPECT_EQ(run.data.matrix.Cell(kFirstRecordRow + record, 4).text(), expected[record]) << record;
  }
}

SimpleRegression Regress(const std::vector<double>& y, const std::vector<double>& x, PairConstancy constant = {}) {
  const PairSums sums = SumsOf(y, x);
  return ComputeSimpleRegression(y, x, sums, ComputePearson(y.size(), sums, constant));
}

// The first n of a series; figures by numpy. With 30 cases the error is sqrt(1 - 0.439^2) * 9.32382, without the factor
// sqrt(29 / 28) that would make it 8.52561; with 29 the factor sqrt(28 / 27) is there.
TEST(SimpleRegression, FromThirtyCasesOnTheErrorOfTheEstimateHasItsShortForm) {
  std::vector<double> y, x;
  for (int i = 1; i <= 30; ++i) {
    y.push_back((7 * i * i) % 31 + 0.5 * i);
    x.push_back((11 * i) % 17 + i);
  }
  const SimpleRegression thirty = Regress(y, x);
  EXPECT_NEAR(thirty.estimate_error.value(), 8.377331697905017, 1e-12);
  EXPECT_NEAR(thirty.slope.value(), 0.4190867866274302, 1e-12);
  EXPECT_NEAR(thirty.intercept.value(), 10.119856240050169, 1e-11);
  EXPECT_NEAR(thirty.slope_error.value(), 0.16218610759136878, 1e-12);
  y.pop_back();
  x.pop_back();
  const SimpleRegression fewer = Regress(y, x);
  EXPECT_NEAR(fewer.estimate_error.value(), 8.652205466998996, 1e-12);
  EXPECT_NEAR(fewer.r_squared.value(), 0.444 * 0.444, 1e-15);
}

TEST(SimpleRegression, TwoCasesHaveNoErrors) {
  const SimpleRegression s = Regress({1, 3}, {3, 5});
  EXPECT_EQ(s.slope.value(), 1);
  EXPECT_EQ(s.intercept.value(), -2);
  EXPECT_EQ(s.r_squared.value(), 1);
  EXPECT_EQ(s.slope_error.value(), 0);     // divides by 0
  EXPECT_EQ(s.estimate_error.value(), 0);  // likewise
  EXPECT_DOUBLE_EQ(s.y_deviation.value(), std::sqrt(2.0));
}

TEST(SimpleRegression, AnXWithoutSpreadHasASlopeOfZero) {
  const SimpleRegression s = Regress({1, 2, 6}, {0.3, 0.3, 0.3}, {.y = false, .x = true});
  EXPECT_EQ(s.slope.value(), 0);
  EXPECT_EQ(s.intercept.value(), 3);
  EXPECT_EQ(s.x_deviation.value(), 0);
  EXPECT_EQ(s.slope_error.value(), 0);
  EXPECT_DOUBLE_EQ(s.estimate_error.value(), std::sqrt(2.0) * std::sqrt(7.0));  // r is 0
}

TEST(SimpleRegression, ThePOfTwoCasesIsEmptyAndThatOfAPerfectFitAPoint) {
  TestRun two = PairRun({2, 1}, {3, 5});
  EXPECT_NE(two.Report(RunRegression).find("Ho:(b)=0, p <                    \r\n"), std::string::npos);
  TestRun perfect = PairRun({1, 2, 3}, {1, 2, 3});
  EXPECT_NE(perfect.Report(RunRegression).find("Ho:(b)=0, p <                   .\r\n"), std::string::npos);
}

}  // namespace
}  // namespace tessara
