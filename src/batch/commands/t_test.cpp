#include "batch/commands/commands.h"
#include "batch/commands/procedure_line.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--groups", "A B", "the values of the two groups", OptionValue::kTwo},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  return RunProcedure(batch, words, Procedure::kTTest, [&](ProcedureOptions& options) {
    options.t_test.group_a = HeldText(words.Value("--groups").value_or(""));
    options.t_test.group_b = HeldText(words.SecondValue("--groups").value_or(""));
  });
}

}  // namespace

constinit const CommandRow kTTestCommand{
    .name = "t-test",
    .synopsis = "VAR... by VAR --groups A B",
    .summary = "compare two independent means",
    .details =
        "Compares the mean of the variable ahead of \"by\" in the cases that have the value A and\n"
        "in those that have the value B of the variable behind it.\n",
    .example = "t-test WEIGHT by SEX --groups 1 2",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
