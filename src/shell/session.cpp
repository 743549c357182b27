#include "shell/session.h"

#include <system_error>
#include <utility>

#include "numerics/code_page.h"
#include "numerics/dates.h"
#include "platform/files.h"

namespace tessara {
namespace {

constexpr const char* kWarning = "Warning!";

std::string NameOf(const Path& path) { return FromUtf8(PathToUtf8(path.filename())); }

void ShowLoadOutcome(Session& session, LoadOutcome outcome, const Path& waiting_path) {
  switch (outcome) {
    case LoadOutcome::kLoaded:
      return session.platform.SetStatusPane(kMessagePane, "Ready");
    case LoadOutcome::kEmptyFile:
      return session.platform.SetStatusPane(kMessagePane, NameOf(session.data.DataFilePath) + " is empty");
    case LoadOutcome::kUnreadable:
      return session.platform.SetStatusPane(
          kMessagePane, "Cannot open " + (waiting_path.empty() ? std::string("this file") : NameOf(waiting_path)));
    case LoadOutcome::kCancelled:
      return;
  }
}

// What the start of the window and that of the batch program have in common.
void PrepareSession(Session& session) {
  ReadSettings(session.settings, session.settings_store, session.platform);
  TestDocumentationFiles(session);
  session.help_pane_visible = session.settings.help_pane_at_start();
  MakeEmptyDataSet(session.data);
  session.data.DataFilePath = session.settings.Op14;
}

void MakeDocumentsFolder(Platform& platform) {
  std::error_code ignored;  // without the folder the start goes on
  std::filesystem::create_directories(platform.DocumentsFolder() / "Tessara Data", ignored);
}

// Both questions of the close request: true when the close may go on.
bool AskAboutData(Session& session) {
  if (!session.data.DataDirty) return true;
  switch (session.platform.ShowMessage(
      {kWarning, "Do you wish to save the changes to the data file?", Buttons::kYesNoCancel, Tone::kQuestion})) {
    case Answer::kYes:
      session.wanted_view = View::ViewDataGrid;
      SaveDataAs(session);
      return false;
    case Answer::kNo:
      session.data.DataDirty = false;
      return true;
    default:
      return false;
  }
}

bool AskAboutOutput(Session& session) {
  if (!session.output.OutputChanged) return true;
  switch (session.platform.ShowMessage(
      {kWarning, "Do you wish to save the contents of the Output Viewer?", Buttons::kYesNoCancel, Tone::kQuestion})) {
    case Answer::kYes:
      session.wanted_view = View::ViewOutput;
      SaveOutput(session);
      return false;
    case Answer::kNo:
      session.output.OutputChanged = false;
      return true;
    default:
      return false;
  }
}

}  // namespace

void StartSession(Session& session, const Path& command_line_file) {
  PrepareSession(session);
  MakeDocumentsFolder(session.platform);
  session.platform.SetStatusPane(kMessagePane, "Ready");
  RefreshStatus(session);
  if (!command_line_file.empty()) OpenDataFile(session, command_line_file);
}

void StartBatchSession(Session& session) { PrepareSession(session); }

void TestDocumentationFiles(Session& session) {
  const Path program = session.platform.ProgramFolder();
  for (std::size_t i = 0; i < kDocumentFiles.size(); ++i) {
    session.documentation_found[i] = FactsOfFile(program / kDocumentFiles[i]).has_value();
  }
}

LoadOutcome OpenDataFile(Session& session) { return OpenDataFile(session, {}); }

LoadOutcome OpenDataFile(Session& session, const Path& waiting_path) {
  session.data.WaitingPath = waiting_path;
  const LoadOutcome outcome = LoadDataFile(session.data, session.platform);
  if (outcome == LoadOutcome::kLoaded) ClearPanelLists(session.data, session.panel);
  ShowLoadOutcome(session, outcome, waiting_path);
  RefreshStatus(session);
  return outcome;
}

SaveOutcome SaveData(Session& session) {
  const SaveOutcome outcome = SaveDataFile(session.data, session.platform);
  session.platform.SetStatusPane(kMessagePane, "Save Completed");  // also when it was cancelled or has failed
  return outcome;
}

SaveOutcome SaveDataAs(Session& session) { return SaveDataFileAs(session.data, session.platform); }

void NewData(Session& session) {
  NewDataFile(session.data);
  ResetPanel(session.data, session.panel);
  RefreshStatus(session);
}

bool SaveOutput(Session& session) {
  const auto path = AskOutputToSave(session.platform);
  return path && SaveOutputText(session.output, *path, session.platform);
}

void SetProjectNotes(Session& session, std::string notes) {
  if (notes == session.data.ProjectNotes) return;
  session.data.ProjectNotes = std::move(notes);
  session.data.DataDirty = true;
}

RunOutcome RunPanel(Session& session) {
  const RunOutcome outcome = Run(session.data, session.panel, session.output, session.charts, session.platform);
  // An error frame is a report too, and says why nothing else came.
  if (!outcome.refused && session.settings.show_output()) session.wanted_view = View::ViewOutput;
  RefreshStatus(session);  // a procedure may have added variables
  return outcome;
}

void ActivateView(Session& session, View view) {
  session.ActiveView = view;
  RefreshStatus(session);
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
  Platform& platform = session.platform;
  switch (session.ActiveView) {
    case View::ViewBrevarum:
      platform.SetStatusPane(2, " Enter summary data");
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

void PlaySoundEffect(Session& session, std::string_view name) {
  if (!session.settings.sounds()) return;
  session.platform.PlaySoundFile(session.platform.ProgramFolder() / "Media" / name);  // a failure is silent
}

bool RequestClose(Session& session) {
  const bool data_may_go = session.data.DataDirty;
  if (!AskAboutData(session) || !AskAboutOutput(session)) return false;
  // The data of a refused save go last: who cancels at the second question goes on working with them.
  if (data_may_go) session.data.matrix = DataMatrix();
  return true;
}

}  // namespace tessara
