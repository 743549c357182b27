#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/commands.h"
#include "batch/commands/open_save.h"
#include "batch/words/script_line.h"
#include "platform/files.h"
#include "platform/module.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_export.h"

namespace tessara {
namespace {

constexpr OptionRow kExcelOptions[] = {
    {"--overwrite", "", "also over a file that this run works on, or any data file", OptionValue::kNone},
};

constexpr OptionRow kWordOptions[] = {
    {"--charts", "", "the charts of the last procedure behind the text", OptionValue::kNone},
    {"--overwrite", "", "also over a file that this run works on, or any data file", OptionValue::kNone},
};

// What keeps a file of that name from being written; nothing when it may be.
std::optional<CommandResult> Refuse(const Batch& batch, const CommandWords& words) {
  const std::string& name = words.words[0];
  if (!IsPossiblePath(name)) return NotUnderstood(Quoted(name) + " is not a path");
  const std::string refusal = WhyNotExportedTo(batch, PathFromUtf8(name), words.Has("--overwrite"));
  if (!refusal.empty()) return NotUnderstood(refusal);
  return std::nullopt;
}

bool HasOutput(Batch& batch) {
  const Session& session = batch.session;
  if (session.output.OutputGridMode ? !session.table.grid.empty() : !session.output.BoxText().empty()) return true;
  batch.platform.ShowMessage({"Export Aborted!", "There is no output to export."});
  return false;
}

// An office program looks at the ending first.
void NoteOtherEnding(Batch& batch, const std::string& name, const std::string& wanted) {
  std::string ending = PathToUtf8(PathFromUtf8(name).extension());
  for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (ending != wanted) batch.platform.ShowNote("the name of the file does not end in " + wanted);
}

// The pictures of the charts; nothing, and a box that says why, when they cannot be drawn.
std::optional<std::vector<ChartPicture>> Pictures(Batch& batch) {
  const ChartStore& charts = batch.session.charts;
  if (charts.charts.empty()) {
    batch.platform.ShowNote("the last procedure has left no charts");
    return std::vector<ChartPicture>();
  }
  auto* draw = reinterpret_cast<ChartRoutine*>(FindModuleRoutine(kChartModule, kChartRoutine));
  if (!draw) {
    batch.platform.ShowMessage(
        {"Export Aborted!", "This installation cannot draw charts: its module for charts is not there."});
    return std::nullopt;
  }
  auto pictures = DrawCharts(charts, *draw);
  if (!pictures) batch.platform.ShowMessage({"Export Aborted!", "A chart could not be drawn."});
  return pictures;
}

CommandResult RunExcel(Batch& batch, const CommandWords& words) {
  if (auto refusal = Refuse(batch, words)) return *refusal;
  if (!HasOutput(batch)) return Done();
  NoteOtherEnding(batch, words.words[0], ".xlsx");
  const Path path = PathFromUtf8(words.words[0]);
  const Session& session = batch.session;
  if (session.output.OutputGridMode) {
    TableToExcel(session.table.grid, path, batch.platform);
  } else {
    PrintToExcel(session.output.BoxText(), path, batch.platform);
  }
  return Done();
}

CommandResult RunWord(Batch& batch, const CommandWords& words) {
  if (auto refusal = Refuse(batch, words)) return *refusal;
  if (!HasOutput(batch)) return Done();
  NoteOtherEnding(batch, words.words[0], ".docx");
  const Path path = PathFromUtf8(words.words[0]);
  const Session& session = batch.session;
  std::vector<ChartPicture> pictures;
  if (words.Has("--charts")) {
    auto drawn = Pictures(batch);
    if (!drawn) return Done();
    pictures = *std::move(drawn);
  }
  if (session.output.OutputGridMode) {
    TableToWord(session.table.grid, pictures, path, batch.platform);
  } else {
    PrintToWord(session.output.BoxText(), pictures, path, batch.platform);
  }
  return Done();
}

}  // namespace

constinit const CommandRow kWordCommand{
    .name = "word",
    .synopsis = "PATH [--charts] [--overwrite]",
    .summary = "write the log as a text document",
    .details =
        "Writes the log, or the summary table while that shows, to PATH as a document (.docx) in\n"
        "Courier New: each line is a paragraph, and page break marks are page breaks. A page with\n"
        "long lines has smaller type. The rows of a table have their cells parted by tabs. With\n"
        "--charts the charts of the last procedure follow as pictures with their titles.\n"
        "The script, the files that the run works on, the file of the program's option --output and\n"
        "all data files are refused without --overwrite. An empty log is not written.\n",
    .example = "word report.docx --charts",
    .options = kWordOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = RunWord,
};

constinit const CommandRow kExcelCommand{
    .name = "excel",
    .synopsis = "PATH [--overwrite]",
    .summary = "write the log as a spreadsheet",
    .details =
        "Writes the log, or the summary table while that shows, to PATH as a spreadsheet (.xlsx):\n"
        "each line of the log is a row, its columns are cells, and numbers are numbers that show\n"
        "the decimals of the report. Rules, page break marks and hyphens go; minus signs behind a\n"
        "blank stay. What one sheet cannot hold goes on in the next one, with a note.\n"
        "The script, the files that the run works on, the file of the program's option --output and\n"
        "all data files are refused without --overwrite. An empty log is not written.\n",
    .example = "excel report.xlsx",
    .options = kExcelOptions,
    .most_words = 1,
    .needed_word = "PATH",
    .run = RunExcel,
};

}  // namespace tessara
