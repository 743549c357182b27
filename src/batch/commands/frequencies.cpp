#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--dispersion", "", "add the index of dispersion", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kFrequencies,
                      [&](ProcedureOptions& options) { options.frequencies.dispersion = words.Has("--dispersion"); });
}

}  // namespace

constinit const CommandRow kFrequenciesCommand{
    .name = "frequencies",
    .synopsis = "VAR... [by VAR...] [--dispersion]",
    .summary = "counts and percentages",
    .details =
        "Reports count, percent and cumulative percent of each value, one report a variable.\n"
        "With variables behind \"by\" each of those ahead of it is crosstabulated with them.\n",
    .example = "frequencies SEX SMOKE --dispersion",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
