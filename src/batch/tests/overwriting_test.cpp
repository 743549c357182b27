#include "batch/tests/batch_run_fixture.h"

// Which files a run may write over: neither the data and the script that it works on, nor its log, nor what is no file
// of that kind.

namespace tessara {
namespace {

TEST_F(BatchRunTest, TheLogDoesNotReplaceTheDataFileOfTheRun) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  const Outcome run = Run({"-o", data, data, "statistics"});
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_TRUE(run.err.ends_with("is a file that this run works on; --overwrite writes over it\n")) << run.err;
  EXPECT_EQ(FileContent(data), before);
  EXPECT_EQ(Run({"--overwrite", "-o", data, data, "statistics"}).status, 0);
  EXPECT_TRUE(FileContent(data).starts_with("Number of Observations: 3\r\n"));
}

TEST_F(BatchRunTest, TheLogDoesNotReplaceTheScript) {
  const std::string script = Write("s.txt", "statistics\n");
  EXPECT_EQ(Run({"-s", script, "-o", script}).status, 2);
  EXPECT_EQ(FileContent(script), "statistics\n");
}

TEST_F(BatchRunTest, LinksLeadToTheSameFile) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  fs::create_hard_link(data, In("hard.dcs"));
  fs::create_symlink(data, In("soft.dcs"));
  for (const std::string name : {"hard.dcs", "soft.dcs"}) {
    EXPECT_EQ(Run({"-o", In(name), data, "statistics"}).status, 2) << name;
    const Outcome print = RunScript("open " + data + "\nstatistics\nprint " + In(name) + "\n");
    EXPECT_EQ(print.status, 2) << name;
    EXPECT_TRUE(print.err.starts_with("-:3: print: ")) << print.err;
    EXPECT_EQ(FileContent(In(name)), before) << name;
  }
}

// The line that opens it is refused, nothing of the script behind it runs, and the log so far is printed instead.
TEST_F(BatchRunTest, TheFileOfTheLogIsNotOpened) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  const Outcome run = Run({"-o", data, "-s", "-"}, "statistics\nopen " + data + "\nstatistics\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("-:2: open: ")) << run.err;
  EXPECT_EQ(run.out, Run({"statistics"}).out);
  EXPECT_EQ(FileContent(data), before);
}

TEST_F(BatchRunTest, TheFileOfTheLogIsNotSavedTo) {
  const Outcome run = Run({"-o", In("log.dcs"), "-s", "-"}, "statistics\nsave " + In("log.dcs") + "\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.err.starts_with("-:2: save: ")) << run.err;
  EXPECT_EQ(FileContent(In("log.dcs")), Run({"--bytes", "statistics"}).out);
}

// A link that led nowhere when the run began leads to the data at its end.
TEST_F(BatchRunTest, AFileThatTheRunHasSavedIsGuardedAtTheEnd) {
  fs::create_symlink(In("later.dcs"), In("log.txt"));
  const std::string data = WriteData();
  const Outcome run =
      Run({"-o", In("log.txt"), "-s", "-"}, "open " + data + "\nsave " + In("later.dcs") + "\nstatistics\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(FileContent(In("later.dcs")).starts_with("3 2 Tessara data"));
  EXPECT_TRUE(run.out.starts_with("Number of Observations: 3\n"));
}

TEST_F(BatchRunTest, PrintDoesNotReplaceADataFileOfTheRun) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  const std::string open = "open " + data + "\nstatistics\n";
  EXPECT_EQ(RunScript(open + "new\nprint " + data + "\n").status, 2);
  EXPECT_EQ(RunScript(open + "save " + In("b.dcs") + "\nprint " + In("b.dcs") + "\n").status, 2);
  EXPECT_EQ(FileContent(data), before);
  EXPECT_EQ(RunScript(open + "print --overwrite " + data + "\n").status, 0);
  EXPECT_NE(FileContent(data).find("Page 1 "), std::string::npos);
}

TEST_F(BatchRunTest, SaveDoesNotReplaceAFileThatIsNoDataFile) {
  const std::string data = WriteData();
  const std::string open = "open " + data + "\n";
  for (const std::string content :
       {"Dear reader", "1\r\n", "12 x\r\n", "-1 2 Tessara data\r\n", "x", "1 1", "2 3\n", "1 2 x", "12 34 56\n"}) {
    const std::string letter = Write("letter.txt", content);
    const Outcome run = RunScript(open + "save " + letter + "\nstatistics\n");
    EXPECT_EQ(run.status, 2) << content;
    EXPECT_EQ(run.out, "") << content;
    EXPECT_TRUE(run.err.ends_with(" is no data file; --overwrite writes over it\n")) << run.err;
    EXPECT_EQ(FileContent(letter), content);
    EXPECT_EQ(RunScript(open + "save " + letter + " --overwrite\n").status, 0);
    EXPECT_TRUE(FileContent(letter).starts_with("3 2 Tessara data"));
  }
}

// Two numbers at its start make no data file of a table, nor do empty lines ahead of a text.
TEST_F(BatchRunTest, SaveLooksBehindTheFirstLineOfWhatItReplaces) {
  const std::string open = "open " + WriteData() + "\n";
  for (const std::string& content : {"1 1 other\r\n" + Lines(15) + "A\r\n5\r\n", Lines(300) + "Dear reader"}) {
    const std::string other = Write("other.txt", content);
    EXPECT_EQ(RunScript(open + "save " + other + "\n").status, 2) << content;
    EXPECT_EQ(FileContent(other), content);
  }
}

TEST_F(BatchRunTest, DataFilesStay) {
  const std::string data = WriteData();
  const std::string before = FileContent(data);
  const Outcome print = RunScript("statistics\nprint " + data + "\n");
  EXPECT_EQ(print.status, 2);
  EXPECT_TRUE(print.err.ends_with(" is a data file; --overwrite writes over it\n")) << print.err;
  const Outcome text = RunScript("export " + data + "\n");
  EXPECT_EQ(text.status, 2);
  EXPECT_NE(text.err.find("\"" + data + "\" is a data file; --overwrite writes over it\n"), std::string::npos)
      << text.err;
  const Outcome log = Run({"-o", data, "statistics"});
  EXPECT_EQ(log.status, 2);
  EXPECT_TRUE(log.err.ends_with(" is a data file; --overwrite writes over it\n")) << log.err;
  EXPECT_EQ(log.out, Run({"statistics"}).out);
  EXPECT_EQ(FileContent(data), before);
  EXPECT_EQ(Run({"--overwrite", "-o", data, "statistics"}).status, 0);
  EXPECT_NE(FileContent(data), before);
}

TEST_F(BatchRunTest, SaveReplacesADataFileAnEmptyFileAndNone) {
  const std::string open = "open " + WriteData() + "\n";
  for (const std::string& content :
       {std::string("1 1 Tessara data\r\n"), std::string("4 4 other data\x01note\r\n"), std::string("\r\n\r\n"),
        "1 1 other\r\n" + Lines(14) + "A\r\n5\r\n", "1 1 other\r\n" + Lines(14) + "A\r\n5", Lines(16), std::string()}) {
    const std::string other = Write("other.dcs", content);
    EXPECT_EQ(RunScript(open + "save " + other + "\n").status, 0) << content;
    EXPECT_TRUE(FileContent(other).starts_with("3 2 Tessara data")) << content;
  }
}

TEST_F(BatchRunTest, OverwriteOnTheCommandLineServesTheWholeScript) {
  const std::string letter = Write("letter.txt", "Dear reader");
  EXPECT_EQ(Run({"--overwrite", "-s", "-"}, "open " + WriteData() + "\nsave " + letter + "\n").status, 0);
  EXPECT_TRUE(FileContent(letter).starts_with("3 2 Tessara data"));
}

}  // namespace
}  // namespace tessara
