#include "data/data_matrix.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace tessara {
namespace {

constexpr std::size_t kRecord1 = kFirstRecordRow;
constexpr std::size_t kRecord2 = kFirstRecordRow + 1;
constexpr std::size_t kRecord3 = kFirstRecordRow + 2;

// A matrix of a file with the given record lines behind an empty dictionary, whose names are in `names`.
DataMatrix LoadedMatrix(const std::string& names, const std::vector<std::string>& records, std::size_t column_count) {
  std::string text;
  for (std::size_t row = 0; row < kVariableNameRow; ++row) text += "\r\n";
  text += names + "\r\n";
  for (const std::string& record : records) text += record + "\r\n";
  auto bytes = FileBytes::Allocate(text.size());
  std::memcpy(bytes->data(), text.data(), text.size());
  const std::size_t rows = kFirstRecordRow + records.size();
  return DataMatrix(rows, column_count, LoadedText(std::move(*bytes), rows, column_count));
}

DataMatrix ThreeRecords() {
  return LoadedMatrix("AGE\x01SEX\x01WT",
                      {"34\x01"
                       "1\x01"
                       "70.5",
                       "41\x01"
                       "2\x01"
                       "a weight of more than a cell",
                       "9\x01x"},
                      3);
}

TEST(DataMatrix, ANewMatrixIsEmptyThroughout) {
  const DataMatrix matrix(18, 2);
  EXPECT_EQ(matrix.RowCount(), 18u);
  EXPECT_EQ(matrix.ColumnCount(), 2u);
  for (std::size_t row = 0; row < 18; ++row) {
    EXPECT_TRUE(matrix.Cell(row, 1).is_empty());
    EXPECT_TRUE(matrix.Cell(row, 2).is_empty());
  }
}

TEST(DataMatrix, ACellOutsideIsEmptyAndWritingItFails) {
  DataMatrix matrix(18, 2);
  const std::vector<std::pair<std::size_t, std::size_t>> outside = {
      {0, 0}, {0, 3}, {18, 1}, {18, 2}, {~std::size_t{0}, 1}, {0, ~std::size_t{0}}};
  for (const auto& [row, column] : outside) {
    EXPECT_FALSE(matrix.SetText(row, column, "x")) << row << ' ' << column;
    EXPECT_TRUE(matrix.Cell(row, column).is_empty()) << row << ' ' << column;
  }
  EXPECT_TRUE(matrix.SetText(17, 2, "x"));
  EXPECT_EQ(matrix.Cell(17, 2).text(), "x");
}

TEST(DataMatrix, ALoadedFieldIsATextAndAMissingOneTheEmptyTag) {
  const DataMatrix matrix = LoadedMatrix(
      "A\x01"
      "B\x01"
      "C",
      {"1\x01"}, 3);
  EXPECT_TRUE(matrix.Cell(kRecord1, 1).is_text());
  EXPECT_EQ(matrix.Cell(kRecord1, 1).text(), "1");
  EXPECT_TRUE(matrix.Cell(kRecord1, 2).is_text());  // an empty field
  EXPECT_TRUE(matrix.Cell(kRecord1, 3).is_empty());
}

TEST(DataMatrix, EveryKindOfValueComesBackFromALoadedColumn) {
  DataMatrix matrix = ThreeRecords();
  matrix.SetNumber(kRecord1, 3, 70.25);
  EXPECT_TRUE(matrix.Cell(kRecord1, 3).is_number());
  EXPECT_EQ(matrix.Cell(kRecord1, 3).number(), 70.25);
  EXPECT_EQ(matrix.Cell(kRecord2, 3).text(), "a weight of more than a cell");
  EXPECT_TRUE(matrix.Cell(kRecord3, 3).is_empty());
  matrix.SetEmpty(kRecord2, 3);
  EXPECT_TRUE(matrix.Cell(kRecord2, 3).is_empty());
  matrix.SetText(kRecord3, 3, "");
  EXPECT_TRUE(matrix.Cell(kRecord3, 3).is_text());
}

TEST(DataMatrix, OnlyAChangedRecordMakesAColumnItsOwn) {
  DataMatrix matrix = ThreeRecords();
  EXPECT_EQ(matrix.LoadedColumns(), 3u);
  matrix.SetText(kVariableLabelRow, 1, "Age in years");
  matrix.SetText(kVariableNameRow, 1, "YEARS");
  EXPECT_EQ(matrix.LoadedColumns(), 3u);
  EXPECT_EQ(matrix.Cell(kVariableNameRow, 1).text(), "YEARS");
  EXPECT_EQ(matrix.Cell(kVariableNameRow, 2).text(), "SEX");
  matrix.SetText(kRecord1, 2, "2");
  EXPECT_EQ(matrix.LoadedColumns(), 1u);
  EXPECT_EQ(matrix.Cell(kRecord2, 2).text(), "2");
  EXPECT_EQ(matrix.Cell(kVariableNameRow, 2).text(), "SEX");
}

TEST(DataMatrix, ALoadedLineIsGivenAsItStandsInTheFile) {
  const DataMatrix matrix = ThreeRecords();
  EXPECT_EQ(matrix.LoadedLine(kRecord1, 3),
            "34\x01"
            "1\x01"
            "70.5");
  EXPECT_EQ(matrix.LoadedLine(kRecord1, 2),
            "34\x01"
            "1");
  EXPECT_EQ(matrix.LoadedLine(kRecord3, 3), std::nullopt);          // two fields only
  EXPECT_EQ(matrix.LoadedLine(kVariableNameRow, 3), std::nullopt);  // the dictionary may have changed
  EXPECT_EQ(matrix.LoadedLine(kRecord3 + 1, 1), std::nullopt);
  EXPECT_EQ(DataMatrix(18, 1).LoadedLine(kRecord1, 1), std::nullopt);
}

TEST(DataMatrix, AFileOfMoreLinesThanRowsIsCutAtTheRows) {
  const std::string text(40, '\n');
  auto bytes = FileBytes::Allocate(text.size());
  std::memcpy(bytes->data(), text.data(), text.size());
  const DataMatrix matrix(18, 1, LoadedText(std::move(*bytes), 18, 1));
  EXPECT_TRUE(matrix.Cell(17, 1).is_text());
  EXPECT_TRUE(matrix.Cell(18, 1).is_empty());
  EXPECT_EQ(matrix.UsedRecords(1, 100), 0u);
}

TEST(DataMatrix, AnAddedColumnIsEmptyAndTouchesNoOther) {
  DataMatrix matrix = ThreeRecords();
  const std::string_view before = matrix.Cell(kRecord2, 3).text();
  const NumericColumn& numbers = matrix.Numbers(1, 3);
  EXPECT_EQ(matrix.AddColumn(), 4u);
  EXPECT_EQ(matrix.ColumnCount(), 4u);
  EXPECT_TRUE(matrix.Cell(kRecord1, 4).is_empty());
  EXPECT_TRUE(matrix.Cell(kVariableNameRow, 4).is_empty());
  EXPECT_EQ(matrix.LoadedColumns(), 3u);
  EXPECT_EQ(matrix.Cell(kRecord2, 3).text().data(), before.data());
  EXPECT_EQ(&matrix.Numbers(1, 3), &numbers);
  EXPECT_TRUE(matrix.SetNumber(kRecord1, 4, 5));
  EXPECT_EQ(matrix.Cell(kRecord1, 4).number(), 5);
}

TEST(DataMatrix, ACellMayBeSetFromAnotherCell) {
  DataMatrix matrix = ThreeRecords();
  matrix.Set(kRecord1, 3, matrix.Cell(kRecord2, 3));  // from the file into the column's own cells
  EXPECT_EQ(matrix.Cell(kRecord1, 3).text(), "a weight of more than a cell");
  matrix.Set(kRecord3, 3, matrix.Cell(kRecord1, 3));  // within them
  EXPECT_EQ(matrix.Cell(kRecord3, 3).text(), "a weight of more than a cell");
  matrix.Set(kRecord3, 1, matrix.Cell(kRecord1, 1));
  EXPECT_EQ(matrix.Cell(kRecord3, 1).text(), "34");
  matrix.Set(kRecord1, 1, matrix.Cell(kRecord1, 1));
  EXPECT_EQ(matrix.Cell(kRecord1, 1).text(), "34");
}

TEST(DataMatrix, NumbersTellBlankNumberAndText) {
  DataMatrix matrix(kFirstRecordRow + 8, 1);
  matrix.SetText(kFirstRecordRow, 1, "");
  matrix.SetNumber(kFirstRecordRow + 1, 1, 0);  // the number 0 is blank
  matrix.SetText(kFirstRecordRow + 2, 1, "0");  // the text 0 is not
  matrix.SetText(kFirstRecordRow + 3, 1, " 1,234.5 ");
  matrix.SetText(kFirstRecordRow + 4, 1, "12abc");
  matrix.SetText(kFirstRecordRow + 5, 1, " ");
  matrix.SetNumber(kFirstRecordRow + 6, 1, -2.5);
  const NumericColumn& numbers = matrix.Numbers(1, 8);
  EXPECT_EQ(numbers.values, (std::vector<double>{0, 0, 0, 1234.5, 0, 0, -2.5, 0}));
  EXPECT_EQ(numbers.classes,
            (std::vector<CellClass>{CellClass::kBlank, CellClass::kBlank, CellClass::kNumber, CellClass::kNumber,
                                    CellClass::kText, CellClass::kText, CellClass::kNumber, CellClass::kBlank}));
}

TEST(DataMatrix, NumbersAreKeptUntilARecordOfTheColumnChanges) {
  DataMatrix matrix = ThreeRecords();
  const NumericColumn* numbers = &matrix.Numbers(1, 3);
  matrix.SetText(kVariableNameRow, 1, "YEARS");  // a heading is no record
  matrix.SetText(kRecord1, 2, "5");              // another column
  EXPECT_EQ(&matrix.Numbers(1, 3), numbers);
  EXPECT_EQ(&matrix.Numbers(1, 2), numbers);
  matrix.SetText(kRecord1, 1, "35");
  EXPECT_EQ(matrix.Numbers(1, 3).values, (std::vector<double>{35, 41, 9}));
}

TEST(DataMatrix, NumbersGrowWhenMoreRecordsAreAskedFor) {
  const DataMatrix matrix = ThreeRecords();
  EXPECT_EQ(matrix.Numbers(1, 1).values.at(0), 34);
  EXPECT_EQ(matrix.Numbers(1, 3).values, (std::vector<double>{34, 41, 9}));
}

TEST(DataMatrix, NumbersOfAColumnOutsideAreNone) {
  const DataMatrix matrix = ThreeRecords();
  EXPECT_TRUE(matrix.Numbers(0, 3).values.empty());
  EXPECT_TRUE(matrix.Numbers(4, 3).values.empty());
}

TEST(DataMatrix, UsedRecordsReachToTheLastCellThatIsNotBlank) {
  DataMatrix matrix(kFirstRecordRow + 6, 2);
  EXPECT_EQ(matrix.UsedRecords(1, 6), 0u);
  matrix.SetText(kFirstRecordRow + 2, 1, "x");
  EXPECT_EQ(matrix.UsedRecords(1, 6), 3u);
  matrix.SetText(kFirstRecordRow + 4, 1, "");
  matrix.SetNumber(kFirstRecordRow + 5, 1, 0);
  EXPECT_EQ(matrix.UsedRecords(1, 6), 3u);
  EXPECT_EQ(matrix.UsedRecords(1, 2), 0u);
  matrix.SetText(kFirstRecordRow + 5, 1, "0");
  EXPECT_EQ(matrix.UsedRecords(1, 6), 6u);
  EXPECT_EQ(matrix.UsedRecords(2, 6), 0u);
  EXPECT_EQ(matrix.UsedRecords(0, 6), 0u);
  EXPECT_EQ(matrix.UsedRecords(3, 6), 0u);
}

TEST(DataMatrix, EveryRecordIsVisitedInOrderOwnedLoadedOrNeither) {
  DataMatrix matrix = ThreeRecords();
  matrix.SetText(kRecord1, 2, "one");
  matrix.AddColumn();
  for (std::size_t column = 0; column <= 5; ++column) {
    std::size_t next = 0;
    matrix.ForEachRecord(column, 5, [&](std::size_t index, const TaggedView& cell) {
      ASSERT_EQ(index, next++);
      ASSERT_EQ(cell, matrix.Cell(kFirstRecordRow + index, column)) << column;
    });
    EXPECT_EQ(next, 5u) << column;
  }
}

}  // namespace
}  // namespace tessara
