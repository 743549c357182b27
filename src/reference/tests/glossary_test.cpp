#include "reference/glossary.h"

#include "reference/glossary_file.h"
#include "reference/tests/glossary_fixture.h"

namespace tessara {
namespace {

using GlossaryOpen = GlossaryFixture;

TEST_F(GlossaryOpen, ShowsTheListBySubjectAndTheFirstNote) {
  Open(GlossaryBytes(kThreeNotes));
  EXPECT_EQ(List(), "3 Mean, 2 Median, 4 Mode");
  EXPECT_EQ(glossary.GlossaryName, "notes.lx1");
  EXPECT_EQ(glossary.GlossaryFile, folder / "notes.lx1");
  EXPECT_EQ(glossary.LastRecord, 4);
  EXPECT_EQ(glossary.CurrentRecord, 2);
  EXPECT_EQ(glossary.Text1, "Median");
  EXPECT_EQ(glossary.Text2, "The middle value.");
  EXPECT_EQ(glossary.notes, 3);
  EXPECT_FALSE(glossary.NoteDirty);
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kThreeNotes));
}

TEST_F(GlossaryOpen, SortsByBytesAndEqualSubjectsAsTheirRecordsStand) {
  Open(GlossaryBytes({{"b", "1"}, {"a", "2"}, {"B", "3"}, {"b", "4"}, {"\xC4hnlich", "5"}, {"a", "6"}}));
  EXPECT_EQ(List(), "4 B, 3 a, 7 a, 2 b, 5 b, 6 \xC4hnlich");
}

TEST_F(GlossaryOpen, LeavesOutRecordsWithoutSubjectAndText) {
  Open(GlossaryBytes({{"", ""}, {"One", ""}, {"", "text alone"}, {"", ""}}));
  EXPECT_EQ(List(), "4 , 3 One");
  EXPECT_EQ(glossary.notes, 2);
  EXPECT_EQ(glossary.LastRecord, 5);
}

TEST_F(GlossaryOpen, AnEmptyDefaultFileShowsAnEmptyListAndLastRecord2) {
  OpenDefaultGlossary(glossary, Make("empty.lx1", ""), platform);
  EXPECT_EQ(List(), "");
  EXPECT_EQ(glossary.LastRecord, 2);
  EXPECT_EQ(glossary.CurrentRecord, 2);
  EXPECT_EQ(Content("empty.lx1"), RecordBytes(2, "", ""));  // the count is written back
  ExpectSilence();
}

TEST_F(GlossaryOpen, ACountOf0BecomesTwoAndIsWrittenBack) {
  Open(RecordBytes(0, "", ""));
  EXPECT_EQ(glossary.LastRecord, 2);
  EXPECT_EQ(Content("notes.lx1"), RecordBytes(2, "", ""));
}

TEST_F(GlossaryOpen, ACountOf0LosesNoNoteThatIsThere) {
  std::string bytes = GlossaryBytes({{"a", ""}, {"b", ""}, {"", ""}});
  bytes.replace(0, 2, 2, '\0');
  Open(bytes);
  EXPECT_EQ(List(), "2 a, 3 b");
  EXPECT_EQ(glossary.LastRecord, 3);
  bytes[0] = 3;
  EXPECT_EQ(Content("notes.lx1"), bytes);
}

TEST_F(GlossaryOpen, ACountThatCannotBeWrittenBackKeepsNobody) {
  const Path file = Make("notes.lx1", RecordBytes(0, "", ""));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  EXPECT_TRUE(OpenGlossary(glossary, file, platform));
  EXPECT_EQ(glossary.LastRecord, 2);
  ExpectSilence();
}

TEST_F(GlossaryOpen, ACutFileOpensAsFarAsItGoes) {
  const std::string whole = GlossaryBytes(kThreeNotes);
  ASSERT_TRUE(OpenGlossary(glossary, Make("cut.lx1", whole.substr(0, 2 * 3080 + 4)), platform));
  EXPECT_EQ(List(), "3 Me, 2 Median");
  EXPECT_EQ(glossary.LastRecord, 3);
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the file ends within its record 3"});
  platform.notes.clear();
  ASSERT_TRUE(OpenGlossary(glossary, Make("short.lx1", whole.substr(0, 2 * 3080)), platform));
  EXPECT_EQ(List(), "2 Median");
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the file's first record announces 4 records, there are 2"});
}

TEST_F(GlossaryOpen, ACountThatIsNoneGivesWayToWhatIsThere) {
  for (const int count : {3, 32767, 65535 /* -1 */, 32768 /* -32768 */}) {
    std::string bytes = GlossaryBytes({{"a", ""}, {"b", ""}});
    bytes[0] = static_cast<char>(count % 256);
    bytes[1] = static_cast<char>(count / 256);
    ASSERT_TRUE(OpenGlossary(glossary, Make("notes.lx1", bytes), platform)) << count;
    EXPECT_EQ(List(), "2 a, 3 b") << count;
    EXPECT_EQ(glossary.LastRecord, 3) << count;
    EXPECT_EQ(Content("notes.lx1"), bytes) << count;
  }
}

TEST_F(GlossaryOpen, AFileThatHasGoneIsNotBegunAnewWithOneNote) {
  Open(GlossaryBytes(kThreeNotes));
  std::filesystem::remove(glossary.GlossaryFile);
  EditNote(glossary, "Another", "");
  EXPECT_FALSE(SaveNote(glossary, platform));
  EXPECT_FALSE(std::filesystem::exists(glossary.GlossaryFile));
  EXPECT_TRUE(glossary.NoteDirty);
  EXPECT_EQ(glossary.List.size(), 3u);
  // What is on show can be saved elsewhere.
  EXPECT_TRUE(SaveGlossaryAs(glossary, folder / "elsewhere.lx1", platform));
  EXPECT_EQ(List(), "3 Another");
}

TEST_F(GlossaryOpen, AFileThatHasGoneIsNotCopied) {
  Open(GlossaryBytes(kThreeNotes));
  std::filesystem::remove(glossary.GlossaryFile);
  EXPECT_FALSE(SaveGlossaryAs(glossary, folder / "elsewhere.lx1", platform));
  EXPECT_FALSE(std::filesystem::exists(folder / "elsewhere.lx1"));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Save Aborted!");
}

TEST_F(GlossaryOpen, ATailThatIsNoRecordIsKeptOnce) {
  ASSERT_TRUE(OpenGlossary(glossary, Make("notes.lx1", GlossaryBytes(kThreeNotes) + "abc"), platform));
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(SelectNote(glossary, 0, platform));
    ASSERT_TRUE(DeleteNote(glossary, platform));
  }
  EXPECT_TRUE(std::filesystem::exists(folder / "notes (as found).lx1"));
  EXPECT_FALSE(std::filesystem::exists(folder / "notes (as found 2).lx1"));
  EXPECT_EQ(Content("notes.lx1").size() % 3080, 0u);
  platform.notes.clear();
  ASSERT_TRUE(OpenGlossary(glossary, folder / "notes.lx1", platform));
  EXPECT_TRUE(platform.notes.empty());
}

TEST_F(GlossaryOpen, ACountOfOneMeansNoNote) {
  std::string bytes = GlossaryBytes({{"a", ""}});
  bytes[0] = 1;
  ASSERT_TRUE(OpenGlossary(glossary, Make("notes.lx1", bytes), platform));
  EXPECT_EQ(List(), "");
  EXPECT_EQ(glossary.LastRecord, 1);
  EXPECT_EQ(glossary.Text1, "");
  ASSERT_TRUE(AddNote(glossary, platform));
  EXPECT_EQ(glossary.CurrentRecord, 2);
  EditNote(glossary, "b", "");
  ASSERT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(List(), "2 b");
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"b", ""}}));
}

TEST_F(GlossaryOpen, AnythingOpensWithoutHarm) {
  std::string all;
  for (int i = 0; i < 20000; ++i) all += static_cast<char>(i * 7 % 256);
  for (const std::size_t size : {1u, 2u, 3079u, 3080u, 3081u, 6160u, 20000u}) {
    ASSERT_TRUE(OpenGlossary(glossary, Make("hostile.lx1", all.substr(0, size)), platform)) << size;
    EXPECT_GE(glossary.LastRecord, 2) << size;
    EXPECT_LE(glossary.LastRecord, 7) << size;
    EXPECT_EQ(glossary.CurrentRecord, 2) << size;
    EXPECT_LE(glossary.Text1.size(), 60u) << size;
    EXPECT_LE(glossary.Text2.size(), 3000u) << size;
  }
}

TEST_F(GlossaryOpen, AFileThatIsNotThereLeavesTheOldOne) {
  Open(GlossaryBytes(kThreeNotes));
  EXPECT_FALSE(OpenGlossary(glossary, folder / "none.lx1", platform));
  ExpectBox("Error", "none.lx1 cannot be opened.");
  EXPECT_FALSE(OpenGlossary(glossary, folder.path(), platform));
  EXPECT_EQ(glossary.GlossaryName, "notes.lx1");
  EXPECT_EQ(List(), "3 Mean, 2 Median, 4 Mode");
}

TEST_F(GlossaryOpen, ADefaultFileThatIsNotThereIsMadeByTheFirstSavedNote) {
  OpenDefaultGlossary(glossary, folder / "own.lx1", platform);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_FALSE(std::filesystem::exists(folder / "own.lx1"));
  Type("Mean", "The sum by the number.");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("own.lx1"), GlossaryBytes({{"Mean", "The sum by the number."}}));
}

TEST_F(GlossaryOpen, AnUnreadableDefaultFileLeavesAViewWithoutGlossary) {
  OpenDefaultGlossary(glossary, folder.path(), platform);
  EXPECT_TRUE(glossary.opened);
  EXPECT_TRUE(glossary.GlossaryFile.empty());
  EXPECT_EQ(platform.messages.size(), 1u);
  platform.messages.clear();
  EXPECT_FALSE(AddNote(glossary, platform));
  ExpectBox("Error", "There is no glossary to add a note to. Open a glossary file first.");
}

using GlossarySave = GlossaryFixture;

TEST_F(GlossarySave, WritesTheRecordWithItsNumberAndTheTrimmedFields) {
  Open(GlossaryBytes(kThreeNotes));
  ASSERT_TRUE(Select("Mean"));
  Type("  Arithmetic mean ", " Sum / n  ");
  EXPECT_TRUE(glossary.NoteDirty);
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_FALSE(glossary.NoteDirty);
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({kThreeNotes[0], {"Arithmetic mean", "Sum / n"}, kThreeNotes[2]}));
  EXPECT_EQ(List(), "3 Arithmetic mean, 2 Median, 4 Mode");
  EXPECT_EQ(glossary.CurrentRecord, 3);
  ExpectSilence();
}

TEST_F(GlossarySave, WithoutARecordNothingHappens) {
  Open(GlossaryBytes(kThreeNotes));
  glossary.CurrentRecord = 0;
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kThreeNotes));
}

TEST_F(GlossarySave, TheFirstAddedNoteOfAFreshFileIsRecord3) {
  Open("");
  EXPECT_TRUE(AddNote(glossary, platform));
  EXPECT_EQ(glossary.LastRecord, 3);
  EXPECT_EQ(glossary.CurrentRecord, 3);
  EXPECT_EQ(glossary.Text1, "");
  Type("Mean", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"", ""}, {"Mean", ""}}));
  EXPECT_EQ(List(), "3 Mean");
}

TEST_F(GlossarySave, TheNumbersOfNotesThatWereNeverTypedAreBlankRecords) {
  Open(GlossaryBytes({{"a", ""}}));
  EXPECT_TRUE(AddNote(glossary, platform));
  EXPECT_TRUE(AddNote(glossary, platform));
  Type("c", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"a", ""}, {"", ""}, {"c", ""}}));
  EXPECT_TRUE(AddNote(glossary, platform));
  ASSERT_TRUE(Select("a"));
  Type("A", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"A", ""}, {"", ""}, {"c", ""}, {"", ""}}));
}

TEST_F(GlossarySave, AddAndSelectSaveAnEditedNote) {
  Open(GlossaryBytes(kThreeNotes));
  Type("Median", "Half are below.");
  EXPECT_TRUE(AddNote(glossary, platform));
  Notes notes = {{"Median", "Half are below."}, kThreeNotes[1], kThreeNotes[2]};
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(notes));
  Type("Range", "");
  ASSERT_TRUE(Select("Mode"));
  notes.push_back({"Range", ""});
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(notes));
  EXPECT_EQ(glossary.Text1, "Mode");
  EXPECT_EQ(glossary.CurrentRecord, 4);
}

TEST_F(GlossarySave, TextsBeyondTheLimitsAreCut) {
  Open(GlossaryBytes({{"a", ""}}));
  Type(std::string(61, 's'), std::string(3001, 't'));
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{std::string(60, 's'), std::string(3000, 't')}}));
}

TEST_F(GlossarySave, AGlossaryIsFullWithRecord32767) {
  std::string bytes = GlossaryBytes({{"a", ""}});
  bytes.resize(std::size_t{32767} * 3080, ' ');
  bytes[0] = '\xFF';
  bytes[1] = '\x7F';
  Open(bytes);
  EXPECT_EQ(glossary.LastRecord, 32767);
  EXPECT_FALSE(AddNote(glossary, platform));
  ExpectBox("Error", "The glossary is full: it has 32767 records, the most there can be.");
  EXPECT_EQ(glossary.LastRecord, 32767);
  EXPECT_EQ(glossary.CurrentRecord, 2);
}

TEST_F(GlossarySave, AFileThatCannotBeWrittenKeepsTheNoteOnShow) {
  Open(GlossaryBytes(kThreeNotes));
  std::filesystem::permissions(glossary.GlossaryFile, std::filesystem::perms::owner_read);
  if (WriteWholeFile(glossary.GlossaryFile, GlossaryBytes(kThreeNotes)) == WriteResult::kWritten) {
    GTEST_SKIP() << "this user may write everything";
  }
  Type("Median", "edited");
  EXPECT_FALSE(SaveNote(glossary, platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_TRUE(glossary.NoteDirty);
  EXPECT_EQ(glossary.Text2, "edited");
}

TEST_F(GlossarySave, ANoteThatCannotBeSavedIsLeftOnlyByTheUsersWord) {
  Open(GlossaryBytes(kThreeNotes));
  Type("Median", "edited");
  std::filesystem::remove(glossary.GlossaryFile);
  std::filesystem::create_directory(glossary.GlossaryFile);
  platform.message_answers = {Answer::kOk, Answer::kNo};
  EXPECT_FALSE(Select("Mode"));
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_EQ(platform.messages[1].buttons, Buttons::kYesNo);
  EXPECT_EQ(glossary.Text2, "edited");
  EXPECT_TRUE(glossary.NoteDirty);
  platform.message_answers = {Answer::kOk, Answer::kYes};
  EXPECT_TRUE(LeaveNote(glossary, platform));
  EXPECT_FALSE(glossary.NoteDirty);
  EXPECT_EQ(glossary.Text2, "The middle value.");
}

using GlossaryShared = GlossaryFixture;

TEST_F(GlossaryShared, ANoteThatAnotherProgramAddedStays) {
  Open(GlossaryBytes({{"a", ""}}));
  Make("notes.lx1", GlossaryBytes({{"a", ""}, {"theirs", ""}}));
  Type("a", "edited");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"a", "edited"}, {"theirs", ""}}));
  EXPECT_EQ(List(), "2 a, 3 theirs");
  ExpectSilence();
}

TEST_F(GlossaryShared, ANewNoteMakesWayForOneThatAnotherProgramAdded) {
  Open(GlossaryBytes({{"a", ""}}));
  EXPECT_TRUE(AddNote(glossary, platform));
  Type("ours", "");
  Make("notes.lx1", GlossaryBytes({{"a", ""}, {"theirs", ""}}));
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"a", ""}, {"theirs", ""}, {"ours", ""}}));
  EXPECT_EQ(glossary.CurrentRecord, 4);
  EXPECT_EQ(platform.notes,
            std::vector<std::string>{"the file had changed since the note was read; the note is now its record 4"});
}

TEST_F(GlossaryShared, ANoteThatAnotherProgramEditedStaysAndOursIsANewRecord) {
  Open(GlossaryBytes({{"a", "old"}, {"b", ""}}));
  Make("notes.lx1", GlossaryBytes({{"a", "theirs"}, {"b", ""}}));
  Type("a", "ours");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"a", "theirs"}, {"b", ""}, {"a", "ours"}}));
  EXPECT_EQ(List(), "2 a, 4 a, 3 b");
  EXPECT_EQ(platform.notes.size(), 1u);
}

TEST_F(GlossaryShared, ASaveOfAnUneditedNoteWritesNothingOverAnother) {
  Open(GlossaryBytes({{"a", "old"}}));
  Make("notes.lx1", GlossaryBytes({{"a", "theirs"}}));
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"a", "theirs"}}));
}

TEST_F(GlossaryShared, ASelectionFollowsANoteThatHasMoved) {
  Open(GlossaryBytes(kThreeNotes));
  Make("notes.lx1", GlossaryBytes({kThreeNotes[1], kThreeNotes[2]}));
  ASSERT_TRUE(Select("Mode"));
  EXPECT_EQ(glossary.Text1, "Mode");
  EXPECT_EQ(glossary.CurrentRecord, 3);
  EXPECT_EQ(List(), "2 Mean, 3 Mode");
}

TEST_F(GlossaryShared, ADeletionSparesARecordThatIsNotTheOneOnShow) {
  Open(GlossaryBytes(kThreeNotes));
  const std::string theirs = GlossaryBytes({{"Theirs", ""}, kThreeNotes[1]});
  Make("notes.lx1", theirs);
  EXPECT_FALSE(DeleteNote(glossary, platform));
  ExpectBox("Error", "The file has changed since this note was read. No record was deleted.");
  EXPECT_EQ(Content("notes.lx1"), theirs);
  EXPECT_EQ(List(), "3 Mean, 2 Theirs");
  EXPECT_EQ(glossary.CurrentRecord, 0);
}

using GlossaryDelete = GlossaryFixture;

TEST_F(GlossaryDelete, MovesLaterRecordsUpAndBlanksTheLast) {
  std::string bytes = GlossaryBytes(kThreeNotes);
  bytes.replace(3 * 3080 + 3062, 18, "eighteen reserved.");  // of the record that moves
  Open(bytes);
  ASSERT_TRUE(Select("Mean"));
  EXPECT_TRUE(DeleteNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), RecordBytes(3, "", "") + RecordBytes(2, "Median", "The middle value.") +
                                      RecordBytes(3, "Mode", "", "eighteen reserved.") +
                                      RecordBytes(4, "", "", "eighteen reserved."));
  EXPECT_EQ(glossary.LastRecord, 3);
  EXPECT_EQ(glossary.CurrentRecord, 0);
  EXPECT_EQ(glossary.Text1, "");
  EXPECT_EQ(List(), "2 Median, 3 Mode");
  ExpectSilence();
}

TEST_F(GlossaryDelete, DeletingTheLastRecordLeavesTheFilesLength) {
  Open(GlossaryBytes(kThreeNotes));
  ASSERT_TRUE(Select("Mode"));
  EXPECT_TRUE(DeleteNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"),
            RecordBytes(3, "", "") + GlossaryBytes(kThreeNotes).substr(3080, 2 * 3080) + RecordBytes(4, "", ""));
  EXPECT_EQ(glossary.LastRecord, 3);
}

TEST_F(GlossaryDelete, TheNextNoteTakesTheNumberThatWasFreed) {
  Open(GlossaryBytes({{"a", ""}}));
  EXPECT_TRUE(DeleteNote(glossary, platform));
  EXPECT_EQ(glossary.LastRecord, 1);
  EXPECT_TRUE(AddNote(glossary, platform));
  EXPECT_EQ(glossary.CurrentRecord, 2);
  Type("b", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"b", ""}}));
}

TEST_F(GlossaryDelete, WithoutARecordABoxAsksForOne) {
  Open(GlossaryBytes(kThreeNotes));
  glossary.CurrentRecord = 0;
  EXPECT_FALSE(DeleteNote(glossary, platform));
  ExpectBox("Error", "Please select a record");
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kThreeNotes));
}

TEST_F(GlossaryDelete, ANoteThatWasNeverSavedJustGoes) {
  Open(GlossaryBytes(kThreeNotes));
  EXPECT_TRUE(AddNote(glossary, platform));
  Type("new", "text");
  EXPECT_TRUE(DeleteNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kThreeNotes));
  EXPECT_EQ(glossary.LastRecord, 4);
  EXPECT_FALSE(glossary.NoteDirty);
}

TEST_F(GlossaryDelete, RecordsBehindTheLastOneStay) {
  Open(GlossaryBytes(kThreeNotes) + RecordBytes(5, "left behind", ""));
  EXPECT_EQ(glossary.LastRecord, 4);
  EXPECT_TRUE(DeleteNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1").substr(4 * 3080), RecordBytes(5, "left behind", ""));
}

using GlossarySaveAs = GlossaryFixture;

TEST_F(GlossarySaveAs, CopiesTheFileAndGoesOnWithIt) {
  const std::string bytes = GlossaryBytes(kThreeNotes) + "behind";
  Open(bytes);
  EXPECT_TRUE(SaveGlossaryAs(glossary, folder / "copy.lx1", platform));
  EXPECT_EQ(Content("copy.lx1"), bytes);
  EXPECT_EQ(glossary.GlossaryName, "copy.lx1");
  Type("Median", "edited");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("notes.lx1"), bytes);
}

TEST_F(GlossarySaveAs, AnEditedNoteGoesIntoTheNewFile) {
  Open(GlossaryBytes(kThreeNotes));
  Type("Median", "edited");
  EXPECT_TRUE(SaveGlossaryAs(glossary, folder / "copy.lx1", platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes(kThreeNotes));
  EXPECT_EQ(Content("copy.lx1"), GlossaryBytes({{"Median", "edited"}, kThreeNotes[1], kThreeNotes[2]}));
  EXPECT_FALSE(glossary.NoteDirty);
}

TEST_F(GlossarySaveAs, OntoItselfItSavesTheNote) {
  Open(GlossaryBytes(kThreeNotes));
  Type("Median", "edited");
  EXPECT_TRUE(SaveGlossaryAs(glossary, folder / "notes.lx1", platform));
  EXPECT_EQ(Content("notes.lx1"), GlossaryBytes({{"Median", "edited"}, kThreeNotes[1], kThreeNotes[2]}));
}

TEST_F(GlossarySaveAs, AFailureSaysSoAndKeepsTheOldFileAtWork) {
  Open(GlossaryBytes(kThreeNotes));
  Type("Median", "edited");
  EXPECT_FALSE(SaveGlossaryAs(glossary, folder / "nowhere" / "copy.lx1", platform));
  ExpectBox("Save Aborted!",
            "The save operation failed. Please make sure the file is not open in another program.  This error could "
            "also be caused by trying to save to a location on your computer that has restricted access.");
  EXPECT_EQ(glossary.GlossaryName, "notes.lx1");
  EXPECT_TRUE(glossary.NoteDirty);
}

TEST_F(GlossarySaveAs, AnythingThatIsNoGlossaryIsKeptBesideItsFirstRewrite) {
  const std::string letter = "Dear Sir,\r\n" + std::string(4000, 'x');
  ASSERT_TRUE(OpenGlossary(glossary, Make("letter.lx1", letter), platform));
  EXPECT_EQ(platform.notes, std::vector<std::string>{"the file does not look like a glossary"});
  EXPECT_TRUE(AddNote(glossary, platform));
  Type("a", "");
  EXPECT_TRUE(SaveNote(glossary, platform));
  EXPECT_EQ(Content("letter (as found).lx1"), letter);
}

}  // namespace
}  // namespace tessara
