#include "data/edit/rows_and_columns.h"

#include "data/edit/tests/edit_fixture.h"

namespace tessara {
namespace {

using RowsAndColumnsTest = EditFixture;

std::string Names(const DataSet& data) {
  std::string names;
  for (const ListedVariable& variable : data.VarList) names += variable.name + " ";
  return names;
}

// Add Rows.

TEST_F(RowsAndColumnsTest, TenRowsComeBehindTheLast) {
  PutCursor(3, 2);
  AddRowsByHand(data, platform);
  EXPECT_EQ(data.RecordCount, 16u);
  EXPECT_EQ(Cells({6, 7, 1, 2}), "6.1 6.2/ ");
  EXPECT_TRUE(data.matrix.Cell(kHeaderRowCount + 16, 4).is_empty());
  EXPECT_EQ(Cursor(), (GridPlace{3, 2}));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Add Rows");
  UndoChange(data);
  EXPECT_EQ(data.RecordCount, 6u);
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(RowsAndColumnsTest, ANewDataSetHasTenRowsMoreThanItsThousand) {
  MakeEmptyDataSet(data);
  AddRowsByHand(data, platform);
  EXPECT_EQ(data.RecordCount, 1010u);
  EXPECT_GE(data.matrix.RowCount(), kFirstRecordRow + 1010);
}

TEST_F(RowsAndColumnsTest, RowsAreAddedWhereAnEntryIsRefused) {
  BeginBlank(9600, 20);
  AddRowsByHand(data, platform);
  EXPECT_EQ(data.RecordCount, 9610u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(RowsAndColumnsTest, AtTheLimitRowsAndColumnsAreRefusedButTheDataCountAsChanged) {
  BeginBlank(10'000, 20);
  AddRowsByHand(data, platform);
  ExpectBox("Operation Aborted!", kNoMoreCellsText);
  EXPECT_EQ(data.RecordCount, 10'000u);
  EXPECT_TRUE(data.DataDirty);
  BeginBlank(10'000, 20);
  AddColumnByHand(data, platform);
  ExpectBox("Operation Aborted!", kNoMoreCellsText);
  EXPECT_EQ(data.VariableCount, 20u);
  EXPECT_TRUE(data.DataDirty);
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(RowsAndColumnsTest, ACellBelowTheLimitIsEnough) {
  BeginBlank(199'999, 1);
  AddColumnByHand(data, platform);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_TRUE(platform.messages.empty());
}

// Add Columns.

TEST_F(RowsAndColumnsTest, AColumnIsNamedByItsNumberAndTakesTheCursor) {
  PutCursor(4, 2);
  AddColumnByHand(data, platform);
  EXPECT_EQ(data.VariableCount, 5u);
  EXPECT_EQ(data.VariableName(5), "V5");
  EXPECT_EQ(Names(data), "None A B C D V5 ");
  EXPECT_EQ(Cursor(), (GridPlace{1, 5}));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Add Columns");
  UndoChange(data);
  EXPECT_EQ(Names(data), "None A B C D ");
}

TEST_F(RowsAndColumnsTest, AColumnBehindTheGridLeavesTheCursorInItsLast) {
  BeginBlank(2, 300);
  AddColumnByHand(data, platform);
  EXPECT_EQ(data.VariableCount, 301u);
  EXPECT_EQ(Cursor(), (GridPlace{1, 300}));
}

// Delete Rows.

TEST_F(RowsAndColumnsTest, WholeRowsGo) {
  PutCursor(3, 0);
  DeleteRowsByHand(data, {2, 3, 0, 4}, platform);
  EXPECT_EQ(data.RecordCount, 4u);
  EXPECT_EQ(Cells({1, 4, 1, 1}), "1.1/4.1/5.1/6.1");
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Delete Rows");
  EXPECT_EQ(platform.most_wait_cursors, 1);
  EXPECT_EQ(platform.wait_cursors, 0);
  UndoChange(data);
  EXPECT_EQ(Cells({1, 6, 1, 1}), "1.1/2.1/3.1/4.1/5.1/6.1");
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(RowsAndColumnsTest, WithTheCursorInACellNothingHappens) {
  PutCursor(3, 1);
  DeleteRowsByHand(data, {2, 3, 1, 4}, platform);
  EXPECT_EQ(data.RecordCount, 6u);
  DeleteColumnsByHand(data, {1, 6, 1, 2}, platform);
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(RowsAndColumnsTest, RowNoughtCountsAsOneAndRowsPastTheEndAreCut) {
  PutCursor(0, 0);
  DeleteRowsByHand(data, {0, 0, 0, 4}, platform);
  EXPECT_EQ(Cells({1, 5, 1, 1}), "2.1/3.1/4.1/5.1/6.1");
  PutCursor(4, 0);
  DeleteRowsByHand(data, {4, 99, 0, 4}, platform);
  EXPECT_EQ(Cells({1, 3, 1, 1}), "2.1/3.1/4.1");
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_EQ(Cursor(), (GridPlace{3, 0}));
  DeleteRowsByHand(data, {4, 9, 0, 4}, platform);  // all of them past the end
  EXPECT_EQ(data.RecordCount, 3u);
}

TEST_F(RowsAndColumnsTest, TheOnlyRecordStaysAndABlockOfAllLeavesNone) {
  PutCursor(1, 0);
  DeleteRowsByHand(data, {1, 6, 0, 4}, platform);
  EXPECT_EQ(data.RecordCount, 0u);
  UndoChange(data);
  EXPECT_EQ(data.RecordCount, 6u);
  Begin(1, 4);
  PutCursor(1, 0);
  DeleteRowsByHand(data, {1, 1, 0, 4}, platform);
  EXPECT_EQ(data.RecordCount, 1u);
}

// Delete Columns.

TEST_F(RowsAndColumnsTest, WholeColumnsGoAndTheCursorMovesBack) {
  PutCursor(0, 2);
  DeleteColumnsByHand(data, {0, 6, 2, 3}, platform);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Names(data), "None A D ");
  EXPECT_EQ(Cells({0, 1, 1, 2}), "A D/1.1 1.4");
  EXPECT_EQ(Cursor(), (GridPlace{0, 1}));
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Delete Columns");
  UndoChange(data);
  EXPECT_EQ(Names(data), "None A B C D ");
}

TEST_F(RowsAndColumnsTest, ABlockDrawnToTheLeftMovesTheCursorBackByOneToo) {
  PutCursor(0, 3);
  DeleteColumnsByHand(data, {0, 6, 2, 3}, platform);
  EXPECT_EQ(Names(data), "None A D ");
  EXPECT_EQ(Cursor(), (GridPlace{0, 2}));
}

TEST_F(RowsAndColumnsTest, ColumnNoughtCountsAsOne) {
  PutCursor(0, 0);
  DeleteColumnsByHand(data, {0, 6, 0, 0}, platform);
  EXPECT_EQ(Names(data), "None B C D ");
  EXPECT_EQ(Cursor(), (GridPlace{0, 0}));
}

TEST_F(RowsAndColumnsTest, TheOnlyVariableStaysAndABlockOfAllLeavesNone) {
  PutCursor(0, 1);
  DeleteColumnsByHand(data, {0, 6, 1, 4}, platform);
  EXPECT_EQ(data.VariableCount, 0u);
  EXPECT_EQ(Names(data), "None ");
  UndoChange(data);
  Begin(6, 1);
  PutCursor(0, 1);
  DeleteColumnsByHand(data, {0, 6, 1, 1}, platform);
  EXPECT_EQ(data.VariableCount, 1u);
}

}  // namespace
}  // namespace tessara
