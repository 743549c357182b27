#include "procedures/examples/examples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_file.h"
#include "platform/scripted_platform.h"
#include "procedures/run.h"
#include "procedures/samples/create_sample.h"
#include "procedures/samples/run_iterations.h"

namespace tessara {
namespace {

constexpr RegressionKind kLeast = RegressionKind::kLeastSquares;

// What a student sets on the panel to repeat an example.
struct Example {
  Procedure procedure;
  std::string_view sample_file;
  std::vector<std::string> analysis, independent;
  std::vector<std::string_view> boxes = {};  // captions of those that are set by hand
  std::vector<std::string> fields = {};      // what is typed into the fields, in their order
  RegressionKind kind = kLeast;
};

const Example kExamples[] = {
    {.procedure = Procedure::kFrequencies,
     .sample_file = "survey.dcs",
     .analysis = {"HEALTH"},
     .independent = {},
     .boxes = {"Index of Dispersion"}},
    {.procedure = Procedure::kDescriptives,
     .sample_file = "iris.dcs",
     .analysis = {"SEPLEN"},
     .independent = {},
     .boxes = {"Show bar chart"}},
    {.procedure = Procedure::kCrosstabulation,
     .sample_file = "titanic.dcs",
     .analysis = {"SURVIVED"},
     .independent = {"SEX"},
     .boxes = {"Risk (2x2 only)", "Association"}},
    {.procedure = Procedure::kTTest,
     .sample_file = "survey.dcs",
     .analysis = {"PRESSURE"},
     .independent = {"SEX"},
     .fields = {"1", "2"}},
    {.procedure = Procedure::kAnova,
     .sample_file = "iris.dcs",
     .analysis = {"SEPWID"},
     .independent = {"SPECIES"},
     .boxes = {"Summary Statistics", "Post Hoc Test"}},
    {.procedure = Procedure::kCorrelation, .sample_file = "cars.dcs", .analysis = {"MPG"}, .independent = {"WT"}},
    {.procedure = Procedure::kRegression,
     .sample_file = "cars.dcs",
     .analysis = {"MPG"},
     .independent = {"WT", "HP"},
     .boxes = {"Summary Statistics"}},
    {.procedure = Procedure::kRegression,
     .sample_file = "titanic.dcs",
     .analysis = {"SURVIVED"},
     .independent = {"SEX", "ADULT"},
     .kind = RegressionKind::kLogistic},
    {.procedure = Procedure::kListVariables,
     .sample_file = "cars.dcs",
     .analysis = {"MODEL", "MPG", "CYL", "DISP", "HP", "WT", "AM"},
     .independent = {},
     .fields = {"8"}},
    {.procedure = Procedure::kDiagnostic,
     .sample_file = "survey.dcs",
     .analysis = {"TEST"},
     .independent = {"DISEASE"}},
    {.procedure = Procedure::kRandomSample, .sample_file = "titanic.dcs", .analysis = {"SURVIVED"}, .independent = {}},
    {.procedure = Procedure::kRepeatedSampling, .sample_file = "iris.dcs", .analysis = {"SEPLEN"}, .independent = {}},
    {.procedure = Procedure::kExplore, .sample_file = "iris.dcs", .analysis = {"SEPLEN"}, .independent = {"SPECIES"}},
    {.procedure = Procedure::kSummaryTables,
     .sample_file = "titanic.dcs",
     .analysis = {"SURVIVED"},
     .independent = {"CLASS"},
     .boxes = {"Counts", "Percent"},
     .fields = {"0"}},
};

std::string_view TextOf(const Example& example) { return ExampleOfOutput(example.procedure, example.kind); }
std::string_view CaptionOf(const Example& example) { return FindProcedureRow(example.procedure)->caption; }

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

TEST(Examples, EveryProcedureHasOne) {
  for (const ProcedureRow& row : ProcedureRows()) {
    EXPECT_NE(std::ranges::find(kExamples, row.procedure, &Example::procedure), std::end(kExamples)) << row.caption;
  }
}

TEST(Examples, EveryTextNamesItsSampleFileAndTellsWhatToWatchFor) {
  for (const Example& example : kExamples) {
    const std::string_view text = TextOf(example);
    EXPECT_NE(text.find(example.sample_file), std::string_view::npos) << CaptionOf(example);
    EXPECT_NE(text.find("\n\nWHEN TO USE IT. "), std::string_view::npos) << CaptionOf(example);
    EXPECT_NE(text.find("\n\nWHAT TO WATCH FOR. "), std::string_view::npos) << CaptionOf(example);
  }
}

TEST(Examples, OnlyPlainCharactersAndBareLineFeeds) {
  for (const Example& example : kExamples) {
    for (const char c : TextOf(example)) {
      EXPECT_TRUE(c == '\n' || c == '\t' || (c >= ' ' && c <= '~')) << CaptionOf(example) << static_cast<int>(c);
    }
  }
}

TEST(Examples, NoLineIsWiderThanThePane) {
  for (const Example& example : kExamples) {
    for (const std::string_view line : Lines(TextOf(example))) {
      EXPECT_LE(line.size(), 100u) << line;
    }
  }
}

TEST(Examples, TheTextEndsWithOneLineEnd) {
  for (const Example& example : kExamples) {
    const std::string_view text = TextOf(example);
    ASSERT_GE(text.size(), 2u) << CaptionOf(example);
    EXPECT_EQ(text.back(), '\n') << CaptionOf(example);
    EXPECT_NE(text[text.size() - 2], '\n') << CaptionOf(example);
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

std::vector<std::size_t> Columns(const DataSet& data, const std::vector<std::string>& names) {
  std::vector<std::size_t> columns;
  for (const std::string& name : names) {
    const auto variable = std::ranges::find(data.VarList, name, &ListedVariable::name);
    EXPECT_NE(variable, data.VarList.end()) << name;
    if (variable != data.VarList.end()) columns.push_back(variable->column);
  }
  return columns;
}

ProcedurePanel PanelOf(const Example& example, const DataSet& data) {
  ProcedurePanel panel;
  SelectProcedure(panel, example.procedure);
  if (example.procedure == Procedure::kRegression) SelectRegression(panel, example.kind);
  panel.SelectedVariables = Columns(data, example.analysis);
  panel.IndependentVariables = Columns(data, example.independent);
  const ProcedureRow& row = *ShownRow(panel);
  for (const std::string_view caption : example.boxes) {
    const auto box = std::ranges::find(row.boxes, caption, &ProcedureRow::Box::caption);
    EXPECT_NE(box, row.boxes.end()) << caption;
    if (box != row.boxes.end()) box->option(panel.options) = true;
  }
  for (std::size_t i = 0; i < example.fields.size(); ++i) row.fields[i].option(panel.options) = example.fields[i];
  return panel;
}

// A table as its grid looks: every column as wide as its longest text, two blanks between them.
std::string TextOfTable(const TableGrid& grid) {
  std::vector<std::size_t> widths(grid.ColumnCount() + 1);
  std::string text;
  for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
    for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
      widths[column] = std::max(widths[column], grid.Text(row, column).size());
    }
  }
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    std::string line;
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
      const TableCell& cell = grid.Cell(row, column);
      const std::string blanks(widths[column] - cell.text.size(), ' ');
      line += (column > 1 ? "  " : "");
      line += cell.alignment == TableAlignment::kRight ? blanks + cell.text : cell.text + blanks;
    }
    line.resize(line.find_last_not_of(' ') + 1);
    text += (row > 1 ? "\n" : "") + line;
  }
  return text;
}

// What the panel of an example draws, and the report that stands behind it: Frequencies of a sample, or the means of
// many. The seeds are those that the examples name.
RunOutcome Draw(const Example& example, DataSet& data, OutputLog& output, ChartStore& charts, SummaryTable& table,
                ScriptedPlatform& platform) {
  ProcedurePanel panel = PanelOf(example, data);
  if (example.procedure == Procedure::kRandomSample) {
    RandomNumbers random(1912);
    EXPECT_TRUE(CreateSample(data, {.Text8 = "200", .Text15 = {}, .Text16 = {}}, random, platform));
    panel.selected = Procedure::kFrequencies;
    return Run(data, panel, output, charts, table, platform);
  }
  RandomNumbers random(1936);
  const SamplePanel samples{.Text8 = {}, .Text15 = "20", .Text16 = "100"};
  const auto outcome = RunIterations(data, samples, panel.SelectedVariables[0], output, charts, random, platform);
  return {.refused = outcome != IterationsOutcome::kRun, .subset = false, .aborted = false};
}

RunOutcome RunExample(const Example& example, DataSet& data, OutputLog& output, ChartStore& charts, SummaryTable& table,
                      ScriptedPlatform& platform) {
  const bool draws = example.procedure == Procedure::kRandomSample || example.procedure == Procedure::kRepeatedSampling;
  if (draws) return Draw(example, data, output, charts, table, platform);
  return Run(data, PanelOf(example, data), output, charts, table, platform);
}

// The report that a run on the sample file prints, or the table that it makes; nothing of one that was refused.
std::optional<std::string> LiveReport(const Example& example) {
  DataSet data;
  ScriptedPlatform platform;
  MakeEmptyDataSet(data);
  const Path file = std::filesystem::path(TESSARA_SOURCE_DIR) / "installed" / "Data" / example.sample_file;
  EXPECT_EQ(LoadDataFile(data, platform, file, FilePick::kPicked), LoadOutcome::kLoaded);
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
  if (RunExample(example, data, output, charts, table, platform).refused) return std::nullopt;
  if (output.OutputGridMode) return TextOfTable(table.grid);
  std::string report = output.MostRecentText;
  EXPECT_TRUE(report.ends_with(kReportSeparator));
  report.resize(report.size() - kReportSeparator.size());
  std::erase(report, '\r');
  report.resize(report.find_last_not_of('\n') + 1);
  return report;
}

// What an example shows of its report, as far as the words about it.
std::string ShownReport(const Example& example) {
  const std::string_view text = TextOf(example);
  return std::string(text.substr(0, text.find("\n\nThe example ")));
}

TEST(Examples, EveryProcedurePrintsItsExample) {
  for (const Example& example : kExamples) {
    const auto report = LiveReport(example);
    EXPECT_EQ(report.value_or("refused"), ShownReport(example)) << CaptionOf(example);
  }
}

}  // namespace
}  // namespace tessara
