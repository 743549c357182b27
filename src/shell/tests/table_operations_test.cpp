#include "shell/table_operations.h"

#include <gtest/gtest.h>

#include "presentation/table_face.h"
#include "shell/command_rules.h"
#include "shell/report_operations.h"
#include "shell/tests/command_fixture.h"

namespace tessara {
namespace {

// The commands of the table, as the menus send them.
class TableCommandTest : public CommandTest {
 protected:
  TableCommandTest() {
    const char* rows[3][3] = {{"", "", "Yes"}, {"Sex", "", ""}, {"male", "Count", "12"}};
    for (std::size_t row = 1; row <= 3; ++row) {
      for (std::size_t column = 1; column <= 3; ++column) grid().SetText(row, column, rows[row - 1][column - 1]);
    }
    session.output.OutputGridMode = true;
  }
  TableGrid& grid() { return session.table.grid; }
  void Select(const TablePlace& cursor, const TablePlace& end) {
    SelectInTable(grid(), session.table.face, cursor, end);
  }
  void Run(int id) { Execute(id, View::ViewOutput); }
};

TEST_F(TableCommandTest, ABlockIsCutAndPastedElsewhere) {
  Select({3, 1}, {3, 2});
  Run(213);
  EXPECT_EQ(platform.clipboard, "male\tCount");
  EXPECT_EQ(grid().Text(3, 1), "");
  Select({4, 1}, {4, 1});
  Run(206);
  EXPECT_EQ(grid().Text(4, 2), "Count");
  EXPECT_EQ(session.table.face.selection, (TableSelection{{4, 1}, {4, 2}}));
  Select({3, 3}, {3, 3});
  Run(205);
  EXPECT_EQ(platform.clipboard, "12");
}

TEST_F(TableCommandTest, UndoAndRedoNameTheirStep) {
  Select({3, 3}, {3, 3});
  Run(210);
  EXPECT_EQ(grid().ColumnCount(), 2u);
  EXPECT_EQ(State(214, View::ViewOutput).caption, "Undo Delete Columns");
  Run(214);
  EXPECT_EQ(grid().Text(3, 3), "12");
  EXPECT_EQ(platform.panes[1], "Undone: Delete Columns");
  EXPECT_EQ(State(215, View::ViewOutput).caption, "Redo Delete Columns");
  Run(215);
  EXPECT_EQ(grid().ColumnCount(), 2u);
  EXPECT_EQ(platform.panes[1], "Redone: Delete Columns");
}

TEST_F(TableCommandTest, RowsColumnsAndAlignments) {
  Select({2, 1}, {2, 1});
  Run(209);
  EXPECT_EQ(grid().Text(2, 1), "male");
  Run(204);
  EXPECT_EQ(session.table.face.selection, (TableSelection{{1, 1}, {2, 3}}));
  Run(452);
  EXPECT_EQ(grid().Cell(1, 1).alignment, TableAlignment::kCentre);
  Run(453);
  EXPECT_EQ(grid().Cell(2, 2).alignment, TableAlignment::kRight);
  Run(451);
  EXPECT_EQ(grid().Cell(2, 3).alignment, TableAlignment::kLeft);
}

TEST_F(TableCommandTest, EqualWidthsAreAStep) {
  EXPECT_FALSE(SetTableColumnWidth(session, "wide"));
  EXPECT_TRUE(session.table.face.done.empty());
  EXPECT_TRUE(SetTableColumnWidth(session, "900"));
  EXPECT_EQ(grid().Width(3), 900);
  EXPECT_EQ(State(214, View::ViewOutput).caption, "Undo Column Width");
  Run(214);
  EXPECT_EQ(grid().Width(3), kUsualTableWidth);
}

TEST_F(TableCommandTest, TheEmptiedTableComesBack) {
  platform.message_answers = {Answer::kYes};
  Run(101);
  EXPECT_TRUE(grid().empty());
  Run(214);
  EXPECT_EQ(grid().Text(3, 3), "12");
}

TEST_F(TableCommandTest, TheFacesAreChosenByName) {
  session.output.MostRecentText = "recent";
  session.output.OutputLogText = "log";
  Run(kShowLogCommand);
  EXPECT_FALSE(session.output.OutputGridMode);
  EXPECT_EQ(session.output.BoxText(), "log");
  Run(kShowTableCommand);
  EXPECT_TRUE(session.output.OutputGridMode);
  Run(kShowMostRecentCommand);
  EXPECT_FALSE(session.output.OutputGridMode);
  EXPECT_EQ(session.output.BoxText(), "recent");
  EXPECT_EQ(grid().Text(3, 3), "12");
}

TEST_F(TableCommandTest, WhatWasWrittenIntoTheTextIsKeptWhenTheOtherOneShows) {
  session.output.OutputGridMode = false;
  session.output.MostRecentText = "recent";
  EditBox(session.output, "recent and a remark");
  Run(kShowTableCommand);
  Run(kShowLogCommand);
  Run(kShowMostRecentCommand);
  EXPECT_EQ(session.output.BoxText(), "recent and a remark");
}

TEST_F(TableCommandTest, TheButtonOfTheTableEmptiesTheTableAloneAndUndoBringsItBack) {
  AppendReport(session.output, "A report of an hour's work");
  const std::string log = session.output.OutputLogText;
  Run(kEmptyTableCommand);
  EXPECT_TRUE(grid().empty());
  EXPECT_EQ(session.output.OutputLogText, log);
  EXPECT_TRUE(session.output.OutputGridMode);
  EXPECT_TRUE(platform.messages.empty());
  Run(214);
  EXPECT_EQ(grid().Text(3, 3), "12");
  session.output.OutputGridMode = false;
  Run(kEmptyTableCommand);
  EXPECT_EQ(grid().Text(3, 3), "12");
}

TEST_F(TableCommandTest, AnEmptiedTableIsReachedFromTheTextToBeBroughtBack) {
  Run(kEmptyTableCommand);
  Run(kShowLogCommand);
  EXPECT_FALSE(session.output.OutputGridMode);
  EXPECT_TRUE(HasTable(session, widgets));
  Run(kShowTableCommand);
  Run(214);
  EXPECT_EQ(grid().Text(3, 3), "12");
}

}  // namespace
}  // namespace tessara
