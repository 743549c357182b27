#include "shell/options_operations.h"

#include <gtest/gtest.h>

#include "shell/exchange_questions.h"
#include "shell/file_questions.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

// Notes what is written, in order, and refuses from then on when it is told to.
class WatchedStore : public MemorySettingsStore {
 public:
  bool Write(const std::string& name, const std::string& value) override {
    writes.emplace_back(name, value);
    return !refuses && MemorySettingsStore::Write(name, value);
  }

  std::vector<std::pair<std::string, std::string>> writes;
  bool refuses = false;
};

class OptionsTest : public SessionFixture {
 protected:
  OptionsTest() : session(platform, watched) { Start(); }

  void Start() { StartSession(session, {}); }
  void Restart() {
    session.settings = {};
    Start();
  }
  OptionsForm& form() { return session.options; }
  void Open() { EXPECT_EQ(OpenOptions(session), WidgetAction::kShowOptions); }
  void ResetPage(OptionsPage page) {
    form().page = page;
    ResetOptionsPage(session);
  }
  Path NextDialogFolder() {
    AskAndOpenData(session);
    return platform.open_dialogs.back().initial_folder;
  }

  WatchedStore watched;
  Session session;
};

using Boxes = std::array<bool, 6>;

TEST_F(OptionsTest, OnFirstStartEveryBoxIsCheckedButLargeIcons) {
  Open();
  EXPECT_EQ(form().Check1, (Boxes{true, true, true, true, false, true}));
  EXPECT_EQ(form().Option2, 0);
  EXPECT_EQ(form().page, OptionsPage::kGeneral);
  EXPECT_EQ(form().Text1, (platform.program_folder / "Data").string());
  EXPECT_EQ(form().Text2, (platform.program_folder / "Lexicards.lx1").string());
}

TEST_F(OptionsTest, EachBoxShowsOneMinusItsFlagAndLargeIconsItsOwn) {
  const std::pair<int Settings::*, std::size_t> boxes[] = {
      {&Settings::Op10, 0}, {&Settings::Op11, 1}, {&Settings::Op12, 2}, {&Settings::Op3, 3}, {&Settings::Op16, 5}};
  for (const auto& [flag, box] : boxes) {
    session.settings.*flag = 1;
    Open();
    Boxes expected = {true, true, true, true, false, true};
    expected[box] = false;
    EXPECT_EQ(form().Check1, expected) << box;
    session.settings.*flag = 0;
  }
  session.settings.Op13 = 1;
  Open();
  EXPECT_TRUE(form().Check1[4]);
}

TEST_F(OptionsTest, OpensWithItsFirstPageAndTheSettingsAsTheyStand) {
  Open();
  form().page = OptionsPage::kAppearance;
  form().Check1[0] = false;
  form().Text1 = "elsewhere";
  Open();
  EXPECT_EQ(form().page, OptionsPage::kGeneral);
  EXPECT_TRUE(form().Check1[0]);
  EXPECT_EQ(form().Text1, (platform.program_folder / "Data").string());
}

TEST_F(OptionsTest, DefaultActsOnThePageInFrontAlone) {
  Open();
  form().Check1 = {false, false, false, false, true, false};
  SetToolbarStyle(session, 3);
  form().Text1 = "a";
  form().Text2 = "b";

  ResetPage(OptionsPage::kGeneral);
  EXPECT_EQ(form().Check1, (Boxes{true, true, true, true, true, true}));
  EXPECT_EQ(form().Option2, 3);
  EXPECT_EQ(form().Text1, "a");

  ResetPage(OptionsPage::kFolders);
  EXPECT_EQ(form().Text1, (platform.program_folder / "Data" / "").string());
  EXPECT_EQ(form().Text1.back(), '/');
  EXPECT_EQ(form().Text2, (platform.program_folder / "Lexicards.lx1").string());
  EXPECT_EQ(form().Option2, 3);
  EXPECT_TRUE(form().Check1[4]);

  ResetPage(OptionsPage::kAppearance);
  EXPECT_FALSE(form().Check1[4]);
  EXPECT_EQ(form().Option2, 0);
}

TEST_F(OptionsTest, TheAppearanceIsInForceAtOnceAndNotStored) {
  Open();
  watched.writes.clear();
  SetLargeIcons(session, true);
  SetToolbarStyle(session, 4);
  EXPECT_EQ(session.settings.Op13, 1);
  EXPECT_EQ(session.settings.Op6, 4);
  ResetPage(OptionsPage::kAppearance);
  EXPECT_EQ(session.settings.Op13, 0);
  EXPECT_EQ(session.settings.Op6, 0);
  EXPECT_TRUE(watched.writes.empty());
}

TEST_F(OptionsTest, EverythingElseWaitsForTheSave) {
  Open();
  form().Check1[3] = false;
  form().Text1 = "/elsewhere";
  ResetPage(OptionsPage::kFolders);
  form().Text1 = "/elsewhere";
  EXPECT_TRUE(session.settings.sounds());
  EXPECT_EQ(NextDialogFolder(), platform.program_folder / "Data");
}

TEST_F(OptionsTest, AnUnknownStyleChangesNothing) {
  Open();
  SetToolbarStyle(session, 2);
  for (const int style : {-1, 5, 700}) SetToolbarStyle(session, style);
  EXPECT_EQ(session.settings.Op6, 2);
  EXPECT_EQ(form().Option2, 2);
}

TEST_F(OptionsTest, SaveWritesTheSettingsInTheirOrderAndTellsOfTheNextStart) {
  Open();
  form().Check1 = {false, true, false, true, true, false};
  SetToolbarStyle(session, 2);
  form().Text1 = "  /my data ";
  form().Text2 = " /my/words.lx1";
  watched.writes.clear();
  SaveOptions(session);
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"Op10", "1"}, {"Op11", "0"}, {"Op12", "1"},        {"Op13", "1"},
      {"Op3", "0"},  {"Op6", "2"},  {"Op14", "/my data"}, {"Op15", "/my/words.lx1"},
      {"Op16", "1"}};
  EXPECT_EQ(watched.writes, expected);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Please note...");
  EXPECT_EQ(platform.messages[0].text, "Some settings will not appear until you close and restart Tessara.");
  EXPECT_EQ(platform.messages[0].tone, Tone::kInformation);
  EXPECT_EQ(session.settings.Op14, Path("/my data"));
  EXPECT_EQ(session.settings.Op15, Path("/my/words.lx1"));
  EXPECT_FALSE(session.settings.show_output());
  EXPECT_FALSE(session.settings.print_date());
  EXPECT_FALSE(session.settings.quick_tips());
}

TEST_F(OptionsTest, TheNextStartReadsWhatWasSaved) {
  Open();
  form().Check1 = {true, false, true, false, true, true};
  SetToolbarStyle(session, 1);
  form().Text1 = "/my data";
  SaveOptions(session);
  Restart();
  Open();
  EXPECT_EQ(form().Check1, (Boxes{true, false, true, false, true, true}));
  EXPECT_EQ(form().Option2, 1);
  EXPECT_EQ(form().Text1, "/my data");
}

TEST_F(OptionsTest, AnEmptyTextOr0MeansTheDefault) {
  for (const char* text : {"", "   ", "0", " 0 "}) {
    Open();
    form().Text1 = text;
    form().Text2 = text;
    SaveOptions(session);
    EXPECT_EQ(session.settings.Op14, platform.program_folder / "Data") << text;
    EXPECT_EQ(session.settings.Op15, platform.program_folder / "Lexicards.lx1") << text;
    Restart();
    EXPECT_EQ(session.settings.Op14, platform.program_folder / "Data") << text;
    EXPECT_EQ(session.settings.Op15, platform.program_folder / "Lexicards.lx1") << text;
  }
  EXPECT_EQ(watched.Read("Op14"), "0");
}

TEST_F(OptionsTest, AStoreThatRefusesShowsItsBoxOnceAndTheSettingsStand) {
  Open();
  form().Check1[3] = false;
  form().Text1 = "/mine";
  watched.refuses = true;
  SaveOptions(session);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Error");
  EXPECT_FALSE(session.settings.sounds());
  EXPECT_EQ(session.settings.Op14, Path("/mine"));
}

TEST_F(OptionsTest, TheSavedFolderIsWhereTheNextDialogBegins) {
  Open();
  form().Text1 = folder.string();
  SaveOptions(session);
  EXPECT_EQ(NextDialogFolder(), folder);
  EXPECT_EQ(session.data.DataFilePath, folder);
  platform.open_answers = {Chosen(WriteDataFile("people.dcs"))};
  EXPECT_EQ(NextDialogFolder(), folder);
  EXPECT_EQ(NextDialogFolder(), folder / "people.dcs");
}

TEST_F(OptionsTest, BesideAnOpenFileTheFolderCountsUntilAFileIsChosen) {
  const Path people = WriteDataFile("people.dcs");
  platform.open_answers = {Chosen(people)};
  AskAndOpenData(session);
  Open();
  form().Text1 = platform.documents_folder.string();
  SaveOptions(session);
  EXPECT_EQ(session.data.DataFilePath, people);  // where a save goes
  EXPECT_EQ(NextDialogFolder(), platform.documents_folder);
  EXPECT_EQ(NextDialogFolder(), platform.documents_folder);
  AskAndSaveData(session);
  EXPECT_EQ(platform.save_dialogs.back().initial_folder, platform.documents_folder);
  AskImportFile(session);
  EXPECT_EQ(platform.open_dialogs.back().initial_folder, platform.documents_folder);
  platform.save_answers = {Chosen(folder / "other.dcs")};
  AskAndSaveData(session);
  EXPECT_EQ(NextDialogFolder(), folder / "other.dcs");
}

TEST_F(OptionsTest, ASaveWithTheSameFolderLeavesTheDialogsAlone) {
  const Path people = WriteDataFile("people.dcs");
  platform.open_answers = {Chosen(people)};
  AskAndOpenData(session);
  Open();
  ResetPage(OptionsPage::kFolders);  // with a separator at its end
  SaveOptions(session);
  EXPECT_EQ(NextDialogFolder(), people);
}

TEST_F(OptionsTest, AFolderThatIsNotThereIsToldAndTaken) {
  Open();
  form().Text1 = (folder / "later").string();
  EXPECT_FALSE(FolderIsThere(session));
  SaveOptions(session);
  EXPECT_EQ(session.settings.Op14, folder / "later");
  form().Text1 = folder.string();
  EXPECT_TRUE(FolderIsThere(session));
  form().Text1 = WriteFile("file.txt", "x").string();
  EXPECT_FALSE(FolderIsThere(session));
  form().Text2 = form().Text1;
  EXPECT_TRUE(GlossaryIsThere(session));
  form().Text2 = folder.string();
  EXPECT_FALSE(GlossaryIsThere(session));
}

TEST_F(OptionsTest, NamesOutsideTheCodePageSurvive) {
  const Path typed(u8"/home/\u0434\u0430\u043D\u043D\u044B\u0435");
  Open();
  form().Text1 = PathToUtf8(typed);
  SaveOptions(session);
  EXPECT_EQ(session.settings.Op14, typed);
  Restart();
  EXPECT_EQ(session.settings.Op14, typed);
}

TEST_F(OptionsTest, ANameThatIsNoTextSurvivesUntilItIsEdited) {
  const Path bytes("/home/\xFF\xFE");
  Open();
  ChooseDataFolder(session, bytes);
  EXPECT_EQ(form().Text1, "/home/??");
  EXPECT_EQ(FolderOfForm(session), bytes);
  SaveOptions(session);
  EXPECT_EQ(session.settings.Op14, bytes);
  EXPECT_EQ(watched.Read("Op14"), "/home/\xFF\xFE");
  form().Text1 = "/home/ab";
  EXPECT_EQ(FolderOfForm(session), Path("/home/ab"));
}

TEST_F(OptionsTest, TheFileOfTheGlossaryIsAskedForWhereItStands) {
  Open();
  EXPECT_FALSE(AskGlossaryFile(session));
  ASSERT_EQ(platform.open_dialogs.size(), 1u);
  EXPECT_EQ(platform.open_dialogs[0].title, "Select file and click open");
  EXPECT_EQ(platform.open_dialogs[0].filter, "Glossary files (*.lx1)|*.lx1");
  EXPECT_EQ(platform.open_dialogs[0].initial_folder, platform.program_folder);
  EXPECT_EQ(platform.open_dialogs[0].initial_name, "Lexicards.lx1");
  EXPECT_EQ(form().Text2, (platform.program_folder / "Lexicards.lx1").string());
  platform.open_answers = {Chosen(folder / "words.lx1")};
  EXPECT_TRUE(AskGlossaryFile(session));
  EXPECT_EQ(form().Text2, (folder / "words.lx1").string());
  EXPECT_EQ(session.settings.Op15, platform.program_folder / "Lexicards.lx1");  // not before the save
}

}  // namespace
}  // namespace tessara
