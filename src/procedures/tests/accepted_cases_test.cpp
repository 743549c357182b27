#include "procedures/cases/accepted_cases.h"

#include <gtest/gtest.h>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

std::vector<std::string> Labels(const Categories& categories) {
  std::vector<std::string> labels;
  for (const Category& category : categories.list) labels.push_back(category.label);
  return labels;
}

TEST(GatherNumberCases, DeletionIsListwiseAndEachVariableHasItsOwnMissingValues) {
  // Record 2: Y is missing by its own value; record 3: X is blank; record 4: X is no number; record 5: 9 is missing in
  // Y only, so X may be 9.
  DataSet data = MakeTestData(
      {{"Y", Texts({"1", "9", "3", "4", "5", "6"}), "", "9||||||"}, {"X", Texts({"10", "20", "", "abc", "9", "60"})}});
  const std::size_t columns[] = {1, 2};
  const NumberCases cases = GatherNumberCases(CasesOfAllRecords(data), columns);
  EXPECT_EQ(cases.n, 3u);
  EXPECT_EQ(cases.missing, 3u);
  EXPECT_EQ(cases.accepted, (CaseFlags{1, 0, 0, 0, 1, 1}));
  EXPECT_EQ(cases.variables, (std::vector<std::vector<double>>{{1, 5, 6}, {10, 9, 60}}));
}

TEST(GatherNumberCases, BoundsAndControl) {
  const DataSet data =
      MakeTestData({{"Y", Texts({"1", "2", "3", "4"}), "", "||||2|3|"}, {"C", Texts({"a", "a", "b", "a"})}});
  const std::size_t columns[] = {1};
  const NumberCases cases = GatherNumberCases(CasesOfAllRecords(data, 2, {ControlRelation::kEqualTo, "a"}), columns);
  EXPECT_EQ(cases.variables, (std::vector<std::vector<double>>{{2}}));
  EXPECT_EQ(cases.missing, 3u);
}

TEST(GatherNumberCases, NoRecords) {
  DataSet data = MakeTestData({{"Y", {}}});
  const std::size_t columns[] = {1, 1};
  const NumberCases cases = GatherNumberCases(CasesOfAllRecords(data), columns);
  EXPECT_EQ(cases.n, 0u);
  EXPECT_EQ(cases.variables, (std::vector<std::vector<double>>{{}, {}}));
}

TEST(CodedColumn, EqualCellsHaveOneCode) {
  const DataSet data = MakeTestData({{"G", {"b", "a", "b", 5.0, "5", ""}, "", "a||||||"}});
  const CodedColumn coded = ReadCodedColumn(CasesOfAllRecords(data), 1);
  EXPECT_EQ(coded.codes, (std::vector<std::uint32_t>{0, 1, 0, 2, 3, 4}));
  EXPECT_EQ(coded.missing, (CaseFlags{0, 1, 0, 0, 1}));
  CaseFlags records(6, 1);
  DropMissing(coded, records);
  EXPECT_EQ(records, (CaseFlags{1, 0, 1, 1, 1, 0}));
  EXPECT_EQ(CountCases(records), 4u);
}

TEST(MakeCategories, AscendByStoredValueAndNotByLabel) {
  const DataSet data = MakeTestData({{"G", Texts({"2", "10", "1", "1.0", "2"}), "", "", {"1=Zebra", "2=Ape"}}});
  const CodedColumn coded = ReadCodedColumn(CasesOfAllRecords(data), 1);
  const Categories categories = MakeCategories(data, 1, coded, CaseFlags(5, 1));
  // Texts go byte by byte, so 10 stands ahead of 2; 1 and 1.0 are two.
  EXPECT_EQ(Labels(categories), (std::vector<std::string>{"Zebra", "1.0", "10", "Ape"}));
  EXPECT_EQ(categories.of_code, (std::vector<std::uint32_t>{3, 2, 0, 1}));
}

TEST(MakeCategories, ANumberAndATextOfTheSameLookAreTwo) {
  const DataSet data = MakeTestData({{"G", {"5", 5.0, 12.0}, "", "", {"5=Five"}}});
  const CodedColumn coded = ReadCodedColumn(CasesOfAllRecords(data), 1);
  const Categories categories = MakeCategories(data, 1, coded, CaseFlags(3, 1));
  EXPECT_EQ(Labels(categories), (std::vector<std::string>{"Five", "12", "Five"}));  // numbers ahead of texts
  EXPECT_TRUE(categories.list[0].value.is_number());
  EXPECT_TRUE(categories.list[2].value.is_text());
}

TEST(MakeCategories, ACodeWithoutAnAcceptedCaseIsNoCategory) {
  const DataSet data = MakeTestData({{"G", Texts({"a", "b", "a"})}});
  const CodedColumn coded = ReadCodedColumn(CasesOfAllRecords(data), 1);
  const Categories categories = MakeCategories(data, 1, coded, {0, 1, 0});
  EXPECT_EQ(Labels(categories), (std::vector<std::string>{"b"}));
  EXPECT_EQ(categories.of_code, (std::vector<std::uint32_t>{Categories::kNone, 0}));
}

}  // namespace
}  // namespace tessara
