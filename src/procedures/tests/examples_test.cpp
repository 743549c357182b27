#include "procedures/examples/examples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file.h"
#include "platform/scripted_platform.h"
#include "procedures/run.h"

namespace tessara {
namespace {

struct Example {
  Procedure procedure;
  RegressionKind kind;
  std::string_view title;        // a line of the report, or its beginning
  std::string_view sample_file;  // the data set on which a student can repeat it
};

constexpr RegressionKind kLeast = RegressionKind::kLeastSquares;

const Example kExamples[] = {
    {Procedure::kFrequencies, kLeast, "Frequencies\n", "survey.dcs"},
    {Procedure::kDescriptives, kLeast, "Descriptive Statistics\n", "iris.dcs"},
    {Procedure::kCrosstabulation, kLeast, "Crosstabulation: SURVIVED (Rows)  by  SEX (Columns)\n", "titanic.dcs"},
    {Procedure::kTTest, kLeast, "Two-Sample Difference of Means\n", "survey.dcs"},
    {Procedure::kAnova, kLeast, "Analysis of Variance (ANOVA) --- SEPWID (Means)  by  SPECIES (Groups)\n", "iris.dcs"},
    {Procedure::kCorrelation, kLeast, "Pearson's Correlation\n", "cars.dcs"},
    {Procedure::kRegression, kLeast, "---------------------------- Multiple OLS Regression ---", "cars.dcs"},
    {Procedure::kRegression, RegressionKind::kLogistic, "------------------------------ Logistic Regression ---",
     "titanic.dcs"},
    {Procedure::kListVariables, kLeast, "List Variables\n", "cars.dcs"},
    {Procedure::kDiagnostic, kLeast, "Diagnostic Accuracy: TEST (Test)  by  DISEASE (Reference)\n", "survey.dcs"},
    {Procedure::kRandomSample, kLeast, "RANDOM SAMPLE\n", "titanic.dcs"},
    {Procedure::kRepeatedSampling, kLeast, "REPEATED RANDOM SAMPLING\n", "iris.dcs"},
    {Procedure::kExplore, kLeast, "Explore Descriptive Statistics by Subgroup\n", "iris.dcs"},
    {Procedure::kSummaryTables, kLeast, "                          First class   Second class", "titanic.dcs"},
};

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

TEST(Examples, NoProcedureHasNoExample) { EXPECT_TRUE(ExampleOfOutput(Procedure::kNone, kLeast).empty()); }

TEST(Examples, EveryReportStartsWithItsTitle) {
  for (const Example& example : kExamples) {
    EXPECT_TRUE(ExampleOfOutput(example.procedure, example.kind).starts_with(example.title)) << example.title;
  }
}

TEST(Examples, EveryTextNamesItsSampleFileAndTellsWhatToWatchFor) {
  for (const Example& example : kExamples) {
    const std::string_view text = ExampleOfOutput(example.procedure, example.kind);
    EXPECT_NE(text.find(example.sample_file), std::string_view::npos) << example.title;
    EXPECT_NE(text.find("\n\nWHEN TO USE IT. "), std::string_view::npos) << example.title;
    EXPECT_NE(text.find("\n\nWHAT TO WATCH FOR. "), std::string_view::npos) << example.title;
  }
}

TEST(Examples, OnlyPlainCharactersAndBareLineFeeds) {
  for (const Example& example : kExamples) {
    for (const char c : ExampleOfOutput(example.procedure, example.kind)) {
      EXPECT_TRUE(c == '\n' || c == '\t' || (c >= ' ' && c <= '~')) << example.title << static_cast<int>(c);
    }
  }
}

TEST(Examples, NoLineIsWiderThanThePane) {
  for (const Example& example : kExamples) {
    for (const std::string_view line : Lines(ExampleOfOutput(example.procedure, example.kind))) {
      EXPECT_LE(line.size(), 100u) << line;
    }
  }
}

TEST(Examples, TheTextEndsWithOneLineEnd) {
  for (const Example& example : kExamples) {
    const std::string_view text = ExampleOfOutput(example.procedure, example.kind);
    ASSERT_GE(text.size(), 2u) << example.title;
    EXPECT_EQ(text.back(), '\n') << example.title;
    EXPECT_NE(text[text.size() - 2], '\n') << example.title;
  }
}

// The figures of R for these data: sum 876.5, mean 5.843333, standard deviation 0.8280661; chi-square 456.8742; the
// coefficients of lm(mpg ~ wt + hp) and of the binomial glm on the 2201 people.
TEST(Examples, FiguresAreThoseOfTheSampleFiles) {
  const auto contains = [](Procedure procedure, RegressionKind kind, std::string_view line) {
    return ExampleOfOutput(procedure, kind).find(line) != std::string_view::npos;
  };
  EXPECT_TRUE(contains(Procedure::kDescriptives, kLeast, "Mean                           5.8433    Pop Std "));
  EXPECT_TRUE(
      contains(Procedure::kCrosstabulation, kLeast, "Pearson                     456.874          1      0.0000"));
  EXPECT_TRUE(contains(Procedure::kRegression, kLeast, "         WT        -3.87783        0.63273"));
  EXPECT_TRUE(contains(Procedure::kRegression, RegressionKind::kLogistic, "        SEX          2.2940      0.1199"));
}

// The report that a run on a sample file prints, one variable by others.
std::string LiveReport(std::string_view sample_file, ProcedurePanel panel, std::string_view main,
                       const std::vector<std::string>& independents) {
  DataSet data;
  ScriptedPlatform platform;
  MakeEmptyDataSet(data);
  const Path path = Path(TESSARA_SOURCE_DIR) / "installed" / "Data" / sample_file;
  EXPECT_EQ(LoadDataFile(data, platform, path, FilePick::kPicked), LoadOutcome::kLoaded);
  const auto column = [&](std::string_view name) {
    return std::ranges::find(data.VarList, name, &ListedVariable::name)->column;
  };
  panel.SelectedVariables = {column(main)};
  for (const std::string& name : independents) panel.IndependentVariables.push_back(column(name));
  OutputLog output;
  ChartStore charts;
  Run(data, panel, output, charts, platform);
  std::string report = output.MostRecentText;
  std::erase(report, '\r');
  return report;
}

// The report of an example, as far as the words about it, stands at the beginning of the live one.
void ExpectLive(std::string_view example, const std::string& report) {
  const std::size_t end = example.find("\n\nThe example is ");
  ASSERT_NE(end, std::string_view::npos);
  EXPECT_EQ(report.substr(0, end + 1), example.substr(0, end + 1));
}

TEST(Examples, TheTTestPrintsItsExample) {
  ProcedurePanel panel;
  panel.selected = Procedure::kTTest;
  panel.options.t_test = {"1", "2"};
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("survey.dcs", panel, "PRESSURE", {"SEX"}));
}

TEST(Examples, TheAnalysisOfVariancePrintsItsExample) {
  ProcedurePanel panel;
  panel.selected = Procedure::kAnova;
  panel.options.anova = {.summary = true, .post_hoc = true};
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("iris.dcs", panel, "SEPWID", {"SPECIES"}));
}

TEST(Examples, TheCrosstabulationPrintsItsExample) {
  ProcedurePanel panel;
  panel.selected = Procedure::kCrosstabulation;
  panel.options.crosstabulation.association = true;
  panel.options.crosstabulation.risk = true;
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("titanic.dcs", panel, "SURVIVED", {"SEX"}));
}

TEST(Examples, DiagnosticAccuracyPrintsItsExample) {
  ProcedurePanel panel;
  panel.selected = Procedure::kDiagnostic;
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("survey.dcs", panel, "TEST", {"DISEASE"}));
}

TEST(Examples, TheCorrelationPrintsItsExample) {
  ProcedurePanel panel;
  panel.selected = Procedure::kCorrelation;
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("cars.dcs", panel, "MPG", {"WT"}));
}

TEST(Examples, RegressionsPrintTheirExamples) {
  ProcedurePanel panel;
  panel.selected = Procedure::kRegression;
  panel.options.least_squares.summary = true;
  ExpectLive(ExampleOfOutput(panel.selected, kLeast), LiveReport("cars.dcs", panel, "MPG", {"WT", "HP"}));
  panel.regression = RegressionKind::kLogistic;
  ExpectLive(ExampleOfOutput(panel.selected, panel.regression),
             LiveReport("titanic.dcs", panel, "SURVIVED", {"SEX", "ADULT"}));
}

}  // namespace
}  // namespace tessara
