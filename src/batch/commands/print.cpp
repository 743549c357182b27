#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "platform/files.h"
#include "presentation/print_pages.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--overwrite", "", "also over a file that this run works on", OptionValue::kNone},
};

CommandResult Run(Batch& batch, const CommandWords& words) {
  if (!IsPossiblePath(words.words[0])) return NotUnderstood(Quoted(words.words[0]) + " is not a path");
  const Path path = PathFromUtf8(words.words[0]);
  if (batch.files.GuardsInput(path) && !words.Has("--overwrite")) {
    return NotUnderstood(Quoted(words.words[0]) + " is a file that this run works on; --overwrite writes over it");
  }
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

}  // namespace

constinit const CommandRow kPrintCommand{
    .name = "print",
    .synopsis = "PATH [--overwrite]",
    .summary = "write the printed pages of the log",
    .details =
        "Writes the log as pages, as the printer gets them: a PDF file when PATH ends in .pdf,\n"
        "else plain text with a form feed between pages. The script and the data files that the\n"
        "run has opened or saved are refused without --overwrite.\n",
    .example = "print report.txt",
    .options = kOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = Run,
};

}  // namespace tessara
