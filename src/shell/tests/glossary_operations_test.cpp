#include "shell/glossary_operations.h"

#include "reference/tests/glossary_fixture.h"
#include "shell/close_request.h"
#include "shell/command_table.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

const Notes kTwoNotes = {{"Median", "The middle value."}, {"Mean", "The sum by the number."}};

// The Glossary view in front, with the program's own glossary of two notes.
class GlossaryCommands : public SessionFixture {
 protected:
  GlossaryCommands() {
    own = WriteFile("program/Lexicards.lx1", GlossaryBytes(kTwoNotes));
    StartSession(session, {});
    ActivateView(session, View::ViewGlossary);
  }

  void Execute(int id) { ExecuteCommand(session, id, {}); }
  CommandState State(int id, const WidgetState& widgets = {}) const { return UpdateCommand(session, id, widgets); }
  void Type(const std::string& text) { EditNote(session.glossary, session.glossary.Text1, text); }
  std::string Pane2() {
    RefreshStatus(session);
    return platform.panes[2];
  }
  std::string List() const {
    std::string list;
    for (const GlossarySubject& line : session.glossary.List) list += line.subject + " ";
    return list;
  }

  Path own;
};

TEST_F(GlossaryCommands, TheFileIsOpenedWhenTheViewComesToTheFrontForTheFirstTime) {
  EXPECT_EQ(session.glossary.GlossaryFile, own);
  EXPECT_EQ(Pane2(), "2 Notes");
  EXPECT_EQ(platform.panes[3], "11/5/2026");
  session.glossary.GlossaryName = "still the same";
  ActivateView(session, View::ViewOutput);
  ActivateView(session, View::ViewGlossary);
  EXPECT_EQ(session.glossary.GlossaryName, "still the same");
}

TEST_F(GlossaryCommands, ATermThatALinkNamesIsShown) {
  ActivateView(session, View::ViewHandbook);
  ShowGlossaryTerm(session, "Mean");
  EXPECT_EQ(session.wanted_view, View::ViewGlossary);
  EXPECT_EQ(session.glossary.Text1, "Mean");
  ShowGlossaryTerm(session, "MEDIAN");
  EXPECT_EQ(session.glossary.Text1, "Median");
  platform.SetStatusPane(kMessagePane, "Ready");
  ShowGlossaryTerm(session, "Mode");
  EXPECT_EQ(session.glossary.Text1, "Median");  // what is on show stays
  EXPECT_EQ(platform.panes[1], "The glossary has no note \"Mode\"");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GlossaryCommands, ATermIsShownAheadOfTheViewAndBesideASearch) {
  Session other(platform, store);
  StartSession(other, {});
  ShowGlossaryTerm(other, "Mean");
  EXPECT_TRUE(other.glossary.opened);
  EXPECT_EQ(other.glossary.Text1, "Mean");
  session.glossary.SearchText = "middle";
  Execute(202);
  ASSERT_EQ(List(), "Median ");
  ShowGlossaryTerm(session, "Mean");
  EXPECT_EQ(session.glossary.Text1, "Mean");
  EXPECT_EQ(List(), "Mean Median ");
}

TEST_F(GlossaryCommands, BeforeThatNothingIsRead) {
  Session other(platform, store);
  StartSession(other, {});
  EXPECT_FALSE(other.glossary.opened);
}

TEST_F(GlossaryCommands, OpenAsksForALexicardFile) {
  platform.open_answers = {Chosen(WriteFile("other.lx1", GlossaryBytes({{"Range", ""}})))};
  Execute(102);
  ASSERT_EQ(platform.open_dialogs.size(), 1u);
  EXPECT_EQ(platform.open_dialogs[0].title, "Open");
  EXPECT_EQ(platform.open_dialogs[0].filter, "Lexicard files (*.lx1)|*.lx1");
  EXPECT_EQ(session.glossary.GlossaryName, "other.lx1");
  EXPECT_EQ(List(), "Range ");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GlossaryCommands, OpenSavesAnEditedNoteFirst) {
  Type("edited");
  Execute(102);  // and is cancelled
  EXPECT_EQ(ReadFile(own), GlossaryBytes({{"Median", "edited"}, kTwoNotes[1]}));
  EXPECT_EQ(session.glossary.GlossaryName, "Lexicards.lx1");
}

TEST_F(GlossaryCommands, SaveSaysSoWhenItWasSaved) {
  Type("edited");
  Execute(103);
  EXPECT_EQ(platform.panes[1], "Save Completed");
  EXPECT_EQ(ReadFile(own), GlossaryBytes({{"Median", "edited"}, kTwoNotes[1]}));
  session.glossary.CurrentRecord = 0;
  Execute(103);
  EXPECT_EQ(platform.panes[1], "Ready");
}

TEST_F(GlossaryCommands, SaveThatFailsDoesNotSaySo) {
  Type("edited");
  std::filesystem::remove(own);
  std::filesystem::create_directory(own);
  Execute(103);
  EXPECT_EQ(platform.panes[1], "Ready");
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
}

TEST_F(GlossaryCommands, SaveAsAsksForAName) {
  platform.save_answers = {Chosen(folder / "mine.lx1")};
  Execute(110);
  ASSERT_EQ(platform.save_dialogs.size(), 1u);
  EXPECT_EQ(platform.save_dialogs[0].title, "Save Glossary File As");
  EXPECT_EQ(platform.save_dialogs[0].filter, "Glossary file (*.lx1)|*.lx1");
  EXPECT_TRUE(platform.save_dialogs[0].overwrite_prompt);
  EXPECT_EQ(session.glossary.GlossaryFile, folder / "mine.lx1");
  EXPECT_EQ(ReadFile(folder / "mine.lx1"), GlossaryBytes(kTwoNotes));
}

TEST_F(GlossaryCommands, ImportMakesTempInTheProgramFolder) {
  platform.open_answers = {Chosen(WriteFile("terms.txt", "a\tb\r\nc\td\r\n"))};
  Execute(104);
  EXPECT_EQ(platform.open_dialogs[0].title, "Open");
  EXPECT_EQ(platform.open_dialogs[0].filter, "Text files (*.txt)|*.txt|Tab files (*.tab)|*.tab|All files (*.*)|*.*");
  EXPECT_EQ(ReadFile(folder / "program" / "Temp.lx1"), GlossaryBytes({{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(List(), "a c ");
}

TEST_F(GlossaryCommands, WithoutAProgramFolderToWriteToImportMakesTempAmongTheDocuments) {
  std::filesystem::create_directory(folder / "program" / "Temp.lx1");
  platform.open_answers = {Chosen(WriteFile("terms.txt", "a\tb\r\nc\td\r\n"))};
  Execute(104);
  EXPECT_EQ(session.glossary.GlossaryFile, folder / "documents" / "Tessara Data" / "Temp.lx1");
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GlossaryCommands, ImportThatCannotBeWrittenSaysSo) {
  std::filesystem::create_directory(folder / "program" / "Temp.lx1");
  std::filesystem::create_directories(folder / "documents" / "Tessara Data" / "Temp.lx1");
  platform.open_answers = {Chosen(WriteFile("terms.txt", "a\tb\r\nc\td\r\n"))};
  Execute(104);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(session.glossary.GlossaryFile, own);
}

class GlossaryTemporary : public GlossaryCommands {
 protected:
  GlossaryTemporary() {
    platform.open_answers = {Chosen(WriteFile("terms.txt", "a\tb\r\nc\td\r\n"))};
    Execute(104);
    platform.open_dialogs.clear();
  }
  void ExpectQuestion() const {
    ASSERT_GE(platform.messages.size(), 1u);
    EXPECT_EQ(platform.messages[0].title, "Warning!");
    EXPECT_EQ(platform.messages[0].text, "The Temp file will not be saved. Do you want to save this file?");
    EXPECT_EQ(platform.messages[0].buttons, Buttons::kYesNoCancel);
  }
};

TEST_F(GlossaryTemporary, OpeningAnotherFileAsksAndCancelStops) {
  platform.message_answers = {Answer::kCancel};
  Execute(102);
  ExpectQuestion();
  EXPECT_TRUE(platform.open_dialogs.empty());
}

TEST_F(GlossaryTemporary, YesSavesItUnderANameAndGoesOn) {
  platform.message_answers = {Answer::kYes};
  platform.save_answers = {Chosen(folder / "terms.lx1")};
  platform.open_answers = {Chosen(own)};
  Execute(102);
  ExpectQuestion();
  EXPECT_EQ(ReadFile(folder / "terms.lx1"), GlossaryBytes({{"a", "b"}, {"c", "d"}}));
  EXPECT_EQ(session.glossary.GlossaryFile, own);
}

TEST_F(GlossaryTemporary, YesWithoutANameStops) {
  platform.message_answers = {Answer::kYes};
  Execute(102);
  EXPECT_TRUE(platform.open_dialogs.empty());
  EXPECT_EQ(session.glossary.GlossaryName, "Temp.lx1");
}

TEST_F(GlossaryTemporary, NoGoesOnWithoutSaving) {
  platform.message_answers = {Answer::kNo};
  platform.open_answers = {Chosen(own)};
  Execute(102);
  ExpectQuestion();
  EXPECT_EQ(session.glossary.GlossaryFile, own);
  EXPECT_TRUE(platform.save_dialogs.empty());
}

TEST_F(GlossaryCommands, ExportAsksForATabDelimitedTextFile) {
  platform.save_answers = {Chosen(folder / "out.txt")};
  Execute(105);
  EXPECT_EQ(platform.save_dialogs[0].filter, "Tab delimited text files (*.txt)|*.txt");
  EXPECT_EQ(ReadFile(folder / "out.txt"), "Median\tThe middle value.\r\nMean\tThe sum by the number.\r\n");
}

TEST_F(GlossaryCommands, PrintPrintsTheNoteOnShow) {
  platform.print_answers = {PrintChoice{1}};
  Execute(106);
  ASSERT_EQ(platform.printed.size(), 1u);
  EXPECT_TRUE(platform.printed[0][0].ends_with("Subject:  Median\r\n\r\n\r\nThe middle value."));
}

TEST_F(GlossaryCommands, AddShowsAnEmptyNote) {
  Execute(801);
  EXPECT_EQ(session.glossary.CurrentRecord, 4);
  EXPECT_EQ(session.glossary.Text1, "");
}

TEST_F(GlossaryCommands, DeleteAsksFirst) {
  platform.message_answers = {Answer::kCancel};
  Execute(802);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Warning! Confirm Delete...");
  EXPECT_EQ(platform.messages[0].text, "Click OK to delete this record. Cancel to abort.");
  EXPECT_EQ(platform.messages[0].buttons, Buttons::kOkCancel);
  EXPECT_EQ(ReadFile(own), GlossaryBytes(kTwoNotes));
  platform.message_answers = {Answer::kOk, Answer::kOk};
  Execute(802);
  EXPECT_EQ(List(), "Mean ");
  Execute(802);  // no record is on show any more
  EXPECT_EQ(platform.messages.back().text, "Please select a record");
  EXPECT_EQ(List(), "Mean ");
}

TEST_F(GlossaryCommands, SelectShowsTheChosenLine) {
  session.glossary.chosen_line = 0;
  Execute(kSelectNoteCommand);
  EXPECT_EQ(session.glossary.Text1, "Mean");
}

TEST_F(GlossaryCommands, ASearchTellsItselfInThePanes) {
  session.glossary.SearchText = "sum";
  Execute(904);
  EXPECT_EQ(List(), "Mean ");
  EXPECT_EQ(platform.panes[1], "Find> sum");
  EXPECT_EQ(Pane2(), "The search found 1 matching records.");
  session.glossary.SearchText = "e";
  Execute(202);
  EXPECT_EQ(Pane2(), "The search found 2 matching records.");
  Execute(803);
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_EQ(Pane2(), "2 Notes");
}

TEST_F(GlossaryCommands, ASearchWithoutMatchesSaysSo) {
  session.glossary.SearchText = "Mode";
  Execute(202);
  EXPECT_EQ(platform.messages[0].title, "Tessara");
  EXPECT_EQ(platform.messages[0].text, "Sorry...  ' Mode ' not found");
  EXPECT_EQ(platform.panes[1], "Find> Mode");
  EXPECT_EQ(Pane2(), "The search found 0 matching records.");
  Execute(801);
  EXPECT_EQ(Pane2(), "2 Notes");
}

TEST_F(GlossaryCommands, AnEmptySearchBoxSearchesNothing) {
  Execute(202);
  EXPECT_EQ(platform.panes[1], "Ready");
  EXPECT_EQ(Pane2(), "2 Notes");
}

TEST_F(GlossaryCommands, TheClipboardCommandsFollowTheBoxes) {
  EXPECT_FALSE(State(205).enabled);
  EXPECT_FALSE(State(213).enabled);
  EXPECT_FALSE(State(206).enabled);
  EXPECT_TRUE(State(205, {.note_has_selection = true}).enabled);
  EXPECT_TRUE(State(213, {.note_has_selection = true}).enabled);
  EXPECT_TRUE(State(206, {.clipboard_has_text = true}).enabled);
  EXPECT_EQ(ExecuteCommand(session, 205, {}), WidgetAction::kCopy);
  EXPECT_EQ(ExecuteCommand(session, 206, {}), WidgetAction::kPaste);
  EXPECT_EQ(ExecuteCommand(session, 213, {}), WidgetAction::kCut);
}

TEST_F(GlossaryCommands, EveryCommandOfTheViewCanBeChosen) {
  for (const int id : {102, 103, 110, 104, 105, 106, 202, 801, 802, 803, 904}) {
    EXPECT_TRUE(State(id).visible) << id;
    EXPECT_TRUE(State(id).enabled) << id;
  }
  EXPECT_EQ(State(104).caption, "Import Tab Delimited File");
  EXPECT_EQ(State(105).caption, "Export Tab Delimited File");
}

TEST_F(GlossaryCommands, TheCloseSavesAnEditedNote) {
  Type("edited");
  EXPECT_TRUE(RequestClose(session));
  EXPECT_EQ(ReadFile(own), GlossaryBytes({{"Median", "edited"}, kTwoNotes[1]}));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(GlossaryCommands, TheCloseAsksAboutANoteThatCannotBeSaved) {
  Type("edited");
  std::filesystem::remove(own);
  std::filesystem::create_directory(own);
  platform.message_answers = {Answer::kOk, Answer::kNo};
  EXPECT_FALSE(RequestClose(session));
  EXPECT_EQ(session.wanted_view, View::ViewGlossary);
  EXPECT_TRUE(session.glossary.NoteDirty);
  platform.message_answers = {Answer::kOk, Answer::kYes};
  EXPECT_TRUE(RequestClose(session));
}

}  // namespace
}  // namespace tessara
