#include "presentation/output_log.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/scripted_platform.h"
#include "platform/tests/temporary_folder.h"

namespace tessara {
namespace {

constexpr std::string_view kFilter = "Text files (*.txt)|*.txt|Data files (*.csv)|*.csv|All files (*.*)|*.*";

std::string WithSeparator(const std::string& report) { return report + "\r\n<Page Break>\r\n\r\n\r\n"; }

// Two runs with a report each; the box shows the second, and all of it has been saved.
OutputLog TwoRuns() {
  OutputLog output;
  BeginRun(output);
  AppendReport(output, "first");
  BeginRun(output);
  AppendReport(output, "second");
  output.OutputChanged = false;
  return output;
}

const std::string kTwoRunsLog = WithSeparator("first") + WithSeparator("second");

TEST(OutputLog, StartsEmptyWithTheMostRecentOutput) {
  const OutputLog output;
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_FALSE(output.ShowLogMode);
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_EQ(ToggleCaption(output), "Output Log");
}

TEST(OutputLog, SeparatorStandsBehindEachReport) {
  OutputLog output;
  AppendReport(output, "report\r\n");
  EXPECT_EQ(output.OutputLogText, "report\r\n\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_EQ(output.MostRecentText, output.OutputLogText);
  EXPECT_EQ(output.BoxText(), output.OutputLogText);
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, EmptyReportLeavesItsSeparator) {
  OutputLog output;
  AppendReport(output, "");
  EXPECT_EQ(output.BoxText(), WithSeparator(""));
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, TwoProceduresOfOneRunBothStandInTheMostRecentText) {
  OutputLog output = TwoRuns();
  BeginRun(output);
  AppendReport(output, "third");
  AppendReport(output, "fourth");
  EXPECT_EQ(output.MostRecentText, WithSeparator("third") + WithSeparator("fourth"));
  EXPECT_EQ(output.BoxText(), output.MostRecentText);
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog + WithSeparator("third") + WithSeparator("fourth"));
}

TEST(OutputLog, CalculatorResultReplacesTheMostRecentText) {
  OutputLog output = TwoRuns();
  ReplaceReport(output, "result");
  EXPECT_EQ(output.MostRecentText, WithSeparator("result"));
  EXPECT_EQ(output.BoxText(), WithSeparator("result"));
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog + WithSeparator("result"));
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, CalculatorResultInLogMode) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  ReplaceReport(output, "result");
  EXPECT_EQ(output.BoxText(), kTwoRunsLog + WithSeparator("result"));
  EXPECT_EQ(output.MostRecentText, WithSeparator("result"));
}

TEST(OutputLog, BoxKeepsTheOldTextUntilTheFirstReportOfARun) {
  OutputLog output = TwoRuns();
  const auto revision = output.Revision;
  BeginRun(output);
  EXPECT_EQ(output.MostRecentText, "");
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_EQ(output.Revision, revision);
  EXPECT_FALSE(output.OutputChanged);
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), WithSeparator("third"));
  EXPECT_GT(output.Revision, revision);
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, RunWithoutAReportLeavesTheOldTextAndItIsStoredBack) {
  OutputLog output = TwoRuns();
  BeginRun(output);
  StoreBoxText(output);
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_FALSE(output.OutputChanged);
}

TEST(OutputLog, RunWithoutAReportThatIsRefreshedShowsNothing) {
  OutputLog output = TwoRuns();
  BeginRun(output);
  RefreshOutputView(output);
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, RunInLogModeEmptiesTheMostRecentTextUnseen) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  BeginRun(output);
  EXPECT_EQ(output.BoxText(), kTwoRunsLog);
  EXPECT_EQ(output.MostRecentText, "");
  StoreBoxText(output);
  EXPECT_EQ(output.MostRecentText, "");
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), "");
}

TEST(OutputLog, SameReportAgainIsNoChangeOfTheBox) {
  OutputLog output = TwoRuns();
  const auto revision = output.Revision;
  BeginRun(output);
  AppendReport(output, "second");
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_EQ(output.Revision, revision);
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog + WithSeparator("second"));
}

TEST(OutputLog, ToggleShowsTheOtherTextAndChangesTheCaption) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  EXPECT_TRUE(output.ShowLogMode);
  EXPECT_EQ(output.BoxText(), kTwoRunsLog);
  EXPECT_EQ(ToggleCaption(output), "Most Recent Output");
  EXPECT_TRUE(output.OutputChanged);
  ToggleOutputMode(output);
  EXPECT_FALSE(output.ShowLogMode);
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_EQ(ToggleCaption(output), "Output Log");
}

TEST(OutputLog, ToggleBetweenEqualTextsIsNoChange) {
  OutputLog output;
  AppendReport(output, "only");
  output.OutputChanged = false;
  const auto revision = output.Revision;
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), WithSeparator("only"));
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_EQ(output.Revision, revision);
}

TEST(OutputLog, EditOfTheMostRecentTextIsKeptByTheToggle) {
  OutputLog output = TwoRuns();
  EditBox(output, "edited");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  ToggleOutputMode(output);
  EXPECT_EQ(output.MostRecentText, "edited");
  EXPECT_EQ(output.BoxText(), kTwoRunsLog);
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), "edited");
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog);
}

TEST(OutputLog, EditOfTheLogIsKeptByTheToggle) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  EditBox(output, "edited log");
  ToggleOutputMode(output);
  EXPECT_EQ(output.OutputLogText, "edited log");
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
}

TEST(OutputLog, EditMarksTheOutputAsChangedButIsNoNewsForItsView) {
  OutputLog output = TwoRuns();
  const auto revision = output.Revision;
  EditBox(output, "edited");
  EXPECT_EQ(output.BoxText(), "edited");
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_EQ(output.Revision, revision);
}

TEST(OutputLog, EditToTheSameTextIsNone) {
  OutputLog output = TwoRuns();
  EditBox(output, WithSeparator("second"));
  EXPECT_FALSE(output.OutputChanged);
}

TEST(OutputLog, EditThatIsStoredBackStandsAheadOfTheNextReportOfTheLog) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  EditBox(output, "edited|");
  StoreBoxText(output);
  EXPECT_EQ(output.OutputLogText, "edited|");
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), "edited|" + WithSeparator("third"));
}

TEST(OutputLog, EditThatIsNotStoredBackGoesWithTheNextReport) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  EditBox(output, "edited");
  const auto revision = output.Revision;
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), kTwoRunsLog + WithSeparator("third"));
  EXPECT_GT(output.Revision, revision);
}

TEST(OutputLog, EditOfTheMostRecentTextOutlivesTheBeginOfARun) {
  OutputLog output = TwoRuns();
  EditBox(output, "edited");
  BeginRun(output);
  EXPECT_EQ(output.BoxText(), "edited");
  StoreBoxText(output);
  EXPECT_EQ(output.MostRecentText, "edited");
}

TEST(OutputLog, ClearInLogModeLeavesTheLatestRunForTheToggle) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  output.OutputChanged = false;
  const auto revision = output.Revision;
  ClearOutput(output);
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_EQ(output.OutputLogText, "");
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_GT(output.Revision, revision);
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), "");
}

TEST(OutputLog, ClearInMostRecentModeEmptiesTheBoxAndTheLog) {
  OutputLog output = TwoRuns();
  ClearOutput(output);
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_EQ(output.OutputLogText, "");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  RefreshOutputView(output);
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
}

TEST(OutputLog, EmptiedBoxIsStoredBackAsAnEdit) {
  OutputLog output = TwoRuns();
  ClearOutput(output);
  ToggleOutputMode(output);
  EXPECT_EQ(output.MostRecentText, "");
}

TEST(OutputLog, ClearOfAnEmptyBoxIsNoChange) {
  OutputLog output;
  ClearOutput(output);
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_EQ(output.Revision, 0u);
}

TEST(OutputLog, ReportBehindAClearBeginsTheLogAnew) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  ClearOutput(output);
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), WithSeparator("third"));
  EXPECT_EQ(output.MostRecentText, WithSeparator("second") + WithSeparator("third"));
}

TEST(OutputLog, ClearedBoxAloneLeavesTheLog) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  ClearBox(output);
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog);
}

TEST(OutputLog, ErrorReportStandsInItsFrame) {
  OutputLog output;
  ReportError(output, "Frequencies: AGE\r\n\r\nNo cases.\r\n\r\n");
  const std::string rule(77, '*');
  EXPECT_EQ(output.OutputLogText, rule + "\r\n\r\n" + std::string(30, ' ') + "-- Error --\r\n\r\n\r\n" +
                                      "Frequencies: AGE\r\n\r\nNo cases.\r\n\r\n" + "\r\n\r\n" + rule + "\r\n\r\n" +
                                      "\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_EQ(output.MostRecentText, output.OutputLogText);
}

// Opening and saving.

class OutputFiles : public testing::Test {
 protected:
  void ChooseToOpen(const Path& path) { platform.open_answers.push_back(ChosenFile{path, path.filename().string()}); }
  void ChooseToSave(const Path& path) { platform.save_answers.push_back(ChosenFile{path, path.filename().string()}); }

  TemporaryFolder folder;
  ScriptedPlatform platform;
  OutputLog output = TwoRuns();
};

TEST_F(OutputFiles, OpenAsksInTheProgramFolder) {
  OpenOutputText(output, platform);
  ASSERT_EQ(platform.open_dialogs.size(), 1u);
  const FileDialog& dialog = platform.open_dialogs[0];
  EXPECT_EQ(dialog.title, "Open");
  EXPECT_EQ(dialog.filter, kFilter);
  EXPECT_EQ(dialog.initial_folder, platform.program_folder);
}

TEST_F(OutputFiles, OpenedTextReplacesTheLogAndEndsWithAMark) {
  ChooseToOpen(folder.Make("old.txt", "one\r\ntwo"));
  ToggleOutputMode(output);
  EXPECT_TRUE(OpenOutputText(output, platform));
  EXPECT_EQ(output.OutputLogText, "one\r\ntwo\r\n\r\n<Page Break>");
  EXPECT_EQ(output.BoxText(), "one\r\ntwo\r\n\r\n<Page Break>");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  EXPECT_TRUE(output.OutputChanged);
}

TEST_F(OutputFiles, TextOpenedOverTheMostRecentOutputShowsInTheBoxAndIsTheLog) {
  ChooseToOpen(folder.Make("old.txt", "one"));
  const auto revision = output.Revision;
  EXPECT_TRUE(OpenOutputText(output, platform));
  EXPECT_FALSE(output.ShowLogMode);
  EXPECT_EQ(output.BoxText(), "one\r\n\r\n<Page Break>");
  EXPECT_EQ(output.OutputLogText, "one\r\n\r\n<Page Break>");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_GT(output.Revision, revision);
}

TEST_F(OutputFiles, EmptyFileOpensAsAMarkAlone) {
  ChooseToOpen(folder.Make("empty.txt", ""));
  EXPECT_TRUE(OpenOutputText(output, platform));
  EXPECT_EQ(output.OutputLogText, "\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, Utf8IsConvertedOnTheWayIn) {
  ChooseToOpen(folder.Make("utf8.txt",
                           "\xEF\xBB\xBF"
                           "caf\xC3\xA9"));
  EXPECT_TRUE(OpenOutputText(output, platform));
  EXPECT_EQ(output.BoxText(), "caf\xE9\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, BareLineFeedsBecomeLineEnds) {
  ChooseToOpen(folder.Make("unix.txt", "\none\n\ntwo\r\nthree\rfour\n"));
  EXPECT_TRUE(OpenOutputText(output, platform));
  EXPECT_EQ(output.BoxText(), "\r\none\r\n\r\ntwo\r\nthree\rfour\r\n\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, CancelledOpenLeavesEverything) {
  EXPECT_FALSE(OpenOutputText(output, platform));
  EXPECT_EQ(output.OutputLogText, kTwoRunsLog);
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_FALSE(output.OutputChanged);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(OutputFiles, FailedOpenLeavesEverything) {
  for (const Path& path : {folder / "missing.txt", folder.path(), folder / "no-folder" / "a.txt"}) {
    ChooseToOpen(path);
    EXPECT_FALSE(OpenOutputText(output, platform)) << path;
    EXPECT_EQ(output.OutputLogText, kTwoRunsLog);
    EXPECT_EQ(output.BoxText(), WithSeparator("second"));
    EXPECT_FALSE(output.OutputChanged);
  }
}

TEST_F(OutputFiles, SaveAsksInTheProgramFolder) {
  SaveOutputText(output, platform);
  ASSERT_EQ(platform.save_dialogs.size(), 1u);
  const FileDialog& dialog = platform.save_dialogs[0];
  EXPECT_EQ(dialog.title, "Save As");
  EXPECT_EQ(dialog.filter, kFilter);
  EXPECT_EQ(dialog.default_extension, "txt");
  EXPECT_EQ(dialog.initial_folder, platform.program_folder);
  EXPECT_TRUE(dialog.overwrite_prompt);
}

TEST_F(OutputFiles, SavedFileHoldsTheTextAsShown) {
  ToggleOutputMode(output);
  ASSERT_TRUE(output.OutputChanged);
  ChooseToSave(folder / "log.txt");
  EXPECT_TRUE(SaveOutputText(output, platform));
  EXPECT_EQ(ContentOf(folder / "log.txt"), "first\r\n<Page Break>\r\n\r\n\r\nsecond\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_FALSE(output.OutputChanged);
}

TEST_F(OutputFiles, SavedFileHoldsAnEditThatIsNotStoredBack) {
  EditBox(output, "edited \xE9");
  ChooseToSave(folder / "edit.txt");
  EXPECT_TRUE(SaveOutputText(output, platform));
  EXPECT_EQ(ContentOf(folder / "edit.txt"), "edited \xE9");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
}

TEST_F(OutputFiles, CancelledSaveLeavesTheOutputChanged) {
  EditBox(output, "edited");
  EXPECT_FALSE(SaveOutputText(output, platform));
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(OutputFiles, FailedSaveLeavesTheOutputChanged) {
  EditBox(output, "edited");
  for (const Path& path : {Path("/dev/full"), folder.path(), folder / "no-folder" / "a.txt"}) {
    ChooseToSave(path);
    EXPECT_FALSE(SaveOutputText(output, platform)) << path;
    EXPECT_TRUE(output.OutputChanged);
    EXPECT_EQ(output.BoxText(), "edited");
  }
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace tessara
