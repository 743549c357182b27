#include "procedures/examples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file.h"
#include "procedures/regression.h"
#include "procedures/tests/test_data.h"

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

// A regression on a sample file, with bare line feeds and without those at the end.
std::string LiveRegression(RegressionKind kind, const char* file, const std::vector<std::string>& names, bool summary) {
  TestRun run({});
  run.data.WaitingPath = std::filesystem::path(TESSARA_SOURCE_DIR) / "installed" / "Data" / file;
  EXPECT_EQ(LoadDataFile(run.data, run.platform), LoadOutcome::kLoaded);
  const auto column = [&](const std::string& name) {
    const auto& list = run.data.VarList;
    return std::ranges::find(list, name, &ListedVariable::name)->column;
  };
  run.data.RoleVariable[kMainRole] = column(names[0]);
  for (std::size_t i = 1; i < names.size(); ++i) run.panel.IndependentVariables.push_back(column(names[i]));
  run.panel.regression = kind;
  run.panel.checks.Check2 = summary;
  std::string text = run.Report(RunRegression);
  std::erase(text, '\r');
  while (text.ends_with('\n')) text.pop_back();
  return text;
}

TEST(Examples, RegressionsAreWhatTheProceduresPrint) {
  const std::string squares = LiveRegression(kLeast, "cars.dcs", {"MPG", "WT", "HP"}, true);
  EXPECT_EQ(ExampleOfOutput(Procedure::kRegression, kLeast).substr(0, squares.size()), squares);
  const std::string logistic =
      LiveRegression(RegressionKind::kLogistic, "titanic.dcs", {"SURVIVED", "SEX", "ADULT"}, false);
  EXPECT_EQ(ExampleOfOutput(Procedure::kRegression, RegressionKind::kLogistic).substr(0, logistic.size()), logistic);
}

}  // namespace
}  // namespace tessara
