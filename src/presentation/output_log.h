#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/platform.h"

// The output log: where every report lands. Two texts, the log of all reports and the reports of the latest run, and a
// text box that shows one of them. What the user changes in the box lives there until it is stored back.

namespace tessara {

inline constexpr std::string_view kPageBreak = "<Page Break>";
inline constexpr std::string_view kReportSeparator = "\r\n<Page Break>\r\n\r\n\r\n";

struct OutputLog {
  std::string OutputLogText;
  std::string MostRecentText;
  bool ShowLogMode = false;
  bool OutputGridMode = false;  // the table grid, not the text box, is the visible face
  bool OutputChanged = false;   // the text of the box has changed since it was saved
  // Counts up whenever the text of the box changes by other than the user's typing, so that a view knows when to look.
  std::uint64_t Revision = 0;

  // What the text box holds.
  const std::string& BoxText() const;

  // Set by the operations below: a text of the box that differs from the text of the current mode. While it is empty,
  // the box shows that text as it stands, so that the ever-growing log is never copied.
  std::optional<std::string> edited_box;
};

// The user has changed the text of the box.
void EditBox(OutputLog& output, std::string text);

// The text of the box has been made anew by the program; neither of the two texts learns of it until it is stored back.
void ReplaceBox(OutputLog& output, std::string text);

// Copies the box's text back to the text of the current mode, so that an edit is kept.
void StoreBoxText(OutputLog& output);

// The box shows the text of the current mode; an edit that was not stored back is gone.
void RefreshOutputView(OutputLog& output);
// Empties the most recent text. The box keeps what it shows until the next refresh.
void BeginRun(OutputLog& output);
// A report, as it stands, at the end of both texts. Takes time for the report, not for the log.
void AppendReport(OutputLog& output, std::string_view report);
// A calculator's result: at the end of the log, and alone as the most recent output.
void ReplaceReport(OutputLog& output, std::string_view report);
// The report becomes the most recent output, and the log learns nothing of it.
void ReplaceMostRecent(OutputLog& output, std::string_view report);
// Stores the box back and shows the other text.
void ToggleOutputMode(OutputLog& output);
// The caption of the command that toggles.
std::string_view ToggleCaption(const OutputLog& output);
// Empties the box and the log; the most recent output stays.
void ClearOutput(OutputLog& output);
// Empties the box alone.
void ClearBox(OutputLog& output);

// Opens a text file in the place of the log, with a page break mark behind it so that all of it prints; bare line feeds
// become line ends. False when nothing was chosen or the file could not be read; everything stays then.
bool OpenOutputText(OutputLog& output, Platform& platform);
// Saves the text of the box, marks included. False when nothing was chosen or the file could not be written; everything
// stays then, the old file too.
bool SaveOutputText(OutputLog& output, Platform& platform);

// Frames a pending text as an error report and appends it.
void ReportError(OutputLog& output, std::string_view pending_text);

}  // namespace tessara
