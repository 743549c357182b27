#include "procedures/follow_data.h"

#include <gtest/gtest.h>

#include "data/change_door.h"
#include "platform/scripted_platform.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

using Columns = std::vector<std::size_t>;

class FollowDataTest : public testing::Test {
 protected:
  // AGE is the control: cases greater than 40.
  FollowDataTest() : data(MakeTestData({{"SEX"}, {"AGE"}, {"SMOKE"}, {"WEIGHT"}})) {
    SetControlVariable(panel, data, platform, {2});
    panel.control = {ControlRelation::kGreaterThan, "40"};
    panel.SelectedVariables = {4, 2, 1};
    panel.IndependentVariables = {3, 3};
    panel.PickedVariable = 3;
  }

  void ExpectControl(std::size_t column) const {
    EXPECT_EQ(panel.control_variable.column, column);
    EXPECT_EQ(panel.control.relation, ControlRelation::kGreaterThan);
    EXPECT_EQ(panel.control.value, "40");
  }

  void ExpectNoControl() const {
    EXPECT_EQ(panel.control_variable.column, 0u);
    EXPECT_EQ(panel.control_variable.name, "");
    EXPECT_EQ(panel.control.relation, ControlRelation::kNone);
    EXPECT_EQ(panel.control.value, "");
  }

  DataSet data;
  ProcedurePanel panel;
  ScriptedPlatform platform;
};

TEST_F(FollowDataTest, OtherDataWithTheSameNameInTheColumnKeepTheControlAndEmptyTheLists) {
  data = MakeTestData({{"X"}, {"AGE"}});
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kOtherData), "");
  ExpectControl(2);
  EXPECT_TRUE(panel.SelectedVariables.empty());
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_EQ(panel.PickedVariable, 0u);
}

TEST_F(FollowDataTest, OtherDataWithTheNameInAnotherColumnResetTheControl) {
  data = MakeTestData({{"AGE"}, {"SEX"}});
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kOtherData), "AGE");
  ExpectNoControl();
}

TEST_F(FollowDataTest, DataWithoutTheColumnResetTheControl) {
  data = MakeTestData({{"AGE"}});
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kOtherData), "AGE");
  ExpectNoControl();
}

TEST_F(FollowDataTest, WithoutAControlNothingIsReset) {
  ResetControl(panel);
  EXPECT_EQ(FollowData(panel, MakeTestData({{"A"}}), ColumnChange::kOtherData), "");
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kRemoved, {.first = 1, .count = 4}), "");
}

TEST_F(FollowDataTest, RemovedColumnsLeaveTheListsAndMoveTheRest) {
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kRemoved, {.first = 1, .count = 1}), "");
  EXPECT_EQ(panel.SelectedVariables, (Columns{3, 1}));
  EXPECT_EQ(panel.IndependentVariables, (Columns{2, 2}));
  EXPECT_EQ(panel.PickedVariable, 2u);
  ExpectControl(1);
}

TEST_F(FollowDataTest, ARemovedControlIsReset) {
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kRemoved, {.first = 2, .count = 2}), "AGE");
  ExpectNoControl();
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 1}));
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_EQ(panel.PickedVariable, 0u);
}

TEST_F(FollowDataTest, ColumnsRemovedBehindAllOfThemChangeNothing) {
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kRemoved, {.first = 5, .count = 3}), "");
  ExpectControl(2);
  EXPECT_EQ(panel.SelectedVariables, (Columns{4, 2, 1}));
}

TEST_F(FollowDataTest, AddedColumnsMoveWhatStandsBehindThem) {
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kAdded, {.first = 2, .count = 2}), "");
  EXPECT_EQ(panel.SelectedVariables, (Columns{6, 4, 1}));
  EXPECT_EQ(panel.IndependentVariables, (Columns{5, 5}));
  EXPECT_EQ(panel.PickedVariable, 5u);
  ExpectControl(4);
}

// A variable that was renamed is looked for by its new name.
TEST_F(FollowDataTest, ANewNameOfTheControlIsRemembered) {
  MatrixEditor(data).SetText(kVariableNameRow, 2, "YEARS");
  EXPECT_EQ(FollowData(panel, data, ColumnChange::kNamed), "");
  ExpectControl(2);
  EXPECT_EQ(FollowData(panel, MakeTestData({{"A"}, {"YEARS"}}), ColumnChange::kOtherData), "");
  ExpectControl(2);
  EXPECT_EQ(FollowData(panel, MakeTestData({{"A"}, {"AGE"}}), ColumnChange::kOtherData), "YEARS");
}

}  // namespace
}  // namespace tessara
