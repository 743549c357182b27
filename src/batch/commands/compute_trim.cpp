#include <array>

#include "batch/commands/commands.h"
#include "batch/commands/recode_line.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

constexpr OptionRow kComputeOptions[] = {
    {"--plus", "C", "VAR plus C", OptionValue::kNeeded},
    {"--minus", "C", "VAR minus C", OptionValue::kNeeded},
    {"--times", "C", "VAR multiplied by C", OptionValue::kNeeded},
    {"--divide", "C", "VAR divided by C", OptionValue::kNeeded},
    {"--power", "C", "VAR to the power of C", OptionValue::kNeeded},
    {"--copy", "", "an exact duplicate, labels and missing values included", OptionValue::kNone},
    {"--log", "", "the natural logarithm; wins over --copy", OptionValue::kNone},
};

struct OperatorWord {
  std::string_view option;
  ComputeOption operation;
};

constexpr std::array<OperatorWord, 5> kOperators = {{
    {"--plus", ComputeOption::kPlus},
    {"--minus", ComputeOption::kMinus},
    {"--times", ComputeOption::kMultiplied},
    {"--divide", ComputeOption::kDivided},
    {"--power", ComputeOption::kPower},
}};

CommandResult RunCompute(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "NEW"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);
  const std::string doubled = MoreThanOne(words, {"--plus", "--minus", "--times", "--divide", "--power"}, "operator");
  if (!doubled.empty()) return NotUnderstood(doubled);

  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kCompute);
  PickRecodeVariable(panel, line.columns[0]);
  ChangeNewName(panel, BoxWithoutCommas(batch, words.words[1]));
  panel.compute_option = ComputeOption::kNone;
  panel.Text2.clear();
  for (const OperatorWord& row : kOperators) {
    if (!words.Has(row.option)) continue;
    panel.compute_option = row.operation;
    panel.Text2 = BoxOfOption(words, row.option);
  }
  panel.Check1 = words.Has("--copy");
  panel.Check3 = words.Has("--log");
  return RunRecodeLine(batch);
}

CommandResult RunTrim(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "NEW", "LOWER", "UPPER"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);

  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kTrim);
  PickRecodeVariable(panel, line.columns[0]);
  ChangeNewName(panel, BoxWithoutCommas(batch, words.words[1]));
  panel.Text5 = HeldText(words.words[2]);
  panel.Text6 = HeldText(words.words[3]);
  return RunRecodeLine(batch);
}

}  // namespace

constinit const CommandRow kComputeCommand{
    .name = "compute",
    .synopsis = "VAR NEW --plus C | --minus C | --times C | --divide C | --power C | --copy | --log",
    .summary = "make a variable by arithmetic on another one",
    .details =
        "Adds the variable NEW with the result for each record. Blank and missing values of VAR,\n"
        "and what cannot be computed, give an empty cell. --copy takes every cell of VAR as it\n"
        "stands, with its label, value labels and missing values; --log heeds no missing values.\n",
    .example = "compute WEIGHT POUNDS --times 2.2046",
    .options = kComputeOptions,
    .most_words = 2,
    .needed_word = "VAR",
    .run = RunCompute,
};

constinit const CommandRow kTrimCommand{
    .name = "trim",
    .synopsis = "VAR NEW LOWER UPPER",
    .summary = "make a variable without extreme values",
    .details =
        "Adds the variable NEW with the cells of VAR from LOWER to UPPER, both included; all\n"
        "others are left empty. Cells that are no numbers are kept.\n",
    .example = "trim INCOME INCOME2 1000 90000",
    .most_words = 4,
    .needed_word = "VAR",
    .run = RunTrim,
};

}  // namespace tessara
