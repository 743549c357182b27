#include "data/exchange/split.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/change_door.h"
#include "data/tests/data_fixture.h"

namespace tessara {
namespace {

class SplitTest : public DataFixture {
 protected:
  SplitTest() {
    std::string text = "3 3 Tessara data~One@#$%Two~\r\n~9||||||~\r\nAge in years~~\r\n~~\r\n~1=Male~\r\n";
    for (int row = 5; row <= 14; ++row) text += "~~\r\n";
    EXPECT_EQ(OpenText(WithSeparators(text + "AGE~SEX~WT\r\n34~1~70.5\r\n41~9~\r\n~~\r\n")), LoadOutcome::kLoaded);
  }
  std::string Split(const std::vector<std::size_t>& columns) {
    panel.SplitColumns = columns;
    EXPECT_TRUE(RunSplit(panel, data, platform, folder / "part.dcs"));
    return ContentOf(folder / "part.dcs");
  }

  SplitPanel panel;
};

TEST_F(SplitTest, AVariableMustBeSelected) {
  AddVariable(panel, 0, platform);
  AddAllVariables(panel, {}, platform);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Procedure Aborted");
  EXPECT_EQ(platform.messages[0].text, "You must select a variable from the list");
  EXPECT_EQ(platform.messages[1].text, "You must select a variable from the list");
  EXPECT_FALSE(MayRunSplit(panel, platform));
  EXPECT_EQ(platform.messages[2].title, "Procedure Aborted");
  EXPECT_EQ(platform.messages[2].text, "You must have at least one variable in new data file list");
}

TEST_F(SplitTest, OneAtATimeAVariableIsAddedAgain) {
  AddVariable(panel, 2, platform);
  AddVariable(panel, 2, platform);
  EXPECT_EQ(panel.SplitColumns, (std::vector<std::size_t>{2, 2}));
  EXPECT_TRUE(MayRunSplit(panel, platform));
}

TEST_F(SplitTest, SeveralAtOnceLeaveOutWhatIsThere) {
  AddVariable(panel, 2, platform);
  AddAllVariables(panel, std::vector<std::size_t>{1, 2, 3}, platform);
  EXPECT_EQ(panel.SplitColumns, (std::vector<std::size_t>{2, 1, 3}));
  AddAllVariables(panel, std::vector<std::size_t>{1, 2, 3}, platform);
  EXPECT_EQ(panel.SplitCount(), 3u);
}

TEST_F(SplitTest, NoneEmptiesTheList) {
  AddVariable(panel, 2, platform);
  ResetSplit(panel);
  EXPECT_EQ(panel.SplitCount(), 0u);
}

TEST_F(SplitTest, ThereAreThreeHundredAtMost) {
  std::vector<std::size_t> columns;
  for (std::size_t column = 1; column <= 400; ++column) columns.push_back(column);
  AddAllVariables(panel, columns, platform);
  EXPECT_EQ(panel.SplitCount(), 300u);
  AddVariable(panel, 1, platform);
  EXPECT_EQ(panel.SplitCount(), 300u);
  EXPECT_EQ(platform.notes, (std::vector<std::string>(2, "a new data file takes 300 variables at most")));
}

TEST_F(SplitTest, VariablesThatHaveGoneAreLeftOut) {
  panel.SplitColumns = {3, 4, 1};
  DropMissingVariables(panel, data);
  EXPECT_EQ(panel.SplitColumns, (std::vector<std::size_t>{3, 1}));
}

TEST_F(SplitTest, TheChosenColumnsStandInTheirOrderWithTheirDictionary) {
  std::string expected = "2 2 Tessara data~One@#$%Two\r\n9||||||~\r\n~Age in years\r\n~\r\n1=Male~\r\n";
  for (int row = 5; row <= 14; ++row) expected += "~\r\n";
  EXPECT_EQ(Split({2, 1}), WithSeparators(expected + "SEX~AGE\r\n1~34\r\n9~41\r\n"));  // the blank record is left out
  EXPECT_EQ(data.RecordCount, 3u);
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(SplitTest, TheFirstLineHasTwoFieldsWhateverTheVariables) {
  EXPECT_TRUE(Split({1}).starts_with(WithSeparators("2 1 Tessara data~One@#$%Two\r\n")));
  EXPECT_TRUE(Split({1, 2, 3, 1}).starts_with(WithSeparators("2 4 Tessara data~One@#$%Two\r\n")));
}

TEST_F(SplitTest, WithOneVariableInTheDataTheNotesAreEmpty) {
  ASSERT_EQ(OpenText(FileText("1 1 Tessara data~Notes", "AGE", {"34"})), LoadOutcome::kLoaded);
  EXPECT_TRUE(Split({1}).starts_with(WithSeparators("1 1 Tessara data~\r\n")));
}

TEST_F(SplitTest, TheNewFileOpens) {
  Split({3, 2});
  ASSERT_EQ(Open(folder / "part.dcs"), LoadOutcome::kLoaded);
  EXPECT_EQ(data.RecordCount, 2u);
  EXPECT_EQ(data.VariableName(1), "WT");
  EXPECT_EQ(Record(1, 1), "70.5");
  EXPECT_EQ(data.matrix.Cell(kMissingSpecRow, 2).text(), "9||||||");
  EXPECT_EQ(data.ProjectNotes, "One\r\nTwo");
}

TEST_F(SplitTest, DataWithoutACellGiveRecordsOfNone) {
  NewDataFile(data);
  std::string expected = "0 1 Tessara data~\r\n";
  for (int row = 1; row <= 14; ++row) expected += "\r\n";
  EXPECT_EQ(Split({2}), WithSeparators(expected + "V2\r\n"));
}

TEST_F(SplitTest, ABoxTellsTheEnd) {
  Split({1});
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Operation Completed");
  EXPECT_EQ(platform.messages[0].text,
            "The new file has been successfully saved. You must open this file to begin using it.\r\n\r\n"
            "File Name:    part.dcs\r\nFile Location: " +
                (folder / "part.dcs").string());
  EXPECT_EQ(platform.messages[0].tone, Tone::kInformation);
}

TEST_F(SplitTest, AFileThatCannotBeWrittenHasTheBoxOfASaveAs) {
  panel.SplitColumns = {1};
  EXPECT_FALSE(RunSplit(panel, data, platform, folder / "no" / "such.dcs"));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[0].text, kSaveAsRefusedText);
  EXPECT_EQ(panel.SplitCount(), 1u);
  EXPECT_EQ(platform.wait_cursors, 0);
}

}  // namespace
}  // namespace tessara
