#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "calculators/brevarum_panel.h"
#include "data/data_file.h"
#include "data/data_set.h"
#include "data/dictionary/variable_format.h"
#include "data/edit/cell_entry.h"
#include "data/edit/grid_block.h"
#include "data/exchange/import.h"
#include "data/exchange/split.h"
#include "data/recode/recode_panel.h"
#include "deskcalc/desk_calculator.h"
#include "numerics/random_numbers.h"
#include "platform/platform.h"
#include "platform/settings_store.h"
#include "presentation/chart_data.h"
#include "presentation/output_log.h"
#include "presentation/report_page.h"
#include "procedures/panel.h"
#include "procedures/run.h"
#include "procedures/samples/sample_panel.h"
#include "procedures/tables/summary_table.h"
#include "reference/glossary.h"
#include "reference/handbook_topics.h"
#include "shell/options_form.h"
#include "shell/settings.h"

// One session of the system: all its state, owned by the front end, and the operations that a command or a view calls.

namespace tessara {

enum class View : int {
  kNone = 0,
  ViewDataGrid = 1,
  ViewStatProcs = 2,
  ViewBrevarum = 3,
  ViewOutput = 4,
  ViewCharts = 5,
  ViewGlossary = 6,
  ViewHandbook = 7,
  ViewTips = 8,
};

// The documents that the Documentation menu opens, in the order of their flags.
enum class Document { kUserManual, kWorkbook, kHandbook, kBrochure, kDiscount };
inline constexpr std::array<std::string_view, 5> kDocumentFiles = {"UserManual.pdf", "Workbook.pdf", "Handbook.pdf",
                                                                   "Brochure.pdf", "Discount.pdf"};

inline constexpr int kMessagePane = 1;

struct Session {
  Session(Platform& the_platform, SettingsStore& the_store) : platform(the_platform), settings_store(the_store) {}

  Platform& platform;
  SettingsStore& settings_store;
  Settings settings;
  DataSet data;
  GridBlock grid_selection;  // around the grid's cursor
  CellEntry cell_entry;
  VariableFormat format;
  CopiedFormat copied_format;
  ProcedurePanel panel;
  RecodePanel recode;
  BrevarumPanel brevarum;
  DelimitForm delimit;
  SplitPanel split;
  SamplePanel samples;
  OutputLog output;
  SummaryTable table;  // the other face of the Output view
  ReportPage report_page;
  ChartStore charts;
  Glossary glossary;
  Handbook handbook;
  DeskCalculator calculator;
  OptionsForm options;

  View ActiveView = View::ViewDataGrid;
  bool help_pane_visible = false;
  std::optional<RandomNumbers> random;  // seeded when somebody first asks
  std::array<bool, kDocumentFiles.size()> documentation_found{};
  // Set by an operation that wants a view in front; the front end brings it there and clears it.
  View wanted_view = View::kNone;
};

// Start-up without a window: settings, the documentation flags, the folder "Tessara Data" in the user's documents as
// the working folder, an empty data set whose DataFilePath is the folder of data files, and the file of the command
// line, if any.
void StartSession(Session& session, const Path& command_line_file);
// The same without touching the user's documents or the working folder, and without a file: for the batch program.
void StartBatchSession(Session& session);

void TestDocumentationFiles(Session& session);

// The data file flows with all that depends on them: panel lists, statistics, status panes. They ask for no path: where
// one is needed, the front end has it (file_questions.h).
LoadOutcome OpenDataFile(Session& session, const Path& path, FilePick pick);
SaveOutcome SaveData(Session& session);
SaveOutcome SaveDataTo(Session& session, const Path& path);
void NewData(Session& session);

// Imports what the form "Data File Format" names, in the place of the data.
ImportOutcome ImportData(Session& session);
// False when the file could not be written.
bool ExportData(Session& session, const Path& path, char delimiter);

// What every command begins with: the message of the one before it leaves pane 1.
void BeginOperation(Session& session);

// Changes the notes box: marks the data as changed.
void SetProjectNotes(Session& session, std::string notes);

// The lists and the control of the panel go with their variables: called behind every operation that may have changed
// the data, so that what is chosen next is meant as it stands. A note tells of a control that had to be reset.
void FollowPanel(Session& session);

// Runs the panel's procedure.
RunOutcome RunPanel(Session& session);

// A view has come to the front. The Glossary view opens its file when it does so for the first time.
void ActivateView(Session& session, View view);
// The page of the help pane for a view, a file of the Help folder.
std::string_view HelpPage(View view);
// Rewrites the status panes 2 and 3, and stores the output box back in the views that ask for it. The front end calls
// it once behind each operation, when it refreshes the command state.
void RefreshStatus(Session& session);

// The one generator of the process, seeded once.
RandomNumbers& RandomNumbersOf(Session& session);

void PlaySoundEffect(Session& session, std::string_view name);

}  // namespace tessara
