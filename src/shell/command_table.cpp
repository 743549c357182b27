#include "shell/command_table.h"

#include "platform/files.h"
#include "presentation/print_pages.h"
#include "presentation/tab_delimited.h"
#include "shell/file_questions.h"

namespace tessara {
namespace {

bool InView(const Session& session, View view) { return session.ActiveView == view; }
bool InOutputText(const Session& session) {
  return InView(session, View::ViewOutput) && !session.output.OutputGridMode;
}

// The views that the commands of more than one view act on so far. In the others these commands show, but are off.
bool ViewIsLive(const Session& session) {
  return InView(session, View::ViewDataGrid) || InView(session, View::ViewStatProcs) ||
         InView(session, View::ViewBrevarum) || InView(session, View::ViewOutput);
}

// A caption for each of the views 1, 4 in text mode and 6; hidden in all others.
CommandState FileCommand(const Session& session, const char* data, const char* output, const char* glossary) {
  const bool enabled = ViewIsLive(session);
  if (InView(session, View::ViewDataGrid)) return {true, enabled, data};
  if (InView(session, View::ViewGlossary)) return {true, enabled, glossary};
  if (InOutputText(session) && *output != '\0') return {true, enabled, output};
  return {};
}

CommandState SelectAllState(const Session& session) {
  if (InView(session, View::ViewDataGrid)) return {true, true, {}};
  if (InView(session, View::ViewOutput)) return {true, !session.output.BoxText().empty(), {}};
  return {};
}

bool OutputSelectionToTake(const Session& session, const WidgetState& widgets) {
  return InView(session, View::ViewOutput) && (session.output.OutputGridMode || widgets.output_has_selection);
}

bool InClipboardView(const Session& session) {
  return InView(session, View::ViewDataGrid) || InView(session, View::ViewOutput) ||
         InView(session, View::ViewGlossary);
}

CommandState CopyState(const Session& session, const WidgetState& widgets) {
  if (!InClipboardView(session)) return {};
  return {true, InView(session, View::ViewDataGrid) || OutputSelectionToTake(session, widgets), {}};
}

// The cells of the grid are read only: nothing is cut from them and nothing pasted.
CommandState CutState(const Session& session, const WidgetState& widgets) {
  if (!InClipboardView(session)) return {};
  return {true, OutputSelectionToTake(session, widgets), {}};
}

CommandState PasteState(const Session& session, const WidgetState& widgets) {
  if (!InClipboardView(session)) return {};
  return {true, InView(session, View::ViewOutput) && widgets.clipboard_has_text, {}};
}

CommandState ConvertState(const Session& session) {
  if (!InView(session, View::ViewOutput)) return {};
  return {true, session.output.OutputGridMode || !session.output.BoxText().empty(), {}};
}

CommandState PrintState(const Session& session) {
  const bool visible = !InView(session, View::ViewDataGrid) && !InView(session, View::ViewStatProcs);
  const bool result = InView(session, View::ViewBrevarum) && CanCopyResult(session.brevarum);
  return {visible, InOutputText(session) || result || InView(session, View::ViewCharts), {}};
}

CommandState CopyOutputState(const Session& session) {
  if (!InView(session, View::ViewBrevarum)) return {};
  return {true, CanCopyResult(session.brevarum), {}};
}

CommandState RunState(const Session& session) {
  const bool visible = InView(session, View::ViewStatProcs) || InView(session, View::ViewBrevarum);
  return {visible, visible && ViewIsLive(session), {}};
}

CommandState ToggleState(const Session& session) {
  if (!InOutputText(session)) return {};
  return {true, true, std::string(ToggleCaption(session.output))};
}

// The place of a command's document among kDocumentFiles.
std::size_t DocumentOf(int id) {
  switch (id) {
    case 503:
      return 0;  // UserManual.pdf
    case 504:
      return 2;  // Handbook.pdf
    case 505:
      return 1;  // Workbook.pdf
    case 506:
      return 4;  // Discount.pdf
    default:
      return 3;  // Brochure.pdf
  }
}

void ClearOutputAfterWarning(Session& session) {
  const Answer answer = session.platform.ShowMessage(
      {"Warning!", "This will clear the Output log.  Do you wish to permanently erase all your output?",
       Buttons::kYesNo, Tone::kQuestion});
  if (answer != Answer::kYes) return;
  PlaySoundEffect(session, "clean.wav");
  ClearOutput(session.output);
}

void New(Session& session) {
  if (InView(session, View::ViewDataGrid)) NewData(session);
  if (InView(session, View::ViewStatProcs)) ResetPanel(session.data, session.panel);
  if (InView(session, View::ViewBrevarum)) {
    PlaySoundEffect(session, "clear.wav");
    ClearPanel(session.brevarum);
  }
  if (InView(session, View::ViewOutput)) ClearOutputAfterWarning(session);
}

void Open(Session& session) {
  if (InView(session, View::ViewDataGrid)) AskAndOpenData(session);
  if (InOutputText(session)) {
    if (const auto path = AskOutputToOpen(session.platform)) OpenOutputText(session.output, *path);
  }
}

void Save(Session& session) {
  if (InView(session, View::ViewDataGrid)) SaveDataOrAsk(session);
  if (InOutputText(session)) {
    if (SaveOutput(session)) session.platform.SetStatusPane(kMessagePane, "Save Completed");
    session.wanted_view = View::ViewOutput;
  }
}

void SaveAs(Session& session) {
  if (InView(session, View::ViewDataGrid)) AskAndSaveData(session);
}

void Print(Session& session, const WidgetState& widgets) {
  if (InView(session, View::ViewCharts)) {  // a chart is printed from its own window
    session.platform.ShowMessage(
        {"Information", "Please click graph to view print screen", Buttons::kOk, Tone::kInformation});
  }
  const PrintOptions options = {.date = session.settings.print_date(),
                                .notes_caption = session.settings.notes_caption()};
  if (InOutputText(session)) PrintOutput(session.output, session.platform, options, widgets.output_has_selection);
  if (InView(session, View::ViewBrevarum)) PrintResult(session.brevarum, session.platform, options);
}

void CopyCalculatorOutput(Session& session) {
  if (!InView(session, View::ViewBrevarum) || !CanCopyResult(session.brevarum)) return;
  PlaySoundEffect(session, "copy.wav");
  CopyResult(session.brevarum, session.platform);
}

void ConvertOutput(Session& session) {
  if (InOutputText(session)) ConvertOutputToTabDelimited(session.output);
}

void ToggleOutput(Session& session) {
  if (InOutputText(session)) ToggleOutputMode(session.output);
}

void RunProcedure(Session& session) {
  if (InView(session, View::ViewStatProcs)) RunPanel(session);
  if (InView(session, View::ViewBrevarum)) Calculate(session.brevarum, session.output, session.platform);
}

void OpenDocumentation(Session& session, int id) {
  const Path path = session.platform.ProgramFolder() / kDocumentFiles[DocumentOf(id)];
  if (session.platform.OpenDocument(PathToUtf8(path))) return;
  session.platform.ShowMessage({"Error!",
                                "Tessara was unable to open the pdf file.  The most likely reason is because you don't "
                                "have Adobe Acrobat Reader "
                                "version 4.0 or later installed on your computer."});
}

// What acts on the selection of a widget: in the grid for reading only.
WidgetAction ForReading(const Session& session, WidgetAction action) {
  return InView(session, View::ViewDataGrid) || InView(session, View::ViewOutput) ? action : WidgetAction::kNone;
}
WidgetAction ForEditing(const Session& session, WidgetAction action) {
  return InView(session, View::ViewOutput) ? action : WidgetAction::kNone;
}

}  // namespace

const std::vector<CommandMenu>& MenuBar() {
  static const std::vector<CommandMenu> menus = {
      {"&File",
       {{.id = 101, .caption = "&New", .icon = "document-new", .shortcut = "Ctrl+N"},
        {.id = 102, .caption = "&Open Data File", .icon = "document-open", .shortcut = "Ctrl+O"},
        {.id = 103, .caption = "&Save Data", .begin_group = true, .icon = "document-save", .shortcut = "Ctrl+S"},
        {.id = 110, .caption = "&Save Glossary As", .icon = "document-save-as", .shortcut = "Ctrl+Shift+S"},
        {.id = 106, .caption = "&Print", .begin_group = true, .icon = "document-print", .shortcut = "Ctrl+P"},
        {.id = 107, .caption = "&Exit", .begin_group = true, .icon = "application-exit", .shortcut = "Ctrl+Q"}}},
      {"&Edit",
       {{.id = 214, .caption = "&Undo", .icon = "edit-undo", .shortcut = "Ctrl+Z"},
        {.id = 215, .caption = "&Redo", .icon = "edit-redo", .shortcut = "Ctrl+Shift+Z"},
        {.id = 204, .caption = "Select &All", .begin_group = true, .icon = "edit-select-all", .shortcut = "Ctrl+A"},
        {.id = 205, .caption = "&Copy", .begin_group = true, .icon = "edit-copy", .shortcut = "Ctrl+C"},
        {.id = 206, .caption = "&Paste", .icon = "edit-paste", .shortcut = "Ctrl+V"},
        {.id = 213, .caption = "&Cut", .icon = "edit-cut", .shortcut = "Ctrl+X"},
        {.id = 212, .caption = "Copy Output", .icon = "edit-copy"},
        {.id = 211,
         .caption = "Convert Output to Tab Delimited",
         .begin_group = true,
         .icon = "document-export-table",
         .shortcut = "Ctrl+T"},
        {.id = 350, .caption = "&Output Log", .icon = "view-history", .shortcut = "Ctrl+L"}}},
      {"&Variable",
       {{.id = 308,
         .caption = "Run Procedure",
         .begin_group = true,
         .icon = "media-playback-start",
         .shortcut = "F5"}}},
      {"&Options",
       {{.id = 401, .caption = "Default &Size", .icon = "view-restore"},
        {.id = 402, .caption = "&Repair Sample Data Files", .icon = "tools-wizard"}}},
      {"&Documentation",
       {{.id = 502, .caption = "Refresh Documentation List", .icon = "view-refresh"},
        {.id = 503, .caption = "User Manual", .begin_group = true, .icon = "application-pdf"},
        {.id = 504, .caption = "Methods Handbook", .icon = "application-pdf"},
        {.id = 505, .caption = "Student Workbook", .icon = "application-pdf"},
        {.id = 506, .caption = "Student Discount", .begin_group = true, .icon = "application-pdf"},
        {.id = 507, .caption = "Brochure", .icon = "application-pdf"}}},
      {"&Help",
       {{.id = 601, .caption = "&Help with Tessara", .icon = "help-contents"},
        {.id = 602, .caption = "Open Help &Window", .icon = "help-contextual", .shortcut = "F1"},
        {.id = 608, .caption = "About Tessara", .begin_group = true, .icon = "help-about"}}},
  };
  return menus;
}

const std::vector<CommandControl>& Toolbar() {
  constexpr auto kText = CommandStyle::kIconAndCaption;
  static const std::vector<CommandControl> controls = {
      {.id = 101, .caption = "&New", .tooltip = "New", .icon = "document-new"},
      {.id = 102, .caption = "&Open Data File", .tooltip = "Open an existing file", .icon = "document-open"},
      {.id = 103, .caption = "&Save", .tooltip = "Save the active file", .icon = "document-save"},
      {.id = 213, .caption = "&Cut", .tooltip = "Paste", .begin_group = true, .icon = "edit-cut"},
      {.id = 205, .caption = "&Copy", .tooltip = "Copy Selection", .icon = "edit-copy"},
      {.id = 212, .caption = "&Copy Output", .tooltip = "Copy Output", .begin_group = true, .icon = "edit-copy"},
      {.id = 206, .caption = "&Paste", .tooltip = "Paste", .icon = "edit-paste"},
      {.id = 350,
       .caption = "Output Log",
       .tooltip = "View Output Log",
       .begin_group = true,
       .style = kText,
       .icon = "view-history"},
      {.id = 308,
       .caption = "Run Procedure",
       .tooltip = "Run Statistical Procedure",
       .begin_group = true,
       .style = kText,
       .icon = "media-playback-start"},
      {.id = 106,
       .caption = "&Print",
       .tooltip = "Print the active document",
       .style = kText,
       .icon = "document-print"},
      {.id = 602,
       .caption = "Help &Window",
       .tooltip = "Show Help Window",
       .begin_group = true,
       .style = kText,
       .icon = "help-contextual"},
  };
  return controls;
}

CommandState UpdateCommand(const Session& session, int id, const WidgetState& widgets) {
  switch (id) {
    case 101:
      return {static_cast<int>(session.ActiveView) < static_cast<int>(View::ViewCharts), ViewIsLive(session), {}};
    case 102:
      return FileCommand(session, "Open Data File", "Open Text File", "Open Glossary File");
    case 103:
      return FileCommand(session, "Save Data", "Save Output", "Save Note");
    case 106:
      return PrintState(session);
    case 110:
      return FileCommand(session, "Save Data As...", "", "Save Glossary As...");
    case 204:
      return SelectAllState(session);
    case 205:
      return CopyState(session, widgets);
    case 206:
      return PasteState(session, widgets);
    case 211:
      return ConvertState(session);
    case 212:
      return CopyOutputState(session);
    case 213:
      return CutState(session, widgets);
    case 214:
      return {InOutputText(session), InOutputText(session) && widgets.can_undo, {}};
    case 215:
      return {InOutputText(session), InOutputText(session) && widgets.can_redo, {}};
    case 308:
      return RunState(session);
    case 350:
      return ToggleState(session);
    case 503:
    case 504:
    case 505:
    case 506:
    case 507:
      return {true, session.documentation_found[DocumentOf(id)], {}};
    default:
      return {true, true, {}};
  }
}

WidgetAction ExecuteCommand(Session& session, int id, const WidgetState& widgets) {
  const WaitCursor wait(session.platform);
  switch (id) {
    case 101:
      New(session);
      break;
    case 102:
      Open(session);
      break;
    case 103:
      Save(session);
      break;
    case 106:
      Print(session, widgets);
      break;
    case 107:
      return WidgetAction::kCloseFrame;
    case 110:
      SaveAs(session);
      break;
    case 204:
      return ForReading(session, WidgetAction::kSelectAll);
    case 205:
      CopyCalculatorOutput(session);
      return ForReading(session, WidgetAction::kCopy);
    case 206:
      return ForEditing(session, WidgetAction::kPaste);
    case 211:
      ConvertOutput(session);
      break;
    case 212:
      CopyCalculatorOutput(session);
      break;
    case 213:
      return ForEditing(session, WidgetAction::kCut);
    case 214:
      return ForEditing(session, WidgetAction::kUndo);
    case 215:
      return ForEditing(session, WidgetAction::kRedo);
    case 308:
      RunProcedure(session);
      break;
    case 350:
      ToggleOutput(session);
      break;
    case 401:
      return WidgetAction::kDefaultSize;
    case 402:
      RepairSampleFiles(session.platform);
      break;
    case 502:
      TestDocumentationFiles(session);
      break;
    case 503:
    case 504:
    case 505:
    case 506:
    case 507:
      OpenDocumentation(session, id);
      break;
    case 601:
      session.help_pane_visible = true;
      return WidgetAction::kOpenHelp;
    case 602:
      session.help_pane_visible = !session.help_pane_visible;
      return WidgetAction::kToggleHelpPane;
    case 608:
      return WidgetAction::kShowAbout;
    default:
      break;
  }
  return WidgetAction::kNone;
}

}  // namespace tessara
