#include <string>

#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--overwrite", "", "also over another file, or one that this run works on", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  const std::string& name = words.words[0];
  if (!IsPossiblePath(name)) return NotUnderstood(Quoted(name) + " is not a path");
  const Path path = PathFromUtf8(name);
  const bool overwrite = words.Has("--overwrite");
  if (batch.files.GuardsInput(path) && !overwrite) {
    return NotUnderstood(Quoted(name) + " is a file that this run works on; --overwrite writes over it");
  }
  if (std::string refusal = WhyNotSavedTo(batch, path, overwrite); !refusal.empty()) {
    return NotUnderstood(std::move(refusal));
  }
  if (words.words.size() - 1 > kMostSplitVariables) {
    return NotUnderstood("a new data file takes " + std::to_string(kMostSplitVariables) + " variables at most");
  }
  SplitPanel& panel = batch.session.split;
  ResetSplit(panel);
  for (std::size_t i = 1; i < words.words.size(); ++i) {
    const auto column = FindVariable(batch.session.data, words.words[i]);
    if (!column) return NotUnderstood(UnknownVariable(words.words[i]));
    AddVariable(panel, *column, batch.platform);
  }
  if (MayRunSplit(panel, batch.platform)) RunSplit(panel, batch.session.data, batch.platform, path);
  return Done();
}

}  // namespace

constinit const CommandRow kSplitCommand{
    .name = "split",
    .synopsis = "PATH VAR... [--overwrite]",
    .summary = "write a new data file of some variables",
    .details =
        "Writes the variables, in the order given and with their labels and missing values, to the\n"
        "new data file PATH; at most 300 of them. The data at work stay as they are. A file that is\n"
        "there already and does not look like a data file is refused without --overwrite, and so\n"
        "are the files that this run works on.\n",
    .example = "split short.dcs SEX AGE",
    .options = kOptions,
    .most_words = kAnyNumber,
    .needed_word = "PATH",
    .run = Run,
};

}  // namespace tessara
