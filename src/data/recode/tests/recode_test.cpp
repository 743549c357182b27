#include "data/recode/tests/recode_fixture.h"

// Recode, and what all modes that make a variable have in common.

namespace tessara {
namespace {

using RecodeTest = RecodeFixture;

constexpr const char* kNoVariableText = "You must select a variable from the list";
constexpr const char* kNoOperatorText = "You must select an operator button.";
constexpr const char* kEmptyBoxText = "All boxes must be completed.";

TEST_F(RecodeTest, OpeningAPanelMarksTheDataAsChangedAtOnce) {
  for (const RecodeModeRow& row : RecodeModeRows()) {
    Make({{"AGE", {"30"}}});
    ASSERT_FALSE(data.DataDirty);
    Open(row.mode);
    EXPECT_TRUE(data.DataDirty) << row.title;
    EXPECT_EQ(panel.mode, row.mode);
  }
}

TEST_F(RecodeTest, ChecksComeInTheirOrder) {
  Make({{"AGE", {"30"}}});
  Open(RecodeMode::kRecode);
  ExpectRefusal(kNoVariableText);
  PickRecodeVariable(panel, 1);
  ExpectRefusal(kNoOperatorText);
  panel.recode_option = RecodeOption::kEqualTo;
  ExpectRefusal(kEmptyBoxText);
  panel.OldValue = "30";
  ExpectRefusal(kEmptyBoxText);
  panel.NewValue = "1";
  ExpectRefusal(kEmptyBoxText);
  ChangeNewName(panel, "G");
  EXPECT_FALSE(Run().refused);
  EXPECT_EQ(Cells(2), Texts{"'1'"});
}

TEST_F(RecodeTest, ARuleWritesATextAndTheNameTrimmed) {
  Make({{"AGE", {"29", "30", "31.5", "1,000"}}});
  FillRecode(1, "  OLD ", RecodeOption::kGreaterThan, "30", " 1 ");
  EXPECT_EQ(Run().changed_cells, 2u);
  EXPECT_EQ(data.VariableName(2), "OLD");
  EXPECT_EQ(Cells(2), (Texts{"-", "-", "'1'", "'1'"}));
  EXPECT_EQ(Cells(1), (Texts{"'29'", "'30'", "'31.5'", "'1,000'"}));
  EXPECT_EQ(data.VarList.back().name, "OLD");
  for (std::size_t row = 0; row < kVariableNameRow; ++row) EXPECT_TRUE(data.matrix.Cell(row, 2).is_empty());
}

TEST_F(RecodeTest, MissingAndBlankCellsStayBlank) {
  Make({{"AGE", {"9", "", TaggedValue(), 0.0, "5", "3"}, "9||||||"}});
  FillRecode(1, "G", RecodeOption::kLessThan, "100", "x");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"-", "-", "-", "-", "'x'", "'x'"}));
  EXPECT_EQ(TextOf(data.matrix.Cell(kMissingSpecRow, 2)), "");
}

TEST_F(RecodeTest, BoundsOfMissingValuesCount) {
  Make({{"AGE", {"1", "2", "3", "text"}, "||||2|2|"}});
  FillRecode(1, "G", RecodeOption::kGreaterThan, "0", "x");
  Run();
  // The text fails the test of the bound, and what fails goes on to the next record.
  EXPECT_EQ(Cells(2), (Texts{"-", "'x'", "-", "-"}));
}

TEST_F(RecodeTest, TextCellsMatchBothLessAndGreater) {
  for (const RecodeOption option : {RecodeOption::kLessThan, RecodeOption::kGreaterThan}) {
    Make({{"AGE", {"abc", "30", "30 years"}}});
    FillRecode(1, "G", option, "30", "x");
    Run();
    EXPECT_EQ(Cells(2), (Texts{"'x'", "-", "'x'"}));
  }
}

TEST_F(RecodeTest, AnOldValueThatIsNoNumberFailsEveryComparison) {
  Make({{"AGE", {"1", "", "3"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "old", "x");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"'x'", "-", "'x'"}));
}

TEST_F(RecodeTest, EqualComparesTrimmedTexts) {
  Make({{"X", {"2.0", "2", " 2 ", 2.0, "two"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, " 2 ", "x");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"-", "'x'", "'x'", "'x'", "-"}));
}

TEST_F(RecodeTest, DatesCompareAsDays) {
  Make({{"D", {"1/1/02", "12/31/2001", "2002-01-02"}}});
  const Texts expected[] = {{"-", "'x'", "-"}, {"'x'", "-", "-"}, {"-", "-", "'x'"}};
  int at = 0;
  for (const RecodeOption option : {RecodeOption::kLessThan, RecodeOption::kEqualTo, RecodeOption::kGreaterThan}) {
    panel.Check2 = true;
    FillRecode(1, "G" + std::to_string(at), option, "1/1/2002", "x");
    Run();
    EXPECT_EQ(Cells(data.VariableCount), expected[at++]);
  }
}

TEST_F(RecodeTest, ACellThatIsNoDateKeepsTheDateAheadOfIt) {
  Make({{"D", {"none", "1/5/2002", "none", "", "text", "1/1/2001", "x"}}});
  panel.Check2 = true;
  FillRecode(1, "G", RecodeOption::kGreaterThan, "1/1/2002", "late");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"-", "'late'", "'late'", "-", "'late'", "-", "-"}));
}

TEST_F(RecodeTest, AnOldValueThatIsNoDateIsDayZero) {
  Make({{"D", {"none", "12/30/1899", "1/1/2002"}}});
  panel.Check2 = true;
  FillRecode(1, "G", RecodeOption::kEqualTo, "never", "zero");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"'zero'", "'zero'", "-"}));
}

TEST_F(RecodeTest, ASecondRunWritesIntoTheSameColumn) {
  Make({{"AGE", {"20", "30", "40"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  panel.recode_option = RecodeOption::kGreaterThan;
  panel.OldValue = "29";
  panel.NewValue = "2";
  EXPECT_EQ(Run().changed_cells, 2u);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Cells(2), (Texts{"'1'", "'2'", "'2'"}));
  panel.recode_option = RecodeOption::kEqualTo;
  panel.OldValue = "40";
  panel.NewValue = "2";
  EXPECT_EQ(Run().changed_cells, 0u);
}

TEST_F(RecodeTest, AnotherLetterInTheNameMakesANewColumn) {
  Make({{"AGE", {"20"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  ChangeNewName(panel, "GR");
  ChangeNewName(panel, "G");
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(data.VariableName(3), "G");
}

TEST_F(RecodeTest, ResetEndsTheGoingOnAndEmptiesTheBoxes) {
  Make({{"AGE", {"20"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  panel.Check2 = true;
  Run();
  ResetRecodePanel(panel);
  EXPECT_FALSE(panel.NewVariableMade);
  EXPECT_EQ(panel.NewVar + panel.OldValue + panel.NewValue, "");
  EXPECT_EQ(panel.recode_option, RecodeOption::kNone);
  EXPECT_FALSE(panel.Check2);
  EXPECT_EQ(panel.RecodeColumn, 0u);
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
}

TEST_F(RecodeTest, AnotherVariableMayBeTheSourceOfTheSameNewOne) {
  Make({{"A", {"1", "2"}}, {"B", {"2", "2"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "a");
  Run();
  FillRecode(2, "G", RecodeOption::kEqualTo, "2", "b");
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Cells(3), (Texts{"'b'", "'b'"}));
}

TEST_F(RecodeTest, ARunOfAnotherPanelWithAnotherNameEndsTheGoingOn) {
  Make({{"A", {"1"}}, {"B", {"2"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "a");
  Run();
  FillTwo(RecodeMode::kCombine, 1, 2, "S");
  panel.combine_option = CombineOption::kPlus;
  Run();
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "b");
  Run();
  EXPECT_EQ(data.VariableCount, 5u);
  EXPECT_EQ(Cells(4), Texts{"'3.00000'"});
  EXPECT_EQ(Cells(5), Texts{"'b'"});
}

TEST_F(RecodeTest, ALineOfTheOldNameDoesNotTakeUpWhatAnotherNameHasEnded) {
  Make({{"A", {"1", "2"}}, {"B", {"5", "6"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "low");
  Run();
  FillTrim(2, "X", "5", "6");
  Run();
  FillTrim(2, "G", "5", "6");
  Run();
  FillRecode(1, "G", RecodeOption::kEqualTo, "2", "high");
  Run();
  EXPECT_EQ(data.VariableCount, 6u);
  EXPECT_EQ(Cells(5), (Texts{"'5'", "'6'"}));
  EXPECT_EQ(Cells(6), (Texts{"-", "'high'"}));
}

TEST_F(RecodeTest, ItGoesOnInTheLastColumnWhateverARunOfTheSameNameHasAdded) {
  Make({{"A", {"1"}}, {"B", {"2"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "a");
  Run();
  FillTwo(RecodeMode::kCombine, 1, 2, "G");
  panel.combine_option = CombineOption::kPlus;
  Run();
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "b");
  Run();
  EXPECT_EQ(data.VariableCount, 4u);
  EXPECT_EQ(Cells(3), Texts{"'a'"});
  EXPECT_EQ(Cells(4), Texts{"'b'"});

  FillCompute(1, "G", ComputeOption::kPlus, "1");
  Run();
  EXPECT_EQ(data.VariableCount, 5u);
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "c");
  Run();
  EXPECT_EQ(data.VariableCount, 5u);
  EXPECT_EQ(Cells(5), Texts{"'c'"});
}

TEST_F(RecodeTest, AnotherDataSetEndsTheGoingOnAndForgetsThePickedVariable) {
  Make({{"AGE", {"20"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  Make({{"AGE", {"20"}}, {"SEX", {"1"}}});
  EXPECT_EQ(panel.RecodeColumn, 0u);
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Cells(2), Texts{"'1'"});
}

TEST_F(RecodeTest, ANewColumnThatIsTakenBackIsMadeAnew) {
  Make({{"AGE", {"20", "40"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  EXPECT_EQ(UndoName(data), "Recode G");
  ASSERT_TRUE(UndoChange(data));
  Follow();
  EXPECT_EQ(data.VariableCount, 1u);
  Run();
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Cells(1), (Texts{"'20'", "'40'"}));
  EXPECT_EQ(Cells(2), (Texts{"'1'", "-"}));
}

TEST_F(RecodeTest, ASecondRunIsAStepOfItsOwn) {
  Make({{"AGE", {"20", "40"}}});
  FillRecode(1, "G", RecodeOption::kLessThan, "30", "1");
  Run();
  FillRecode(1, "G", RecodeOption::kGreaterThan, "10", "2");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"'2'", "'2'"}));
  ASSERT_TRUE(UndoChange(data));
  Follow();
  EXPECT_EQ(Cells(2), (Texts{"'1'", "-"}));
  Run();
  EXPECT_EQ(data.VariableCount, 2u);
}

TEST_F(RecodeTest, ManyCellsAreRecodedThoughTheGridCannotBeEdited) {
  std::vector<TaggedValue> cells(250000, TaggedValue("5"));
  cells[249999] = "6";
  Make({{"X", cells}});
  ASSERT_FALSE(data.WithinEditLimit());
  FillRecode(1, "G", RecodeOption::kEqualTo, "5", "five");
  EXPECT_EQ(Run().changed_cells, 249999u);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow + 249998, 2), TaggedView("five"));
  EXPECT_TRUE(data.matrix.Cell(kFirstRecordRow + 249999, 2).is_empty());
}

TEST_F(RecodeTest, TheCursorGoesBackToTheFirstCell) {
  Make({{"A", {"1", "2"}}, {"B", {"1", "2"}}});
  data.CurrentRow = data.CurrentColumn = 2;
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "x");
  Run();
  EXPECT_EQ(data.CurrentRow, 1u);
  EXPECT_EQ(data.CurrentColumn, 1u);
}

TEST_F(RecodeTest, WhatWouldBreakADataFileDoesNotComeIn) {
  Make({{"A", {"1"}}});
  FillRecode(1,
             "N\x01"
             "EW\r\n",
             RecodeOption::kEqualTo, "1",
             "a\x01"
             "b\nc");
  Run();
  EXPECT_EQ(data.VariableName(2), "NEW");
  EXPECT_EQ(Cells(2), Texts{"'abc'"});
}

TEST_F(RecodeTest, NamesAreNotChecked) {
  Make({{"A", {"1"}}});
  FillRecode(1, "A", RecodeOption::kEqualTo, "1", "x");
  Run();
  const std::string long_name(100000, 'n');
  FillRecode(1, long_name, RecodeOption::kEqualTo, "1", "x");
  Run();
  EXPECT_EQ(data.VariableName(2), "A");
  EXPECT_EQ(data.VariableName(3), long_name);
}

TEST_F(RecodeTest, DataWithoutRecordsGetAnEmptyVariable) {
  Make({{"A", {}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "1", "x");
  EXPECT_EQ(Run().changed_cells, 0u);
  EXPECT_EQ(data.VariableCount, 2u);
}

TEST_F(RecodeTest, DeletedColumnsMoveThePickedVariableAndTheGoingOn) {
  Make({{"A", {"1"}}, {"B", {"1"}}, {"C", {"1"}}});
  FillRecode(3, "G", RecodeOption::kEqualTo, "1", "x");
  Run();
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete")));
  Follow();
  EXPECT_EQ(panel.RecodeColumn, 2u);
  EXPECT_TRUE(panel.NewVariableMade);
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 3, 1, "Delete")));
  Follow();
  EXPECT_TRUE(panel.NewVariableMade);
  Run();
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Cells(2), Texts{"'x'"});
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the run went on in the last variable, C"});
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 2, 1, "Delete")));
  Follow();
  EXPECT_EQ(panel.RecodeColumn, 0u);
}

// Keys.

TEST_F(RecodeTest, ACommaEmptiesTheBoxAndBecomesABlank) {
  std::string box = "age";
  EXPECT_EQ(RefuseComma(box, platform), ' ');
  EXPECT_EQ(box, "");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, "Commas are prohibited");
}

TEST_F(RecodeTest, AKeyThatIsNoDigitActsAsABackspaceInTheConstant) {
  EXPECT_TRUE(IsConstantKey('0'));
  EXPECT_TRUE(IsConstantKey('9'));
  EXPECT_TRUE(IsConstantKey('.'));
  EXPECT_FALSE(IsConstantKey('-'));
  EXPECT_FALSE(IsConstantKey('e'));
  std::string box = "12";
  RefuseConstantKey(box, platform);
  EXPECT_EQ(box, "1");
  box.clear();
  RefuseConstantKey(box, platform);
  EXPECT_EQ(box, "");
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Warning");
  EXPECT_EQ(platform.messages[0].text, "Only numerical entries are allowed.");
}

// The preview.

TEST_F(RecodeTest, ThePreviewTellsTheFirstCellsThatARunChanges) {
  Make({{"AGE", {"20", "30", "40", "50"}}});
  FillRecode(1, "G", RecodeOption::kGreaterThan, "20", "old");
  const RecodePreview preview = PreviewRecode(panel, data, 2, 100);
  ASSERT_EQ(preview.cells.size(), 2u);
  EXPECT_EQ(preview.cells[0].record, 2u);
  EXPECT_EQ(preview.cells[0].source, "30");
  EXPECT_EQ(preview.cells[0].new_text, "old");
  EXPECT_EQ(preview.cells[1].record, 3u);
  EXPECT_EQ(data.VariableCount, 1u);
  EXPECT_TRUE(PreviewRecode(panel, data, 5, 1).cells.empty());
  EXPECT_EQ(PreviewRecode(panel, data, 5, 1).looked_at, 1u);
}

TEST_F(RecodeTest, ThePreviewOfARunThatGoesOnLeavesOutWhatIsThere) {
  Make({{"AGE", {"20", "30"}}});
  FillRecode(1, "G", RecodeOption::kEqualTo, "20", "x");
  Run();
  panel.recode_option = RecodeOption::kLessThan;
  panel.OldValue = "100";
  const RecodePreview preview = PreviewRecode(panel, data, 5, 100);
  ASSERT_EQ(preview.cells.size(), 1u);
  EXPECT_EQ(preview.cells[0].record, 2u);
}

TEST_F(RecodeTest, ARefusedRunHasNoPreview) {
  Make({{"AGE", {"20"}}});
  FillRecode(1, "", RecodeOption::kEqualTo, "20", "x");
  EXPECT_TRUE(PreviewRecode(panel, data, 5, 100).cells.empty());
  FillRecode(0, "G", RecodeOption::kEqualTo, "20", "x");
  EXPECT_TRUE(PreviewRecode(panel, data, 5, 100).cells.empty());
}

TEST_F(RecodeTest, ThePreviewIsWhatTheRunDoes) {
  Make({{"A", {"1", "x", "", 4.0, "9", "2/30/2001"}, "9||||||"}, {"B", {"2", "3", "4", "0", "5", "1/1/2001"}}});
  const auto expect_same = [&] {
    const RecodePreview preview = PreviewRecode(panel, data, 100, 100);
    const RecodeOutcome outcome = Run();
    EXPECT_EQ(preview.cells.size(), outcome.changed_cells);
    const std::size_t target = panel.mode == RecodeMode::kReplace ? panel.RecodeColumn : data.VariableCount;
    for (const PreviewedCell& cell : preview.cells) {
      EXPECT_EQ(cell.new_text, TextOf(data.matrix.Cell(kHeaderRowCount + cell.record, target)));
    }
  };
  FillRecode(1, "R", RecodeOption::kGreaterThan, "0", "y");
  expect_same();
  FillCompute(1, "C", ComputeOption::kPower, "2");
  expect_same();
  FillCompute(1, "L", ComputeOption::kNone, "");
  panel.Check3 = true;
  expect_same();
  FillCompute(1, "D", ComputeOption::kNone, "");
  panel.Check1 = true;
  expect_same();
  FillTwo(RecodeMode::kCombine, 1, 2, "S");
  panel.combine_option = CombineOption::kDivided;
  expect_same();
  FillTrim(1, "T", "0", "3");
  expect_same();
  FillReplace(2, "", "none");
  expect_same();
}

}  // namespace
}  // namespace tessara
