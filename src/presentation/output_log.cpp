#include "presentation/output_log.h"

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

void MarkBoxChanged(OutputLog& output) {
  output.OutputChanged = true;
  ++output.Revision;
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

void EditBox(OutputLog& output, std::string text) {
  if (text == output.BoxText()) return;
  output.edited_box = std::move(text);
  output.OutputChanged = true;
}

void ReplaceBox(OutputLog& output, std::string text) {
  if (text == output.BoxText()) return;
  output.edited_box = std::move(text);
  MarkBoxChanged(output);
}

void StoreBoxText(OutputLog& output) {
  if (!output.edited_box) return;
  TextOfMode(output) = *std::move(output.edited_box);
  output.edited_box.reset();
}

void RefreshOutputView(OutputLog& output) {
  if (!output.edited_box) return;
  const bool changes = *output.edited_box != TextOfMode(output);
  output.edited_box.reset();
  if (changes) MarkBoxChanged(output);
}

void BeginRun(OutputLog& output) {
  // The box is refreshed with the run's first report. A run that ends without one leaves the old text in the box, and
  // storing the box back makes that text the most recent one again.
  if (!output.ShowLogMode && !output.edited_box) output.edited_box = std::move(output.MostRecentText);
  output.MostRecentText.clear();
}

void AppendReport(OutputLog& output, std::string_view report) {
  const bool box_follows = !output.edited_box;
  output.OutputLogText.append(report).append(kReportSeparator);
  output.MostRecentText.append(report).append(kReportSeparator);
  if (box_follows) {
    MarkBoxChanged(output);
  } else {
    RefreshOutputView(output);
  }
}

void ReplaceReport(OutputLog& output, std::string_view report) {
  BeginRun(output);
  AppendReport(output, report);
}

void ReplaceMostRecent(OutputLog& output, std::string_view report) {
  BeginRun(output);
  output.MostRecentText.append(report).append(kReportSeparator);
  RefreshOutputView(output);
}

void ToggleOutputMode(OutputLog& output) {
  StoreBoxText(output);
  output.ShowLogMode = !output.ShowLogMode;
  if (output.OutputLogText != output.MostRecentText) MarkBoxChanged(output);
}

std::string_view ToggleCaption(const OutputLog& output) {
  return output.ShowLogMode ? "Most Recent Output" : "Output Log";
}

void ClearOutput(OutputLog& output) {
  ClearBox(output);
  output.OutputLogText.clear();
}

void ClearBox(OutputLog& output) { ReplaceBox(output, ""); }

bool OpenOutputText(OutputLog& output, Platform& platform) {
  const auto chosen = platform.AskOpenFile(OutputDialog("Open", platform));
  if (!chosen) return false;
  const auto content = ReadWholeFile(chosen->path);
  if (!content) return false;

  std::string text = WithFullLineEnds(FromTextFile(content->text()));
  text.append("\r\n\r\n").append(kPageBreak);
  ReplaceBox(output, text);
  output.OutputLogText = std::move(text);
  return true;
}

bool SaveOutputText(OutputLog& output, Platform& platform) {
  FileDialog dialog = OutputDialog("Save As", platform);
  dialog.default_extension = "txt";
  dialog.overwrite_prompt = true;
  const auto chosen = platform.AskSaveFile(dialog);
  if (!chosen || WriteWholeFile(chosen->path, output.BoxText()) != WriteResult::kWritten) return false;
  output.OutputChanged = false;
  return true;
}

void ReportError(OutputLog& output, std::string_view pending_text) { AppendReport(output, ErrorFrame(pending_text)); }

}  // namespace tessara
