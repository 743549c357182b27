#include "data/change_history.h"

#include <gtest/gtest.h>

#include "data/tests/change_model.h"

namespace tessara {
namespace {

void Type(DataSet& data, const std::string& text) {
  ASSERT_TRUE(ApplyChange(data, CellChange(kFirstRecordRow, 1, text, "Type " + text)));
}

// The changed flag.

TEST(ChangedFlag, EachChangeDoesToTheFlagWhatItsKindDoes) {
  const auto after = [](DataChange (*make)(const DataSet&)) {
    DataSet data = LoadedData(4, 3);
    ApplyChange(data, make(data));
    return data.DataDirty;
  };
  EXPECT_TRUE(after([](const DataSet&) { return CellChange(kFirstRecordRow, 1, "x", ""); }));
  EXPECT_TRUE(after([](const DataSet& data) { return AddColumns(data, {Column()}, ""); }));
  EXPECT_TRUE(after([](const DataSet& data) { return ReplaceColumns(data, 1, {Column()}, ""); }));
  EXPECT_TRUE(after([](const DataSet& data) { return AddRows(data, 10, ""); }));
  EXPECT_FALSE(after([](const DataSet& data) { return RemoveColumns(data, 1, 1, ""); }));
  EXPECT_FALSE(after([](const DataSet& data) { return RemoveRows(data, 1, 1, ""); }));
}

TEST(ChangedFlag, DeletingLeavesTheFlagOfAnEarlierChange) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  ApplyChange(data, RemoveRows(data, 1, 1, ""));
  EXPECT_TRUE(data.DataDirty);
  ApplyChange(data, ReplaceData(EmptyContents(), "New"));
  EXPECT_FALSE(data.DataDirty);
}

TEST(ChangedFlag, UndoLeadsBackToTheFlagAsItWas) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  Type(data, "b");
  UndoChange(data);
  EXPECT_TRUE(data.DataDirty);
  UndoChange(data);
  EXPECT_FALSE(data.DataDirty);
  RedoChange(data);
  EXPECT_TRUE(data.DataDirty);
}

TEST(ChangedFlag, BehindASaveOnlyTheSavedStateIsUnchanged) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  Type(data, "b");
  MarkSaved(data);
  EXPECT_FALSE(data.DataDirty);
  Type(data, "c");
  UndoChange(data);
  EXPECT_FALSE(data.DataDirty);  // as it was saved
  UndoChange(data);
  EXPECT_TRUE(data.DataDirty);
  UndoChange(data);
  EXPECT_TRUE(data.DataDirty);  // as it was loaded, but the file holds something else by now
  RedoChange(data);
  RedoChange(data);
  EXPECT_FALSE(data.DataDirty);
  RedoChange(data);
  EXPECT_TRUE(data.DataDirty);
}

TEST(ChangedFlag, ASaveOfAnEarlierStateMakesThatTheUnchangedOne) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  Type(data, "b");
  UndoChange(data);
  MarkSaved(data);
  RedoChange(data);
  EXPECT_TRUE(data.DataDirty);
  UndoChange(data);
  EXPECT_FALSE(data.DataDirty);
  UndoChange(data);
  EXPECT_TRUE(data.DataDirty);
}

TEST(ChangedFlag, NotesThatWereTypedAreNotUndone) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  MarkChanged(data);
  UndoChange(data);
  EXPECT_TRUE(data.DataDirty);
  MarkSaved(data);
  EXPECT_FALSE(data.DataDirty);
}

TEST(ChangedFlag, UndoOfALoadLeadsBackToTheOldDataAndTheirFlag) {
  for (const bool changed : {false, true}) {
    DataSet data = LoadedData(4, 3);
    if (changed) Type(data, "a");
    ApplyChange(data, ReplaceData(LoadedContents(2, 2), "Open"));
    EXPECT_FALSE(data.DataDirty);
    UndoChange(data);
    EXPECT_EQ(data.DataDirty, changed);
    RedoChange(data);
    EXPECT_FALSE(data.DataDirty);
  }
}

// The steps that are kept.

TEST(ChangeHistory, AChangeForgetsTheStepsAhead) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  Type(data, "b");
  UndoChange(data);
  Type(data, "c");
  EXPECT_FALSE(CanRedo(data));
  EXPECT_EQ(UndoName(data), "Type c");
  UndoChange(data);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1), TaggedView("a"));
}

TEST(ChangeHistory, WithALimitOfNothingNothingIsKept) {
  DataSet data = LoadedData(4, 3);
  data.history.SetLimit(0);
  Type(data, "a");
  EXPECT_FALSE(CanUndo(data));
  EXPECT_EQ(data.history.Bytes(), 0u);
  EXPECT_TRUE(data.DataDirty);
}

TEST(ChangeHistory, TheOldestStepsGoWhenTheLimitIsReached) {
  DataSet data = LoadedData(4, 3);
  data.history.SetLimit(100000);
  const auto recode = [&](const std::string& name) {
    ApplyChange(data, ReplaceColumns(data, 1, {TextColumn("A", 4, std::string(30000, 'x'))}, name));
  };
  Type(data, "a");
  recode("one");  // gives up a few cells
  recode("two");  // gives up four texts of 30,000 bytes each: more than the limit alone
  EXPECT_FALSE(CanUndo(data));
  EXPECT_EQ(data.history.Bytes(), 0u);
  data.history.SetLimit(400000);
  for (const char* name : {"three", "four", "five", "six"}) recode(name);
  EXPECT_LE(data.history.Bytes(), 400000u);
  EXPECT_GT(data.history.Bytes(), 360000u);
  EXPECT_EQ(UndoName(data), "six");
  int steps = 0;
  while (UndoChange(data)) ++steps;
  EXPECT_EQ(steps, 3);
}

TEST(ChangeHistory, ALowerLimitTakesEffectAtOnce) {
  DataSet data = LoadedData(4, 3);
  for (int i = 0; i < 10; ++i) Type(data, std::string(1000, 'x'));
  const std::size_t all = data.history.Bytes();
  EXPECT_GT(all, 9000u);
  data.history.SetLimit(all / 2);
  EXPECT_LE(data.history.Bytes(), all / 2);
  EXPECT_TRUE(CanUndo(data));
}

// What the data still hold is not counted a second time.
TEST(ChangeHistory, OnlyWhatTheDataGaveUpIsCounted) {
  DataSet data = LoadedData(20000, 3);
  const std::size_t file = data.matrix.ColumnAt(1).loaded_text()->Bytes();
  ApplyChange(data, RemoveColumns(data, 1, 1, ""));  // the file is held by the columns that stay
  EXPECT_LT(data.history.Bytes(), 2000u);
  ApplyChange(data, ReplaceData(EmptyContents(), "New"));
  EXPECT_GT(data.history.Bytes(), file);
  EXPECT_LT(data.history.Bytes(), file + 5000);
  UndoChange(data);
  EXPECT_LT(data.history.Bytes(), 20000u);
}

TEST(ChangeHistory, AColumnThatSharesItsCellsCountsForTheRest) {
  DataSet data = LoadedData(4, 1);
  ApplyChange(data, AddRows(data, 50000, ""));
  ApplyChange(data, ReplaceColumns(data, 1, {TextColumn("A", 50000, "x")}, "Recode"));
  const std::size_t before = data.history.Bytes();
  Column column = data.matrix.ColumnAt(1);
  column.Set(kFirstRecordRow + 30000, "y");
  ApplyChange(data, ReplaceColumns(data, 1, {column}, "Find and Replace"));
  EXPECT_LT(data.history.Bytes() - before, 20000u);  // one stretch of 1,024 cells of 16 bytes, and pointers
  EXPECT_GT(data.history.Bytes() - before, 16384u);
}

TEST(ChangeHistory, ABeginningAndAnEndKeepNoSteps) {
  DataSet data = LoadedData(4, 3);
  Type(data, "a");
  BeginData(data, EmptyContents());
  EXPECT_FALSE(CanUndo(data));
  EXPECT_FALSE(data.DataDirty);
  Type(data, "a");
  const std::uint64_t shown = data.Revision();
  DropData(data);
  EXPECT_FALSE(CanUndo(data));
  EXPECT_EQ(data.matrix.ColumnCount(), 0u);
  EXPECT_GT(data.Revision(), shown);
}

TEST(ChangeHistory, TheFirstRowOfASaveIsNoStep) {
  DataSet data = LoadedData(4, 3);
  const std::uint64_t shown = data.Revision();
  StoreFirstRow(data, "4 3 Tessara data", "notes");
  EXPECT_EQ(data.matrix.Cell(0, 1), TaggedView("4 3 Tessara data"));
  EXPECT_EQ(data.matrix.Cell(kNotesRow, 2), TaggedView("notes"));
  EXPECT_FALSE(CanUndo(data));
  EXPECT_EQ(data.Revision(), shown);
}

}  // namespace
}  // namespace tessara
