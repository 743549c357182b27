#include "shell/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "data/change_door.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

constexpr int kViews = 8;

// A menu or toolbar in one text: "|" stands ahead of a group.
std::string Outline(const std::vector<BarEntry>& entries) {
  std::string text;
  for (const BarEntry& entry : entries) {
    text += (entry.begin_group ? "|" : " ") + std::to_string(entry.id) + " " + std::string(CaptionOf(entry)) + "\n";
  }
  return text;
}

// The rows that the menus name.
std::vector<const CommandRow*> MenuRows() {
  std::vector<const CommandRow*> rows;
  for (const CommandMenu& menu : MenuBar()) {
    for (const BarEntry& entry : menu.entries) rows.push_back(FindCommand(entry.id));
  }
  return rows;
}

TEST(MenuBar, HoldsTheCommandsInTheirOrder) {
  const std::pair<const char*, const char*> expected[] = {
      {"&File",
       " 101 &New\n"
       " 102 &Open Data File\n"
       "|103 &Save Data\n"
       " 110 &Save Glossary As\n"
       "|104 &Import Data\n"
       " 105 &Export Data\n"
       " 108 &Export to Excel\n"
       "|106 &Print\n"
       "|107 &Exit\n"},
      {"&Edit",
       " 214 &Undo\n"
       " 215 &Redo\n"
       "|201 &Split Large Data Files\n"
       " 202 &Find Cell Data\n"
       " 803 &Reset Search\n"
       " 203 Find and &Replace Cell Data\n"
       " 216 &Go to Cell\n"
       "|204 Select &All\n"
       "|205 &Copy\n"
       " 206 &Paste\n"
       " 213 &Cut\n"
       "|207 Add &Rows\n"
       " 208 Add &Columns\n"
       " 209 Delete Rows\n"
       " 210 Delete Columns\n"
       " 212 Copy Output\n"
       "|211 Convert Output to Tab Delimited\n"
       " 350 &Output Log\n"},
      {"&Variable",
       " 301 &Format Variables\n"
       " 310 All &Variables\n"
       " 302 &Recode Variables\n"
       " 303 Compare Date Variables\n"
       " 304 Combine Variables\n"
       " 305 Compute New Variable\n"
       " 306 Trim Outliers\n"
       "|308 Run Procedure\n"},
      {"&Options",
       " 401 Default &Size\n"
       " 402 &Repair Sample Data Files\n"},
      {"&Documentation",
       " 502 Refresh Documentation List\n"
       "|503 User Manual\n"
       " 504 Methods Handbook\n"
       " 505 Student Workbook\n"
       "|506 Student Discount\n"
       " 507 Brochure\n"},
      {"&Help",
       " 601 &Help with Tessara\n"
       " 602 Open Help &Window\n"
       "|608 About Tessara\n"},
  };
  ASSERT_EQ(MenuBar().size(), std::size(expected));
  for (std::size_t i = 0; i < MenuBar().size(); ++i) {
    EXPECT_EQ(MenuBar()[i].title, expected[i].first);
    EXPECT_EQ(Outline(MenuBar()[i].entries), expected[i].second);
  }
}

TEST(Toolbar, HoldsTheButtonsInTheirOrder) {
  EXPECT_EQ(Outline(Toolbar()),
            " 101 &New\n"
            " 102 &Open Data File\n"
            " 103 &Save\n"
            "|108 Export\n"
            "|213 &Cut\n"
            " 205 &Copy\n"
            "|212 &Copy Output\n"
            " 206 &Paste\n"
            "|803 &Reset Search\n"
            " 202 &Find\n"
            "|207 Add Rows\n"
            " 208 Add Columns\n"
            " 209 Delete Rows\n"
            " 210 Delete Columns\n"
            "|301 &Format Variables\n"
            "|350 Output Log\n"
            "|308 Run Procedure\n"
            " 302 &Recode Variables\n"
            " 304 &Combine Variables\n"
            " 305 &Compute New Variable\n"
            " 106 &Print\n"
            "|602 Help &Window\n");
  const char* tooltips[] = {"New",
                            "Open an existing file",
                            "Save the active file",
                            "Export",
                            "Paste",  // of the button that cuts: the pairing is intended
                            "Copy Selection",
                            "Copy Output",
                            "Paste",
                            "Reset Search",
                            "Find Requested Item",
                            "Add Rows",
                            "Add Columns",
                            "Delete Rows",
                            "Delete Columns",
                            "Formatting",
                            "View Output Log",
                            "Run Statistical Procedure",
                            "Recode Variables",
                            "Combine Two Variables",
                            "Compute New Variable",
                            "Print the active document",
                            "Show Help Window"};
  const std::set<int> with_caption = {108, 202, 301, 350, 308, 106, 602};
  for (std::size_t i = 0; i < Toolbar().size(); ++i) {
    const BarEntry& entry = Toolbar()[i];
    EXPECT_EQ(FindCommand(entry.id)->tooltip, tooltips[i]);
    EXPECT_EQ(entry.style == CommandStyle::kIconAndCaption, with_caption.contains(entry.id)) << entry.id;
  }
}

TEST(CommandRows, OneShortcutStandsForOneCommand) {
  std::map<std::string_view, int> commands;
  for (const CommandRow* row : MenuRows()) {
    if (row->shortcut.empty()) continue;
    EXPECT_TRUE(commands.try_emplace(row->shortcut, row->id).second) << row->shortcut;
  }
  EXPECT_EQ(commands["Ctrl+O"], 102);
  EXPECT_EQ(commands["F5"], 308);
}

TEST(CommandRows, EveryEntryHasARowOfItsOwnThatIsWhole) {
  std::set<int> ids;
  for (const CommandRow* row : MenuRows()) {
    ASSERT_TRUE(row);
    EXPECT_TRUE(ids.insert(row->id).second) << row->id << " stands twice in the menus";
    EXPECT_FALSE(row->caption.empty()) << row->id;
    EXPECT_FALSE(row->icon.empty()) << row->id;
  }
  for (const BarEntry& entry : Toolbar()) EXPECT_TRUE(ids.contains(entry.id)) << entry.id;
  EXPECT_EQ(FindCommand(999), nullptr);
}

class CommandTest : public SessionFixture {
 protected:
  CommandTest() { StartSession(session, {}); }

  CommandState State(int id, View view) {
    session.ActiveView = view;
    return UpdateCommand(session, id, widgets);
  }
  std::string ReasonOf(int id, View view) { return State(id, view).reason; }
  WidgetAction Execute(int id, View view) {
    ActivateView(session, view);
    platform.most_wait_cursors = 0;
    const WidgetAction action = ExecuteCommand(session, id, widgets);
    EXPECT_EQ(platform.wait_cursors, 0);
    EXPECT_GE(platform.most_wait_cursors, 1);
    return action;
  }

  // One character for each of the views 1 to 8: "-" hidden, "+" enabled, "o" visible but not enabled.
  std::string StatesByView(int id) {
    std::string states;
    for (int view = 1; view <= kViews; ++view) {
      const CommandState state = State(id, static_cast<View>(view));
      states += !state.visible ? '-' : state.enabled ? '+' : 'o';
    }
    return states;
  }

  WidgetState widgets;
};

TEST_F(CommandTest, StatesByViewWithAnEmptyOutput) {
  const std::pair<int, const char*> expected[] = {
      {101, "++++----"}, {102, "+--+-o--"}, {103, "+--+-o--"}, {110, "+----o--"}, {106, "-oo++oo+"}, {107, "++++++++"},
      {204, "+--o----"}, {205, "+--o-o--"}, {206, "o--o-o--"}, {213, "+--o-o--"}, {211, "---o----"}, {350, "---+----"},
      {308, "-++-----"}, {212, "--o-----"}, {401, "++++++++"}, {402, "++++++++"}, {502, "++++++++"}, {503, "oooooooo"},
      {504, "oooooooo"}, {505, "oooooooo"}, {506, "oooooooo"}, {507, "oooooooo"}, {601, "++++++++"}, {602, "++++++++"},
      {608, "++++++++"}, {214, "o--o----"}, {215, "o--o----"}, {207, "+-------"}, {208, "+-------"}, {209, "+-------"},
      {210, "+-------"}, {216, "+-------"}, {301, "+-------"}, {310, "+-------"}, {202, "+----o--"}, {803, "o----o--"},
      {203, "+-------"}, {302, "+-------"}, {303, "+-------"}, {304, "+-------"}, {305, "+-------"}, {306, "+-------"},
      {104, "+----o--"}, {105, "+----o--"}, {108, "+-------"}, {201, "+-------"},
  };
  for (const auto& [id, states] : expected) EXPECT_EQ(StatesByView(id), states) << id;
}

TEST_F(CommandTest, StatesByViewWithOutputASelectionAndAFullClipboard) {
  Report("report");
  widgets = {.output_has_selection = true, .clipboard_has_text = true, .can_undo = true, .can_redo = true};
  const std::pair<int, const char*> expected[] = {{204, "+--+----"}, {205, "+--+-o--"}, {206, "+--+-o--"},
                                                  {213, "+--+-o--"}, {211, "---+----"}, {214, "o--+----"},
                                                  {215, "o--+----"}};
  for (const auto& [id, states] : expected) EXPECT_EQ(StatesByView(id), states) << id;
}

TEST_F(CommandTest, UndoAndRedoAreLeftToTheSheet) {
  EXPECT_EQ(Execute(214, View::ViewOutput), WidgetAction::kUndo);
  EXPECT_EQ(Execute(215, View::ViewOutput), WidgetAction::kRedo);
  EXPECT_EQ(Execute(214, View::ViewStatProcs), WidgetAction::kNone);
}

TEST_F(CommandTest, UndoOfTheDataNamesItsStep) {
  EXPECT_EQ(State(214, View::ViewDataGrid).caption, "Undo");
  EXPECT_EQ(State(214, View::ViewDataGrid).reason, "There is nothing to undo");
  session.grid_selection = {1, 2, 1, 1};
  platform.clipboard = "a\tb\rc\td";
  MoveCursor(session.data, {3, 2});
  Execute(206, View::ViewDataGrid);
  EXPECT_EQ(State(214, View::ViewDataGrid).caption, "Undo Paste");
  EXPECT_EQ(session.grid_selection, (GridBlock{3, 4, 2, 3}));
  MoveCursor(session.data, {9, 9});
  Execute(214, View::ViewDataGrid);
  EXPECT_EQ(platform.panes[1], "Undone: Paste");
  EXPECT_EQ(CursorOf(session.data), (GridPlace{3, 2}));
  EXPECT_TRUE(session.data.matrix.Cell(kHeaderRowCount + 3, 2).is_empty());
  EXPECT_FALSE(State(214, View::ViewDataGrid).enabled);
  EXPECT_EQ(State(215, View::ViewDataGrid).caption, "Redo Paste");
  Execute(215, View::ViewDataGrid);
  EXPECT_EQ(platform.panes[1], "Redone: Paste");
  EXPECT_EQ(session.data.matrix.Cell(kHeaderRowCount + 4, 3), TaggedView("d"));
  EXPECT_EQ(State(214, View::ViewOutput).caption, "Undo");
}

TEST_F(CommandTest, ANameOfAStepIsNoMenuText) {
  std::string name = "Recode A&B\t\x01";
  ApplyChange(session.data, CellChange(kFirstRecordRow, 1, "x", name));
  EXPECT_EQ(State(214, View::ViewDataGrid).caption, "Undo Recode A&&B  ");
  ApplyChange(session.data, CellChange(kFirstRecordRow, 1, "y", std::string(5000, 'n')));
  EXPECT_EQ(State(214, View::ViewDataGrid).caption, "Undo " + std::string(40, 'n') + "...");
}

TEST_F(CommandTest, TheCommandsOfTheGridWorkOnItsSelection) {
  DataSet& data = session.data;
  platform.clipboard = "1\t2\r3\t4";
  Execute(206, View::ViewDataGrid);
  session.grid_selection = {1, 1, 1, 2};
  Execute(205, View::ViewDataGrid);
  EXPECT_EQ(platform.clipboard, "1\t2");
  session.grid_selection = {2, 2, 1, 2};
  Execute(213, View::ViewDataGrid);
  EXPECT_EQ(platform.clipboard, "3\t4");
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 1), TaggedView(""));
  Execute(207, View::ViewDataGrid);
  EXPECT_EQ(data.RecordCount, 1010u);
  Execute(208, View::ViewDataGrid);
  EXPECT_EQ(data.VariableCount, 21u);
  Execute(209, View::ViewDataGrid);  // the cursor stands in a cell
  Execute(210, View::ViewDataGrid);
  EXPECT_EQ(data.RecordCount, 1010u);
  MoveCursor(data, {1, 0});
  session.grid_selection = {1, 10, 0, 21};
  Execute(209, View::ViewDataGrid);
  EXPECT_EQ(data.RecordCount, 1000u);
  MoveCursor(data, {0, 2});
  session.grid_selection = {0, 1000, 2, 3};
  Execute(210, View::ViewDataGrid);
  EXPECT_EQ(data.VariableCount, 19u);
  EXPECT_EQ(data.VariableName(2), "V4");
}

TEST_F(CommandTest, StatesInTheGridOfTheOutputView) {
  session.output.OutputGridMode = true;
  const std::pair<int, const char*> expected[] = {{101, "++++----"}, {102, "+----o--"}, {103, "+----o--"},
                                                  {106, "-ooo+oo+"}, {205, "+--+-o--"}, {213, "+--+-o--"},
                                                  {211, "---+----"}, {350, "--------"}};
  for (const auto& [id, states] : expected) EXPECT_EQ(StatesByView(id), states) << id;
}

TEST_F(CommandTest, CaptionsFollowTheView) {
  EXPECT_EQ(State(102, View::ViewDataGrid).caption, "Open Data File");
  EXPECT_EQ(State(102, View::ViewOutput).caption, "Open Text File");
  EXPECT_EQ(State(102, View::ViewGlossary).caption, "Open Glossary File");
  EXPECT_EQ(State(103, View::ViewDataGrid).caption, "Save Data");
  EXPECT_EQ(State(103, View::ViewOutput).caption, "Save Output");
  EXPECT_EQ(State(103, View::ViewGlossary).caption, "Save Note");
  EXPECT_EQ(State(110, View::ViewDataGrid).caption, "Save Data As...");
  EXPECT_EQ(State(110, View::ViewGlossary).caption, "Save Glossary As...");
  EXPECT_EQ(State(350, View::ViewOutput).caption, "Output Log");
  session.output.ShowLogMode = true;
  EXPECT_EQ(State(350, View::ViewOutput).caption, "Most Recent Output");
  EXPECT_EQ(State(308, View::ViewStatProcs).caption, "");
}

TEST_F(CommandTest, WhatCannotBeChosenSaysWhy) {
  EXPECT_EQ(ReasonOf(106, View::ViewStatProcs), "The data dictionary is not part of this version");
  EXPECT_EQ(ReasonOf(106, View::ViewBrevarum), "There is no result yet");
  EXPECT_EQ(ReasonOf(106, View::ViewHandbook), "The handbook is not part of this version");
  EXPECT_EQ(ReasonOf(206, View::ViewDataGrid), "The clipboard holds no text");
  EXPECT_EQ(ReasonOf(106, View::ViewTips), "");
  // Every row that can be off has a reason for it.
  for (const CommandRow* row : MenuRows()) {
    for (int view = 1; view <= kViews; ++view) {
      const CommandState state = State(row->id, static_cast<View>(view));
      const bool off = state.visible && !state.enabled;
      EXPECT_EQ(state.reason.empty(), !off) << row->id << " in view " << view;
    }
  }
}

TEST_F(CommandTest, TheMarkOfTheHelpWindowFollowsThePane) {
  EXPECT_FALSE(State(602, View::ViewOutput).checked);
  session.help_pane_visible = true;
  EXPECT_TRUE(State(602, View::ViewOutput).checked);
  EXPECT_FALSE(State(601, View::ViewOutput).checked);
}

TEST_F(CommandTest, AMessageLeavesWithTheNextCommand) {
  Report("report");
  platform.save_answers = {Chosen(folder / "output.txt")};
  Execute(103, View::ViewOutput);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  ActivateView(session, View::ViewDataGrid);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  ExecuteCommand(session, 999, widgets);  // no command
  EXPECT_EQ(platform.panes[1], "Save Completed");
  Execute(350, View::ViewOutput);
  EXPECT_EQ(platform.panes[1], "Ready");
}

TEST_F(CommandTest, DocumentsAreEnabledByTheirFlags) {
  // In the order of the flags: manual, workbook, handbook, brochure, discount.
  const int ids[] = {503, 505, 504, 507, 506};
  for (std::size_t flag = 0; flag < std::size(ids); ++flag) {
    session.documentation_found = {};
    session.documentation_found[flag] = true;
    for (const int id : ids) EXPECT_EQ(State(id, View::ViewDataGrid).enabled, id == ids[flag]) << id;
  }
}

TEST_F(CommandTest, AnUnknownNumberDoesNothing) {
  EXPECT_EQ(Execute(999, View::ViewDataGrid), WidgetAction::kNone);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, NewInTheDataGridMakesAnEmptyDataSet) {
  Open(WriteDataFile("people.dcs"));
  session.data.DataDirty = true;
  Execute(101, View::ViewDataGrid);
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_TRUE(session.data.DataFilePath.empty());
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, NewOnThePanelResetsIt) {
  Open(WriteDataFile("people.dcs"));
  session.panel.SelectedVariables = {1};
  session.panel.IndependentVariables = {2};
  session.panel.control_variable.column = 1;
  Execute(101, View::ViewStatProcs);
  EXPECT_TRUE(session.panel.SelectedVariables.empty());
  EXPECT_TRUE(session.panel.IndependentVariables.empty());
  EXPECT_FALSE(ControlIsSet(session.panel, session.data));
  EXPECT_EQ(session.data.RecordCount, 2u);
}

TEST_F(CommandTest, NewInTheOutputViewWarnsAndClearsTheLogAlone) {
  Report("report");
  const std::string recent = session.output.MostRecentText;
  platform.message_answers = {Answer::kNo};
  Execute(101, View::ViewOutput);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Warning!");
  EXPECT_EQ(platform.messages[0].text,
            "This will clear the Output log.  Do you wish to permanently erase all your output?");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kYesNo);
  EXPECT_TRUE(platform.sounds.empty());
  EXPECT_EQ(session.output.OutputLogText, recent);

  platform.message_answers = {Answer::kYes};
  Execute(101, View::ViewOutput);
  ASSERT_EQ(platform.sounds.size(), 1u);
  EXPECT_EQ(platform.sounds[0].filename(), "clean.wav");
  EXPECT_EQ(session.output.OutputLogText, "");
  EXPECT_EQ(session.output.BoxText(), "");
  EXPECT_EQ(session.output.MostRecentText, recent);
}

TEST_F(CommandTest, OpenAsksForAFileOfTheView) {
  platform.open_answers = {Chosen(WriteDataFile("people.dcs"))};
  Execute(102, View::ViewDataGrid);
  EXPECT_EQ(session.data.VariableName(2), "SEX");

  platform.open_answers = {Chosen(WriteFile("old.txt", "old output"))};
  Execute(102, View::ViewOutput);
  EXPECT_EQ(session.output.OutputLogText, "old output\r\n\r\n<Page Break>");
  EXPECT_EQ(session.data.VariableName(2), "SEX");

  Execute(102, View::ViewStatProcs);
  EXPECT_EQ(platform.open_dialogs.size(), 2u);
}

TEST_F(CommandTest, AnOutputThatWasNotSavedIsNotSaidToBe) {
  Report("report");
  platform.panes[1] = "Ready";
  Execute(103, View::ViewOutput);  // cancelled
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_TRUE(platform.messages.empty());

  platform.save_answers = {Chosen(folder / "no such folder" / "output.txt")};
  Execute(103, View::ViewOutput);
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_TRUE(session.output.OutputChanged);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Save Aborted!");
}

TEST_F(CommandTest, SaveSaysSaveCompletedInBothViews) {
  Open(WriteDataFile("people.dcs"));
  session.data.DataFilePath = folder / "people.dcs";
  session.data.DataDirty = true;
  Execute(103, View::ViewDataGrid);
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_EQ(platform.panes[1], "Save Completed");

  platform.panes[1].clear();
  Report("report");
  platform.save_answers = {Chosen(folder / "output.txt")};
  Execute(103, View::ViewOutput);
  EXPECT_EQ(ReadFile(folder / "output.txt"), "report" + std::string(kReportSeparator));
  EXPECT_EQ(platform.panes[1], "Save Completed");
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
}

TEST_F(CommandTest, SaveAsAsksForANameInTheDataGridAlone) {
  platform.save_answers = {Chosen(folder / "copy.dcs")};
  Execute(110, View::ViewDataGrid);
  EXPECT_EQ(session.data.DataFilePath, folder / "copy.dcs");
  Execute(110, View::ViewOutput);
  EXPECT_EQ(platform.save_dialogs.size(), 1u);
}

TEST_F(CommandTest, PrintSendsThePagesOfTheOutput) {
  Report("report");
  platform.print_answers = {PrintChoice{1}};
  widgets.output_has_selection = true;
  session.settings.Op12 = 1;  // no date
  Execute(106, View::ViewOutput);
  ASSERT_EQ(platform.print_dialogs.size(), 1u);
  EXPECT_TRUE(platform.print_dialogs[0].offer_selection);
  ASSERT_EQ(platform.printed.size(), 1u);
  ASSERT_EQ(platform.printed[0].size(), 1u);
  const std::string& page = platform.printed[0][0];
  EXPECT_NE(page.find("Page 1\r\n"), std::string::npos);  // no date behind it
  EXPECT_NE(page.find("report"), std::string::npos);
  EXPECT_NE(page.find("Notes\r\n"), std::string::npos);

  platform.print_answers = {PrintChoice{1}};
  session.settings.Op11 = 1;  // no notes caption
  session.settings.Op12 = 0;
  Execute(106, View::ViewOutput);
  ASSERT_EQ(platform.printed.size(), 2u);
  EXPECT_EQ(platform.printed[1][0].find("Notes"), std::string::npos);
  EXPECT_NE(platform.printed[1][0].find("11/5/2026"), std::string::npos);

  Execute(106, View::ViewDataGrid);
  EXPECT_EQ(platform.print_dialogs.size(), 2u);
}

TEST_F(CommandTest, PrintInTheChartsSaysWhereAChartIsPrinted) {
  Execute(106, View::ViewCharts);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Information");
  EXPECT_EQ(platform.messages[0].text, "Please click graph to view print screen");
  EXPECT_EQ(platform.messages[0].tone, Tone::kInformation);
  EXPECT_TRUE(platform.print_dialogs.empty());
}

TEST_F(CommandTest, RunRunsOnThePanelAlone) {
  Open(WriteDataFile("people.dcs"));
  SelectProcedure(session.panel, Procedure::kFrequencies);
  session.panel.SelectedVariables = {1};
  Execute(308, View::ViewDataGrid);
  EXPECT_EQ(session.output.OutputLogText, "");
  Execute(308, View::ViewStatProcs);
  EXPECT_NE(session.output.OutputLogText.find("Variable: AGE"), std::string::npos);
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
}

TEST_F(CommandTest, TheCalculatorsAreRunCopiedPrintedAndCleared) {
  EXPECT_FALSE(State(212, View::ViewBrevarum).enabled);
  Execute(212, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, "");
  for (const char* box : {"tx1", "ts1", "tn1", "ts2", "tn2"}) SetBox(session.brevarum, box, "9");
  Execute(308, View::ViewStatProcs);
  EXPECT_EQ(session.output.OutputLogText.find("Two-Sample"), std::string::npos);
  Execute(308, View::ViewBrevarum);
  EXPECT_NE(session.output.OutputLogText.find("Two-Sample Difference of Means"), std::string::npos);
  EXPECT_EQ(session.wanted_view, View::kNone);
  EXPECT_TRUE(State(212, View::ViewBrevarum).enabled);

  Execute(212, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, session.brevarum.BrevarumResults[0]);
  platform.clipboard.clear();
  Execute(205, View::ViewBrevarum);
  EXPECT_EQ(platform.clipboard, session.brevarum.BrevarumResults[0]);

  platform.print_answers = {PrintChoice{1}};
  session.settings.Op12 = 1;  // no date
  Execute(106, View::ViewBrevarum);
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_TRUE(platform.printed[0][0].starts_with("\r\n\r\n\r\n     Tessara Output\r\n     Two-Sample"));

  Execute(101, View::ViewBrevarum);
  EXPECT_EQ(session.brevarum.Box("tx1"), "");
  EXPECT_FALSE(State(212, View::ViewBrevarum).enabled);
}

TEST_F(CommandTest, ToggleAndConvertWorkOnTheTextOfTheOutputView) {
  Report("first");
  Report("a  b");
  Execute(350, View::ViewOutput);
  EXPECT_TRUE(session.output.ShowLogMode);
  Execute(350, View::ViewDataGrid);
  EXPECT_TRUE(session.output.ShowLogMode);
  Execute(350, View::ViewOutput);
  EXPECT_FALSE(session.output.ShowLogMode);
  Execute(211, View::ViewOutput);
  EXPECT_EQ(session.output.BoxText().substr(0, 3), "a\tb");
  EXPECT_NE(session.output.OutputLogText.find("a  b"), std::string::npos);
}

TEST_F(CommandTest, RepairAsksFirst) {
  Execute(402, View::ViewDataGrid);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Repair Practice Data Files");
}

TEST_F(CommandTest, DocumentsAreOpenedFromTheProgramFolder) {
  const std::pair<int, const char*> expected[] = {{503, "UserManual.pdf"},
                                                  {504, "Handbook.pdf"},
                                                  {505, "Workbook.pdf"},
                                                  {506, "Discount.pdf"},
                                                  {507, "Brochure.pdf"}};
  for (const auto& [id, name] : expected) {
    Execute(id, View::ViewDataGrid);
    EXPECT_EQ(platform.documents.back(), PathToUtf8(platform.program_folder / name));
  }
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CommandTest, ADocumentThatDoesNotOpenIsTold) {
  platform.documents_open = false;
  Execute(505, View::ViewDataGrid);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error!");
  EXPECT_EQ(platform.messages[0].text,
            "Tessara was unable to open the pdf file.  The most likely reason is because you don't have Adobe Acrobat "
            "Reader version 4.0 or later installed on your computer.");
}

TEST_F(CommandTest, RefreshTestsTheDocumentsAgain) {
  WriteFile("program/Brochure.pdf", "x");
  EXPECT_EQ(Execute(502, View::ViewDataGrid), WidgetAction::kRefreshHelpLists);
  EXPECT_TRUE(State(507, View::ViewDataGrid).enabled);
}

TEST_F(CommandTest, CommandsOfTheWidgetsAreHandedBack) {
  EXPECT_EQ(Execute(107, View::ViewCharts), WidgetAction::kCloseFrame);
  EXPECT_EQ(Execute(204, View::ViewDataGrid), WidgetAction::kSelectAll);
  EXPECT_EQ(Execute(205, View::ViewOutput), WidgetAction::kCopy);
  EXPECT_EQ(Execute(206, View::ViewOutput), WidgetAction::kPaste);
  EXPECT_EQ(Execute(213, View::ViewOutput), WidgetAction::kCut);
  EXPECT_EQ(Execute(401, View::ViewCharts), WidgetAction::kDefaultSize);
  EXPECT_EQ(Execute(608, View::ViewCharts), WidgetAction::kShowAbout);
  EXPECT_EQ(Execute(106, View::ViewTips), WidgetAction::kPrintPage);
  // Views without a selection of their own.
  for (const int id : {204, 205, 206, 213}) EXPECT_EQ(Execute(id, View::ViewStatProcs), WidgetAction::kNone) << id;
}

TEST_F(CommandTest, NothingIsCutFromTheGridAndNothingPasted) {
  EXPECT_EQ(Execute(206, View::ViewDataGrid), WidgetAction::kNone);
  EXPECT_EQ(Execute(213, View::ViewDataGrid), WidgetAction::kNone);
}

TEST_F(CommandTest, TheHelpPaneIsShownAndHidden) {
  EXPECT_EQ(Execute(602, View::ViewDataGrid), WidgetAction::kToggleHelpPane);
  EXPECT_TRUE(session.help_pane_visible);
  Execute(602, View::ViewDataGrid);
  EXPECT_FALSE(session.help_pane_visible);
  EXPECT_EQ(Execute(601, View::ViewDataGrid), WidgetAction::kOpenHelp);
  EXPECT_TRUE(session.help_pane_visible);
  Execute(601, View::ViewDataGrid);
  EXPECT_TRUE(session.help_pane_visible);
}

}  // namespace
}  // namespace tessara
