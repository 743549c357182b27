#include "shell/office_operations.h"

#include <array>
#include <cstdio>
#include <string>
#include <system_error>
#include <vector>

#include "data/exchange/export.h"
#include "numerics/code_page.h"
#include "platform/files.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_export.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

MessageBox NoProgram(const char* title, const char* text) {
  return {.title = title, .text = text, .buttons = Buttons::kOk, .tone = Tone::kWarning};
}

MessageBox NoWord() {
  return NoProgram("Print to Word", "You need Microsoft Word (or a newer version) to use this function");
}
MessageBox NoExcel() {
  return NoProgram("Print to Excel", "You need Microsoft Excel (or a newer version) to use this function");
}

std::string DayOf(const CalendarDay& day) {
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d", day.year, day.month, day.day);
  return text.data();
}

bool IsTaken(const Path& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

bool HasOutput(Session& session) {
  if (session.output.OutputGridMode ? !session.table.grid.empty() : !session.output.BoxText().empty()) return true;
  session.platform.ShowMessage({"Export Aborted!", "There is no output to export."});
  return false;
}

// Opens a file that has been written. Without a program for it the file stays, and pane 1 tells where it is in any
// case.
void OpenWritten(Session& session, const Path& path, const MessageBox& no_program) {
  session.platform.SetStatusPane(kMessagePane, "Saved as " + FromUtf8(PathToUtf8(path)));
  if (!session.platform.OpenDocument(PathToUtf8(path))) session.platform.ShowMessage(no_program);
}

}  // namespace

Path NameOfTheDay(Platform& platform, std::string_view what, std::string_view ending) {
  const Path folder = platform.DocumentsFolder() / "Tessara Data";
  std::error_code ignored;  // a folder that is not there is told by the writer
  fs::create_directories(folder, ignored);
  const std::string name = std::string(what) + " " + DayOf(platform.Now().date);
  Path path = folder / (name + std::string(ending));
  for (int number = 2; IsTaken(path); ++number) {
    path = folder / (name + " (" + std::to_string(number) + ")" + std::string(ending));
  }
  return path;
}

void SendToWord(Session& session) {
  if (!HasOutput(session)) return;
  const std::vector<ChartPicture> no_pictures;
  const Path path = NameOfTheDay(session.platform, "Output", ".docx");
  const bool written = session.output.OutputGridMode
                           ? TableToWord(session.table.grid, no_pictures, path, session.platform)
                           : PrintToWord(session.output.BoxText(), no_pictures, path, session.platform);
  if (written) OpenWritten(session, path, NoWord());
}

void SendToExcel(Session& session) {
  if (!HasOutput(session)) return;
  const Path path = NameOfTheDay(session.platform, "Output", ".xlsx");
  const bool written = session.output.OutputGridMode ? TableToExcel(session.table.grid, path, session.platform)
                                                     : PrintToExcel(session.output.BoxText(), path, session.platform);
  if (written) OpenWritten(session, path, NoExcel());
}

bool SendDataToExcel(Session& session) {
  ShowExportReminder(session.platform);
  const Path path = NameOfTheDay(session.platform, "Data", ".xlsx");
  if (!DataToExcel(session.data, path, session.platform, session.panel.SelectedVariables.size())) return false;
  OpenWritten(session, path, NoExcel());
  return true;
}

}  // namespace tessara
