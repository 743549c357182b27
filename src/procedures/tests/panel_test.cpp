#include "procedures/panel.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>
#include <vector>

#include "platform/scripted_platform.h"

namespace tessara {
namespace {

using Columns = std::vector<std::size_t>;

class PanelTest : public testing::Test {
 protected:
  PanelTest() { MakeEmptyDataSet(data); }

  void ExpectOneBox(const std::string& title, const std::string& text) const {
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, title);
    EXPECT_EQ(platform.messages[0].text, text);
    EXPECT_EQ(platform.messages[0].buttons, Buttons::kOk);
  }

  DataSet data;
  ProcedurePanel panel;
  ScriptedPlatform platform;
};

std::string BoxesOf(const ProcedureRow& row) {
  std::string text;
  for (const auto& box : row.boxes) {
    ProcedureOptions options;
    text.append(box.control).append("=").append(box.caption).append(box.option(options) ? " (on);" : ";");
  }
  return text;
}

std::string FieldsOf(const ProcedureRow& row) {
  std::string text;
  for (const auto& field : row.fields) text.append(field.control).append("=").append(field.caption).append(";");
  return text;
}

// The rows of all procedures, regression as that of each of its kinds.
std::vector<const ProcedureRow*> AllRows() {
  std::vector<const ProcedureRow*> rows = {&RegressionRow(RegressionKind::kLeastSquares),
                                           &RegressionRow(RegressionKind::kLogistic)};
  for (const ProcedureRow& row : ProcedureRows()) {
    if (row.procedure != Procedure::kRegression) rows.push_back(&row);
  }
  return rows;
}

struct ExpectedRow {
  Procedure procedure;
  const char* control;
  const char* caption;
  const char* tooltip;
  const char* headings;
  const char* boxes_and_fields;
  const char* example_heading;
};

TEST(ProcedureRows, HoldTheWordsOfThePanel) {
  const ExpectedRow expected[] = {
      {Procedure::kFrequencies, "Option1", "Frequencies", "Counts and percentages", "Analysis Variable/",
       "Check2=Index of Dispersion;", "  Frequencies    [Example]"},
      {Procedure::kDescriptives, "Option2", "Descriptives", "Calculates summary statistics", "Analysis Variable/",
       "Check1=Show bar chart;Check2=Save Z-scores;", "  Descriptive Statistics    [Example]"},
      {Procedure::kCrosstabulation, "Option3", "Crosstabulation", "Compare one categorical variable to another",
       "Rows/Columns", "Check1=Association;Check2=Chi-Square Tests (on);Check11=Agreement;Check12=Risk (2x2 only);",
       "  Crosstabulation    [Example]"},
      {Procedure::kTTest, "Option4", "T-test", "Compare two independent means",
       "Continuous Variable/Categorical Variable", "Text5=Group A Value>;Text6=Group B Value >;",
       "  Two-Sample Difference of Means    [Example]"},
      {Procedure::kAnova, "Option5", "One-Way ANOVA", "Compare 2 or more independent means",
       "Continuous Variable/Categorical Variable", "Check2=Summary Statistics;Check1=Post Hoc Test;",
       "  One-Way ANOVA    [Example]"},
      {Procedure::kCorrelation, "Option6", "Correlation", "Compare two continuous variables", "Variable Y/Variable X",
       "Check2=Create Matrix;", "  Correlation    [Example]"},
      {Procedure::kRegression, "Option7", "Regression", "Multiple and simple regression", "Variable Y/Variable X",
       "Check1=Save Residuals;Check2=Summary Statistics;", "  Ordinary Least Squares Regression    [Example]"},
      {Procedure::kListVariables, "Option12", "List Variables", "List up to 7 variables", "List Variables/",
       "Text7=Max Observations;", "  List Variables    [Example]"},
      {Procedure::kDiagnostic, "Option17", "Diagnostic", "Diagnostic accuracy",
       "Test Variable-Rows/Reference Variable-Cols", "", "  Diagnostic Accuracy    [Example]"},
      {Procedure::kExplore, "Option20", "Explore", "Explore descriptive statistics by subgroups",
       "Continuous Variable/Categorical Variable", "", "  Explore    [Example]"},
      {Procedure::kSummaryTables, "Reports", "Summary Tables", "", "Rows/Columns",
       "Check3=Counts;Check4=Percent;Check9=Count;Check5=Mean;Check10=Sum;Check6=Standard Deviation;"
       "Check7=Standard Error;Check8=95% CI;Combo1=Output Format;",
       "  Summary Tables    [Example]"},
      {Procedure::kRandomSample, "Option18", "Random Sample", "Create a random sample from current data", "/", "",
       "  Create Random Sample    [Example]"},
      {Procedure::kRepeatedSampling, "Option19", "Repeated Sampling", "Show the effects of repeated random sampling",
       "/", "", "  Repeated Random Sampling    [Example]"},
  };
  EXPECT_EQ(ProcedureRows().size(), std::size(expected));
  for (const auto& row : expected) {
    SCOPED_TRACE(row.caption);
    const ProcedureRow* found = FindProcedureRow(row.procedure);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->control, row.control);
    EXPECT_EQ(found->caption, row.caption);
    EXPECT_EQ(found->tooltip, row.tooltip);
    EXPECT_EQ(std::string(found->first_heading) + "/" + std::string(found->second_heading), row.headings);
    EXPECT_EQ(BoxesOf(*found) + FieldsOf(*found), row.boxes_and_fields);
    EXPECT_EQ(found->example_heading, row.example_heading);
  }
  EXPECT_EQ(FindProcedureRow(Procedure::kNone), nullptr);
}

TEST(ProcedureRows, HoldTheTooltipsOfTheBoxes) {
  const std::tuple<Procedure, std::size_t, const char*> expected[] = {
      {Procedure::kFrequencies, 0, "Calculates measure of variation for nominal/ordinal level data"},
      {Procedure::kDescriptives, 0, "Displays horizontal bar chart with output"},
      {Procedure::kDescriptives, 1, "Save z-scores as another variable"},
      {Procedure::kCrosstabulation, 0, "Displays measures of association"},
      {Procedure::kCrosstabulation, 1, "Displays significance tests"},
      {Procedure::kCrosstabulation, 2, "Displays Kappa and proportion agree"},
      {Procedure::kCrosstabulation, 3, "Displays odds ratio and relative risk"},
      {Procedure::kAnova, 0, "Displays descriptive group statistics"},
      {Procedure::kAnova, 1, "Displays Bonferroni post hoc analysis"},
      {Procedure::kCorrelation, 0, "Displays correlation matrix"},
      {Procedure::kRegression, 0, "Save regression residuals as another variable"},
      {Procedure::kRegression, 1, "Summary statistics for observations included in the model"},
  };
  for (const auto& [procedure, box, tooltip] : expected) {
    EXPECT_EQ(FindProcedureRow(procedure)->boxes.at(box).tooltip, tooltip);
  }
}

TEST(ProcedureRows, RegressionHasARowForEachKind) {
  const ProcedureRow& least_squares = RegressionRow(RegressionKind::kLeastSquares);
  EXPECT_EQ(least_squares.control, "Option21");
  EXPECT_EQ(least_squares.tooltip, "For continuous dependent variables");
  EXPECT_EQ(BoxesOf(least_squares), "Check1=Save Residuals;Check2=Summary Statistics;");
  EXPECT_EQ(least_squares.example_heading, "  Ordinary Least Squares Regression    [Example]");
  const ProcedureRow& logistic = RegressionRow(RegressionKind::kLogistic);
  EXPECT_EQ(logistic.control, "Option22");
  EXPECT_EQ(logistic.caption, "Logistic");
  EXPECT_EQ(logistic.tooltip, "For dichotomous dependent variables");
  EXPECT_EQ(BoxesOf(logistic), "Check1=Save Predicted;Check2=Summary Statistics;");
  EXPECT_EQ(logistic.boxes[0].tooltip, "Save predicted values as another variable");
  EXPECT_EQ(logistic.first_heading, "Variable Y");
  EXPECT_EQ(logistic.second_heading, "Variable X");
  EXPECT_EQ(logistic.example_heading, "  Logistic Regression    [Example]");
}

// Every box and field of every procedure, set and then left for another one.
TEST_F(PanelTest, SelectingAProcedureTurnsItsBoxesOffAndClearsTheGroupValues) {
  const auto rows = AllRows();
  for (const ProcedureRow* row : rows) {
    for (const auto& box : row->boxes) box.option(panel.options) = true;
    for (const auto& field : row->fields) field.option(panel.options) = "30";
  }
  SelectProcedure(panel, Procedure::kTTest);
  EXPECT_EQ(panel.selected, Procedure::kTTest);
  for (const ProcedureRow* row : rows) {
    for (const auto& box : row->boxes) {
      EXPECT_EQ(box.option(panel.options), box.caption == "Chi-Square Tests") << row->caption << " " << box.caption;
    }
  }
  EXPECT_EQ(panel.options.t_test.group_a, "");
  EXPECT_EQ(panel.options.t_test.group_b, "");
  EXPECT_EQ(panel.options.list.max_observations, "30");
}

TEST_F(PanelTest, NoTwoBoxesOfAPanelStandForTheSameOption) {
  std::set<const void*> options;
  for (const ProcedureRow* row : AllRows()) {
    for (const auto& box : row->boxes) {
      EXPECT_TRUE(options.insert(&box.option(panel.options)).second) << row->caption << " " << box.caption;
    }
    for (const auto& field : row->fields) {
      EXPECT_TRUE(options.insert(&field.option(panel.options)).second) << row->caption << " " << field.caption;
    }
  }
}

TEST_F(PanelTest, TheKindOfRegressionSelectsRegression) {
  panel.options.least_squares.summary = true;
  EXPECT_EQ(ShownRow(panel), nullptr);
  SelectRegression(panel, RegressionKind::kLogistic);
  EXPECT_EQ(panel.selected, Procedure::kRegression);
  EXPECT_EQ(ShownRow(panel)->control, "Option22");
  EXPECT_FALSE(panel.options.least_squares.summary);
  SelectRegression(panel, RegressionKind::kLeastSquares);
  EXPECT_EQ(ShownRow(panel)->control, "Option21");
  SelectProcedure(panel, Procedure::kExplore);
  EXPECT_EQ(ShownRow(panel)->control, "Option20");
}

TEST_F(PanelTest, AClickTakesTheMainVariable) {
  PickVariable(panel, 7);
  EXPECT_EQ(panel.PickedVariable, 7u);
  PickVariable(panel, 0);
  EXPECT_EQ(panel.PickedVariable, 0u);
}

TEST_F(PanelTest, ChosenVariablesAreAddedInListOrder) {
  AddAnalysisVariable(panel, platform, {2, 5});
  AddAnalysisVariable(panel, platform, {1});
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 5, 1}));
  EXPECT_EQ(panel.SelectedVariables.size(), 3u);
  AddIndependentVariable(panel, platform, {4, 6});
  EXPECT_EQ(panel.IndependentVariables, (Columns{4, 6}));
  EXPECT_EQ(panel.SelectedVariables.size(), 3u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PanelTest, AVariableCanBeChosenTwice) {
  AddAnalysisVariable(panel, platform, {3});
  AddAnalysisVariable(panel, platform, {3});
  EXPECT_EQ(panel.SelectedVariables, (Columns{3, 3}));
}

TEST_F(PanelTest, NoneIsNoVariableOfAList) {
  AddAnalysisVariable(panel, platform, {0, 3});
  AddIndependentVariable(panel, platform, {0});
  EXPECT_EQ(panel.SelectedVariables, Columns{3});
  EXPECT_EQ(panel.SelectedVariables.size(), 1u);
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PanelTest, WithoutASelectionEachOperationAsksForOne) {
  AddAnalysisVariable(panel, platform, {});
  ExpectOneBox("Procedure Aborted", "You must select a variable from the list");
  platform.messages.clear();
  AddIndependentVariable(panel, platform, {});
  ExpectOneBox("Procedure Aborted", "You must select a variable from the list");
  platform.messages.clear();
  SetControlVariable(panel, data, platform, {});
  ExpectOneBox("Procedure Aborted", "You must select a variable from the list");
}

TEST_F(PanelTest, AnEighthVariableForListVariablesIsRefused) {
  SelectProcedure(panel, Procedure::kListVariables);
  AddAnalysisVariable(panel, platform, {1, 2, 3, 4, 5, 6, 7});
  EXPECT_TRUE(platform.messages.empty());
  AddAnalysisVariable(panel, platform, {8});
  ExpectOneBox("Maximum Reached", "The list variables procedure is limited to seven variables.");
  EXPECT_EQ(panel.SelectedVariables.size(), 7u);
  EXPECT_EQ(panel.SelectedVariables.size(), 7u);
}

TEST_F(PanelTest, AddingStopsAtTheSeventhWithOneBox) {
  SelectProcedure(panel, Procedure::kListVariables);
  AddAnalysisVariable(panel, platform, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(panel.SelectedVariables, (Columns{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(PanelTest, OtherProceduresTakeMoreThanSevenVariables) {
  SelectProcedure(panel, Procedure::kFrequencies);
  AddAnalysisVariable(panel, platform, {1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EQ(panel.SelectedVariables.size(), 8u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PanelTest, RemovingKeepsTheRestInOrder) {
  AddAnalysisVariable(panel, platform, {1, 2, 3, 4});
  RemoveAnalysisVariables(panel, {0, 2, 2, 9});
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 4}));
  EXPECT_EQ(panel.SelectedVariables.size(), 2u);
  AddIndependentVariable(panel, platform, {5, 6});
  RemoveIndependentVariables(panel, {1});
  EXPECT_EQ(panel.IndependentVariables, Columns{5});
}

TEST_F(PanelTest, AnArrowWithoutASelectionRemovesFromItsTarget) {
  PressAnalysisArrow(panel, platform, {1, 2, 3}, {});
  PressAnalysisArrow(panel, platform, {}, {0});
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 3}));
  PressAnalysisArrow(panel, platform, {}, {});
  EXPECT_EQ(panel.SelectedVariables, Columns{2});
  EXPECT_EQ(panel.SelectedVariables.size(), 1u);

  PressIndependentArrow(panel, platform, {4, 5}, {});
  PressIndependentArrow(panel, platform, {}, {1});
  EXPECT_EQ(panel.IndependentVariables, Columns{4});

  PressControlArrow(panel, data, platform, {6});
  EXPECT_EQ(panel.control_variable.column, 6u);
  PressControlArrow(panel, data, platform, {});
  EXPECT_EQ(panel.control_variable.column, 0u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(PanelTest, AnArrowWithASelectionAddsWhateverIsMarked) {
  PressAnalysisArrow(panel, platform, {1}, {});
  PressAnalysisArrow(panel, platform, {2}, {0});
  EXPECT_EQ(panel.SelectedVariables, (Columns{1, 2}));
}

TEST_F(PanelTest, AnArrowWithNothingOnEitherSideAsksForASelection) {
  PressAnalysisArrow(panel, platform, {}, {});
  PressIndependentArrow(panel, platform, {}, {});
  PressControlArrow(panel, data, platform, {});
  ASSERT_EQ(platform.messages.size(), 3u);
  for (const auto& box : platform.messages) EXPECT_EQ(box.text, "You must select a variable from the list");
}

TEST_F(PanelTest, NoneAsControlVariableClearsIt) {
  SetControlVariable(panel, data, platform, {9});
  EXPECT_TRUE(ControlIsSet(panel, data));
  SetControlVariable(panel, data, platform, {0});
  EXPECT_FALSE(ControlIsSet(panel, data));
}

TEST_F(PanelTest, AControlVariableBeyondTheDataCountsAsNone) {
  panel.control_variable.column = data.VariableCount;
  EXPECT_TRUE(ControlIsSet(panel, data));
  panel.control_variable.column = data.VariableCount + 1;
  EXPECT_FALSE(ControlIsSet(panel, data));
}

TEST_F(PanelTest, ResettingTheControlClearsVariableRelationAndValue) {
  SetControlVariable(panel, data, platform, {2});
  panel.control = {ControlRelation::kLessThan, "4"};
  AddAnalysisVariable(panel, platform, {1});
  ResetControl(panel);
  EXPECT_EQ(panel.control_variable.column, 0u);
  EXPECT_EQ(panel.control.relation, ControlRelation::kNone);
  EXPECT_EQ(panel.control.value, "");
  EXPECT_EQ(panel.SelectedVariables, Columns{1});
}

TEST_F(PanelTest, AControlValueOfAComparisonTakesNumbersOnly) {
  for (const char* entry : {"", "5", "-1.5", "1e3", " 7 ", "1,234"}) {
    EXPECT_TRUE(AcceptControlNumber(platform, entry)) << entry;
  }
  EXPECT_TRUE(platform.messages.empty());
  for (const char* entry : {"abc", "1 2", "-", "5%"}) {
    platform.messages.clear();
    EXPECT_FALSE(AcceptControlNumber(platform, entry)) << entry;
    ExpectOneBox("Warning", "Only numerical entries are allowed.");
  }
}

TEST_F(PanelTest, WhatARunDoesWithASecondList) {
  const std::tuple<Procedure, bool> expected[] = {
      {Procedure::kNone, false},          {Procedure::kFrequencies, true},
      {Procedure::kDescriptives, true},   {Procedure::kExplore, true},
      {Procedure::kTTest, true},          {Procedure::kAnova, true},
      {Procedure::kCorrelation, true},    {Procedure::kCrosstabulation, true},
      {Procedure::kRegression, true},     {Procedure::kDiagnostic, true},
      {Procedure::kListVariables, false}, {Procedure::kSummaryTables, true},
      {Procedure::kRandomSample, false},  {Procedure::kRepeatedSampling, false}};
  for (const auto& [procedure, uses] : expected) {
    SelectProcedure(panel, procedure);
    EXPECT_EQ(RunUsesIndependents(panel), uses) << static_cast<int>(procedure);
  }
  SelectProcedure(panel, Procedure::kCorrelation);
  panel.options.correlation.create_matrix = true;
  EXPECT_FALSE(RunUsesIndependents(panel));
}

TEST_F(PanelTest, ASecondListCanBeEmptiedUnderAProcedureThatDoesNotUseIt) {
  AddIndependentVariable(panel, platform, {3, 5, 7});
  SelectProcedure(panel, Procedure::kListVariables);
  PressIndependentArrow(panel, platform, {}, {});
  EXPECT_EQ(panel.IndependentVariables, (Columns{3, 5}));
  RemoveIndependentVariables(panel, {0, 1});
  EXPECT_TRUE(panel.IndependentVariables.empty());
}

TEST_F(PanelTest, ALoadEmptiesTheListsAndKeepsTheControl) {
  AddAnalysisVariable(panel, platform, {1, 2});
  AddIndependentVariable(panel, platform, {3});
  SetControlVariable(panel, data, platform, {4});
  panel.control = {ControlRelation::kEqualTo, "x"};
  ClearPanelLists(panel);
  EXPECT_TRUE(panel.SelectedVariables.empty());
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_EQ(panel.SelectedVariables.size(), 0u);
  EXPECT_EQ(panel.control_variable.column, 4u);
  EXPECT_EQ(panel.control.value, "x");
}

TEST_F(PanelTest, AResetLeavesTheProcedureAlone) {
  SelectProcedure(panel, Procedure::kDescriptives);
  AddAnalysisVariable(panel, platform, {1, 2});
  AddIndependentVariable(panel, platform, {3});
  SetControlVariable(panel, data, platform, {4});
  panel.control = {ControlRelation::kEqualTo, "x"};
  PickVariable(panel, 1);
  panel.options.t_test = {"1", "2"};
  ResetPanel(panel);
  EXPECT_EQ(panel.selected, Procedure::kDescriptives);
  EXPECT_TRUE(panel.SelectedVariables.empty());
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_EQ(panel.SelectedVariables.size(), 0u);
  EXPECT_EQ(panel.PickedVariable, 0u);
  EXPECT_FALSE(ControlIsSet(panel, data));
  EXPECT_EQ(panel.control.relation, ControlRelation::kNone);
  EXPECT_EQ(panel.control.value, "");
  EXPECT_EQ(panel.options.t_test.group_a, "");
  EXPECT_EQ(panel.options.t_test.group_b, "");
}

}  // namespace
}  // namespace tessara
