#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--chart", "", "add a horizontal bar chart", OptionValue::kNone},
    {"--save-z", "", "save the z-scores as another variable", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kDescriptives, [&](ProcedureOptions& options) {
    options.descriptives.bar_chart = words.Has("--chart");
    options.descriptives.save_z_scores = words.Has("--save-z");
  });
}

}  // namespace

constinit const CommandRow kDescriptivesCommand{
    .name = "descriptives",
    .synopsis = "VAR... [by VAR...] [--chart] [--save-z]",
    .summary = "summary statistics",
    .details =
        "Reports mean, median, spread and a one-sample t-test against 0, one report a variable.\n"
        "Variables behind \"by\" add an error message for each pair without a case, and no more:\n"
        "\"explore\" and \"table continuous\" show the statistics of groups.\n",
    .example = "descriptives AGE WEIGHT --chart",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
