#include "batch/commands/procedure_line.h"

namespace tessara {

void PreparePanel(Batch& batch, Procedure procedure, const VariableLists& variables) {
  Session& session = batch.session;
  ClearPanelLists(session.panel);
  SelectProcedure(session.panel, procedure);
  for (const std::size_t column : variables.first) {
    AddAnalysisVariable(session.panel, batch.platform, {column});
  }
  for (const std::size_t column : variables.second) {
    AddIndependentVariable(session.panel, batch.platform, {column});
  }
}

CommandResult RunPrepared(Batch& batch) {
  const RunOutcome outcome = RunPanel(batch.session);
  ClearPanelLists(batch.session.panel);
  return {outcome.refused || outcome.aborted ? BatchStatus::kRefused : BatchStatus::kAllWell, {}};
}

}  // namespace tessara
