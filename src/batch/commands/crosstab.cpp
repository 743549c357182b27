#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--no-chi-square", "", "leave the chi-square tests out", OptionValue::kNone},
    {"--risk", "", "add odds ratio and relative risk of a 2 by 2 table", OptionValue::kNone},
    {"--association", "", "add the measures of association", OptionValue::kNone},
    {"--agreement", "", "add Kappa, when there are as many rows as columns", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kCrosstabulation, [&](ProcedureOptions& options) {
    options.crosstabulation.association = words.Has("--association");
    options.crosstabulation.chi_square_tests = !words.Has("--no-chi-square");
    options.crosstabulation.agreement = words.Has("--agreement");
    options.crosstabulation.risk = words.Has("--risk");
  });
}

}  // namespace

constinit const CommandRow kCrosstabCommand{
    .name = "crosstab",
    .synopsis = "VAR... by VAR... [--no-chi-square] [--risk] [--association] [--agreement]",
    .summary = "compare one categorical variable to another",
    .details =
        "Counts a table with the variable ahead of \"by\" in its rows and the one behind it in its\n"
        "columns, and tests whether they are related. Chi-square tests are on.\n",
    .example = "crosstab SMOKE by SEX --risk",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
