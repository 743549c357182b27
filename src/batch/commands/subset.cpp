#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

CommandResult Run(Batch& batch, const CommandWords&) {
  PreparePanel(batch, Procedure::kNone, {});
  return RunPrepared(batch);
}

}  // namespace

constinit const CommandRow kSubsetCommand{
    .name = "subset",
    .summary = "replace the data by the cases that pass the control",
    .details =
        "The control variable and its relation are those of the last control command; they end\n"
        "here. --eq and --ne compare numbers where both are numbers: 1.0 equals 1. The data keep\n"
        "the path of their file: save them under another one. The question is answered with Yes.\n",
    .example = "subset",
    .run = Run,
};

}  // namespace tessara
