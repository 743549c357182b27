#include "shell/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "data/change_door.h"
#include "shell/tests/command_fixture.h"

namespace tessara {
namespace {

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
       " 109 &Export to Word\n"
       "|106 &Print\n"
       "|107 &Exit\n"},
      {"&Edit",
       " 214 &Undo\n"
       " 215 &Redo\n"
       "|201 &Split Large Data Files\n"
       "|202 &Find Cell Data\n"
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
       " 451 Align &Left\n"
       " 452 Align &Center\n"
       " 453 Align &Right\n"
       " 454 Set Column &Width\n"
       "|801 &Add Record\n"
       " 802 &Delete Current Record\n"
       " 901 &Back\n"
       " 902 &Forward\n"
       " 903 &Home Page\n"
       " 350 &Output Log\n"
       "|217 Find a Command or Topic\n"},
      {"&Variable",
       " 301 &Format Variables\n"
       " 310 All &Variables\n"
       " 302 &Recode Variables\n"
       " 303 Compare Date Variables\n"
       " 304 Combine Variables\n"
       " 305 Compute New Variable\n"
       " 306 Trim Outliers\n"
       "|307 Create Data &Dictionary\n"
       "|308 Run Procedure\n"},
      {"&Options",
       " 405 Options Panel\n"
       " 401 Default &Size\n"
       " 402 &Repair Sample Data Files\n"
       "|404 Calculator\n"},
      {"&Documentation",
       " 501 Download/Update pdf Documentation\n"
       " 502 Refresh Documentation List\n"
       "|503 User Manual\n"
       " 504 Methods Handbook\n"
       " 505 Student Workbook\n"
       "|506 Student Discount\n"
       " 507 Brochure\n"},
      {"&Help",
       " 601 &Help with Tessara\n"
       " 602 Open Help &Window\n"
       " 609 Tessara Ho&me Page\n"
       "|606 Check for &Updates\n"
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
            " 901 &Back\n"
            " 902 &Forward\n"
            " 903 &Home\n"
            " 101 &New\n"
            " 102 &Open Data File\n"
            " 103 &Save\n"
            "|108 Export\n"
            "|109 Export\n"
            "|213 &Cut\n"
            " 205 &Copy\n"
            "|212 &Copy Output\n"
            " 206 &Paste\n"
            "|801 &Add a Record\n"
            " 802 &Delete Current Record\n"
            "|803 &Reset Search\n"
            " 904 Topic\n"
            "|202 &Find\n"
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
            " 451 &Left Align Text\n"
            " 452 &Center Text\n"
            " 453 &Right Align Text\n"
            " 454 &Adjust Column Width\n"
            "|404 &Calculator\n"
            " 106 &Print\n"
            "|602 Help &Window\n");
  const char* tooltips[] = {"Go Back",
                            "Go Forward",
                            "Go to Home Page",
                            "New",
                            "Open an existing file",
                            "Save the active file",
                            "Export",
                            "Export to Word",
                            "Paste",  // of the button that cuts: the pairing is intended
                            "Copy Selection",
                            "Copy Output",
                            "Paste",
                            "Add a Record",
                            "Delete Current Record",
                            "Reset Search",
                            "",
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
                            "Left Align Text",
                            "Center Text",
                            "Right Align Text",
                            "Adjust Column Width",
                            "Show Calculator",
                            "Print the active document",
                            "Show Help Window"};
  const std::set<int> with_caption = {108, 109, 202, 301, 350, 308, 106, 602};
  for (std::size_t i = 0; i < Toolbar().size(); ++i) {
    const BarEntry& entry = Toolbar()[i];
    EXPECT_EQ(FindCommand(entry.id)->tooltip, tooltips[i]);
    EXPECT_EQ(entry.style == CommandStyle::kIconAndCaption, with_caption.contains(entry.id)) << entry.id;
  }
}

TEST(Toolbar, StaysAwayFromViewsThatHaveKeysOfTheirOwn) {
  std::string seen;
  for (int view = 1; view <= kViews; ++view) seen += ToolbarIsVisible(static_cast<View>(view)) ? '+' : '-';
  EXPECT_EQ(seen, "+-++-++-");
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
  for (const BarEntry& entry : Toolbar()) {
    // The topic box stands in the toolbar alone.
    EXPECT_TRUE(ids.contains(entry.id) || entry.id == kTopicBoxCommand) << entry.id;
  }
  EXPECT_EQ(FindCommand(999), nullptr);
}

TEST_F(CommandTest, StatesByViewWithAnEmptyOutput) {
  const std::pair<int, const char*> expected[] = {
      {101, "++++----"}, {102, "+--+-+--"}, {103, "+--+-+--"}, {110, "+----+--"}, {106, "-+o+++++"}, {107, "++++++++"},
      {204, "+--o----"}, {205, "+--o-o--"}, {206, "o--o-o--"}, {213, "+--o-o--"}, {211, "---o----"}, {350, "---+----"},
      {308, "-++-----"}, {212, "--o-----"}, {401, "++++++++"}, {402, "++++++++"}, {502, "++++++++"}, {503, "oooooooo"},
      {504, "oooooooo"}, {505, "oooooooo"}, {506, "oooooooo"}, {507, "oooooooo"}, {601, "++++++++"}, {602, "++++++++"},
      {608, "++++++++"}, {214, "o--o----"}, {215, "o--o----"}, {207, "+-------"}, {208, "+-------"}, {209, "+-------"},
      {210, "+-------"}, {216, "+-------"}, {301, "+-------"}, {310, "+-------"}, {202, "+----+--"}, {803, "o----+--"},
      {203, "+-------"}, {302, "+-------"}, {303, "+-------"}, {304, "+-------"}, {305, "+-------"}, {306, "+-------"},
      {307, "+-------"}, {104, "+----+--"}, {105, "+----+--"}, {108, "+--+----"}, {109, "---+----"}, {201, "+-------"},
  };
  for (const auto& [id, states] : expected) EXPECT_EQ(StatesByView(id), states) << id;
}

TEST_F(CommandTest, StatesByViewWithOutputASelectionAndAFullClipboard) {
  Report("report");
  widgets = {.output_has_selection = true, .clipboard_has_text = true, .can_undo = true, .can_redo = true};
  const std::pair<int, const char*> expected[] = {{204, "+--+----"}, {205, "+--+-o--"}, {206, "+--+-+--"},
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
  widgets.clipboard_has_text = true;
  const std::pair<int, const char*> expected[] = {
      {101, "++++----"}, {102, "+----+--"}, {103, "+----+--"}, {106, "-+o+++++"}, {204, "+--o----"},
      {205, "+--+-o--"}, {206, "+--+-+--"}, {209, "+--+----"}, {210, "+--+----"}, {211, "---+----"},
      {213, "+--+-o--"}, {214, "o--o----"}, {215, "o--o----"}, {301, "+--+----"}, {350, "--------"},
      {451, "---+----"}, {452, "---+----"}, {453, "---+----"}, {454, "---+----"}};
  for (const auto& [id, states] : expected) EXPECT_EQ(StatesByView(id), states) << id;
  session.table.grid.SetText(1, 1, "x");
  EXPECT_TRUE(State(204, View::ViewOutput).enabled);
  EXPECT_EQ(State(301, View::ViewOutput).caption, "Format Page");
  session.output.OutputGridMode = false;
  for (const int id : {209, 210, 301, 451, 452, 453, 454}) EXPECT_FALSE(State(id, View::ViewOutput).visible) << id;
}

TEST_F(CommandTest, WhileExploreIsSelectedTheTableKeepsItsShape) {
  session.output.OutputGridMode = true;
  widgets.clipboard_has_text = true;
  session.panel.selected = Procedure::kExplore;
  for (const int id : {209, 210, 301, 451, 452, 453, 454}) EXPECT_FALSE(State(id, View::ViewOutput).visible) << id;
  for (const int id : {205, 206, 211, 213}) EXPECT_TRUE(State(id, View::ViewOutput).enabled) << id;
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
  EXPECT_EQ(ReasonOf(106, View::ViewBrevarum), "There is no result yet");
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

}  // namespace
}  // namespace tessara
