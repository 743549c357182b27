#include "batch/commands/open_save.h"

#include "batch/commands/commands.h"
#include "batch/words/script_line.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr OptionRow kSaveOptions[] = {
    {"--overwrite", "", "also over a file that is no data file", OptionValue::kNone},
};

CommandResult RunOpen(Batch& batch, const CommandWords& words) { return OpenPath(batch, words.words[0]); }

CommandResult RunNew(Batch& batch, const CommandWords&) {
  NewData(batch.session);
  return Done();
}

CommandResult RunSave(Batch& batch, const CommandWords& words) {
  Session& session = batch.session;
  if (!words.words.empty() && !IsPossiblePath(words.words[0])) {
    return NotUnderstood(Quoted(words.words[0]) + " is not a path");
  }
  constexpr const char* kNoPath = "PATH is missing, the data have no file of their own";
  if (words.words.empty() && !HasPathOfItsOwn(session.data)) return NotUnderstood(kNoPath);
  const Path path = words.words.empty() ? session.data.DataFilePath : PathFromUtf8(words.words[0]);
  const std::string refusal = WhyNotSavedTo(batch, path, words.Has("--overwrite"));
  if (!refusal.empty()) return NotUnderstood(refusal);
  const SaveOutcome outcome = words.words.empty() ? SaveData(session) : SaveDataTo(session, path);
  switch (outcome) {
    case SaveOutcome::kNoName:
      return NotUnderstood(kNoPath);
    case SaveOutcome::kFolderGone:
      return NotUnderstood("the folder of " + Quoted(PathToUtf8(path)) + " is not there");
    case SaveOutcome::kSaved:
      batch.files.AddInput(path);
      break;
    case SaveOutcome::kFailed:
      break;
  }
  return Done();
}

}  // namespace

std::string WhyNotSavedTo(const Batch& batch, const Path& path, bool overwrite) {
  if (overwrite || batch.files.overwrite) return {};
  const std::string name = Quoted(PathToUtf8(path));
  if (batch.files.GuardsOutput(path)) return name + " is the file of --output; --overwrite writes over it";
  if (!MaySaveDataOver(path)) return name + " is no data file; --overwrite writes over it";
  return {};
}

std::string WhyNotPrintedTo(const Batch& batch, const Path& path, bool overwrite) {
  if (overwrite || batch.files.overwrite) return {};
  const std::string name = Quoted(PathToUtf8(path));
  if (batch.files.GuardsInput(path)) return name + " is a file that this run works on; --overwrite writes over it";
  if (LooksLikeDataFile(path)) return name + " is a data file; --overwrite writes over it";
  return {};
}

std::string WhyNotExportedTo(const Batch& batch, const Path& path, bool overwrite) {
  if (batch.files.GuardsOutput(path) && !overwrite) {
    return Quoted(PathToUtf8(path)) + " is the file of --output; --overwrite writes over it";
  }
  return WhyNotPrintedTo(batch, path, overwrite);
}

CommandResult OpenPath(Batch& batch, std::string_view utf8_path) {
  const std::string refusal = Quoted(utf8_path) + " cannot be opened";
  if (!IsPossiblePath(utf8_path)) return NotUnderstood(refusal);
  const Path path = PathFromUtf8(utf8_path);
  batch.files.AddInput(path);  // from here on the log does not replace it, also when it is refused below
  if (batch.files.GuardsOutput(path)) {
    return NotUnderstood(Quoted(utf8_path) + " is the file of --output; --overwrite writes over it");
  }
  if (OpenDataFile(batch.session, path, FilePick::kPicked) == LoadOutcome::kUnreadable) return NotUnderstood(refusal);
  return Done();
}

constinit const CommandRow kOpenCommand{
    .name = "open",
    .synopsis = "PATH",
    .summary = "open a data file",
    .details =
        "Opens the data file PATH in the place of the data, whether they were saved or not. An\n"
        "empty file leaves the data as they are.\n",
    .example = "open survey.dcs",
    .most_words = 1,
    .needed_word = "PATH",
    .run = RunOpen,
};

constinit const CommandRow kNewCommand{
    .name = "new",
    .summary = "start with empty data",
    .details =
        "Replaces the data by the empty data set, 1000 records of the variables V1 to V20. The\n"
        "control variable and the project notes go; the log stays.\n",
    .example = "new",
    .run = RunNew,
};

constinit const CommandRow kSaveCommand{
    .name = "save",
    .synopsis = "[PATH] [--overwrite]",
    .summary = "save the data",
    .details =
        "Saves the data to PATH, or to the file that they were opened from or saved to last. New\n"
        "data need a PATH. A file that is there already and does not look like a data file is\n"
        "refused without --overwrite, and so is the file of the program's option --output.\n",
    .example = "save cleaned.dcs",
    .options = kSaveOptions,
    .most_words = 1,
    .run = RunSave,
};

}  // namespace tessara
