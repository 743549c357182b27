#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kDiagnostic);
}

}  // namespace

constinit const CommandRow kDiagnosticCommand{
    .name = "diagnostic",
    .synopsis = "VAR... by VAR...",
    .summary = "diagnostic accuracy",
    .details =
        "Compares an ordered test result with a reference standard of two values, the second of\n"
        "them disease: sensitivity, specificity and the like for each cut point, and the area\n"
        "under the ROC curve.\n",
    .example = "diagnostic TEST by DISEASE",
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
