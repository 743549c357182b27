#include "shell/exchange_questions.h"

#include "data/exchange/export.h"
#include "shell/options_operations.h"

namespace tessara {

bool AskImportFile(Session& session) {
  const bool comma = ImportDelimiter(session.delimit) == ",";
  const Path& at_hand = session.data.DataFilePath;
  const auto chosen = session.platform.AskOpenFile(
      {.title = "Import Data",
       .filter = comma ? "Data text files (*.csv)|*.csv|All files (*.*)|*.*"
                       : "Data text files (*.txt)|*.txt|All files (*.*)|*.*",
       .initial_folder = FolderToBegin(session, at_hand.empty() ? session.platform.ProgramFolder() / "Data" : at_hand),
       .initial_name = {},
       .default_extension = comma ? "csv" : "txt"});
  if (!chosen) return false;
  session.options.folder_is_new = false;
  if (TakeImportFile(session.delimit, session.data, chosen->path)) return true;
  ShowCannotOpen(session.platform);
  return false;
}

bool AskAndExport(Session& session, char delimiter) {
  ShowExportReminder(session.platform);
  const bool comma = delimiter == ',';
  const auto chosen = session.platform.AskSaveFile(
      {.title = "Export Data",
       .filter = comma ? "Comma separated value text files (*.csv)|*.csv" : "Tab delimited text files (*.txt)|*.txt",
       .initial_folder = FolderToBegin(session, session.data.DataFilePath),
       .initial_name = {},
       .default_extension = comma ? "csv" : "txt",
       .overwrite_prompt = true});
  if (!chosen) return false;
  session.options.folder_is_new = false;
  return ExportData(session, chosen->path, delimiter);
}

bool AskAndSplit(Session& session) {
  if (!MayRunSplit(session.split, session.platform)) return false;
  const auto chosen = session.platform.AskSaveFile({.title = "Split Data",
                                                    .filter = "Tessara files (*.dcs)|*.dcs",
                                                    .initial_folder = session.platform.ProgramFolder() / "Data",
                                                    .initial_name = {},
                                                    .default_extension = "dcs",
                                                    .overwrite_prompt = true});
  return chosen && RunSplit(session.split, session.data, session.platform, chosen->path);
}

}  // namespace tessara
