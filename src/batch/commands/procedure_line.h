#pragma once

#include <cstddef>
#include <string>

#include "batch/commands/command.h"
#include "batch/words/variable_lists.h"
#include "procedures/panel.h"

// What the commands of the procedures share: variables into the lists of the panel, options into the panel, and a run.

namespace tessara {

// Selects the procedure with its options as they are at first and puts the variables into the lists, in the order of
// the words.
void PreparePanel(Batch& batch, Procedure procedure, const VariableLists& variables);

// Runs the panel and empties its lists, so that the next line starts from a panel that holds the control alone.
CommandResult RunPrepared(Batch& batch);

// A line of a procedure; `set_options` fills in what its words ask for.
template <typename SetOptions>
CommandResult RunProcedure(Batch& batch, const CommandWords& words, Procedure procedure, SetOptions set_options) {
  const VariableLists variables = ReadVariableLists(batch.session.data, words.words);
  if (!variables.error.empty()) return NotUnderstood(variables.error);
  PreparePanel(batch, procedure, variables);
  set_options(batch.session.panel.options);
  return RunPrepared(batch);
}

inline CommandResult RunProcedure(Batch& batch, const CommandWords& words, Procedure procedure) {
  return RunProcedure(batch, words, procedure, [](ProcedureOptions&) {});
}

}  // namespace tessara
