#include "batch/commands/commands.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

CommandResult Run(Batch& batch, const CommandWords& words) {
  SetProjectNotes(batch.session, words.words.empty() ? "" : WithBoxLineEnds(HeldText(words.words[0])));
  return Done();
}

}  // namespace

constinit const CommandRow kNotesCommand{
    .name = "notes",
    .synopsis = "[TEXT]",
    .summary = "set the project notes",
    .details =
        "Sets the project notes, which the next save writes into the data file. Quote a TEXT of\n"
        "several words. Without TEXT the notes are emptied.\n",
    .example = "notes \"Second wave, cleaned\"",
    .most_words = 1,
    .run = Run,
};

}  // namespace tessara
