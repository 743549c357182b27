#include "procedures/describe/frequencies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "data/used_range.h"
#include "numerics/number_text.h"
#include "numerics/text.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

const std::string kRule = std::string(65, '-') + "\r\n";
const std::string kHead = "Value                       Count       Percent      Cumulative\r\n" + kRule;

// The lines of the category table alone.
std::string TableLines(const std::string& report) {
  const std::size_t start = report.find(kHead) + kHead.size();
  return report.substr(start, report.find(kRule, start) - start);
}

std::string TableOf(std::vector<TaggedValue> cells, const std::string& missing_spec = {},
                    const std::vector<std::string>& labels = {}) {
  TestRun run({{"X", std::move(cells), "", missing_spec, labels}});
  return TableLines(run.Report(RunFrequencies));
}

// 10 cases of 12: 3, 5 and 2 of them; the index is 3 * (100 - 38) / (100 * 2) = 0.93.
TEST(Frequencies, WholeReportWithLabelsAndDispersion) {
  TestRun run({{"SMOKE",
                Texts({"2", "1", "2", "10", "9", "2", "1", "2", "", "10", "1", "2"}),
                "Smoker",
                "9||||||",
                {"1=Yes", "2=No"}},
               {"ID", Texts({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12"}), "", "", {}}});
  run.options.frequencies.dispersion = true;
  EXPECT_EQ(run.Report(RunFrequencies),
            "Frequencies\r\n"
            "\r\n"
            "Variable: SMOKE     Smoker\r\n"
            "\r\n"
            "Value                       Count       Percent      Cumulative\r\n"
            "-----------------------------------------------------------------\r\n"
            "Yes                             3        30.00          30.00\r\n"
            "No                              5        50.00          80.00\r\n"
            "10                              2        20.00         100.00\r\n"
            "-----------------------------------------------------------------\r\n"
            "                  Total        10\r\n"
            "                Missing         2\r\n"
            "\r\n"
            "\r\n"
            "Nominal/Ordinal Measure of Variation\r\n"
            "-----------------------------------------------------------------\r\n"
            "\r\n"
            "Index of Dispersion\t\t 0.930       (Assumes 3 categories)\r\n"
            "\r\n"
            "\r\n\r\n\r\n");
  EXPECT_FALSE(run.aborted);
}

TEST(Frequencies, ANegativeValueShiftsTheOthersByOne) {
  TestRun run({{"TEMP", Texts({"0", "2.5", "-1", "0"}), "", "", {}}});
  EXPECT_EQ(run.Report(RunFrequencies),
            "Frequencies\r\n"
            "\r\n"
            "Variable: TEMP     \r\n"
            "\r\n"
            "Value                       Count       Percent      Cumulative\r\n"
            "-----------------------------------------------------------------\r\n"
            "-1                              1        25.00          25.00\r\n"
            " 0                              2        50.00          75.00\r\n"
            " 2.5                            1        25.00         100.00\r\n"
            "-----------------------------------------------------------------\r\n"
            "                  Total         4\r\n"
            "                Missing         0\r\n"
            "\r\n"
            "\r\n"
            "\r\n\r\n\r\n");
}

TEST(Frequencies, TheShiftLooksAtTheValueAndNotAtItsLabel) {
  EXPECT_EQ(TableOf(Texts({"-1", "1"}), "", {"-1=Cold", "1=Warm"}),
            "Cold                            1        50.00          50.00\r\n"
            " Warm                           1        50.00         100.00\r\n");
}

// A text cannot be compared with 0: the flag is set, and every row test fails into its branch.
TEST(Frequencies, ATextVariableIsSortedByCharacterCodeAndShifted) {
  EXPECT_EQ(TableOf(Texts({"abc", "ABC", "b", "abc"})),
            " ABC                            1        25.00          25.00\r\n"
            " abc                            2        50.00          75.00\r\n"
            " b                              1        25.00         100.00\r\n");
}

TEST(Frequencies, OneAndOnePointZeroAreTwoCategories) {
  EXPECT_EQ(TableOf(Texts({"1.0", "1", "1.0"})),
            "1                               1        33.33          33.33\r\n"
            "1.0                             2        66.67         100.00\r\n");
}

TEST(Frequencies, NumbersSortByValue) {
  EXPECT_EQ(TableOf(Texts({"10", "9", "1e1", "-2"})),
            "-2                              1        25.00          25.00\r\n"
            " 9                              1        25.00          50.00\r\n"
            " 10                             1        25.00          75.00\r\n"
            " 1e1                            1        25.00         100.00\r\n");
}

// Only the values ahead of the first text are padded, so the 5 ahead of it and the 5 behind it are two rows.
TEST(Frequencies, MixedTextAndNumbersPadOnlyAheadOfTheFirstText) {
  EXPECT_EQ(TableOf(Texts({"5", "x", "5", "10"})),
            " 5                              1        25.00          25.00\r\n"
            " 10                             1        25.00          50.00\r\n"
            " 5                              1        25.00          75.00\r\n"
            " x                              1        25.00         100.00\r\n");
}

TEST(Frequencies, NumberCellsBehindTheFirstTextComeAheadOfAllTexts) {
  EXPECT_EQ(TableOf({"x", TaggedValue(7.0), TaggedValue(-7.0), "7"}),
            "-7                              1        25.00          25.00\r\n"
            " 7                              1        25.00          50.00\r\n"
            " 7                              1        25.00          75.00\r\n"
            " x                              1        25.00         100.00\r\n");
}

TEST(Frequencies, ALongTextIsCutToTheColumn) {
  EXPECT_EQ(TableOf(Texts({"abcdefghijklmnopqrstuvwxyz"})),
            " abcdefghijklmnopqrst           1       100.00         100.00\r\n");
}

TEST(Frequencies, BlanksAroundANumberAreTrimmedOnlyForItsLabel) {
  EXPECT_EQ(TableOf(Texts({" 1", "1", "1 "}), "", {"1=Yes"}),
            "Yes                             2        66.67          66.67\r\n"
            "Yes                             1        33.33         100.00\r\n");
}

TEST(Frequencies, TheNumberZeroIsBlankAndTheTextZeroIsNot) {
  EXPECT_EQ(TableOf({"0", TaggedValue(0.0), "1"}),
            "0                               1        50.00          50.00\r\n"
            "1                               1        50.00         100.00\r\n");
}

TEST(Frequencies, OneCategoryHasADispersionOfZero) {
  TestRun run({{"X", Texts({"1", "1"}), "", "", {}}});
  run.options.frequencies.dispersion = true;
  EXPECT_NE(run.Report(RunFrequencies).find("Index of Dispersion\t\t 0.000       (Assumes 1 category)\r\n"),
            std::string::npos);
}

// Seven categories of equal size: the index is 1 in exact arithmetic, whatever the doubles make of it.
TEST(Frequencies, AnIndexAboveOneThroughRoundingIsOne) {
  FrequencyCases cases;
  for (std::size_t k = 1; k <= 60; ++k) {
    cases.categories.assign(k, {TaggedValue("x"), 7, false});
    cases.accepted = 7 * k;
    cases.record_count = 7 * k;
    EXPECT_LE(ComputeFrequencies(cases).index_of_dispersion.value(), 1.0);
    if (k > 1) {
      EXPECT_NEAR(ComputeFrequencies(cases).index_of_dispersion.value(), 1.0, 1e-12);
    }
  }
}

TEST(Frequencies, AllCasesMissingGivesTheErrorFrame) {
  TestRun run({{"X", Texts({"9", "9"}), "", "9||||||", {}}, {"Y", Texts({"1", "1"}), "", "", {}}});
  EXPECT_EQ(run.Report(RunFrequencies),
            FramedError("Frequency Analysis: X", "There are no observations, so the procedure was aborted."));
  EXPECT_TRUE(run.aborted);
}

TEST(Frequencies, WithoutAVariableTheErrorFrameHasAnEmptyName) {
  TestRun run({{"X", Texts({"1"}), "", "", {}}});
  run.roles.main = 0;
  EXPECT_EQ(run.Report(RunFrequencies), FramedError("Frequency Analysis: ", "You must select a dependent variable."));
}

TEST(Frequencies, MissingCountsTheCasesThatTheControlExcluded) {
  TestRun run({{"X", Texts({"1", "2", "2", ""}), "", "", {}}, {"SEX", Texts({"1", "2", "1", "1"}), "", "", {}}});
  run.Control(2, ControlRelation::kEqualTo, "1");
  const std::string report = run.Report(RunFrequencies);
  EXPECT_EQ(report.rfind("Controlling for SEX = 1\r\n\r\nFrequencies\r\n\r\n", 0), 0u);
  EXPECT_NE(report.find("                  Total         2\r\n                Missing         2\r\n"),
            std::string::npos);
  EXPECT_EQ(run.footnote, "Controlling for SEX = 1");
}

TEST(Frequencies, MissingCountsTheTrimmedRecordsAndTheCountsReturn) {
  TestRun run({{"X", Texts({"1", "", "1", "", ""}), "", "", {}}, {"Y", Texts({"", "", "", "5", ""}), "", "", {}}});
  const std::string report = run.Report(RunFrequencies);
  EXPECT_NE(report.find("                  Total         2\r\n                Missing         2\r\n"),
            std::string::npos);
  EXPECT_EQ(run.data.RecordCount, 5u);
  EXPECT_EQ(run.data.VariableCount, 2u);
}

TEST(Frequencies, ABoundThatMeetsATextExcludesTheCase) {
  EXPECT_EQ(TableOf(Texts({"x", "3", "7"}), "||||5||"),
            "7                               1       100.00         100.00\r\n");
}

// 10 accepted cases: 3, 5 and 2 of them.
TEST(Frequencies, LeavesAChartOfCountsAndOneOfPercents) {
  TestRun run({{"SMOKE",
                Texts({"2", "1", "2", "10", "9", "2", "1", "2", "", "10", "1", "2"}),
                "Smoker",
                "9||||||",
                {"1=Yes", "2=No"}},
               {"C", Texts({"1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1", "1"})}});
  run.Control(2);
  run.Report(RunFrequencies);
  EXPECT_EQ(run.charts.kind, ChartKind::kFrequencies);
  EXPECT_EQ(ChartsText(run.charts),
            "chart\tSMOKE\tSmoker\tFrequency\tControlling for C\r\n"
            "Yes  (30.0%)\t3\r\n"
            "No  (50.0%)\t5\r\n"
            "10  (20.0%)\t2\r\n"
            "chart\tSMOKE (%)\tSmoker\tPercent (%)\tControlling for C\r\n"
            "Yes  (30.0%)\t30\r\n"
            "No  (50.0%)\t50\r\n"
            "10  (20.0%)\t20\r\n");
  EXPECT_EQ(run.charts.charts[0].type, ChartType::kBars);
}

TEST(Frequencies, AChartLabelHasTheWholeTextAndARoundedPercent) {
  TestRun run({{"X", Texts({"abcdefghijklmnopqrstuvwxyz", "-1", "-1"})}});
  run.Report(RunFrequencies);
  ASSERT_EQ(run.charts.charts.size(), 2u);
  for (const Chart& chart : run.charts.charts) {
    EXPECT_EQ(chart.labels, (std::vector<std::string>{"-1", "abcdefghijklmnopqrstuvwxyz"}));
    EXPECT_EQ(chart.details, (std::vector<std::string>{"66.7%", "33.3%"}));
    EXPECT_EQ(RowLabel(chart, 0), "-1  (66.7%)");
  }
}

TEST(Frequencies, ATextOfMegabytesIsNoMoreThanALabelInItsCharts) {
  const std::string megabytes(5'000'000, 'x');
  TestRun run({{"X", Texts({megabytes.c_str(), "1"})}});
  run.Report(RunFrequencies);
  ASSERT_EQ(run.charts.charts.size(), 2u);
  for (const Chart& chart : run.charts.charts) EXPECT_EQ(chart.labels.back(), std::string(4096, 'x'));
}

TEST(Frequencies, NoChartsUnlessTheyAreWanted) {
  TestRun run({{"X", Texts({"1", "2"})}, {"Y", Texts({"1", "2"})}});
  run.wants_charts = false;
  run.Report(RunFrequencies);
  EXPECT_TRUE(run.charts.charts.empty());
}

TEST(Frequencies, NoObservationsTakeTheFormerChartsAway) {
  TestRun run({{"X", Texts({"9", "9"}), "", "9||||||"}, {"Y", Texts({"1", "1"})}});
  KeepCharts(run.charts, ChartKind::kFrequencies, {BarsChart("old", "", "", {}, {})});
  run.Report(RunFrequencies);
  EXPECT_TRUE(run.charts.charts.empty());
}

TEST(Frequencies, MoreThanTenThousandCategoriesHaveNoCharts) {
  for (const int categories : {10000, 10001}) {
    std::vector<TaggedValue> cells;
    for (int i = 1; i <= categories; ++i) cells.emplace_back(std::to_string(i));
    TestRun run({{"ID", std::move(cells)}});
    run.Report(RunFrequencies);
    EXPECT_EQ(run.charts.charts.size(), categories > 10000 ? 0u : 2u);
    EXPECT_FALSE(run.aborted);
  }
}

// The algorithm word for word: keep the values, walk and pad, sort, count runs. Checked against the counting by cell on
// many small columns in which every kind of cell can meet every other.
TEST(Frequencies, CountingByCellAgreesWithTheWalk) {
  std::mt19937 random(11);
  const char* texts[] = {
      "1", "1.0", "5", " 5", "x", "-2", "", "10", "zz", "abcdefghijklmnopqrstuvw", "00000000000000000000001"};
  for (int round = 0; round < 2000; ++round) {
    std::vector<TaggedValue> cells;
    const std::size_t usable = round % 2 == 0 ? std::size(texts) : 4;
    for (std::size_t i = 0; i < 1 + random() % 9; ++i) {
      cells.push_back(random() % 6 == 0 ? TaggedValue(static_cast<double>(random() % 3) - 1)
                                        : TaggedValue(texts[random() % usable]));
    }
    cells.emplace_back("5");
    DataSet data = MakeTestData({{"X", cells, "", "10||||||", {}}});
    const MissingValues missing = LoadMissingSet(data.matrix, 1);
    std::vector<TaggedValue> working;
    for (const TaggedValue& cell : cells) {
      if (!missing.IsMissing(cell)) working.push_back(cell);
    }
    bool all_numeric = true;
    for (TaggedValue& value : working) {
      if (!IsNumeric(value.view())) all_numeric = false;
      if (!all_numeric) continue;
      std::string text = TextOf(value);
      while (text.size() < 20) text.insert(0, 1, ' ');
      value = text;
    }
    std::stable_sort(working.begin(), working.end(), [&](const TaggedValue& a, const TaggedValue& b) {
      if (!all_numeric) return TaggedLess(a, b);
      const double x = ToNumber(a.view()).value();
      const double y = ToNumber(b.view()).value();
      return x != y ? x < y : a.view().text() < b.view().text();
    });

    const FrequencyCases cases = GatherFrequencies(CasesOfAllRecords(data), 1);
    ASSERT_EQ(cases.accepted, working.size());
    std::size_t at = 0;
    for (const auto& category : cases.categories) {
      for (std::size_t i = 0; i < category.count; ++i) ASSERT_EQ(category.value.view(), working[at++].view());
      if (at < working.size()) {
        ASSERT_FALSE(working[at].view() == category.value.view());
      }
    }
    ASSERT_EQ(at, working.size());
  }
}

}  // namespace
}  // namespace tessara
