#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "batch/command.h"
#include "batch/script_line.h"
#include "batch/variable_lists.h"
#include "procedures/panel.h"

namespace tessara::procedure_commands {
namespace {

struct RelationWord {
  std::string_view option;
  ControlRelation relation;
};

constexpr std::array<RelationWord, 6> kRelations = {{
    {"--gt", ControlRelation::kGreaterThan},
    {"--lt", ControlRelation::kLessThan},
    {"--eq", ControlRelation::kEqualTo},
    {"--ne", ControlRelation::kNotEqualTo},
    {"--all-missing", ControlRelation::kAllMissing},
    {"--no-missing", ControlRelation::kNoMissing},
}};

bool TakesNumber(ControlRelation relation) {
  return relation == ControlRelation::kGreaterThan || relation == ControlRelation::kLessThan;
}

// Selects the procedure with all its boxes off and puts the variables into the lists, in the order of the words.
void PreparePanel(Batch& batch, Procedure procedure, const VariableLists& variables) {
  Session& session = batch.session;
  ClearPanelLists(session.panel);
  SelectProcedure(session.panel, procedure);
  session.panel.checks = {};
  for (const std::size_t column : variables.first) {
    AddAnalysisVariable(session.panel, batch.platform, {column});
  }
  for (const std::size_t column : variables.second) {
    AddIndependentVariable(session.panel, batch.platform, {column});
  }
}

// Runs the panel and empties its lists, so that the next line starts from a panel that holds the control alone.
CommandResult RunPrepared(Batch& batch) {
  const RunOutcome outcome = RunPanel(batch.session);
  ClearPanelLists(batch.session.panel);
  return {outcome.refused || outcome.aborted ? BatchStatus::kRefused : BatchStatus::kAllWell, {}};
}

// A line of a procedure: the variables into the lists, the options into the panel by `set_options`, and the run.
template <typename SetOptions>
CommandResult RunProcedure(Batch& batch, const CommandWords& words, Procedure procedure, SetOptions set_options) {
  const VariableLists variables = ReadVariableLists(batch.session.data, words.words);
  if (!variables.error.empty()) return NotUnderstood(variables.error);
  PreparePanel(batch, procedure, variables);
  set_options(batch.session.panel);
  return RunPrepared(batch);
}

}  // namespace

CommandResult Control(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  const std::string& variable = words.words[0];
  if (variable == "none") {
    if (!words.options.empty()) return NotUnderstood("\"none\" takes no relation");
    ResetControl(session.panel);
    return Done();
  }
  if (words.options.size() > 1) return NotUnderstood("only one relation may be given");
  const auto column = FindVariable(session.data, variable);
  if (!column) return NotUnderstood(UnknownVariable(variable));

  ResetControl(session.panel);
  SetControlVariable(session.panel, session.data, batch.platform, {*column});
  ControlChoice& choice = session.panel.control;
  for (const RelationWord& row : kRelations) {
    const auto value = words.Value(row.option);
    if (!value) continue;
    choice.relation = row.relation;
    if (row.relation == ControlRelation::kAllMissing || row.relation == ControlRelation::kNoMissing) continue;
    choice.value = HeldText(*value);
    if (TakesNumber(row.relation) && !choice.value.empty()) AcceptControlNumber(batch.platform, choice.value);
  }
  return Done();
}

CommandResult Frequencies(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kFrequencies,
                      [&](ProcedurePanel& panel) { panel.checks.Check2 = words.Has("--dispersion"); });
}

CommandResult Descriptives(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kDescriptives, [&](ProcedurePanel& panel) {
    panel.checks.Check1 = words.Has("--chart");
    panel.checks.Check2 = words.Has("--save-z");
  });
}

CommandResult Crosstab(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCrosstabulation, [&](ProcedurePanel& panel) {
    panel.checks.Check1 = words.Has("--association");
    panel.checks.Check2 = !words.Has("--no-chi-square");
    panel.checks.Check11 = words.Has("--agreement");
    panel.checks.Check12 = words.Has("--risk");
  });
}

CommandResult Diagnostic(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kDiagnostic, [](ProcedurePanel&) {});
}

CommandResult TTest(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kTTest, [&](ProcedurePanel& panel) {
    panel.Text5 = HeldText(words.Value("--groups").value_or(""));
    panel.Text6 = HeldText(words.SecondValue("--groups").value_or(""));
  });
}

CommandResult Anova(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kAnova, [&](ProcedurePanel& panel) {
    panel.checks.Check1 = words.Has("--post-hoc");
    panel.checks.Check2 = words.Has("--summary");
  });
}

CommandResult Correlation(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCorrelation, [](ProcedurePanel&) {});
}

CommandResult CorrelationMatrix(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCorrelation, [](ProcedurePanel& panel) { panel.checks.Check2 = true; });
}

CommandResult List(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kListVariables,
                      [&](ProcedurePanel& panel) { panel.Text7 = HeldText(words.Value("--max").value_or("")); });
}

CommandResult Regression(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kRegression, [&](ProcedurePanel& panel) {
    panel.regression = RegressionKind::kLeastSquares;
    panel.checks.Check1 = words.Has("--save-residuals");
    panel.checks.Check2 = words.Has("--summary");
  });
}

CommandResult Logistic(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kRegression, [&](ProcedurePanel& panel) {
    panel.regression = RegressionKind::kLogistic;
    panel.checks.Check1 = words.Has("--save-predicted");
    panel.checks.Check2 = words.Has("--summary");
  });
}

}  // namespace tessara::procedure_commands
