#include "batch/commands/commands.h"
#include "presentation/output_log.h"
#include "procedures/samples/data_dictionary.h"
#include "shell/sample_operations.h"

namespace tessara {
namespace {

CommandResult RunDictionary(Batch& batch, const CommandWords&) {
  ShowDataDictionary(batch.session);
  return Done();
}

CommandResult RunPrintNotes(Batch& batch, const CommandWords&) {
  AppendReport(batch.session.output, ProjectNotesText(batch.session.data));
  return Done();
}

}  // namespace

constinit const CommandRow kDictionaryCommand{
    .name = "dictionary",
    .summary = "describe all variables in the log",
    .details = "Names, labels, value labels and missing values of all variables, under the file's facts.\n",
    .example = "dictionary",
    .run = RunDictionary,
};

constinit const CommandRow kPrintNotesCommand{
    .name = "print-notes",
    .summary = "report the project notes",
    .details = "Adds the notes to the log, under the data statistics.\n",
    .example = "print-notes",
    .run = RunPrintNotes,
};

}  // namespace tessara
