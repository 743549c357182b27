#include "shell/file_questions.h"

#include <string>

#include "numerics/code_page.h"
#include "platform/files.h"
#include "shell/options_operations.h"

namespace tessara {
namespace {

constexpr std::string_view kDataFolder = "Data";

Path DialogFolder(const Session& session) {
  const Path& path = session.data.DataFilePath;
  return FolderToBegin(session, path.empty() ? session.platform.ProgramFolder() / kDataFolder : path);
}

std::string TitleAsName(std::string title) {
  constexpr std::string_view kFrontWords = "Data Grid ";
  for (std::size_t at = 0; (at = title.find(kFrontWords, at)) != std::string::npos;)
    title.erase(at, kFrontWords.size());
  return title;
}

}  // namespace

std::optional<Path> AskOpenPath(Session& session) {
  const auto chosen = session.platform.AskOpenFile({.title = "Open",
                                                    .filter = "Tessara data files (*.dcs)|*.dcs",
                                                    .initial_folder = DialogFolder(session),
                                                    .initial_name = {},
                                                    .default_extension = "dcs"});
  if (!chosen) {
    session.data.DataFileSize = 0;  // set ahead of the question, and not put back
    return std::nullopt;
  }
  session.options.folder_is_new = false;
  return chosen->path;
}

std::optional<Path> AskSavePath(Session& session) {
  const DataSet& data = session.data;
  FileDialog dialog = {.title = "Save As",
                       .filter = "Tessara files (*.dcs)|*.dcs",
                       .initial_folder = DialogFolder(session),
                       .initial_name = TitleAsName(data.GridTitle),
                       .default_extension = "dcs",
                       .overwrite_prompt = true};
  if (data.NamedAtTheStart) {
    dialog.initial_folder = FolderToBegin(session, data.LoadedFile.parent_path());
    dialog.initial_name = FromUtf8(PathToUtf8(data.LoadedFile.filename()));
  }
  const auto chosen = session.platform.AskSaveFile(dialog);
  if (!chosen) return std::nullopt;
  session.options.folder_is_new = false;
  return chosen->path;
}

void AskAndOpenData(Session& session) {
  if (const auto path = AskOpenPath(session)) OpenDataFile(session, *path, FilePick::kPicked);
}

void SaveDataOrAsk(Session& session) {
  const SaveOutcome outcome = SaveData(session);
  if (outcome == SaveOutcome::kFolderGone) {
    session.platform.SetStatusPane(
        kMessagePane, "The folder of " + FromUtf8(PathToUtf8(session.data.DataFilePath.filename())) + " is not there");
  }
  if (outcome == SaveOutcome::kNoName || outcome == SaveOutcome::kFolderGone) AskAndSaveData(session);
  session.platform.SetStatusPane(kMessagePane, "Save Completed");  // also when it was cancelled or has failed
}

void AskAndSaveData(Session& session) {
  if (const auto path = AskSavePath(session)) {
    SaveDataTo(session, *path);
  } else {
    session.data.DataDirty = false;  // a cancelled dialog ends on the path of a failure, which clears the flag
  }
}

bool AskAndSaveOutput(Session& session) {
  const auto path = AskOutputToSave(session.platform);
  return path && SaveOutputText(session.output, *path, session.platform);
}

}  // namespace tessara
