#include "procedures/cases/group_stats.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

GroupStats StatsOf(const DataSet& data, std::size_t control_column = 0, const ControlChoice& choice = {}) {
  return ComputeGroupStats(GatherGroups(CasesOfAllRecords(data, control_column, choice), 1, 2));
}

void ExpectGroup(const GroupStats::Group& group, const std::string& label, double n, double mean, double squares) {
  EXPECT_EQ(group.label, label);
  EXPECT_EQ(group.n.value(), n) << label;
  EXPECT_EQ(group.mean.value(), mean) << label;
  EXPECT_EQ(group.squares.value(), squares) << label;
}

// By hand: 1, 2, 6 have the mean 3 and squares of 4 + 1 + 9; 4 and 8 the mean 6 and squares of 4 + 4.
TEST(GroupStats, ALineForEachGroup) {
  DataSet data = MakeTestData({{"Y", Texts({"1", "4", "2", "8", "6"})},
                               {"G", Texts({"b", "a", "b", "a", "b"}), "", "", {"a=First", "c=Third"}}});
  const GroupStats stats = StatsOf(data);
  ASSERT_EQ(stats.GroupCount(), 2u);
  ExpectGroup(stats.groups[0], "First", 2, 6, 8);
  ExpectGroup(stats.groups[1], "b", 3, 3, 14);
}

TEST(GroupStats, GroupsAscendByStoredValueAndNumbersStandAheadOfTexts) {
  DataSet data = MakeTestData({{"Y", Texts({"1", "2", "3", "4", "5"})}, {"G", {"9", "10", 10.0, "5", 5.0}}});
  const GroupStats stats = StatsOf(data);
  ASSERT_EQ(stats.GroupCount(), 5u);
  ExpectGroup(stats.groups[0], "5", 1, 5, 0);
  ExpectGroup(stats.groups[1], "10", 1, 3, 0);
  ExpectGroup(stats.groups[2], "10", 1, 2, 0);  // as texts go, 10 stands ahead of 5 and 9
  ExpectGroup(stats.groups[3], "5", 1, 4, 0);
  ExpectGroup(stats.groups[4], "9", 1, 1, 0);
}

// Record 2: Y is missing; 3: Y is no number; 4: the group is blank; 5: the group is missing, so there is no group x; 6:
// the control. 99 is missing in Y only.
TEST(GroupStats, APairIsDroppedForEitherOfItsValues) {
  DataSet data = MakeTestData({{"Y", Texts({"1", "99", "abc", "4", "5", "6", "7"}), "", "99||||||"},
                               {"G", Texts({"99", "99", "99", "", "x", "99", "99"}), "", "x||||||"},
                               {"C", Texts({"1", "1", "1", "1", "1", "2", "1"})}});
  const GroupStats stats = StatsOf(data, 3, {ControlRelation::kEqualTo, "1"});
  ASSERT_EQ(stats.GroupCount(), 1u);
  ExpectGroup(stats.groups[0], "99", 2, 4, 18);
}

// 0.1 * 3 / 3 is not 0.1 in a double.
TEST(GroupStats, EqualValuesHaveNoDeviationWhateverTheirMeanRoundsTo) {
  DataSet data = MakeTestData({{"Y", Texts({"0.1", "1", "0.1", "2", "0.1"})}, {"G", Texts({"a", "b", "a", "b", "a"})}});
  const GroupStats stats = StatsOf(data);
  EXPECT_NE(stats.groups[0].mean.value(), 0.1);
  EXPECT_EQ(stats.groups[0].squares.value(), 0);
  EXPECT_EQ(stats.groups[1].squares.value(), 0.5);
}

// 1 is lost beside 1E+16, so that the order of the values tells what the sum is.
TEST(GroupStats, SumsRunInGridOrderWithinEachGroup) {
  DataSet data = MakeTestData(
      {{"Y", Texts({"1E+16", "1", "1", "5", "-1E+16", "7"})}, {"G", Texts({"a", "a", "a", "b", "a", "b"})}});
  const GroupStats stats = StatsOf(data);
  EXPECT_EQ(stats.groups[0].mean.value(), 0);
  EXPECT_EQ(stats.groups[1].mean.value(), 6);
}

// The second 1E+308 would leave the range of a double: it is not added. The other group is not touched by that.
TEST(GroupStats, AStepBeyondTheRangeOfADoubleIsAbandonedAlone) {
  DataSet data =
      MakeTestData({{"Y", Texts({"1E+308", "3", "1E+308", "5", "-1E+308"})}, {"G", Texts({"a", "b", "a", "b", "a"})}});
  const GroupStats stats = StatsOf(data);
  ExpectGroup(stats.groups[0], "a", 3, 0, 0);
  ExpectGroup(stats.groups[1], "b", 2, 4, 2);
}

TEST(GroupStats, WithoutCasesThePassReportsItsOwnError) {
  TestRun run({{"Y", Texts({"x", "1"})}, {"G", Texts({"1", ""})}});
  run.Independent(2);
  const std::string report = run.Report([](ProcedureRun& procedure_run, const Roles& roles) {
    EXPECT_FALSE(RunGroupPass(procedure_run, BeginCases(procedure_run), roles));
  });
  EXPECT_EQ(report, FramedError("Summary Comparison: Y by G", "There are no observations."));
  EXPECT_TRUE(run.aborted);
}

TEST(GroupStats, NoRecords) {
  DataSet data = MakeTestData({{"Y"}, {"G"}});
  const GroupedCases cases = GatherGroups(CasesOfAllRecords(data), 1, 2);
  EXPECT_TRUE(cases.values.empty());
  EXPECT_TRUE(cases.labels.empty());
  EXPECT_EQ(ComputeGroupStats(cases).GroupCount(), 0u);
}

TEST(GroupStats, EveryCaseItsOwnGroup) {
  constexpr std::size_t kMany = 50000;
  TestColumn y{"Y"};
  TestColumn g{"G"};
  for (std::size_t i = 0; i < kMany; ++i) {
    y.cells.emplace_back(static_cast<double>(i) + 1);
    g.cells.emplace_back(static_cast<double>(kMany - i));
  }
  DataSet data = MakeTestData({y, g});
  const GroupStats stats = StatsOf(data);
  ASSERT_EQ(stats.GroupCount(), kMany);
  ExpectGroup(stats.groups.front(), "1", 1, kMany, 0);
  ExpectGroup(stats.groups.back(), "50000", 1, 1, 0);
}

TEST(GroupStats, SumsAndStoredValuesOfTheGroups) {
  const DataSet data = MakeTestData(
      {{"Y", Texts({"1", "2.5", "4"})}, {.name = "G", .cells = Texts({"b", "a", "b"}), .value_labels = {"b=First"}}});
  const GroupStats stats = StatsOf(data);
  ASSERT_EQ(stats.GroupCount(), 2u);
  EXPECT_EQ(stats.groups[0].sum.value(), 2.5);
  EXPECT_EQ(stats.groups[1].sum.value(), 5);
  EXPECT_EQ(stats.groups[1].value.text(), "b");
  EXPECT_EQ(stats.groups[1].label, "First");
}

}  // namespace
}  // namespace tessara
