#include <string>
#include <string_view>

#include "batch/command.h"
#include "batch/script_line.h"
#include "data/data_statistics.h"
#include "platform/files.h"
#include "presentation/output_log.h"

namespace tessara::data_commands {
namespace {

// A text as a text box holds it: every line end is CR LF.
std::string WithBoxLineEnds(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    if (text[i] == '\r' || text[i] == '\n') {
      result += "\r\n";
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace

CommandResult OpenPath(Batch& batch, std::string_view utf8_path) {
  const std::string refusal = Quoted(utf8_path) + " cannot be opened";
  if (!IsPossiblePath(utf8_path)) return NotUnderstood(refusal);
  if (OpenDataFile(batch.session, PathFromUtf8(utf8_path), FilePick::kPicked) == LoadOutcome::kUnreadable) {
    return NotUnderstood(refusal);
  }
  return Done();
}

CommandResult Open(Batch& batch, const CommandWords& words) { return OpenPath(batch, words.words[0]); }

CommandResult New(Batch& batch, const CommandWords&) {
  NewData(batch.session);
  return Done();
}

CommandResult Save(Batch& batch, const CommandWords& words) {
  if (!words.words.empty()) {
    if (!IsPossiblePath(words.words[0])) return NotUnderstood(Quoted(words.words[0]) + " is not a path");
    SaveDataTo(batch.session, PathFromUtf8(words.words[0]));
    return Done();
  }
  switch (SaveData(batch.session)) {
    case SaveOutcome::kNoName:
      return NotUnderstood("PATH is missing, the data have no file of their own");
    case SaveOutcome::kFolderGone:
      return NotUnderstood("the folder of " + Quoted(PathToUtf8(batch.session.data.DataFilePath)) + " is not there");
    case SaveOutcome::kSaved:
    case SaveOutcome::kFailed:
      break;
  }
  return Done();
}

CommandResult Notes(Batch& batch, const CommandWords& words) {
  SetProjectNotes(batch.session, words.words.empty() ? "" : WithBoxLineEnds(HeldText(words.words[0])));
  return Done();
}

CommandResult Statistics(Batch& batch, const CommandWords&) {
  OutputLog& output = batch.session.output;
  output.ReportText.clear();
  for (const std::string& line : RefreshDataStatistics(batch.session.data).labels) output.ReportText += line + "\r\n";
  AppendReport(output);
  return Done();
}

}  // namespace tessara::data_commands
