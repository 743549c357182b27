#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "data/data_file.h"
#include "data/tests/data_fixture.h"
#include "numerics/number_text.h"

// Open: fields of the data set, and what becomes of files that are not as they should be.

namespace tessara {
namespace {

using LoadDataFileTest = DataFixture;

// Two records of three variables, a label on the first, the missing value 9 on the second, notes of two lines.
std::string ExampleText() {
  std::string text = "2 3 Tessara data~First line@#$%Second line~\r\n~9||||||~\r\nAge in years~~\r\n";
  for (int row = 3; row <= 14; ++row) text += "~~\r\n";
  return WithSeparators(text + "AGE~SEX~WT\r\n34~1~70.5\r\n41~9~\r\n");
}

TEST_F(LoadDataFileTest, EveryCellOfTheExampleStandsInItsPlace) {
  const std::uint64_t revision = data.Revision();
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(data.matrix.RowCount(), 18u);
  EXPECT_EQ(data.matrix.ColumnCount(), 3u);
  EXPECT_EQ(data.VariableName(1), "AGE");
  EXPECT_EQ(data.VariableName(3), "WT");
  EXPECT_EQ(data.VariableLabel(1), "Age in years");
  EXPECT_EQ(data.matrix.Cell(kMissingSpecRow, 2).text(), "9||||||");
  EXPECT_EQ(Record(1, 1), "34");
  EXPECT_EQ(Record(1, 3), "70.5");
  EXPECT_EQ(Record(2, 2), "9");
  EXPECT_EQ(Record(2, 3), "");  // an empty field is the empty text
  EXPECT_EQ(data.ProjectNotes, "First line\r\nSecond line");
  EXPECT_GT(data.Revision(), revision);
}

TEST_F(LoadDataFileTest, PathTitleSizeTimeAndBannerAreTaken) {
  data.DataDirty = true;
  data.CurrentRow = 7;
  data.CurrentColumn = 3;
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  EXPECT_EQ(data.DataFilePath, folder / "data.dcs");
  EXPECT_EQ(data.DataFileTitle, "data.dcs");
  EXPECT_EQ(data.GridTitle, "data.dcs");
  EXPECT_EQ(data.DataFileSize, ExampleText().size());
  EXPECT_EQ(data.DataFileModified, ShortDateTime(FactsOfFile(folder / "data.dcs")->modified));
  EXPECT_EQ(data.DataBanner, WithSeparators("2 3 Tessara data~First line@#$%Second line~"));
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(data.CurrentRow, 1u);
  EXPECT_EQ(data.CurrentColumn, 1u);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(LoadDataFileTest, TheVariableListsAreRebuiltWithNoneFirst) {
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  ASSERT_EQ(data.VarList.size(), 4u);
  EXPECT_EQ(data.VarList[0].name, "None");
  EXPECT_EQ(data.VarList[0].column, 0u);
  EXPECT_EQ(data.VarList[2].name, "SEX");
  EXPECT_EQ(data.VarList[2].column, 2u);
}

TEST_F(LoadDataFileTest, AFileOfTheCommandLineLeavesThePathAndIsItsOwnTitle) {
  const Path path = folder.Make("named.dcs", ExampleText());
  EXPECT_EQ(Open(path, FilePick::kCommandLine), LoadOutcome::kLoaded);
  EXPECT_EQ(data.DataFileTitle, path.string());  // the whole path
  EXPECT_EQ(data.GridTitle, path.string());
  EXPECT_EQ(data.DataFilePath, platform.program_folder / "Data");  // as it was
  EXPECT_EQ(data.LoadedFile, path);
  EXPECT_EQ(data.DataFileSize, ExampleText().size());
  EXPECT_EQ(Record(2, 1), "41");
}

TEST_F(LoadDataFileTest, ATitleIsHeldInTheCodePage) {
  ASSERT_EQ(Open(folder.Make("\xC3\xA9t\xC3\xA9.dcs", ExampleText())), LoadOutcome::kLoaded);
  EXPECT_EQ(data.GridTitle, "\xE9t\xE9.dcs");
}

TEST_F(LoadDataFileTest, AnEmptyFileChangesThePathAndLeavesTheData) {
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  const Path empty = folder.Make("empty.dcs", "");
  EXPECT_EQ(Open(empty), LoadOutcome::kEmptyFile);
  EXPECT_EQ(data.DataFilePath, empty);
  EXPECT_EQ(data.DataFileSize, 0u);
  EXPECT_EQ(data.DataFileTitle, "data.dcs");
  EXPECT_EQ(Record(1, 1), "34");
  EXPECT_EQ(data.ProjectNotes, "First line\r\nSecond line");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(LoadDataFileTest, AnEmptyFileOfTheCommandLineLoadsAsABadBannerDoes) {
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  EXPECT_EQ(Open(folder.Make("empty.dcs", ""), FilePick::kCommandLine), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(Record(1, 1), "(empty)");
  EXPECT_EQ(data.VariableName(1), "");
  EXPECT_EQ(data.ProjectNotes, "");
}

TEST_F(LoadDataFileTest, AShorterLineGivesEmptyCellsAndNoMessage) {
  ASSERT_EQ(OpenText(FileText("2 3 Tessara data", "A~B~C", {"1", "2~3~4"})), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 1), "1");
  EXPECT_EQ(Record(1, 2), "(empty)");
  EXPECT_EQ(Record(1, 3), "(empty)");
  EXPECT_EQ(Record(2, 3), "4");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(LoadDataFileTest, AnEmptyRecordLineIsOneEmptyField) {
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data", "A~B", {""})), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(1, 1), "");
  EXPECT_EQ(Record(1, 2), "(empty)");
}

TEST_F(LoadDataFileTest, SurplusFieldsAndLinesAreDropped) {
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data", "A~B~C", {"1~2~3~4", "5~6"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.matrix.ColumnCount(), 2u);
  EXPECT_EQ(data.VarList.size(), 3u);
  EXPECT_EQ(Record(1, 2), "2");
  EXPECT_EQ(Record(2, 1), "(empty)");
  EXPECT_EQ(data.RecordCount, 1u);
}

TEST_F(LoadDataFileTest, LinesThatTheBannerAnnouncesAndTheFileLacksAreEmpty) {
  ASSERT_EQ(OpenText(FileText("5 2 Tessara data", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 5u);
  EXPECT_EQ(Record(1, 2), "2");
  EXPECT_EQ(Record(2, 1), "(empty)");
  EXPECT_EQ(Record(5, 2), "(empty)");
}

TEST_F(LoadDataFileTest, AFileOfABannerAloneIsAllEmpty) {
  ASSERT_EQ(OpenText("3 2 Tessara data"), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.VarList.size(), 3u);
  EXPECT_EQ(data.VarList[2].name, "");
}

TEST_F(LoadDataFileTest, LineEndsMayBeBareLineFeeds) {
  std::string text = FileText("2 2 Tessara data~some@#$%notes", "A~B", {"1~2", "3~4"});
  std::erase(text, '\r');
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.ProjectNotes, "some\r\nnotes");
  EXPECT_EQ(data.VariableName(2), "B");
  EXPECT_EQ(Record(2, 2), "4");
}

TEST_F(LoadDataFileTest, OneVariableHasNoNotesAndNoSeparators) {
  ASSERT_EQ(OpenText(FileText("2 1 Tessara data~notes", "A", {"1", "2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.VariableCount, 1u);
  EXPECT_EQ(Record(2, 1), "2");
  EXPECT_EQ(data.ProjectNotes, "");
}

TEST_F(LoadDataFileTest, TheOldNotesGoWithTheOldData) {
  data.ProjectNotes = "old notes";
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data~", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.ProjectNotes, "");
}

TEST_F(LoadDataFileTest, TheTokenOfTheNotesMeansNothingInACell) {
  ASSERT_EQ(OpenText(FileText("1 2 Tessara data~a@#$%@#$%b", "A~B", {"x@#$%y~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.ProjectNotes, "a\r\n\r\nb");
  EXPECT_EQ(Record(1, 1), "x@#$%y");
}

TEST_F(LoadDataFileTest, AWideAndLongFileLoadsWholeAndShowsAPart) {  // 250 records, 1000 variables: 250000 cells
  std::string record = "1";
  for (int column = 2; column <= 1000; ++column) record += "~" + std::to_string(column);
  ASSERT_EQ(OpenText(FileText("250 1000 Tessara data", "A", std::vector<std::string>(250, record))),
            LoadOutcome::kLoaded);
  EXPECT_FALSE(data.WithinEditLimit());
  EXPECT_EQ(data.GridRecords(), 100u);
  EXPECT_EQ(data.GridVariables(), 300u);
  EXPECT_EQ(Record(250, 1000), "1000");
}

TEST_F(LoadDataFileTest, TheWaitCursorEndsWithTheLoad) {
  ASSERT_EQ(OpenText(ExampleText()), LoadOutcome::kLoaded);
  EXPECT_EQ(platform.most_wait_cursors, 1);
  EXPECT_EQ(platform.wait_cursors, 0);
}

// The banner.

struct BannerCase {
  const char* banner;
  std::size_t records;  // behind a data set of 1000 records and 20 variables
  std::size_t variables;
};

class BannerTest : public DataFixture, public testing::WithParamInterface<BannerCase> {};

TEST_P(BannerTest, EachCountStandsOrFailsAlone) {
  ASSERT_EQ(OpenText(FileText(GetParam().banner, "A~B~C", {"1~2~3"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, GetParam().records);
  EXPECT_EQ(data.VariableCount, GetParam().variables);
  EXPECT_EQ(data.matrix.RowCount(), GetParam().records + 16);
  EXPECT_EQ(data.matrix.ColumnCount(), GetParam().variables);
  EXPECT_EQ(data.VarList.size(), GetParam().variables + 1);
  EXPECT_TRUE(platform.messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Banners, BannerTest,
    testing::Values(BannerCase{"2 3 Tessara data", 2, 3}, BannerCase{"2 3 ", 2, 3},  // the tag is not examined
                    BannerCase{"2 3 x~notes of many words", 2, 3},                   //
                    BannerCase{"", 1000, 20}, BannerCase{"Tessara", 1000, 20},       // no blank
                    BannerCase{"5", 1000, 20},                                       //
                    BannerCase{"5 3", 5, 20}, BannerCase{"5 3~a note", 5, 20},       // no second blank
                    BannerCase{"5 3~a note with blanks", 5, 20},                     // "3", separator, "a"
                    BannerCase{"many 3 Tessara data", 1000, 3}, BannerCase{"5 many x", 5, 20},  // one fails alone
                    BannerCase{" 2 3 Tessara data", 1000, 2},  // an empty text ahead of the first blank
                    BannerCase{"2  3 Tessara data", 2, 20},    // and between the two
                    BannerCase{"2\t3\tTessara data", 1000, 20}, BannerCase{"2\t3 4 x", 1000, 4},  //
                    BannerCase{"-2 3 x", 1000, 3}, BannerCase{"2 -3 x", 2, 20},                   // negative
                    BannerCase{"-0.25 3 x", 1000, 3}, BannerCase{"-0 3 x", 0, 3},                 //
                    BannerCase{"2.5 3.5 x", 2, 4}, BannerCase{"0.5 1.5 x", 0, 2},                 // half to even
                    BannerCase{"2.51 2.49 x", 3, 2},                                              //
                    BannerCase{"1e1 +3 x", 10, 3}, BannerCase{"1,0 3 x", 10, 3},  // the grammar of numbers
                    BannerCase{"0x2 3 x", 1000, 3}, BannerCase{"2% 3 x", 1000, 3}, BannerCase{"0 0 x", 0, 0},
                    BannerCase{"0 3 x", 0, 3}, BannerCase{"7 0 x", 7, 0},
                    BannerCase{"1e999 3 x", 1000, 3}));  // no number at all

TEST_F(LoadDataFileTest, CountsThatCannotBeHeldBothStayAsTheyWere) {
  for (const char* banner : {"1000000000000000000 3 x", "1e18 3 x", "3 1e18 x", "1e18 1e18 x", "1e300 3 x",
                             "18446744073709551616 1 x", "18446744073709551615 0 x", "9e15 9e15 x", "4e9 4e9 x"}) {
    NewDataFile(data);
    ASSERT_EQ(OpenText(FileText(banner, "A~B~C", {"1~2~3"})), LoadOutcome::kLoaded);
    EXPECT_EQ(data.RecordCount, 1000u) << banner;
    EXPECT_EQ(data.VariableCount, 20u) << banner;
    EXPECT_EQ(Record(1, 3), "3") << banner;  // the load has gone on with those
  }
}

TEST_F(LoadDataFileTest, ACountThatFailsKeepsThatOfTheDataAtHand) {
  ASSERT_EQ(OpenText(FileText("4 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  ASSERT_EQ(OpenText(FileText("many 3 x", "A~B~C", {"1~2~3"})), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 4u);
  EXPECT_EQ(data.VariableCount, 3u);
}

// The progress display.

TEST_F(LoadDataFileTest, ASmallFileShowsNoProgress) {  // (484 + 15) x 2 = 998
  ASSERT_EQ(OpenText(FileText("484 1 x", "A", std::vector<std::string>(484, "1"))), LoadOutcome::kLoaded);
  EXPECT_TRUE(platform.progress.empty());
}

TEST_F(LoadDataFileTest, ProgressCountsGridRowsAndLines) {  // (485 + 15) x 2 = 1000
  ASSERT_EQ(OpenText(FileText("485 1 x", "A", std::vector<std::string>(485, "1"))), LoadOutcome::kLoaded);
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].caption, "Loading data file...");
  EXPECT_EQ(platform.progress[0].minimum, 0);
  EXPECT_EQ(platform.progress[0].maximum, 1000);
  EXPECT_GE(platform.progress[0].last_value, 1000);
  EXPECT_TRUE(platform.progress[0].hidden);
}

TEST_F(LoadDataFileTest, AboveTheEditLimitProgressCountsAHundredGridRows) {  // 2000 + 15 + 100
  ASSERT_EQ(OpenText(FileText("2000 101 x", "A", std::vector<std::string>(2000, "1"))), LoadOutcome::kLoaded);
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].maximum, 2115);
}

TEST_F(LoadDataFileTest, AtTheEditLimitAllGridRowsCount) {  // 2000 x 100 = 200000 cells
  ASSERT_EQ(OpenText(FileText("2000 100 x", "A", std::vector<std::string>(2000, "1"))), LoadOutcome::kLoaded);
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].maximum, 4030);
  EXPECT_EQ(data.GridRecords(), 2000u);
}

TEST_F(LoadDataFileTest, CancelOfTheProgressOnlyHidesIt) {
  platform.cancel_progress_at = 1;
  std::vector<std::string> records(20000, "1");
  records.back() = "the last";
  ASSERT_EQ(OpenText(FileText("20000 1 x", "A", records)), LoadOutcome::kLoaded);
  EXPECT_EQ(Record(20000, 1), "the last");
  EXPECT_TRUE(platform.progress.at(0).hidden);
}

}  // namespace
}  // namespace tessara
