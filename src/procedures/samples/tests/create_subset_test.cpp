#include "procedures/samples/create_subset.h"

#include <gtest/gtest.h>

#include "numerics/number_text.h"
#include "platform/tests/failing_memory.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

using enum ControlRelation;

struct Subset {
  std::string Records(ControlRelation relation, const std::string& value = {}) const {
    std::string numbers;
    const auto passing = SubsetRecords(data, 1, {relation, value});
    for (std::size_t record = 0; record < passing.size(); ++record) {
      if (passing[record] != 0) numbers += std::to_string(record + 1);
    }
    return numbers;
  }
  SubsetOutcome Create(ControlRelation relation, const std::string& value = {}) {
    return CreateSubset(data, 1, {relation, value}, platform);
  }
  std::string Ids() const {
    std::string ids;
    data.matrix.ForEachRecord(2, data.RecordCount, [&](std::size_t, const TaggedView& cell) { ids += TextOf(cell); });
    return ids;
  }

  DataSet data = MakeTestData({{.name = "C",
                                .cells = Texts({"1", "2", "1.0", "", "abc", "9", "10"}),
                                .label = "Group",
                                .missing_spec = "9||||||"},
                               {.name = "ID", .cells = Texts({"a", "b", "c", "d", "e", "f", "g"})}});
  ScriptedPlatform platform;
};

TEST(SubsetRecords, WithoutARelationTheValidRecordsPass) {
  EXPECT_EQ(Subset().Records(kNone), "12357");
  EXPECT_EQ(Subset().Records(kNoMissing), "12357");
}

TEST(SubsetRecords, AllMissingKeepsTheMissingRecordsAlone) { EXPECT_EQ(Subset().Records(kAllMissing), "46"); }

// A cell that is no number fails the test and passes, as in a run.
TEST(SubsetRecords, GreaterAndLessCompareNumbers) {
  EXPECT_EQ(Subset().Records(kGreaterThan, "1"), "257");
  EXPECT_EQ(Subset().Records(kLessThan, "2"), "135");
}

// Unlike a run, which compares texts, a subset takes 1.0 for 1.
TEST(SubsetRecords, EqualAndNotEqualCompareNumbersWhereBothAreNumbers) {
  EXPECT_EQ(Subset().Records(kEqualTo, "1"), "13");
  EXPECT_EQ(Subset().Records(kEqualTo, " 1.00 "), "13");
  EXPECT_EQ(Subset().Records(kNotEqualTo, "1"), "257");
  EXPECT_EQ(Subset().Records(kEqualTo, "abc"), "5");
  EXPECT_EQ(Subset().Records(kEqualTo, "ABC"), "");
  EXPECT_EQ(Subset().Records(kNotEqualTo, "abc"), "1237");
}

TEST(CreateSubset, KeepsTheRecordsThatPassWithTheirDictionary) {
  Subset subset;
  subset.platform.message_answers = {Answer::kYes};
  subset.data.DataFilePath = "/somewhere/c.dcs";
  subset.data.ProjectNotes = "notes";
  ASSERT_EQ(subset.Create(kEqualTo, "1"), SubsetOutcome::kMade);
  EXPECT_EQ(subset.Ids(), "ac");
  EXPECT_EQ(subset.data.RecordCount, 2u);
  EXPECT_EQ(subset.data.matrix.RowCount(), 18u);
  EXPECT_EQ(subset.data.VariableLabel(1), "Group");
  EXPECT_EQ(subset.data.ProjectNotes, "notes");
  EXPECT_EQ(subset.data.DataFilePath, Path("/somewhere/c.dcs"));
  EXPECT_FALSE(subset.data.DataDirty);
  EXPECT_EQ(subset.platform.panes[1], "There are 199,996 data cells remaining.");
  ASSERT_EQ(subset.platform.messages.size(), 2u);
  EXPECT_EQ(subset.platform.messages[0].title, "Replace current data?");
  EXPECT_EQ(subset.platform.messages[0].text,
            "Creating a subset will replace the current data. Click NO to abort this procedure.");
  EXPECT_EQ(subset.platform.messages[0].buttons, Buttons::kYesNo);
  EXPECT_EQ(subset.platform.messages[1].title, "Subgroup Procedure Completed!");
  EXPECT_EQ(subset.platform.messages[1].text,
            "A subset of the original data file has been created.  To keep this data file, please save using a "
            "different name than the original data file.");
  EXPECT_EQ(UndoName(subset.data), "Create Subset");
  ASSERT_TRUE(UndoChange(subset.data));
  EXPECT_EQ(subset.Ids(), "abcdefg");
}

TEST(CreateSubset, NoLeavesTheData) {
  Subset subset;
  subset.platform.message_answers = {Answer::kNo};
  EXPECT_EQ(subset.Create(kEqualTo, "1"), SubsetOutcome::kDeclined);
  EXPECT_EQ(subset.data.RecordCount, 7u);
  EXPECT_EQ(subset.platform.messages.size(), 1u);
}

TEST(CreateSubset, AnEmptyValueOrNoRecordRefuses) {
  for (const auto& [relation, value] : std::vector<std::pair<ControlRelation, std::string>>{
           {kEqualTo, ""}, {kNotEqualTo, ""}, {kGreaterThan, ""}, {kLessThan, ""}, {kEqualTo, "77"}, {kEqualTo, "9"}}) {
    Subset subset;
    subset.platform.message_answers = {Answer::kYes};
    EXPECT_EQ(subset.Create(relation, value), SubsetOutcome::kRefused);
    ASSERT_EQ(subset.platform.messages.size(), 2u);
    EXPECT_EQ(subset.platform.messages[1].title, "Procedure Aborted");
    EXPECT_EQ(subset.platform.messages[1].text,
              "An expected control value was not found or the results failed to produce any records.");
    EXPECT_EQ(subset.Ids(), "abcdefg");
    EXPECT_FALSE(CanUndo(subset.data));
    EXPECT_TRUE(subset.platform.panes[1].empty());
  }
}

TEST(CreateSubset, LongWorkShowsItsProgress) {
  TestColumn control{.name = "C"};
  for (int i = 0; i < 2000; ++i) control.cells.push_back(TaggedValue(std::to_string(i % 2)));
  Subset subset;
  subset.data = MakeTestData({control});
  subset.platform.message_answers = {Answer::kYes};
  ASSERT_EQ(subset.Create(kEqualTo, "1"), SubsetOutcome::kMade);
  ASSERT_EQ(subset.platform.progress.size(), 2u);
  EXPECT_EQ(subset.platform.progress[0].caption, "Selecting cases by control value ...");
  EXPECT_EQ(subset.platform.progress[0].maximum, 1999);
  EXPECT_EQ(subset.platform.progress[1].caption, "Updating data grid ...");
  EXPECT_TRUE(subset.platform.progress[1].hidden);
}

TEST(CreateSubset, WithoutMemoryTheDataStay) {
  Subset subset;
  for (std::size_t allowed = 0; allowed < 1000; ++allowed) {
    subset.platform.messages.clear();
    subset.platform.message_answers = {Answer::kYes};
    bool failed = false;
    {
      const FailingMemory memory(allowed);
      try {
        subset.Create(kEqualTo, "1");
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    ASSERT_EQ(subset.data.RecordCount, 7u) << allowed;
    ASSERT_FALSE(CanUndo(subset.data)) << allowed;
  }
  EXPECT_EQ(subset.Ids(), "ac");
}

}  // namespace
}  // namespace tessara
