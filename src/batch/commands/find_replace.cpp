#include "batch/commands/commands.h"
#include "batch/commands/recode_line.h"
#include "batch/words/script_line.h"
#include "data/recode/recode_run.h"

namespace tessara {
namespace {

// Goes on behind the last match as long as the same variable is named: only another one is picked anew.
CommandResult RunFind(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "TEXT"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);
  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kFind);
  if (panel.RecodeColumn != line.columns[0]) PickRecodeVariable(panel, line.columns[0]);
  panel.Text12 = HeldText(words.words[1]);
  const RecodeOutcome outcome = RunRecodePanel(panel, batch.session.data, batch.platform);
  if (outcome.refused) return Done();
  batch.stream.PrintText(outcome.found_row == 0
                             ? "No Match Found\r\n"
                             : "record " + std::to_string(outcome.found_row - kHeaderRowCount) + "\r\n");
  return Done();
}

CommandResult RunReplace(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR", "FIND", "REPLACEMENT"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);
  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kReplace);
  PickRecodeVariable(panel, line.columns[0]);
  panel.Text12 = HeldText(words.words[1]);
  panel.Text13 = HeldText(words.words[2]);
  return RunRecodeLine(batch);
}

CommandResult RunUndo(Batch& batch, const CommandWords& words) {
  const RecodeLine line = ReadRecodeLine(batch, words, {"VAR"}, 1);
  if (!line.error.empty()) return NotUnderstood(line.error);
  RecodePanel& panel = batch.session.recode;
  OpenRecodePanel(panel, batch.session.data, RecodeMode::kReplace);
  PickRecodeVariable(panel, line.columns[0]);
  UndoReplace(panel, batch.session.data);
  return Done();
}

}  // namespace

constinit const CommandRow kFindCommand{
    .name = "find",
    .synopsis = "VAR TEXT",
    .summary = "print the next record that holds a text",
    .details =
        "Prints \"record N\" for the next cell of VAR that holds TEXT anywhere in it, no matter\n"
        "whether its letters are large or small, or \"No Match Found\", behind which the search\n"
        "starts from the top. A line with the same VAR goes on behind the last match. The log\n"
        "gets nothing from it.\n",
    .example = "find CITY york",
    .most_words = 2,
    .needed_word = "VAR",
    .run = RunFind,
};

constinit const CommandRow kReplaceCommand{
    .name = "replace",
    .synopsis = "VAR FIND REPLACEMENT",
    .summary = "replace a text in all cells of a variable",
    .details =
        "Replaces every occurrence of FIND in the cells of VAR, letter for letter, also within\n"
        "longer texts. An empty FIND, \"\", fills the blank cells and leaves all others.\n",
    .example = "replace SEX Male 1",
    .most_words = 3,
    .needed_word = "VAR",
    .run = RunReplace,
};

constinit const CommandRow kUndoCommand{
    .name = "undo",
    .synopsis = "VAR",
    .summary = "take the latest replace back",
    .details =
        "Writes the cells as they were ahead of the latest replace line into VAR, also when that\n"
        "line was about another variable. Without one nothing happens.\n",
    .example = "undo SEX",
    .most_words = 1,
    .needed_word = "VAR",
    .run = RunUndo,
};

}  // namespace tessara
