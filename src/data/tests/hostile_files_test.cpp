#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "data/data_file.h"
#include "data/tests/data_fixture.h"
#include "data/tests/naive_split.h"
#include "data/used_range.h"

// Files that no writer of data files would leave. None may crash, hang, or take the memory.

namespace tessara {
namespace {

namespace fs = std::filesystem;

using HostileFileTest = DataFixture;

TEST_F(HostileFileTest, ABannerOfMoreRecordsThanMemoryHoldsLeavesTheCounts) {
  ASSERT_EQ(OpenText(FileText("1000000000000000000 2 Tessara data", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 20u);
  EXPECT_EQ(Record(1, 2), "2");
}

TEST_F(HostileFileTest, MoreRecordsThanTheFileHasCostNothing) {  // a hundred million, all but one of them empty
  ASSERT_EQ(OpenText(FileText("100000000 2 Tessara data", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 100000000u);
  EXPECT_EQ(Record(100000000, 2), "(empty)");
  EXPECT_EQ(TrimToUsedRange(data).records, 1u);
}

TEST_F(HostileFileTest, MoreVariablesThanTheFileHasAreEmpty) {
  ASSERT_EQ(OpenText(FileText("1 100000 Tessara data", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.VariableCount, 100000u);
  EXPECT_EQ(data.VarList.size(), 100001u);
  EXPECT_EQ(Record(1, 100000), "(empty)");
  EXPECT_EQ(TrimToUsedRange(data).variables, 2u);
}

// The names of all variables in one line among empty ones: the lists are rebuilt from it, name by name.
TEST_F(HostileFileTest, ALineOfManyNamesAmongEmptyLinesLoadsQuickly) {
  constexpr std::size_t kVariables = 200000;
  std::string names = "N1";
  for (std::size_t column = 2; column <= kVariables; ++column) names += "~N" + std::to_string(column);
  ASSERT_EQ(OpenText(FileText("1 200000 Tessara data", names, {"1"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.VarList.at(kVariables).name, "N200000");
}

TEST_F(HostileFileTest, ALineOfSixtyMegabytesIsOneCell) {
  const std::string cell(60000000, 'x');
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data", "A~B", {cell + "~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.matrix.Cell(kFirstRecordRow, 1).text().size(), cell.size());
  EXPECT_EQ(Record(1, 2), "2");
}

TEST_F(HostileFileTest, ALineOfNothingButSeparatorsIsCutAtTheVariables) {
  ASSERT_EQ(OpenText(FileText("1 3 Tessara data", "A~B~C", {std::string(10000000, '~')})), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 3), "");
  EXPECT_EQ(data.matrix.ColumnCount(), 3u);
}

TEST_F(HostileFileTest, AFirstLineWithoutEndIsABannerAllTheSame) {
  ASSERT_EQ(OpenText("2 2 " + std::string(1000000, 'x')), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.DataBanner.size(), 1000004u);
}

TEST_F(HostileFileTest, CarriageReturnsAloneEndNoLine) {
  std::string text = FileText("2 2 Tessara data", "A~B", {"1~2", "3~4"});
  std::erase(text, '\n');
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);  // the whole file is the first line
  EXPECT_EQ(Record(1, 1), "(empty)");
  EXPECT_EQ(data.DataBanner, text);
}

TEST_F(HostileFileTest, ALoneCarriageReturnStaysInItsCellThroughASave) {
  const std::string text = FileText("2 2 Tessara data", "A~B", {"1\r~2", "3~4\r"});
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 1), "1\r");
  EXPECT_EQ(Record(2, 2), "4\r");  // two CRs and an LF
  ASSERT_EQ(SaveAs(folder / "again.dcs"), SaveOutcome::kSaved);
  ASSERT_EQ(Open(folder / "again.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 1), "1\r");
  EXPECT_EQ(Record(2, 2), "4\r");
}

TEST_F(HostileFileTest, NulBytesAreBytes) {
  std::string text = FileText("1 2 Tessara data", "A~B", {"x0y~2"});
  text[text.find("x0y") + 1] = '\0';
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 1), std::string("x\0y", 3));
  const std::string saved = SavedText();
  EXPECT_NE(saved.find(std::string("\r\nx\0y\x01"
                                   "2\r\n",
                                   9)),
            std::string::npos);
}

TEST_F(HostileFileTest, AFileOfNulBytesHasABadBanner) {
  ASSERT_EQ(OpenText(std::string(100000, '\0')), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.matrix.Cell(0, 1).text().size(), 100000u);
}

TEST_F(HostileFileTest, NoLineEndAtTheEnd) {
  std::string text = FileText("2 2 Tessara data", "A~B", {"1~2", "3~4"});
  text.resize(text.size() - 2);
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(2, 2), "4");
}

TEST_F(HostileFileTest, AUtf8MarkMakesTheRecordCountFail) {  // a data file is taken byte for byte
  ASSERT_EQ(OpenText("\xEF\xBB\xBF" + FileText("2 3 Tessara data", "A~B~C", {"1~2~3"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 3u);
}

TEST_F(HostileFileTest, ALineFeedAloneIsAFileOfOneEmptyLine) {
  ASSERT_EQ(OpenText("\n"), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.DataBanner, "");
}

// What cannot be read at all.

class UnreadableFileTest : public DataFixture, public testing::WithParamInterface<FilePick> {};

TEST_P(UnreadableFileTest, LeavesTheDataAndShowsNoMessage) {
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  fs::create_directories(folder / "folder.dcs");
  folder.Make("file", "x");
  for (const Path& path :
       {folder / "folder.dcs", folder / "nowhere.dcs", folder / "no" / "where.dcs", folder / "file" / "data.dcs"}) {
    EXPECT_EQ(Open(path, GetParam()), LoadOutcome::kUnreadable) << path;
    EXPECT_EQ(Record(1, 2), "2");
    EXPECT_EQ(data.GridTitle, "data.dcs");
    EXPECT_EQ(data.DataFilePath, folder / "data.dcs");
  }
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(platform.wait_cursors, 0);
}

INSTANTIATE_TEST_SUITE_P(PickedAndNamed, UnreadableFileTest,
                         testing::Values(FilePick::kPicked, FilePick::kCommandLine));

// Any bytes behind a banner: the cells are those of a naive splitter.
TEST_F(HostileFileTest, RandomBytesLoadAsTheNaiveSplitterSplitsThem) {
  static constexpr std::string_view kBytes("\x01\x01\x01\n\n\r01 .a\0\xFF", 13);
  std::mt19937_64 random(9);
  for (int turn = 0; turn < 300; ++turn) {
    const std::size_t records = random() % 30;
    const std::size_t variables = random() % 6;
    std::string text = std::to_string(records) + " " + std::to_string(variables) + " x";
    for (std::size_t size = random() % 400; size > 0; --size) text.push_back(kBytes[random() % kBytes.size()]);
    ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
    const auto lines = NaiveSplit(text);
    for (std::size_t row = 0; row < records + 17; ++row) {
      for (std::size_t column = 1; column <= variables + 1; ++column) {
        const TaggedView cell = data.matrix.Cell(row, column);
        const bool is_there =
            row < records + 16 && column <= variables && row < lines.size() && column <= lines[row].size();
        ASSERT_EQ(cell.is_text(), is_there) << turn;
        if (is_there) {
          ASSERT_EQ(cell.text(), lines[row][column - 1]) << turn;
        }
      }
    }
  }
}

}  // namespace
}  // namespace tessara
