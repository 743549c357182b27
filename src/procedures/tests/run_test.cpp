#include "procedures/run.h"

#include <gtest/gtest.h>

#include "data/cell_block.h"
#include "data/change_door.h"
#include "platform/scripted_platform.h"

namespace tessara {
namespace {

constexpr const char* kAborted = "Procedure Aborted";
constexpr const char* kTryAgain = "Try Again!";

class RunTest : public testing::Test {
 protected:
  // V1 holds 1 2 3, V2 holds 4 5 7; V3 is blank.
  RunTest() {
    MakeEmptyDataSet(data);
    const char* cells[2][3] = {{"1", "2", "3"}, {"4", "5", "7"}};
    for (std::size_t column = 1; column <= 2; ++column) {
      for (std::size_t record = 0; record < 3; ++record) {
        MatrixEditor(data).SetText(kFirstRecordRow + record, column, cells[column - 1][record]);
      }
    }
  }

  void Select(Procedure procedure, std::vector<std::size_t> analysis, std::vector<std::size_t> independent = {}) {
    SelectProcedure(panel, procedure);
    panel.SelectedVariables = std::move(analysis);
    panel.IndependentVariables = std::move(independent);
  }

  RunOutcome RunNow() {
    const RunOutcome outcome = tessara::Run(data, panel, output, charts, table, platform);
    EXPECT_EQ(platform.wait_cursors, 0);  // off on every path
    EXPECT_EQ(platform.most_wait_cursors, 1);
    return outcome;
  }

  void ExpectRefusal(const RunOutcome& outcome, const std::string& title, const std::string& text) const {
    EXPECT_TRUE(outcome.refused);
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, title);
    EXPECT_EQ(platform.messages[0].text, text);
    EXPECT_EQ(platform.messages[0].tone, Tone::kRefusal);
  }

  static std::size_t Occurrences(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
    return count;
  }

  DataSet data;
  ProcedurePanel panel;
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
  ScriptedPlatform platform;
};

TEST_F(RunTest, NoVariable) {
  Select(Procedure::kFrequencies, {});
  ExpectRefusal(RunNow(), kAborted, "Please select a dependent variable.");
}

TEST_F(RunTest, NoVariableComesAheadOfNoProcedure) {
  ExpectRefusal(RunNow(), kAborted, "Please select a dependent variable.");
}

TEST_F(RunTest, IndependentVariablesAloneAreNoSelection) {
  Select(Procedure::kCrosstabulation, {}, {2});
  panel.control_variable.column = 1;
  ExpectRefusal(RunNow(), kAborted, "Please select a dependent variable.");
}

TEST_F(RunTest, NoProcedure) {
  Select(Procedure::kNone, {1, 2});
  ExpectRefusal(RunNow(), kTryAgain, "Please select a statistical procedure.");
  EXPECT_EQ(output.OutputLogText, "");
}

TEST_F(RunTest, AControlVariableAloneIsASubsetRequestAndNoError) {
  panel.control_variable.column = 1;
  const RunOutcome outcome = RunNow();
  EXPECT_TRUE(outcome.refused);  // the question was not answered with Yes
  EXPECT_FALSE(outcome.subset);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Replace current data?");
  EXPECT_EQ(data.RecordCount, kNewRecordCount);
}

TEST_F(RunTest, AControlVariableBeyondTheDataIsNoSubsetRequest) {
  panel.control_variable.column = 21;
  ExpectRefusal(RunNow(), kAborted, "Please select a dependent variable.");
}

// "4o" is no number: it must not let all cases through.
TEST_F(RunTest, AControlValueThatIsNoNumberRefusesTheRunAndStays) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  const std::string before = output.MostRecentText;
  panel.control_variable.column = 2;
  for (const ControlRelation relation : {ControlRelation::kGreaterThan, ControlRelation::kLessThan}) {
    platform.messages.clear();
    panel.control = {relation, "4o"};
    ExpectRefusal(RunNow(), "Warning", "Only numerical entries are allowed.");
    EXPECT_EQ(panel.control.value, "4o");
    EXPECT_EQ(output.MostRecentText, before);
    EXPECT_FALSE(charts.charts.empty());
  }
  panel.SelectedVariables.clear();  // a request for a subset is stopped too
  platform.messages.clear();
  ExpectRefusal(RunNow(), "Warning", "Only numerical entries are allowed.");
}

TEST_F(RunTest, RelationsOfTextsAndAControlThatIsNotSetTakeAnyValue) {
  Select(Procedure::kFrequencies, {1});
  panel.control = {ControlRelation::kGreaterThan, "4o"};
  EXPECT_FALSE(RunNow().refused);
  panel.control_variable.column = 2;
  for (const ControlRelation relation :
       {ControlRelation::kEqualTo, ControlRelation::kNotEqualTo, ControlRelation::kNoMissing}) {
    panel.control.relation = relation;
    EXPECT_FALSE(RunNow().refused);
  }
  panel.control = {ControlRelation::kGreaterThan, ""};
  EXPECT_FALSE(RunNow().refused);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(RunTest, ProceduresForPairsNeedAnIndependentVariable) {
  for (const Procedure procedure : {Procedure::kCrosstabulation, Procedure::kTTest, Procedure::kAnova,
                                    Procedure::kCorrelation, Procedure::kRegression, Procedure::kDiagnostic}) {
    SCOPED_TRACE(FindProcedureRow(procedure)->caption);
    platform.messages.clear();
    Select(procedure, {1, 2});
    ExpectRefusal(RunNow(), kAborted, "Please select an independent variable.");
  }
  EXPECT_EQ(output.OutputLogText, "");
}

TEST_F(RunTest, TheMatrixNeedsTwoVariablesAndNoIndependentOne) {
  Select(Procedure::kCorrelation, {1});
  panel.options.correlation.create_matrix = true;
  ExpectRefusal(RunNow(), kAborted, "Please select two analysis variables.");
  platform.messages.clear();
  panel.SelectedVariables = {1, 2};
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(RunTest, TheMatrixRunsOnceForAllVariables) {
  Select(Procedure::kCorrelation, {1, 2, 1}, {2});
  panel.options.correlation.create_matrix = true;
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(Occurrences(output.MostRecentText, std::string(kReportSeparator)), 1u);
  EXPECT_EQ(Occurrences(output.MostRecentText, "Correlation Matrix"), 1u);
}

// V3 is blank: no pair with it has a case, but the matrix is printed all the same.
TEST_F(RunTest, APairOfTheMatrixWithoutCasesMarksTheRun) {
  Select(Procedure::kCorrelation, {1, 3});
  panel.options.correlation.create_matrix = true;
  const RunOutcome outcome = RunNow();
  EXPECT_TRUE(outcome.aborted);
  EXPECT_FALSE(outcome.refused);
  EXPECT_EQ(Occurrences(output.MostRecentText, "-- Error --"), 2u);
  EXPECT_EQ(Occurrences(output.MostRecentText, "Correlation Matrix"), 1u);
}

TEST_F(RunTest, CorrelationRunsForEachPairInListOrder) {
  Select(Procedure::kCorrelation, {2, 1}, {1, 2});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_TRUE(platform.messages.empty());
  const std::string& text = output.MostRecentText;
  EXPECT_EQ(Occurrences(text, "Pearson's Correlation\r\n"), 4u);
  EXPECT_EQ(Occurrences(text, std::string(kReportSeparator)), 4u);
  EXPECT_LT(text.find("Pearson's Correlation\r\nV2: "), text.find("Pearson's Correlation\r\nV1: "));
  EXPECT_LT(text.find("          V1: \r\n"), text.find("          V2: \r\n"));
}

TEST_F(RunTest, ListVariablesRunsOnceForAllVariables) {
  Select(Procedure::kListVariables, {2, 1}, {2});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(Occurrences(output.MostRecentText, "List Variables\r\n"), 1u);
  EXPECT_EQ(Occurrences(output.MostRecentText, "\r\n00003  "), 1u);
}

TEST_F(RunTest, SamplesHaveButtonsOfTheirOwnAndNoRun) {
  for (const Procedure procedure : {Procedure::kRandomSample, Procedure::kRepeatedSampling}) {
    platform.messages.clear();
    Select(procedure, {1});
    ExpectRefusal(RunNow(), kTryAgain, "Please select a statistical procedure.");
  }
  EXPECT_EQ(output.OutputLogText, "");
}

TEST_F(RunTest, EachVariableIsTheMainOneInListOrder) {
  Select(Procedure::kFrequencies, {2, 1});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_TRUE(platform.messages.empty());
  const std::string& text = output.MostRecentText;
  EXPECT_EQ(Occurrences(text, std::string(kReportSeparator)), 2u);
  EXPECT_LT(text.find("Variable: V2"), text.find("Variable: V1"));
  EXPECT_NE(text.find("Variable: V1"), std::string::npos);
  EXPECT_EQ(output.OutputLogText, text);
}

TEST_F(RunTest, ARunReplacesTheMostRecentOutputAndExtendsTheLog) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  const std::string first = output.MostRecentText;
  Select(Procedure::kDescriptives, {2});
  RunNow();
  EXPECT_EQ(output.MostRecentText.find("Frequenc"), std::string::npos);
  EXPECT_EQ(output.OutputLogText, first + output.MostRecentText);
}

TEST_F(RunTest, ARunWithoutVariablesLeavesTheMostRecentOutput) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  const std::string before = output.MostRecentText;
  panel.SelectedVariables.clear();
  RunNow();
  EXPECT_EQ(output.MostRecentText, before);
}

TEST_F(RunTest, IndependentVariablesOfDescriptivesAreAnsweredOnceByANote) {
  Select(Procedure::kDescriptives, {1, 2}, {2, 1});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_EQ(Occurrences(output.MostRecentText, std::string(kReportSeparator)), 2u);
  EXPECT_TRUE(platform.messages.empty());
  ASSERT_EQ(platform.notes.size(), 1u);
  EXPECT_NE(platform.notes[0].find("Explore"), std::string::npos);
  EXPECT_TRUE(table.grid.empty());
}

TEST_F(RunTest, FrequenciesAreFollowedByTheTableWithEachIndependentVariable) {
  Select(Procedure::kFrequencies, {1, 2}, {2, 1});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_TRUE(platform.messages.empty());
  const std::string& text = output.MostRecentText;
  EXPECT_EQ(Occurrences(text, std::string(kReportSeparator)), 6u);
  std::size_t at = 0;
  for (const char* head : {"Variable: V1 ", "V1 (Rows)  by  V2 (Columns)", "V1 (Rows)  by  V1 (Columns)",
                           "Variable: V2 ", "V2 (Rows)  by  V2 (Columns)", "V2 (Rows)  by  V1 (Columns)"}) {
    at = text.find(head, at);
    ASSERT_NE(at, std::string::npos) << head;
  }
}

TEST_F(RunTest, ATableOfEachMainVariableWithEachIndependentOne) {
  Select(Procedure::kCrosstabulation, {2, 1}, {1, 2});
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  std::size_t at = 0;
  for (const char* head : {"V2 (Rows)  by  V1", "V2 (Rows)  by  V2", "V1 (Rows)  by  V1", "V1 (Rows)  by  V2"}) {
    at = output.MostRecentText.find(head, at);
    ASSERT_NE(at, std::string::npos) << head;
  }
  EXPECT_EQ(data.RecordCount, kNewRecordCount);
}

// V2 has three categories, so the first pair ends in the error frame and the second gets its turn.
TEST_F(RunTest, DiagnosticAccuracyForEachReference) {
  MatrixEditor(data).SetText(kFirstRecordRow + 2, 1, "2");  // V1 holds 1 2 2
  Select(Procedure::kDiagnostic, {2}, {2, 1});
  const RunOutcome outcome = RunNow();
  EXPECT_TRUE(outcome.aborted);
  EXPECT_FALSE(outcome.refused);
  const std::string& text = output.MostRecentText;
  EXPECT_LT(text.find("-- Error --"), text.find("V2 (Test)  by  V1 (Reference)"));
  EXPECT_NE(text.find("V2 (Test)  by  V1 (Reference)"), std::string::npos);
}

// V1 and V2 have three cases, too few for a t-test, which says so once for each pair.
TEST_F(RunTest, ComparisonsRunForEveryPairOfVariables) {
  for (const Procedure procedure : {Procedure::kTTest, Procedure::kAnova}) {
    SCOPED_TRACE(FindProcedureRow(procedure)->caption);
    Select(procedure, {1, 2}, {2, 1});
    panel.options.t_test = {"1", "4"};
    const RunOutcome outcome = RunNow();
    EXPECT_FALSE(outcome.refused);
    EXPECT_EQ(outcome.aborted, procedure == Procedure::kTTest);
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_EQ(Occurrences(output.MostRecentText, std::string(kReportSeparator)), 4u);
    const bool t_test = procedure == Procedure::kTTest;
    std::size_t last = 0;
    for (const char* pair : {"V1#V2", "V1#V1", "V2#V2", "V2#V1"}) {
      const std::string y(pair, 2);
      const std::string x(pair + 3, 2);
      const std::size_t at = output.MostRecentText.find(t_test ? "T-Test Comparison: " + y + " by " + x
                                                               : "--- " + y + " (Means)  by  " + x + " (Groups)");
      ASSERT_NE(at, std::string::npos) << pair;
      EXPECT_GE(at, last) << pair;
      last = at;
    }
  }
}

TEST_F(RunTest, AnErrorFrameMarksTheRunAndTheNextVariableGetsItsTurn) {
  Select(Procedure::kFrequencies, {3, 1});  // V3 has no observations
  const RunOutcome outcome = RunNow();
  EXPECT_TRUE(outcome.aborted);
  EXPECT_FALSE(outcome.refused);
  const std::string& text = output.MostRecentText;
  EXPECT_LT(text.find("-- Error --"), text.find("Variable: V1"));
  EXPECT_NE(text.find("Variable: V1"), std::string::npos);
}

TEST_F(RunTest, AMarkOfOneRunIsGoneInTheNext) {
  Select(Procedure::kFrequencies, {3});
  EXPECT_TRUE(RunNow().aborted);
  Select(Procedure::kFrequencies, {1});
  EXPECT_FALSE(RunNow().aborted);
}

TEST_F(RunTest, ChartsComeOfASingleAnalysisVariable) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  EXPECT_EQ(charts.kind, ChartKind::kFrequencies);
  Select(Procedure::kFrequencies, {1, 2});
  RunNow();
  EXPECT_EQ(charts.kind, ChartKind::kNone);
}

TEST_F(RunTest, ARunThatIsRefusedTakesTheFormerChartsAway) {
  for (const Procedure procedure : {Procedure::kTTest, Procedure::kRegression, Procedure::kNone}) {
    Select(Procedure::kDescriptives, {1});
    RunNow();
    ASSERT_FALSE(charts.charts.empty());
    ASSERT_NE(charts.summary, "");
    Select(procedure, {1});
    EXPECT_TRUE(RunNow().refused);
    EXPECT_EQ(charts.kind, ChartKind::kNone);
    EXPECT_TRUE(charts.charts.empty());
    EXPECT_EQ(charts.summary, "");
  }
}

// The design has one box for both.
TEST_F(RunTest, TheTablesOfFrequenciesHaveTheirTestsWithTheIndexOfDispersion) {
  Select(Procedure::kFrequencies, {1}, {2});
  RunNow();
  EXPECT_EQ(output.MostRecentText.find("Chi-square  "), std::string::npos);
  panel.options.frequencies.dispersion = true;
  RunNow();
  EXPECT_NE(output.MostRecentText.find("Index of Dispersion"), std::string::npos);
  EXPECT_NE(output.MostRecentText.find("Chi-square  "), std::string::npos);
}

TEST_F(RunTest, TheFullCountsStandBehindARun) {
  for (const Procedure procedure :
       {Procedure::kFrequencies, Procedure::kDescriptives, Procedure::kCorrelation, Procedure::kListVariables}) {
    Select(procedure, {1, 3}, {2});
    RunNow();
    EXPECT_EQ(data.RecordCount, kNewRecordCount);
    EXPECT_EQ(data.VariableCount, kNewVariableCount);
  }
}

TEST_F(RunTest, RegressionEmptiesTheBoxAndARefusalBringsTheLogBack) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  ToggleOutputMode(output);  // the log is shown
  const std::string log = output.OutputLogText;
  Select(Procedure::kRegression, {1});
  RunNow();
  StoreBoxText(output);  // as the panel's view does
  EXPECT_EQ(output.OutputLogText, log);
  EXPECT_EQ(output.BoxText(), log);
  EXPECT_EQ(output.MostRecentText, "");
}

TEST_F(RunTest, RegressionRunsOnceForAllVariables) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  Select(Procedure::kRegression, {1, 2}, {2});  // V1 is Y; V2 as an analysis variable gets no model of its own
  const RunOutcome outcome = RunNow();
  EXPECT_FALSE(outcome.refused);
  EXPECT_FALSE(outcome.aborted);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(Occurrences(output.MostRecentText, std::string(kReportSeparator)), 1u);
  EXPECT_EQ(Occurrences(output.MostRecentText, "V1 = Constant + V2 + e"), 1u);
  EXPECT_EQ(output.MostRecentText.find("Frequenc"), std::string::npos);
  EXPECT_EQ(data.VariableCount, kNewVariableCount);
}

TEST_F(RunTest, TheKindOfRegressionDecides) {
  Select(Procedure::kRegression, {1}, {2});
  panel.regression = RegressionKind::kLogistic;
  EXPECT_TRUE(RunNow().aborted);  // 1 2 3 are no outcomes
  EXPECT_NE(output.MostRecentText.find("Logistic Regression Comparison for Y = V1"), std::string::npos);
}

// A run that begins forgets the charts of the one before it, whether or not a report comes of it.
TEST_F(RunTest, ARefusalOnTheWayLeavesNoChart) {
  const auto run_with_chart = [&] {
    Select(Procedure::kFrequencies, {1});
    RunNow();
    ASSERT_FALSE(charts.charts.empty());
  };
  run_with_chart();
  Select(Procedure::kCrosstabulation, {1});
  EXPECT_TRUE(RunNow().refused);  // there is no independent variable
  EXPECT_TRUE(charts.charts.empty());
  EXPECT_EQ(charts.kind, ChartKind::kNone);
  run_with_chart();
  Select(Procedure::kNone, {1});
  EXPECT_TRUE(RunNow().refused);
  EXPECT_TRUE(charts.charts.empty());
}

// Without an analysis variable a run does not even begin.
TEST_F(RunTest, ARefusalAheadOfTheRunLeavesTheCharts) {
  Select(Procedure::kFrequencies, {1});
  RunNow();
  const std::size_t count = charts.charts.size();
  ASSERT_GT(count, 0u);
  Select(Procedure::kFrequencies, {});
  EXPECT_TRUE(RunNow().refused);
  EXPECT_EQ(charts.charts.size(), count);
}

TEST_F(RunTest, SavedResidualsAreAmongTheVariablesAtOnce) {
  Select(Procedure::kRegression, {1}, {2});
  panel.options.least_squares.save_residuals = true;
  const std::uint64_t revision = data.Revision();
  RunNow();
  EXPECT_EQ(data.VariableCount, kNewVariableCount + 1);
  EXPECT_EQ(data.RecordCount, kNewRecordCount);
  EXPECT_EQ(data.VarList.back().name, "R-V1");
  EXPECT_GT(data.Revision(), revision);
}

}  // namespace
}  // namespace tessara
