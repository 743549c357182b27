#include "procedures/samples/create_sample.h"

#include <gtest/gtest.h>

#include <set>

#include "numerics/number_text.h"
#include "platform/tests/failing_memory.h"
#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

// Records 1 to `count`, each with its number and its square.
DataSet NumberedData(std::size_t count) {
  TestColumn id{.name = "ID", .label = "Number", .missing_spec = "9||||||"};
  TestColumn square{.name = "SQUARE", .value_labels = {"1=One"}};
  for (std::size_t i = 1; i <= count; ++i) {
    id.cells.push_back(TaggedValue(std::to_string(i)));
    square.cells.push_back(TaggedValue(std::to_string(i * i)));
  }
  return MakeTestData({id, square});
}

std::vector<std::string> Cells(const DataSet& data, std::size_t column) {
  std::vector<std::string> cells;
  data.matrix.ForEachRecord(column, data.RecordCount,
                            [&](std::size_t, const TaggedView& cell) { cells.push_back(TextOf(cell)); });
  return cells;
}

bool Sample(DataSet& data, const std::string& size, ScriptedPlatform& platform, std::uint64_t seed = 42) {
  RandomNumbers random(seed);
  return CreateSample(data, {.Text8 = size, .Text15 = {}, .Text16 = {}}, random, platform);
}

// The order worked out from the recurrence of the generator by another program.
TEST(CreateSample, DrawsWholeRecordsByTheirKeys) {
  DataSet data = NumberedData(40);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "10", platform));
  EXPECT_EQ(data.RecordCount, 10u);
  EXPECT_EQ(data.matrix.RowCount(), 26u);
  EXPECT_EQ(Cells(data, 1), (std::vector<std::string>{"11", "19", "20", "6", "24", "4", "25", "22", "9", "8"}));
  EXPECT_EQ(Cells(data, 2),
            (std::vector<std::string>{"121", "361", "400", "36", "576", "16", "625", "484", "81", "64"}));
}

TEST(CreateSample, KeepsDictionaryNotesPathAndFlag) {
  DataSet data = NumberedData(40);
  data.ProjectNotes = "notes";
  data.DataFilePath = "/somewhere/numbers.dcs";
  data.GridTitle = data.DataFileTitle = "numbers.dcs";
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, " 7 ", platform));
  EXPECT_EQ(data.VariableLabel(1), "Number");
  EXPECT_EQ(TextOf(data.matrix.Cell(kMissingSpecRow, 1)), "9||||||");
  EXPECT_EQ(TextOf(data.matrix.Cell(kFirstValueLabelRow, 2)), "1=One");
  EXPECT_EQ(data.ProjectNotes, "notes");
  EXPECT_EQ(data.DataFilePath, Path("/somewhere/numbers.dcs"));
  EXPECT_EQ(data.GridTitle, "numbers.dcs");
  EXPECT_FALSE(data.DataDirty);
  data.DataDirty = true;
  ASSERT_TRUE(Sample(data, "3", platform));
  EXPECT_TRUE(data.DataDirty);
}

TEST(CreateSample, NeverReturnsOneOfTheLastFifteenWhileTheSampleIsSmallerByThem) {
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    DataSet data = NumberedData(60);
    ScriptedPlatform platform;
    ASSERT_TRUE(Sample(data, "45", platform, seed));
    std::set<int> drawn;
    for (const std::string& cell : Cells(data, 1)) drawn.insert(std::stoi(cell));
    EXPECT_EQ(drawn.size(), 45u);  // each once
    EXPECT_EQ(*drawn.rbegin(), 45);
  }
}

TEST(CreateSample, ALargerOneHasTheLastFifteenAtItsEndInTheirOrder) {
  DataSet data = NumberedData(30);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "30", platform));
  const auto cells = Cells(data, 1);
  EXPECT_EQ(std::vector<std::string>(cells.begin() + 15, cells.end()),
            (std::vector<std::string>{"16", "17", "18", "19", "20", "21", "22", "23", "24", "25", "26", "27", "28",
                                      "29", "30"}));
}

TEST(CreateSample, BelowSixteenRecordsNothingIsSorted) {
  DataSet data = NumberedData(15);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "4", platform));
  EXPECT_EQ(Cells(data, 1), (std::vector<std::string>{"1", "2", "3", "4"}));
}

TEST(CreateSample, ANumberIsRoundedHalfToEven) {
  DataSet data = NumberedData(40);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "2.5", platform));
  EXPECT_EQ(data.RecordCount, 2u);
}

TEST(CreateSample, WithoutANumberOfOneAndAboveNothingHappens) {
  for (const char* size : {"", "  ", "0", "-3", "0.5", "ten", "5 5", "41", "1e300"}) {
    DataSet data = NumberedData(40);
    ScriptedPlatform platform;
    EXPECT_FALSE(Sample(data, size, platform)) << size;
    EXPECT_EQ(data.RecordCount, 40u);
    EXPECT_FALSE(CanUndo(data));
    EXPECT_TRUE(platform.messages.empty());
    EXPECT_TRUE(platform.notes.empty());
    EXPECT_EQ(platform.most_wait_cursors, 0);
  }
}

TEST(CreateSample, IsOneStepThatUndoTakesBack) {
  DataSet data = NumberedData(40);
  const auto before = Cells(data, 1);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "10", platform));
  const auto sample = Cells(data, 1);
  EXPECT_EQ(UndoName(data), "Create Sample");
  ASSERT_TRUE(UndoChange(data));
  EXPECT_EQ(Cells(data, 1), before);
  ASSERT_TRUE(RedoChange(data));
  EXPECT_EQ(Cells(data, 1), sample);
}

TEST(CreateSample, TellsWhatItDoes) {
  DataSet data = NumberedData(40);
  ScriptedPlatform platform;
  ASSERT_TRUE(Sample(data, "10", platform));
  ASSERT_EQ(platform.progress.size(), 3u);
  EXPECT_EQ(platform.progress[0].caption, "Randomizing Records");
  EXPECT_EQ(platform.progress[0].maximum, 25);
  EXPECT_EQ(platform.progress[1].caption, "Populating Data Grid");
  EXPECT_EQ(platform.progress[2].caption, "Randomization Complete");
  EXPECT_TRUE(platform.progress[2].hidden);
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST(CreateSample, WithoutMemoryTheDataStay) {
  DataSet data = NumberedData(40);
  const auto before = Cells(data, 1);
  for (std::size_t allowed = 0; allowed < 1000; ++allowed) {
    ScriptedPlatform platform;
    bool failed = false;
    {
      const FailingMemory memory(allowed);
      try {
        Sample(data, "10", platform);
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    ASSERT_EQ(Cells(data, 1), before) << allowed;
    ASSERT_FALSE(CanUndo(data)) << allowed;
  }
  EXPECT_EQ(data.RecordCount, 10u);
}

}  // namespace
}  // namespace tessara
