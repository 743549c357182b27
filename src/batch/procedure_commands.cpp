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
  ClearPanelLists(session.data, session.panel);
  SelectProcedure(session.panel, procedure);
  session.panel.checks = {};
  for (const std::size_t column : variables.first) {
    AddAnalysisVariable(session.data, session.panel, batch.platform, {column});
  }
  for (const std::size_t column : variables.second) {
    AddIndependentVariable(session.data, session.panel, batch.platform, {column});
  }
}

// Runs the panel and empties its lists, so that the next line starts from a panel that holds the control alone.
CommandResult RunPrepared(Batch& batch) {
  const RunOutcome outcome = RunPanel(batch.session);
  ClearPanelLists(batch.session.data, batch.session.panel);
  return {outcome.refused || outcome.aborted ? BatchStatus::kRefused : BatchStatus::kAllWell, {}};
}

}  // namespace

CommandResult Control(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  const std::string& variable = words.words[0];
  if (variable == "none") {
    if (!words.options.empty()) return NotUnderstood("\"none\" takes no relation");
    ResetControl(session.data, session.panel);
    return Done();
  }
  if (words.options.size() > 1) return NotUnderstood("only one relation may be given");
  const auto column = FindVariable(session.data, variable);
  if (!column) return NotUnderstood(UnknownVariable(variable));

  ResetControl(session.data, session.panel);
  SetControlVariable(session.data, session.panel, batch.platform, {*column});
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
  const VariableLists variables = ReadVariableLists(batch.session.data, words.words);
  if (!variables.error.empty()) return NotUnderstood(variables.error);
  PreparePanel(batch, Procedure::kFrequencies, variables);
  batch.session.panel.checks.Check2 = words.Has("--dispersion");
  return RunPrepared(batch);
}

CommandResult Descriptives(Batch& batch, const CommandWords& words) {
  const VariableLists variables = ReadVariableLists(batch.session.data, words.words);
  if (!variables.error.empty()) return NotUnderstood(variables.error);
  PreparePanel(batch, Procedure::kDescriptives, variables);
  batch.session.panel.checks.Check1 = words.Has("--chart");
  batch.session.panel.checks.Check2 = words.Has("--save-z");
  return RunPrepared(batch);
}

}  // namespace tessara::procedure_commands
