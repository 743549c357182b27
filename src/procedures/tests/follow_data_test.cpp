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
    panel.followed.revision = data.Revision();
    FollowData(panel, data);
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

  // Another data set, as a load brings it.
  void Load(const std::vector<TestColumn>& columns) {
    const DataSet other = MakeTestData(columns);
    DataContents contents = EmptyContents();
    contents.matrix = other.matrix;
    contents.RecordCount = other.RecordCount;
    contents.VariableCount = other.VariableCount;
    ASSERT_TRUE(ApplyChange(data, ReplaceData(std::move(contents), "Open")));
  }

  std::optional<std::string> Follow() { return FollowData(panel, data); }

  DataSet data;
  ProcedurePanel panel;
  ScriptedPlatform platform;
};

TEST_F(FollowDataTest, OtherDataKeepWhatHasTheSameNameInTheSameColumn) {
  data = MakeTestData({{"X"}, {"AGE"}, {"SMOKE"}});
  EXPECT_EQ(Follow(), std::nullopt);
  ExpectControl(2);
  EXPECT_EQ(panel.SelectedVariables, (Columns{2}));
  EXPECT_EQ(panel.IndependentVariables, (Columns{3, 3}));
  EXPECT_EQ(panel.PickedVariable, 0u);
}

TEST_F(FollowDataTest, DataThatReplaceTheOthersAreOtherData) {
  DataContents contents = EmptyContents();  // V1 to V20
  ASSERT_TRUE(ApplyChange(data, ReplaceData(std::move(contents), "New")));
  EXPECT_EQ(Follow(), "AGE");
  ExpectNoControl();
  EXPECT_TRUE(panel.SelectedVariables.empty());
  EXPECT_TRUE(panel.IndependentVariables.empty());
}

TEST_F(FollowDataTest, OtherDataWithTheNameInAnotherColumnResetTheControl) {
  data = MakeTestData({{"AGE"}, {"SEX"}});
  EXPECT_EQ(Follow(), "AGE");
  ExpectNoControl();
}

TEST_F(FollowDataTest, DataWithoutTheColumnResetTheControl) {
  data = MakeTestData({{"AGE"}});
  EXPECT_EQ(Follow(), "AGE");
  ExpectNoControl();
}

TEST_F(FollowDataTest, WithoutAControlNothingIsReset) {
  ResetControl(panel);
  Follow();
  data = MakeTestData({{"A"}});
  EXPECT_EQ(Follow(), std::nullopt);
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete Columns")));
  EXPECT_EQ(Follow(), std::nullopt);
}

TEST_F(FollowDataTest, RemovedColumnsLeaveTheListsAndMoveTheRest) {
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete Columns")));
  EXPECT_EQ(Follow(), std::nullopt);
  EXPECT_EQ(panel.SelectedVariables, (Columns{3, 1}));
  EXPECT_EQ(panel.IndependentVariables, (Columns{2, 2}));
  EXPECT_EQ(panel.PickedVariable, 2u);
  ExpectControl(1);
}

TEST_F(FollowDataTest, ARemovedControlIsReset) {
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 2, 2, "Delete Columns")));
  EXPECT_EQ(Follow(), "AGE");
  ExpectNoControl();
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 1}));
  EXPECT_TRUE(panel.IndependentVariables.empty());
  EXPECT_EQ(panel.PickedVariable, 0u);
  EXPECT_EQ(Follow(), std::nullopt);  // it is told once
}

// The columns come back where they were, and what stood behind them moves on.
TEST_F(FollowDataTest, AnUndoneRemovalMovesTheRestBack) {
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete Columns")));
  Follow();
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Follow(), std::nullopt);
  EXPECT_EQ(panel.SelectedVariables, (Columns{4, 2}));
  EXPECT_EQ(panel.IndependentVariables, (Columns{3, 3}));
  ExpectControl(2);
}

TEST_F(FollowDataTest, AColumnBehindAllOfThemChangesNothing) {
  std::vector<Column> columns(1);
  ASSERT_TRUE(ApplyChange(data, AddColumns(data, std::move(columns), "Add Column")));
  EXPECT_EQ(Follow(), std::nullopt);
  ExpectControl(2);
  EXPECT_EQ(panel.SelectedVariables, (Columns{4, 2, 1}));
}

TEST_F(FollowDataTest, SeveralChangesAreFollowedInTheirOrder) {
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 1, 1, "Delete Columns")));  // AGE SMOKE WEIGHT
  ASSERT_TRUE(ApplyChange(data, RemoveColumns(data, 2, 1, "Delete Columns")));  // AGE WEIGHT
  EXPECT_EQ(Follow(), std::nullopt);
  EXPECT_EQ(panel.SelectedVariables, (Columns{2, 1}));
  EXPECT_TRUE(panel.IndependentVariables.empty());
  ExpectControl(1);
}

TEST_F(FollowDataTest, ChangesOfCellsAndRowsLeaveThePanel) {
  ASSERT_TRUE(ApplyChange(data, AddRows(data, 3, "Add Rows")));
  EXPECT_EQ(Follow(), std::nullopt);
  ExpectControl(2);
  EXPECT_EQ(panel.SelectedVariables, (Columns{4, 2, 1}));
  EXPECT_EQ(panel.PickedVariable, 3u);
}

// A variable that was renamed is looked for by its new name.
TEST_F(FollowDataTest, ANewNameOfTheControlIsRemembered) {
  ASSERT_TRUE(ApplyChange(data, CellChange(kVariableNameRow, 2, "YEARS", "Heading")));
  EXPECT_EQ(Follow(), std::nullopt);
  ExpectControl(2);
  Load({{"A"}, {"YEARS"}});
  EXPECT_EQ(Follow(), std::nullopt);
  ExpectControl(2);
  Load({{"A"}, {"AGE"}});
  EXPECT_EQ(Follow(), "YEARS");
}

}  // namespace
}  // namespace tessara
