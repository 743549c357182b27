#include <array>

#include "batch/commands/commands.h"
#include "batch/commands/recode_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--plus", "", "the sum", OptionValue::kNone},
    {"--minus", "", "the first less the second", OptionValue::kNone},
    {"--times", "", "the product", OptionValue::kNone},
    {"--divide", "", "the first by the second", OptionValue::kNone},
};

struct OperatorWord {
  std::string_view option;
  CombineOption operation;
};

constexpr std::array<OperatorWord, 4> kOperators = {{
    {"--plus", CombineOption::kPlus},
    {"--minus", CombineOption::kMinus},
    {"--times", CombineOption::kMultiplied},
    {"--divide", CombineOption::kDivided},
}};

// Both variables are picked from the list, one after the other.
void FillTwoVariables(Batch& batch, RecodeMode mode, const RecodeLine& line, std::string_view name) {
  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, mode);
  PickRecodeVariable(panel, line.columns[0]);
  CopyVariable1(panel, batch.session.data, batch.platform);
  PickRecodeVariable(panel, line.columns[1]);
  CopyVariable2(panel, batch.session.data, batch.platform);
  ChangeNewName(panel, BoxWithoutCommas(batch, name));
}

CommandResult RunCombine(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "the second VAR", "NEW"}, 2);
  if (!line.error.empty()) return NotUnderstood(line.error);
  const std::string doubled = MoreThanOne(words, {"--plus", "--minus", "--times", "--divide"}, "operator");
  if (!doubled.empty()) return NotUnderstood(doubled);

  FillTwoVariables(batch, RecodeMode::kCombine, line, words.words[2]);
  RecodePanel& panel = batch.session.recode;
  panel.combine_option = CombineOption::kNone;
  for (const OperatorWord& row : kOperators) {
    if (words.Has(row.option)) panel.combine_option = row.operation;
  }
  return RunRecodeLine(batch);
}

CommandResult RunCompareDates(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "the second VAR", "NEW"}, 2);
  if (!line.error.empty()) return NotUnderstood(line.error);
  FillTwoVariables(batch, RecodeMode::kCompareDates, line, words.words[2]);
  return RunRecodeLine(batch);
}

}  // namespace

constinit const CommandRow kCombineCommand{
    .name = "combine",
    .synopsis = "VAR VAR NEW --plus | --minus | --times | --divide",
    .summary = "make a variable from two others by arithmetic",
    .details =
        "Adds the variable NEW with the result for each record, a text with five decimals. A\n"
        "record whose first or second value is blank or missing stays empty. A division by zero,\n"
        "and one of zero, gives 0.\n",
    .example = "combine WEIGHT HEIGHT RATIO --divide",
    .options = kOptions,
    .most_words = 3,
    .needed_word = "VAR",
    .run = RunCombine,
};

constinit const CommandRow kCompareDatesCommand{
    .name = "compare-dates",
    .synopsis = "VAR VAR NEW",
    .summary = "make a variable of the days between two dates",
    .details =
        "Adds the variable NEW with the number of days from the first date to the second one,\n"
        "negative when the second is earlier. A record without two dates stays empty.\n",
    .example = "compare-dates ADMITTED LEFT STAY",
    .most_words = 3,
    .needed_word = "VAR",
    .run = RunCompareDates,
};

}  // namespace tessara
