#include "data/record_choice.h"

#include <gtest/gtest.h>

#include <random>

#include "data/column_builder.h"
#include "data/tests/change_model.h"

namespace tessara {
namespace {

constexpr std::size_t kRecords = 3000;  // some stretches
constexpr std::size_t kColumns = 3;

// Indexes drawn without an order, some more than once.
RecordOrder DrawnRecords(std::size_t count, std::size_t among, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<std::uint32_t> record(0, static_cast<std::uint32_t>(among - 1));
  RecordOrder records(count);
  for (std::uint32_t& each : records) each = record(random);
  return records;
}

Model ChosenOf(const Model& model, const RecordOrder& records) {
  Model chosen;
  for (const ModelColumn& column : model) {
    ModelColumn& made = chosen.emplace_back(column.begin(), column.begin() + kFirstRecordRow);
    for (const std::uint32_t record : records) made.push_back(column[kFirstRecordRow + record]);
  }
  return chosen;
}

void Choose(DataSet& data, const RecordOrder& records) {
  ASSERT_TRUE(ApplyChange(data, ChooseRecords(data, records, "Create Sample")));
}

TEST(RecordChoice, LoadedRecordsStandInTheirNewOrder) {
  DataSet data = LoadedData(kRecords, kColumns);
  const Model before = ModelOf(data.matrix);
  const RecordOrder records = DrawnRecords(2000, kRecords, 1);
  Choose(data, records);
  EXPECT_EQ(data.RecordCount, 2000u);
  EXPECT_EQ(ModelOf(data.matrix), ChosenOf(before, records));
}

TEST(RecordChoice, EveryWayToReadThemAgrees) {
  DataSet data = LoadedData(kRecords, kColumns);
  ApplyChange(data, CellChange(kFirstRecordRow + 2999, 1, 7.5, "Type a Cell"));
  const RecordOrder records = {2999, 6, 6, 0, 1234};
  Choose(data, records);
  std::vector<std::string> visited;
  data.matrix.ForEachRecord(2, 7, [&](std::size_t, const TaggedView& cell) { visited.push_back(ModelCell(cell)); });
  EXPECT_EQ(visited, (std::vector<std::string>{"t3000/2", "t7/2", "t7/2", "t1/2", "t1235/2", "-", "-"}));
  EXPECT_EQ(data.matrix.Numbers(1, 5).values[0], 7.5);
  EXPECT_EQ(data.matrix.Numbers(1, 5).classes[1], CellClass::kText);
  EXPECT_EQ(data.matrix.UsedRecords(2, 5), 5u);
}

TEST(RecordChoice, AChoiceOfAChoiceAndCellsTypedBetween) {
  DataSet data = LoadedData(kRecords, kColumns);
  const Model loaded = ModelOf(data.matrix);
  const RecordOrder first = DrawnRecords(2500, kRecords, 2);
  Choose(data, first);
  ApplyChange(data, CellChange(kFirstRecordRow + 1500, 2, "a text that is longer than a cell", "Type a Cell"));
  Model model = ChosenOf(loaded, first);
  model[1][kFirstRecordRow + 1500] = "ta text that is longer than a cell";
  ASSERT_EQ(ModelOf(data.matrix), model);

  RecordOrder second = DrawnRecords(2100, 2500, 3);
  second[7] = 1500;
  Choose(data, second);
  model = ChosenOf(model, second);
  EXPECT_EQ(ModelOf(data.matrix), model);

  ApplyChange(data, RemoveRows(data, 3, 1100, "Delete Rows"));
  for (ModelColumn& column : model) column.erase(column.begin() + 18, column.begin() + 18 + 1100);
  EXPECT_EQ(ModelOf(data.matrix), model);

  ApplyChange(data, AddRows(data, 10, "Add Rows"));
  EXPECT_TRUE(data.matrix.Cell(kFirstRecordRow + 1003, 1).is_empty());
  EXPECT_EQ(data.matrix.LoadedColumns(), 0u);
}

TEST(RecordChoice, UndoBringsTheDataBackAndRedoTheChoice) {
  DataSet data = LoadedData(kRecords, kColumns);
  const Model before = ModelOf(data.matrix);
  data.ProjectNotes = "kept";
  data.DataDirty = true;
  const RecordOrder records = DrawnRecords(40, kRecords, 4);
  Choose(data, records);
  EXPECT_EQ(data.ProjectNotes, "kept");
  EXPECT_EQ(data.GridTitle, "loaded.dcs");
  EXPECT_TRUE(data.DataDirty);
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(ModelOf(data.matrix), before);
  EXPECT_EQ(data.RecordCount, kRecords);
  EXPECT_TRUE(data.DataDirty);
  ASSERT_TRUE(RedoChange(data));
  EXPECT_EQ(ModelOf(data.matrix), ChosenOf(before, records));
}

TEST(RecordChoice, DoesNotMarkCleanDataAsChanged) {
  DataSet data = LoadedData(30, 2);
  Choose(data, {3, 1});
  EXPECT_FALSE(data.DataDirty);
}

// A million records cost an order of four bytes each, once, and the step back next to nothing.
TEST(RecordChoice, LoadedColumnsShareOneOrderAndTheBytesOfTheirFile) {
  DataSet data = LoadedData(kRecords, kColumns);
  Choose(data, DrawnRecords(kRecords, kRecords, 5));
  EXPECT_EQ(data.matrix.LoadedColumns(), kColumns);
  EXPECT_LT(data.history.Bytes(), 4000u);
  Choose(data, DrawnRecords(kRecords, kRecords, 6));
  // The first order is held for the way back, and counts once.
  EXPECT_GE(data.history.Bytes(), kRecords * 4);
  EXPECT_LT(data.history.Bytes(), kRecords * 4 + 8000);
}

TEST(RecordChoice, ALineOfTheFileIsFoundForARecordThatWasChosen) {
  DataSet data = LoadedData(20, 2);
  Choose(data, {6, 8});  // no row of theirs is a multiple of seven, which would have long texts
  EXPECT_EQ(data.matrix.LoadedLine(kFirstRecordRow, 2),
            "7/1\x01"
            "7/2");
  EXPECT_EQ(data.matrix.LoadedLine(kFirstRecordRow + 1, 1), "9/1");
  EXPECT_EQ(data.matrix.LoadedLine(kFirstRecordRow + 2, 1), std::nullopt);
}

TEST(RecordChoice, ShortLinesStayEmptyAtTheirEnd) {
  DataSet data;
  BeginData(data, LoadedContents(5, 2));
  RecordChoice choice({7, 0});
  const Column chosen = choice.Of(data.matrix.ColumnAt(1));
  EXPECT_TRUE(chosen.Cell(kFirstRecordRow).is_empty());  // there are five
  EXPECT_EQ(chosen.Cell(kFirstRecordRow + 1), TaggedView("1/1"));
}

TEST(RecordChoice, NumbersThatShowDecimalsGoOnShowingThem) {
  ColumnBuilder builder;
  builder.ShowFiveDecimals();
  for (std::size_t record = 0; record < 5; ++record) builder.Put(record, static_cast<double>(record));
  const Column column = builder.Take();
  RecordChoice choice({4, 2});
  const Column chosen = choice.Of(column);
  EXPECT_TRUE(chosen.ShowsFiveDecimals());
  EXPECT_EQ(chosen.Cell(kFirstRecordRow + 1), TaggedView(2.0));
  EXPECT_TRUE(chosen.WithoutRecords(0, 1, 2).ShowsFiveDecimals());
}

}  // namespace
}  // namespace tessara
