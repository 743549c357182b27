#include "data/data_set.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/missing_test.h"
#include "data/used_range.h"
#include "data/value_labels.h"
#include "platform/files.h"

namespace tessara {
namespace {

// Columns of texts; a null pointer is a cell never assigned.
DataSet MakeData(const std::vector<std::vector<const char*>>& columns, std::size_t records) {
  DataSet data;
  MatrixEditor(data).Replace(DataMatrix(kFirstRecordRow + records, columns.size()));
  data.RecordCount = records;
  data.VariableCount = columns.size();
  for (std::size_t column = 0; column < columns.size(); ++column) {
    MatrixEditor(data).SetText(kVariableNameRow, column + 1, "V" + std::to_string(column + 1));
    for (std::size_t record = 0; record < columns[column].size(); ++record) {
      if (const char* text = columns[column][record]) {
        MatrixEditor(data).SetText(kFirstRecordRow + record, column + 1, text);
      }
    }
  }
  return data;
}

// The new data set and its shape.

TEST(DataSet, ANewOneHasAThousandRecordsTwentyVariablesAndASpareRow) {
  DataSet data;
  MakeEmptyDataSet(data);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 20u);
  EXPECT_EQ(data.matrix.RowCount(), 1017u);
  EXPECT_EQ(data.matrix.ColumnCount(), 20u);
  EXPECT_EQ(data.VariableName(7), "V7");
  EXPECT_TRUE(data.matrix.Cell(1015, 20).is_empty());
  EXPECT_TRUE(data.WithinEditLimit());
}

TEST(DataSet, TheEditLimitIsTwoHundredThousandCells) {
  DataSet data;
  data.RecordCount = 2000;
  data.VariableCount = 100;
  EXPECT_TRUE(data.WithinEditLimit());
  EXPECT_EQ(data.GridRecords(), 2000u);
  data.RecordCount = 2001;
  EXPECT_FALSE(data.WithinEditLimit());
  EXPECT_EQ(data.GridRecords(), 100u);
}

TEST(DataSet, AboveTheLimitFewRecordsAreAllShown) {
  DataSet data;
  data.RecordCount = 50;
  data.VariableCount = 5000;
  EXPECT_EQ(data.GridRecords(), 50u);
  EXPECT_EQ(data.GridVariables(), 300u);
}

TEST(DataSet, ThreeHundredAndThreeHundredAndOneVariablesShowTheSame) {
  DataSet data;
  for (const std::size_t variables : {300u, 301u}) {
    data.VariableCount = variables;
    EXPECT_EQ(data.GridVariables(), 300u);  // and the column of record numbers
  }
  data.VariableCount = 299;
  EXPECT_EQ(data.GridVariables(), 299u);
}

TEST(DataSet, TheCellCountNeverRunsOver) {
  DataSet data;
  data.RecordCount = std::size_t{1} << 40;
  data.VariableCount = std::size_t{1} << 40;
  EXPECT_EQ(data.CellCount(), std::numeric_limits<std::size_t>::max());
  EXPECT_FALSE(data.WithinEditLimit());
}

TEST(DataSet, AShapeIsHeldWhenItsCellsFitTheMemory) {
  const std::size_t cells = static_cast<std::size_t>(MachineMemory() / 16);
  EXPECT_TRUE(ShapeCanBeHeld(0, 0));
  EXPECT_TRUE(ShapeCanBeHeld(1000000, 20));
  EXPECT_TRUE(ShapeCanBeHeld(cells / 4, 2));
  EXPECT_FALSE(ShapeCanBeHeld(cells, 2));
  EXPECT_FALSE(ShapeCanBeHeld(cells + 1, 0));
  EXPECT_FALSE(ShapeCanBeHeld(0, cells));
  constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
  EXPECT_FALSE(ShapeCanBeHeld(kMost, 1));
  EXPECT_FALSE(ShapeCanBeHeld(1, kMost));
  EXPECT_FALSE(ShapeCanBeHeld(kMost, kMost));
  EXPECT_FALSE(ShapeCanBeHeld(kMost, 0));
}

TEST(DataSet, TheVariableListsNameEveryColumnBehindNone) {
  DataSet data = MakeData({{"1"}, {"2"}}, 1);
  MatrixEditor(data).SetText(kVariableNameRow, 2, "SEX");
  RebuildVariableLists(data);
  ASSERT_EQ(data.VarList.size(), 3u);
  EXPECT_EQ(data.VarList[0].name, "None");
  EXPECT_EQ(data.VarList[0].column, 0u);
  EXPECT_EQ(data.VarList[1].name, "V1");
  EXPECT_EQ(data.VarList[1].column, 1u);
  EXPECT_EQ(data.VarList[2].name, "SEX");
  EXPECT_EQ(data.VarList[2].column, 2u);
}

// Missing values.

TEST(LoadMissingSet, UnpacksTheSpecOfTheVariable) {
  DataSet data = MakeData({{"1"}, {"2"}}, 1);
  MatrixEditor(data).SetText(kMissingSpecRow, 2, "9|98|n/a||1|7.5|");
  const MissingValues missing = LoadMissingSet(data.matrix, 2);
  const auto& entries = missing.entries;
  EXPECT_EQ(entries[0].view().text(), "9");
  EXPECT_EQ(entries[1].view().text(), "98");
  EXPECT_EQ(entries[2].view().text(), "n/a");
  EXPECT_TRUE(entries[3].view().is_blank());
  EXPECT_EQ(entries[4].view().text(), "1");
  EXPECT_EQ(entries[5].view().text(), "7.5");
  EXPECT_FALSE(LoadMissingSet(data.matrix, 1).HasSingleValues());
  EXPECT_FALSE(LoadMissingSet(data.matrix, 1).HasBounds());
}

TEST(LoadMissingSet, AColumnThatTheMatrixLacksHasNoMissingValues) {
  DataSet data = MakeData({{"1"}}, 1);
  MatrixEditor(data).SetText(kMissingSpecRow, 1, "9||||1|7.5|");
  for (const std::size_t column : {0u, 2u}) {
    EXPECT_FALSE(LoadMissingSet(data.matrix, column).HasSingleValues());
    EXPECT_FALSE(LoadMissingSet(data.matrix, column).HasBounds());
  }
}

TEST(MissingValues, ASpecOfSixCharactersIsNoDefinition) {
  EXPECT_FALSE(UnpackMissingSpec("||||||").HasSingleValues());
  EXPECT_FALSE(UnpackMissingSpec("9|||||").HasSingleValues());
  EXPECT_FALSE(UnpackMissingSpec("").HasBounds());
}

TEST(MissingValues, ALowerBoundAloneHasSevenCharactersAndTakesEffect) {
  const MissingValues missing = UnpackMissingSpec("||||5||");
  EXPECT_FALSE(missing.HasSingleValues());
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing("4.999")));
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing("5")));  // strictly below
}

TEST(MissingValues, AnUpperBoundIsMissingStrictlyAbove) {
  const MissingValues missing = UnpackMissingSpec("|||||1e1|");
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing("10")));
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing("10.001")));
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing(11.0)));
}

TEST(MissingValues, ASpecThatBreaksOffKeepsTheEntriesItHas) {
  const MissingValues missing = UnpackMissingSpec("7|8|9999");  // the third has no bar behind it
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing("8")));
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing("9999")));
  EXPECT_FALSE(static_cast<bool>(UnpackMissingSpec("a long text without a bar").IsMissing("a")));
}

TEST(MissingValues, FieldsBehindTheSixthAreIgnored) {
  const MissingValues missing = UnpackMissingSpec("||||||9|");
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing("9")));
}

TEST(MissingValues, TheValue1Point0IsNotTheMissingValue1) {
  const MissingValues missing = UnpackMissingSpec("1||||||");
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing("1")));
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing("1.0")));
  EXPECT_TRUE(static_cast<bool>(UnpackMissingSpec("||||1.5||").IsMissing("1.0")));  // though a bound would catch it
}

TEST(MissingValues, ANumberMeetsAnEntryByItsGeneralText) {
  const MissingValues missing = UnpackMissingSpec("1|0.5|||||");
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing(1.0)));
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing(0.5)));
  EXPECT_FALSE(static_cast<bool>(missing.IsMissing(2.0)));
}

TEST(MissingValues, ABlankIsMissingAndTheText0IsNot) {
  const MissingValues none;
  EXPECT_TRUE(static_cast<bool>(none.IsMissing(TaggedView())));
  EXPECT_TRUE(static_cast<bool>(none.IsMissing("")));
  EXPECT_TRUE(static_cast<bool>(none.IsMissing(0.0)));
  EXPECT_FALSE(static_cast<bool>(none.IsMissing("0")));
  EXPECT_FALSE(static_cast<bool>(none.IsMissing(" ")));
}

TEST(MissingValues, ATextThatMeetsABoundFails) {
  const MissingValues missing = UnpackMissingSpec("abc||||1||");
  EXPECT_TRUE(missing.IsMissing("x").failed());
  EXPECT_TRUE(missing.IsMissing("abc").failed());  // a single value does not spare it the bound
  EXPECT_TRUE(static_cast<bool>(missing.IsMissing("x")));
  EXPECT_FALSE(missing.IsMissing("").failed());  // a blank never comes to the bounds
  EXPECT_FALSE(UnpackMissingSpec("abc||||||").IsMissing("x").failed());
}

TEST(MissingValues, TextsCompareByCase) {
  EXPECT_FALSE(static_cast<bool>(UnpackMissingSpec("N/A||||||").IsMissing("n/a")));
}

// The test for whole columns gives the answers of the test for one value.
TEST(MissingTest, AgreesWithTheTestOfEveryValue) {
  const std::vector<const char*> cells = {"1", "1.0", "9",   "9.0", "",   nullptr, "abc", "n/a", "-3",
                                          "0", "7.5", "7.6", "1e1", " 9", "9 ",    "x9",  "007"};
  const std::vector<std::string> specs = {"",          "9||||||",    "9|1|n/a||||", "||||1||",
                                          "|||||7.5|", "||||1|7.5|", "n/a||||||",   "9|n/a|||0|8|",
                                          "||||x||",   "|||||x|",    "007||||||",   "||||||"};
  for (const std::string& spec : specs) {
    DataSet data = MakeData({cells}, cells.size());
    const MissingValues missing = UnpackMissingSpec(spec);
    const MissingTest test(data.matrix, 1, missing, data.matrix.Numbers(1, cells.size()));
    for (std::size_t record = 0; record < cells.size(); ++record) {
      EXPECT_EQ(test.Drops(record), static_cast<bool>(missing.IsMissing(data.matrix.Cell(kFirstRecordRow + record, 1))))
          << spec << " record " << record;
    }
  }
}

// Value labels.

TEST(ValueLabels, AreSplitAtTheFirstEqualsSign) {
  DataSet data = MakeData({{"1"}}, 1);
  MatrixEditor(data).SetText(4, 1, "1=Yes");
  MatrixEditor(data).SetText(5, 1, "2=a=b");
  MatrixEditor(data).SetText(11, 1, "8=the last slot");
  MatrixEditor(data).SetText(12, 1, "9=a reserved row");
  const ValueLabels labels = LoadValueLabels(data.matrix, 1);
  EXPECT_FALSE(labels.NoValueLabels);
  EXPECT_EQ(labels.Apply("1"), "Yes");
  EXPECT_EQ(labels.Apply("2"), "a=b");
  EXPECT_EQ(labels.Apply("8"), "the last slot");
  EXPECT_EQ(labels.Apply("9"), "9");
  EXPECT_EQ(labels.Apply("1.0"), "1.0");
  EXPECT_EQ(labels.Apply(1.0), "Yes");
}

TEST(ValueLabels, ASlotBelowThreeCharactersIsEmpty) {
  DataSet data = MakeData({{"1"}}, 1);
  MatrixEditor(data).SetText(4, 1, "1=");
  EXPECT_TRUE(LoadValueLabels(data.matrix, 1).NoValueLabels);
  EXPECT_EQ(LoadValueLabels(data.matrix, 1).Apply("1"), "1");
  MatrixEditor(data).SetText(5, 1, "10=");
  EXPECT_FALSE(LoadValueLabels(data.matrix, 1).NoValueLabels);
  EXPECT_EQ(LoadValueLabels(data.matrix, 1).Apply("10"), "");
}

TEST(ValueLabels, ASlotWithoutAnEqualsSignIsAValueWithAnEmptyLabel) {
  DataSet data = MakeData({{"1"}}, 1);
  MatrixEditor(data).SetText(4, 1, "abc");
  const ValueLabels labels = LoadValueLabels(data.matrix, 1);
  EXPECT_FALSE(labels.NoValueLabels);
  EXPECT_EQ(labels.Apply("abc"), "");
}

TEST(ValueLabels, TheFirstOfTwoEqualValuesCounts) {
  DataSet data = MakeData({{"1"}}, 1);
  MatrixEditor(data).SetText(4, 1, "1=first");
  MatrixEditor(data).SetText(5, 1, "1=second");
  EXPECT_EQ(LoadValueLabels(data.matrix, 1).Apply("1"), "first");
}

// The used range.

void ExpectUsed(const DataSet& data, std::size_t records, std::size_t variables) {
  const UsedRange used = TrimToUsedRange(data);
  EXPECT_EQ(used.records, records);
  EXPECT_EQ(used.variables, variables);
}

TEST(TrimToUsedRange, CutsTheTrailingRunsOfBlankColumnsAndRecords) {
  const DataSet data = MakeData({{"1", nullptr, "3"}, {nullptr}, {"", "5", ""}, {"", nullptr}}, 6);
  ExpectUsed(data, 3, 3);  // the blank second column has data to its right
  EXPECT_EQ(data.RecordCount, 6u);
  EXPECT_EQ(data.VariableCount, 4u);
}

TEST(TrimToUsedRange, ANamedButEmptyLastColumnIsCut) {
  DataSet data = MakeData({{"1"}, {nullptr}}, 1);
  MatrixEditor(data).SetText(kVariableLabelRow, 2, "a label");
  ExpectUsed(data, 1, 1);
}

TEST(TrimToUsedRange, NumbersEqualToZeroAreBlank) {
  DataSet data = MakeData({{"1"}, {nullptr}}, 2);
  MatrixEditor(data).SetNumber(kFirstRecordRow, 2, 0);
  MatrixEditor(data).SetNumber(kFirstRecordRow + 1, 1, 0);
  ExpectUsed(data, 1, 1);
  MatrixEditor(data).SetText(kFirstRecordRow + 1, 2, "0");
  ExpectUsed(data, 2, 2);
}

TEST(TrimToUsedRange, WhereEveryColumnIsBlankBothCountsAreZero) {
  DataSet data;
  MakeEmptyDataSet(data);
  ExpectUsed(data, 0, 0);
}

TEST(TrimToUsedRange, NoRecordsOrNoVariablesAreNothing) {
  DataSet data = MakeData({{"1"}}, 1);
  data.RecordCount = 0;
  ExpectUsed(data, 0, 0);
  ExpectUsed(MakeData({}, 5), 0, 0);
}

TEST(TrimToUsedRange, RecordsBehindTheCountsDoNotReachIn) {
  DataSet data = MakeData({{"1", nullptr, "3"}, {"2"}}, 3);
  data.RecordCount = 2;
  data.VariableCount = 1;
  ExpectUsed(data, 1, 1);
}

}  // namespace
}  // namespace tessara
