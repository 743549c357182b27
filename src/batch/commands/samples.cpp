#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "batch/words/variable_lists.h"
#include "shell/sample_operations.h"

namespace tessara {
namespace {

CommandResult RunSample(Batch& batch, const CommandWords& words) {
  batch.session.samples.Text8 = HeldText(words.words[0]);
  return {DrawSampleOfData(batch.session) ? BatchStatus::kAllWell : BatchStatus::kRefused, {}};
}

constexpr OptionRow kIterationsOptions[] = {
    {"--size", "N", "draw N records for each sample", OptionValue::kNeeded},
    {"--count", "K", "draw K samples", OptionValue::kNeeded},
};

CommandResult RunIterationsLine(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  const auto column = FindVariable(session.data, words.words[0]);
  if (!column) return NotUnderstood(UnknownVariable(words.words[0]));
  session.samples.Text15 = HeldText(words.Value("--size").value_or(""));
  session.samples.Text16 = HeldText(words.Value("--count").value_or(""));
  PickVariable(session.panel, *column);
  // Nobody is there to save the changes first.
  batch.platform.answer = Answer::kNo;
  if (WantsToSaveFirst(session.data, batch.platform)) return Done();
  const IterationsOutcome outcome = DrawIterations(session);
  return {outcome == IterationsOutcome::kRun ? BatchStatus::kAllWell : BatchStatus::kRefused, {}};
}

}  // namespace

constinit const CommandRow kSampleCommand{
    .name = "sample",
    .synopsis = "N",
    .summary = "replace the data by a random sample of N records",
    .details =
        "The dictionary and the notes stay. More than there are records changes nothing, status 1.\n"
        "A sample that is smaller than the data by fifteen records and more never has one of the\n"
        "last fifteen. --seed makes the same sample again.\n",
    .example = "sample 100",
    .most_words = 1,
    .needed_word = "N",
    .run = RunSample,
};

constinit const CommandRow kIterationsCommand{
    .name = "iterations",
    .synopsis = "VAR --size N --count K",
    .summary = "replace the data by a sampling distribution of VAR",
    .details =
        "Draws K random samples of N records, and makes data of them: a record each, with the\n"
        "variables IterNum, Mean, StdDev and Count. Reports the means by descriptives. N is less\n"
        "than the number of records. Unsaved changes are not asked about: they are lost.\n",
    .example = "iterations AGE --size 30 --count 1000",
    .options = kIterationsOptions,
    .most_words = 1,
    .needed_word = "VAR",
    .run = RunIterationsLine,
};

}  // namespace tessara
