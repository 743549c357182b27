#include "data/recode/tests/recode_fixture.h"

// Find, Replace and its Undo, and the marks in the grid.

namespace tessara {
namespace {

class FindReplaceTest : public RecodeFixture {
 protected:
  void FillFind(std::size_t column, const std::string& text) {
    Open(RecodeMode::kFind);
    PickRecodeVariable(panel, column);
    panel.Text12 = text;
  }
  // The record of the next match; 0 for none.
  std::size_t Next() {
    const std::size_t row = Run().found_row;
    return row == 0 ? 0 : row - kHeaderRowCount;
  }
};

TEST_F(FindReplaceTest, AMatchStandsAnywhereInTheCell) {
  Make({{"A", {"1", "2", "21", "", 10.0}}});
  FillFind(1, "1");
  EXPECT_EQ(Next(), 1u);
  EXPECT_EQ(Next(), 3u);
  EXPECT_EQ(Next(), 5u);
  EXPECT_FALSE(panel.Label21);
  EXPECT_EQ(Next(), 0u);
  EXPECT_TRUE(panel.Label21);
  EXPECT_EQ(Next(), 1u);  // from the top again
  EXPECT_FALSE(panel.Label21);
  EXPECT_EQ(CountMatches(panel, data), 3u);
}

TEST_F(FindReplaceTest, LargeAndSmallLettersOfTheCodePageAreTheSame) {
  Make({{"A", {"K\xD6LN", "k\xF6ln", "\x8A\x9E\x9F", "\xD7\xF7"}}});
  FillFind(1, "\xF6L");
  EXPECT_EQ(Next(), 1u);
  EXPECT_EQ(Next(), 2u);
  EXPECT_EQ(Next(), 0u);
  FillFind(1, "\x9A\x8E\xFF");
  EXPECT_EQ(Next(), 3u);
  FillFind(1, "\xF7");  // the division sign is no letter
  EXPECT_EQ(CountMatches(panel, data), 1u);
}

TEST_F(FindReplaceTest, FindChecksTheVariableAndThenItsBox) {
  Make({{"A", {"1"}}});
  Open(RecodeMode::kFind);
  ExpectRefusal("You must select a variable from the list");
  PickRecodeVariable(panel, 1);
  ExpectRefusal("Find box must be completed.");
}

TEST_F(FindReplaceTest, AFoundCellIsBoldAndBecomesTheCurrentOne) {
  Make({{"A", {"x", "y"}}, {"B", {"x", "y"}}});
  FillFind(2, "y");
  Next();
  EXPECT_EQ(data.CurrentRow, 2u);
  EXPECT_EQ(data.CurrentColumn, 2u);
  EXPECT_TRUE(panel.marks.IsBold(kHeaderRowCount + 2, 2));
  EXPECT_FALSE(panel.marks.IsBold(kHeaderRowCount + 1, 2));
  ResetSearch(panel);
  EXPECT_FALSE(panel.marks.has_bold());
  EXPECT_EQ(panel.FindRow, 0u);
}

TEST_F(FindReplaceTest, AnotherVariableStartsFromTheTop) {
  Make({{"A", {"x", "x"}}, {"B", {"x", "x"}}});
  FillFind(1, "x");
  EXPECT_EQ(Next(), 1u);
  PickRecodeVariable(panel, 2);
  EXPECT_EQ(Next(), 1u);
  panel.Text12 = "X";  // another text goes on
  EXPECT_EQ(Next(), 2u);
}

TEST_F(FindReplaceTest, AMatchThatTheGridDoesNotShowLeavesItsCursor) {
  std::vector<TaggedValue> cells(kEditLimit + 1, TaggedValue("a"));
  cells[150] = "b";
  Make({{"A", cells}});
  FillFind(1, "b");
  EXPECT_EQ(Next(), 151u);
  EXPECT_EQ(data.CurrentRow, 1u);
}

TEST_F(FindReplaceTest, MarksAndPositionMoveWithTheirRowsAndColumns) {
  Make({{"A", {"1"}}, {"B", {"x", "y", "x", "x"}}});
  FillFind(2, "x");
  Next();
  Next();
  EXPECT_EQ(panel.FindRow, kFirstRecordRow + 3);
  ASSERT_TRUE(ApplyChange(data, RemoveRows(data, 1, 2, "Delete")));
  Follow();
  EXPECT_TRUE(panel.marks.IsBold(kFirstRecordRow, 2));
  EXPECT_EQ(panel.FindRow, kFirstRecordRow + 1);
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete")));
  Follow();
  EXPECT_TRUE(panel.marks.IsBold(kFirstRecordRow, 1));
  EXPECT_FALSE(panel.marks.IsBold(kFirstRecordRow, 2));
  EXPECT_EQ(panel.RecodeColumn, 1u);
  EXPECT_EQ(Next(), 2u);
  Make({{"A", {"1"}}});
  EXPECT_FALSE(panel.marks.has_bold());
  EXPECT_EQ(panel.FindRow, 0u);
}

TEST_F(FindReplaceTest, ResetInFindRemovesTheMarksAndKeepsTheText) {
  Make({{"A", {"x"}}});
  FillFind(1, "x");
  Next();
  ResetRecodePanel(panel);
  EXPECT_FALSE(panel.marks.has_bold());
  EXPECT_EQ(panel.Text12, "x");
  EXPECT_EQ(panel.RecodeColumn, 1u);
}

TEST_F(FindReplaceTest, ALongTextIsFoundInALongCell) {
  const std::string many(1 << 20, 'a');
  Make({{"A", {many, many + std::string(1 << 14, 'A') + "b", "ab"}}});
  FillFind(1, std::string(1 << 15, 'a') + "B");
  EXPECT_EQ(Next(), 2u);
  EXPECT_EQ(Next(), 0u);
}

// Replace.

TEST_F(FindReplaceTest, EveryOccurrenceIsReplacedExactly) {
  Make({{"A", {"11", "10", "abab", "ABAB", ""}}});
  FillReplace(1, "1", "2");
  EXPECT_EQ(Run().changed_cells, 2u);
  EXPECT_EQ(Cells(1), (Texts{"'22'", "'20'", "'abab'", "'ABAB'", "''"}));
  FillReplace(1, "ab", "b");
  Run();
  EXPECT_EQ(Cells(1), (Texts{"'22'", "'20'", "'bb'", "'ABAB'", "''"}));
}

TEST_F(FindReplaceTest, MaleStandsInFemaleToo) {
  Make({{"SEX", {"Male", "Female", "Femmale"}}});
  FillReplace(1, "male", "1");
  Run();
  EXPECT_EQ(Cells(1), (Texts{"'Male'", "'Fe1'", "'Fem1'"}));
}

TEST_F(FindReplaceTest, AnEmptyFindBoxFillsTheBlankCells) {
  Make({{"A", {"1", "", TaggedValue(), 0.0, 5.0, " "}}});
  FillReplace(1, "", "9");
  EXPECT_EQ(Run().changed_cells, 3u);
  EXPECT_EQ(Cells(1), (Texts{"'1'", "'9'", "'9'", "'9'", "'5'", "' '"}));
}

// The number 0 is blank, and so becomes empty text.
TEST_F(FindReplaceTest, EveryVisitedCellBecomesText) {
  Make({{"A", {5.0, 15.0, TaggedValue(), "x", 0.0}}});
  FillReplace(1, "1", "");
  EXPECT_EQ(Run().changed_cells, 2u);
  EXPECT_EQ(Cells(1), (Texts{"'5'", "'5'", "''", "'x'", "''"}));
}

TEST_F(FindReplaceTest, ReplaceNeedsAVariableAlone) {
  Make({{"A", {"1"}}});
  FillReplace(0, "1", "2");
  ExpectRefusal("You must select a variable from the list");
  EXPECT_FALSE(panel.UndoColumn);
}

TEST_F(FindReplaceTest, UndoBringsTheColumnBack) {
  Make({{"A", {"1", 1.0, "", TaggedValue()}}});
  const Texts before = Cells(1);
  FillReplace(1, "1", "2");
  Run();
  EXPECT_EQ(UndoReplace(panel, data), 2u);
  EXPECT_EQ(Cells(1), before);
  EXPECT_EQ(UndoReplace(panel, data), 0u);
}

TEST_F(FindReplaceTest, UndoWithoutAReplaceDoesNothing) {
  Make({{"A", {"1"}}});
  Open(RecodeMode::kReplace);
  PickRecodeVariable(panel, 1);
  EXPECT_EQ(UndoReplace(panel, data), 0u);
  EXPECT_EQ(Cells(1), Texts{"'1'"});
}

TEST_F(FindReplaceTest, UndoWritesTheSavedColumnOntoTheVariableThatIsPickedNow) {
  Make({{"A", {"1", "2"}}, {"B", {"3", "4"}}});
  FillReplace(1, "1", "x");
  Run();
  PickRecodeVariable(panel, 2);
  EXPECT_EQ(UndoReplace(panel, data), 2u);
  EXPECT_EQ(Cells(1), (Texts{"'x'", "'2'"}));
  EXPECT_EQ(Cells(2), (Texts{"'1'", "'2'"}));
  EXPECT_EQ(data.VariableName(2), "B");
  PickRecodeVariable(panel, 0);
  EXPECT_EQ(UndoReplace(panel, data), 0u);
}

TEST_F(FindReplaceTest, RowsBeyondTheSavedColumnStay) {
  Make({{"A", {"1", "1"}}});
  FillReplace(1, "1", "2");
  Run();
  ASSERT_TRUE(ApplyChange(data, AddRows(data, 1, "Add Rows")));
  ASSERT_TRUE(ApplyChange(data, CellChange(kFirstRecordRow + 2, 1, "new", "Type a Cell")));
  Follow();
  UndoReplace(panel, data);
  EXPECT_EQ(Cells(1), (Texts{"'1'", "'1'", "'new'"}));
}

TEST_F(FindReplaceTest, UndoKeepsOneReplaceOnly) {
  Make({{"A", {"1"}}});
  FillReplace(1, "1", "2");
  Run();
  FillReplace(1, "2", "3");
  Run();
  UndoReplace(panel, data);
  EXPECT_EQ(Cells(1), Texts{"'2'"});
}

TEST_F(FindReplaceTest, AReplaceThatChangesNothingIsTheOneToUndo) {
  Make({{"A", {"1"}}});
  FillReplace(1, "1", "2");
  Run();
  FillReplace(1, "x", "3");
  EXPECT_EQ(Run().changed_cells, 0u);
  UndoReplace(panel, data);
  EXPECT_EQ(Cells(1), Texts{"'2'"});
}

TEST_F(FindReplaceTest, AnotherDataSetHasNoReplaceToUndo) {
  Make({{"A", {"1"}}});
  FillReplace(1, "1", "2");
  Run();
  Make({{"A", {"5"}}});
  PickRecodeVariable(panel, 1);
  EXPECT_EQ(UndoReplace(panel, data), 0u);
  EXPECT_EQ(Cells(1), Texts{"'5'"});
}

TEST_F(FindReplaceTest, AReplaceIsOneStepToUndo) {
  Make({{"A", {"1", "1"}}});
  FillReplace(1, "1", "2");
  Run();
  EXPECT_EQ(UndoName(data), "Find and Replace A");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Cells(1), (Texts{"'1'", "'1'"}));
  EXPECT_FALSE(UndoChange(data));
}

TEST_F(FindReplaceTest, TheDictionaryStays) {
  Make({{"1A1", {"1"}, "1||||||"}});
  FillReplace(1, "1", "2");
  Run();
  EXPECT_EQ(data.VariableName(1), "1A1");
  EXPECT_EQ(TextOf(data.matrix.Cell(kMissingSpecRow, 1)), "1||||||");
}

TEST_F(FindReplaceTest, LongTextsAreReplacedWhole) {
  const std::string text(1 << 20, 'a');
  Make({{"A", {text, "b"}}});
  FillReplace(1, "a", "bc");
  Run();
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1).text().size(), 2 * text.size());
  UndoReplace(panel, data);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1).text(), text);
}

TEST_F(FindReplaceTest, ATextBeyondAllMemoryIsRefusedAndNothingIsLost) {
  const std::string text(1 << 20, 'a');
  Make({{"A", {"a", text}}});
  FillReplace(1, "a", text + text);
  EXPECT_THROW(Run(), std::bad_alloc);  // a cell of a thousand gigabytes and more
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1), TaggedView("a"));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 1, 1).text(), text);
  EXPECT_FALSE(panel.UndoColumn);
  EXPECT_EQ(platform.wait_cursors, 0);
}

}  // namespace
}  // namespace tessara
