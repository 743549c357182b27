#include "data/load_fit.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "data/tests/data_fixture.h"
#include "platform/file_calls.h"

// What is said of a file that does not fit its first line, and that it is not lost by a save.

namespace tessara {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class LoadFitTest : public DataFixture {
 protected:
  // Names of the folder, but for the program's.
  Names Files() const {
    Names names = folder.Names();
    std::erase(names, "program");
    return names;
  }
  std::string NoteOf(const std::string& content) {
    platform.notes.clear();
    EXPECT_EQ(OpenText(content), LoadOutcome::kLoaded);
    EXPECT_LE(platform.notes.size(), 1U);
    EXPECT_TRUE(platform.messages.empty());
    return platform.notes.empty() ? "" : platform.notes.front();
  }
};

// A file whose lines all have two fields.
std::string Fitting(const std::string& first_line, const std::vector<std::string>& records) {
  std::string text = first_line + "~\r\n";
  for (int row = 1; row < 15; ++row) text += "~\r\n";
  text += "A~B\r\n";
  for (const std::string& record : records) text += record + "\r\n";
  return WithSeparators(text);
}

TEST_F(LoadFitTest, FileThatFitsIsLoadedInSilence) {
  EXPECT_EQ(NoteOf(Fitting("2 2 Tessara data", {"1~2", "3~4"})), "");
  EXPECT_EQ(NoteOf(Fitting("0 2 Tessara data", {})), "");
  EXPECT_TRUE(data.MisfitFile.empty());
}

TEST_F(LoadFitTest, LineEndsBehindTheLastRecordAreNoRecords) {
  EXPECT_EQ(NoteOf(Fitting("1 2 Tessara data", {"1~2"}) + "\r\n\n"), "");
}

TEST_F(LoadFitTest, LastRecordWithoutALineEndCounts) {
  std::string text = Fitting("1 2 Tessara data", {"1~2"});
  text.resize(text.size() - 2);
  EXPECT_EQ(NoteOf(text), "");
}

TEST_F(LoadFitTest, SurplusRecordsAreCounted) {
  EXPECT_EQ(NoteOf(Fitting("1000 2 Tessara data", std::vector<std::string>(2201, "1~2"))),
            "the file has 2,201 records, its first line says 1,000");
  EXPECT_EQ(data.RecordCount, 1000U);
}

TEST_F(LoadFitTest, MissingRecordsAreCounted) {
  EXPECT_EQ(NoteOf(Fitting("3 2 Tessara data", {"1~2"})), "the file has 1 record, its first line says 3");
}

TEST_F(LoadFitTest, FileThatEndsInItsDictionaryIsTold) {
  EXPECT_EQ(NoteOf(WithSeparators("5 2 Tessara data~\r\n~\r\n~\r\n")),
            "the file ends in line 3, ahead of its records; its first line says 5");
}

TEST_F(LoadFitTest, LinesWithTooFewOrTooManyFieldsAreCounted) {
  EXPECT_EQ(NoteOf(Fitting("3 2 Tessara data", {"1", "", "5~6"})), "2 lines have fewer fields than the 2 variables");
  EXPECT_EQ(NoteOf(Fitting("3 2 Tessara data", {"1~2~3~4", "5", "7~8"})),
            "1 line has fewer fields than the 2 variables; 1 line has more fields than the 2 variables");
}

TEST_F(LoadFitTest, EmptyLinesOfTheDictionaryLackNothing) {
  EXPECT_EQ(NoteOf(FileText("1 2 Tessara data", "A~B", {"1~2"})), "");
}

TEST_F(LoadFitTest, FirstLineThatIsNoBannerIsTold) {
  data.RecordCount = 4;
  data.VariableCount = 2;
  EXPECT_EQ(NoteOf(Fitting("hello", {"1~2"})),
            "the file's first line is no banner, so it was read as 4 records and 2 variables");
  EXPECT_EQ(NoteOf(Fitting("1 x Tessara data", {"1~2"})),
            "the file's first line is no banner, so it was read as 1 record and 2 variables");
}

TEST_F(LoadFitTest, ShapeBeyondTheMemoryIsTold) {
  data.RecordCount = 1;
  data.VariableCount = 2;
  EXPECT_EQ(NoteOf(Fitting("1e15 1e15 Tessara data", {"1~2"})),
            "the file's first line announces more than the memory holds, so it was read as 1 record and 2 variables");
}

// The file is kept.

constexpr const char* kSurplus = "3~4";

class MisfitTest : public LoadFitTest {
 protected:
  MisfitTest() { OpenText(text); }
  const std::string text = Fitting("1 2 Tessara data", {"1~2", kSurplus});
};

TEST_F(MisfitTest, FirstSaveKeepsItBesideTheNewOne) {
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(Files(), (Names{"data (as found).dcs", "data.dcs"}));
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), text);
  EXPECT_EQ(ContentOf(folder / "data.dcs"), Fitting("1 2 Tessara data", {"1~2"}));
}

TEST_F(MisfitTest, LaterSavesKeepNothingMore) {
  SaveDataFile(data, platform);
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(Files(), (Names{"data (as found).dcs", "data.dcs"}));
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), text);
}

TEST_F(MisfitTest, EarlierKeptFileStays) {
  folder.Make("data (as found).dcs", "of another day");
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), "of another day");
  EXPECT_EQ(ContentOf(folder / "data (as found 2).dcs"), text);
}

TEST_F(MisfitTest, SaveToAnotherFileKeepsNothing) {
  EXPECT_EQ(SaveAs(folder / "other.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(Files(), (Names{"data.dcs", "other.dcs"}));
  EXPECT_EQ(ContentOf(folder / "data.dcs"), text);
}

TEST_F(MisfitTest, SaveAsOverItKeepsItToo) {
  fs::create_symlink("data.dcs", folder / "link.dcs");
  EXPECT_EQ(SaveAs(folder / "link.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(Files(), (Names{"data (as found).dcs", "data.dcs", "link.dcs"}));
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), text);
}

TEST_F(MisfitTest, FileThatCannotBeKeptIsNotSavedOver) {
  const FileCalls before = CallsOfFiles();
  CallsOfFiles().link = [](const Path&, const Path&) { return false; };
  CallsOfFiles().take_name = [](const Path& from, const Path& to) {
    return to.filename() != "data (as found).dcs" && SystemFileCalls().take_name(from, to);
  };
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFailed);
  CallsOfFiles() = before;
  EXPECT_EQ(platform.messages.size(), 1U);
  EXPECT_EQ(Files(), Names{"data.dcs"});
  EXPECT_EQ(ContentOf(folder / "data.dcs"), text);
}

TEST_F(MisfitTest, ASaveThatFailsLeavesNoSecondName) {
  const FileCalls before = CallsOfFiles();
  CallsOfFiles().take_name = [](const Path&, const Path&) { return false; };
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kFailed);
  CallsOfFiles() = before;
  EXPECT_EQ(Files(), Names{"data.dcs"});
  EXPECT_EQ(ContentOf(folder / "data.dcs"), text);
  EXPECT_EQ(fs::hard_link_count(folder / "data.dcs"), 1u);
}

TEST_F(MisfitTest, WhereThereAreNoSecondNamesItIsCopied) {
  const FileCalls before = CallsOfFiles();
  CallsOfFiles().link = [](const Path&, const Path&) { return false; };
  EXPECT_EQ(SaveDataFile(data, platform), SaveOutcome::kSaved);
  CallsOfFiles() = before;
  EXPECT_EQ(ContentOf(folder / "data (as found).dcs"), text);
}

}  // namespace
}  // namespace tessara
