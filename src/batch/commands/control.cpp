#include <array>
#include <string>
#include <string_view>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "procedures/panel.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--gt", "X", "cases greater than the number X", OptionValue::kNeeded},
    {"--lt", "X", "cases less than the number X", OptionValue::kNeeded},
    {"--eq", "X", "cases equal to X, a number or a text", OptionValue::kNeeded},
    {"--ne", "X", "cases not equal to X", OptionValue::kNeeded},
    {"--all-missing", "", "only cases whose control value is missing", OptionValue::kNone},
    {"--no-missing", "", "only cases whose control value is valid", OptionValue::kNone},
};

struct RelationWord {
  std::string_view option;
  ControlRelation relation;
};

constexpr std::array<RelationWord, 6> kRelations = {{
    {"--gt", ControlRelation::kGreaterThan},
    {"--lt", ControlRelation::kLessThan},
    {"--eq", ControlRelation::kEqualTo},
    {"--ne", ControlRelation::kNotEqualTo},
    {"--all-missing", ControlRelation::kAllMissing},
    {"--no-missing", ControlRelation::kNoMissing},
}};

bool TakesNumber(ControlRelation relation) {
  return relation == ControlRelation::kGreaterThan || relation == ControlRelation::kLessThan;
}

CommandResult Run(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  const std::string& variable = words.words[0];
  if (variable == "none") {
    if (!words.options.empty()) return NotUnderstood("\"none\" takes no relation");
    ResetControl(session.panel);
    return Done();
  }
  if (words.options.size() > 1) return NotUnderstood("only one relation may be given");
  const auto column = FindVariable(session.data, variable);
  if (!column) return NotUnderstood(UnknownVariable(variable));

  ResetControl(session.panel);
  SetControlVariable(session.panel, session.data, batch.platform, {*column});
  ControlChoice& choice = session.panel.control;
  for (const RelationWord& row : kRelations) {
    const auto value = words.Value(row.option);
    if (!value) continue;
    choice.relation = row.relation;
    if (row.relation == ControlRelation::kAllMissing || row.relation == ControlRelation::kNoMissing) continue;
    choice.value = HeldText(*value);
    if (TakesNumber(row.relation) && !AcceptControlNumber(batch.platform, choice.value)) choice.value.clear();
  }
  return Done();
}

}  // namespace

constinit const CommandRow kControlCommand{
    .name = "control",
    .synopsis = "VAR [--gt X | --lt X | --eq X | --ne X | --all-missing | --no-missing] | none",
    .summary = "limit the cases of the commands that follow",
    .details =
        "The commands that follow use only the cases whose value of VAR meets the relation; a\n"
        "missing value of VAR never does, but for --all-missing. At most one relation may be\n"
        "given. The control stays until the next control command; \"control none\" and new end it.\n"
        "It belongs to its variable: open resets it, with a note, unless the column of the variable\n"
        "carries the same name in the other data.\n"
        "--gt and --lt take numbers: another value is answered by a warning and counts as empty,\n"
        "which is no relation. A text value of VAR passes both.\n"
        "A variable named \"none\" is reached by its number.\n",
    .example = "control AGE --gt 40",
    .options = kOptions,
    .most_words = 1,
    .needed_word = "VAR",
    .run = Run,
};

}  // namespace tessara
