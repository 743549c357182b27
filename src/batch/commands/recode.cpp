#include <array>

#include "batch/commands/commands.h"
#include "batch/commands/recode_line.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--lt", "X", "cells less than X", OptionValue::kNeeded},
    {"--eq", "X", "cells with the text X", OptionValue::kNeeded},
    {"--gt", "X", "cells greater than X", OptionValue::kNeeded},
    {"--to", "Y", "the new value of these records", OptionValue::kNeeded},
    {"--date", "", "X and the cells are dates", OptionValue::kNone},
};

struct RelationWord {
  std::string_view option;
  RecodeOption relation;
};

constexpr std::array<RelationWord, 3> kRelations = {{
    {"--lt", RecodeOption::kLessThan},
    {"--eq", RecodeOption::kEqualTo},
    {"--gt", RecodeOption::kGreaterThan},
}};

CommandResult Run(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "NEW"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);
  const std::string doubled = MoreThanOne(words, {"--lt", "--eq", "--gt"}, "relation");
  if (!doubled.empty()) return NotUnderstood(doubled);

  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kRecode);
  PickRecodeVariable(panel, line.columns[0]);
  ChangeNewName(panel, BoxWithoutCommas(batch, words.words[1]));
  panel.recode_option = RecodeOption::kNone;
  panel.OldValue.clear();
  for (const RelationWord& row : kRelations) {
    if (!words.Has(row.option)) continue;
    panel.recode_option = row.relation;
    panel.OldValue = BoxOfOption(words, row.option);
  }
  panel.NewValue = BoxWithoutCommas(batch, words.Value("--to").value_or(""));
  panel.Check2 = words.Has("--date");
  return RunRecodeLine(batch);
}

}  // namespace

constinit const CommandRow kRecodeCommand{
    .name = "recode",
    .synopsis = "VAR NEW --lt X | --eq X | --gt X --to Y [--date]",
    .summary = "make a variable of categories from another one",
    .details =
        "Adds the variable NEW and writes Y into it wherever VAR meets the relation. The next\n"
        "recode line with the same NEW goes on in the same variable, and leaves what its own\n"
        "relation does not meet; a line of another panel with another name, or other data, end\n"
        "that. Blank and missing values of VAR stay blank.\n"
        "--lt and --gt compare numbers; a cell that is no number meets both. --eq compares texts:\n"
        "2.0 is not 2. With --date the cells are compared as dates; a cell that is no date counts\n"
        "as the date ahead of it.\n",
    .example = "recode AGE AGEGRP --lt 30 --to young",
    .options = kOptions,
    .most_words = 2,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
