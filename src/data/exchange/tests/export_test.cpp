#include "data/exchange/export.h"

#include <gtest/gtest.h>

#include <string>

#include "data/change_door.h"
#include "data/exchange/tests/import_fixture.h"

namespace tessara {
namespace {

class ExportTest : public ImportFixture {
 protected:
  std::string Exported(char delimiter = ',') {
    EXPECT_TRUE(ExportText(data, platform, folder / "out.csv", delimiter));
    return ContentOf(folder / "out.csv");
  }
};

TEST_F(ExportTest, TheReminderComesFirst) {
  ShowExportReminder(platform);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Reminder!");
  EXPECT_EQ(platform.messages[0].text, "Please note that the export will not contain formatting.");
  EXPECT_EQ(platform.messages[0].tone, Tone::kInformation);
}

TEST_F(ExportTest, NamesAndRecordsStandBetweenDelimiters) {
  EXPECT_EQ(Exported(), "SEX,AGE\r\n1,34\r\n2,41\r\n");
  EXPECT_EQ(Exported('\t'), "SEX\tAGE\r\n1\t34\r\n2\t41\r\n");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(data.DataDirty);
}

TEST_F(ExportTest, BlankRecordsAndVariablesAreExportedAsTheyStand) {
  NewDataFile(data);
  MatrixEditor(data).SetNumber(17, 2, 0.5);
  const std::string text = Exported();
  EXPECT_TRUE(
      text.starts_with("V1,V2,V3,V4,V5,V6,V7,V8,V9,V10,V11,V12,V13,V14,V15,V16,V17,V18,V19,V20\r\n"
                       ",,,,,,,,,,,,,,,,,,,\r\n,0.5,,,,,,,,,,,,,,,,,,\r\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1001);
}

TEST_F(ExportTest, ChangedCellsAddedColumnsAndShortLinesAreWritten) {
  ASSERT_EQ(ImportFile("A,B,C\n1\n1,2,3\n4,5,6\n"), ImportOutcome::kImported);
  MatrixEditor(data).SetText(18, 2, "x,y");  // no quoting: the columns of that line go wrong
  EXPECT_EQ(Exported(), "A,B,C\r\n1,,\r\n1,2,3\r\n4,x,y,6\r\n");
  std::vector<Column> added(1);
  added[0].Set(kVariableNameRow, "D");
  added[0].Set(17, 7.25);
  ASSERT_TRUE(ApplyChange(data, AddColumns(data, std::move(added), "Add")));
  EXPECT_EQ(Exported('\t'), "A\tB\tC\tD\r\n1\t\t\t\r\n1\t2\t3\t7.25\r\n4\tx,y\t6\t\r\n");
}

TEST_F(ExportTest, WhatWasExportedComesInAgain) {
  ASSERT_EQ(ImportFile("NAME,N\nJos\xE9 Ray,1\n,2\n"), ImportOutcome::kImported);
  const std::string text = Exported();
  ASSERT_EQ(ImportFile(text), ImportOutcome::kImported);
  EXPECT_EQ(Cells(), "NAME|N/Jos\xE9 Ray|1/|2");
}

TEST_F(ExportTest, AnErrorHasABoxOfItsOwnAndLeavesTheOldFile) {
  for (const Path& path : {folder / "no" / "such.csv", platform.program_folder}) {
    EXPECT_FALSE(ExportText(data, platform, path, ','));
    ASSERT_EQ(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Export Aborted!");
    EXPECT_EQ(platform.messages[0].text,
              "The export failed. Please make sure the file is not open in another program.");
    platform.messages.clear();
  }
  EXPECT_EQ(platform.wait_cursors, 0);
}

TEST_F(ExportTest, LongWorkShowsItsProgress) {
  std::string content = "A,B\n";
  for (int i = 0; i < 5000; ++i) content += "1,2\n";
  ASSERT_EQ(ImportFile(content), ImportOutcome::kImported);
  platform.progress.clear();
  Exported();
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].caption, "Exporting data...");
  EXPECT_EQ(platform.progress[0].maximum, 5015);
  EXPECT_TRUE(platform.progress[0].hidden);
}

}  // namespace
}  // namespace tessara
