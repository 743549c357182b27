#include <algorithm>

#include "procedures/panel.h"

// The rows of the procedure panel: what stands on it for each procedure.

namespace tessara {
namespace {

using Box = ProcedureRow::Box;
using Field = ProcedureRow::Field;

constexpr std::string_view kAnalysisVariable = "Analysis Variable";
constexpr std::string_view kContinuousVariable = "Continuous Variable";
constexpr std::string_view kCategoricalVariable = "Categorical Variable";
constexpr std::string_view kVariableY = "Variable Y";
constexpr std::string_view kVariableX = "Variable X";
constexpr std::string_view kRows = "Rows";
constexpr std::string_view kColumns = "Columns";
constexpr std::string_view kLeastSquaresExample = "  Ordinary Least Squares Regression    [Example]";

// A member of the options of one procedure, within the options of all.
template <auto Part, auto Member>
auto& Option(ProcedureOptions& options) {
  return (options.*Part).*Member;
}

using All = ProcedureOptions;

const std::vector<Box> kLeastSquaresBoxes = {
    {"Check1", "Save Residuals", "Save regression residuals as another variable",
     Option<&All::least_squares, &LeastSquaresOptions::save_residuals>},
    {"Check2", "Summary Statistics", "Summary statistics for observations included in the model",
     Option<&All::least_squares, &LeastSquaresOptions::summary>}};
const std::vector<Box> kLogisticBoxes = {
    {"Check1", "Save Predicted", "Save predicted values as another variable",
     Option<&All::logistic, &LogisticOptions::save_predicted>},
    {"Check2", "Summary Statistics", "Summary statistics for observations included in the model",
     Option<&All::logistic, &LogisticOptions::summary>}};

}  // namespace

const std::vector<ProcedureRow>& ProcedureRows() {
  static const std::vector<ProcedureRow> rows = {
      {.procedure = Procedure::kFrequencies,
       .control = "Option1",
       .caption = "Frequencies",
       .tooltip = "Counts and percentages",
       .first_heading = kAnalysisVariable,
       .second_heading = {},
       .boxes = {{"Check2", "Index of Dispersion", "Calculates measure of variation for nominal/ordinal level data",
                  Option<&All::frequencies, &FrequenciesOptions::dispersion>}},
       .fields = {},
       .example_heading = "  Frequencies    [Example]"},
      {.procedure = Procedure::kDescriptives,
       .control = "Option2",
       .caption = "Descriptives",
       .tooltip = "Calculates summary statistics",
       .first_heading = kAnalysisVariable,
       .second_heading = {},
       .boxes = {{"Check1", "Show bar chart", "Displays horizontal bar chart with output",
                  Option<&All::descriptives, &DescriptivesOptions::bar_chart>},
                 {"Check2", "Save Z-scores", "Save z-scores as another variable",
                  Option<&All::descriptives, &DescriptivesOptions::save_z_scores>}},
       .fields = {},
       .example_heading = "  Descriptive Statistics    [Example]"},
      {.procedure = Procedure::kExplore,
       .control = "Option20",
       .caption = "Explore",
       .tooltip = "Explore descriptive statistics by subgroups",
       .first_heading = kContinuousVariable,
       .second_heading = kCategoricalVariable,
       .boxes = {},
       .fields = {},
       .example_heading = "  Explore    [Example]"},
      {.procedure = Procedure::kTTest,
       .control = "Option4",
       .caption = "T-test",
       .tooltip = "Compare two independent means",
       .first_heading = kContinuousVariable,
       .second_heading = kCategoricalVariable,
       .boxes = {},
       .fields = {{"Text5", "Group A Value>", Option<&All::t_test, &TTestOptions::group_a>},
                  {"Text6", "Group B Value >", Option<&All::t_test, &TTestOptions::group_b>}},
       .example_heading = "  Two-Sample Difference of Means    [Example]"},
      {.procedure = Procedure::kAnova,
       .control = "Option5",
       .caption = "One-Way ANOVA",
       .tooltip = "Compare 2 or more independent means",
       .first_heading = kContinuousVariable,
       .second_heading = kCategoricalVariable,
       .boxes = {{"Check2", "Summary Statistics", "Displays descriptive group statistics",
                  Option<&All::anova, &AnovaOptions::summary>},
                 {"Check1", "Post Hoc Test", "Displays Bonferroni post hoc analysis",
                  Option<&All::anova, &AnovaOptions::post_hoc>}},
       .fields = {},
       .example_heading = "  One-Way ANOVA    [Example]"},
      {.procedure = Procedure::kCrosstabulation,
       .control = "Option3",
       .caption = "Crosstabulation",
       .tooltip = "Compare one categorical variable to another",
       .first_heading = kRows,
       .second_heading = kColumns,
       .boxes = {{"Check1", "Association", "Displays measures of association",
                  Option<&All::crosstabulation, &CrosstabulationOptions::association>},
                 {"Check2", "Chi-Square Tests", "Displays significance tests",
                  Option<&All::crosstabulation, &CrosstabulationOptions::chi_square_tests>},
                 {"Check11", "Agreement", "Displays Kappa and proportion agree",
                  Option<&All::crosstabulation, &CrosstabulationOptions::agreement>},
                 {"Check12", "Risk (2x2 only)", "Displays odds ratio and relative risk",
                  Option<&All::crosstabulation, &CrosstabulationOptions::risk>}},
       .fields = {},
       .example_heading = "  Crosstabulation    [Example]"},
      {.procedure = Procedure::kCorrelation,
       .control = "Option6",
       .caption = "Correlation",
       .tooltip = "Compare two continuous variables",
       .first_heading = kVariableY,
       .second_heading = kVariableX,
       .boxes = {{"Check2", "Create Matrix", "Displays correlation matrix",
                  Option<&All::correlation, &CorrelationOptions::create_matrix>}},
       .fields = {},
       .example_heading = "  Correlation    [Example]"},
      {.procedure = Procedure::kRegression,
       .control = "Option7",
       .caption = "Regression",
       .tooltip = "Multiple and simple regression",
       .first_heading = kVariableY,
       .second_heading = kVariableX,
       .boxes = kLeastSquaresBoxes,
       .fields = {},
       .example_heading = kLeastSquaresExample},
      {.procedure = Procedure::kDiagnostic,
       .control = "Option17",
       .caption = "Diagnostic",
       .tooltip = "Diagnostic accuracy",
       .first_heading = "Test Variable-Rows",
       .second_heading = "Reference Variable-Cols",
       .boxes = {},
       .fields = {},
       .example_heading = "  Diagnostic Accuracy    [Example]"},
      {.procedure = Procedure::kListVariables,
       .control = "Option12",
       .caption = "List Variables",
       .tooltip = "List up to 7 variables",
       .first_heading = "List Variables",
       .second_heading = {},
       .boxes = {},
       .fields = {{"Text7", "Max Observations", Option<&All::list, &ListOptions::max_observations>,
                   "Enter maximum number of observations"}},
       .example_heading = "  List Variables    [Example]"},
      {.procedure = Procedure::kSummaryTables,
       .control = "Reports",
       .caption = "Summary Tables",
       .tooltip = {},
       .first_heading = kRows,
       .second_heading = kColumns,
       .boxes = {{"Check3", "Counts", {}, Option<&All::summary_tables, &SummaryTableOptions::counts>},
                 {"Check4", "Percent", {}, Option<&All::summary_tables, &SummaryTableOptions::percent>},
                 {"Check9", "Count", {}, Option<&All::summary_tables, &SummaryTableOptions::count>},
                 {"Check5", "Mean", {}, Option<&All::summary_tables, &SummaryTableOptions::mean>},
                 {"Check10", "Sum", {}, Option<&All::summary_tables, &SummaryTableOptions::sum>},
                 {"Check6",
                  "Standard Deviation",
                  {},
                  Option<&All::summary_tables, &SummaryTableOptions::standard_deviation>},
                 {"Check7", "Standard Error", {}, Option<&All::summary_tables, &SummaryTableOptions::standard_error>},
                 {"Check8", "95% CI", {}, Option<&All::summary_tables, &SummaryTableOptions::interval>}},
       .fields = {{"Combo1", "Output Format", Option<&All::summary_tables, &SummaryTableOptions::output_format>}},
       .example_heading = "  Summary Tables    [Example]"},
      {.procedure = Procedure::kRandomSample,
       .control = "Option18",
       .caption = "Random Sample",
       .tooltip = "Create a random sample from current data",
       .first_heading = {},
       .second_heading = {},
       .boxes = {},
       .fields = {},
       .example_heading = "  Create Random Sample    [Example]"},
      {.procedure = Procedure::kRepeatedSampling,
       .control = "Option19",
       .caption = "Repeated Sampling",
       .tooltip = "Show the effects of repeated random sampling",
       .first_heading = {},
       .second_heading = {},
       .boxes = {},
       .fields = {},
       .example_heading = "  Repeated Random Sampling    [Example]"},
  };
  return rows;
}

const ProcedureRow* FindProcedureRow(Procedure procedure) {
  const auto& rows = ProcedureRows();
  const auto row = std::ranges::find(rows, procedure, &ProcedureRow::procedure);
  return row == rows.end() ? nullptr : &*row;
}

const ProcedureRow& RegressionRow(RegressionKind kind) {
  static const ProcedureRow least_squares = {.procedure = Procedure::kRegression,
                                             .control = "Option21",
                                             .caption = "Ordinary Least Squares",
                                             .tooltip = "For continuous dependent variables",
                                             .first_heading = kVariableY,
                                             .second_heading = kVariableX,
                                             .boxes = kLeastSquaresBoxes,
                                             .fields = {},
                                             .example_heading = kLeastSquaresExample};
  static const ProcedureRow logistic = {.procedure = Procedure::kRegression,
                                        .control = "Option22",
                                        .caption = "Logistic",
                                        .tooltip = "For dichotomous dependent variables",
                                        .first_heading = kVariableY,
                                        .second_heading = kVariableX,
                                        .boxes = kLogisticBoxes,
                                        .fields = {},
                                        .example_heading = "  Logistic Regression    [Example]"};
  return kind == RegressionKind::kLogistic ? logistic : least_squares;
}

const ProcedureRow* ShownRow(const ProcedurePanel& panel) {
  if (panel.selected == Procedure::kRegression) return &RegressionRow(panel.regression);
  return FindProcedureRow(panel.selected);
}

}  // namespace tessara
