#include "data/column_builder.h"

#include <gtest/gtest.h>

#include "data/tests/change_model.h"

namespace tessara {
namespace {

constexpr std::size_t kRecords = 3000;  // some stretches

std::string LongText(std::size_t record) {
  return "a text of more than sixteen bytes, number " + std::to_string(record);
}

TEST(ColumnBuilder, RecordsThatNothingIsPutToAreEmpty) {
  ColumnBuilder builder;
  builder.PutHeader(kVariableNameRow, "NEW");
  EXPECT_FALSE(builder.has_written());
  for (std::size_t record = 0; record < kRecords; record += 3) builder.Put(record, LongText(record));
  EXPECT_TRUE(builder.has_written());
  const Column column = builder.Take();
  EXPECT_EQ(column.Cell(kVariableNameRow), TaggedView("NEW"));
  for (std::size_t record = 0; record < kRecords; ++record) {
    const TaggedView cell = column.Cell(kFirstRecordRow + record);
    if (record % 3 == 0) {
      EXPECT_EQ(cell, TaggedView(LongText(record)));
    } else {
      EXPECT_TRUE(cell.is_empty());
    }
  }
}

TEST(ColumnBuilder, TheOtherCellsOfTheBaseStayAndTheBaseItself) {
  const DataSet data = LoadedData(kRecords, 2);
  const Column& base = data.matrix.ColumnAt(2);
  const Model before = ModelOf(data.matrix);
  ASSERT_EQ(base.Numbers(kRecords).values.size(), kRecords);
  ColumnBuilder builder(base);
  builder.Put(5, 7.0);
  builder.Put(2000, LongText(1));
  EXPECT_EQ(builder.Cell(5), TaggedView(7.0));
  EXPECT_EQ(builder.Cell(6), base.Cell(kFirstRecordRow + 6));
  const Column column = builder.Take();
  for (std::size_t record = 0; record < kRecords; ++record) {
    const TaggedView expected = record == 5      ? TaggedView(7.0)
                                : record == 2000 ? TaggedView("a text of more than sixteen bytes, number 1")
                                                 : base.Cell(kFirstRecordRow + record);
    EXPECT_EQ(column.Cell(kFirstRecordRow + record), expected);
  }
  EXPECT_EQ(column.Numbers(kRecords).values[5], 7.0);
  EXPECT_EQ(ModelOf(data.matrix), before);
  // The stretches that nothing was put to are shared: two of 1024 cells are not.
  EXPECT_LT(column.BytesBeside(base), 2 * 1024 * 16 + 100000u);
}

}  // namespace
}  // namespace tessara
