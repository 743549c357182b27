#include "data/change.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "data/tests/change_model.h"
#include "platform/tests/failing_memory.h"

namespace tessara {
namespace {

CellBlock Block(const std::vector<TaggedValue>& values) {
  CellBlock block;
  for (std::size_t i = 0; i < values.size(); ++i) block.Set(i, values[i]);
  return block;
}

std::vector<std::string> Names(const DataSet& data) {
  std::vector<std::string> names;
  for (const ListedVariable& variable : data.VarList) {
    EXPECT_EQ(variable.column, names.size());
    names.push_back(variable.name);
  }
  return names;
}

// Each kind of change.

TEST(Change, ACellTakesItsValueAndGivesItBack) {
  DataSet data = LoadedData(3, 2);
  ASSERT_TRUE(ApplyChange(data, CellChange(kFirstRecordRow + 1, 2, "new", "Type a Cell")));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 2), TaggedView("new"));
  EXPECT_EQ(UndoName(data), "Type a Cell");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 2), TaggedView("2/2"));
  EXPECT_EQ(RedoName(data), "Type a Cell");
  ASSERT_TRUE(RedoChange(data));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 2), TaggedView("new"));
  EXPECT_FALSE(RedoChange(data));
}

TEST(Change, ABlockIsGivenRowByRow) {
  DataSet data = LoadedData(3, 3);
  const Model before = ModelOf(data.matrix);
  ASSERT_TRUE(
      ApplyChange(data, BlockChange({kFirstRecordRow + 1, 2, 2, 2}, Block({"a", 5.0, TaggedValue(), "d"}), "Paste")));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 2), TaggedView("a"));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 3), TaggedView(5.0));
  EXPECT_TRUE(data.matrix.Cell(kFirstRecordRow + 2, 2).is_empty());
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 2, 3), TaggedView("d"));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 2), TaggedView("1/2"));
  UndoChange(data);
  EXPECT_EQ(ModelOf(data.matrix), before);
}

TEST(Change, AHeadingTypedInRenamesTheVariableButNotItsPlaceInTheLists) {
  DataSet data = LoadedData(3, 2);
  ApplyChange(data, CellChange(kVariableNameRow, 2, "AGE", "Type a Cell"));
  EXPECT_EQ(data.VariableName(2), "AGE");
  EXPECT_EQ(Names(data), (std::vector<std::string>{"None", "V1", "V2"}));
}

TEST(Change, AddedColumnsCountAtOnceAndAreInTheLists) {
  DataSet data = LoadedData(3, 2);
  ASSERT_TRUE(ApplyChange(data, AddColumns(data, {TextColumn("A", 3, "x"), TextColumn("B", 2, "y")}, "Save")));
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_EQ(Names(data), (std::vector<std::string>{"None", "V1", "V2", "A", "B"}));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 2, 3), TaggedView("x"));
  EXPECT_TRUE(data.matrix.Cell(kFirstRecordRow + 2, 4).is_empty());
  UndoChange(data);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.matrix.ColumnCount(), 2u);
  EXPECT_EQ(Names(data), (std::vector<std::string>{"None", "V1", "V2"}));
}

TEST(Change, RemovedColumnsComeBackInTheirPlace) {
  DataSet data = LoadedData(3, 4);
  const Model before = ModelOf(data.matrix);
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 2, 2, "Delete Columns")));
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Names(data), (std::vector<std::string>{"None", "V1", "V4"}));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 2), TaggedView("1/4"));
  UndoChange(data);
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_EQ(ModelOf(data.matrix), before);
}

TEST(Change, AReplacedColumnTakesItsNameAlong) {
  DataSet data = LoadedData(3, 3);
  ASSERT_TRUE(ApplyChange(data, ReplaceColumns(data, 2, {TextColumn("NEW", 3, "z")}, "Recode V2")));
  EXPECT_EQ(Names(data), (std::vector<std::string>{"None", "V1", "NEW", "V3"}));
  EXPECT_EQ(data.VariableCount, 3u);
  UndoChange(data);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 2), TaggedView("1/2"));
  EXPECT_EQ(Names(data)[2], "V2");
}

TEST(Change, AddedRecordsAreEmptyAndCanBeWritten) {
  DataSet data = LoadedData(3, 2);
  ASSERT_TRUE(ApplyChange(data, AddRows(data, 10, "Add Rows")));
  EXPECT_EQ(data.RecordCount, 13u);
  EXPECT_EQ(data.matrix.RowCount(), kFirstRecordRow + 13);
  EXPECT_TRUE(data.matrix.Cell(kFirstRecordRow + 12, 1).is_empty());
  EXPECT_TRUE(ApplyChange(data, CellChange(kFirstRecordRow + 12, 1, "last", "Type a Cell")));
  UndoChange(data);
  UndoChange(data);
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_FALSE(ApplyChange(data, CellChange(kFirstRecordRow + 12, 1, "last", "Type a Cell")));
}

TEST(Change, RemovedRecordsComeBack) {
  DataSet data = LoadedData(5, 2);
  const Model before = ModelOf(data.matrix);
  ASSERT_TRUE(ApplyChange(data, RemoveRows(data, 2, 3, "Delete Rows")));
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1), TaggedView("1/1"));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 1), TaggedView("5/1"));
  EXPECT_EQ(data.VariableName(2), "V2");
  UndoChange(data);
  EXPECT_EQ(data.RecordCount, 5u);
  EXPECT_EQ(ModelOf(data.matrix), before);
}

TEST(Change, AnotherDataSetBringsItsFileAndUndoTheOneBefore) {
  DataSet data = LoadedData(5, 2);
  data.DataFilePath = "/a/first.dcs";
  data.DataFileSize = 77;
  data.ProjectNotes = "of the first";
  data.CurrentRow = 4;
  const Model before = ModelOf(data.matrix);
  ASSERT_TRUE(ApplyChange(data, ReplaceData(EmptyContents(), "New")));
  EXPECT_EQ(data.RecordCount, kNewRecordCount);
  EXPECT_EQ(data.VarList.size(), kNewVariableCount + 1);
  EXPECT_TRUE(data.DataFilePath.empty());
  EXPECT_EQ(data.DataFileSize, std::nullopt);
  EXPECT_EQ(data.ProjectNotes, "");
  EXPECT_EQ(data.GridTitle, kUntitledGrid);
  EXPECT_EQ(data.CurrentRow, 1u);
  UndoChange(data);
  EXPECT_EQ(ModelOf(data.matrix), before);
  EXPECT_EQ(data.DataFilePath, "/a/first.dcs");
  EXPECT_EQ(data.DataFileSize, 77u);
  EXPECT_EQ(data.ProjectNotes, "of the first");
  EXPECT_EQ(data.GridTitle, "loaded.dcs");
  EXPECT_EQ(data.RecordCount, 5u);
}

TEST(Change, WhatDoesNotFitChangesNothing) {
  DataSet data = LoadedData(5, 3);
  const Model before = ModelOf(data.matrix);
  constexpr std::size_t kHuge = ~std::size_t{0};
  for (const auto& [row, column] : std::vector<std::pair<std::size_t, std::size_t>>{
           {0, 0}, {0, 4}, {kFirstRecordRow + 5, 1}, {kHuge, 1}, {0, kHuge}}) {
    EXPECT_FALSE(ApplyChange(data, CellChange(row, column, "x", ""))) << row << ' ' << column;
  }
  EXPECT_FALSE(ApplyChange(data, BlockChange({kFirstRecordRow + 4, 2, 1, 1}, Block({"a", "b"}), "")));
  EXPECT_FALSE(ApplyChange(data, RemoveColumns(data, 3, 2, "")));
  EXPECT_FALSE(ApplyChange(data, RemoveColumns(data, 0, 1, "")));
  EXPECT_FALSE(ApplyChange(data, RemoveColumns(data, 2, kHuge, "")));
  EXPECT_FALSE(ApplyChange(data, ReplaceColumns(data, 4, {Column()}, "")));
  EXPECT_FALSE(ApplyChange(data, RemoveRows(data, 0, 1, "")));
  EXPECT_FALSE(ApplyChange(data, RemoveRows(data, 5, 2, "")));
  EXPECT_FALSE(ApplyChange(data, RemoveRows(data, 2, kHuge, "")));
  EXPECT_EQ(ModelOf(data.matrix), before);
  EXPECT_FALSE(CanUndo(data));
  EXPECT_FALSE(data.DataDirty);
}

TEST(Change, TheCursorStaysWithinTheData) {
  DataSet data = LoadedData(5, 4);
  data.CurrentRow = 5;
  data.CurrentColumn = 4;
  ApplyChange(data, RemoveRows(data, 4, 2, ""));
  ApplyChange(data, RemoveColumns(data, 3, 2, ""));
  EXPECT_EQ(data.CurrentRow, 3u);
  EXPECT_EQ(data.CurrentColumn, 2u);
  data.CurrentRow = 0;  // the heading
  data.CurrentColumn = 1;
  ApplyChange(data, RemoveColumns(data, 2, 1, ""));
  EXPECT_EQ(data.CurrentRow, 0u);
  EXPECT_EQ(data.CurrentColumn, 1u);
}

TEST(Change, NotesTellKindAndExtentAlsoOfWhatIsUndone) {
  DataSet data = LoadedData(5, 4);
  const std::uint64_t shown = data.Revision();
  ApplyChange(data, CellChange(kFirstRecordRow + 2, 3, "x", ""));
  ApplyChange(data, CellChange(kVariableLabelRow, 1, "label", ""));
  ApplyChange(data, RemoveColumns(data, 2, 2, ""));
  UndoChange(data);
  const auto notes = data.notes.Since(shown);
  ASSERT_TRUE(notes.has_value());
  ASSERT_EQ(notes->size(), 4u);
  EXPECT_EQ((*notes)[0].kind, ChangeKind::kCells);
  EXPECT_EQ((*notes)[0].extent, (ChangeExtent{kFirstRecordRow + 2, 1, 3, 1}));
  EXPECT_EQ((*notes)[1].kind, ChangeKind::kDictionary);
  EXPECT_EQ((*notes)[2].kind, ChangeKind::kColumnsRemoved);
  EXPECT_EQ((*notes)[2].extent.first_column, 2u);
  EXPECT_EQ((*notes)[2].extent.column_count, 2u);
  EXPECT_EQ((*notes)[3].kind, ChangeKind::kColumnsAdded);
  EXPECT_EQ((*notes)[3].extent, (*notes)[2].extent);
  EXPECT_TRUE(data.notes.Since(data.Revision())->empty());
}

TEST(Change, WhatIsTooLongAgoIsNotKnownAnyMore) {
  DataSet data = LoadedData(5, 4);
  const std::uint64_t shown = data.Revision();
  for (int i = 0; i < 64; ++i) ApplyChange(data, CellChange(kFirstRecordRow, 1, "x", ""));
  EXPECT_EQ(data.notes.Since(shown)->size(), 64u);
  ApplyChange(data, CellChange(kFirstRecordRow, 1, "x", ""));
  EXPECT_EQ(data.notes.Since(shown), std::nullopt);
}

// Against the model.

class ChangeModelTest : public testing::Test {
 protected:
  std::size_t Pick(std::size_t count) { return random() % count; }
  std::string RandomText() { return std::string(Pick(8) == 0 ? Pick(60) : Pick(5), static_cast<char>('a' + Pick(26))); }
  TaggedValue RandomValue() {
    switch (Pick(5)) {
      case 0:
        return TaggedValue();
      case 1:
        return static_cast<double>(Pick(100)) / 4;
      default:
        return RandomText();
    }
  }

  DataChange RandomBlock() {
    const std::size_t rows = model[0].size();
    ChangeExtent block{.first_row = Pick(rows), .first_column = 1 + Pick(model.size())};
    block.row_count = 1 + Pick(std::min<std::size_t>(rows - block.first_row, Pick(10) == 0 ? 1500 : 4));
    block.column_count = 1 + Pick(model.size() - block.first_column + 1);
    CellBlock values;
    std::size_t index = 0;
    for (std::size_t row = block.first_row; row < block.first_row + block.row_count; ++row) {
      for (std::size_t i = 0; i < block.column_count; ++i) {
        const TaggedValue value = RandomValue();
        values.Set(index++, value);
        model[block.first_column + i - 1][row] = ModelCell(value);
      }
    }
    return BlockChange(block, std::move(values), "block");
  }

  // A column with a few cells written, from scratch or out of one that stands in the data.
  std::pair<Column, ModelColumn> RandomColumn() {
    Column column;
    ModelColumn cells(model[0].size(), "-");
    if (Pick(2) == 0) {
      const std::size_t source = Pick(model.size());
      column = data.matrix.ColumnAt(source + 1);
      cells = model[source];
    }
    for (int i = 0; i < 5; ++i) {
      const std::size_t row = Pick(cells.size());
      const TaggedValue value = RandomValue();
      column.Set(row, value);
      cells[row] = ModelCell(value);
    }
    return {column, cells};
  }

  DataChange RandomChange() {
    switch (Pick(10)) {
      case 0: {
        auto [column, cells] = RandomColumn();
        model.push_back(cells);
        return AddColumns(data, {column}, "add column");
      }
      case 1: {
        const std::size_t first = Pick(model.size());
        const std::size_t count =
            Pick(2) == 0 || model.size() < 3 ? 0 : 1 + Pick(std::min<std::size_t>(2, model.size() - first));
        if (count >= model.size()) break;
        model.erase(model.begin() + static_cast<std::ptrdiff_t>(first),
                    model.begin() + static_cast<std::ptrdiff_t>(first + count));
        return RemoveColumns(data, first + 1, count, "remove columns");
      }
      case 2: {
        auto [column, cells] = RandomColumn();
        const std::size_t place = Pick(model.size());
        model[place] = cells;
        return ReplaceColumns(data, place + 1, {column}, "replace column");
      }
      case 3: {
        const std::size_t count = Pick(3) == 0 ? 1200 : 1 + Pick(20);
        for (ModelColumn& cells : model) cells.resize(cells.size() + count, "-");
        return AddRows(data, count, "add rows");
      }
      case 4: {
        const std::size_t first = Pick(data.RecordCount);
        const std::size_t most = data.RecordCount - first;
        const std::size_t count = Pick(3) == 0 ? Pick(most + 1) : std::min<std::size_t>(most, 1 + Pick(10));
        if (count + 3 > data.RecordCount) break;
        for (ModelColumn& cells : model) {
          const auto begin = cells.begin() + static_cast<std::ptrdiff_t>(kFirstRecordRow + first);
          cells.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
        }
        return RemoveRows(data, first + 1, count, "remove rows");
      }
      case 5:
        if (Pick(4) == 0) {
          DataContents contents = LoadedContents(1 + Pick(3000), 1 + Pick(5));
          model = ModelOf(contents.matrix);
          return ReplaceData(std::move(contents), "replace data");
        }
        break;
      default:
        break;
    }
    return RandomBlock();
  }

  void ExpectAgreement(int turn) {
    ASSERT_EQ(data.matrix.ColumnCount(), model.size()) << turn;
    ASSERT_EQ(data.VariableCount, model.size()) << turn;
    ASSERT_EQ(data.RecordCount + kFirstRecordRow, model[0].size()) << turn;
    ASSERT_TRUE(ModelOf(data.matrix) == model) << turn;
    for (std::size_t column = 1; column <= model.size(); ++column) {
      std::size_t next = kFirstRecordRow;
      data.matrix.ForEachRecord(column, data.RecordCount, [&](std::size_t, const TaggedView& cell) {
        if (ModelCell(cell) != model[column - 1][next++]) FAIL() << turn << ' ' << column;
      });
    }
  }

  std::mt19937_64 random{11};
  DataSet data;
  Model model;
};

TEST_F(ChangeModelTest, EveryStepAndEveryWayBackAndForthAgrees) {
  for (int round = 0; round < 6; ++round) {
    BeginData(data, LoadedContents(1 + Pick(2500), 1 + Pick(5)));
    model = ModelOf(data.matrix);
    std::vector<Model> past;
    std::vector<Model> future;
    for (int turn = 0; turn < 60; ++turn) {
      const std::size_t way = Pick(5);
      if (way == 0 && !past.empty()) {
        ASSERT_TRUE(UndoChange(data));
        future.push_back(std::exchange(model, past.back()));
        past.pop_back();
      } else if (way == 1 && !future.empty()) {
        ASSERT_TRUE(RedoChange(data));
        past.push_back(std::exchange(model, future.back()));
        future.pop_back();
      } else {
        past.push_back(model);
        future.clear();
        ASSERT_TRUE(ApplyChange(data, RandomChange()));
      }
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(turn));
      ASSERT_EQ(CanUndo(data), !past.empty());
      ASSERT_EQ(CanRedo(data), !future.empty());
    }
    while (!past.empty()) {
      ASSERT_TRUE(UndoChange(data));
      model = past.back();
      past.pop_back();
      ASSERT_NO_FATAL_FAILURE(ExpectAgreement(-1));
    }
  }
}

// Memory.

// All that a failure has to leave as it was.
struct State {
  explicit State(const DataSet& data)
      : model(ModelOf(data.matrix)),
        records(data.RecordCount),
        variables(data.VariableCount),
        listed(data.VarList.size()),
        row(data.CurrentRow),
        title(data.GridTitle),
        dirty(data.DataDirty),
        revision(data.Revision()),
        undo(UndoName(data)),
        redo(RedoName(data)),
        bytes(data.history.Bytes()) {}
  friend bool operator==(const State&, const State&) = default;

  Model model;
  std::size_t records, variables, listed, row;
  std::string title;
  bool dirty;
  std::uint64_t revision;
  std::string undo, redo;
  std::size_t bytes;
};

// Runs an operation with each of its requests of memory failing in turn, until it comes through.
void FailEachRequest(DataSet& data, const std::function<bool(DataSet&)>& operation) {
  const State before(data);
  for (std::size_t allowed = 0;; ++allowed) {
    bool failed = false;
    bool came_through = false;
    {
      const FailingMemory memory(allowed);
      try {
        came_through = operation(data);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) {
      EXPECT_TRUE(came_through);
      EXPECT_GT(allowed, 0u);
      return;
    }
    ASSERT_TRUE(State(data) == before) << allowed;
  }
}

TEST(ChangeMemory, AFailureLeavesEverythingAsItWas) {
  const std::string text(100, 'x');
  const Column column = TextColumn("NEW", 4, text);
  const std::vector<std::function<DataChange(const DataSet&)>> changes = {
      [&](const DataSet&) { return CellChange(kFirstRecordRow + 1, 2, text, "cell"); },
      [&](const DataSet&) { return CellChange(kVariableNameRow, 2, text, "heading"); },
      [&](const DataSet&) {
        return BlockChange({kVariableNameRow, 3, 1, 2}, Block({text, text, text, text, text, text}), "block");
      },
      [&](const DataSet& data) {
        return AddColumns(data, {column, column}, "add columns");
      },
      [&](const DataSet& data) { return RemoveColumns(data, 1, 2, "remove columns"); },
      [&](const DataSet& data) { return ReplaceColumns(data, 2, {column}, "replace column"); },
      [&](const DataSet& data) { return AddRows(data, 10, "add rows"); },
      [&](const DataSet& data) { return RemoveRows(data, 2, 2, "remove rows"); },
      [&](const DataSet&) { return ReplaceData(LoadedContents(2, 2), "replace data"); }};
  for (const auto& change : changes) {
    DataSet data = LoadedData(4, 3);
    ApplyChange(data, CellChange(kFirstRecordRow, 1, "a first step with a text of some length", "first"));
    UndoChange(data);  // so that a step ahead is there to be kept
    FailEachRequest(data, [&](DataSet& d) { return ApplyChange(d, change(d)); });
    SCOPED_TRACE(UndoName(data));
    FailEachRequest(data, UndoChange);
    FailEachRequest(data, RedoChange);
  }
}

TEST(ChangeMemory, AMillionCellsAreUndoneAndRedoneWithoutACopy) {
  constexpr std::size_t kRecords = 1000000;
  DataSet data;
  BeginData(data, {.matrix = DataMatrix(kFirstRecordRow + kRecords, 2), .RecordCount = kRecords, .VariableCount = 2});
  ApplyChange(data, ReplaceColumns(data, 1, {TextColumn("A", kRecords, "old")}, "Type"));
  ApplyChange(data, ReplaceColumns(data, 1, {TextColumn("A", kRecords, "new")}, "Recode A"));
  const std::size_t before = AskedForSoFar().bytes;
  UndoChange(data);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + kRecords - 1, 1), TaggedView("old"));
  RedoChange(data);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + kRecords - 1, 1), TaggedView("new"));
  EXPECT_LT(AskedForSoFar().bytes - before, 10000u);
}

// 16 bytes a cell for the stretch of records around it, a few pointers, and its place in the history.
TEST(ChangeMemory, ACellOfAMillionRecordsCostsItsStretchAlone) {
  DataSet data = LoadedData(1000000, 2);
  const std::size_t before = AskedForSoFar().bytes;
  ApplyChange(data, CellChange(kFirstRecordRow + 500000, 1, "x", "Type a Cell"));
  const std::size_t first = AskedForSoFar().bytes - before;
  EXPECT_LT(first, 60000u);
  ApplyChange(data, CellChange(kFirstRecordRow + 500001, 1, "y", "Type a Cell"));
  EXPECT_LT(AskedForSoFar().bytes - before - first, 2000u);
}

TEST(ChangeMemory, AColumnTakenAlongByTheHistoryIsNotWrittenOver) {
  DataSet data = LoadedData(3000, 1);
  const std::string text = "a text that is too long for a cell";
  ApplyChange(data, ReplaceColumns(data, 1, {TextColumn("A", 3000, text)}, "Recode"));
  ApplyChange(data, RemoveRows(data, 1, 10, "Delete Rows"));  // the stretches behind the gap are made anew
  ApplyChange(data, CellChange(kFirstRecordRow + 2, 1, "another text, too long for a cell too", "Type a Cell"));
  ApplyChange(data, CellChange(kFirstRecordRow + 2989, 1, "and the last of them, as long", "Type a Cell"));
  for (int i = 0; i < 3; ++i) UndoChange(data);
  data.matrix.ForEachRecord(
      1, 3000, [&](std::size_t record, const TaggedView& cell) { ASSERT_EQ(cell, TaggedView(text)) << record; });
}

}  // namespace
}  // namespace tessara
