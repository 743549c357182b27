#include "presentation/table_grid.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

TableGrid TwoByThree() {
  TableGrid grid;
  for (std::size_t row = 1; row <= 2; ++row) {
    for (std::size_t column = 1; column <= 3; ++column) {
      grid.SetText(row, column, std::to_string(row) + "." + std::to_string(column));
    }
  }
  return grid;
}

TEST(TableGrid, AGridBeginsEmptyAndGrowsAsFarAsItIsWritten) {
  TableGrid grid;
  EXPECT_TRUE(grid.empty());
  grid.SetText(2, 3, "x");
  EXPECT_EQ(grid.RowCount(), 2u);
  EXPECT_EQ(grid.ColumnCount(), 3u);
  EXPECT_EQ(grid.Text(2, 3), "x");
  EXPECT_EQ(grid.Text(1, 1), "");
  EXPECT_EQ(grid.Text(9, 9), "");
}

TEST(TableGrid, LabelsStandAtTheLeftAndDataAtTheRight) {
  TableGrid grid;
  grid.SetText(1, 4, "x");
  EXPECT_EQ(grid.Cell(1, 1).alignment, TableAlignment::kLeft);
  EXPECT_EQ(grid.Cell(1, 2).alignment, TableAlignment::kLeft);
  EXPECT_EQ(grid.Cell(1, 3).alignment, TableAlignment::kRight);
  EXPECT_EQ(grid.Cell(5, 9).alignment, TableAlignment::kRight);
}

TEST(TableGrid, RowsAndColumnsGoWithTheirTagsAndWidths) {
  TableGrid grid = TwoByThree();
  grid.SetRowTag(2, "second");
  grid.Edit(1, 3).tag = "third";
  grid.SetWidth(3, 700);
  grid.RemoveColumns(2, 1);
  EXPECT_EQ(grid.ColumnCount(), 2u);
  EXPECT_EQ(grid.Text(1, 2), "1.3");
  EXPECT_EQ(grid.Cell(1, 2).tag, "third");
  EXPECT_EQ(grid.Width(2), 700);
  grid.RemoveRows(1, 1);
  EXPECT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.RowTag(1), "second");
  EXPECT_EQ(grid.Text(1, 1), "2.1");
}

TEST(TableGrid, RowsAndColumnsComeAheadOfAPlace) {
  TableGrid grid = TwoByThree();
  grid.InsertRows(2, 1);
  EXPECT_EQ(grid.RowCount(), 3u);
  EXPECT_EQ(grid.Text(2, 1), "");
  EXPECT_EQ(grid.Text(3, 1), "2.1");
  grid.SetWidth(3, 700);
  grid.InsertColumns(3, 2);
  EXPECT_EQ(grid.ColumnCount(), 5u);
  EXPECT_EQ(grid.Text(1, 5), "1.3");
  EXPECT_EQ(grid.Width(5), 700);
  EXPECT_EQ(grid.Cell(1, 3).alignment, TableAlignment::kRight);
}

TEST(TableGrid, WhatReachesBeyondTheUsedAreaIsCut) {
  TableGrid grid = TwoByThree();
  grid.RemoveRows(2, 99);
  grid.RemoveColumns(3, 99);
  EXPECT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.ColumnCount(), 2u);
  grid.RemoveRows(7, 1);
  grid.RemoveColumns(0, 1);
  EXPECT_EQ(grid.RowCount(), 1u);
  EXPECT_EQ(grid.ColumnCount(), 2u);
}

TEST(TableGrid, AFittedColumnHasItsLongestTextAndAGap) {
  TableGrid grid = TwoByThree();
  EXPECT_EQ(grid.Width(1), kUsualTableWidth);
  grid.SetText(2, 1, "twelve chars");
  grid.FitColumns();
  EXPECT_EQ(grid.Width(1), 1400);
  EXPECT_EQ(grid.Width(2), 500);
}

TEST(TableGrid, EveryChangeCounts) {
  TableGrid grid = TwoByThree();
  std::uint64_t before = grid.revision();
  grid.SetText(1, 1, "x");
  EXPECT_NE(grid.revision(), before);
  before = grid.revision();
  grid.SetWidth(1, 300);
  EXPECT_NE(grid.revision(), before);
  before = grid.revision();
  grid.Clear();
  EXPECT_NE(grid.revision(), before);
  EXPECT_TRUE(grid.empty());
}

TEST(TableGrid, ColumnsThatComeAtOnceWithTheLabelsAreAlignedAsTheirOwn) {
  TableGrid grid;
  grid.SetText(1, 5, "7");
  EXPECT_EQ(grid.Cell(1, 2).alignment, TableAlignment::kLeft);
  EXPECT_EQ(grid.Cell(1, 4).alignment, TableAlignment::kRight);
  EXPECT_EQ(grid.Cell(1, 5).alignment, TableAlignment::kRight);
}

}  // namespace
}  // namespace tessara
