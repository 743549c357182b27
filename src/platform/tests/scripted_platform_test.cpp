#include "platform/scripted_platform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessara {
namespace {

TEST(ScriptedPlatform, AnswersComeFromTheFrontAndThenCancel) {
  ScriptedPlatform platform;
  platform.open_answers = {ChosenFile{"/a.txt", "a.txt"}, std::nullopt, ChosenFile{"/b.txt", "b.txt"}};
  EXPECT_EQ(platform.AskOpenFile({})->path, Path("/a.txt"));
  EXPECT_FALSE(platform.AskOpenFile({}).has_value());
  EXPECT_EQ(platform.AskOpenFile({})->title, "b.txt");
  EXPECT_FALSE(platform.AskOpenFile({}).has_value());
  EXPECT_EQ(platform.open_dialogs.size(), 4u);
  EXPECT_FALSE(platform.AskSaveFile({}).has_value());
  EXPECT_FALSE(platform.AskPrint({}).has_value());
}

TEST(ScriptedPlatform, BoxWithoutAnAnswerIsCancelledUnlessItHasOkAlone) {
  ScriptedPlatform platform;
  EXPECT_EQ(platform.ShowMessage({"t", "a", Buttons::kOk}), Answer::kOk);
  EXPECT_EQ(platform.ShowMessage({"t", "b", Buttons::kYesNoCancel}), Answer::kCancel);
  platform.message_answers = {Answer::kYes};
  EXPECT_EQ(platform.ShowMessage({"t", "c", Buttons::kYesNoCancel}), Answer::kYes);
  ASSERT_EQ(platform.messages.size(), 3u);
  EXPECT_EQ(platform.messages[2].text, "c");
}

TEST(ScriptedPlatform, RefusingPrinterPrintsNothing) {
  ScriptedPlatform platform;
  EXPECT_TRUE(platform.Print(JobOfPages({"one", "two"})));
  platform.printer_works = false;
  EXPECT_FALSE(platform.Print(JobOfPages({"three"})));
  EXPECT_FALSE(platform.Preview(JobOfPages({"three"})));
  EXPECT_FALSE(platform.WritePdf(JobOfPages({"three"}), "/three.pdf"));
  EXPECT_EQ(platform.printed, (std::vector<std::vector<std::string>>{{"one", "two"}}));
  EXPECT_TRUE(platform.previews.empty());
  EXPECT_TRUE(platform.pdf_files.empty());
}

TEST(ScriptedPlatform, ProgressIsCancelledAtItsValue) {
  ScriptedPlatform platform;
  platform.cancel_progress_at = 5;
  platform.ShowProgress(1, 10, "Loading");
  EXPECT_TRUE(platform.UpdateProgress(4));
  EXPECT_FALSE(platform.UpdateProgress(5));
  platform.HideProgress();
  ASSERT_EQ(platform.progress.size(), 1u);
  EXPECT_EQ(platform.progress[0].caption, "Loading");
  EXPECT_EQ(platform.progress[0].last_value, 5);
  EXPECT_TRUE(platform.progress[0].hidden);
}

TEST(ScriptedPlatform, WaitCursorLivesAsLongAsItsObject) {
  ScriptedPlatform platform;
  {
    const WaitCursor outer(platform);
    const WaitCursor inner(platform);
    EXPECT_EQ(platform.wait_cursors, 2);
  }
  EXPECT_EQ(platform.wait_cursors, 0);
  EXPECT_EQ(platform.most_wait_cursors, 2);
}

}  // namespace
}  // namespace tessara
