#include "data/recode/tests/recode_fixture.h"

// Compute, Combine Two Variables, Compare Dates and Trim Extreme Values.

namespace tessara {
namespace {

using ComputeTest = RecodeFixture;

constexpr const char* kEmptyBoxText = "All boxes must be completed.";

TEST_F(ComputeTest, EachOperatorYieldsANumberCell) {
  struct Case {
    ComputeOption option;
    const char* constant;
    const char* cell;
  };
  for (const Case& c : {Case{ComputeOption::kPlus, "2", "9"}, Case{ComputeOption::kMinus, "2", "5"},
                        Case{ComputeOption::kMultiplied, "2", "14"}, Case{ComputeOption::kDivided, "2", "3.5"},
                        Case{ComputeOption::kPower, "2", "49"}, Case{ComputeOption::kPlus, " -1.5e1 ", "-8"}}) {
    Make({{"X", {"7"}}});
    FillCompute(1, "N", c.option, c.constant);
    Run();
    EXPECT_EQ(Cells(2), Texts{c.cell});
  }
}

TEST_F(ComputeTest, WhatDoesNotConvertStaysBlank) {
  Make({{"X", {"4", "abc", "", "9", "1e308", "-4"}, "9||||||"}});
  FillCompute(1, "N", ComputeOption::kMultiplied, "10");
  Run();
  EXPECT_EQ(Cells(2), (Texts{"40", "-", "-", "-", "-", "-40"}));
  FillCompute(1, "R", ComputeOption::kPower, ".5");
  Run();
  EXPECT_EQ(Cells(3), (Texts{"2", "-", "-", "-", "1E+154", "-"}));
}

TEST_F(ComputeTest, ADivisionByZeroLeavesTheCellBlank) {
  Make({{"X", {"4", "0"}}});
  FillCompute(1, "N", ComputeOption::kDivided, "0");
  EXPECT_EQ(Run().changed_cells, 0u);
  EXPECT_EQ(Cells(2), (Texts{"-", "-"}));
}

TEST_F(ComputeTest, AConstantThatIsNoNumberFailsEveryAssignment) {
  Make({{"X", {"4"}}});
  FillCompute(1, "N", ComputeOption::kPlus, "two");
  Run();
  EXPECT_EQ(Cells(2), Texts{"-"});
}

TEST_F(ComputeTest, ChecksComeInTheirOrder) {
  Make({{"X", {"4"}}});
  Open(RecodeMode::kCompute);
  ExpectRefusal("You must select a variable from the list");
  PickRecodeVariable(panel, 1);
  ExpectRefusal("You must select an operator button.");
  panel.compute_option = ComputeOption::kPlus;
  ExpectRefusal(kEmptyBoxText);
  ChangeNewName(panel, "N");
  ExpectRefusal(kEmptyBoxText);
  panel.Check1 = true;  // needs the name alone
  EXPECT_FALSE(Run().refused);
  panel.Check1 = false;
  panel.Check3 = true;
  ChangeNewName(panel, "");
  ExpectRefusal(kEmptyBoxText);
}

TEST_F(ComputeTest, ALaterRunGoesOnInTheColumn) {
  Make({{"X", {"4"}}, {"Y", {""}}});
  FillCompute(1, "N", ComputeOption::kPlus, "1");
  Run();
  panel.Text2 = "2";
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Cells(3), Texts{"6"});
  // A cell that cannot be computed keeps what it has.
  PickRecodeVariable(panel, 2);
  Run();
  EXPECT_EQ(Cells(3), Texts{"6"});
  Open(RecodeMode::kCompute);  // opening the panel ends it
  Run();
  EXPECT_EQ(data.VariableCount, 4u);
}

TEST_F(ComputeTest, TheDuplicateTakesEveryRowAndItsOwnName) {
  Make({{"X", {"4", "", "9", 0.0, 2.5}, "9||||||"}});
  MatrixEditor(data).SetText(0, 1, "5 1 Tessara data");
  MatrixEditor(data).SetText(kVariableLabelRow, 1, "Label");
  MatrixEditor(data).SetText(kFirstValueLabelRow + 2, 1, "4=four");
  Follow();
  FillCompute(1, " COPY ", ComputeOption::kNone, "");
  panel.Check1 = true;
  Run();
  EXPECT_EQ(Cells(2), Cells(1));
  EXPECT_EQ(data.VariableName(2), "COPY");
  EXPECT_EQ(data.VariableName(1), "X");
  for (const std::size_t row : {std::size_t{0}, kMissingSpecRow, kVariableLabelRow, kFirstValueLabelRow + 2}) {
    EXPECT_EQ(data.matrix.Cell(row, 2), data.matrix.Cell(row, 1)) << row;
  }
  ASSERT_TRUE(ApplyChange(data, CellChange(kFirstRecordRow, 2, "5", "Type a Cell")));
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1), TaggedView("4"));
}

TEST_F(ComputeTest, TheLogTakesNoHeaderAndNoMissingTest) {
  Make({{"X", {"1", "9", "0", "-1", "abc", "", 1.0}, "9||||||"}});
  MatrixEditor(data).SetText(kVariableLabelRow, 1, "Label");
  Follow();
  FillCompute(1, "LN", ComputeOption::kNone, "");
  panel.Check3 = true;
  panel.Check1 = true;  // the logarithm wins
  Run();
  EXPECT_EQ(Cells(2), (Texts{"0", "2.1972245773362196", "-", "-", "-", "-", "0"}));
  EXPECT_TRUE(data.matrix.Cell(kMissingSpecRow, 2).is_empty());
  EXPECT_TRUE(data.matrix.Cell(kVariableLabelRow, 2).is_empty());
  EXPECT_EQ(data.VariableName(2), "LN");
}

TEST_F(ComputeTest, TheCheckVariantsAlwaysAddAColumn) {
  Make({{"X", {"1"}}});
  FillCompute(1, "N", ComputeOption::kNone, "");
  panel.Check3 = true;
  Run();
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_TRUE(panel.NewVariableMade);
  panel.Check3 = false;
  panel.compute_option = ComputeOption::kPlus;
  panel.Text2 = "1";
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Cells(3), Texts{"2"});
}

// Combine Two Variables.

TEST_F(ComputeTest, CombinedCellsAreTextsOfFiveDecimals) {
  struct Case {
    CombineOption option;
    const char* cell;
  };
  for (const Case& c : {Case{CombineOption::kPlus, "'9.00000'"}, Case{CombineOption::kMinus, "'5.00000'"},
                        Case{CombineOption::kMultiplied, "'14.00000'"}, Case{CombineOption::kDivided, "'3.50000'"}}) {
    Make({{"A", {"7", "", "x", "9"}, "9||||||"}, {"B", {"2", "2", "2", "2"}}});
    FillTwo(RecodeMode::kCombine, 1, 2, "S");
    EXPECT_EQ(panel.Date1, "A");
    EXPECT_EQ(panel.Date2, "B");
    panel.combine_option = c.option;
    EXPECT_EQ(Run().changed_cells, 1u);
    EXPECT_EQ(Cells(3), (Texts{c.cell, "-", "-", "-"}));
  }
}

TEST_F(ComputeTest, AQuotientWithZeroIsTheNumberZero) {
  Make({{"A", {"7", "0", "0", "x", "1"}}, {"B", {"0", "2", "0", "2", "3"}}});
  FillTwo(RecodeMode::kCombine, 1, 2, "Q");
  panel.combine_option = CombineOption::kDivided;
  Run();
  EXPECT_EQ(Cells(3), (Texts{"0", "0", "0", "-", "'0.33333'"}));
  EXPECT_TRUE(panel.marks.ShowsDecimals(3));
  EXPECT_FALSE(panel.marks.ShowsDecimals(2));
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete")));
  Follow();
  EXPECT_TRUE(panel.marks.ShowsDecimals(2));
  Make({{"A", {"7"}}, {"B", {"0"}}});
  EXPECT_FALSE(panel.marks.ShowsDecimals(2));
}

TEST_F(ComputeTest, ABoundThatIsNoNumberLetsCombineGoAhead) {
  // The test for missing values fails, and what fails enters the branch.
  Make({{"A", {"7", "1"}, "||||low||"}, {"B", {"2", TaggedValue()}}});
  FillTwo(RecodeMode::kCombine, 1, 2, "S");
  panel.combine_option = CombineOption::kPlus;
  Run();
  EXPECT_EQ(Cells(3), (Texts{"'9.00000'", "'1.00000'"}));
}

TEST_F(ComputeTest, CombineChecksTheBoxesAheadOfTheOperator) {
  Make({{"A", {"7"}}, {"", {"2"}}});
  FillTwo(RecodeMode::kCombine, 1, 2, "S");  // a variable without a name leaves its box empty
  ExpectRefusal(kEmptyBoxText);
  FillTwo(RecodeMode::kCombine, 1, 1, "");
  ExpectRefusal(kEmptyBoxText);
  ChangeNewName(panel, "S");
  ExpectRefusal("You must select an operator button.");
}

TEST_F(ComputeTest, CombineAddsAColumnAtEachRunAndChains) {
  Make({{"A", {"1"}}, {"B", {"2"}}});
  FillTwo(RecodeMode::kCombine, 1, 2, "S");
  panel.combine_option = CombineOption::kPlus;
  Run();
  Run();
  EXPECT_EQ(data.VariableCount, 4u);
  FillTwo(RecodeMode::kCombine, 3, 4, "T");
  Run();
  EXPECT_EQ(Cells(5), Texts{"'6.00000'"});
}

TEST_F(ComputeTest, TheButtonsOfTheVariablesAskForOne) {
  Make({{"A", {"1"}}});
  Open(RecodeMode::kCombine);
  EXPECT_FALSE(CopyVariable1(panel, data, platform));
  EXPECT_FALSE(CopyVariable2(panel, data, platform));
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Procedure Aborted");
  EXPECT_EQ(platform.messages[1].text, "You must select a variable from the list");
}

TEST_F(ComputeTest, AVariableThatGoesEmptiesItsBox) {
  Make({{"A", {"1"}}, {"B", {"2"}}, {"C", {"3"}}});
  FillTwo(RecodeMode::kCombine, 1, 3, "S");
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete")));
  Follow();
  EXPECT_EQ(panel.CombineColumn1, 0u);
  EXPECT_EQ(panel.Date1, "");
  EXPECT_EQ(panel.CombineColumn2, 2u);
  EXPECT_EQ(panel.Date2, "C");
}

// Compare Dates.

TEST_F(ComputeTest, DaysAreCountedFromTheFirstDateToTheSecond) {
  Make({{"A", {"1/1/2002", "3/1/2004", "1/1/2002", "text", "", "1/1/2002"}},
        {"B", {"1/11/2002", "2/1/2004", "1/1/2002", "1/1/2002", "1/1/2002", "5"}}});
  FillTwo(RecodeMode::kCompareDates, 1, 2, "DAYS");
  EXPECT_EQ(Run().changed_cells, 3u);
  EXPECT_EQ(Cells(3), (Texts{"10", "-29", "0", "-", "-", "-"}));
}

TEST_F(ComputeTest, CompareDatesEmptiesItsBoxesAndGoesBackToNone) {
  Make({{"A", {"1/1/2002"}}, {"B", {"1/1/2002"}}});
  FillTwo(RecodeMode::kCompareDates, 1, 2, "DAYS");
  Run();
  EXPECT_EQ(panel.Date1 + panel.Date2 + panel.DateVar, "");
  EXPECT_EQ(panel.RecodeColumn, 0u);
  ExpectRefusal(kEmptyBoxText);
}

TEST_F(ComputeTest, DatesThatMeetABoundAreCompared) {
  Make({{"A", {"1/1/2002"}, "||||1||"}, {"B", {"1/3/2002"}}});
  FillTwo(RecodeMode::kCompareDates, 1, 2, "DAYS");
  Run();
  EXPECT_EQ(Cells(3), Texts{"2"});
}

// Trim Extreme Values.

TEST_F(ComputeTest, TrimKeepsTheCutpointsAndTheCellsAsTheyStand) {
  Make({{"X", {"1", "2.0", "3", "4", 2.5, "9", "", "text"}, "9||||||"}});
  FillTrim(1, "T", "2", "3");
  EXPECT_EQ(Run().changed_cells, 4u);
  EXPECT_EQ(Cells(2), (Texts{"-", "'2.0'", "'3'", "-", "2.5", "-", "-", "'text'"}));
}

TEST_F(ComputeTest, ACutpointThatIsNoNumberKeepsEverything) {
  Make({{"X", {"1", "100"}}});
  FillTrim(1, "T", "low", "3");
  Run();
  EXPECT_EQ(Cells(2), Cells(1));
}

TEST_F(ComputeTest, TrimGoesOnUntilItIsOpenedAnewOrReset) {
  Make({{"X", {"1", "5"}}});
  FillTrim(1, "T", "1", "1");
  Run();
  panel.Text5 = panel.Text6 = "5";
  Run();
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(Cells(2), Cells(1));
  ChangeNewName(panel, "U");
  Run();
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.VariableName(2), "T");
  Open(RecodeMode::kTrim);
  Run();
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(data.VariableName(3), "U");
  ResetRecodePanel(panel);
  FillTrim(1, "W", "1", "1");
  Run();
  EXPECT_EQ(data.VariableCount, 4u);
}

TEST_F(ComputeTest, TrimChecksTheVariableAheadOfTheBoxes) {
  Make({{"X", {"1"}}});
  Open(RecodeMode::kTrim);
  ExpectRefusal("You must select a variable from the list");
  FillTrim(1, "T", "1", "");
  ExpectRefusal(kEmptyBoxText);
}

}  // namespace
}  // namespace tessara
