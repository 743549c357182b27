#include "procedures/describe/descriptives.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "data/change_door.h"
#include "numerics/number_text.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

const std::string kRule = std::string(79, '-') + "\r\n";

// Eight values with the textbook deviation of 2; two cases are missing. The error is 2.1381 over the root of 7.
TEST(Descriptives, WholeReport) {
  TestRun run({{"SCORE", Texts({"2", "4", "99", "4", "4", "5", "", "5", "7", "9"}), "Test score", "99||||||", {}}});
  EXPECT_EQ(run.Report(RunDescriptives),
            "Descriptive Statistics\r\n"
            "Variable: SCORE     Test score\r\n" +
                kRule +
                "Count                          8         Pop Var                        4.0000\r\n"
                "Sum                           40.0000    Sam Var                        4.5714\r\n"
                "Mean                           5.0000    Pop Std                        2.0000\r\n"
                "Median                         4.5000    Sam Std                        2.1381\r\n"
                "Min                            2.0000    Std Error                      0.8081\r\n"
                "Max                            9.0000    CV%                           42.7618\r\n"
                "Range                          7.0000    95% CI (+/-)                   1.9112\r\n"
                "Skewness                       0.6563    One sample t-test (mu=0)  |p<| 0.0005\r\n" +
                kRule +
                "\r\n"
                "Missing Cases    2\r\n"
                "\r\n");
}

// The x is not missing and not read: it stands in the array as a 0 between 2 and 6, but the sum lacks nothing. The
// blank is missing. An x behind the last value does not count.
TEST(Descriptives, ANonNumericCellCountsAsZeroForEveryStatisticButTheSum) {
  TestRun run({{"X", Texts({"1", "", "2", "x", "6", "x"}), "", "", {}}});
  EXPECT_EQ(run.Report(RunDescriptives),
            "Descriptive Statistics\r\n"
            "Variable: X     \r\n" +
                kRule +
                "Count                          4         Pop Var                        5.1875\r\n"
                "Sum                            9.0000    Sam Var                        6.9167\r\n"
                "Mean                           2.2500    Pop Std                        2.2776\r\n"
                "Median                         1.5000    Sam Std                        2.6300\r\n"
                "Min                            0.0000    Std Error                      1.5184\r\n"
                "Max                            6.0000    CV%                          116.8869\r\n"
                "Range                          6.0000    95% CI (+/-)                   4.8316\r\n"
                "Skewness                       0.8332    One sample t-test (mu=0)  |p<| 0.2350\r\n" +
                kRule +
                "\r\n"
                "Missing Cases    1\r\n"
                "\r\n");
}

TEST(Descriptives, EqualValuesHaveNoSpreadAndStillGetTheirReport) {
  TestRun run({{"X", Texts({"0.1", "0.1", "0.1"}), "", "", {}}});
  EXPECT_EQ(run.Report(RunDescriptives),
            "Descriptive Statistics\r\n"
            "Variable: X     \r\n" +
                kRule +
                "Count                          3         Pop Var                        0.0000\r\n"
                "Sum                            0.3000    Sam Var                        0.0000\r\n"
                "Mean                           0.1000    Pop Std                        0.0000\r\n"
                "Median                         0.1000    Sam Std                        0.0000\r\n"
                "Min                            0.1000    Std Error                      0.0000\r\n"
                "Max                            0.1000    CV%                            0.0000\r\n"
                "Range                          0.0000    95% CI (+/-)                   0.0000\r\n"
                "Skewness                       0.0000    One sample t-test (mu=0)  |p<| 1.0000\r\n" +
                kRule +
                "\r\n"
                "Missing Cases    0\r\n"
                "\r\n");
}

// With one degree of freedom the interval is 12.706 errors wide: 12.706 * 1.76777 = 22.4612.
TEST(Descriptives, TwoValuesUseTheFirstRowOfTheTable) {
  TestRun run({{"X", Texts({"1.5", "4"}), "", "", {}}});
  const std::string report = run.Report(RunDescriptives);
  EXPECT_NE(report.find("Range                          2.5000    95% CI (+/-)                  22.4612\r\n"),
            std::string::npos);
  EXPECT_NE(report.find("One sample t-test (mu=0)  |p<| 0.3637\r\n"), std::string::npos);
}

TEST(Descriptives, FewerThanTwoObservationsGiveTheErrorFrame) {
  const std::string frame =
      FramedError("Descriptive Analysis: X", "There are less than 2 observations, so procedure was aborted.");
  TestRun one({{"X", Texts({"1", "", "9"}), "", "9||||||", {}}});
  EXPECT_EQ(one.Report(RunDescriptives), frame);
  EXPECT_TRUE(one.aborted);
  TestRun none({{"X", Texts({"", "9"}), "", "9||||||", {}}});
  EXPECT_EQ(none.Report(RunDescriptives), frame);
  TestRun controlled({{"X", Texts({"1", "2", "3"}), "", "", {}}, {"C", Texts({"1", "1", "1"}), "", "", {}}});
  controlled.Control(2, ControlRelation::kEqualTo, "2");
  EXPECT_EQ(controlled.Report(RunDescriptives), frame);
  EXPECT_EQ(controlled.data.RecordCount, 3u);
}

TEST(Descriptives, WithoutAVariableTheErrorFrameHasAnEmptyName) {
  TestRun run({{"X", Texts({"1"}), "", "", {}}});
  run.roles.main = 0;
  EXPECT_EQ(run.Report(RunDescriptives),
            FramedError("Descriptive Analysis: ", "You must select a dependent variable."));
}

TEST(Descriptives, MedianOfOddAndEvenCounts) {
  DescriptiveCases odd{.values = {5, 1, 9}, .sum = 15, .excluded = 0};
  EXPECT_EQ(ComputeDescriptives(odd).median.value(), 5);
  DescriptiveCases even{.values = {5, 1, 9, 2}, .sum = 17, .excluded = 0};
  EXPECT_EQ(ComputeDescriptives(even).median.value(), 3.5);
}

TEST(Descriptives, TheControlStandsAheadOfTheTitleAndItsCasesCountAsMissing) {
  TestRun run({{"X", Texts({"1", "2", "3", "4"}), "", "", {}}, {"C", Texts({"1", "1", "2", ""}), "", "", {}}});
  run.Control(2, ControlRelation::kLessThan, "2");
  const std::string report = run.Report(RunDescriptives);
  EXPECT_EQ(report.rfind("Controlling for C < 2\r\n\r\nDescriptive Statistics\r\n", 0), 0u);
  EXPECT_NE(report.find("Count                          2 "), std::string::npos);
  EXPECT_NE(report.find("Missing Cases    2\r\n"), std::string::npos);
}

// The numeric test comes ahead of the control: an x that the control would exclude is not counted as missing either.
TEST(Descriptives, ANonNumericCellIsPassedOverAheadOfTheControl) {
  TestRun run({{"X", Texts({"1", "x", "3"}), "", "", {}}, {"C", Texts({"1", "2", "1"}), "", "", {}}});
  run.Control(2, ControlRelation::kEqualTo, "1");
  const std::string report = run.Report(RunDescriptives);
  EXPECT_NE(report.find("Count                          3 "), std::string::npos);
  EXPECT_NE(report.find("Missing Cases    0\r\n"), std::string::npos);
}

// Five bars of width 1.4 over 2 to 9; counts 1, 5, 0, 1, 1, so that the tallest has 20 X and one of a fifth has 4.
TEST(Descriptives, TheBarChartStandsAtTheEndOfTheReport) {
  TestRun run({{"X", Texts({"2", "4", "4", "4", "5", "4.5", "7", "9"}), "", "", {}}});
  run.options.descriptives.bar_chart = true;
  const std::string rule = std::string(65, '-') + "\r\n";
  const std::string report = run.Report(RunDescriptives);
  EXPECT_EQ(report.substr(report.find("Missing Cases")),
            "Missing Cases    0\r\n"
            "\r\n\r\n\r\n"
            "                       Horizontal Bar Chart\r\n" +
                rule +
                "Bar Interval                      Count\r\n"
                "----------------------           ------\r\n"
                "2.00 to 3.40                          1  XXXX\r\n"
                "3.40 to 4.80                          4  XXXXXXXXXXXXXXXXXXXX\r\n"
                "4.80 to 6.20                          1  XXXX\r\n"
                "6.20 to 7.60                          1  XXXX\r\n"
                "7.60 to 9.00                          1  XXXX\r\n"
                "\r\n" +
                rule);
}

// The eight values of the whole report above: mean 5, median 4.5. Five intervals of 1.4 from 2 to 9.
TEST(Descriptives, LeavesThreeChartsAndAShortSummary) {
  TestRun run({{"SCORE", Texts({"2", "4", "99", "4", "4", "5", "", "5", "7", "9"}), "Test score", "99||||||", {}},
               {"C", Texts({"1", "1", "1", "1", "1", "1", "1", "1", "1", "1"})}});
  run.Control(2, ControlRelation::kEqualTo, "1");
  run.Report(RunDescriptives);
  EXPECT_EQ(run.charts.kind, ChartKind::kDescriptives);
  std::string expected;
  for (const char* title : {"Histogram", "Line Chart", "Line/Hist"}) {
    expected += std::string("chart\t") + title +
                "\tSCORE\tFrequency\tControlling for C = 1\r\n"
                "2.00 to 3.40\t1\r\n"
                "3.40 to 4.80\t3\r\n"
                "4.80 to 6.20\t2\r\n"
                "6.20 to 7.60\t1\r\n"
                "7.60 to 9.00\t1\r\n";
  }
  EXPECT_EQ(ChartsText(run.charts), expected);
  ASSERT_EQ(run.charts.charts.size(), 3u);
  EXPECT_EQ(run.charts.charts[0].type, ChartType::kHistogram);
  EXPECT_EQ(run.charts.charts[1].type, ChartType::kLine);
  EXPECT_EQ(run.charts.charts[2].type, ChartType::kHistogramAndLine);
  EXPECT_EQ(run.charts.summary,
            "Controlling for C = 1\r\n"
            "\r\n"
            "Descriptive Statistics\r\n"
            "Variable: SCORE\r\n"
            "Label: Test score\r\n"
            "Count                8.0000\r\n"
            "Mean                 5.0000\r\n"
            "Median               4.5000\r\n"
            "Min                  2.0000\r\n"
            "Max                  9.0000\r\n"
            "Missing Cases    2\r\n");
}

TEST(Descriptives, NeitherChartsNorASummaryUnlessTheyAreWanted) {
  TestRun run({{"X", Texts({"1", "2"})}, {"Y", Texts({"1", "2"})}});
  run.wants_charts = false;
  run.Report(RunDescriptives);
  EXPECT_TRUE(run.charts.charts.empty());
  EXPECT_EQ(run.charts.summary, "");
}

TEST(Descriptives, ChartsStandBesideTheTextChartAndTheZScores) {
  TestRun run({{"X", Texts({"1", "2", "3"})}});
  run.options.descriptives.bar_chart = true;
  run.options.descriptives.save_z_scores = true;
  const std::string report = run.Report(RunDescriptives);
  EXPECT_NE(report.find("1.00 to 1.40                          1  XXXXXXXXXXXXXXXXXXXX\r\n"), std::string::npos);
  EXPECT_EQ(run.charts.charts.size(), 3u);
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstRecordRow, 2)), "-1.00000");
}

TEST(Descriptives, ARunThatEndsInTheFrameLeavesNoCharts) {
  TestRun run({{"X", Texts({"1"})}});
  KeepCharts(run.charts, ChartKind::kDescriptives, {BarsChart("old", "", "", {}, {})});
  run.charts.summary = "old";
  run.Report(RunDescriptives);
  EXPECT_TRUE(run.charts.charts.empty());
  EXPECT_EQ(run.charts.summary, "");
}

class ZScores : public testing::Test {
 protected:
  // Mean 4, sample deviation 2: z is -1, 0 and 1.
  TestRun run{{{"X", Texts({"2", "", "4", "6", "x"}), "", "9||||||", {"2=two"}},
               {"C", Texts({"1", "1", "1", "1", "1"}), "", "", {}},
               {"EMPTY", {}, "", "", {}}}};

  std::string Z(std::size_t record) { return TextOf(run.data.matrix.Cell(kHeaderRowCount + record, 4)); }
};

TEST_F(ZScores, StandInANewColumnBehindTheFullData) {
  run.options.descriptives.save_z_scores = true;
  run.Report(RunDescriptives);
  ASSERT_EQ(run.data.VariableCount, 4u);
  ASSERT_EQ(run.data.RecordCount, 5u);
  EXPECT_EQ(Z(1), "-1.00000");
  EXPECT_TRUE(run.data.matrix.Cell(kHeaderRowCount + 2, 4).is_empty());
  EXPECT_EQ(Z(3), "0.00000");
  EXPECT_EQ(Z(4), "1.00000");
  EXPECT_TRUE(run.data.matrix.Cell(kHeaderRowCount + 5, 4).is_empty());
  EXPECT_EQ(run.data.VarList.back().name, "Z-X");
}

TEST_F(ZScores, TakeTheDictionaryOfTheirSource) {
  MatrixEditor(run.data).SetText(0, 1, "banner");
  run.options.descriptives.save_z_scores = true;
  run.Report(RunDescriptives);
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kVariableNameRow, 4)), "Z-X");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kMissingSpecRow, 4)), "9||||||");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kFirstValueLabelRow, 4)), "2=two");
  EXPECT_EQ(TextOf(run.data.matrix.Cell(kVariableLabelRow, 4)), "X");  // an empty label is replaced by the name
  EXPECT_TRUE(run.data.matrix.Cell(0, 4).is_empty());
}

TEST_F(ZScores, KeepALabelAndDoNotCutTheName) {
  MatrixEditor(run.data).SetText(kVariableLabelRow, 1, "Score");
  MatrixEditor(run.data).SetText(kVariableNameRow, 1, "LONGNAME");
  run.options.descriptives.save_z_scores = true;
  run.Report(RunDescriptives);
  EXPECT_EQ(run.data.VariableName(4), "Z-LONGNAME");
  EXPECT_EQ(run.data.VariableLabel(4), "Score");
}

TEST_F(ZScores, OfEqualValuesStayEmpty) {
  for (const std::size_t record : {1u, 3u, 4u}) MatrixEditor(run.data).SetText(kHeaderRowCount + record, 1, "5");
  MatrixEditor(run.data).SetEmpty(kHeaderRowCount + 5, 1);
  run.options.descriptives.save_z_scores = true;
  run.Report(RunDescriptives);
  for (std::size_t record = 1; record <= 5; ++record) {
    EXPECT_TRUE(run.data.matrix.Cell(kHeaderRowCount + record, 4).is_empty());
  }
}

// The report's "not equal to" compares texts, the scores' compares numbers: against 1 the cell 1.0 is in the report
// only.
TEST_F(ZScores, TheirNotEqualToComparesNumbers) {
  MatrixEditor(run.data).SetText(kFirstRecordRow, 2, "1.0");
  MatrixEditor(run.data).SetText(kFirstRecordRow + 2, 2, "2");
  MatrixEditor(run.data).SetText(kFirstRecordRow + 3, 2, "x");
  run.Control(2, ControlRelation::kNotEqualTo, "1");
  run.options.descriptives.save_z_scores = true;
  const std::string report = run.Report(RunDescriptives);
  EXPECT_NE(report.find("Mean                           4.0000"), std::string::npos);
  EXPECT_TRUE(run.data.matrix.Cell(kFirstRecordRow, 4).is_empty());
  EXPECT_EQ(Z(3), "0.00000");
  EXPECT_EQ(Z(4), "1.00000");  // a conversion that fails lets the case pass
}

TEST(Descriptives, AStepOfTheSumThatOverflowsIsAbandonedAlone) {
  TestRun run({{"X", Texts({"1e308", "1e308", "-1e308", "3"}), "", "", {}}});
  const std::string report = run.Report(RunDescriptives);
  EXPECT_NE(report.find("Sum                            3.0000"), std::string::npos) << report;
}

// Against a literal reading of the passes, on columns in which every kind of cell occurs.
TEST(Descriptives, AgreesWithTheLiteralPasses) {
  std::mt19937 random(3);
  const char* texts[] = {"1", "2.5", "-3", "x", "", "99", "7", "1,000"};
  for (int round = 0; round < 500; ++round) {
    std::vector<TaggedValue> cells, control_cells;
    for (int i = 0; i < 12; ++i) {
      cells.emplace_back(texts[random() % std::size(texts)]);
      control_cells.emplace_back(random() % 3 == 0 ? "2" : "1");
    }
    DataSet data =
        MakeTestData({{"X", cells, "", round % 2 ? "99||||||" : "99|||||500|", {}}, {"C", control_cells, "", "", {}}});
    const MissingValues missing = LoadMissingSet(data.matrix, 1);
    const CaseSource source = CasesOfAllRecords(data, round % 3 == 0 ? 2 : 0, {ControlRelation::kEqualTo, "1"});
    const CaseControl& control = source.control;

    std::vector<double> array;
    double sum = 0;
    std::size_t excluded = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (missing.IsMissing(cells[i])) {
        ++excluded;
        continue;
      }
      if (!IsNumeric(cells[i].view())) continue;
      if (control.active() && !control.CasePasses(control_cells[i])) {
        ++excluded;
        continue;
      }
      const double x = ToNumber(cells[i].view()).value();
      sum += x;
      array.resize(std::max(array.size(), i - excluded + 1));
      array[i - excluded] = x;
    }
    DescriptiveCases cases = GatherDescriptives(source, 1);
    ASSERT_EQ(cases.values, array);
    ASSERT_EQ(cases.sum, sum);
    ASSERT_EQ(cases.excluded, excluded);
    if (array.size() < 2) continue;
    const auto n = static_cast<double>(array.size());
    const double mean = sum / n;
    double squares = 0, cubes = 0;
    for (const double x : array) squares += (x - mean) * (x - mean);
    for (const double x : array) cubes += std::pow(x - mean, 3);
    const DescriptiveStatistics result = ComputeDescriptives(cases);
    ASSERT_EQ(result.mean.value(), mean);
    if (*std::min_element(array.begin(), array.end()) == *std::max_element(array.begin(), array.end())) {
      ASSERT_EQ(result.population_variance.value(), 0);
      continue;
    }
    ASSERT_EQ(result.population_variance.value(), squares / n);
    ASSERT_EQ(result.sample_variance.value(), squares / (n - 1));
    ASSERT_NEAR(result.standard_error.value(), std::sqrt(squares) / (n - 1), 1e-9 * std::sqrt(squares));
    ASSERT_NEAR(result.skewness.value(), cubes / n / std::pow(std::sqrt(squares / n), 3), 1e-9);
  }
}

}  // namespace
}  // namespace tessara
