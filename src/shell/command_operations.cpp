#include "shell/command_operations.h"

#include "platform/files.h"
#include "presentation/print_pages.h"
#include "presentation/tab_delimited.h"
#include "presentation/table_edit.h"
#include "shell/file_questions.h"

namespace tessara {
namespace {

PrintOptions PrintOptionsOf(const Session& session) {
  return {.date = session.settings.print_date(), .notes_caption = session.settings.notes_caption()};
}

}  // namespace

void ResetProcedurePanel(Session& session) { ResetPanel(session.panel); }

void ClearCalculator(Session& session) {
  PlaySoundEffect(session, "clear.wav");
  ClearPanel(session.brevarum);
}

void ClearOutputAfterWarning(Session& session) {
  const Answer answer = session.platform.ShowMessage(
      {"Warning!", "This will clear the Output log.  Do you wish to permanently erase all your output?",
       Buttons::kYesNo, Tone::kWarning});
  if (answer != Answer::kYes) return;
  PlaySoundEffect(session, "clean.wav");
  ClearOutput(session.output);
  if (session.output.OutputGridMode) EmptyTable(session.table.grid, session.table.face);
}

void OpenText(Session& session) {
  if (const auto path = AskOutputToOpen(session.platform)) OpenOutputText(session.output, *path);
}

void SaveText(Session& session) {
  if (AskAndSaveOutput(session)) session.platform.SetStatusPane(kMessagePane, "Save Completed");
  session.wanted_view = View::ViewOutput;
}

void PrintText(Session& session, const WidgetState& widgets) {
  PrintOutput(session.output, session.platform, PrintOptionsOf(session), widgets.output_has_selection);
}

void ConvertText(Session& session) {
  if (!session.output.OutputGridMode) return ConvertOutputToTabDelimited(session.output);
  ConvertTableToTabDelimited(session.table.grid, session.output);
  if (session.settings.show_output()) session.wanted_view = View::ViewOutput;
}

void ToggleText(Session& session) { ToggleOutputMode(session.output); }

void RunProcedure(Session& session) { RunPanel(session); }

void RunCalculator(Session& session) { Calculate(session.brevarum, session.output, session.platform); }

void PrintCalculation(Session& session) { PrintResult(session.brevarum, session.platform, PrintOptionsOf(session)); }

void CopyCalculation(Session& session) {
  if (!CanCopyResult(session.brevarum)) return;
  PlaySoundEffect(session, "copy.wav");
  CopyResult(session.brevarum, session.platform);
}

void TellWhereChartsPrint(Session& session) {
  session.platform.ShowMessage(
      {"Information", "Please click graph to view print screen", Buttons::kOk, Tone::kInformation});
}

WidgetAction PrepareImport(Session& session) {
  OpenDelimitForm(session.delimit);
  return WidgetAction::kShowImport;
}

WidgetAction PrepareExport(Session& session) {
  OpenDelimitForm(session.delimit);
  return WidgetAction::kShowExport;
}

WidgetAction PrepareExcelExport(Session& session) {
  OpenDelimitForm(session.delimit);
  session.delimit.export_option = ExportOption::kSpreadsheet;
  return WidgetAction::kShowExport;
}

WidgetAction PrepareSplit(Session& session) {
  ResetSplit(session.split);
  return WidgetAction::kShowSplit;
}

void RepairPracticeFiles(Session& session) { RepairSampleFiles(session.platform); }

WidgetAction RefreshDocumentation(Session& session) {
  TestDocumentationFiles(session);
  return WidgetAction::kRefreshHelpLists;
}

void OpenDocumentation(Session& session, Document document) {
  const Path path = session.platform.ProgramFolder() / kDocumentFiles[static_cast<std::size_t>(document)];
  if (session.platform.OpenDocument(PathToUtf8(path))) return;
  session.platform.ShowMessage({"Error!",
                                "Tessara was unable to open the pdf file.  The most likely reason is because you don't "
                                "have Adobe Acrobat Reader "
                                "version 4.0 or later installed on your computer."});
}

WidgetAction OpenHelp(Session& session) {
  session.platform.EnterFolder(session.platform.ProgramFolder());
  session.help_pane_visible = true;
  return WidgetAction::kOpenHelp;
}

WidgetAction ShowProductPage(Session& session, ProductPage page) {
  constexpr const char* kPages[] = {"Download.html", "Home.html", "Updates.html"};
  session.handbook.wanted_page = kPages[static_cast<std::size_t>(page)];
  session.help_pane_visible = true;
  return WidgetAction::kShowHelpPage;
}

WidgetAction ToggleHelpPane(Session& session) {
  session.help_pane_visible = !session.help_pane_visible;
  return WidgetAction::kToggleHelpPane;
}

}  // namespace tessara
