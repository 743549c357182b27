#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

constexpr OptionRow kLeastSquaresOptions[] = {
    {"--summary", "", "add summary statistics of the cases in the model", OptionValue::kNone},
    {"--save-residuals", "", "save the residuals as another variable", OptionValue::kNone},
};

constexpr OptionRow kLogisticOptions[] = {
    {"--summary", "", "add summary statistics of the cases in the model", OptionValue::kNone},
    {"--save-predicted", "", "save predicted values and residuals as other variables", OptionValue::kNone},
};

CommandResult RunLeastSquares(Batch& batch, const CommandWords& words) {
  batch.session.panel.regression = RegressionKind::kLeastSquares;
  return RunProcedure(batch, words, Procedure::kRegression, [&](ProcedureOptions& options) {
    options.least_squares.save_residuals = words.Has("--save-residuals");
    options.least_squares.summary = words.Has("--summary");
  });
}

CommandResult RunLogistic(Batch& batch, const CommandWords& words) {
  batch.session.panel.regression = RegressionKind::kLogistic;
  return RunProcedure(batch, words, Procedure::kRegression, [&](ProcedureOptions& options) {
    options.logistic.save_predicted = words.Has("--save-predicted");
    options.logistic.summary = words.Has("--summary");
  });
}

}  // namespace

constinit const CommandRow kRegressionCommand{
    .name = "regression",
    .synopsis = "VAR by VAR... [--summary] [--save-residuals]",
    .summary = "least squares regression",
    .details = "Regression of the variable ahead of \"by\" on those behind it, by ordinary least squares.\n",
    .example = "regression WEIGHT by HEIGHT AGE --save-residuals",
    .options = kLeastSquaresOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = RunLeastSquares,
};

constinit const CommandRow kLogisticCommand{
    .name = "logistic",
    .synopsis = "VAR by VAR... [--summary] [--save-predicted]",
    .summary = "logistic regression",
    .details = "Logistic regression of a variable coded 1 and 0 on those behind \"by\".\n",
    .example = "logistic SMOKE by AGE --save-predicted",
    .options = kLogisticOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = RunLogistic,
};

}  // namespace tessara
