#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--summary", "", "add the statistics of each group", OptionValue::kNone},
    {"--post-hoc", "", "add the Bonferroni comparisons", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kAnova, [&](ProcedureOptions& options) {
    options.anova.post_hoc = words.Has("--post-hoc");
    options.anova.summary = words.Has("--summary");
  });
}

}  // namespace

constinit const CommandRow kAnovaCommand{
    .name = "anova",
    .synopsis = "VAR... by VAR... [--summary] [--post-hoc]",
    .summary = "compare two or more independent means",
    .details =
        "One-way analysis of variance of the variable ahead of \"by\" over the groups that the\n"
        "values of the one behind it make.\n",
    .example = "anova PRESSURE by REGION --summary --post-hoc",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
