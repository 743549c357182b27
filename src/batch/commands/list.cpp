#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--max", "N", "list no more than N cases", OptionValue::kNeeded},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kListVariables, [&](ProcedureOptions& options) {
    options.list.max_observations = HeldText(words.Value("--max").value_or(""));
  });
}

}  // namespace

constinit const CommandRow kListCommand{
    .name = "list",
    .synopsis = "VAR... [--max N]",
    .summary = "list the values of up to seven variables",
    .details =
        "Lists the values of the variables side by side, one line a case. A --max of 0, or one\n"
        "that is no number, lists none.\n",
    .example = "list SEX AGE --max 20",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
