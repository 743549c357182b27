#include <cctype>
#include <optional>
#include <string>
#include <utility>

#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/words/script_line.h"
#include "platform/files.h"
#include "presentation/print_pages.h"
#include "presentation/report_page.h"
#include "shell/report_operations.h"

namespace tessara {
namespace {

constexpr OptionRow kOptions[] = {
    {"--overwrite", "", "also over a file that this run works on, or any data file", OptionValue::kNone},
};

bool IsPdfPath(const Path& path) {
  std::string ending = PathToUtf8(path.extension());
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return ending == ".pdf";
}

// Text with form feeds between the sheets.
bool WritePlainText(const PrintJob& job, const Path& path) {
  SafeFileWriter file(path);
  bool first = true;
  for (const Sheet& sheet : job.sheets) {
    if (!std::exchange(first, false)) file.Write("\f");
    file.Write(sheet.text);
  }
  return file.Commit() == WriteResult::kWritten;
}

std::optional<PrintJob> PagesOfLog(const Batch& batch, const CalendarDay& today) {
  const Settings& settings = batch.session.settings;
  return JobOfPages(
      OutputPages(batch.session.output.BoxText(), {settings.print_date(), settings.notes_caption()}, today));
}

CommandResult Run(Batch& batch, const CommandWords& words) {
  const std::string& name = words.words[0];
  if (!IsPossiblePath(name)) return NotUnderstood(Quoted(name) + " is not a path");
  const Path path = PathFromUtf8(name);
  const std::string refusal = WhyNotPrintedTo(batch, path, words.Has("--overwrite"));
  if (!refusal.empty()) return NotUnderstood(refusal);
  const bool prints_table = batch.session.output.OutputGridMode;
  if (!prints_table && batch.session.output.BoxText().empty()) {
    batch.platform.ShowMessage({"Print Aborted!", "There is no output to print."});
    return Done();
  }
  const bool is_pdf = IsPdfPath(path);
  if (is_pdf && !CanWritePdf()) {
    batch.platform.ShowMessage({"Printer Error",
                                "This installation cannot write PDF files: its module for printing "
                                "is not there. A name with another ending gives plain text."});
    return Done();
  }
  const auto job = prints_table ? TableJob(batch.session) : PagesOfLog(batch, batch.platform.Now().date);
  if (!job) return Done();
  const bool written = is_pdf ? batch.platform.WritePdf(*job, path) : WritePlainText(*job, path);
  if (written) return Done();
  if (prints_table) {
    ShowReportPrinterError(batch.platform);
  } else {
    ShowPrinterError(batch.platform);
  }
  return Done();
}

}  // namespace

constinit const CommandRow kPrintCommand{
    .name = "print",
    .synopsis = "PATH [--overwrite]",
    .summary = "write the printed pages of the log or the table",
    .details =
        "Writes the log as pages, as the printer gets them: a PDF file when PATH ends in .pdf,\n"
        "else plain text with a form feed between pages. The script and data files are refused\n"
        "without --overwrite. An empty log is not printed. While a summary table is the latest\n"
        "result, its pages are written in the place of the log's.\n",
    .example = "print report.txt",
    .options = kOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = Run,
};

}  // namespace tessara
