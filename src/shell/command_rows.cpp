#include <initializer_list>
#include <span>

#include "shell/command_operations.h"
#include "shell/command_row.h"
#include "shell/command_rules.h"
#include "shell/file_questions.h"
#include "shell/format_operations.h"
#include "shell/grid_operations.h"
#include "shell/office_operations.h"
#include "shell/recode_operations.h"
#include "shell/report_operations.h"
#include "shell/sample_operations.h"

// All commands, by the menus that they stand in.

namespace tessara {
namespace {

using enum View;

constexpr ViewSet kEveryView = {ViewDataGrid, ViewStatProcs, ViewBrevarum, ViewOutput,
                                ViewCharts,   ViewGlossary,  ViewHandbook, ViewTips};

constexpr std::string_view kNoGlossary = "The glossary is not part of this version";
constexpr std::string_view kNoHandbook = "The handbook is not part of this version";
constexpr std::string_view kNothingToUndo = "There is nothing to undo";
constexpr std::string_view kNothingToRedo = "There is nothing to redo";
constexpr std::string_view kNoOutput = "There is no output yet";
constexpr std::string_view kNoSelection = "No text is selected";
constexpr std::string_view kNoText = "The clipboard holds no text";
constexpr std::string_view kNoResult = "There is no result yet";
constexpr std::string_view kNoDocument = "This document is not in the program folder";

constexpr CommandRow kFileCommands[] = {
    {.id = kNewCommand,
     .caption = "&New",
     .icon = "document-new",
     .shortcut = "Ctrl+N",
     .tooltip = "New",
     .uses = {{.views = ViewDataGrid, .run = NewData},
              {.views = ViewStatProcs, .run = ResetProcedurePanel},
              {.views = ViewBrevarum, .run = ClearCalculator},
              {.views = ViewOutput, .run = ClearOutputAfterWarning}}},
    {.id = kOpenCommand,
     .caption = "&Open Data File",
     .icon = "document-open",
     .shortcut = "Ctrl+O",
     .tooltip = "Open an existing file",
     .uses = {{.views = ViewDataGrid, .caption = "Open Data File", .run = AskAndOpenData},
              {.views = ViewOutput, .caption = "Open Text File", .shown = InTextMode, .run = OpenText},
              {.views = ViewGlossary, .caption = "Open Glossary File", .reason = kNoGlossary}}},
    {.id = 103,
     .caption = "&Save Data",
     .icon = "document-save",
     .shortcut = "Ctrl+S",
     .tooltip = "Save the active file",
     .uses = {{.views = ViewDataGrid, .caption = "Save Data", .run = SaveDataOrAsk},
              {.views = ViewOutput, .caption = "Save Output", .shown = InTextMode, .run = SaveText},
              {.views = ViewGlossary, .caption = "Save Note", .reason = kNoGlossary}}},
    {.id = 110,
     .caption = "&Save Glossary As",
     .icon = "document-save-as",
     .shortcut = "Ctrl+Shift+S",
     .uses = {{.views = ViewDataGrid, .caption = "Save Data As...", .run = AskAndSaveData},
              {.views = ViewGlossary, .caption = "Save Glossary As...", .reason = kNoGlossary}}},
    {.id = 104,
     .caption = "&Import Data",
     .icon = "document-import",
     .shortcut = "Ctrl+I",
     .uses = {{.views = ViewDataGrid, .caption = "Import Data", .run = PrepareImport},
              {.views = ViewGlossary, .caption = "Import Tab Delimited File", .reason = kNoGlossary}}},
    {.id = 105,
     .caption = "&Export Data",
     .icon = "document-export",
     .shortcut = "Ctrl+E",
     .uses = {{.views = ViewDataGrid, .caption = "Export Data", .run = PrepareExport},
              {.views = ViewGlossary, .caption = "Export Tab Delimited File", .reason = kNoGlossary}}},
    {.id = 108,
     .caption = "&Export to Excel",
     .icon = "x-office-spreadsheet",
     .tooltip = "Export",
     .uses = {{.views = ViewDataGrid, .run = PrepareExport}, {.views = ViewOutput, .run = SendToExcel}}},
    {.id = 109,
     .caption = "&Export to Word",
     .icon = "x-office-document",
     .tooltip = "Export to Word",
     .uses = {{.views = ViewOutput, .run = SendToWord}}},
    {.id = kPrintCommand,
     .caption = "&Print",
     .icon = "document-print",
     .shortcut = "Ctrl+P",
     .tooltip = "Print the active document",
     .uses = {{.views = ViewStatProcs, .run = PrintNotes},
              {.views = ViewBrevarum, .enabled = HasCalculation, .run = PrintCalculation, .reason = kNoResult},
              {.views = ViewOutput, .shown = InTextMode, .run = PrintText},
              {.views = ViewOutput, .run = PrintTable},
              {.views = ViewCharts, .run = TellWhereChartsPrint},
              {.views = ViewGlossary, .reason = kNoGlossary},
              {.views = ViewHandbook, .reason = kNoHandbook},
              {.views = ViewTips, .run = WidgetAction::kPrintPage}}},
    {.id = kExitCommand,
     .caption = "&Exit",
     .icon = "application-exit",
     .shortcut = "Ctrl+Q",
     .uses = {{.views = kEveryView, .run = WidgetAction::kCloseFrame}}},
};

constexpr CommandRow kEditCommands[] = {
    {.id = 214,
     .caption = "&Undo",
     .icon = "edit-undo",
     .shortcut = "Ctrl+Z",
     .uses = {{.views = ViewDataGrid,
               .enabled = CanUndoData,
               .run = UndoDataChange,
               .reason = kNothingToUndo,
               .named = UndoCaption},
              {.views = ViewOutput,
               .caption = "Undo",
               .shown = InTextMode,
               .enabled = CanUndoText,
               .run = WidgetAction::kUndo,
               .reason = kNothingToUndo}}},
    {.id = 215,
     .caption = "&Redo",
     .icon = "edit-redo",
     .shortcut = "Ctrl+Shift+Z",
     .second_shortcut = "Ctrl+Y",
     .uses = {{.views = ViewDataGrid,
               .enabled = CanRedoData,
               .run = RedoDataChange,
               .reason = kNothingToRedo,
               .named = RedoCaption},
              {.views = ViewOutput,
               .caption = "Redo",
               .shown = InTextMode,
               .enabled = CanRedoText,
               .run = WidgetAction::kRedo,
               .reason = kNothingToRedo}}},
    {.id = 201,
     .caption = "&Split Large Data Files",
     .icon = "edit-cut",
     .uses = {{.views = ViewDataGrid, .run = PrepareSplit}}},
    {.id = kGoToCommand,
     .caption = "&Go to Cell",
     .icon = "go-jump",
     .shortcut = "Ctrl+G",
     .uses = {{.views = ViewDataGrid, .run = WidgetAction::kGoTo}}},
    {.id = kSelectAllCommand,
     .caption = "Select &All",
     .icon = "edit-select-all",
     .shortcut = "Ctrl+A",
     .uses = {{.views = ViewDataGrid, .run = WidgetAction::kSelectAll},
              {.views = ViewOutput, .enabled = HasOutputText, .run = WidgetAction::kSelectAll, .reason = kNoOutput}}},
    {.id = kCopyCommand,
     .caption = "&Copy",
     .icon = "edit-copy",
     .shortcut = "Ctrl+C",
     .tooltip = "Copy Selection",
     .uses = {{.views = ViewDataGrid, .run = CopyCells},
              {.views = ViewBrevarum, .run = CopyCalculation, .in_bars = false},
              {.views = ViewOutput, .enabled = HasOutputSelection, .run = WidgetAction::kCopy, .reason = kNoSelection},
              {.views = ViewGlossary, .reason = kNoGlossary}}},
    {.id = 206,
     .caption = "&Paste",
     .icon = "edit-paste",
     .shortcut = "Ctrl+V",
     .tooltip = "Paste",
     .uses = {{.views = ViewDataGrid, .enabled = ClipboardHasText, .run = PasteCells, .reason = kNoText},
              {.views = ViewOutput, .enabled = ClipboardHasText, .run = WidgetAction::kPaste, .reason = kNoText},
              {.views = ViewGlossary, .reason = kNoGlossary}}},
    {.id = 213,
     .caption = "&Cut",
     .icon = "edit-cut",
     .shortcut = "Ctrl+X",
     .tooltip = "Paste",  // of the button that cuts: the pairing is intended
     .uses = {{.views = ViewDataGrid, .run = CutCells},
              {.views = ViewOutput, .enabled = HasOutputSelection, .run = WidgetAction::kCut, .reason = kNoSelection},
              {.views = ViewGlossary, .reason = kNoGlossary}}},
    {.id = 207,
     .caption = "Add &Rows",
     .icon = "edit-table-insert-row-below",
     .tooltip = "Add Rows",
     .uses = {{.views = ViewDataGrid, .run = AddGridRows}}},
    {.id = 208,
     .caption = "Add &Columns",
     .icon = "edit-table-insert-column-right",
     .tooltip = "Add Columns",
     .uses = {{.views = ViewDataGrid, .run = AddGridColumn}}},
    {.id = 209,
     .caption = "Delete Rows",
     .icon = "edit-table-delete-row",
     .tooltip = "Delete Rows",
     .uses = {{.views = ViewDataGrid, .run = DeleteGridRows}}},
    {.id = 210,
     .caption = "Delete Columns",
     .icon = "edit-table-delete-column",
     .tooltip = "Delete Columns",
     .uses = {{.views = ViewDataGrid, .run = DeleteGridColumns}}},
    {.id = kCopyOutputCommand,
     .caption = "Copy Output",
     .icon = "edit-copy",
     .tooltip = "Copy Output",
     .uses = {{.views = ViewBrevarum, .enabled = HasCalculation, .run = CopyCalculation, .reason = kNoResult}}},
    {.id = kConvertCommand,
     .caption = "Convert Output to Tab Delimited",
     .icon = "document-export-table",
     .shortcut = "Ctrl+T",
     .uses = {{.views = ViewOutput, .enabled = HasOutputToConvert, .run = ConvertText, .reason = kNoOutput}}},
    {.id = kToggleOutputCommand,
     .caption = "&Output Log",
     .icon = "view-history",
     .shortcut = "Ctrl+L",
     .tooltip = "View Output Log",
     .uses = {{.views = ViewOutput, .caption = "Most Recent Output", .shown = ShowsLog, .run = ToggleText},
              {.views = ViewOutput, .caption = "Output Log", .shown = ShowsMostRecent, .run = ToggleText}}},
};

constexpr CommandRow kVariableCommands[] = {
    {.id = kFormatCommand,
     .caption = "&Format Variables",
     .icon = "document-properties",
     .shortcut = "Ctrl+D",
     .tooltip = "Formatting",
     .uses =
         {{.views = ViewDataGrid, .caption = "Format Variables", .run = OpenVariableFormat},
          {.views = ViewOutput, .caption = "Format Page", .shown = TableIsEdited, .run = WidgetAction::kFormatPage}}},
    {.id = 454,
     .caption = "Set Column &Width",
     .icon = "distribute-horizontal-x",
     .tooltip = "Adjust Column Width",
     .uses = {{.views = ViewOutput, .shown = TableIsEdited, .run = WidgetAction::kSetColumnWidth}}},
    {.id = kVariablesCommand,
     .caption = "All &Variables",
     .icon = "view-list-details",
     .shortcut = "Ctrl+Shift+D",
     .tooltip = "Table of all variables",
     .uses = {{.views = ViewDataGrid, .run = WidgetAction::kShowVariables}}},
    {.id = kDictionaryCommand,
     .caption = "Create Data &Dictionary",
     .icon = "view-list-text",
     .uses = {{.views = ViewDataGrid, .run = ShowDataDictionary}}},
    {.id = kCreateSampleCommand, .uses = {{.views = ViewStatProcs, .run = DrawSample, .in_bars = false}}},
    {.id = kRunIterationsCommand, .uses = {{.views = ViewStatProcs, .run = SaveOrDrawIterations, .in_bars = false}}},
    {.id = kRunCommand,
     .caption = "Run Procedure",
     .icon = "media-playback-start",
     .shortcut = "F5",
     .tooltip = "Run Statistical Procedure",
     .uses = {{.views = ViewStatProcs, .run = RunProcedure}, {.views = ViewBrevarum, .run = RunCalculator}}},
};

// The form stays open beside every view.
constexpr CommandRow kFormatCommands[] = {
    {.id = kSaveFormatCommand, .uses = {{.views = kEveryView, .run = SaveFormat, .in_bars = false}}},
    {.id = kCopyFormatCommand,
     .uses = {{.views = kEveryView, .run = static_cast<void (*)(Session&)>(CopyFormat), .in_bars = false}}},
    {.id = kPasteFormatCommand,
     .uses = {{.views = kEveryView, .run = static_cast<void (*)(Session&)>(PasteFormat), .in_bars = false}}},
    {.id = kRevertFormatCommand,
     .uses = {{.views = kEveryView, .run = static_cast<void (*)(Session&)>(RevertFormat), .in_bars = false}}},
};

constexpr CommandRow kRecodeCommands[] = {
    {.id = 202,
     .caption = "&Find Cell Data",
     .icon = "edit-find",
     .shortcut = "Ctrl+F",
     .tooltip = "Find Requested Item",
     .uses = {{.views = ViewDataGrid, .caption = "Find Cell Data", .run = OpenRecodeMode<RecodeMode::kFind>},
              {.views = ViewGlossary, .caption = "Search Glossary", .reason = kNoGlossary}}},
    {.id = 803,
     .caption = "&Reset Search",
     .icon = "edit-clear",
     .tooltip = "Reset Search",
     .uses = {{.views = ViewDataGrid, .enabled = SearchIsGoing, .run = ResetGridSearch, .reason = "No match is marked"},
              {.views = ViewGlossary, .reason = kNoGlossary}}},
    {.id = 203,
     .caption = "Find and &Replace Cell Data",
     .icon = "edit-find-replace",
     .shortcut = "Ctrl+H",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kReplace>}}},
    {.id = 302,
     .caption = "&Recode Variables",
     .icon = "category",
     .tooltip = "Recode Variables",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kRecode>}}},
    {.id = 303,
     .caption = "Compare Date Variables",
     .icon = "view-calendar-day",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kCompareDates>}}},
    {.id = 304,
     .caption = "Combine Variables",
     .icon = "merge",
     .tooltip = "Combine Two Variables",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kCombine>}}},
    {.id = 305,
     .caption = "Compute New Variable",
     .icon = "mathmode",
     .tooltip = "Compute New Variable",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kCompute>}}},
    {.id = 306,
     .caption = "Trim Outliers",
     .icon = "view-filter",
     .uses = {{.views = ViewDataGrid, .run = OpenRecodeMode<RecodeMode::kTrim>}}},
    {.id = kRunRecodeCommand, .uses = {{.views = kEveryView, .run = RunRecode, .in_bars = false}}},
    {.id = kUndoRecodeCommand, .uses = {{.views = kEveryView, .run = UndoRecode, .in_bars = false}}},
    {.id = kResetRecodeCommand, .uses = {{.views = kEveryView, .run = ResetRecode, .in_bars = false}}},
};

constexpr CommandRow kOptionsCommands[] = {
    {.id = 401,
     .caption = "Default &Size",
     .icon = "view-restore",
     .uses = {{.views = kEveryView, .run = WidgetAction::kDefaultSize}}},
    {.id = 402,
     .caption = "&Repair Sample Data Files",
     .icon = "tools-wizard",
     .uses = {{.views = kEveryView, .run = RepairPracticeFiles}}},
};

// A command that opens a document, the same in every view.
template <Document document>
constexpr CommandRow DocumentRow(int id, std::string_view caption) {
  return {.id = id,
          .caption = caption,
          .icon = "application-pdf",
          .uses = {{.views = kEveryView,
                    .enabled = DocumentIsThere<document>,
                    .run = static_cast<void (*)(Session&)>(OpenDocumentation<document>),
                    .reason = kNoDocument}}};
}

constexpr CommandRow kDocumentationCommands[] = {
    {.id = 502,
     .caption = "Refresh Documentation List",
     .icon = "view-refresh",
     .uses = {{.views = kEveryView, .run = RefreshDocumentation}}},
    DocumentRow<Document::kUserManual>(503, "User Manual"),
    DocumentRow<Document::kHandbook>(504, "Methods Handbook"),
    DocumentRow<Document::kWorkbook>(505, "Student Workbook"),
    DocumentRow<Document::kDiscount>(506, "Student Discount"),
    DocumentRow<Document::kBrochure>(507, "Brochure"),
};

constexpr CommandRow kHelpCommands[] = {
    {.id = 601,
     .caption = "&Help with Tessara",
     .icon = "help-contents",
     .uses = {{.views = kEveryView, .run = OpenHelp}}},
    {.id = kToggleHelpCommand,
     .caption = "Open Help &Window",
     .icon = "help-contextual",
     .shortcut = "F1",
     .tooltip = "Show Help Window",
     .checked = HelpPaneIsVisible,
     .uses = {{.views = kEveryView, .run = ToggleHelpPane}}},
    {.id = kAboutCommand,
     .caption = "About Tessara",
     .icon = "help-about",
     .uses = {{.views = kEveryView, .run = WidgetAction::kShowAbout}}},
};

}  // namespace

const CommandRow* FindCommand(int id) {
  for (const std::span<const CommandRow> rows : std::initializer_list<std::span<const CommandRow>>{
           kFileCommands, kEditCommands, kVariableCommands, kFormatCommands, kRecodeCommands, kOptionsCommands,
           kDocumentationCommands, kHelpCommands}) {
    for (const CommandRow& row : rows) {
      if (row.id == id) return &row;
    }
  }
  return nullptr;
}

}  // namespace tessara
