#include <gtest/gtest.h>

#include "numerics/probability.h"
#include "procedures/tables/report_mask.h"
#include "procedures/tests/table_fixture.h"

namespace tessara {
namespace {

// ANSWER is 1 (Yes), 2 (No) or 3; SEX is a or b, and missing of the case that answered 3.
TableFixture Survey() {
  return TableFixture({{.name = "ANSWER",
                        .cells = Texts({"1", "1", "1", "2", "3"}),
                        .label = "Would you go again?",
                        .value_labels = {"1=Yes", "2=No"}},
                       {.name = "SEX", .cells = Texts({"a", "a", "b", "b", ""})},
                       {.name = "AGE", .cells = Texts({"10", "20", "40", "60", "20"})}});
}

TEST(SummaryTable, CountsAndPercentsOfAllAndOfEachCategory) {
  TableFixture run = Survey();
  run.options().counts = run.options().percent = true;
  EXPECT_FALSE(run.Categorical({1}, {2}).refused);
  // 1.96 * sqrt(0.25 / 5) = 0.43827, and with n = 2 it is 0.69296.
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All", "a", "b"},
                                     {"Total Count", "", "5", "2", "2"},
                                     {"95% CI (+/-)", "", "43.8%", "69.3%", "69.3%"},
                                     {"Would you go again?", "", "", "", ""},
                                     {"Yes", "Percent", "60.0%", "100.0%", "50.0%"},
                                     {"", "Count", "3.0", "2.0", "1.0"},
                                     {"No", "Percent", "20.0%", "0.0%", "50.0%"},
                                     {"", "Count", "1.0", "0.0", "1.0"},
                                     {"3", "Percent", "20.0%", "0.0%", "0.0%"},
                                     {"", "Count", "1.0", "0.0", "0.0"}}));
}

TEST(SummaryTable, OnlyCountsGiveEachCategoryOneRow) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.options().output_format = "0";
  run.Categorical({1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All"},
                                     {"Total Count", "", "5"},
                                     {"Would you go again?", "", ""},
                                     {"Yes", "Count", "3"},
                                     {"No", "Count", "1"},
                                     {"3", "Count", "1"}}));
}

TEST(SummaryTable, WholeNumbersHaveWholePercents) {
  TableFixture run = Survey();
  run.options().counts = run.options().percent = true;
  run.options().output_format = "0";
  run.Categorical({1});
  EXPECT_EQ(run.Row(3)[2], "44%");
  EXPECT_EQ(run.Row(5)[2], "60%");
  EXPECT_EQ(run.Row(6)[2], "3");
}

TEST(SummaryTable, TheMaskOfEachOutputFormat) {
  const char* percents[] = {"0.0%", "0.00%", "0.000%", "0.0000%", "0%"};
  const char* others[] = {"0.0", "0.00", "0.000", "0.0000", "0"};
  for (std::size_t index = 0; index < 5; ++index) {
    EXPECT_EQ(ReportMask(index, MaskKind::kPercent), percents[index]);
    EXPECT_EQ(ReportMask(index, MaskKind::kOther), others[index]);
    EXPECT_EQ(OutputFormatIndex(others[index]), index);
  }
}

TEST(SummaryTable, ACountUnderTwoDecimalsHasThem) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.options().output_format = "0.00";
  run.Categorical({1});
  EXPECT_EQ(run.Row(4)[2], "3.00");
  EXPECT_EQ(run.Row(2)[2], "5");
}

// AGE of a: 10, 20; of b: 40, 60; of all: 10 20 40 60 20, mean 30, squares 1600.
// All: deviation sqrt(400) = 20, error 20 / sqrt(4) = 10, interval 2.776 * 10.
// a: squares 50, deviation sqrt(50), error the same, interval 12.706 times it; b: squares 200.
TEST(SummaryTable, FiguresOfContinuousDataStandInTheToldOrder) {
  TableFixture run = Survey();
  run.options() = {.count = true,
                   .mean = true,
                   .sum = true,
                   .standard_deviation = true,
                   .standard_error = true,
                   .interval = true,
                   .output_format = "0.00"};
  EXPECT_FALSE(run.Continuous({3}, {2}).refused);
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "All", "a", "b"},
                                     {"AGE", "", "", "", ""},
                                     {"", "Mean", "30.00", "15.00", "50.00"},
                                     {"", "Count", "5", "2", "2"},
                                     {"", "Sum", "150.00", "30.00", "100.00"},
                                     {"", "Std Dev", "20.00", "7.07", "14.14"},
                                     {"", "SE Mean", "10.00", "7.07", "14.14"},
                                     {"", "95% CI (+/-)", "27.76", "89.84", "179.69"}}));
}

TEST(SummaryTable, ContinuousDataWithoutABoxHaveHeadingsAlone) {
  TableFixture run = Survey();
  EXPECT_FALSE(run.Continuous({3}, {2}).refused);
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "All", "a", "b"}, {"AGE", "", "", "", ""}}));
}

// One case in group z: the critical value is 1.960, and the deviation 0.
TEST(SummaryTable, OneCaseInAColumnHasNoDeviation) {
  TableFixture run({{.name = "Y", .cells = Texts({"7", "1", "2"})}, {.name = "G", .cells = Texts({"z", "a", "a"})}});
  run.options() = {.count = true, .standard_deviation = true, .standard_error = true, .interval = true};
  run.Continuous({1}, {2});
  const TableTexts texts = run.Texts();
  ASSERT_EQ(texts.size(), 6u);
  EXPECT_EQ(texts[0][4], "z");
  EXPECT_EQ(texts[2][4], "1");
  for (std::size_t row = 3; row < 6; ++row) EXPECT_EQ(texts[row][4], "0.0");
  Number n = 1;
  EXPECT_EQ(TCritical95(n), 1.960);
}

TEST(SummaryTable, TheBlocksStandBelowEachOtherAndEachHeadingOnce) {
  TableFixture run = Survey();
  run.options() = {.counts = true, .mean = true};
  run.Continuous({3}, {2});
  run.Categorical({2});
  run.Continuous({1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "All", "a", "b"},
                                     {"AGE", "", "", "", ""},
                                     {"", "Mean", "30.0", "15.0", "50.0"},
                                     {"Would you go again?", "", "", "", ""},
                                     {"", "Mean", "1.6", "", ""},
                                     {"", "", "   All", "", ""},
                                     {"Total Count", "", "4", "", ""},
                                     {"SEX", "", "", "", ""},
                                     {"a", "Count", "2.0", "", ""},
                                     {"b", "Count", "2.0", "", ""}}));
}

// The first run has counts, the second one percents: they stand behind all rows of the variable.
TEST(SummaryTable, RowsOfALaterRunBeginWithTheLabelAgain) {
  TableFixture run({{.name = "A", .cells = Texts({"x", "y", "y", "y"})}, {.name = "B", .cells = Texts({"1"})}});
  run.options() = {.counts = true};
  run.Categorical({1, 2});
  run.options() = {.percent = true};
  run.Categorical({1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All"},
                                     {"Total Count", "", "4"},
                                     {"A", "", ""},
                                     {"x", "Count", "1.0"},
                                     {"y", "Count", "3.0"},
                                     {"95% CI (+/-)", "", "49.0%"},
                                     {"x", "Percent", "25.0%"},
                                     {"y", "Percent", "75.0%"},
                                     {"Total Count", "", "1"},
                                     {"B", "", ""},
                                     {"1", "Count", "1.0"}}));
}

TEST(SummaryTable, ALaterRunOverwritesWhatIsThereAndCategoriesThatAreGoneCountNothing) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.Categorical({1}, {2});
  run.panel.control_variable = {2, "SEX"};
  run.panel.control = {ControlRelation::kEqualTo, "b"};
  run.Categorical({1}, {2});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All", "a", "b"},
                                     {"Total Count", "", "2", "2", "2"},
                                     {"Would you go again?", "", "", "", ""},
                                     {"Yes", "Count", "1.0", "2.0", "1.0"},
                                     {"No", "Count", "1.0", "0.0", "1.0"},
                                     {"3", "Count", "0.0", "0.0", "0.0"}}));
}

TEST(SummaryTable, TheFirstCellTakesTheControlWhenTheTableIsOpened) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.panel.control_variable = {3, "AGE"};
  run.panel.control = {ControlRelation::kGreaterThan, "15"};
  run.Categorical({1});
  EXPECT_EQ(run.table.grid.Text(1, 1), "Control: AGE > 15");
  run.panel.control = {ControlRelation::kGreaterThan, "35"};
  run.Categorical({1});
  run.Continuous({3});
  EXPECT_EQ(run.table.grid.Text(1, 1), "Control: AGE > 15");
  EXPECT_EQ(run.table.grid.Text(7, 3), "All");
  EXPECT_EQ(run.table.grid.Text(7, 1), "");
}

// All texts that are numbers: 9 stands ahead of 10. The columns stand by their text.
TEST(SummaryTable, RowsStandInTheOrderOfFrequenciesAndColumnsInThatOfTables) {
  TableFixture run({{.name = "A", .cells = Texts({"10", "9", "10", "9"})}});
  run.options().counts = true;
  run.Categorical({1}, {1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All", "10", "9"},
                                     {"Total Count", "", "4", "2", "2"},
                                     {"A", "", "", "", ""},
                                     {"9", "Count", "2.0", "0.0", "2.0"},
                                     {"10", "Count", "2.0", "2.0", "0.0"}}));
}

TEST(SummaryTable, ANumberAndATextOfTheSameLookHaveARowAndAColumnEach) {
  TableFixture run({{.name = "A", .cells = {5.0, "5", "5"}}});
  run.options().counts = true;
  run.Categorical({1}, {1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All", "5", "5"},
                                     {"Total Count", "", "3", "1", "2"},
                                     {"A", "", "", "", ""},
                                     {"5", "Count", "1.0", "1.0", "0.0"},
                                     {"5", "Count", "2.0", "0.0", "2.0"}}));
}

TEST(SummaryTable, VariablesOfOneNameAreToldApart) {
  TableFixture run({{.name = "A", .cells = Texts({"x"})}, {.name = "A", .cells = Texts({"x"})}});
  run.options().counts = true;
  run.Categorical({1, 2}, {1, 2});
  EXPECT_EQ(run.Row(1), (std::vector<std::string>{"", "", "   All", "x", "x"}));
  EXPECT_EQ(run.Texts().size(), 7u);
  run.Categorical({1, 2}, {1, 2});
  EXPECT_EQ(run.Texts().size(), 7u);
  EXPECT_EQ(run.Row(1).size(), 5u);
}

TEST(SummaryTable, AValueThatStandsForSomethingElseNowHasARowOfItsOwn) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.options().output_format = "0";
  run.Categorical({1});
  run.data = MakeTestData({{.name = "ANSWER",
                            .cells = Texts({"1", "2", "2"}),
                            .label = "Would you go again?",
                            .value_labels = {"1=No", "2=Yes"}}});
  run.Categorical({1});
  EXPECT_EQ(run.Texts(), (TableTexts{{"", "", "   All"},
                                     {"Total Count", "", "3"},
                                     {"Would you go again?", "", ""},
                                     {"Yes", "Count", "0"},
                                     {"No", "Count", "0"},
                                     {"3", "Count", "0"},
                                     {"No", "Count", "1"},
                                     {"Yes", "Count", "2"}}));
}

TEST(SummaryTable, ARunUnderAnotherControlThanTheCaptionIsTold) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.Categorical({1});
  EXPECT_TRUE(run.platform.notes.empty());
  run.panel.control_variable.column = 2;
  run.Categorical({1});
  EXPECT_EQ(run.platform.notes,
            std::vector<std::string>{"the caption of the table is that of its first run, which had another control"});
  run.platform.notes.clear();
  run.table.grid.SetText(1, 1, "My table");
  run.Categorical({1});
  EXPECT_TRUE(run.platform.notes.empty());
}

TEST(SummaryTable, AnErrorReportAloneLeavesTheTextInFront) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.panel.control_variable.column = 3;
  run.panel.control = {.relation = ControlRelation::kGreaterThan, .value = "99"};
  EXPECT_TRUE(run.Categorical({1}).aborted);
  EXPECT_FALSE(run.output.OutputGridMode);
  EXPECT_TRUE(run.table.grid.empty());
}

TEST(SummaryTable, FiguresStandAtTheRightAndColumnsFitTheirTexts) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.Categorical({1}, {2});
  for (std::size_t column = 1; column <= 5; ++column) {
    EXPECT_EQ(run.table.grid.Cell(4, column).alignment, TableAlignment::kRight) << column;
  }
  EXPECT_EQ(run.table.grid.Cell(2, 1).alignment, TableAlignment::kRight);
  EXPECT_EQ(run.table.grid.Cell(3, 1).alignment, TableAlignment::kLeft);  // heads the rows of the variable
  const double character = kCharacterWidth;
  EXPECT_EQ(run.table.grid.Width(1), (19 + 2) * character);  // "Would you go again?" and a gap
  EXPECT_EQ(run.table.grid.Width(3), (6 + 2) * character);   // "   All"
}

TEST(SummaryTable, ATableLeavesNoChartsAndNoReport) {
  TableFixture run = Survey();
  run.charts.charts.emplace_back();
  run.charts.kind = ChartKind::kFrequencies;
  run.options().counts = true;
  EXPECT_FALSE(run.Categorical({1}, {2}).aborted);
  EXPECT_TRUE(run.charts.charts.empty());
  EXPECT_EQ(run.output.OutputLogText, "");
  EXPECT_TRUE(run.output.OutputGridMode);
  EXPECT_TRUE(run.platform.notes.empty());
}

TEST(SummaryTable, AnotherRunMakesTheTextVisible) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.Categorical({1});
  run.panel.selected = Procedure::kFrequencies;
  tessara::Run(run.data, run.panel, run.output, run.charts, run.table, run.platform);
  EXPECT_FALSE(run.output.OutputGridMode);
  EXPECT_EQ(run.Texts().size(), 6u);
}

TEST(SummaryTable, NeitherCountsNorPercentAsksForAProcedureAndChangesNothing) {
  TableFixture run = Survey();
  run.options().counts = true;
  run.Categorical({1});
  run.table.grid.SetWidth(1, 5000);
  const TableTexts before = run.Texts();
  run.options() = {.mean = true};
  EXPECT_TRUE(run.Categorical({2}).refused);
  ASSERT_EQ(run.platform.messages.size(), 1u);
  EXPECT_EQ(run.platform.messages[0].title, "Try Again!");
  EXPECT_EQ(run.platform.messages[0].text, "Please select a statistical procedure.");
  EXPECT_EQ(run.Texts(), before);
  EXPECT_EQ(run.table.grid.Width(1), 5000);
}

TEST(SummaryTable, NoVariableAsksForOne) {
  TableFixture run = Survey();
  run.options().counts = true;
  EXPECT_TRUE(run.Categorical({}, {2}).refused);
  ASSERT_EQ(run.platform.messages.size(), 1u);
  EXPECT_EQ(run.platform.messages[0].text, "Please select a dependent variable.");
  EXPECT_FALSE(run.output.OutputGridMode);
}

TEST(SummaryTable, AnErrorStandsInTheLogAndANoteTellsOfIt) {
  TableFixture run({{.name = "A", .cells = Texts({"x", "y"})}, {.name = "E", .cells = Texts({"", ""})}});
  run.options().counts = true;
  const RunOutcome outcome = run.Categorical({2, 1}, {2});
  EXPECT_FALSE(outcome.refused);
  EXPECT_TRUE(outcome.aborted);
  const std::string separator(kReportSeparator);
  EXPECT_EQ(run.output.OutputLogText,
            FramedError("Frequency Analysis: E", "There are no observations, so the procedure was aborted.") +
                separator + FramedError("Crosstab Comparison: E by E", "There are no observations.") + separator +
                FramedError("Crosstab Comparison: A by E", "There are no observations.") + separator);
  EXPECT_EQ(run.Texts().size(), 5u);  // of A alone
  EXPECT_TRUE(run.output.OutputGridMode);
  EXPECT_EQ(run.platform.notes.size(), 1u);
}

TEST(SummaryTable, ErrorsOfContinuousDataAreThoseOfDescriptivesAndOfTheComparison) {
  TableFixture run({{.name = "Y", .cells = Texts({"1", "n"})}, {.name = "G", .cells = Texts({"", "g"})}});
  run.options().mean = true;
  EXPECT_TRUE(run.Continuous({1}, {2}).aborted);
  const std::string separator(kReportSeparator);
  EXPECT_EQ(run.output.OutputLogText,
            FramedError("Descriptive Analysis: Y", "There are less than 2 observations, so procedure was aborted.") +
                separator + FramedError("Summary Comparison: Y by G", "There are no observations.") + separator);
  EXPECT_TRUE(run.table.grid.empty());
}

}  // namespace
}  // namespace tessara
