#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/data_file.h"
#include "data/tests/data_fixture.h"

// Save, Save As, New, and the repair of the sample files.

namespace tessara {
namespace {

namespace fs = std::filesystem;

using SaveDataFileTest = DataFixture;
using SaveDataFileToTest = DataFixture;
using NewDataFileTest = DataFixture;

std::string Repeated(std::string_view text, int count) {
  std::string result;
  while (count-- > 0) result += text;
  return result;
}

TEST_F(SaveDataFileTest, WritesBannerNotesDictionaryAndRecords) {
  MatrixEditor(data).SetText(kMissingSpecRow, 2, "9||||||");
  MatrixEditor(data).SetText(kVariableLabelRow, 1, "Age in years");
  MatrixEditor(data).SetText(kFirstRecordRow, 1, "34");
  MatrixEditor(data).SetText(kFirstRecordRow + 1, 2, "x");
  data.ProjectNotes = "First line\r\n\r\nThird line";
  EXPECT_EQ(SavedText(),
            WithSeparators("2 2 Tessara data~First line@#$%@#$%Third line\r\n~9||||||\r\nAge in years~\r\n" +
                           Repeated("~\r\n", 12) + "V1~V2\r\n34~\r\n~x\r\n"));
}

TEST_F(SaveDataFileTest, AGridWithNoCellFilledSavesAsSixteenEmptyLines) {
  data.ProjectNotes = "notes that have no place";
  EXPECT_EQ(SavedText(), Repeated("\r\n", 16));
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 20u);
}

TEST_F(SaveDataFileTest, SixteenEmptyLinesLoadAsABadBannerDoes) {
  ASSERT_EQ(OpenText(FileText("4 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  ASSERT_EQ(OpenText(Repeated("\r\n", 16)), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 4u);
  EXPECT_EQ(data.VariableCount, 2u);
  EXPECT_EQ(data.VariableName(1), "");
}

TEST_F(SaveDataFileTest, ABlankRecordInTheMiddleSurvivesAndTrailingOnesDoNot) {
  ASSERT_EQ(OpenText(FileText("5 2 x", "A~B", {"1~2", "~", "3~", "~", "~"})), LoadOutcome::kLoaded);
  EXPECT_EQ(SavedText(), WithSeparators("3 2 Tessara data~\r\n" + Repeated("~\r\n", 14) + "A~B\r\n1~2\r\n~\r\n3~\r\n"));
}

TEST_F(SaveDataFileTest, ABlankVariableInTheMiddleSurvivesAndANamedTrailingOneDoesNot) {
  ASSERT_EQ(OpenText(FileText("1 4 x", "A~B~C~D", {"1~~3~"})), LoadOutcome::kLoaded);
  EXPECT_EQ(SavedText(), WithSeparators("1 3 Tessara data~~\r\n" + Repeated("~~\r\n", 14) + "A~B~C\r\n1~~3\r\n"));
}

TEST_F(SaveDataFileTest, TheWorkingCountsReturnAfterwards) {
  for (std::size_t record = 1; record <= 12; ++record) MatrixEditor(data).SetText(kHeaderRowCount + record, 1, "1");
  const std::string saved = SavedText();
  EXPECT_EQ(saved.substr(0, saved.find("\r\n")), "12 1 Tessara data");
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 20u);
}

TEST_F(SaveDataFileTest, OneVariableHasNoPlaceForNotes) {
  MatrixEditor(data).SetText(kFirstRecordRow, 1, "5");
  data.ProjectNotes = "notes";
  EXPECT_EQ(SavedText(), "1 1 Tessara data\r\n" + Repeated("\r\n", 14) + "V1\r\n5\r\n");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(data.ProjectNotes, "notes");
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the project notes are not in the file: it has one variable"});
}

TEST_F(SaveDataFileTest, AFileThatAnotherProgramHasWrittenIsKeptBesideTheNewOne) {
  const std::string before = FileText("1 2 x", "A~B", {"1~2"});
  const std::string theirs = FileText("1 2 x", "A~B", {"7~8"});  // of the same size
  ASSERT_EQ(OpenText(before), LoadOutcome::kLoaded);
  const auto read_at = fs::last_write_time(folder / "data.dcs");
  folder.Make("data.dcs", theirs);
  fs::last_write_time(folder / "data.dcs", read_at + std::chrono::microseconds(1));
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), theirs);
  EXPECT_TRUE(ContentOf(folder / "data.dcs")
                  .ends_with("1\x01"
                             "2\r\n"));
  EXPECT_EQ(platform.notes,
            std::vector<std::string>{
                "the file had changed since it was read; what stood there is kept as data (as found).dcs"});
  EXPECT_TRUE(platform.messages.empty());
  // What this program has written itself is no surprise.
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_FALSE(fs::exists(folder / "data (as found 2).dcs"));
}

TEST_F(SaveDataFileTest, AFileOfAnotherSizeIsKeptAlsoWithTheTimeOfTheOldOne) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  const auto read_at = fs::last_write_time(folder / "data.dcs");
  folder.Make("data.dcs", "short");
  fs::last_write_time(folder / "data.dcs", read_at);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), "short");
}

TEST_F(SaveDataFileToTest, TheFileSavedToLastIsLookedAtToo) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  EXPECT_EQ(SaveAs(folder / "saved.dcs"), SaveOutcome::kSaved);
  folder.Make("data.dcs", "no longer ours");
  folder.Make("saved.dcs", "theirs");
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "saved (as found).dcs"), "theirs");
  EXPECT_FALSE(fs::exists(folder / "data (as found).dcs"));
}

TEST_F(SaveDataFileTest, ANumberIsWrittenInItsShortestForm) {
  const std::vector<std::pair<double, std::string>> numbers = {
      {0.1, "0.1"}, {-2, "-2"}, {1e15, "1E+15"}, {1.5e-7, "1.5E-07"}, {1.0 / 3, "0.3333333333333333"}};
  std::string records;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    MatrixEditor(data).SetNumber(kFirstRecordRow + i, 1, numbers[i].first);
    records += numbers[i].second + "\r\n";
  }
  EXPECT_EQ(SavedText(), "5 1 Tessara data\r\n" + Repeated("\r\n", 14) + "V1\r\n" + records);
}

TEST_F(SaveDataFileTest, TheNumberZeroIsBlankUntilItComesBackAsText) {
  MatrixEditor(data).SetNumber(kFirstRecordRow, 1, 0);
  MatrixEditor(data).SetText(kFirstRecordRow, 2, "x");
  MatrixEditor(data).SetNumber(kFirstRecordRow + 1, 1, 0);  // a wholly blank record
  ASSERT_EQ(SaveAs(folder / "zero.dcs"), SaveOutcome::kSaved);
  ASSERT_EQ(Open(folder / "zero.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 1u);
  EXPECT_EQ(Record(1, 1), "0");
  EXPECT_FALSE(data.matrix.Cell(kFirstRecordRow, 1).is_blank());
}

TEST_F(SaveDataFileTest, ReservedRowsAndTheRestOfRowZeroAreCarriedThrough) {
  std::string text = "1 3 Tessara data~notes~kept\r\n~~\r\n~~\r\nr3~~s3\r\n" + Repeated("~~\r\n", 8);
  text += "r12~~\r\n~r13~\r\n~~r14\r\nA~B~C\r\n1~2~3\r\n";
  ASSERT_EQ(OpenText(WithSeparators(text)), LoadOutcome::kLoaded);
  EXPECT_EQ(SavedText(), WithSeparators(text));
}

TEST_F(SaveDataFileTest, AFileThatNothingChangedIsWrittenAsItWas) {
  const std::string text =
      WithSeparators("2 2 Tessara data~a@#$%b\r\n" + Repeated("~\r\n", 14) + "A~B\r\n1~x@#$%y\r\n\x80~ 2 \r\n");
  const Path path = folder.Make("same.dcs", text);
  ASSERT_EQ(Open(path), LoadOutcome::kLoaded);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);  // to the path it came from
  EXPECT_EQ(ContentOf(path), text);
}

TEST_F(SaveDataFileTest, ChangedAndAddedCellsStandAmongTheLoadedOnes) {
  ASSERT_EQ(OpenText(FileText("3 3 x", "A~B~C", {"1~2~3", "4", "7~8~9"})), LoadOutcome::kLoaded);
  MatrixEditor(data).SetText(kFirstRecordRow, 2, "two");
  MatrixEditor(data).SetText(kFirstRecordRow + 1, 3, "a text that is longer than a cell");
  const std::size_t added = MatrixEditor(data).AddColumn();
  data.VariableCount = added;
  MatrixEditor(data).SetText(kVariableNameRow, added, "D");
  MatrixEditor(data).SetNumber(kFirstRecordRow + 2, added, 0.5);
  EXPECT_EQ(SavedText(),
            WithSeparators("3 4 Tessara data~~~\r\n" + Repeated("~~~\r\n", 14) +
                           "A~B~C~D\r\n1~two~3~\r\n4~~a text that is longer than a cell~\r\n7~8~9~0.5\r\n"));
}

TEST_F(SaveDataFileTest, ALoadedDataSetMayBeSavedTwice) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  data.ProjectNotes = "notes that are a good deal longer than fifteen bytes";
  ASSERT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  data.ProjectNotes = "short";
  ASSERT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "data.dcs"),
            WithSeparators("1 2 Tessara data~short\r\n" + Repeated("~\r\n", 14) + "A~B\r\n1~2\r\n"));
}

TEST_F(SaveDataFileTest, NotesThatWouldBreakTheirLineAreHeldTogether) {
  EXPECT_EQ(NotesToField("a\r\nb"), "a@#$%b");
  EXPECT_EQ(NotesToField("a\nb"), "a@#$%b");
  EXPECT_EQ(NotesToField("a\x01"
                         "b"),
            "a b");
  EXPECT_EQ(NotesToField("\r\n\r\n"), "@#$%@#$%");
  EXPECT_EQ(NotesFromField("@#$%a@#$%"), "\r\na\r\n");
  EXPECT_EQ(NotesFromField("@#$a"), "@#$a");
  EXPECT_EQ(NotesFromField(""), "");
}

TEST_F(SaveDataFileTest, ClearsTheDirtyFlagAndTheWaitCursor) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  data.DataDirty = true;
  platform.most_wait_cursors = 0;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(platform.most_wait_cursors, 1);
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST_F(SaveDataFileTest, ProgressCountsTheTrimmedLines) {  // 984 records and 16 lines
  for (std::size_t record = 1; record <= 984; ++record) MatrixEditor(data).SetText(kHeaderRowCount + record, 1, "1");
  SavedText();
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].caption, "Saving data file...");
  EXPECT_EQ(platform.progress[0].minimum, 0);
  EXPECT_EQ(platform.progress[0].maximum, 1000);
  EXPECT_EQ(platform.progress[0].last_value, 1000);
  EXPECT_TRUE(platform.progress[0].hidden);
}

TEST_F(SaveDataFileTest, ASmallSaveShowsNoProgress) {
  for (std::size_t record = 1; record <= 983; ++record) MatrixEditor(data).SetText(kHeaderRowCount + record, 1, "1");
  SavedText();
  EXPECT_TRUE(platform.progress.empty());
}

// Where a save needs a name first.

TEST_F(SaveDataFileTest, NeedsANameWithoutAPath) {
  data.DataFilePath.clear();
  data.GridTitle = "survey.dcs";
  data.DataDirty = true;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_TRUE(data.DataDirty);
}

TEST_F(SaveDataFileTest, NeedsANameWhileTheGridHasNoTitleOfItsOwn) {
  const Path path = folder.Make("old.dcs", "old");
  data.DataFilePath = path;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_EQ(ContentOf(path), "old");
}

TEST_F(SaveDataFileTest, NeedsANameWhileThePathIsAFolder) {
  const std::string text = FileText("3 2 x", "A~B", {"1~2", "~", "~"});
  const Path path = folder.Make("named.dcs", text);
  ASSERT_EQ(Open(path, FilePick::kCommandLine), LoadOutcome::kLoaded);
  data.DataDirty = true;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_TRUE(data.DataDirty);
  EXPECT_EQ(ContentOf(path), text);
}

TEST_F(SaveDataFileTest, NeedsANameBehindAFileOfTheCommandLineThoughTheFolderOfDataIsNotThere) {
  data.DataFilePath = folder / "no data folder";
  ASSERT_EQ(Open(folder.Make("named.dcs", FileText("1 2 x", "A~B", {"1~2"})), FilePick::kCommandLine),
            LoadOutcome::kLoaded);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kNoName);
  EXPECT_FALSE(fs::exists(folder / "no data folder"));
  EXPECT_EQ(SaveAs(folder / "named.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
}

TEST_F(SaveDataFileTest, AFolderThatHasVanishedIsToldApart) {
  fs::create_directories(folder / "gone");
  ASSERT_EQ(Open(folder.Make("gone/data.dcs", FileText("1 2 x", "A~B", {"1~2"}))), LoadOutcome::kLoaded);
  fs::remove_all(folder / "gone");
  data.DataDirty = true;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFolderGone);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(SaveDataFileTest, APathThroughAFileHasNoFolder) {
  folder.Make("file", "x");
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  data.DataFilePath = folder / "file" / "data.dcs";
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFolderGone);
}

// Failures.

TEST_F(SaveDataFileTest, AFailedSaveShowsItsBoxAndStillClearsTheFlag) {
  ASSERT_EQ(OpenText(FileText("3 2 x", "A~B", {"1~2", "~", "~"})), LoadOutcome::kLoaded);
  // A link to itself: not to be written by anybody.
  fs::create_symlink(folder / "loop.dcs", folder / "loop.dcs");
  data.DataFilePath = folder / "loop.dcs";
  data.DataDirty = true;
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFailed);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, kSaveRefusedText);
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kOk);
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_EQ(platform.wait_cursors, 0);
}

#if defined(__linux__)
TEST_F(SaveDataFileTest, AFullDiskShowsTheBoxAndRestoresTheCounts) {
  ASSERT_EQ(OpenText(FileText("3 3 x", "A~B~C", {"1~2~", "~~", "~~"})), LoadOutcome::kLoaded);
  data.DataFilePath = "/dev/full";
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFailed);
  EXPECT_EQ(platform.messages.at(0).text, kSaveRefusedText);
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_EQ(data.VariableCount, 3u);
  EXPECT_EQ(platform.wait_cursors, 0);
}
#endif

TEST_F(SaveDataFileTest, NoTemporaryFileIsLeftBehind) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  ASSERT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"data.dcs", "program"}));
}

TEST_F(SaveDataFileTest, AFileWithTheLongestOfNamesCanBeSaved) {
  const std::string name = std::string(251, 'n') + ".dcs";  // 255 bytes
  MatrixEditor(data).SetText(kFirstRecordRow, 1, "5");
  EXPECT_EQ(SaveAs(folder / name), SaveOutcome::kSaved);
  EXPECT_TRUE(fs::exists(folder / name));
}

// Save As.

TEST_F(SaveDataFileToTest, MovesThePathAndTheGridTitleButNotTheDataFileTitle) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  data.DataDirty = true;
  EXPECT_EQ(SaveAs(folder / "copy.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(data.DataFilePath, folder / "copy.dcs");
  EXPECT_EQ(data.GridTitle, "copy.dcs");
  EXPECT_EQ(data.DataFileTitle, "data.dcs");
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(SaveDataFileToTest, AFailureShowsItsOwnTextAndLeavesThePath) {
  ASSERT_EQ(OpenText(FileText("1 2 x", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  fs::create_directories(folder / "folder.dcs");
  data.DataDirty = true;
  EXPECT_EQ(SaveAs(folder / "folder.dcs"), SaveOutcome::kFailed);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, kSaveAsRefusedText);
  EXPECT_FALSE(data.DataDirty);
  EXPECT_EQ(data.DataFilePath, folder / "data.dcs");
  EXPECT_EQ(data.GridTitle, "data.dcs");
}

TEST_F(SaveDataFileToTest, AFolderThatIsNotThereIsAFailureToo) {
  EXPECT_EQ(SaveAs(folder / "nowhere" / "x.dcs"), SaveOutcome::kFailed);
  EXPECT_EQ(platform.messages.at(0).text, kSaveAsRefusedText);
}

TEST_F(SaveDataFileToTest, OverTheFileThatTheDataWereLoadedFrom) {
  const std::string text = WithSeparators("1 2 Tessara data~\r\n" + Repeated("~\r\n", 14) + "A~B\r\n1~2\r\n");
  ASSERT_EQ(OpenText(text), LoadOutcome::kLoaded);
  EXPECT_EQ(SaveAs(folder / "data.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "data.dcs"), text);
  EXPECT_EQ(Record(1, 2), "2");
}

// New.

TEST_F(NewDataFileTest, ReplacesTheDataByTheEmptyDataSet) {
  ASSERT_EQ(OpenText(FileText("1 2 x~notes", "A~B", {"1~2"})), LoadOutcome::kLoaded);
  data.CurrentRow = 5;
  data.CurrentColumn = 2;
  data.DataDirty = true;
  NewDataFile(data);
  EXPECT_EQ(data.RecordCount, 1000u);
  EXPECT_EQ(data.VariableCount, 20u);
  EXPECT_EQ(data.matrix.RowCount(), 1017u);  // rows 0 to 1016, one to spare
  EXPECT_EQ(data.matrix.ColumnCount(), 20u);
  EXPECT_EQ(data.VariableName(1), "V1");
  EXPECT_EQ(data.VariableName(20), "V20");
  EXPECT_EQ(Record(1, 1), "(empty)");
  EXPECT_EQ(data.VarList.size(), 21u);
  EXPECT_EQ(data.VarList[20].name, "V20");
  EXPECT_EQ(data.CurrentRow, 1u);
  EXPECT_EQ(data.CurrentColumn, 1u);
  EXPECT_TRUE(data.DataFilePath.empty());
  EXPECT_TRUE(data.LoadedFile.empty());
  EXPECT_EQ(data.DataFileSize, std::nullopt);
  EXPECT_EQ(data.DataFileModified, "");
  EXPECT_EQ(data.ProjectNotes, "");
  EXPECT_EQ(data.GridTitle, "Data Grid");
  EXPECT_EQ(data.DataFileTitle, "data.dcs");  // stays
  EXPECT_FALSE(data.DataDirty);
}

// Repair.

class RepairSampleFilesTest : public DataFixture {
 protected:
  RepairSampleFilesTest() { fs::create_directories(Help()); }
  Path Help() const { return platform.program_folder / "Help"; }
  Path Data() const { return platform.program_folder / "Data"; }
};

TEST_F(RepairSampleFilesTest, CopiesTheDataFilesOverThoseOfTheUser) {
  folder.Make("program/Help/iris.dcs", "original");
  folder.Make("program/Help/sleep.dcs", "another");
  folder.Make("program/Help/Index.log", "no data file");
  fs::create_directories(Help() / "folder.dcs");
  folder.Make("program/Data/iris.dcs", "spoilt");
  folder.Make("program/Data/own.dcs", "the user's");
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Repair Practice Data Files");
  EXPECT_EQ(platform.messages[0].text,
            "Click OK to replace practice files in the Tessara program folder with the original files.");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kOkCancel);
  EXPECT_EQ(ContentOf(Data() / "iris.dcs"), "original");
  EXPECT_EQ(ContentOf(Data() / "sleep.dcs"), "another");
  EXPECT_EQ(ContentOf(Data() / "own.dcs"), "the user's");
  EXPECT_FALSE(fs::exists(Data() / "Index.log"));
  EXPECT_EQ(platform.most_wait_cursors, 1);
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST_F(RepairSampleFilesTest, CancelCopiesNothing) {
  folder.Make("program/Help/iris.dcs", "original");
  platform.message_answers.push_back(Answer::kCancel);
  RepairSampleFiles(platform);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_FALSE(fs::exists(Data() / "iris.dcs"));
}

constexpr const char* kRepairFailedText =
    "An error occurred when copying the files. Please manually copy the data files from the Help folder in the "
    "Tessara Suite program folder.";

TEST_F(RepairSampleFilesTest, AFileThatCannotBeCopiedShowsTheBox) {
  folder.Make("program/Help/iris.dcs", "original");
  fs::create_directories(Data() / "iris.dcs");  // a folder in the file's place
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].title, "Repair Failed");
  EXPECT_EQ(platform.messages[1].text, kRepairFailedText);
}

TEST_F(RepairSampleFilesTest, FindsTheEndingInAnyCaseOfLetters) {
  folder.Make("program/Help/IRIS.DCS", "original");
  folder.Make("program/Help/sleep.Dcs", "another");
  folder.Make("program/Help/odd.dcs2", "no data file");
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(ContentOf(Data() / "IRIS.DCS"), "original");
  EXPECT_EQ(ContentOf(Data() / "sleep.Dcs"), "another");
  EXPECT_FALSE(fs::exists(Data() / "odd.dcs2"));
}

TEST_F(RepairSampleFilesTest, NothingToCopyShowsTheBox) {
  folder.Make("program/Help/Index.log", "no data file");
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].title, "Repair Failed");
  EXPECT_EQ(platform.messages[1].text, kRepairFailedText);
}

TEST_F(RepairSampleFilesTest, OneThatFailsDoesNotKeepTheRestBack) {
  folder.Make("program/Help/iris.dcs", "original");
  folder.Make("program/Help/sleep.dcs", "another");
  fs::create_directories(Data() / "iris.dcs");
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  EXPECT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(ContentOf(Data() / "sleep.dcs"), "another");
}

TEST_F(RepairSampleFilesTest, AMissingFolderShowsTheBox) {
  fs::remove_all(Help());
  platform.message_answers.push_back(Answer::kOk);
  RepairSampleFiles(platform);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[1].title, "Repair Failed");
}

// Its title is then the same as its path, as that of a file that was named at the start is.
TEST_F(SaveDataFileTest, FileThatWasPickedByItsNameAloneHasAPathOfItsOwn) {
  folder.Make("near.dcs", FileText("1 1 Tessara data", "A", {"5"}));
  const Path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(Open("near.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(SaveDataFile(data, platform, 0), SaveOutcome::kSaved);
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace tessara
