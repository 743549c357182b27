#include "shell/file_questions.h"

#include <gtest/gtest.h>

#include "shell/tests/session_fixture.h"

// Open, Save and Save As of the Data Grid: what is asked, and what becomes of the answers.

namespace tessara {
namespace {

class FileQuestionsTest : public SessionFixture {
 protected:
  FileQuestionsTest() { StartSession(session, {}); }
};

TEST_F(FileQuestionsTest, TheOpenDialogBeginsInTheFolderOfTheDataFilePath) {
  AskAndOpenData(session);
  ASSERT_EQ(platform.open_dialogs.size(), 1u);
  EXPECT_EQ(platform.open_dialogs[0].title, "Open");
  EXPECT_EQ(platform.open_dialogs[0].filter, "Tessara data files (*.dcs)|*.dcs");
  EXPECT_EQ(platform.open_dialogs[0].initial_folder, platform.program_folder / "Data");
  session.data.DataFilePath = "/some/where/x.dcs";
  AskAndOpenData(session);
  EXPECT_EQ(platform.open_dialogs[1].initial_folder, Path("/some/where/x.dcs"));
  session.data.DataFilePath.clear();
  AskAndOpenData(session);
  EXPECT_EQ(platform.open_dialogs[2].initial_folder, platform.program_folder / "Data");
}

TEST_F(FileQuestionsTest, AFileThatIsChosenIsAPick) {
  const Path people = WriteDataFile("people.dcs");
  platform.open_answers = {Chosen(people)};
  AskAndOpenData(session);
  EXPECT_EQ(session.data.VariableName(1), "AGE");
  EXPECT_EQ(session.data.DataFilePath, people);
  EXPECT_EQ(session.data.GridTitle, "people.dcs");
}

TEST_F(FileQuestionsTest, ACancelledOpenLeavesDataFlagListsAndPanes) {
  Open(WriteDataFile("people.dcs"));
  session.panel.SelectedVariables = {1};
  session.data.DataDirty = true;
  platform.panes[1] = "Save Completed";
  AskAndOpenData(session);
  EXPECT_EQ(session.panel.SelectedVariables.size(), 1u);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  EXPECT_EQ(session.data.VariableName(1), "AGE");
  EXPECT_EQ(session.data.DataFilePath, folder / "people.dcs");
  EXPECT_TRUE(session.data.DataDirty);
  EXPECT_EQ(session.data.DataFileSize, 0u);  // this alone is lost
}

TEST_F(FileQuestionsTest, TheSaveDialogHasItsTitleFilterFolderAndName) {
  AskAndSaveData(session);
  session.data.DataFilePath.clear();
  session.data.GridTitle = "survey.dcs";
  AskAndSaveData(session);
  session.data.GridTitle = "Data Grid survey.dcs";
  AskAndSaveData(session);
  ASSERT_EQ(platform.save_dialogs.size(), 3u);
  EXPECT_EQ(platform.save_dialogs[0].title, "Save As");
  EXPECT_EQ(platform.save_dialogs[0].filter, "Tessara files (*.dcs)|*.dcs");
  EXPECT_TRUE(platform.save_dialogs[0].overwrite_prompt);
  EXPECT_EQ(platform.save_dialogs[0].initial_folder, platform.program_folder / "Data");
  EXPECT_EQ(platform.save_dialogs[0].initial_name, "Data Grid");
  EXPECT_EQ(platform.save_dialogs[1].initial_folder, platform.program_folder / "Data");
  EXPECT_EQ(platform.save_dialogs[1].initial_name, "survey.dcs");
  EXPECT_EQ(platform.save_dialogs[2].initial_name, "survey.dcs");
}

TEST_F(FileQuestionsTest, ACancelledSaveAsEndsQuietlyAndClearsTheFlag) {
  session.data.DataDirty = true;
  AskAndSaveData(session);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_EQ(session.data.GridTitle, "Data Grid");
}

TEST_F(FileQuestionsTest, AFileOfTheCommandLineIsProposedAndNotWrittenUnasked) {
  const Path file = WriteDataFile("people.dcs");
  const std::string text = ReadFile(file);
  Session started(platform, store);
  StartSession(started, file);
  SetProjectNotes(started, "changed");
  SaveDataOrAsk(started);
  ASSERT_EQ(platform.save_dialogs.size(), 1u);
  EXPECT_EQ(platform.save_dialogs[0].initial_folder, folder);
  EXPECT_EQ(platform.save_dialogs[0].initial_name, "people.dcs");
  EXPECT_EQ(ReadFile(file), text);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(FileQuestionsTest, AFolderThatHasVanishedIsNamedAndAskedFor) {
  std::filesystem::create_directories(folder / "gone");
  Open(WriteDataFile("gone/people.dcs"));
  std::filesystem::remove_all(folder / "gone");
  platform.save_answers = {Chosen(folder / "here.dcs")};
  SaveDataOrAsk(session);
  EXPECT_EQ(platform.save_dialogs.size(), 1u);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(session.data.DataFilePath, folder / "here.dcs");
  EXPECT_EQ(session.data.GridTitle, "here.dcs");
  EXPECT_NE(ReadFile(folder / "here.dcs").find("AGE"), std::string::npos);
}

TEST_F(FileQuestionsTest, SavingAlwaysSaysSaveCompleted) {
  SaveDataOrAsk(session);  // cancelled
  EXPECT_EQ(platform.panes[1], "Save Completed");

  platform.panes[1].clear();
  platform.save_answers = {Chosen(folder / "no such folder" / "x.dcs")};
  SaveDataOrAsk(session);
  EXPECT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.panes[1], "Save Completed");

  platform.panes[1].clear();
  platform.save_answers = {Chosen(folder / "x.dcs")};
  SaveDataOrAsk(session);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  EXPECT_TRUE(std::filesystem::exists(folder / "x.dcs"));
}

}  // namespace
}  // namespace tessara
