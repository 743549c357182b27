#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "data/dictionary/variable_format.h"
#include "shell/format_operations.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--name", "N", "the name, 8 characters or less", OptionValue::kNeeded},
    {"--label", "L", "the label, 40 characters or less", OptionValue::kNeeded},
    {"--missing", "V", "a missing value; the first four fill the four boxes", OptionValue::kNeeded,
     OptionTimes::kAnyNumber},
    {"--below", "X", "values below X are missing", OptionValue::kNeeded},
    {"--above", "X", "values above X are missing", OptionValue::kNeeded},
    {"--value-label", "V=L", "the label of a value; the first eight fill the eight pairs", OptionValue::kNeeded,
     OptionTimes::kAnyNumber},
    {"--decimals", "D", "rewrite the cells with D decimals, for good", OptionValue::kNeeded},
};

struct BoxOption {
  std::string_view option;
  FormatBox box;
};
constexpr BoxOption kSingleBoxes[] = {{"--name", FormatBox::Text1},
                                      {"--label", FormatBox::Text2},
                                      {"--below", FormatBox::Text20},
                                      {"--above", FormatBox::Text21}};

std::string TooMany(std::string_view option, std::size_t most) {
  return std::string(option) + " may be given " + std::to_string(most) + " times at most";
}

// "value=label", split at the first equals sign. Empty text where the word has none.
std::string FillPair(FormatTexts& boxes, std::size_t pair, const std::string& word) {
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos) return "--value-label needs V=L, and " + Quoted(word) + " has no \"=\"";
  const std::size_t value = kFirstValueLabelBox + 2 * pair;
  boxes[value] = HeldText(word.substr(0, equals));
  boxes[value + 1] = HeldText(word.substr(equals + 1));
  return {};
}

// What is wrong with the words; empty when the boxes are filled.
std::string FillBoxes(const CommandWords& words, VariableFormat& format) {
  const std::vector<std::string> missing = words.Values("--missing");
  const std::vector<std::string> pairs = words.Values("--value-label");
  if (missing.size() > kSingleMissingEntries) return TooMany("--missing", kSingleMissingEntries);
  if (pairs.size() > kValueLabelSlots) return TooMany("--value-label", kValueLabelSlots);
  for (const BoxOption& row : kSingleBoxes) {
    if (const auto value = words.Value(row.option)) format.boxes[row.box] = HeldText(*value);
  }
  for (std::size_t i = 0; i < missing.size(); ++i) format.boxes[kFirstMissingBox + i] = HeldText(missing[i]);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const std::string wrong = FillPair(format.boxes, i, pairs[i]);
    if (!wrong.empty()) return wrong;
  }
  const auto decimals = words.Value("--decimals");
  SetChangeDecimals(format, decimals.has_value());
  if (decimals) format.boxes[FormatBox::Text22] = HeldText(*decimals);
  return {};
}

CommandResult RunFormat(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  const auto column = FindVariable(session.data, words.words[0]);
  if (!column) return NotUnderstood(UnknownVariable(words.words[0]));
  ShowVariableFormat(session.format, session.data, *column);
  const std::string wrong = FillBoxes(words, session.format);
  if (!wrong.empty()) return NotUnderstood(wrong);
  SaveFormat(session);
  return Done();
}

CommandResult RunCopyFormat(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  if (words.words.size() < 2) return NotUnderstood("the second VAR is missing");
  std::array<std::size_t, 2> columns{};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const auto column = FindVariable(session.data, words.words[i]);
    if (!column) return NotUnderstood(UnknownVariable(words.words[i]));
    columns[i] = *column;
  }
  SetChangeDecimals(session.format, false);
  ShowVariableFormat(session.format, session.data, columns[0]);
  CopyFormat(session);
  ShowVariableFormat(session.format, session.data, columns[1]);
  PasteFormat(session);
  SaveFormat(session);
  return Done();
}

}  // namespace

constinit const CommandRow kFormatCommand{
    .name = "format",
    .synopsis =
        "VAR [--name N] [--label L] [--missing V]... [--below X] [--above X] [--value-label V=L]... [--decimals D]",
    .summary = "describe a variable",
    .details =
        "Stores name, label, missing values and value labels of VAR. What is not named stays. The\n"
        "n-th --missing replaces the n-th of four missing values, the n-th --value-label the n-th of\n"
        "eight pairs; an empty V takes a missing value away, \"=\" a pair. Values below --below and\n"
        "above --above are missing, too. Commas and line ends are taken out.\n"
        "--decimals rewrites the numbers of VAR, but for missing ones: 3.14159 with 2 becomes 3.14 in\n"
        "the data. A D that is no number counts as 0, one below 0 gives each number its shortest form;\n"
        "with an empty D nothing is rewritten.\n"
        "The limits of characters are advice: longer texts are stored.\n",
    .example = "format SMOKE --label \"Smokes\" --missing 9 --value-label 0=No --value-label 1=Yes",
    .options = kOptions,
    .most_words = 1,
    .needed_word = "VAR",
    .run = RunFormat,
};

constinit const CommandRow kCopyFormatCommand{
    .name = "copy-format",
    .synopsis = "VAR VAR",
    .summary = "copy missing values and value labels",
    .details =
        "Gives the second VAR the missing values and the value labels of the first one. Its name and\n"
        "its label stay.\n",
    .example = "copy-format ITEM1 ITEM2",
    .most_words = 2,
    .needed_word = "VAR",
    .run = RunCopyFormat,
};

}  // namespace tessara
