#include <gtest/gtest.h>

#include "shell/close_request.h"
#include "shell/tests/session_fixture.h"

namespace tessara {
namespace {

class CloseTest : public SessionFixture {
 protected:
  CloseTest() { StartSession(session, WriteDataFile("people.dcs")); }

  void MakeOutputChanged() { Report("report"); }

  void ExpectBoxes(const std::vector<std::string>& texts) const {
    ASSERT_EQ(platform.messages.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
      EXPECT_EQ(platform.messages[i].title, "Warning!");
      EXPECT_EQ(platform.messages[i].text, texts[i]);
      EXPECT_EQ(platform.messages[i].buttons, Buttons::kYesNoCancel);
    }
  }

  const std::string data_question = "Do you wish to save the changes to the data file?";
  const std::string output_question = "Do you wish to save the contents of the Output Viewer?";
};

TEST_F(CloseTest, WithoutChangesNothingIsAsked) {
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({});
  EXPECT_EQ(session.data.VariableName(1), "AGE");
}

TEST_F(CloseTest, YesForTheDataCancelsTheCloseAndRunsSaveAs) {
  session.data.DataDirty = true;
  MakeOutputChanged();
  platform.message_answers = {Answer::kYes};
  platform.save_answers = {Chosen(folder / "saved.dcs")};
  EXPECT_FALSE(RequestClose(session));
  ExpectBoxes({data_question});
  EXPECT_EQ(session.wanted_view, View::ViewDataGrid);
  ASSERT_EQ(platform.save_dialogs.size(), 1u);
  EXPECT_EQ(platform.save_dialogs[0].filter, "Tessara files (*.dcs)|*.dcs");
  EXPECT_TRUE(std::filesystem::exists(folder / "saved.dcs"));
  EXPECT_FALSE(session.data.DataDirty);
  // The next request goes on to the output.
  platform.messages.clear();
  platform.message_answers = {Answer::kNo};
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({output_question});
}

TEST_F(CloseTest, NoForTheDataDropsThemAndGoesOn) {
  session.data.DataDirty = true;
  platform.message_answers = {Answer::kNo};
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({data_question});
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_EQ(session.data.VariableName(1), "");
  EXPECT_TRUE(platform.save_dialogs.empty());
}

TEST_F(CloseTest, CancelForTheDataCancelsTheClose) {
  session.data.DataDirty = true;
  MakeOutputChanged();
  platform.message_answers = {Answer::kCancel};
  EXPECT_FALSE(RequestClose(session));
  ExpectBoxes({data_question});
  EXPECT_TRUE(session.data.DataDirty);
  EXPECT_TRUE(session.output.OutputChanged);
  EXPECT_EQ(session.wanted_view, View::kNone);
  EXPECT_EQ(session.data.VariableName(1), "AGE");
}

TEST_F(CloseTest, YesForTheOutputCancelsTheCloseAndRunsItsSaveAs) {
  MakeOutputChanged();
  platform.message_answers = {Answer::kYes};
  platform.save_answers = {Chosen(folder / "output.txt")};
  EXPECT_FALSE(RequestClose(session));
  ExpectBoxes({output_question});
  EXPECT_EQ(session.wanted_view, View::ViewOutput);
  EXPECT_EQ(ReadFile(folder / "output.txt"), "report" + std::string(kReportSeparator));
  EXPECT_FALSE(session.output.OutputChanged);
  platform.messages.clear();
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({});
}

TEST_F(CloseTest, ASaveOfTheOutputThatIsCancelledLeavesTheQuestion) {
  MakeOutputChanged();
  platform.message_answers = {Answer::kYes};
  EXPECT_FALSE(RequestClose(session));
  EXPECT_TRUE(session.output.OutputChanged);
}

TEST_F(CloseTest, NoForTheOutputClearsTheFlagAndGoesOn) {
  MakeOutputChanged();
  platform.message_answers = {Answer::kNo};
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({output_question});
  EXPECT_FALSE(session.output.OutputChanged);
  EXPECT_TRUE(platform.save_dialogs.empty());
}

TEST_F(CloseTest, CancelForTheOutputCancelsTheClose) {
  MakeOutputChanged();
  platform.message_answers = {Answer::kCancel};
  EXPECT_FALSE(RequestClose(session));
  ExpectBoxes({output_question});
  EXPECT_TRUE(session.output.OutputChanged);
}

TEST_F(CloseTest, BothQuestionsWithNoLetTheCloseGoOn) {
  session.data.DataDirty = true;
  MakeOutputChanged();
  platform.message_answers = {Answer::kNo, Answer::kNo};
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({data_question, output_question});
}

TEST_F(CloseTest, CancelAtTheSecondQuestionKeepsTheDataInTheGrid) {
  session.data.DataDirty = true;
  MakeOutputChanged();
  platform.message_answers = {Answer::kNo, Answer::kCancel};
  EXPECT_FALSE(RequestClose(session));
  EXPECT_EQ(session.data.VariableName(1), "AGE");
  EXPECT_TRUE(session.data.DataDirty);
  EXPECT_TRUE(session.output.OutputChanged);
  // So the next request asks both again.
  platform.message_answers = {Answer::kNo, Answer::kNo};
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({data_question, output_question, data_question, output_question});
  EXPECT_FALSE(session.data.DataDirty);
  EXPECT_FALSE(session.output.OutputChanged);
}

TEST_F(CloseTest, YesAtTheSecondQuestionKeepsTheChangedData) {
  session.data.DataDirty = true;
  MakeOutputChanged();
  platform.message_answers = {Answer::kNo, Answer::kYes};
  platform.save_answers = {Chosen(folder / "output.txt")};
  EXPECT_FALSE(RequestClose(session));
  EXPECT_TRUE(session.data.DataDirty);
  EXPECT_EQ(session.data.VariableName(1), "AGE");
  EXPECT_FALSE(session.output.OutputChanged);
}

TEST_F(CloseTest, ASummaryTableIsAskedForAndSavedAsText) {
  session.table.grid.SetText(1, 3, "All");
  session.table.grid.SetText(2, 1, "Sex");
  session.output.OutputGridMode = true;
  platform.message_answers = {Answer::kYes};
  platform.save_answers = {Chosen(folder / "output.txt")};
  EXPECT_FALSE(RequestClose(session));
  ExpectBoxes({output_question});
  const auto content = ReadWholeFile(folder / "output.txt");
  ASSERT_TRUE(content);
  const std::string saved(content->text());
  EXPECT_NE(saved.find("Summary Report Results - Tab Delimited\t\tAll\tAll\r\nSex\t\t\t\r\n"), std::string::npos)
      << saved;
  platform.messages.clear();
  EXPECT_TRUE(RequestClose(session));
  ExpectBoxes({});
}

}  // namespace
}  // namespace tessara
