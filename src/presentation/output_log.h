#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "numerics/dates.h"
#include "platform/platform.h"

// The output log: where every report lands. Two texts, the log of all reports and the reports of the latest run, and a
// text box that shows one of them. What the user changes in the box lives there until it is stored back.

namespace tessara {

inline constexpr std::string_view kPageBreak = "<Page Break>";
inline constexpr std::string_view kReportSeparator = "\r\n<Page Break>\r\n\r\n\r\n";

struct OutputLog {
  std::string OutputLogText;
  std::string MostRecentText;
  std::string ReportText;  // the report that a procedure has just assembled
  bool ShowLogMode = false;
  bool OutputGridMode = false;  // the table grid, not the text box, is the visible face
  bool OutputChanged = false;   // the text of the box has changed since it was saved
  // Counts up whenever the text of the box changes by other than the user's typing, so that a view knows when to look.
  std::uint64_t Revision = 0;

  // What the text box holds.
  const std::string& BoxText() const;

  // Set by the operations below. While it is empty, the box shows the text of the current mode as it stands.
  std::optional<std::string> edited_box;
};

// The user has changed the text of the box.
void EditBox(OutputLog& output, std::string text);

// Copies the box's text back to the text of the current mode, so that an edit is kept.
void StoreBoxText(OutputLog& output);

void RefreshOutputView(OutputLog& output);
void BeginRun(OutputLog& output);
// ReportText, as it stands, at the end of both texts.
void AppendReport(OutputLog& output);
// A calculator's result: at the end of the log, and alone as the most recent output.
void ReplaceReport(OutputLog& output);
void ToggleOutputMode(OutputLog& output);
// The caption of the command that toggles.
std::string_view ToggleCaption(const OutputLog& output);
// Empties the box and the log; the most recent output stays.
void ClearOutput(OutputLog& output);
// Empties the box alone.
void ClearBox(OutputLog& output);

// Opens a text file in the place of the log. False when nothing was chosen or the file could not be read.
bool OpenOutputText(OutputLog& output, Platform& platform);
// Saves the text of the box. False when nothing was chosen or the file could not be written; everything stays then, the
// old file too.
bool SaveOutputText(OutputLog& output, Platform& platform);

// Frames a pending text as an error report and appends it.
void ReportError(OutputLog& output, std::string_view pending_text);

}  // namespace tessara
