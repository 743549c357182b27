#include "shell/recode_operations.h"

#include <gtest/gtest.h>

#include "shell/command_table.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

class RecodeOperationsTest : public SessionFixture {
 protected:
  RecodeOperationsTest() {
    StartSession(session, {});
    Open(WriteDataFile("data.dcs"));  // AGE 34 and 41, SEX 1 and 2
  }

  WidgetAction Execute(int id) {
    session.ActiveView = View::ViewDataGrid;
    return ExecuteCommand(session, id, widgets);
  }
  CommandState State(int id, View view) {
    session.ActiveView = view;
    return UpdateCommand(session, id, widgets);
  }

  WidgetState widgets;
};

TEST_F(RecodeOperationsTest, EachCommandOpensThePanelInItsMode) {
  const std::pair<int, RecodeMode> modes[] = {{202, RecodeMode::kFind},    {203, RecodeMode::kReplace},
                                              {302, RecodeMode::kRecode},  {303, RecodeMode::kCompareDates},
                                              {304, RecodeMode::kCombine}, {305, RecodeMode::kCompute},
                                              {306, RecodeMode::kTrim}};
  for (const auto& [id, mode] : modes) {
    session.data.DataDirty = false;
    EXPECT_EQ(Execute(id), WidgetAction::kShowRecodePanel) << id;
    EXPECT_EQ(session.recode.mode, mode) << id;
    EXPECT_TRUE(session.data.DataDirty) << id;
    EXPECT_TRUE(State(id, View::ViewDataGrid).enabled) << id;
    EXPECT_FALSE(State(id, View::ViewOutput).visible) << id;
  }
  EXPECT_EQ(State(202, View::ViewDataGrid).caption, "Find Cell Data");
  EXPECT_EQ(State(202, View::ViewGlossary).caption, "Search Glossary");
  EXPECT_TRUE(State(202, View::ViewGlossary).enabled);
}

TEST_F(RecodeOperationsTest, FindOpensWithTheSearchAtTheTop) {
  session.recode.FindRow = 17;
  Execute(203);
  EXPECT_EQ(session.recode.FindRow, 17u);
  Execute(202);
  EXPECT_EQ(session.recode.FindRow, 0u);
}

TEST_F(RecodeOperationsTest, PaneOneTellsTheChangedCells) {
  Execute(302);
  PickRecodeVariable(session.recode, 1);
  ChangeNewName(session.recode, "OLD");
  session.recode.recode_option = RecodeOption::kGreaterThan;
  session.recode.OldValue = "40";
  session.recode.NewValue = "1";
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Recode: 1 cell changed");
  EXPECT_EQ(session.data.VariableCount, 3u);
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Recode: 0 cells changed");
  Execute(kResetRecodeCommand);
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Ready");  // the box has told
  EXPECT_EQ(platform.messages.back().text, "You must select a variable from the list");
}

TEST_F(RecodeOperationsTest, PaneOneTellsTheMatches) {
  Execute(202);
  PickRecodeVariable(session.recode, 1);
  session.recode.Text12 = "4";
  EXPECT_FALSE(State(803, View::ViewDataGrid).enabled);
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Record 1, 2 matches in AGE");
  EXPECT_TRUE(State(803, View::ViewDataGrid).enabled);
  Execute(kRunRecodeCommand);
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "No Match Found, 2 matches in AGE");
  EXPECT_TRUE(session.recode.Label21);
  Execute(803);
  EXPECT_FALSE(session.recode.marks.has_bold());
  EXPECT_FALSE(State(803, View::ViewDataGrid).enabled);
  EXPECT_TRUE(State(803, View::ViewGlossary).enabled);
  EXPECT_FALSE(State(803, View::ViewOutput).visible);
}

TEST_F(RecodeOperationsTest, ReplaceAndItsUndo) {
  Execute(203);
  PickRecodeVariable(session.recode, 2);
  session.recode.Text12 = "1";
  session.recode.Text13 = "Male";
  Execute(kRunRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Find and Replace: 1 cell changed");
  EXPECT_EQ(session.data.matrix.Cell(kFirstRecordRow, 2), TaggedView("Male"));
  Execute(kUndoRecodeCommand);
  EXPECT_EQ(platform.panes[1], "Undo: 1 cell changed");
  EXPECT_EQ(session.data.matrix.Cell(kFirstRecordRow, 2), TaggedView("1"));
}

TEST_F(RecodeOperationsTest, TheButtonsOfThePanelStandInNoMenu) {
  for (const int id : {kRunRecodeCommand, kUndoRecodeCommand, kResetRecodeCommand}) {
    EXPECT_FALSE(State(id, View::ViewDataGrid).visible) << id;
  }
}

}  // namespace
}  // namespace tessara
