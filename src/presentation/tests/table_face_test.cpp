#include "presentation/table_face.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

TableGrid FourByThree() {
  TableGrid grid;
  grid.SetText(4, 3, "x");
  return grid;
}

TEST(TableFace, EmptyRowsAndColumnsStandBehindTheTable) {
  EXPECT_EQ(ShownTableRows(FourByThree()), 14u);
  EXPECT_EQ(ShownTableRows(TableGrid()), 10u);
  EXPECT_EQ(ShownTableColumns(TableGrid()), 6u);
  TableGrid wide;
  wide.SetText(1, 12, "x");
  EXPECT_EQ(ShownTableColumns(wide), 14u);
}

TEST(TableFace, PastTheLastColumnLiesTheFirstOneOfTheNextRow) {
  const TableGrid grid = FourByThree();
  EXPECT_EQ(PlaceBehind(grid, {2, 2}, TableMove::kRight), (TablePlace{2, 3}));
  EXPECT_EQ(PlaceBehind(grid, {2, 3}, TableMove::kRight), (TablePlace{3, 1}));
  EXPECT_EQ(PlaceBehind(grid, {2, 3}, TableMove::kNext), (TablePlace{3, 1}));
  EXPECT_EQ(PlaceBehind(grid, {4, 3}, TableMove::kNext), (TablePlace{5, 1}));
  EXPECT_EQ(PlaceBehind(grid, {14, 3}, TableMove::kNext), (TablePlace{14, 3}));  // the last row shown
}

TEST(TableFace, BehindTheUsedAreaTheRowEndsWithWhatIsShown) {
  const TableGrid grid = FourByThree();
  EXPECT_EQ(PlaceBehind(grid, {2, 4}, TableMove::kRight), (TablePlace{2, 5}));
  EXPECT_EQ(PlaceBehind(grid, {2, 6}, TableMove::kRight), (TablePlace{3, 1}));
  EXPECT_EQ(PlaceBehind(TableGrid(), {1, 1}, TableMove::kRight), (TablePlace{1, 2}));
}

TEST(TableFace, EdgesEndTheOtherMoves) {
  const TableGrid grid = FourByThree();
  EXPECT_EQ(PlaceBehind(grid, {1, 1}, TableMove::kUp), (TablePlace{1, 1}));
  EXPECT_EQ(PlaceBehind(grid, {3, 1}, TableMove::kLeft), (TablePlace{3, 1}));
  EXPECT_EQ(PlaceBehind(grid, {14, 2}, TableMove::kDown), (TablePlace{14, 2}));
  EXPECT_EQ(PlaceBehind(grid, {3, 1}, TableMove::kPrevious), (TablePlace{2, 3}));
  EXPECT_EQ(PlaceBehind(grid, {1, 1}, TableMove::kPrevious), (TablePlace{1, 1}));
}

TEST(TableFace, FarMovesStopAtTheEdgeOfTheTableFirst) {
  const TableGrid grid = FourByThree();
  EXPECT_EQ(EdgeOfTable(grid, {2, 1}, TableMove::kRight), (TablePlace{2, 3}));
  EXPECT_EQ(EdgeOfTable(grid, {2, 3}, TableMove::kRight), (TablePlace{2, 6}));
  EXPECT_EQ(EdgeOfTable(grid, {2, 6}, TableMove::kLeft), (TablePlace{2, 3}));
  EXPECT_EQ(EdgeOfTable(grid, {2, 3}, TableMove::kLeft), (TablePlace{2, 1}));
  EXPECT_EQ(EdgeOfTable(grid, {1, 2}, TableMove::kDown), (TablePlace{4, 2}));
  EXPECT_EQ(EdgeOfTable(grid, {4, 2}, TableMove::kDown), (TablePlace{14, 2}));
  EXPECT_EQ(EdgeOfTable(grid, {9, 2}, TableMove::kUp), (TablePlace{4, 2}));
  EXPECT_EQ(EdgeOfTable(grid, {4, 2}, TableMove::kUp), (TablePlace{1, 2}));
}

TEST(TableFace, TheSelectionStaysWithinWhatIsShown) {
  const TableGrid grid = FourByThree();
  TableFace face;
  SelectInTable(grid, face, {3, 2}, {100, 100});
  EXPECT_EQ(face.selection.end, (TablePlace{14, 6}));
  const TableBlock used = UsedSelection(grid, face);
  EXPECT_EQ(used.first_row, 3u);
  EXPECT_EQ(used.last_row, 4u);
  EXPECT_EQ(used.last_column, 3u);
  FollowTable(TableGrid(), face);
  EXPECT_EQ(face.selection.end, (TablePlace{10, 6}));
  EXPECT_TRUE(IsEmptyBlock(UsedSelection(TableGrid(), face)));
}

TEST(TableFace, SelectAllTakesTheUsedArea) {
  const TableGrid grid = FourByThree();
  TableFace face;
  SelectTable(grid, face);
  EXPECT_EQ(face.selection, (TableSelection{{1, 1}, {4, 3}}));
  MoveInTable(grid, face, {2, 2});
  SelectTable(TableGrid(), face);  // nothing to select
  EXPECT_EQ(face.selection, (TableSelection{{2, 2}, {2, 2}}));
}

}  // namespace
}  // namespace tessara
