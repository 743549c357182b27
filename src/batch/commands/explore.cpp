#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

CommandResult Run(Batch& batch, const CommandWords& words) { return RunProcedure(batch, words, Procedure::kExplore); }

}  // namespace

constinit const CommandRow kExploreCommand{
    .name = "explore",
    .synopsis = "VAR... [by VAR...]",
    .summary = "descriptive statistics of subgroups",
    .details =
        "Reports count, mean, deviation and interval of each variable ahead of \"by\", for all\n"
        "cases and for every category of those behind it, in one report. A category needs two\n"
        "cases. Ahead of each variable the run ends when it has 500 categories already.\n",
    .example = "explore WEIGHT HEIGHT by SEX",
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
