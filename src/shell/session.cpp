#include "shell/session.h"

#include <system_error>
#include <utility>

#include "data/change_door.h"
#include "data/exchange/export.h"
#include "data/recode/follow_recode.h"
#include "numerics/code_page.h"
#include "numerics/dates.h"
#include "platform/files.h"
#include "procedures/follow_data.h"
#include "shell/glossary_operations.h"

namespace tessara {
namespace {

constexpr const char* kReady = "Ready";

std::string NameOf(const Path& path) { return FromUtf8(PathToUtf8(path.filename())); }

void ShowLoadOutcome(Session& session, LoadOutcome outcome, const Path& path) {
  switch (outcome) {
    case LoadOutcome::kLoaded:
      return session.platform.SetStatusPane(kMessagePane, kReady);
    case LoadOutcome::kEmptyFile:
      return session.platform.SetStatusPane(kMessagePane, NameOf(path) + " is empty");
    case LoadOutcome::kUnreadable:
      return session.platform.SetStatusPane(kMessagePane, "Cannot open " + NameOf(path));
  }
}

// What the start of the window and that of the batch program have in common.
void PrepareSession(Session& session) {
  ReadSettings(session.settings, session.settings_store, session.platform);
  TestDocumentationFiles(session);
  session.handbook.topics = ReadHelpIndex(session.platform.ProgramFolder() / "Help");
  session.help_pane_visible = session.settings.help_pane_at_start();
  MakeEmptyDataSet(session.data);
  session.data.DataFilePath = session.settings.Op14;
}

// "Tessara Data" among the user's documents: the working folder of a session.
void EnterDocumentsFolder(Platform& platform) {
  const Path folder = platform.DocumentsFolder() / "Tessara Data";
  std::error_code ignored;  // without the folder the start goes on
  std::filesystem::create_directories(folder, ignored);
  platform.EnterFolder(folder);
}

Path Absolute(const Path& path) {
  std::error_code error;
  Path whole = std::filesystem::absolute(path, error);
  return error ? path : whole;
}

}  // namespace

void StartSession(Session& session, const Path& command_line_file) {
  // A relative path means the folder that the program was called from.
  const Path file = command_line_file.empty() ? Path() : Absolute(command_line_file);
  PrepareSession(session);
  session.data.history.SetLimit(static_cast<std::size_t>(session.settings.undo_memory) << 20);
  session.platform.EnterFolder(session.platform.ProgramFolder());
  EnterDocumentsFolder(session.platform);
  session.platform.SetStatusPane(kMessagePane, kReady);
  if (!file.empty()) OpenDataFile(session, file, FilePick::kCommandLine);
}

void StartBatchSession(Session& session) {
  PrepareSession(session);
  session.data.history.SetLimit(0);  // a script has no way back
}

void TestDocumentationFiles(Session& session) {
  const Path program = session.platform.ProgramFolder();
  for (std::size_t i = 0; i < kDocumentFiles.size(); ++i) {
    session.documentation_found[i] = IsRegularFile(program / kDocumentFiles[i]);
  }
}

LoadOutcome OpenDataFile(Session& session, const Path& path, FilePick pick) {
  const LoadOutcome outcome =
      LoadDataFile(session.data, session.platform, path, pick, session.panel.SelectedVariables.size());
  ShowLoadOutcome(session, outcome, path);
  if (outcome == LoadOutcome::kLoaded) {
    FollowPanel(session);
    ClearPanelLists(session.panel);
  }
  return outcome;
}

SaveOutcome SaveData(Session& session) {
  return SaveDataFile(session.data, session.platform, session.panel.SelectedVariables.size());
}

SaveOutcome SaveDataTo(Session& session, const Path& path) {
  return SaveDataFileTo(session.data, session.platform, path, session.panel.SelectedVariables.size());
}

void NewData(Session& session) {
  NewDataFile(session.data);
  ResetPanel(session.panel);
  FollowPanel(session);
}

ImportOutcome ImportData(Session& session) {
  if (const auto refused = RefuseImport(session.delimit, session.platform)) return *refused;
  const ImportOutcome outcome =
      ImportText(session.delimit, session.data, session.platform, session.panel.SelectedVariables.size());
  FollowPanel(session);
  ClearPanelLists(session.panel);
  ClearCharts(session.charts);
  return outcome;
}

bool ExportData(Session& session, const Path& path, char delimiter) {
  return ExportText(session.data, session.platform, path, delimiter, session.panel.SelectedVariables.size());
}

void BeginOperation(Session& session) { session.platform.SetStatusPane(kMessagePane, kReady); }

void SetProjectNotes(Session& session, std::string notes) {
  if (notes == session.data.ProjectNotes) return;
  session.data.ProjectNotes = std::move(notes);
  MarkChanged(session.data);
}

void FollowPanel(Session& session) {
  FollowRecodeData(session.recode, session.data);
  FollowFormat(session.format, session.data);
  if (const auto lost = FollowData(session.panel, session.data)) {
    session.platform.ShowNote("the control variable " + *lost + " was reset");
  }
}

RunOutcome RunPanel(Session& session) {
  const RunOutcome outcome =
      Run(session.data, session.panel, session.output, session.charts, session.table, session.platform);
  if (outcome.subset) ResetPanel(session.panel);
  FollowPanel(session);  // a variable that the run has added may be chosen next
  // An error frame is a report too, and says why nothing else came. A subset has no report.
  if (!outcome.refused && !outcome.subset && session.settings.show_output()) session.wanted_view = View::ViewOutput;
  return outcome;
}

void ActivateView(Session& session, View view) {
  session.ActiveView = view;
  if (view == View::ViewHandbook) session.platform.SetStatusPane(kMessagePane, kReady);
  if (view == View::ViewGlossary && !session.glossary.opened) {
    OpenDefaultGlossary(session.glossary, session.settings.Op15, session.platform);
  }
}

std::string_view HelpPage(View view) {
  switch (view) {
    case View::ViewStatProcs:
      return "UserManual2.html";
    case View::ViewBrevarum:
      return "UserManual3.html";
    case View::ViewOutput:
      return "UserManual5.html";
    case View::ViewCharts:
      return "UserManual6.html";
    case View::ViewGlossary:
      return "UserManual4.html";
    case View::ViewHandbook:
      return "UserManual8.html";
    case View::ViewDataGrid:
    case View::ViewTips:
    case View::kNone:
      break;
  }
  return "UserManual1.html";
}

void RefreshStatus(Session& session) {
  FollowPanel(session);
  Platform& platform = session.platform;
  switch (session.ActiveView) {
    case View::ViewBrevarum:
      platform.SetStatusPane(2, " Enter summary data");
      platform.SetStatusPane(3, ShortDate(platform.Now().date));
      break;
    case View::ViewGlossary:
      platform.SetStatusPane(2, GlossaryPane(session.glossary));
      platform.SetStatusPane(3, ShortDate(platform.Now().date));
      break;
    case View::ViewHandbook:
      platform.SetStatusPane(2, " Research Methods Handbook");
      platform.SetStatusPane(3, ShortDate(platform.Now().date));
      break;
    default:
      platform.SetStatusPane(2, std::to_string(session.data.RecordCount) + " Records");
      platform.SetStatusPane(3, std::to_string(session.data.VariableCount) + " Variables");
      break;
  }
  // Edits of the output are kept when work goes on in one of the views that write to it.
  if (session.ActiveView == View::ViewStatProcs || session.ActiveView == View::ViewBrevarum) {
    StoreBoxText(session.output);
  }
}

RandomNumbers& RandomNumbersOf(Session& session) {
  if (!session.random) session.random.emplace(session.platform.Entropy());
  return *session.random;
}

void PlaySoundEffect(Session& session, std::string_view name) {
  if (!session.settings.sounds()) return;
  session.platform.PlaySoundFile(session.platform.ProgramFolder() / "Media" / name);  // a failure is silent
}

}  // namespace tessara
