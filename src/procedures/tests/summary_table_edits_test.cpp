#include <gtest/gtest.h>

#include "procedures/tests/table_fixture.h"

// What a later run finds of a table that the user has worked on, and what a table refuses.

namespace tessara {
namespace {

TableFixture TwoVariables() {
  TableFixture run({{.name = "A", .cells = Texts({"x", "y", "y"})}, {.name = "B", .cells = Texts({"1", "1", "2"})}});
  run.options().counts = true;
  run.Categorical({1}, {2});
  return run;
}

const TableTexts kTable = {{"", "", "   All", "1", "2"},
                           {"Total Count", "", "3", "2", "1"},
                           {"A", "", "", "", ""},
                           {"x", "Count", "1.0", "1.0", "0.0"},
                           {"y", "Count", "2.0", "1.0", "1.0"}};

TEST(SummaryTableEdits, TheSameRunAgainChangesNothing) {
  TableFixture run = TwoVariables();
  EXPECT_EQ(run.Texts(), kTable);
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Texts(), kTable);
}

TEST(SummaryTableEdits, FiguresAreWrittenAnewAndTheUsersLabelsStay) {
  TableFixture run = TwoVariables();
  run.table.grid.SetText(4, 1, "Group x");
  run.table.grid.SetText(5, 1, "");
  run.table.grid.SetText(1, 3, "Everybody");
  run.table.grid.SetText(4, 3, "99");
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Row(1)[2], "Everybody");
  EXPECT_EQ(run.Row(4), (std::vector<std::string>{"Group x", "Count", "1.0", "1.0", "0.0"}));
  EXPECT_EQ(run.Row(5)[0], "");
}

TEST(SummaryTableEdits, ADeletedRowComesBackBehindTheOthers) {
  TableFixture run = TwoVariables();
  run.table.grid.RemoveRows(4, 1);
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Texts(), (TableTexts{kTable[0], kTable[1], kTable[2], kTable[4], kTable[3]}));
}

TEST(SummaryTableEdits, ADeletedColumnComesBackOnTheRight) {
  TableFixture run = TwoVariables();
  run.table.grid.RemoveColumns(4, 1);
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Row(1), (std::vector<std::string>{"", "", "   All", "2", "1"}));
  EXPECT_EQ(run.Row(2), (std::vector<std::string>{"Total Count", "", "3", "1", "2"}));
}

TEST(SummaryTableEdits, ADeletedHeadingComesBackAboveItsColumns) {
  TableFixture run = TwoVariables();
  run.table.grid.RemoveRows(1, 1);
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Texts(), kTable);
}

TEST(SummaryTableEdits, ADeletedLabelColumnComesBackAndTheFiguresStandWhereTheyBelong) {
  for (const TableBlock& deleted :
       {TableBlock{.first_column = 1, .last_column = 1}, TableBlock{.first_column = 2, .last_column = 2},
        TableBlock{.first_column = 1, .last_column = 2}}) {
    TableFixture run = TwoVariables();
    run.table.grid.RemoveColumns(deleted.first_column, deleted.last_column - deleted.first_column + 1);
    run.Categorical({1}, {2});
    EXPECT_EQ(run.Texts(), kTable) << deleted.first_column << " to " << deleted.last_column;
  }
}

TEST(SummaryTableEdits, WhatTheUserHasWrittenBesideTheTableIsNotOverwritten) {
  TableFixture run = TwoVariables();
  run.table.grid.SetText(4, 6, "see page 3");
  run.table.grid.SetText(6, 1, "Source: survey");
  run.Categorical({1, 2}, {1});
  EXPECT_EQ(run.Row(1), (std::vector<std::string>{"", "", "   All", "1", "2", "", "x", "y"}));
  EXPECT_EQ(run.Row(4)[5], "see page 3");
  EXPECT_EQ(run.Texts().back()[0], "Source: survey");  // rows of the block went in ahead of it
  EXPECT_EQ(run.Texts().size(), 10u);
}

TEST(SummaryTableEdits, AClearedTableOpensAnew) {
  TableFixture run = TwoVariables();
  run.table.grid.Clear();
  run.panel.control_variable = {2, "B"};
  run.panel.control = {ControlRelation::kEqualTo, "1"};
  run.Categorical({1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"Control: B = 1", "", "   All"},
                                     {"Total Count", "", "2"},
                                     {"A", "", ""},
                                     {"x", "Count", "1.0"},
                                     {"y", "Count", "1.0"}}));
}

TEST(SummaryTableEdits, AVariableOfAnIdentityHasTooManyCategories) {
  TestColumn id{.name = "ID"};
  for (int i = 0; i <= 10000; ++i) id.cells.emplace_back(static_cast<double>(i + 1));
  TableFixture run({id, {.name = "Y", .cells = Texts({"1", "2"})}});
  run.options() = {.counts = true, .mean = true};
  run.Categorical({1, 2}, {1});
  run.Continuous({1}, {1});
  const std::string& log = run.output.OutputLogText;
  const std::string sentence = "There are too many categories for a table.";
  EXPECT_NE(log.find("Frequency Analysis: ID\r\n\r\n" + sentence), log.npos);
  EXPECT_NE(log.find("Crosstab Comparison: ID by ID\r\n\r\n" + sentence), log.npos);
  EXPECT_NE(log.find("Summary Comparison: ID by ID\r\n\r\n" + sentence), log.npos);
  EXPECT_EQ(run.Row(1), (std::vector<std::string>{"", "", "   All", "1", "2"}));  // Y has been counted
}

TEST(SummaryTableEdits, TenThousandCategoriesHaveARowEach) {
  TestColumn id{.name = "ID"};
  for (int i = 0; i < 10000; ++i) id.cells.emplace_back(static_cast<double>(i + 1));
  TableFixture run({id});
  run.options().counts = true;
  EXPECT_FALSE(run.Categorical({1}).aborted);
  EXPECT_EQ(run.table.grid.RowCount(), 10003u);
  EXPECT_EQ(run.table.grid.Text(10003, 1), "10000");
}

// 2,000 by 2,000 categories: with two label columns and that of all cases there would be four million cells and more.
TEST(SummaryTableEdits, ATableThatIsFullKeepsWhatItHas) {
  TestColumn a{.name = "A"};
  for (int i = 0; i < 2000; ++i) a.cells.emplace_back(static_cast<double>(i + 1));
  TableFixture run({a, {.name = "B", .cells = Texts({"1"})}});
  run.options().counts = true;
  EXPECT_TRUE(run.Categorical({1}, {1, 2}).aborted);
  EXPECT_NE(run.output.OutputLogText.find("Crosstab Comparison: A by A\r\n\r\nThere is no room left in the table."),
            std::string::npos);
  EXPECT_EQ(run.table.grid.RowCount(), 2003u);
  EXPECT_EQ(run.Row(1), (std::vector<std::string>{"", "", "   All", "1"}));  // the pair behind it is there
}

}  // namespace
}  // namespace tessara
