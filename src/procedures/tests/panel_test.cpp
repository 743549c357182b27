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

// The rows of all procedures, regression as that of each of its kinds.
std::vector<const ProcedureRow*> AllRows() {
  std::vector<const ProcedureRow*> rows = {&RegressionRow(RegressionKind::kLeastSquares),
                                           &RegressionRow(RegressionKind::kLogistic)};
  for (const ProcedureRow& row : ProcedureRows()) {
    if (row.procedure != Procedure::kRegression) rows.push_back(&row);
  }
  return rows;
}

// A front end finds its controls by these names: one name stands for one thing on the panel of a procedure, and no
// control shows without words.
TEST(ProcedureRows, ControlsOfAPanelAreToldApart) {
  std::set<std::string_view> procedures;
  for (const ProcedureRow* row : AllRows()) {
    EXPECT_TRUE(procedures.insert(row->control).second) << row->control;
    EXPECT_NE(row->caption, "") << row->control;
    std::set<std::string_view> controls, captions;
    for (const auto& box : row->boxes) {
      EXPECT_TRUE(controls.insert(box.control).second) << row->caption << " " << box.control;
      EXPECT_TRUE(captions.insert(box.caption).second) << row->caption << " " << box.caption;
      EXPECT_NE(box.caption, "") << row->caption << " " << box.control;
    }
    for (const auto& field : row->fields) {
      EXPECT_TRUE(controls.insert(field.control).second) << row->caption << " " << field.control;
      EXPECT_NE(field.caption, "") << row->caption << " " << field.control;
    }
  }
}

TEST(ProcedureRows, TheHeadingOfTheExampleBelongsToTheProcedure) {
  std::set<std::string_view> headings;
  for (const ProcedureRow* row : AllRows()) {
    EXPECT_TRUE(row->example_heading.ends_with("    [Example]")) << row->caption;
    EXPECT_TRUE(headings.insert(row->example_heading).second) << row->caption;
  }
  EXPECT_EQ(FindProcedureRow(Procedure::kNone), nullptr);
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
      {Procedure::kDescriptives, false},  {Procedure::kExplore, true},
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
