#include "data/dictionary/variable_summary.h"

#include "data/change_door.h"
#include "data/tests/data_fixture.h"

namespace tessara {
namespace {

// Five records: a missing code, a blank, a text, a text that is declared as missing, a number.
class VariableSummaryTest : public DataFixture {
 protected:
  VariableSummaryTest() {
    OpenText(FileText("5 2 Tessara data", "A~B", {"9~1", "~2", "abc~3", "NA~", "4~x"}));
    MatrixEditor(data).SetText(kMissingSpecRow, 1, "9|NA||||8|");
  }

  SummarizedVariables summarized{data};
};

TEST_F(VariableSummaryTest, EachCellCountsOnce) {
  EXPECT_EQ(CountCells(data, 1), (CellCounts{.blank = 1, .missing = 2, .not_numeric = 1, .records = 5}));
  EXPECT_EQ(CountCells(data, 2), (CellCounts{.blank = 1, .missing = 0, .not_numeric = 1, .records = 5}));
}

TEST_F(VariableSummaryTest, NumbersBeyondABoundAreMissingAndTheNumberZeroIsBlank) {
  MatrixEditor editor(data);
  editor.SetText(kFirstRecordRow, 1, "8.5");
  editor.SetNumber(kFirstRecordRow + 4, 1, 0);
  EXPECT_EQ(CountCells(data, 1), (CellCounts{.blank = 2, .missing = 2, .not_numeric = 1, .records = 5}));
}

TEST_F(VariableSummaryTest, CountingKeepsNoNumbersThatNobodyElseHasAskedFor) {
  CountCells(data, 1);
  EXPECT_FALSE(data.matrix.ColumnAt(1).HasNumbers(1));
  data.matrix.Numbers(2, data.RecordCount);
  CountCells(data, 2);
  EXPECT_TRUE(data.matrix.ColumnAt(2).HasNumbers(data.RecordCount));
}

TEST_F(VariableSummaryTest, TheDictionaryInWords) {
  MatrixEditor editor(data);
  editor.SetText(kMissingSpecRow, 2, "9|NA|||0|120|");
  editor.SetText(kFirstValueLabelRow, 2, "1=Male");
  editor.SetText(kFirstValueLabelRow + 1, 2, "=");
  editor.SetText(kFirstValueLabelRow + 2, 2, "2=Female");
  EXPECT_EQ(MissingValuesInWords(data, 2), "9, NA, < 0, > 120");
  EXPECT_EQ(ValueLabelsInWords(data, 2), "1 = Male, 2 = Female");
  EXPECT_EQ(ValueLabelsInWords(data, 1), "");
  EXPECT_EQ(MissingValuesInWords(data, 3), "");
}

TEST_F(VariableSummaryTest, ALongTextIsCutShortInTheWords) {
  MatrixEditor(data).SetText(kFirstValueLabelRow, 2, "1=" + std::string(1000000, 'x'));
  EXPECT_EQ(ValueLabelsInWords(data, 2), "1 = " + std::string(60, 'x') + "...");
}

TEST(ShareInWords, TellsNoneSomeAndAllApart) {
  EXPECT_EQ(ShareInWords(0, 400), "0");
  EXPECT_EQ(ShareInWords(18, 400), "4.5%");
  EXPECT_EQ(ShareInWords(1, 1000000), "<0.1%");
  EXPECT_EQ(ShareInWords(999999, 1000000), ">99.9%");
  EXPECT_EQ(ShareInWords(7, 7), "100.0%");
  EXPECT_EQ(ShareInWords(0, 0), "0");
}

TEST_F(VariableSummaryTest, VariablesAreCountedOneByOneFromWhereTheTableIsLookedAt) {
  summarized.Follow();
  EXPECT_EQ(summarized.Find(1), nullptr);
  EXPECT_EQ(summarized.NextToCount(2), 2u);
  summarized.Count(2);
  ASSERT_NE(summarized.Find(2), nullptr);
  EXPECT_EQ(summarized.Find(2)->blank, 1u);
  EXPECT_EQ(summarized.NextToCount(2), 1u);
  summarized.Count(1);
  EXPECT_EQ(summarized.NextToCount(2), std::nullopt);
  EXPECT_EQ(summarized.Find(3), nullptr);
}

TEST_F(VariableSummaryTest, AChangeForgetsWhatItMakesWrongAndNothingElse) {
  summarized.Follow();
  summarized.Count(1);
  summarized.Count(2);
  ApplyChange(data, CellChange(kFirstRecordRow, 2, "y", "Type"));
  summarized.Follow();
  EXPECT_NE(summarized.Find(1), nullptr);
  EXPECT_EQ(summarized.Find(2), nullptr);
  summarized.Count(2);
  EXPECT_EQ(summarized.Find(2)->not_numeric, 2u);

  ApplyChange(data, CellChange(kVariableLabelRow, 1, "Label", "Type"));
  summarized.Follow();
  EXPECT_NE(summarized.Find(1), nullptr);
  ApplyChange(data, CellChange(kMissingSpecRow, 1, "4||||||", "Type"));
  summarized.Follow();
  EXPECT_EQ(summarized.Find(1), nullptr);
}

TEST_F(VariableSummaryTest, CountsMoveWithTheirColumns) {
  summarized.Follow();
  summarized.Count(2);
  ApplyChange(data, RemoveColumns(data, 1, 1, "Delete"));
  summarized.Follow();
  ASSERT_NE(summarized.Find(1), nullptr);
  EXPECT_EQ(*summarized.Find(1), CountCells(data, 1));
  UndoChange(data);
  summarized.Follow();
  EXPECT_EQ(summarized.Find(1), nullptr);
  ASSERT_NE(summarized.Find(2), nullptr);
  EXPECT_EQ(*summarized.Find(2), CountCells(data, 2));
}

TEST_F(VariableSummaryTest, RowsAndOtherDataAreCountedAnew) {
  summarized.Follow();
  summarized.Count(1);
  ApplyChange(data, AddRows(data, 10, "Add Rows"));
  summarized.Follow();
  EXPECT_EQ(summarized.Find(1), nullptr);
  summarized.Count(1);
  EXPECT_EQ(summarized.Find(1)->blank, 11u);
  OpenText(FileText("1 3 Tessara data", "X~Y~Z", {"1~2~3"}));
  summarized.Follow();
  EXPECT_EQ(summarized.Find(1), nullptr);
  EXPECT_EQ(summarized.NextToCount(3), 3u);
}

}  // namespace
}  // namespace tessara
