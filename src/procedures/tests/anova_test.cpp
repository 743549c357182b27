#include "procedures/compare/anova.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

// The figures of whole reports were computed with scipy (f_oneway for F and its p, t.sf for the pairs) and numpy, and
// laid out by the rules of the report.

namespace tessara {
namespace {

const std::string kAnalysisHead =
    "\r\n\r\n\r\n\r\n"
    "Analysis of Variance\r\n"
    "\r\n"
    "                      Sum of Squares        df        Mean Squares \r\n"
    "                 -------------------    ------   -----------------\r\n";
const std::string kFHead =
    "\r\n\r\n"
    "                    F Statistic             p <\r\n"
    "                  -------------          ------\r\n";
const std::string kSummaryHead =
    "Group Summary Statistics\r\n"
    "\r\n"
    "               Group          N            Mean        Std. Dev. \r\n"
    "----------------------------------------------------------------\r\n";
const std::string kPostHocHead =
    "\r\n\r\n"
    "Bonferroni Post Hoc Comparison of Means (Assume homogeneity of variance)\r\n"
    "\r\n"
    "             Group 1              Group 2         G1-G2           SE        p< \r\n"
    "------------------------------------------------------------------------------\r\n";

struct AnovaRun : TestRun {
  explicit AnovaRun(const std::vector<TestColumn>& columns, bool summary = false, bool post_hoc = false)
      : TestRun(columns) {
    Independent(2);
    options.anova.summary = summary;
    options.anova.post_hoc = post_hoc;
  }
  std::string Report() { return TestRun::Report(RunAnova); }
};

// Columns Y and G from the values of each group.
std::vector<TestColumn> Groups(const std::vector<std::pair<const char*, std::vector<double>>>& groups) {
  TestColumn y{"Y"};
  TestColumn g{"G"};
  for (const auto& [name, values] : groups) {
    for (const double value : values) {
      y.cells.emplace_back(value);
      g.cells.emplace_back(name);
    }
  }
  return {y, g};
}

std::string From(const std::string& report, const std::string& part) {
  const std::size_t at = report.find(part);
  return at == std::string::npos ? "" : report.substr(at);
}

// Low: 4 5 6 5; Middle: 7 9 8; High: 5 6 7 8 9.5. A missing score, a score that is no number, a missing group and an
// excluded case are no part of them.
std::vector<TestColumn> Scores() {
  return {
      {"SCORE", Texts({"4", "7", "5", "5", "999", "6", "9", "6", "twelve", "5", "8", "7", "100", "8", "200", "9.5"}),
       "Score in the test", "999||||||"},
      {"LEVEL",
       Texts({"1", "2", "3", "1", "1", "1", "2", "3", "2", "1", "2", "3", "9", "3", "1", "3"}),
       "Level of the course",
       "9||||||",
       {"1=Low", "2=Middle", "3=High"}},
      {"YEAR", Texts({"1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "2", "1"})}};
}

const std::string kScoresAnalysis = kAnalysisHead +
                                    "Between Groups                 17.36         2                8.68\r\n"
                                    " Within Groups                 16.20         9                1.80\r\n"
                                    "         Total                 33.56        11    " +
                                    kFHead + "                           4.82          0.0377\r\n\r\n\r\n";
const std::string kScoresSummary = kSummaryHead +
                                   "                 Low          4          5.0000           0.8165\r\n"
                                   "              Middle          3          8.0000           1.0000\r\n"
                                   "                High          5          7.1000           1.7464\r\n";
// The raw p of Middle and High is 0.45; three pairs would make 1.36 of it.
const std::string kScoresPostHoc = kPostHocHead +
                                   "                 Low               Middle        -3.000        0.683    0.0212\r\n"
                                   "                 Low                 High        -2.100        0.955    0.1918\r\n"
                                   "              Middle                  Low         3.000        0.683    0.0212\r\n"
                                   "              Middle                 High         0.900        1.123    1.0000\r\n"
                                   "                High                  Low         2.100        0.955    0.1918\r\n"
                                   "                High               Middle        -0.900        1.123    1.0000\r\n";
const std::string kScoresHead =
    "Controlling for YEAR = 1\r\n"
    "\r\n"
    "Analysis of Variance (ANOVA) --- SCORE (Means)  by  LEVEL (Groups)\r\n"
    "\r\n"
    "Independent Variable Label: Level of the course\r\n"
    "Dependent Variable Label: Score in the test\r\n";

TEST(Anova, WholeReportWithBothBoxes) {
  AnovaRun run(Scores(), true, true);
  run.Control(3, ControlRelation::kEqualTo, "1");
  EXPECT_EQ(run.Report(), kScoresHead + "\r\n\r\n" + kScoresSummary + kScoresAnalysis + kScoresPostHoc);
  EXPECT_FALSE(run.aborted);
}

TEST(Anova, EitherBoxAddsItsPart) {
  AnovaRun summary(Scores(), true, false);
  summary.Control(3, ControlRelation::kEqualTo, "1");
  EXPECT_EQ(summary.Report(), kScoresHead + "\r\n\r\n" + kScoresSummary + kScoresAnalysis);
  AnovaRun post_hoc(Scores(), false, true);
  post_hoc.Control(3, ControlRelation::kEqualTo, "1");
  EXPECT_EQ(post_hoc.Report(), kScoresHead + kScoresAnalysis + kScoresPostHoc);
}

// The groups 10 and 9 in the order of texts; no labels, no control, no boxes.
TEST(Anova, WholeReportWithBothBoxesClear) {
  AnovaRun run(Groups({{"9", {4, 5, 6, 5}}, {"10", {7, 9, 8}}}));
  EXPECT_EQ(run.Report(),
            "Analysis of Variance (ANOVA) --- Y (Means)  by  G (Groups)\r\n"
            "\r\n"
            "Independent Variable Label: \r\n"
            "Dependent Variable Label: \r\n" +
                kAnalysisHead +
                "Between Groups                 15.43         1               15.43\r\n"
                " Within Groups                  4.00         5                0.80\r\n"
                "         Total                 19.43         6    " +
                kFHead + "                          19.29          0.0071\r\n\r\n\r\n");
  run.options.anova.summary = true;
  EXPECT_EQ(From(run.Report(), kSummaryHead).substr(kSummaryHead.size(), 132),
            "                  10          3          8.0000           1.0000\r\n"
            "                   9          4          5.0000           0.8165\r\n");
}

TEST(Anova, BothVariablesMustBeSelected) {
  const char* sentence = "You must select a dependent and independent variable.";
  AnovaRun run(Groups({{"a", {1, 2}}, {"b", {3, 4}}}));
  run.roles.main = 0;
  EXPECT_EQ(run.Report(), FramedError("ANOVA Comparison:  by G", sentence));
  run.roles.main = 1;
  run.roles.independent = 0;
  EXPECT_EQ(run.Report(), FramedError("ANOVA Comparison: Y by ", sentence));
  EXPECT_TRUE(run.aborted);
}

TEST(Anova, WithoutObservationsTheGroupPassHasTheWord) {
  AnovaRun run({{"Y", Texts({"x", "", "3"})}, {"G", Texts({"1", "2", ""})}});
  EXPECT_EQ(run.Report(), FramedError("Summary Comparison: Y by G", "There are no observations."));
  EXPECT_TRUE(run.aborted);
  AnovaRun no_records({{"Y"}, {"G"}});
  EXPECT_EQ(no_records.Report(), FramedError("Summary Comparison: Y by G", "There are no observations."));
}

// No pair, no degree of freedom between: both mean squares, F and p keep their empty value, though the one within could
// be told.
TEST(Anova, ASingleGroup) {
  AnovaRun run(Groups({{"1", {4, 5, 6, 5}}}), true, true);
  EXPECT_EQ(From(run.Report(), "Group Summary"),
            kSummaryHead + "                   1          4          5.0000           0.8165\r\n" + kAnalysisHead +
                "Between Groups                  0.00         0                0.00\r\n"
                " Within Groups                  2.00         3                0.00\r\n"
                "         Total                  2.00         3    " +
                kFHead + "                           0.00          0.0000\r\n\r\n\r\n" + kPostHocHead);
}

// The deviations of a and b divide by 0: ahead of any other group they are 0. The first pair has no degree of freedom
// and nothing before it; b and a keep deviation and p of a and c, and so does their error: the root of 2 times 1.
TEST(Anova, GroupsOfOneCaseAheadOfOthers) {
  AnovaRun run(Groups({{"a", {5}}, {"b", {7}}, {"c", {1, 2, 3}}}), true, true);
  EXPECT_EQ(From(run.Report(), "Group Summary"),
            kSummaryHead +
                "                   a          1          5.0000           0.0000\r\n"
                "                   b          1          7.0000           0.0000\r\n"
                "                   c          3          2.0000           1.0000\r\n" +
                kAnalysisHead +
                "Between Groups                 21.20         2               10.60\r\n"
                " Within Groups                  2.00         2                1.00\r\n"
                "         Total                 23.20         4    " +
                kFHead + "                          10.60          0.0862\r\n\r\n\r\n" + kPostHocHead +
                "                   a                    b        -2.000        0.000    0.0000\r\n"
                "                   a                    c         3.000        1.155    0.3651\r\n"
                "                   b                    a         2.000        1.414    0.3651\r\n"
                "                   b                    c         5.000        1.155    0.1482\r\n"
                "                   c                    a        -3.000        1.155    0.3651\r\n"
                "                   c                    b        -5.000        1.155    0.1482\r\n");
}

TEST(Anova, AGroupOfOneCaseKeepsTheDeviationOfTheGroupBeforeIt) {
  AnovaRun run(Groups({{"a", {1, 2, 3}}, {"b", {5}}, {"c", {7}}, {"d", {1, 5}}}), true);
  EXPECT_EQ(From(run.Report(), kSummaryHead).substr(kSummaryHead.size(), 4 * 66),
            "                   a          3          2.0000           1.0000\r\n"
            "                   b          1          5.0000           1.0000\r\n"
            "                   c          1          7.0000           1.0000\r\n"
            "                   d          2          3.0000           2.8284\r\n");
}

// Neither mean square within nor F nor p can be told.
TEST(Anova, EveryGroupOfOneCase) {
  AnovaRun run(Groups({{"a", {1}}, {"b", {3}}, {"c", {8}}}), false, false);
  EXPECT_EQ(From(run.Report(), "Between Groups"),
            "Between Groups                 26.00         2               13.00\r\n"
            " Within Groups                  0.00         0                0.00\r\n"
            "         Total                 26.00         2    " +
                kFHead + "                           0.00          0.0000\r\n\r\n\r\n");
}

// F divides by 0 and keeps 0, whose upper tail is 1.
TEST(Anova, NoVarianceWithinTheGroups) {
  AnovaRun run(Groups({{"a", {1, 1}}, {"b", {3, 3}}}), false, false);
  EXPECT_EQ(From(run.Report(), "Between Groups"),
            "Between Groups                  4.00         1                4.00\r\n"
            " Within Groups                  0.00         2                0.00\r\n"
            "         Total                  4.00         3    " +
                kFHead + "                           0.00          1.0000\r\n\r\n\r\n");
}

// A and B have an error of 0, so that their t cannot be told: the first time it is 0, the second time that of A and C.
TEST(Anova, APairWithoutSpreadKeepsTheTOfThePairBefore) {
  AnovaRun run(Groups({{"A", {1, 1}}, {"B", {3, 3}}, {"C", {2, 4}}}), false, true);
  EXPECT_EQ(From(run.Report(), kPostHocHead),
            kPostHocHead +
                "                   A                    B        -2.000        0.000    1.0000\r\n"
                "                   A                    C        -2.000        1.000    0.5505\r\n"
                "                   B                    A         2.000        0.000    0.5505\r\n"
                "                   B                    C         0.000        1.000    1.0000\r\n"
                "                   C                    A         2.000        1.000    0.5505\r\n"
                "                   C                    B         0.000        1.000    1.0000\r\n");
}

// A t whose p is 0.4 alone: with 2 degrees of freedom p is 1 - t / sqrt(2 + t^2), so t^2 = 2 * 0.36 / 0.64 = 1.125.
// Group a has the mean 0 and squares of 1, and so has each other about sqrt(1.125) times the error, which is 1.
TEST(Anova, APOfFourTenthsAndThreePairsPrintsOne) {
  const double mean = 1.0606601717798212;  // the root of 1.125
  GroupStats stats;
  stats.groups = {{"a", 2, 0, 1}, {"b", 2, mean, 1}, {"c", 2, 2 * mean, 1}};
  const std::vector<PostHocRow> rows = ComputePostHoc(stats);
  ASSERT_EQ(rows.size(), 6u);
  EXPECT_EQ(rows[0].error.value(), 1);
  EXPECT_EQ(rows[0].p.value(), 1);
  stats.groups.pop_back();  // a single pair is multiplied by 1
  EXPECT_NEAR(ComputePostHoc(stats)[0].p.value(), 0.4, 1e-7);
}

TEST(Anova, EqualMeansLeaveNothingBetweenTheGroups) {
  AnovaRun run(Groups({{"a", {0.1, 0.3, 0.2}}, {"b", {0.3, 0.2, 0.1}}, {"c", {0.2, 0.1, 0.3}}}), false, false);
  EXPECT_EQ(From(run.Report(), "Between Groups"),
            "Between Groups                  0.00         2                0.00\r\n"
            " Within Groups                  0.06         6                0.01\r\n"
            "         Total                  0.06         8    " +
                kFHead + "                           0.00          1.0000\r\n\r\n\r\n");
}

// Three groups with the same mean have nothing between them. For many of these means the doubles leave a little less
// than nothing, which would be no sum of squares and give an F without a p.
TEST(Anova, RoundingBringsNoSumOfSquaresBelowZero) {
  for (int numerator = 1; numerator < 400; ++numerator) {
    GroupStats stats;
    const double mean = numerator / 7.0;
    stats.groups = {{"a", 3, mean, 1}, {"b", 11, mean, 1}, {"c", 6, mean, 1}};
    const AnovaTable table = ComputeAnova(stats);
    EXPECT_GE(table.between_squares.value(), 0) << mean;
    EXPECT_GE(table.f.value(), 0) << mean;
    EXPECT_TRUE(table.p.has_value()) << mean;  // a negative F has none
  }
}

// 29 times 98765432.1: as sums, the squares between the groups would round to 64.
TEST(Anova, EqualValuesHaveNoDeviationBetweenTheirGroups) {
  const auto times = [](std::size_t count) { return std::vector<double>(count, 98765432.1); };
  AnovaRun run(Groups({{"a", times(7)}, {"b", times(7)}, {"c", times(15)}}), false, false);
  EXPECT_NE(run.Report().find("Between Groups                  0.00         2                0.00\r\n"
                              " Within Groups                  0.00        26                0.00\r\n"
                              "         Total                  0.00        28    \r\n"),
            std::string::npos);
}

// 1E+308 less -1E+308 fails: the pair keeps the difference of the one before it, once from either side.
TEST(Anova, ADifferenceBeyondTheRangeKeepsTheOneBefore) {
  AnovaRun run(Groups({{"a", {1, 3}}, {"b", {1e308}}, {"c", {-1e308}}}), false, true);
  const std::string report = run.Report();
  const std::string huge = "1" + std::string(308, '0') + ".000";
  EXPECT_NE(report.find(" b                    a   " + huge), std::string::npos) << report;
  EXPECT_NE(report.find(" b                    c   " + huge), std::string::npos);
  EXPECT_NE(report.find(" c                    b   -" + huge), std::string::npos);
}

TEST(Anova, TooManyGroupsForThePostHocList) {
  TestColumn y{"Y"};
  TestColumn g{"G"};
  for (std::size_t i = 0; i <= kMostPostHocGroups; ++i) {
    y.cells.emplace_back(static_cast<double>(i % 7) + 1);
    g.cells.emplace_back(static_cast<double>(i) + 1);
  }
  AnovaRun run({y, g}, false, true);
  EXPECT_EQ(From(run.Report(), "\r\n\r\n\r\n\r\n\r\nBonferroni"),
            "\r\n\r\n\r\n\r\n\r\nBonferroni Post Hoc Comparison of Means (Assume homogeneity of variance)\r\n"
            "\r\n"
            "There are too many groups for post hoc comparisons.\r\n");
}

// A thousand groups are listed; the list itself, a million rows, would take a test too long.
TEST(Anova, AThousandGroupsHaveTheirPostHocList) {
  EXPECT_TRUE(HasPostHocList(1));
  EXPECT_TRUE(HasPostHocList(1000));
  EXPECT_FALSE(HasPostHocList(1001));
}

TEST(Anova, HugeValuesLeaveFailingFiguresAtZero) {
  AnovaRun run(Groups({{"a", {1e308, 9e307}}, {"b", {-1e308, -9e307}}}), true, true);
  const std::string report = run.Report();
  EXPECT_NE(report.find("Between Groups                  0.00         1                0.00\r\n"), std::string::npos);
  EXPECT_FALSE(run.aborted);
}

TEST(Anova, LeavesNoChart) {
  AnovaRun run(Groups({{"a", {1, 2}}, {"b", {3, 5}}}));
  run.charts.kind = ChartKind::kTTest;
  run.charts.charts.resize(2);
  run.Report();
  EXPECT_EQ(run.charts.kind, ChartKind::kNone);
  EXPECT_TRUE(run.charts.charts.empty());
}

}  // namespace
}  // namespace tessara
