#include "presentation/table_edit.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "platform/scripted_platform.h"
#include "platform/tests/failing_memory.h"
#include "presentation/table_steps.h"

namespace tessara {
namespace {

// Rows of cells, "|" between the cells and "/" behind each row.
std::string Picture(const TableGrid& grid) {
  std::string picture;
  for (std::size_t row = 1; row <= grid.RowCount(); ++row) {
    for (std::size_t column = 1; column <= grid.ColumnCount(); ++column) {
      picture += (column > 1 ? "|" : "") + grid.Text(row, column);
    }
    picture += "/";
  }
  return picture;
}

class TableEdit : public testing::Test {
 protected:
  TableEdit() {
    const std::vector<std::vector<std::string>> rows = {
        {"Control", "", "Yes", "No"}, {"Sex", "", "", ""}, {"male", "Percent", "40.0%", "60.0%"}};
    for (std::size_t row = 0; row < rows.size(); ++row) {
      for (std::size_t column = 0; column < 4; ++column) grid.SetText(row + 1, column + 1, rows[row][column]);
    }
    grid.SetRowTag(1, "heading categorical");
    grid.Edit(3, 3).tag = "male yes";
  }

  void Select(std::size_t row, std::size_t column, std::size_t last_row, std::size_t last_column) {
    SelectInTable(grid, face, {row, column}, {last_row, last_column});
  }
  void Select(std::size_t row, std::size_t column) { Select(row, column, row, column); }
  bool Undo() { return UndoTableStep(grid, face); }
  bool Redo() { return RedoTableStep(grid, face); }

  const std::string whole = "Control||Yes|No/Sex|||/male|Percent|40.0%|60.0%/";
  TableGrid grid;
  TableFace face;
  ScriptedPlatform platform;
};

TEST_F(TableEdit, TypingWritesTheTextWithoutItsLineEnds) {
  Select(2, 1);
  TypeIntoTable(grid, face, "Sex of\r\nthe child\n");
  EXPECT_EQ(grid.Text(2, 1), "Sex ofthe child");
  EXPECT_EQ(UndoTableName(face), "Typing");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_TRUE(Redo());
  EXPECT_EQ(grid.Text(2, 1), "Sex ofthe child");
}

TEST_F(TableEdit, TypingBehindTheTableMakesItGrowAndUndoTakesThatBack) {
  Select(5, 6);
  TypeIntoTable(grid, face, "Note");
  EXPECT_EQ(grid.RowCount(), 5u);
  EXPECT_EQ(grid.ColumnCount(), 6u);
  EXPECT_EQ(grid.Text(5, 6), "Note");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_TRUE(Redo());
  EXPECT_EQ(Picture(grid), "Control||Yes|No||/Sex|||||/male|Percent|40.0%|60.0%||/|||||/|||||Note/");
}

TEST_F(TableEdit, WhatIsWrittenAsItStandsIsNoStep) {
  Select(3, 1);
  TypeIntoTable(grid, face, "male");
  Select(8, 5);
  TypeIntoTable(grid, face, "");
  EXPECT_EQ(grid.RowCount(), 3u);
  EXPECT_FALSE(Undo());
}

TEST_F(TableEdit, ACellKeepsWhatItStandsForWhateverIsTypedThere) {
  Select(3, 3);
  TypeIntoTable(grid, face, "40");
  EXPECT_EQ(grid.Cell(3, 3).tag, "male yes");
  ClearTableCells(grid, face);
  EXPECT_EQ(grid.Cell(3, 3).tag, "male yes");
}

TEST_F(TableEdit, TheFirstTextOfAnEmptyTable) {
  TableGrid empty;
  TableFace of_empty;
  SelectInTable(empty, of_empty, {2, 3}, {2, 3});
  TypeIntoTable(empty, of_empty, "a");
  EXPECT_EQ(Picture(empty), "||/||a/");
  EXPECT_TRUE(UndoTableStep(empty, of_empty));
  EXPECT_TRUE(empty.empty());
  EXPECT_EQ(empty.ColumnCount(), 0u);
  EXPECT_TRUE(RedoTableStep(empty, of_empty));
  EXPECT_EQ(Picture(empty), "||/||a/");
}

TEST_F(TableEdit, CopyTakesTabsBetweenCellsAndReturnsBetweenRows) {
  Select(3, 4, 2, 3);
  CopyTableCells(grid, face, platform);
  EXPECT_EQ(platform.clipboard, "\t\r40.0%\t60.0%");
  EXPECT_FALSE(Undo());
}

TEST_F(TableEdit, CopyBehindTheTableTakesEmptyCells) {
  Select(3, 4, 4, 5);
  CopyTableCells(grid, face, platform);
  EXPECT_EQ(platform.clipboard, "60.0%\t\r\t");
}

TEST_F(TableEdit, CutCopiesAndEmpties) {
  Select(3, 1, 3, 2);
  CutTableCells(grid, face, platform);
  EXPECT_EQ(platform.clipboard, "male\tPercent");
  EXPECT_EQ(Picture(grid), "Control||Yes|No/Sex|||/||40.0%|60.0%/");
  EXPECT_EQ(UndoTableName(face), "Cut");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, DeleteBehindTheTableDoesNothing) {
  Select(6, 2, 8, 3);
  ClearTableCells(grid, face);
  EXPECT_FALSE(Undo());
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, PasteFillsABlockFromTheFirstSelectedCellOn) {
  Select(3, 4, 2, 3);  // the cursor in the last corner
  EXPECT_TRUE(PasteIntoTable(grid, face, "a\tb\rc\td", platform));
  EXPECT_EQ(Picture(grid), "Control||Yes|No/Sex||a|b/male|Percent|c|d/");
  EXPECT_EQ(face.selection, (TableSelection{{2, 3}, {3, 4}}));
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_EQ(face.selection, (TableSelection{{3, 4}, {2, 3}}));
}

TEST_F(TableEdit, PasteGrowsTheTable) {
  Select(3, 4);
  EXPECT_TRUE(PasteIntoTable(grid, face, "1\t2\r\n3\t4\r\n", platform));
  EXPECT_EQ(Picture(grid), "Control||Yes|No|/Sex||||/male|Percent|40.0%|1|2/|||3|4/");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, PasteOfLinesOfDifferentLengthLosesNothing) {
  Select(2, 1);
  EXPECT_TRUE(PasteIntoTable(grid, face, "a\rb\tc\td", platform));
  EXPECT_EQ(Picture(grid), "Control||Yes|No/a|||/b|c|d|60.0%/");
}

TEST_F(TableEdit, PasteOfNothingAndOfALineEnd) {
  Select(3, 1);
  EXPECT_TRUE(PasteIntoTable(grid, face, "", platform));
  EXPECT_FALSE(Undo());
  EXPECT_TRUE(PasteIntoTable(grid, face, "\r\n", platform));
  EXPECT_EQ(grid.Text(3, 1), "");
  EXPECT_EQ(grid.RowCount(), 3u);
}

TEST_F(TableEdit, APasteBeyondTheLimitIsRefusedWithItsSize) {
  Select(3, 3);
  std::string text(1000, '\r');  // 1,001 rows, one of them of 2,000 cells
  text += std::string(1999, '\t');
  EXPECT_FALSE(PasteIntoTable(grid, face, text, platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Operation Aborted!");
  EXPECT_EQ(platform.messages[0].text,
            "The text has 1,001 rows and 2,000 columns, and the table has no room for them. It can grow to "
            "1,000,000 cells in 10,000 columns.");
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_FALSE(Undo());
}

TEST_F(TableEdit, AMegabyteOfReturnsOrTabsIsRefused) {
  Select(1, 1);
  EXPECT_FALSE(PasteIntoTable(grid, face, std::string(std::size_t{1} << 20, '\r'), platform));
  EXPECT_FALSE(PasteIntoTable(grid, face, std::string(std::size_t{1} << 20, '\t'), platform));
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, AMegabyteInOneCellStaysWhole) {
  Select(1, 1);
  const std::string text(std::size_t{1} << 20, 'x');
  EXPECT_TRUE(PasteIntoTable(grid, face, text, platform));
  EXPECT_EQ(grid.Text(1, 1), text);
}

TEST_F(TableEdit, DeletedRowsComeBackWithTheirTags) {
  Select(2, 4, 1, 4);
  DeleteTableRows(grid, face);
  EXPECT_EQ(Picture(grid), "male|Percent|40.0%|60.0%/");
  EXPECT_EQ(face.selection, (TableSelection{{1, 4}, {1, 4}}));
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_EQ(grid.RowTag(1), "heading categorical");
  EXPECT_EQ(face.selection, (TableSelection{{2, 4}, {1, 4}}));
}

TEST_F(TableEdit, DeletedColumnsComeBackWithTheirWidths) {
  grid.SetWidth(3, 700);
  Select(1, 3, 3, 6);
  DeleteTableColumns(grid, face);
  EXPECT_EQ(Picture(grid), "Control|/Sex|/male|Percent/");
  EXPECT_EQ(grid.Width(3), kUsualTableWidth);
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
  EXPECT_EQ(grid.Width(3), 700);
}

TEST_F(TableEdit, EveryRowCanBeDeletedTheLabelsToo) {
  SelectTable(grid, face);
  DeleteTableRows(grid, face);
  EXPECT_TRUE(grid.empty());
  EXPECT_TRUE(Undo());
  SelectTable(grid, face);
  DeleteTableColumns(grid, face);
  EXPECT_TRUE(grid.empty());
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, DeletingBehindTheTableDoesNothing) {
  Select(4, 5, 6, 6);
  DeleteTableRows(grid, face);
  DeleteTableColumns(grid, face);
  EXPECT_FALSE(Undo());
}

TEST_F(TableEdit, AlignmentIsThatOfTheSelectedCells) {
  Select(1, 3, 9, 3);
  AlignTableCells(grid, face, TableAlignment::kCentre);
  EXPECT_EQ(grid.Cell(1, 3).alignment, TableAlignment::kCentre);
  EXPECT_EQ(grid.Cell(3, 3).alignment, TableAlignment::kCentre);
  EXPECT_EQ(grid.Cell(3, 4).alignment, TableAlignment::kRight);
  EXPECT_EQ(grid.RowCount(), 3u);
  AlignTableCells(grid, face, TableAlignment::kCentre);  // as they are
  EXPECT_TRUE(Undo());
  EXPECT_EQ(grid.Cell(3, 3).alignment, TableAlignment::kRight);
  EXPECT_FALSE(Undo());
}

TEST_F(TableEdit, AColumnFitsItsLongestText) {
  FitTableColumn(grid, face, 2);
  EXPECT_EQ(grid.Width(2), 900);  // "Percent" and a gap of two
  SetTableColumnWidth(grid, face, 2, 1500);
  EXPECT_EQ(grid.Width(2), 1500);
  EXPECT_TRUE(Undo());
  EXPECT_EQ(grid.Width(2), 900);
  SetTableColumnWidth(grid, face, 2, 0);
  SetTableColumnWidth(grid, face, 2, -5);
  EXPECT_EQ(grid.Width(2), 900);
}

TEST_F(TableEdit, ATableThatIsReplacedOrEmptiedComesBack) {
  TableGrid next = grid;
  next.SetText(4, 1, "female");
  ReplaceTable(grid, face, next, "Summary Table");
  EXPECT_EQ(grid.Text(4, 1), "female");
  EmptyTable(grid, face);
  EXPECT_TRUE(grid.empty());
  EXPECT_EQ(UndoTableName(face), "Clear");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(grid.Text(4, 1), "female");
  EXPECT_EQ(UndoTableName(face), "Summary Table");
  EXPECT_EQ(RedoTableName(face), "Clear");
  EXPECT_TRUE(Undo());
  EXPECT_EQ(Picture(grid), whole);
}

TEST_F(TableEdit, EachStepCountsAsAChange) {
  const auto before = grid.revision();
  Select(1, 1);
  TypeIntoTable(grid, face, "a");
  const auto typed = grid.revision();
  EXPECT_GT(typed, before);
  EmptyTable(grid, face);
  const auto emptied = grid.revision();
  EXPECT_GT(emptied, typed);
  Undo();
  const auto back = grid.revision();
  EXPECT_GT(back, emptied);
  Undo();
  EXPECT_GT(grid.revision(), back);
}

TEST_F(TableEdit, AChangeEndsWhatCouldBeMadeAgain) {
  Select(1, 1);
  TypeIntoTable(grid, face, "a");
  Undo();
  TypeIntoTable(grid, face, "b");
  EXPECT_FALSE(Redo());
  EXPECT_EQ(RedoTableName(face), "");
}

TEST_F(TableEdit, TheOldestStepsAreForgotten) {
  Select(1, 1);
  for (std::size_t i = 0; i < kMostTableSteps + 20; ++i) TypeIntoTable(grid, face, std::to_string(i));
  std::size_t steps = 0;
  while (Undo()) ++steps;
  EXPECT_EQ(steps, kMostTableSteps);
  EXPECT_EQ(grid.Text(1, 1), "19");
}

TEST_F(TableEdit, StepsAreBoundedByTheirBytesAndTheLastOneStays) {
  const auto replace_by = [this](std::size_t bytes, char last) {
    TableGrid next;
    next.SetText(1, 1, std::string(bytes, 'x') + last);
    ReplaceTable(grid, face, std::move(next), "Summary Table");
  };
  for (const char last : {'a', 'b', 'c', 'd'}) replace_by(kMostStepBytes / 2, last);
  EXPECT_EQ(face.done.size(), 1u);  // two of these are too many
  replace_by(kMostStepBytes, 'e');
  replace_by(10, 'f');
  EXPECT_EQ(face.done.size(), 1u);
  EXPECT_TRUE(Undo());
  EXPECT_EQ(grid.Text(1, 1).back(), 'e');
  EXPECT_TRUE(Redo());
  EXPECT_EQ(grid.Text(1, 1).back(), 'f');
}

// Whatever request of memory fails: the table, its steps and its selection are as they were.
TEST_F(TableEdit, WithoutMemoryEverythingStays) {
  grid.SetText(2, 3, "a text that is too long to have its place within the cell itself");
  const std::string stands = Picture(grid);
  const std::function<void()> changes[] = {
      [this] { TypeIntoTable(grid, face, "another text that is too long to have its place within the cell"); },
      [this] {
        PasteIntoTable(grid, face, "some more texts that are too long\tfor their cells\rto have room", platform);
      },
      [this] { CutTableCells(grid, face, platform); },
      [this] { DeleteTableRows(grid, face); },
      [this] { DeleteTableColumns(grid, face); },
      [this] { AlignTableCells(grid, face, TableAlignment::kCentre); },
      [this] { FitTableColumn(grid, face, 4); },
      [this] { EmptyTable(grid, face); }};
  for (const auto& change : changes) {
    bool came_through = false;
    for (std::size_t allowed = 0; !came_through && allowed < 1000; ++allowed) {
      Select(2, 3, 4, 5);
      {
        const FailingMemory memory(allowed);
        try {
          change();
        } catch (const std::bad_alloc&) {
        }
        came_through = !memory.HasFailed();
      }
      if (came_through) break;
      ASSERT_EQ(Picture(grid), stands) << allowed;
      ASSERT_TRUE(face.done.empty()) << allowed;
      ASSERT_EQ(face.selection, (TableSelection{{2, 3}, {4, 5}})) << allowed;
    }
    ASSERT_TRUE(came_through);
    ASSERT_EQ(face.done.size(), 1u);
    ASSERT_TRUE(Undo());
    ASSERT_EQ(Picture(grid), stands);
    face.undone.clear();
  }
}

}  // namespace
}  // namespace tessara
