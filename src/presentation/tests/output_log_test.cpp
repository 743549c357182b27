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
  const BoxVersion shown = output.Version();
  BeginRun(output);
  EXPECT_EQ(output.MostRecentText, "");
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_EQ(output.Version(), shown);
  EXPECT_FALSE(output.OutputChanged);
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), WithSeparator("third"));
  EXPECT_NE(output.Version().lineage, shown.lineage);
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
  const BoxVersion shown = output.Version();
  BeginRun(output);
  AppendReport(output, "second");
  EXPECT_EQ(output.BoxText(), WithSeparator("second"));
  EXPECT_EQ(output.Version(), shown);
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
  ToggleOutputMode(output);
  EXPECT_EQ(output.BoxText(), WithSeparator("only"));
  EXPECT_FALSE(output.OutputChanged);
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

TEST(OutputLog, EditMarksTheOutputAsChanged) {
  OutputLog output = TwoRuns();
  EditBox(output, "edited");
  EXPECT_EQ(output.BoxText(), "edited");
  EXPECT_TRUE(output.OutputChanged);
}

TEST(OutputLog, EditOfAPartLeavesTheRest) {
  OutputLog output;
  AppendReport(output, "one two three");
  EditBox(output, 4, 3, "2");
  EXPECT_EQ(output.BoxText(), WithSeparator("one 2 three"));
  EditBox(output, 0, 0, "so: ");
  EXPECT_EQ(output.BoxText(), WithSeparator("so: one 2 three"));
  EXPECT_EQ(output.MostRecentText, WithSeparator("one two three"));
  EditBox(output, output.BoxText().size(), 5, "end");
  EXPECT_EQ(output.BoxText(), WithSeparator("so: one 2 three") + "end");
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
  const BoxVersion shown = output.Version();
  AppendReport(output, "third");
  EXPECT_EQ(output.BoxText(), kTwoRunsLog + WithSeparator("third"));
  EXPECT_NE(output.Version().lineage, shown.lineage);
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
  const BoxVersion shown = output.Version();
  ClearOutput(output);
  EXPECT_EQ(output.BoxText(), "");
  EXPECT_EQ(output.OutputLogText, "");
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_NE(output.Version().lineage, shown.lineage);
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
  EXPECT_EQ(output.Version(), OutputLog().Version());
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

// What a view goes by that has put the box's text on its sheet.

TEST(OutputLogVersion, ALogThatGrowsKeepsItsLineage) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  const BoxVersion shown = output.Version();
  EXPECT_EQ(shown.size, kTwoRunsLog.size());
  BeginRun(output);
  AppendReport(output, "third");
  EXPECT_EQ(output.Version().lineage, shown.lineage);
  EXPECT_EQ(output.Version().size, kTwoRunsLog.size() + WithSeparator("third").size());
}

TEST(OutputLogVersion, ALogWhoseBoxWasEmptiedMeanwhileHasOnlyGrown) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  const BoxVersion shown = output.Version();
  ClearBox(output);  // as a regression does ahead of its report
  AppendReport(output, "third");
  EXPECT_EQ(output.Version().lineage, shown.lineage);
}

TEST(OutputLogVersion, AnEditTakesItsLineageIntoTheLog) {
  OutputLog output = TwoRuns();
  ToggleOutputMode(output);
  const BoxVersion before = output.Version();
  EditBox(output, "edited");
  const BoxVersion edited = output.Version();
  EXPECT_NE(edited.lineage, before.lineage);
  StoreBoxText(output);
  EXPECT_EQ(output.Version(), edited);
  AppendReport(output, "third");
  EXPECT_EQ(output.Version().lineage, edited.lineage);
}

TEST(OutputLogVersion, TheTwoTextsAreOfTwoLineages) {
  OutputLog output = TwoRuns();
  const BoxVersion recent = output.Version();
  ToggleOutputMode(output);
  const BoxVersion log = output.Version();
  EXPECT_NE(log.lineage, recent.lineage);
  ToggleOutputMode(output);
  EXPECT_EQ(output.Version(), recent);
}

TEST(OutputLogVersion, AClearedLogBeginsANewLineageThoughItIsAsLongAgain) {
  OutputLog output;
  output.ShowLogMode = true;
  AppendReport(output, "first");
  const BoxVersion shown = output.Version();
  ClearOutput(output);
  AppendReport(output, "other");
  EXPECT_EQ(output.Version().size, shown.size);
  EXPECT_NE(output.Version().lineage, shown.lineage);
}

TEST(OutputLogVersion, AConvertedTextTellsWhatItWasMadeFrom) {
  OutputLog output = TwoRuns();
  const BoxVersion shown = output.Version();
  ConvertBox(output, "converted");
  EXPECT_EQ(output.Version().made_from, shown.lineage);
  ClearBox(output);
  EXPECT_EQ(output.Version().made_from, 0u);  // what was emptied is not asked back
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
  TemporaryFolder folder;
  ScriptedPlatform platform;
  OutputLog output = TwoRuns();
};

TEST_F(OutputFiles, OpenAsksInTheProgramFolder) {
  platform.open_answers = {ChosenFile{"/old/log.txt", "log.txt"}};
  EXPECT_EQ(AskOutputToOpen(platform), Path("/old/log.txt"));
  ASSERT_EQ(platform.open_dialogs.size(), 1u);
  const FileDialog& dialog = platform.open_dialogs[0];
  EXPECT_EQ(dialog.title, "Open");
  EXPECT_EQ(dialog.filter, kFilter);
  EXPECT_EQ(dialog.initial_folder, platform.program_folder);
}

TEST_F(OutputFiles, OpenedTextReplacesTheLogAndEndsWithAMark) {
  ToggleOutputMode(output);
  EXPECT_TRUE(OpenOutputText(output, folder.Make("old.txt", "one\r\ntwo")));
  EXPECT_EQ(output.OutputLogText, "one\r\ntwo\r\n\r\n<Page Break>");
  EXPECT_EQ(output.BoxText(), "one\r\ntwo\r\n\r\n<Page Break>");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  EXPECT_TRUE(output.OutputChanged);
}

TEST_F(OutputFiles, TextOpenedOverTheMostRecentOutputShowsInTheBoxAndIsTheLog) {
  const BoxVersion shown = output.Version();
  EXPECT_TRUE(OpenOutputText(output, folder.Make("old.txt", "one")));
  EXPECT_FALSE(output.ShowLogMode);
  EXPECT_EQ(output.BoxText(), "one\r\n\r\n<Page Break>");
  EXPECT_EQ(output.OutputLogText, "one\r\n\r\n<Page Break>");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
  EXPECT_TRUE(output.OutputChanged);
  EXPECT_NE(output.Version().lineage, shown.lineage);
}

TEST_F(OutputFiles, EmptyFileOpensAsAMarkAlone) {
  EXPECT_TRUE(OpenOutputText(output, folder.Make("empty.txt", "")));
  EXPECT_EQ(output.OutputLogText, "\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, Utf8IsConvertedOnTheWayIn) {
  EXPECT_TRUE(OpenOutputText(output, folder.Make("utf8.txt",
                                                 "\xEF\xBB\xBF"
                                                 "caf\xC3\xA9")));
  EXPECT_EQ(output.BoxText(), "caf\xE9\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, BareLineFeedsBecomeLineEnds) {
  EXPECT_TRUE(OpenOutputText(output, folder.Make("unix.txt", "\none\n\ntwo\r\nthree\rfour\n")));
  EXPECT_EQ(output.BoxText(), "\r\none\r\n\r\ntwo\r\nthree\rfour\r\n\r\n\r\n<Page Break>");
}

TEST_F(OutputFiles, CancelAnswersNothing) {
  EXPECT_FALSE(AskOutputToOpen(platform));
  EXPECT_FALSE(AskOutputToSave(platform));
  EXPECT_TRUE(platform.messages.empty());
}

TEST_F(OutputFiles, FailedOpenLeavesEverything) {
  for (const Path& path : {folder / "missing.txt", folder.path(), folder / "no-folder" / "a.txt"}) {
    EXPECT_FALSE(OpenOutputText(output, path)) << path;
    EXPECT_EQ(output.OutputLogText, kTwoRunsLog);
    EXPECT_EQ(output.BoxText(), WithSeparator("second"));
    EXPECT_FALSE(output.OutputChanged);
  }
}

TEST_F(OutputFiles, SaveAsksInTheProgramFolder) {
  platform.save_answers = {ChosenFile{"/new/log.txt", "log.txt"}};
  EXPECT_EQ(AskOutputToSave(platform), Path("/new/log.txt"));
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
  EXPECT_TRUE(SaveOutputText(output, folder / "log.txt", platform));
  EXPECT_EQ(ContentOf(folder / "log.txt"), "first\r\n<Page Break>\r\n\r\n\r\nsecond\r\n<Page Break>\r\n\r\n\r\n");
  EXPECT_FALSE(output.OutputChanged);
}

TEST_F(OutputFiles, SavedFileHoldsAnEditThatIsNotStoredBack) {
  EditBox(output, "edited \xE9");
  EXPECT_TRUE(SaveOutputText(output, folder / "edit.txt", platform));
  EXPECT_EQ(ContentOf(folder / "edit.txt"), "edited \xE9");
  EXPECT_EQ(output.MostRecentText, WithSeparator("second"));
}

TEST_F(OutputFiles, FailedSaveSaysSoAndLeavesTheOutputChanged) {
  EditBox(output, "edited");
  std::size_t boxes = 0;
  for (const Path& path : {Path("/dev/full"), folder.path(), folder / "no-folder" / "a.txt"}) {
    EXPECT_FALSE(SaveOutputText(output, path, platform)) << path;
    EXPECT_TRUE(output.OutputChanged);
    EXPECT_EQ(output.BoxText(), "edited");
    ASSERT_EQ(platform.messages.size(), ++boxes);
    EXPECT_EQ(platform.messages.back().title, "Save Aborted!");
    EXPECT_EQ(platform.messages.back().text,
              "The save operation failed. Please make sure the file is not open in another program.  This error could "
              "also be caused by trying to save to a location on your computer that has restricted access.");
    EXPECT_EQ(platform.messages.back().buttons, Buttons::kOk);
  }
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace tessara
