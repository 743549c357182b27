#include "batch/run_command.h"
#include "batch/tests/batch_run_fixture.h"

// What a line of a script does and what it refuses. Reports are looked at in tests/reports.

namespace tessara {
namespace {

TEST_F(BatchRunTest, StatisticsWritesSevenLinesAndTheSeparator) {
  const Outcome run = Run({"statistics"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, std::string("Number of Observations: 1,000\n"
                                 "Number of Variables: 20\n"
                                 "Data Cells Used: 20,000\n"
                                 "Data Cells Remaining: 180,000\n"
                                 "Data Cell Usage: 10.00%\n"
                                 "Data File Size: \n"
                                 "Data File Modified: \n") +
                         kSeparator);
}

TEST_F(BatchRunTest, BytesAreTheLogAsItIsHeld) {
  const Outcome text = Run({"statistics"});
  const Outcome bytes = Run({"--bytes", "statistics"});
  std::string expected;
  for (const char c : text.out) expected += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(bytes.out, expected);
}

TEST_F(BatchRunTest, TheLogGoesToAFileInTheFormOfBytes) {
  const Outcome run = Run({"-o", In("log.txt"), "statistics"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(FileContent(folder_ / "log.txt"), Run({"--bytes", "statistics"}).out);
}

TEST_F(BatchRunTest, RecentAndTabDelimitedPrintAlsoWhileTheLogGoesToAFile) {
  const Outcome run = Run({"-o", In("log.txt"), "-s", "-"}, "statistics\nrecent\n");
  EXPECT_EQ(run.out, Run({"statistics"}).out);
  EXPECT_EQ(FileContent(folder_ / "log.txt"), Run({"--bytes", "statistics"}).out);
}

TEST_F(BatchRunTest, AnOutputFileThatCannotBeWrittenStopsTheRun) {
  const Outcome folder = Run({"-o", folder_.string(), "statistics"});
  EXPECT_EQ(folder.status, 2);
  EXPECT_NE(folder.err.find("cannot be written"), std::string::npos);
  const Outcome nowhere = Run({"-o", In("no/such/log.txt"), "save", In("saved.dcs")});
  EXPECT_EQ(nowhere.status, 2);
  EXPECT_FALSE(fs::exists(folder_ / "saved.dcs"));
}

TEST_F(BatchRunTest, TheLogSoFarIsWrittenWhenTheScriptEnds) {
  const Outcome run = Run({"-o", In("log.txt"), "-s", "-"}, "statistics\nnonsense\nstatistics\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(FileContent(folder_ / "log.txt"), Run({"--bytes", "statistics"}).out);
}

TEST_F(BatchRunTest, RecentPrintsTheLatestRunInItsPlace) {
  const std::string data = WriteData();
  const Outcome first = Run({data, "frequencies", "A"});
  const Outcome second = Run({data, "frequencies", "B"});
  const Outcome both = RunScript("open " + data + "\nfrequencies A\nfrequencies B\nrecent\nfrequencies A\n");
  EXPECT_EQ(both.out, first.out + second.out + second.out + first.out);
}

TEST_F(BatchRunTest, RecentAndTabDelimitedPrintNothingWithoutOutput) {
  EXPECT_EQ(Run({"recent"}).out, "");
  EXPECT_EQ(Run({"tab-delimited"}).out, "");
}

TEST_F(BatchRunTest, TabDelimitedConvertsTheWholeLogAndLeavesIt) {
  const Outcome run = RunScript("statistics\nstatistics\ntab-delimited\n");
  const std::string once = Run({"statistics"}).out;
  ASSERT_TRUE(run.out.starts_with(once + once));
  // The lines have neither hyphens nor runs of blanks; a line end and one blank do not meet either.
  EXPECT_EQ(run.out, once + once + once + once);
  EXPECT_EQ(RunScript("statistics\ntab-delimited\nstatistics\n").out, once + once + once);
}

TEST_F(BatchRunTest, OpenRefusesWhatIsNoReadableFile) {
  EXPECT_EQ(Run({In("missing.dcs"), "statistics"}).err, "tessara-cli: \"" + In("missing.dcs").substr(0, 60) +
                                                            (In("missing.dcs").size() > 60 ? "...\"" : "\"") +
                                                            " cannot be opened\n");
  EXPECT_EQ(Run({In("missing.dcs"), "statistics"}).status, 2);
  EXPECT_EQ(Run({In("missing.dcs"), "statistics"}).out, "");
  EXPECT_EQ(Run({"open", folder_.string()}).status, 2);
  EXPECT_EQ(Run({"open", ""}).status, 2);
  EXPECT_EQ(Run({"open"}).err, "tessara-cli: open: PATH is missing\n");
  EXPECT_EQ(Run({"open", "a", "b"}).err, "tessara-cli: open: \"b\" is a word too many\n");
}

TEST_F(BatchRunTest, APathWithAZeroByteNamesNoFile) {
  const std::string data = WriteData();
  const Outcome run = RunScript("open " + data + std::string("\0rest\n", 6));
  EXPECT_EQ(run.status, 2);
}

TEST_F(BatchRunTest, AnEmptyFileLeavesTheDataWithoutAMessage) {
  const std::string data = WriteData();
  const Outcome run = RunScript("open " + data + "\nopen " + Write("empty.dcs", "") + "\nfrequencies A\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out, Run({data, "frequencies", "A"}).out);
}

TEST_F(BatchRunTest, SaveWithoutAPathWritesTheFileThatWasOpened) {
  const std::string data = WriteData();
  EXPECT_EQ(RunScript("open " + data + "\nnotes \"a b\"\nsave\n").status, 0);
  EXPECT_TRUE(
      FileContent(data).starts_with("3 2 Tessara data\x01"
                                    "a b\r\n"));
}

TEST_F(BatchRunTest, SaveToAPathMakesItTheCurrentOne) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  EXPECT_EQ(RunScript("open " + data + "\nsave " + In("b.dcs") + "\nnotes x\nsave\n").status, 0);
  EXPECT_EQ(FileContent(data), before);
  EXPECT_TRUE(FileContent(folder_ / "b.dcs")
                  .starts_with("3 2 Tessara data\x01"
                               "x\r\n"));
}

TEST_F(BatchRunTest, SaveOfNewDataNeedsAPath) {
  const Outcome fresh = Run({"save"});
  EXPECT_EQ(fresh.status, 2);
  EXPECT_EQ(fresh.err, "tessara-cli: save: PATH is missing, the data have no file of their own\n");
  EXPECT_EQ(RunScript("open " + WriteData() + "\nnew\nsave\n").status, 2);
}

TEST_F(BatchRunTest, SaveIntoAFolderThatHasVanishedSaysSo) {
  const std::string gone = (fs::path(WriteData()).parent_path() / "gone").string();
  fs::create_directories(gone);
  const std::string data = gone + "/data.dcs";
  fs::rename(In("data.dcs"), data);
  std::FILE* out = std::tmpfile();
  LogStream stream(out, out);
  Batch batch(stream, {});
  ASSERT_EQ(RunCommand(batch, Words{"open", data}).status, BatchStatus::kAllWell);
  fs::remove_all(gone);
  const CommandResult result = RunCommand(batch, Words{"save"});
  EXPECT_EQ(result.status, BatchStatus::kNotUnderstood);
  EXPECT_TRUE(result.error.starts_with("save: the folder of \"")) << result.error;
  EXPECT_TRUE(result.error.ends_with(" is not there")) << result.error;
  std::fclose(out);
}

TEST_F(BatchRunTest, SaveThatFailsShowsItsBoxAndTheScriptRunsOn) {
  const std::string data = WriteData();
  const Outcome run = RunScript("open " + data + "\nsave " + In("no/such/b.dcs") + "\nstatistics\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "Error: There was an error creating the new file.  You may not have authorization to create a new file on "
            "this system. Try using 'Save As' to save the file to 'My Documents\\Tessara Data' or some other location "
            "where write access is allowed.\n");
  EXPECT_NE(run.out.find("Number of Observations: 3\n"), std::string::npos);
}

TEST_F(BatchRunTest, NotesAreSetEmptiedAndKeepTheirLineEnds) {
  const std::string data = WriteData();
  EXPECT_EQ(Run({data, "notes"}).status, 0);
  RunScript("open " + data + "\nnotes\nsave " + In("b.dcs") + "\n");
  EXPECT_TRUE(FileContent(folder_ / "b.dcs").starts_with("3 2 Tessara data\x01\r\n"));
  RunScript("open " + data + "\nnotes \"K\xC3\xB6ln\"\nsave " + In("b.dcs") + "\n");
  EXPECT_TRUE(FileContent(folder_ / "b.dcs").starts_with("3 2 Tessara data\x01K\xF6ln\r\n"));
  EXPECT_EQ(Run({data, "notes", "two", "words"}).err, "tessara-cli: notes: \"words\" is a word too many\n");
}

TEST_F(BatchRunTest, VariablesByNameOrByNumber) {
  const std::string data = WriteData();
  EXPECT_EQ(Run({data, "frequencies", "#2"}).out, Run({data, "frequencies", "B"}).out);
  for (const char* word : {"a", "C", "#0", "#3", "#", "#x", "#-1", "# 1", ""}) {
    const Outcome run = Run({data, "frequencies", word});
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_EQ(run.err, "tessara-cli: frequencies: unknown variable \"" + std::string(word) + "\"\n");
    EXPECT_EQ(run.out, "") << word;
  }
}

TEST_F(BatchRunTest, TheWordByStandsBetweenTwoLists) {
  const std::string data = WriteData();
  EXPECT_EQ(Run({data, "frequencies"}).err, "tessara-cli: frequencies: VAR is missing\n");
  EXPECT_EQ(Run({data, "frequencies", "by", "A"}).err, "tessara-cli: frequencies: VAR is missing ahead of \"by\"\n");
  EXPECT_EQ(Run({data, "frequencies", "A", "by"}).err, "tessara-cli: frequencies: VAR is missing behind \"by\"\n");
  EXPECT_EQ(Run({data, "frequencies", "A", "by", "B", "by", "A"}).err,
            "tessara-cli: frequencies: \"by\" may stand once only\n");
}

TEST_F(BatchRunTest, ControlIsRefusedInItsWordsAndItsValues) {
  const std::string data = WriteData();
  EXPECT_EQ(Run({data, "control"}).err, "tessara-cli: control: VAR is missing\n");
  EXPECT_EQ(Run({data, "control", "C"}).err, "tessara-cli: control: unknown variable \"C\"\n");
  EXPECT_EQ(Run({data, "control", "A", "--gt", "1", "--no-missing"}).err,
            "tessara-cli: control: only one relation may be given\n");
  EXPECT_EQ(Run({data, "control", "none", "--gt", "1"}).err, "tessara-cli: control: \"none\" takes no relation\n");
  const Outcome letters = Run({data, "control", "A", "--lt", "x"});
  EXPECT_EQ(letters.err, "Warning: Only numerical entries are allowed.\n");
  EXPECT_EQ(letters.status, 1);
  EXPECT_EQ(Run({data, "control", "A", "--lt", "-5"}).status, 0);
  EXPECT_EQ(Run({data, "control", "A", "--eq", "x"}).status, 0);
}

TEST_F(BatchRunTest, ControlStaysUntilItIsTakenBack) {
  const std::string data = WriteData();
  const std::string plain = Run({data, "frequencies", "A"}).out;
  const Outcome run = RunScript("open " + data + "\ncontrol B --gt 5\nfrequencies A\ncontrol none\nfrequencies A\n");
  EXPECT_TRUE(run.out.starts_with("Controlling for B > 5\n\nFrequencies\n")) << run.out;
  EXPECT_TRUE(run.out.ends_with(kSeparator + plain)) << run.out;
  // Another control line takes nothing over from the one ahead of it.
  EXPECT_TRUE(RunScript("open " + data + "\ncontrol B --gt 5\ncontrol A\nfrequencies A\n")
                  .out.starts_with("Controlling for A\n\n"));
}

TEST_F(BatchRunTest, ARunLeavesNoBoxesToTheNextLine) {
  const std::string data = WriteData();
  const std::string plain = Run({data, "frequencies", "A"}).out;
  const Outcome run = RunScript("open " + data + "\ndescriptives A --save-z --chart\nfrequencies A\n");
  EXPECT_TRUE(run.out.ends_with(plain)) << run.out;
  EXPECT_NE(RunScript("open " + data + "\ndescriptives A --save-z\nfrequencies Z-A\n").out.find("Variable: Z-A"),
            std::string::npos);
}

// One 1 and two 2 of three cases.
TEST_F(BatchRunTest, ChartsPrintsTheTablesOfTheLatestRun) {
  const std::string data = WriteData();
  const Outcome run = RunScript("open " + data + "\ncontrol B --gt 1\nfrequencies A\ncharts\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("chart\tA\t\tFrequency\tControlling for B > 1\n"
                         "1  (33.3%)\t1\n"
                         "2  (66.7%)\t2\n"
                         "chart\tA (%)\t\tPercent (%)\tControlling for B > 1\n"),
            std::string::npos)
      << run.out;
  // Neither before a run nor after one of two variables is there anything to print.
  EXPECT_EQ(RunScript("open " + data + "\ncharts\n").out, "");
  EXPECT_EQ(RunScript("open " + data + "\nfrequencies A\nfrequencies A B\ncharts\n").out.find("chart\t"),
            std::string::npos);
}

TEST_F(BatchRunTest, ChartsAddNothingToTheLog) {
  const std::string data = WriteData();
  const Outcome run = Run({"-o", In("log.txt"), "-s", "-"}, "open " + data + "\ndescriptives B\ncharts\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.out.starts_with("chart\tHistogram\tB\tFrequency\t\n5.00 to 5.40\t1\n")) << run.out;
  EXPECT_EQ(FileContent(folder_ / "log.txt"), Run({"--bytes", data, "descriptives", "B"}).out);
}

TEST_F(BatchRunTest, TheErrorFrameIsARefusal) {
  // One accepted case of A under the control: too few for Descriptives.
  const Outcome run = RunScript("open " + WriteData() + "\ncontrol B --eq 5\ndescriptives A\nstatistics\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "");
  EXPECT_NE(run.out.find("There are less than 2 observations, so procedure was aborted."), std::string::npos);
  EXPECT_NE(run.out.find("Number of Observations: 3\n"), std::string::npos);
}

TEST_F(BatchRunTest, PrintWritesPagesWithFormFeeds) {
  const Outcome run = RunScript("statistics\nstatistics\nprint " + In("pages.txt") + "\n");
  EXPECT_EQ(run.status, 0);
  const std::string pages = FileContent(folder_ / "pages.txt");
  const std::size_t feed = pages.find('\f');
  ASSERT_NE(feed, std::string::npos);
  EXPECT_EQ(pages.find('\f', feed + 1), std::string::npos);  // two reports, two pages, one feed between them
  EXPECT_TRUE(pages.starts_with("\r\n\r\n\r\n\r\n\r\n          Page 1 "));
  EXPECT_TRUE(pages.substr(feed + 1).starts_with("\r\n\r\n\r\n\r\n\r\n          Page 2 "));
}

TEST_F(BatchRunTest, PrintThatFailsShowsItsBox) {
  const Outcome run = RunScript("statistics\nprint " + In("no/such/pages.txt") + "\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.err.starts_with("Printer Error: The printer is not accepting the print request.")) << run.err;
  EXPECT_EQ(Run({"print"}).err, "tessara-cli: print: PATH is missing\n");
}

// Two reports in one run of a command, and no more pages than those.
TEST_F(BatchRunTest, PrintOfTwoReportsIsTwoPagesOfTheLog) {
  const Outcome run = RunScript("open " + WriteData() + "\nfrequencies A B\nprint " + In("pages.txt") + "\n");
  EXPECT_EQ(run.status, 0);
  const std::string pages = FileContent(folder_ / "pages.txt");
  const std::size_t feed = pages.find('\f');
  ASSERT_NE(feed, std::string::npos);
  EXPECT_NE(pages.substr(0, feed).find("Variable: A "), std::string::npos);
  EXPECT_NE(pages.substr(feed).find("Variable: B "), std::string::npos);
  EXPECT_EQ(pages.find('\f', feed + 1), std::string::npos);
}

// The log, not the reports of the latest run alone.
TEST_F(BatchRunTest, PrintHoldsTheReportsOfEarlierCommands) {
  RunScript("open " + WriteData() + "\nfrequencies A\nfrequencies B\nprint " + In("pages.txt") + "\n");
  const std::string pages = FileContent(folder_ / "pages.txt");
  EXPECT_LT(pages.find("Variable: A "), pages.find("Variable: B "));
  EXPECT_NE(pages.find("Variable: B "), std::string::npos);
}

TEST_F(BatchRunTest, ControlCharactersOfAScriptDoNotReachAMessage) {
  EXPECT_EQ(RunScript("\x1B[2J\n").err, "-:1: unknown command \"\xE2\x90\x9B[2J\"; the nearest is \"open\"\n");
}

TEST_F(BatchRunTest, MessagesNameFileAndLine) {
  const std::string script = Write("s.txt", "# a remark\r\n\r\nstatistics\r\nfrequences A\r\nstatistics\r\n");
  const Outcome run = Run({"--script", script});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, script + ":4: unknown command \"frequences\"; the nearest is \"frequencies\"\n");
  EXPECT_EQ(run.out, Run({"statistics"}).out);
  EXPECT_EQ(RunScript("notes \"open\n").err, "-:1: a quote is not closed\n");
}

TEST_F(BatchRunTest, AScriptThatCannotBeReadIsNotUnderstood) {
  EXPECT_EQ(Run({"-s", folder_.string()}).status, 2);
  EXPECT_EQ(Run({"-s", In("missing.txt")}).status, 2);
  EXPECT_EQ(Run({"-s", ""}).status, 2);
}

TEST_F(BatchRunTest, TheScriptRunsAheadOfTheCommand) {
  const std::string data = WriteData();
  const std::string script = Write("s.txt", "control B --gt 5\n");
  EXPECT_TRUE(Run({"-s", script, data, "frequencies", "A"}).out.starts_with("Controlling for B > 5\n"));
  const std::string broken = Write("b.txt", "nonsense\n");
  EXPECT_EQ(Run({"-s", broken, data, "frequencies", "A"}).out, "");
}

TEST_F(BatchRunTest, ARefusalDoesNotHideALaterError) {
  EXPECT_EQ(RunScript("print /no/such/folder/x.txt\nstatistics\n").status, 1);
  EXPECT_EQ(RunScript("print /no/such/folder/x.txt\nnonsense\n").status, 2);
}

TEST_F(BatchRunTest, ScriptsInTheCodePageNameTheSameVariables) {
  std::string text = "1 1 Tessara data\r\n";
  for (int i = 1; i < 15; ++i) text += "\r\n";
  const std::string data = Write("k.dcs", text + "K\xF6ln\r\n1\r\n");
  const Outcome utf8 = RunScript("open " + data + "\nfrequencies K\xC3\xB6ln\n");
  EXPECT_EQ(utf8.status, 0);
  EXPECT_NE(utf8.out.find("Variable: K\xC3\xB6ln"), std::string::npos);
  EXPECT_EQ(RunScript("open " + data + "\nfrequencies K\xF6ln\n").out, utf8.out);
}

TEST_F(BatchRunTest, LongScriptsAndStrangeBytes) {
  std::string script;
  for (int i = 0; i < 20000; ++i) script += "control V1 --gt 5\n# remark\n\n";
  EXPECT_EQ(RunScript(script).status, 0);
  const Outcome long_word = RunScript(std::string(1 << 20, 'x') + "\n");
  EXPECT_EQ(long_word.status, 2);
  EXPECT_LT(long_word.err.size(), 200u);
  EXPECT_EQ(RunScript(std::string("\0\0\n", 3)).status, 2);
  EXPECT_EQ(RunScript("").status, 0);
  EXPECT_EQ(RunScript("new").status, 0);
}

TEST_F(BatchRunTest, AnEmptyLogIsNotPrinted) {
  const Outcome run = RunScript("print " + In("pages.txt") + "\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err, "Print Aborted!: There is no output to print.\n");
  EXPECT_FALSE(fs::exists(folder_ / "pages.txt"));
}

TEST_F(BatchRunTest, ALogThatItsFileCannotTakeIsPrinted) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is full";
  const Outcome run = Run({"-o", "/dev/full", "statistics"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "tessara-cli: \"/dev/full\" cannot be written\n");
  EXPECT_EQ(run.out, Run({"statistics"}).out);
  EXPECT_TRUE(run.out.ends_with(kSeparator));
}

TEST_F(BatchRunTest, StandardInputThatCannotBeReadIsNotUnderstood) {
  std::FILE* in = std::fopen(In("script.txt").c_str(), "w");  // for writing alone
  ASSERT_NE(in, nullptr);
  std::FILE* out = std::tmpfile();
  std::FILE* err = std::tmpfile();
  const Words arguments{"-s", "-"};
  EXPECT_EQ(RunBatch(arguments, {in, out, err}), 2);
  EXPECT_EQ(Content(err), "tessara-cli: standard input cannot be read\n");
  std::fclose(in);
  std::fclose(out);
}

TEST_F(BatchRunTest, ASaveTellsOfNotesThatOneVariableHasNoPlaceFor) {
  std::string text = "1 1 Tessara data\r\n" + Lines(14) + "A\r\n5\r\n";
  const Outcome run = RunScript("open " + Write("one.dcs", text) + "\nnotes \"all about it\"\nsave\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "tessara-cli: note: the project notes are not in the file: it has one variable\n");
  EXPECT_EQ(FileContent(folder_ / "one.dcs"), text);
}

}  // namespace
}  // namespace tessara
