#include "batch/command.h"
#include "batch/script_line.h"
#include "platform/files.h"
#include "presentation/chart_data.h"
#include "presentation/print_pages.h"
#include "presentation/tab_delimited.h"

namespace tessara::output_commands {

CommandResult Charts(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(ChartsText(batch.session.charts));
  return Done();
}

CommandResult Recent(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(batch.session.output.MostRecentText);
  return Done();
}

CommandResult TabDelimitedText(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(TabDelimited(batch.session.output.OutputLogText));
  return Done();
}

CommandResult Print(Batch& batch, const CommandWords& words) {
  if (!IsPossiblePath(words.words[0])) return NotUnderstood(Quoted(words.words[0]) + " is not a path");
  const Path path = PathFromUtf8(words.words[0]);
  if (IsPdfPath(path) && !CanWritePdf()) {
    batch.platform.ShowMessage({"Printer Error",
                                "This installation cannot write PDF files: its module for printing "
                                "is not there. A name with another ending gives plain text."});
    return Done();
  }
  batch.platform.answers.print_path = path;
  const PrintOptions options{batch.session.settings.print_date(), batch.session.settings.notes_caption()};
  PrintOutput(batch.session.output, batch.platform, options, false);
  return Done();
}

}  // namespace tessara::output_commands
