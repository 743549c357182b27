#include "data/edit/block_edit.h"

#include "data/edit/tests/edit_fixture.h"
#include "platform/tests/failing_memory.h"

namespace tessara {
namespace {

class BlockEditTest : public EditFixture {
 protected:
  // Pastes with the cursor in a place.
  PasteSize Paste(const GridPlace& place, std::string_view text) {
    MoveCursor(data, place);
    return PasteText(data, text, platform);
  }
};

// Copy.

TEST_F(BlockEditTest, ABlockHasTabsBetweenCellsAndReturnsBetweenRows) {
  EXPECT_EQ(BlockText(data, {2, 3, 1, 2}), "2.1\t2.2\r3.1\t3.2");
  EXPECT_EQ(BlockText(data, {5, 5, 4, 4}), "5.4");
}

TEST_F(BlockEditTest, HeadingsArePartOfABlockAndRecordNumbersAreNot) {
  EXPECT_EQ(BlockText(data, {0, 2, 3, 3}), "C\r1.3\r2.3");
  EXPECT_EQ(BlockText(data, {2, 2, 0, 4}), "2.1\t2.2\t2.3\t2.4");
}

TEST_F(BlockEditTest, WhatReachesBeyondTheDataIsCut) {
  EXPECT_EQ(BlockText(data, {6, 99, 4, 99}), "6.4");
  EXPECT_EQ(BlockText(data, {7, 99, 1, 1}), "");
}

TEST_F(BlockEditTest, CopyReplacesTheClipboard) {
  platform.clipboard = "before";
  platform.clipboard_html = "<b>before</b>";
  CopyBlock(data, {1, 1, 1, 2}, platform);
  EXPECT_EQ(platform.clipboard, "1.1\t1.2");
  EXPECT_EQ(platform.clipboard_html, "");
  EXPECT_FALSE(data.DataDirty);
}

// The Delete key and Cut.

TEST_F(BlockEditTest, DeleteLeavesEmptyTextInOneStep) {
  ClearBlock(data, {2, 3, 2, 3}, platform);
  EXPECT_EQ(Cells({1, 4, 2, 3}), "1.2 1.3/ / /4.2 4.3");
  EXPECT_EQ(data.matrix.Cell(kHeaderRowCount + 2, 2), TaggedView(""));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Delete");
  UndoChange(data);
  EXPECT_EQ(Cells({1, 4, 2, 3}), "1.2 1.3/2.2 2.3/3.2 3.3/4.2 4.3");
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(BlockEditTest, DeleteOnHeadingsClearsTheNames) {
  ClearBlock(data, {0, 0, 2, 3}, platform);
  EXPECT_EQ(Cells({0, 1, 1, 4}), "A   D/1.1 1.2 1.3 1.4");
  EXPECT_EQ(data.VarList[2].name, "B");  // the lists are not rebuilt
}

TEST_F(BlockEditTest, DeleteOnAWholeRowLeavesTheOthers) {
  ClearBlock(data, {6, 6, 0, 4}, platform);
  EXPECT_EQ(Cells({5, 6, 1, 2}), "5.1 5.2/ ");
}

TEST_F(BlockEditTest, CutCopiesAndBlanks) {
  CutBlock(data, {1, 2, 1, 1}, platform, platform);
  EXPECT_EQ(platform.clipboard, "1.1\r2.1");
  EXPECT_EQ(Cells({1, 3, 1, 1}), "//3.1");
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Cut");
}

TEST_F(BlockEditTest, AboveTheLimitTheDataAreReadOnly) {
  Begin(10001, 20);
  platform.clipboard = "before";
  ClearBlock(data, {1, 1, 1, 1}, platform);
  ExpectBox("Operation Aborted!", kNoEntryText);
  CutBlock(data, {1, 1, 1, 1}, platform, platform);
  ExpectBox("Operation Aborted!", kNoEntryText);
  EXPECT_EQ(platform.clipboard, "before");
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(Paste({1, 1}, "x"), (PasteSize{0, 0}));
  ExpectBox("Operation Aborted!", kNoEntryText);
  EXPECT_TRUE(data.DataDirty);  // which a paste sets first of all
  EXPECT_EQ(Cell(1, 1), "1.1");
  CopyBlock(data, {1, 1, 1, 2}, platform);
  EXPECT_EQ(platform.clipboard, "1.1\t1.2");
}

TEST_F(BlockEditTest, ABlockMayBeClearedWhereAnEntryIsRefused) {
  Begin(9600, 20);
  ClearBlock(data, {1, 1, 1, 1}, platform);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(Cell(1, 1), "");
}

// The size of a paste.

TEST_F(BlockEditTest, TheSizeComesFromTheCountsOfTabsAndReturns) {
  const std::pair<const char*, PasteSize> cases[] = {
      {"a", {1, 1}},
      {"a\tb\tc", {1, 3}},
      {"a\rb", {2, 1}},
      {"a\tb\rc\td", {2, 2}},
      {"a\tb\r\nc\td\r\n", {2, 2}},  // as a spreadsheet leaves it
      {"a\tb\rc\td\r", {2, 2}},
      {"a\r\r", {2, 1}},          // one empty line is none, the one ahead of it is one
      {"a\tb\tc\rd", {2, 2}},     // two tabs in two lines
      {"a\tb\tc\rd\re", {3, 1}},  // two tabs in three lines
      {"\r", {1, 1}},
      {"\t", {1, 2}},
  };
  for (const auto& [text, size] : cases) {
    EXPECT_EQ(SizeOfPaste(text).rows, size.rows) << text;
    EXPECT_EQ(SizeOfPaste(text).columns, size.columns) << text;
  }
}

// Paste.

TEST_F(BlockEditTest, APasteFillsTheBlockFromTheCursorOnInOneStep) {
  EXPECT_EQ(Paste({2, 2}, "a\tb\r\nc\td\r\n"), (PasteSize{2, 2}));
  EXPECT_EQ(Cells({1, 4, 1, 4}), "1.1 1.2 1.3 1.4/2.1 a b 2.4/3.1 c d 3.4/4.1 4.2 4.3 4.4");
  EXPECT_EQ(data.matrix.Cell(kHeaderRowCount + 2, 2), TaggedView("a"));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(UndoName(data), "Paste");
  UndoChange(data);
  EXPECT_EQ(Cells({2, 3, 2, 3}), "2.2 2.3/3.2 3.3");
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(BlockEditTest, AtTheCornerOnlyWhatFitsIsTaken) {
  EXPECT_EQ(Paste({6, 4}, "a\tb\rc\td"), (PasteSize{1, 1}));
  EXPECT_EQ(Cells({5, 6, 3, 4}), "5.3 5.4/6.3 a");
  EXPECT_EQ(data.RecordCount, 6u);
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(BlockEditTest, AShorterLineLeavesBlankCells) {
  Paste({1, 1}, "a\tb\tc\r\nd\r\ne\tf\tg\th\ti\r\n");  // six tabs in three lines: three columns
  EXPECT_EQ(Cells({1, 3, 1, 4}), "a b c 1.4/d   2.4/e f g 3.4");
  EXPECT_TRUE(data.matrix.Cell(kHeaderRowCount + 2, 2).is_blank());
}

TEST_F(BlockEditTest, AnEmptyLineInTheMiddleBlanksItsCells) {
  Paste({1, 1}, "a\r\n\r\nb\r\n");
  EXPECT_EQ(Cells({1, 4, 1, 1}), "a//b/4.1");
}

TEST_F(BlockEditTest, CommasComeInAndLineFeedsDoNot) {
  Paste({1, 1}, "1,5\tx\ny\r\n2,5\tz\n\n");
  EXPECT_EQ(Cells({1, 2, 1, 2}), "1,5 xy/2,5 z");
}

TEST_F(BlockEditTest, TheSeparatorOfTheDataFileDoesNotComeIn) {
  Paste({1, 1},
        "a\x01"
        "b");
  EXPECT_EQ(Cell(1, 1), "ab");
}

TEST_F(BlockEditTest, APasteOnAHeadingNamesVariables) {
  EXPECT_EQ(Paste({0, 3}, "AGE\tSEX\r34\t1\r"), (PasteSize{2, 2}));
  EXPECT_EQ(Cells({0, 2, 2, 4}), "B AGE SEX/1.2 34 1/2.2 2.3 2.4");
  EXPECT_EQ(data.VarList[3].name, "C");
}

TEST_F(BlockEditTest, WholeRowsGoBackWhereTheyCameFrom) {
  PutCursor(2, 0);
  CopyBlock(data, {2, 3, 0, 4}, platform);
  EXPECT_EQ(Paste({5, 0}, platform.clipboard), (PasteSize{2, 4}));
  EXPECT_EQ(Cells({5, 6, 1, 4}), "2.1 2.2 2.3 2.4/3.1 3.2 3.3 3.4");
}

TEST_F(BlockEditTest, AnEmptyClipboardMarksTheDataAndPastesNothing) {
  EXPECT_EQ(Paste({1, 1}, ""), (PasteSize{0, 0}));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_FALSE(CanUndo(data));
  EXPECT_EQ(Cell(1, 1), "1.1");
}

TEST_F(BlockEditTest, NothingFitsIntoDataWithoutARecord) {
  BeginBlank(0, 2);
  PutCursor(1, 1);
  EXPECT_EQ(PasteText(data, "a", platform), (PasteSize{0, 0}));
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(BlockEditTest, AHundredThousandLinesComeInAndGoOut) {
  BeginBlank(100'000, 2);
  std::string text;
  for (int line = 1; line <= 100'000; ++line) text += std::to_string(line) + "\t" + std::to_string(-line) + "\r\n";
  EXPECT_EQ(Paste({1, 1}, text), (PasteSize{100'000, 2}));
  EXPECT_EQ(Cells({99'999, 100'000, 1, 2}), "99999 -99999/100000 -100000");
  UndoChange(data);
  EXPECT_TRUE(data.matrix.Cell(kHeaderRowCount + 100'000, 2).is_empty());
  EXPECT_EQ(data.matrix.UsedRecords(1, 100'000), 0u);
}

TEST_F(BlockEditTest, WithoutMemoryNothingIsPasted) {
  const std::string text = "a text that is longer than a cell holds itself\tb\rc\td";
  std::size_t allowed = 0;
  for (bool failed = true; failed; ++allowed) {
    Begin(6, 4);
    failed = false;
    {
      const FailingMemory memory(allowed);
      try {
        PasteText(data, text, platform);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    EXPECT_EQ(Cells({1, 2, 1, 2}), "1.1 1.2/2.1 2.2") << allowed;
    EXPECT_FALSE(CanUndo(data)) << allowed;
  }
  EXPECT_GT(allowed, 3u);
  EXPECT_EQ(Cell(2, 2), "d");
}

}  // namespace
}  // namespace tessara
