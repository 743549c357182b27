#include "data/edit/cell_entry.h"

#include "data/edit/tests/edit_fixture.h"
#include "platform/tests/failing_memory.h"

namespace tessara {
namespace {

class CellEntryTest : public EditFixture {
 protected:
  // Types a text over a cell and ends the entry.
  void Type(const GridPlace& place, const std::string& text, EntryKey key) {
    MoveCursor(data, place);
    ASSERT_TRUE(StartEntry(entry, data, platform));
    entry.text = text;
    CommitByKey(entry, data, key);
  }

  CellEntry entry;
};

// Which data allow an entry.

TEST_F(CellEntryTest, AnEntryTakesTheTextOfItsCell) {
  PutCursor(2, 3);
  ASSERT_TRUE(StartEntry(entry, data, platform));
  EXPECT_TRUE(entry.open);
  EXPECT_EQ(entry.text, "2.3");
  EXPECT_EQ(entry.place, (GridPlace{2, 3}));
  EXPECT_FALSE(data.DataDirty);
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(CellEntryTest, AColumnTooManyForTheLimitRefusesTheEntry) {
  BeginBlank(9600, 20);  // 192,000 cells, but 9600 times 21 is above the limit
  EXPECT_FALSE(StartEntry(entry, data, platform));
  EXPECT_FALSE(entry.open);
  ExpectBox("Operation Aborted!", kNoEntryText);
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(CellEntryTest, TheLimitItselfIsRefusedAndACellLessIsNot) {
  BeginBlank(10000, 19);  // times 20: 200,000
  EXPECT_FALSE(StartEntry(entry, data, platform));
  platform.messages.clear();
  BeginBlank(9999, 19);  // times 20: 199,980
  EXPECT_TRUE(StartEntry(entry, data, platform));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(CellEntryTest, RecordNumbersAreNoCells) {
  PutCursor(2, 0);
  EXPECT_FALSE(StartEntry(entry, data, platform));
  EXPECT_TRUE(platform.messages.empty());
}

// The commit.

TEST_F(CellEntryTest, ACommitWritesTextAndMarksTheData) {
  Type({2, 3}, "7", EntryKey::kDown);
  EXPECT_EQ(data.matrix.Cell(kHeaderRowCount + 2, 3), TaggedView("7"));
  EXPECT_TRUE(data.DataDirty);
  EXPECT_FALSE(entry.open);
  EXPECT_EQ(entry.text, "");
  EXPECT_EQ(UndoName(data), "Typing");
  UndoChange(data);
  EXPECT_EQ(Cell(2, 3), "2.3");
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(CellEntryTest, LineEndsAndTheSeparatorOfFilesAreTakenOut) {
  Type({1, 1}, "a\r\nb\x01" + std::string("c\n"), EntryKey::kDown);
  EXPECT_EQ(Cell(1, 1), "abc");
}

TEST_F(CellEntryTest, OtherBytesStayAsTheyAre) {
  const std::string odd("<b>\0\t\x80\xFF", 7);
  Type({1, 1}, odd, EntryKey::kDown);
  EXPECT_EQ(Cell(1, 1), odd);
  const std::string megabytes(3'000'000, 'x');
  Type({1, 2}, megabytes, EntryKey::kDown);
  EXPECT_EQ(Cell(1, 2), megabytes);
}

TEST_F(CellEntryTest, ANumberThatIsTypedOverWithItselfBecomesText) {
  MatrixEditor(data).SetNumber(kFirstRecordRow, 1, 5);
  Type({1, 1}, "5", EntryKey::kDown);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1), TaggedView("5"));
}

TEST_F(CellEntryTest, TheSameTextOnceMoreMarksTheDataAndIsNoStep) {
  Type({2, 2}, "2.2", EntryKey::kDown);
  EXPECT_TRUE(data.DataDirty);
  EXPECT_FALSE(CanUndo(data));
}

TEST_F(CellEntryTest, TheHeadingRenamesTheVariableButNotInTheLists) {
  Type({0, 2}, "HEIGHT", EntryKey::kDown);
  EXPECT_EQ(data.VariableName(2), "HEIGHT");
  EXPECT_EQ(data.VarList[2].name, "B");
  EXPECT_EQ(Cursor(), (GridPlace{1, 2}));
}

// Where the cursor goes, and the flag.

struct KeyCase {
  GridPlace from;
  EntryKey key;
  GridPlace to;
  bool dirty;
};

TEST_F(CellEntryTest, EachKeyMovesAsTold) {  // six records, four variables
  const KeyCase cases[] = {
      {{2, 2}, EntryKey::kDown, {3, 2}, true},  {{6, 2}, EntryKey::kDown, {6, 2}, true},
      {{0, 2}, EntryKey::kDown, {1, 2}, true},  {{3, 2}, EntryKey::kUp, {2, 2}, true},
      {{1, 2}, EntryKey::kUp, {1, 2}, false},   {{0, 2}, EntryKey::kUp, {0, 2}, true},
      {{2, 3}, EntryKey::kLeft, {2, 2}, true},  {{2, 1}, EntryKey::kLeft, {2, 1}, false},
      {{2, 3}, EntryKey::kRight, {2, 4}, true}, {{2, 4}, EntryKey::kRight, {3, 1}, true},
      {{6, 4}, EntryKey::kRight, {6, 4}, true}, {{0, 4}, EntryKey::kRight, {1, 1}, true},
  };
  for (const KeyCase& c : cases) {
    Begin(6, 4);
    Type(c.from, "new", c.key);
    EXPECT_EQ(Cursor(), c.to) << c.from.row << '/' << c.from.column << " key " << static_cast<int>(c.key);
    EXPECT_EQ(data.DataDirty, c.dirty) << c.from.row << '/' << c.from.column << " key " << static_cast<int>(c.key);
    EXPECT_EQ(Cell(c.from.row, c.from.column), "new");
  }
}

TEST_F(CellEntryTest, TheLastGridColumnIsTheThreeHundredth) {
  BeginBlank(3, 301);
  Type({1, 300}, "x", EntryKey::kRight);
  EXPECT_EQ(Cursor(), (GridPlace{2, 1}));
}

TEST_F(CellEntryTest, LeavingCommitsAndLeavesTheFlag) {
  PutCursor(2, 2);
  ASSERT_TRUE(StartEntry(entry, data, platform));
  entry.text = "left";
  CommitByLeaving(entry, data, EntryLeft::kByClick);
  EXPECT_EQ(Cell(2, 2), "left");
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(Cursor(), (GridPlace{2, 2}));
  EXPECT_TRUE(CanUndo(data));
}

TEST_F(CellEntryTest, ACommandThatComesBetweenMarksTheData) {
  PutCursor(2, 2);
  ASSERT_TRUE(StartEntry(entry, data, platform));
  entry.text = "kept";
  CommitByLeaving(entry, data, EntryLeft::kByCommand);
  EXPECT_EQ(Cell(2, 2), "kept");
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(CellEntryTest, AClosedEntryCommitsNothing) {
  CommitByKey(entry, data, EntryKey::kDown);
  CommitByLeaving(entry, data, EntryLeft::kByCommand);
  EXPECT_EQ(Cursor(), (GridPlace{1, 1}));
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(CellEntryTest, AnEntryNeverWritesIntoOtherData) {
  PutCursor(2, 2);
  ASSERT_TRUE(StartEntry(entry, data, platform));
  entry.text = "stray";
  BeginBlank(6, 4);
  CommitByLeaving(entry, data, EntryLeft::kByCommand);
  EXPECT_EQ(Cell(2, 2), "");
  EXPECT_FALSE(entry.open);

  Begin(6, 4);
  PutCursor(5, 1);
  ASSERT_TRUE(StartEntry(entry, data, platform));
  entry.text = "stray";
  ApplyChange(data, RemoveRows(data, 1, 2, "Delete Rows"));
  CommitByLeaving(entry, data, EntryLeft::kByCommand);
  EXPECT_EQ(Cells({1, 4, 1, 1}), "3.1/4.1/5.1/6.1");
}

TEST_F(CellEntryTest, WithoutMemoryEverythingStays) {
  const std::string text(100'000, 'x');
  for (std::size_t allowed = 0;; ++allowed) {
    Begin(6, 4);
    PutCursor(2, 2);
    ASSERT_TRUE(StartEntry(entry, data, platform));
    entry.text = text;
    bool failed = false;
    {
      const FailingMemory memory(allowed);
      try {
        CommitByKey(entry, data, EntryKey::kDown);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    EXPECT_EQ(Cell(2, 2), "2.2") << allowed;
    EXPECT_FALSE(data.DataDirty) << allowed;
    EXPECT_EQ(Cursor(), (GridPlace{2, 2})) << allowed;
    EXPECT_TRUE(entry.open) << allowed;
    EXPECT_EQ(entry.text, text) << allowed;
  }
  EXPECT_EQ(Cell(2, 2), text);
}

// The comma.

TEST_F(CellEntryTest, EachCommaHasItsBoxAndGoes) {
  EXPECT_EQ(WithoutCommas("1,234,5", platform), "12345");
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].title, "Error");
  EXPECT_EQ(platform.messages[1].text, "Commas are prohibited");
  EXPECT_EQ(WithoutCommas("plain", platform), "plain");
  EXPECT_EQ(platform.messages.size(), 2u);
}

}  // namespace
}  // namespace tessara
