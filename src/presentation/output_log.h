#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"

// The output log: where every report lands. Two texts, the log of all reports and the reports of the latest run, and a
// text box that shows one of them. What the user changes in the box lives there until it is stored back.

namespace tessara {

inline constexpr std::string_view kPageBreak = "<Page Break>";
inline constexpr std::string_view kReportSeparator = "\r\n<Page Break>\r\n\r\n\r\n";

// Tells one state of the box's text from another without a look at the text. Texts of the same lineage differ in that
// the longer one goes on where the shorter one ends.
struct BoxVersion {
  std::uint64_t lineage = 0;
  std::size_t size = 0;
  // The lineage of the text that an operation has made this one from, when it may be undone in the box; 0 of any other.
  std::uint64_t made_from = 0;

  bool operator==(const BoxVersion&) const = default;
};

struct OutputLog {
  std::string OutputLogText;
  std::string MostRecentText;
  bool ShowLogMode = false;
  bool OutputGridMode = false;  // the table grid, not the text box, is the visible face
  bool OutputChanged = false;   // the text of the box has changed since it was saved

  // What the text box holds.
  const std::string& BoxText() const;
  // Takes no time for the log.
  BoxVersion Version() const;

  // Set by the operations below: a text of the box that differs from the text of the current mode. While it is empty,
  // the box shows that text as it stands, so that the ever-growing log is never copied.
  std::optional<std::string> edited_box;

  // A text that only grows keeps its lineage; one that is replaced, emptied or edited gets a new one. A text that moves
  // from one place to another takes it along.
  std::uint64_t log_lineage = 1;
  std::uint64_t recent_lineage = 2;
  std::uint64_t box_lineage = 0;  // of edited_box
  std::uint64_t box_made_from = 0;
  std::uint64_t last_lineage = 2;
};

// The user has changed the text of the box. It is not compared with what was there.
void EditBox(OutputLog& output, std::string text);
// The same for a part of it: so many bytes from a place on have another text in their place.
void EditBox(OutputLog& output, std::size_t at, std::size_t removed, std::string_view text);

// The text of the box has been made anew by the program; neither of the two texts learns of it until it is stored back.
void ReplaceBox(OutputLog& output, std::string text);
// The same with a text that was made from the box's own: the user may take the change back.
void ConvertBox(OutputLog& output, std::string text);

// Copies the box's text back to the text of the current mode, so that an edit is kept.
void StoreBoxText(OutputLog& output);

// The box shows the text of the current mode; an edit that was not stored back is gone.
void RefreshOutputView(OutputLog& output);
// Empties the most recent text. The box keeps what it shows until the next refresh.
void BeginRun(OutputLog& output);
// A report, as it stands, at the end of both texts. Takes time for the report, not for the log.
void AppendReport(OutputLog& output, std::string_view report);
// The same with texts that are not alike, the separators among them.
void AppendToBoth(OutputLog& output, std::string_view to_log, std::string_view to_most_recent);
// What the box shows while a run has no report.
enum class BoxOfRun { kKept, kEmptied };

// Room for the reports of a run, taken before anything else changes.
struct RoomForReports {
  std::string recent;
};
RoomForReports MakeRoom(OutputLog& output, const std::vector<std::string>& reports);
// The reports of a run that has ended: begins anew with MostRecentText and appends them all. Asks for no memory.
void AppendRun(OutputLog& output, const std::vector<std::string>& reports, RoomForReports room,
               BoxOfRun box = BoxOfRun::kKept) noexcept;
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

// Where to open a text file from and where to save one to. Nothing means Cancel.
std::optional<Path> AskOutputToOpen(Platform& platform);
std::optional<Path> AskOutputToSave(Platform& platform);

// Opens a text file in the place of the log, with a page break mark behind it so that all of it prints; bare line feeds
// become line ends. False when the file could not be read; everything stays then.
bool OpenOutputText(OutputLog& output, const Path& path);
// Saves the text of the box, marks included. False, and a box that says so, when the file could not be written;
// everything stays then, the old file too.
bool SaveOutputText(OutputLog& output, const Path& path, Platform& platform);

// Frames a pending text as an error report and appends it.
void ReportError(OutputLog& output, std::string_view pending_text);

}  // namespace tessara
