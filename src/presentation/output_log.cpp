#include "presentation/output_log.h"

#include <algorithm>
#include <utility>

#include "numerics/code_page.h"
#include "numerics/report_text.h"
#include "platform/files.h"

namespace tessara {
namespace {

const std::string& TextOfMode(const OutputLog& output) {
  return output.ShowLogMode ? output.OutputLogText : output.MostRecentText;
}

std::string& TextOfMode(OutputLog& output) { return output.ShowLogMode ? output.OutputLogText : output.MostRecentText; }

std::uint64_t& LineageOfMode(OutputLog& output) {
  return output.ShowLogMode ? output.log_lineage : output.recent_lineage;
}

std::uint64_t NewLineage(OutputLog& output) { return ++output.last_lineage; }

void TakeIntoBox(OutputLog& output, std::string text, std::uint64_t lineage) {
  output.edited_box = std::move(text);
  output.box_lineage = lineage;
  output.box_made_from = 0;
}

// Room for so many bytes more; at least twice the text, so that a text that grows again and again is seldom copied.
void Reserve(std::string& text, std::size_t more) {
  if (text.capacity() - text.size() < more) text.reserve(std::max(text.size() + more, 2 * text.size()));
}

FileDialog OutputDialog(std::string_view title, Platform& platform) {
  FileDialog dialog;
  dialog.title = title;
  dialog.filter = "Text files (*.txt)|*.txt|Data files (*.csv)|*.csv|All files (*.*)|*.*";
  dialog.initial_folder = platform.ProgramFolder();
  return dialog;
}

// A text whose lines end in CR LF; a bare LF counts as a line end too.
std::string WithFullLineEnds(std::string_view text) {
  std::string lines;
  lines.reserve(text.size());
  char before = '\0';
  for (const char c : text) {
    if (c == '\n' && before != '\r') lines += '\r';
    lines += c;
    before = c;
  }
  return lines;
}

}  // namespace

const std::string& OutputLog::BoxText() const { return edited_box ? *edited_box : TextOfMode(*this); }

BoxVersion OutputLog::Version() const {
  if (edited_box) return {box_lineage, edited_box->size(), box_made_from};
  return {ShowLogMode ? log_lineage : recent_lineage, TextOfMode(*this).size(), 0};
}

void EditBox(OutputLog& output, std::string text) {
  TakeIntoBox(output, std::move(text), NewLineage(output));
  output.OutputChanged = true;
}

void EditBox(OutputLog& output, std::size_t at, std::size_t removed, std::string_view text) {
  if (!output.edited_box) output.edited_box = output.BoxText();
  output.edited_box->replace(std::min(at, output.edited_box->size()), removed, text);
  output.box_lineage = NewLineage(output);
  output.box_made_from = 0;
  output.OutputChanged = true;
}

void ReplaceBox(OutputLog& output, std::string text) {
  if (text == output.BoxText()) return;
  EditBox(output, std::move(text));
}

void ConvertBox(OutputLog& output, std::string text) {
  const std::uint64_t before = output.Version().lineage;
  if (text == output.BoxText()) return;
  EditBox(output, std::move(text));
  output.box_made_from = before;
}

void StoreBoxText(OutputLog& output) {
  if (!output.edited_box) return;
  TextOfMode(output) = *std::move(output.edited_box);
  LineageOfMode(output) = output.box_lineage;
  output.edited_box.reset();
}

void RefreshOutputView(OutputLog& output) {
  if (!output.edited_box) return;
  if (*output.edited_box == TextOfMode(output)) {
    LineageOfMode(output) = output.box_lineage;
  } else {
    output.OutputChanged = true;
  }
  output.edited_box.reset();
}

void BeginRun(OutputLog& output) {
  // The box is refreshed with the run's first report. A run that ends without one leaves the old text in the box, and
  // storing the box back makes that text the most recent one again.
  if (!output.ShowLogMode && !output.edited_box) {
    TakeIntoBox(output, std::move(output.MostRecentText), output.recent_lineage);
  }
  output.MostRecentText.clear();
  output.recent_lineage = NewLineage(output);
}

void AppendToBoth(OutputLog& output, std::string_view to_log, std::string_view to_most_recent) {
  const bool box_follows = !output.edited_box;
  Reserve(output.OutputLogText, to_log.size());  // for both texts before one of them changes
  Reserve(output.MostRecentText, to_most_recent.size());
  output.OutputLogText.append(to_log);
  output.MostRecentText.append(to_most_recent);
  if (box_follows) {
    output.OutputChanged = true;
  } else {
    RefreshOutputView(output);
  }
}

void AppendReport(OutputLog& output, std::string_view report) {
  const bool box_follows = !output.edited_box;
  const std::size_t more = report.size() + kReportSeparator.size();
  Reserve(output.OutputLogText, more);  // for both texts before one of them changes
  Reserve(output.MostRecentText, more);
  output.OutputLogText.append(report).append(kReportSeparator);
  output.MostRecentText.append(report).append(kReportSeparator);
  if (box_follows) {
    output.OutputChanged = true;
  } else {
    RefreshOutputView(output);
  }
}

RoomForReports MakeRoom(OutputLog& output, const std::vector<std::string>& reports) {
  std::size_t size = 0;
  for (const std::string& report : reports) size += report.size() + kReportSeparator.size();
  RoomForReports room;
  room.recent.reserve(size);
  Reserve(output.OutputLogText, size);
  return room;
}

void AppendRun(OutputLog& output, const std::vector<std::string>& reports, RoomForReports room, BoxOfRun box) noexcept {
  if (box == BoxOfRun::kEmptied) ClearBox(output);
  BeginRun(output);
  output.MostRecentText.swap(room.recent);  // empty still, but with room
  for (const std::string& report : reports) AppendReport(output, report);
}

void ReplaceReport(OutputLog& output, std::string_view report) {
  const std::vector<std::string> reports = {std::string(report)};
  AppendRun(output, reports, MakeRoom(output, reports));
}

void ReplaceMostRecent(OutputLog& output, std::string_view report) {
  std::string recent;
  recent.reserve(report.size() + kReportSeparator.size());
  recent.append(report).append(kReportSeparator);
  BeginRun(output);
  output.MostRecentText = std::move(recent);
  RefreshOutputView(output);
}

void ToggleOutputMode(OutputLog& output) {
  StoreBoxText(output);
  output.ShowLogMode = !output.ShowLogMode;
  if (output.OutputLogText != output.MostRecentText) output.OutputChanged = true;
}

std::string_view ToggleCaption(const OutputLog& output) {
  return output.ShowLogMode ? "Most Recent Output" : "Output Log";
}

void ClearOutput(OutputLog& output) {
  ClearBox(output);
  output.OutputLogText.clear();
  output.log_lineage = NewLineage(output);
}

void ClearBox(OutputLog& output) { ReplaceBox(output, ""); }

std::optional<Path> AskOutputToOpen(Platform& platform) {
  const auto chosen = platform.AskOpenFile(OutputDialog("Open", platform));
  return chosen ? std::optional(chosen->path) : std::nullopt;
}

std::optional<Path> AskOutputToSave(Platform& platform) {
  FileDialog dialog = OutputDialog("Save As", platform);
  dialog.default_extension = "txt";
  dialog.overwrite_prompt = true;
  const auto chosen = platform.AskSaveFile(dialog);
  return chosen ? std::optional(chosen->path) : std::nullopt;
}

bool OpenOutputText(OutputLog& output, const Path& path) {
  const auto content = ReadWholeFile(path);
  if (!content) return false;

  std::string text = WithFullLineEnds(FromTextFile(content->text()));
  text.append("\r\n\r\n").append(kPageBreak);
  ReplaceBox(output, text);
  output.OutputLogText = std::move(text);
  output.log_lineage = NewLineage(output);
  return true;
}

bool SaveOutputText(OutputLog& output, const Path& path, Platform& platform) {
  if (WriteWholeFile(path, output.BoxText()) != WriteResult::kWritten) {
    platform.ShowMessage({.title = "Save Aborted!",
                          .text =
                              "The save operation failed. Please make sure the file is not open in another program.  "
                              "This error could also be caused by trying to save to a location on your computer that "
                              "has restricted access."});
    return false;
  }
  output.OutputChanged = false;
  return true;
}

void ReportError(OutputLog& output, std::string_view pending_text) { AppendReport(output, ErrorFrame(pending_text)); }

}  // namespace tessara
