#include "shell/session.h"

#include <gtest/gtest.h>

#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

class StartTest : public SessionFixture {};
class SessionTest : public SessionFixture {
 protected:
  SessionTest() { StartSession(session, {}); }
};

TEST_F(StartTest, TheFirstStartTakesTheDefaultsAndStoresThem) {
  StartSession(session, {});
  EXPECT_EQ(store.Read("Op3"), "0");
  EXPECT_EQ(store.Read("Op14"), "0");
  EXPECT_TRUE(session.settings.sounds());
  EXPECT_EQ(session.data.DataFilePath, platform.program_folder / "Data");
  EXPECT_FALSE(session.help_pane_visible);
}

TEST_F(StartTest, TheDataFolderOfTheSettingsIsWhereDialogsBegin) {
  store.Write("Op14", PathToUtf8(folder / "mine"));
  store.Write("Op4", "1");
  StartSession(session, {});
  EXPECT_EQ(session.data.DataFilePath, folder / "mine");
  EXPECT_TRUE(session.help_pane_visible);
}

TEST_F(StartTest, AnEmptyCommandLineOpensNothing) {
  StartSession(session, {});
  EXPECT_TRUE(platform.open_dialogs.empty());
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_EQ(session.data.VariableCount, 20u);
  EXPECT_EQ(session.data.VariableName(20), "V20");
  EXPECT_EQ(session.ActiveView, View::ViewDataGrid);
  EXPECT_EQ(platform.panes[1], "Ready");
  RefreshStatus(session);
  EXPECT_EQ(platform.panes[2], "1000 Records");
  EXPECT_EQ(platform.panes[3], "20 Variables");
}

TEST_F(StartTest, ADataFileOfTheCommandLineIsOpenedWithoutAsking) {
  const Path file = WriteDataFile("people.dcs");
  StartSession(session, file);
  EXPECT_TRUE(platform.open_dialogs.empty());
  EXPECT_EQ(session.data.RecordCount, 2u);
  EXPECT_EQ(session.data.VariableName(1), "AGE");
  EXPECT_EQ(platform.panes[1], "Ready");
  // The path stays the folder of data files; the title is the whole path.
  EXPECT_EQ(session.data.DataFilePath, platform.program_folder / "Data");
  EXPECT_EQ(session.data.DataFileTitle, file.string());
}

TEST_F(StartTest, ACommandLineFileThatIsNotThereLeavesTheEmptyDataSet) {
  StartSession(session, folder / "nobody.dcs");
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(platform.panes[1], "Cannot open nobody.dcs");
}

TEST_F(StartTest, TheDocumentsFolderGetsAFolderForData) {
  const Path made = platform.documents_folder / "Tessara Data";
  StartSession(session, {});
  EXPECT_TRUE(std::filesystem::is_directory(made));
  Session second(platform, store);
  StartSession(second, {});
  EXPECT_TRUE(std::filesystem::is_directory(made));
}

TEST_F(StartTest, ADocumentsFolderThatCannotBeMadeDoesNotEndTheStart) {
  platform.documents_folder = WriteFile("a file", "");
  StartSession(session, {});
  EXPECT_EQ(platform.panes[1], "Ready");
}

TEST_F(StartTest, TheWorkingFolderIsThatOfTheUsersData) {
  StartSession(session, {});
  EXPECT_EQ(platform.entered_folders,
            (std::vector<Path>{platform.program_folder, platform.documents_folder / "Tessara Data"}));
}

TEST_F(StartTest, ARelativePathOfTheCommandLineMeansTheFolderOfTheCall) {
  const Path file = WriteDataFile("people.dcs");
  const Path relative = file.lexically_relative(std::filesystem::current_path());
  ASSERT_TRUE(relative.is_relative());
  StartSession(session, relative);
  EXPECT_EQ(session.data.RecordCount, 2u);
  EXPECT_TRUE(session.data.LoadedFile.is_absolute());
  EXPECT_EQ(session.data.DataFileTitle, session.data.LoadedFile.string());
}

TEST_F(StartTest, TheMemoryForUndoIsThatOfTheSettings) {
  StartSession(session, {});
  EXPECT_EQ(session.data.history.limit(), std::size_t{256} << 20);
  store.Write("UndoMemory", "5");
  Session second(platform, store);
  StartSession(second, {});
  EXPECT_EQ(second.data.history.limit(), std::size_t{5} << 20);
}

TEST_F(StartTest, TheBatchProgramTouchesNoDocuments) {
  StartBatchSession(session);
  EXPECT_EQ(session.data.history.limit(), 0u);
  EXPECT_TRUE(platform.entered_folders.empty());
  EXPECT_TRUE(std::filesystem::is_empty(platform.documents_folder));
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_EQ(session.data.DataFilePath, platform.program_folder / "Data");
}

TEST_F(StartTest, DocumentationFlagsFollowTheFiles) {
  WriteFile("program/Workbook.pdf", "x");
  WriteFile("program/Discount.pdf", "");
  std::filesystem::create_directory(platform.program_folder / "Handbook.pdf");
  StartSession(session, {});
  EXPECT_EQ(session.documentation_found, (std::array{false, true, false, false, true}));
  std::filesystem::remove(platform.program_folder / "Workbook.pdf");
  TestDocumentationFiles(session);
  EXPECT_EQ(session.documentation_found, (std::array{false, false, false, false, true}));
}

TEST_F(SessionTest, OpeningEmptiesThePanelListsAndKeepsTheControlOfTheSameName) {
  session.panel.SelectedVariables = {1, 2};
  session.panel.IndependentVariables = {3};
  session.panel.control_variable = {2, "SEX"};
  EXPECT_EQ(Open(WriteDataFile("people.dcs")), LoadOutcome::kLoaded);
  EXPECT_TRUE(session.panel.SelectedVariables.empty());
  EXPECT_TRUE(session.panel.IndependentVariables.empty());
  EXPECT_EQ(session.panel.control_variable.column, 2u);
  EXPECT_TRUE(platform.notes.empty());
  EXPECT_EQ(session.data.DataFilePath, folder / "people.dcs");
}

TEST_F(SessionTest, OpeningDataWithoutTheControlVariableResetsItAndSaysSo) {
  session.panel.control_variable = {2, "WEIGHT"};
  session.panel.control = {ControlRelation::kLessThan, "70"};
  EXPECT_EQ(Open(WriteDataFile("people.dcs")), LoadOutcome::kLoaded);
  EXPECT_EQ(session.panel.control_variable.column, 0u);
  EXPECT_EQ(session.panel.control.relation, ControlRelation::kNone);
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the control variable WEIGHT was reset"});
}

TEST_F(SessionTest, AnEmptyFileIsToldInThePaneAndLeavesTheData) {
  session.panel.SelectedVariables = {1};
  EXPECT_EQ(Open(WriteFile("empty.dcs", "")), LoadOutcome::kEmptyFile);
  EXPECT_EQ(platform.panes[1], "empty.dcs is empty");
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(session.data.RecordCount, 1000u);
  EXPECT_EQ(session.panel.SelectedVariables.size(), 1u);
}

TEST_F(SessionTest, AFileThatCannotBeReadIsToldInThePane) {
  EXPECT_EQ(Open(folder / "gone.dcs"), LoadOutcome::kUnreadable);
  EXPECT_EQ(platform.panes[1], "Cannot open gone.dcs");
  EXPECT_TRUE(platform.messages.empty());
  // In the code page of the panes.
  EXPECT_EQ(Open(PathFromUtf8("/nowhere/\xC3\xA9t\xC3\xA9.dcs")), LoadOutcome::kUnreadable);
  EXPECT_EQ(platform.panes[1], "Cannot open \xE9t\xE9.dcs");
}

TEST_F(SessionTest, ALoadBehindAFailedOneIsReadyAgain) {
  Open(folder / "gone.dcs");
  Open(WriteDataFile("people.dcs"));
  EXPECT_EQ(platform.panes[1], "Ready");
}

TEST_F(SessionTest, SaveAsMovesThePathAndTheGridTitle) {
  Open(WriteDataFile("people.dcs"));
  EXPECT_EQ(SaveDataTo(session, folder / "copy.dcs"), SaveOutcome::kSaved);
  EXPECT_EQ(session.data.DataFilePath, folder / "copy.dcs");
  EXPECT_EQ(session.data.GridTitle, "copy.dcs");
  EXPECT_EQ(ReadFile(folder / "copy.dcs"), ReadFile(folder / "people.dcs"));
}

TEST_F(SessionTest, NewDataResetThePanelToo) {
  Open(WriteDataFile("people.dcs"));
  session.panel.SelectedVariables = {1};
  session.panel.control_variable.column = 2;
  session.panel.control = {ControlRelation::kEqualTo, "1"};
  session.data.DataDirty = true;
  NewData(session);
  EXPECT_TRUE(session.panel.SelectedVariables.empty());
  EXPECT_FALSE(ControlIsSet(session.panel, session.data));
  EXPECT_EQ(session.panel.control.value, "");
  EXPECT_TRUE(session.data.DataFilePath.empty());
  EXPECT_EQ(session.data.ProjectNotes, "");
  EXPECT_EQ(session.data.GridTitle, "Data Grid");
  EXPECT_FALSE(session.data.DataDirty);
}

TEST_F(SessionTest, AChangeOfTheNotesMarksTheDataChanged) {
  SetProjectNotes(session, "");
  EXPECT_FALSE(session.data.DataDirty);
  SetProjectNotes(session, "from the spring survey");
  EXPECT_TRUE(session.data.DataDirty);
  EXPECT_EQ(session.data.ProjectNotes, "from the spring survey");
}

TEST_F(SessionTest, ARunBringsTheOutputToTheFrontWhenTheSettingsSaySo) {
  Open(WriteDataFile("people.dcs"));
  SelectProcedure(session.panel, Procedure::kFrequencies);
  session.panel.SelectedVariables = {1};
  EXPECT_FALSE(RunPanel(session).refused);
  EXPECT_EQ(session.wanted_view, View::ViewOutput);

  session.wanted_view = View::kNone;
  session.settings.Op10 = 1;
  RunPanel(session);
  EXPECT_EQ(session.wanted_view, View::kNone);
}

TEST_F(SessionTest, ARunThatEndsInTheErrorFrameShowsIt) {
  Open(WriteDataFile("people.dcs"));
  SelectProcedure(session.panel, Procedure::kTTest);  // without the values of its groups
  session.panel.SelectedVariables = {1};
  session.panel.IndependentVariables = {2};
  EXPECT_TRUE(RunPanel(session).aborted);
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
}

TEST_F(SessionTest, ARefusedRunStaysInItsView) {
  EXPECT_TRUE(RunPanel(session).refused);
  EXPECT_EQ(session.wanted_view, View::kNone);
}

TEST_F(SessionTest, AVariableThatARunAddsIsCounted) {
  Open(WriteDataFile("people.dcs"));
  SelectProcedure(session.panel, Procedure::kDescriptives);
  session.panel.options.descriptives.save_z_scores = true;
  session.panel.SelectedVariables = {1};
  RunPanel(session);
  RefreshStatus(session);
  EXPECT_EQ(platform.panes[3], "3 Variables");
}

TEST_F(SessionTest, EachViewHasItsHelpPage) {
  EXPECT_EQ(HelpPage(View::ViewDataGrid), "UserManual1.html");
  EXPECT_EQ(HelpPage(View::ViewStatProcs), "UserManual2.html");
  EXPECT_EQ(HelpPage(View::ViewBrevarum), "UserManual3.html");
  EXPECT_EQ(HelpPage(View::ViewOutput), "UserManual5.html");
  EXPECT_EQ(HelpPage(View::ViewCharts), "UserManual6.html");
  EXPECT_EQ(HelpPage(View::ViewGlossary), "UserManual4.html");
  EXPECT_EQ(HelpPage(View::ViewHandbook), "UserManual8.html");
  EXPECT_EQ(HelpPage(View::ViewTips), "UserManual1.html");
}

TEST_F(SessionTest, TheStatusPanesFollowTheView) {
  const auto show = [this](View view) {
    ActivateView(session, view);
    RefreshStatus(session);
  };
  show(View::ViewBrevarum);
  EXPECT_EQ(session.ActiveView, View::ViewBrevarum);
  EXPECT_EQ(platform.panes[2], " Enter summary data");
  EXPECT_EQ(platform.panes[3], "11/5/2026");
  show(View::ViewHandbook);
  EXPECT_EQ(platform.panes[2], " Research Methods Handbook");
  EXPECT_EQ(platform.panes[3], "11/5/2026");
  for (const View view : {View::ViewDataGrid, View::ViewStatProcs, View::ViewOutput, View::ViewCharts}) {
    show(view);
    EXPECT_EQ(platform.panes[2], "1000 Records");
    EXPECT_EQ(platform.panes[3], "20 Variables");
  }
  session.data.RecordCount = 1234567;
  RefreshStatus(session);
  EXPECT_EQ(platform.panes[2], "1234567 Records");
}

TEST_F(SessionTest, EditsOfTheOutputAreStoredInTheViewsThatWriteToIt) {
  const std::pair<View, bool> stores[] = {{View::ViewDataGrid, false}, {View::ViewStatProcs, true},
                                          {View::ViewBrevarum, true},  {View::ViewOutput, false},
                                          {View::ViewCharts, false},   {View::ViewHandbook, false}};
  for (const auto& [view, stored] : stores) {
    session.output = {};
    Report("report");
    EditBox(session.output, "edited");
    ActivateView(session, view);
    RefreshStatus(session);
    EXPECT_EQ(session.output.MostRecentText == "edited", stored) << static_cast<int>(view);
    EXPECT_EQ(session.output.BoxText(), "edited");
  }
}

TEST_F(SessionTest, AnEditOfTheLogIsStoredInTheLog) {
  Report("report");
  ToggleOutputMode(session.output);
  EditBox(session.output, "edited");
  ActivateView(session, View::ViewStatProcs);
  RefreshStatus(session);
  EXPECT_EQ(session.output.OutputLogText, "edited");
  EXPECT_EQ(session.output.MostRecentText, "report" + std::string(kReportSeparator));
}

TEST_F(SessionTest, SoundsPlayFromTheMediaFolder) {
  PlaySoundEffect(session, "clean.wav");
  ASSERT_EQ(platform.sounds.size(), 1u);
  EXPECT_EQ(platform.sounds[0], platform.program_folder / "Media" / "clean.wav");
  session.settings.Op3 = 1;
  PlaySoundEffect(session, "clean.wav");
  EXPECT_EQ(platform.sounds.size(), 1u);
}

TEST_F(SessionTest, ASoundThatCannotBePlayedIsSilent) {
  platform.sound_works = false;
  PlaySoundEffect(session, "clear.wav");
  EXPECT_TRUE(platform.messages.empty());
}

}  // namespace
}  // namespace tessara
