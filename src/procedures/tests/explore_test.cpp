#include "procedures/tables/explore.h"

#include <gtest/gtest.h>

#include "procedures/run.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

struct ExploreRun {
  explicit ExploreRun(const std::vector<TestColumn>& columns) : data(MakeTestData(columns)) {
    panel.selected = Procedure::kExplore;
  }

  RunOutcome Of(std::vector<std::size_t> continuous, std::vector<std::size_t> categorical) {
    panel.SelectedVariables = std::move(continuous);
    panel.IndependentVariables = std::move(categorical);
    return tessara::Run(data, panel, output, charts, table, platform);
  }
  const std::string& Log() const { return output.OutputLogText; }

  DataSet data;
  ProcedurePanel panel;
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
  ScriptedPlatform platform;
};

std::string Rule() { return std::string(80, '-') + "\r\n"; }

std::size_t Occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

// All: 1 3 8: mean 4, squares 26, deviation sqrt(13) = 3.6056, error 3.6056 / sqrt(2) = 2.5495, interval 4.303 times
// it = 10.9705, population deviation sqrt(26 / 3) = 2.9439, CV 90.1388. "Low": 1 3, mean 2, deviation sqrt(2), error
// the same, interval 12.706 * 1.41421 = 17.9690, population deviation 1, CV 70.7107.
TEST(Explore, TheReportOfAllAndOfACategory) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "3", "8"})},
                  {.name = "G", .cells = Texts({"1", "1", "2"}), .value_labels = {"1=Low"}}});
  EXPECT_TRUE(run.Of({1}, {2}).aborted);
  const std::string frame =
      FramedError("Descriptive Analysis: Y", "There are less than 2 observations, so procedure was aborted.") +
      std::string(kReportSeparator);
  const std::string report =
      "Explore Descriptive Statistics by Subgroup\r\n"
      "Variable:  Y\r\n\r\n"
      "Category:  All\r\n" +
      Rule() +
      "Count                          3          Standard Error                  2.5495\r\n"
      "Sum                           12.0000     95% CI (+/-)                   10.9705\r\n"
      "Mean                           4.0000     95% Lower Limit                -6.9705\r\n"
      "Pop Std Dev                    2.9439     95% Upper Limit                14.9705\r\n"
      "Sample Std Dev                 3.6056     Coeff of Variation (CV%)       90.1388\r\n"
      "\r\n"
      "\r\n"
      "Category:  Low\r\n" +
      Rule() +
      "Count                          2          Standard Error                  1.4142\r\n"
      "Sum                            4.0000     95% CI (+/-)                   17.9690\r\n"
      "Mean                           2.0000     95% Lower Limit               -15.9690\r\n"
      "Pop Std Dev                    1.0000     95% Upper Limit                19.9690\r\n"
      "Sample Std Dev                 1.4142     Coeff of Variation (CV%)       70.7107\r\n"
      "\r\n"
      "\r\n\r\n";
  EXPECT_EQ(run.Log(), frame + report + std::string(kReportSeparator));
  EXPECT_EQ(run.output.MostRecentText, run.Log());
}

TEST(Explore, EachVariableBeginsWithTheTitleBehindASeparator) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "3"})}, {.name = "Z", .cells = Texts({"5", "9"})}});
  EXPECT_FALSE(run.Of({1, 2}, {}).aborted);
  const std::string title = "Explore Descriptive Statistics by Subgroup\r\n";
  EXPECT_EQ(run.Log().find(title + "Variable:  Y\r\n\r\nCategory:  All\r\n"), 0u);
  EXPECT_NE(run.Log().find("\r\n\r\n" + std::string(kReportSeparator) + title + "Variable:  Z\r\n\r\nCategory:  All"),
            std::string::npos);
  EXPECT_EQ(Occurrences(run.Log(), std::string(kReportSeparator)), 2u);
}

TEST(Explore, TheControlLabelStandsUnderEachTitle) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "3"})}, {.name = "Z", .cells = Texts({"5", "9"})}});
  run.panel.control_variable = {1, "Y"};
  run.panel.control = {ControlRelation::kGreaterThan, "0"};
  run.Of({1, 2}, {});
  EXPECT_EQ(Occurrences(run.Log(), "Explore Descriptive Statistics by Subgroup\r\nControl: Y > 0\r\nVariable:  "), 2u);
}

TEST(Explore, AMeanOfZeroHasNoCoefficient) {
  ExploreRun run({{.name = "Y", .cells = Texts({"-1", "1"})}});
  run.Of({1}, {});
  EXPECT_NE(run.Log().find("Sample Std Dev                 1.4142     Coeff of Variation (CV%)        0.0000\r\n"),
            std::string::npos);
}

TEST(Explore, AVariableWithoutSpreadHasDeviationsOfZero) {
  ExploreRun run(
      {{.name = "Y", .cells = Texts({"0.1", "0.1", "0.1"})}, {.name = "G", .cells = Texts({"a", "a", "a"})}});
  run.Of({1}, {2});
  EXPECT_EQ(Occurrences(run.Log(), "Sample Std Dev                 0.0000     "), 2u);
  EXPECT_EQ(Occurrences(run.Log(), "95% CI (+/-)                    0.0000\r\n"), 2u);
}

TEST(Explore, ACategoryOfOneCaseHasItsErrorAndNoEntry) {
  ExploreRun run(
      {{.name = "Y", .cells = Texts({"1", "2", "3", "4"})}, {.name = "G", .cells = Texts({"a", "b", "c", "c"})}});
  EXPECT_TRUE(run.Of({1}, {2}).aborted);
  EXPECT_EQ(Occurrences(run.Log(), "There are less than 2 observations"), 2u);
  EXPECT_EQ(Occurrences(run.Log(), "Category:  "), 2u);
  EXPECT_NE(run.Log().find("Category:  c\r\n"), std::string::npos);
}

TEST(Explore, APairWithoutCasesHasTheErrorOfTheComparison) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "2"})}, {.name = "G", .cells = Texts({"", ""})}});
  EXPECT_TRUE(run.Of({1}, {2}).aborted);
  EXPECT_EQ(run.Log().find(FramedError("Summary Comparison: Y by G", "There are no observations.")), 0u);
  EXPECT_EQ(Occurrences(run.Log(), "Category:  "), 1u);
}

// Where all cases make no entry, the first category carries the name.
TEST(Explore, TheFirstEntryOfAVariableHasItsName) {
  const std::string report = ExploreReport({{"Y", "a", {}}, {"", "b", {}}}, "");
  EXPECT_NE(report.find("Variable:  Y\r\n\r\nCategory:  a\r\n"), std::string::npos);
  EXPECT_EQ(Occurrences(report, "Variable:  "), 1u);
}

TEST(Explore, CategoriesStandByStoredValueAndUnderTheirLabel) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "2", "3", "4"})},
                  {.name = "G", .cells = Texts({"2", "2", "1", "1"}), .value_labels = {"1=Zebra", "2=Ape"}}});
  run.Of({1}, {2});
  EXPECT_LT(run.Log().find("Category:  Zebra"), run.Log().find("Category:  Ape"));
  EXPECT_NE(run.Log().find("Category:  Ape"), std::string::npos);
}

// A variable with 2 cases for each of so many categories.
std::vector<TestColumn> Pairs(int categories) {
  TestColumn y{.name = "Y"};
  TestColumn g{.name = "G"};
  for (int i = 0; i < 2 * categories; ++i) {
    y.cells.emplace_back(std::to_string(i));
    g.cells.emplace_back("g" + std::to_string(1000 + i / 2));
  }
  return {y, g};
}

TEST(Explore, ExactlyFiveHundredEntriesRun) {
  ExploreRun run(Pairs(499));
  EXPECT_FALSE(run.Of({1}, {2}).refused);
  EXPECT_TRUE(run.platform.messages.empty());
  EXPECT_EQ(Occurrences(run.Log(), "Category:  "), 500u);
}

TEST(Explore, BehindFiveHundredEntriesNoVariableBegins) {
  ExploreRun run(Pairs(499));
  EXPECT_TRUE(run.Of({1, 1}, {2}).refused);
  ASSERT_EQ(run.platform.messages.size(), 1u);
  EXPECT_EQ(run.platform.messages[0].title, "Explore Procedure Aborted");
  EXPECT_EQ(run.platform.messages[0].text,
            "The maximum number of category analyses allowed for the Explore\r\n"
            "procedure has been exceeded. Try reducing the number of categories\r\n"
            "by removing one or more continuous or categorical variables.");
  EXPECT_EQ(run.Log(), "");
}

TEST(Explore, EntriesBeyondTheRoomOfTheTableAreLost) {
  ExploreRun run(Pairs(498));
  EXPECT_FALSE(run.Of({1, 1}, {2}).refused);  // the second variable begins behind 499 entries
  EXPECT_EQ(Occurrences(run.Log(), "Category:  "), 503u);
  EXPECT_TRUE(run.platform.messages.empty());
}

TEST(Explore, AnIdentityHasTooManyCategories) {
  TestColumn y{.name = "Y"};
  for (int i = 0; i <= 10000; ++i) y.cells.emplace_back(static_cast<double>(i + 1));
  ExploreRun run({y});
  EXPECT_TRUE(run.Of({1}, {1}).aborted);
  EXPECT_EQ(run.Log().find(FramedError("Summary Comparison: Y by Y", "There are too many categories.")), 0u);
}

TEST(Explore, LeavesNoChartsAndShowsTheText) {
  ExploreRun run({{.name = "Y", .cells = Texts({"1", "3"})}});
  run.charts.charts.emplace_back();
  run.output.OutputGridMode = true;
  run.Of({1}, {});
  EXPECT_TRUE(run.charts.charts.empty());
  EXPECT_FALSE(run.output.OutputGridMode);
}

TEST(Explore, AllIsWhatDescriptivesSay) {  // a text that is no number counts as 0 in all but the sum
  ExploreRun run({{.name = "Y", .cells = Texts({"3", "x", "6"})}});
  run.Of({1}, {});
  EXPECT_NE(run.Log().find("Count                          3          "), std::string::npos);
  EXPECT_NE(run.Log().find("Mean                           3.0000     "), std::string::npos);
}

}  // namespace
}  // namespace tessara
