#include "shell/office_operations.h"

#include <filesystem>

#include "session_fixture.h"
#include "shell/command_table.h"

namespace tessara {
namespace {

class OfficeOperations : public SessionFixture {
 protected:
  // Runs a command in the Output view.
  void Execute(int id) {
    session.ActiveView = View::ViewOutput;
    ExecuteCommand(session, id, {});
  }
  Path Written(const char* name) const { return platform.documents_folder / "Tessara Data" / name; }
  bool IsThere(const char* name) const { return std::filesystem::is_regular_file(Written(name)); }
};

TEST_F(OfficeOperations, TheFileHasANameOfTheDayAndIsOpened) {
  Report("a  1");
  Execute(109);
  Execute(108);
  EXPECT_TRUE(IsThere("Output 2026-11-05.docx"));
  EXPECT_TRUE(IsThere("Output 2026-11-05.xlsx"));
  EXPECT_EQ(platform.documents, (std::vector<std::string>{PathToUtf8(Written("Output 2026-11-05.docx")),
                                                          PathToUtf8(Written("Output 2026-11-05.xlsx"))}));
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(platform.panes[1], "Saved as " + PathToUtf8(Written("Output 2026-11-05.xlsx")));
}

TEST_F(OfficeOperations, ATakenNameGetsANumber) {
  Report("a");
  Execute(109);
  const std::string first = ReadFile(Written("Output 2026-11-05.docx"));
  Report("b");
  Execute(109);
  Execute(109);
  EXPECT_TRUE(IsThere("Output 2026-11-05 (2).docx"));
  EXPECT_TRUE(IsThere("Output 2026-11-05 (3).docx"));
  EXPECT_EQ(ReadFile(Written("Output 2026-11-05.docx")), first);
}

TEST_F(OfficeOperations, WithoutAProgramTheFileStaysAndABoxSaysSo) {
  platform.documents_open = false;
  Report("a");
  Execute(109);
  Execute(108);
  ASSERT_EQ(platform.messages.size(), 2u);
  EXPECT_EQ(platform.messages[0].title, "Print to Word");
  EXPECT_EQ(platform.messages[0].text, "You need Microsoft Word (or a newer version) to use this function");
  EXPECT_EQ(platform.messages[0].tone, Tone::kWarning);  // the exclamation
  EXPECT_EQ(platform.messages[1].title, "Print to Excel");
  EXPECT_EQ(platform.messages[1].text, "You need Microsoft Excel (or a newer version) to use this function");
  EXPECT_EQ(platform.messages[1].tone, Tone::kWarning);
  EXPECT_TRUE(IsThere("Output 2026-11-05.docx"));
  EXPECT_EQ(platform.panes[1], "Saved as " + PathToUtf8(Written("Output 2026-11-05.xlsx")));
}

TEST_F(OfficeOperations, TheTableGoesWhileItShows) {
  session.output.OutputGridMode = true;
  Execute(108);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].text, "There is no output to export.");
  session.table.grid.SetText(1, 1, "cell");
  Execute(108);
  Execute(109);
  EXPECT_TRUE(IsThere("Output 2026-11-05.xlsx"));
  EXPECT_TRUE(IsThere("Output 2026-11-05.docx"));
}

TEST_F(OfficeOperations, NoOutputIsNotWritten) {
  Execute(108);
  Execute(109);
  EXPECT_EQ(platform.messages.size(), 2u);
  EXPECT_FALSE(std::filesystem::exists(platform.documents_folder / "Tessara Data"));
}

TEST_F(OfficeOperations, AFolderThatIsAFileIsTold) {
  platform.documents_folder = WriteFile("a file", "");
  Report("a");
  Execute(109);
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Export Aborted!");
  EXPECT_TRUE(platform.documents.empty());
}

TEST_F(OfficeOperations, TheDataGoBehindTheReminder) {
  Open(WriteDataFile("data.dcs"));
  EXPECT_TRUE(SendDataToExcel(session));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "Reminder!");
  EXPECT_TRUE(IsThere("Data 2026-11-05.xlsx"));
  EXPECT_EQ(platform.documents.size(), 1u);
  EXPECT_FALSE(session.data.DataDirty);
}

}  // namespace
}  // namespace tessara
