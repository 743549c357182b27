#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/batch_options.h"
#include "batch/command.h"
#include "batch/command_words.h"
#include "batch/help_text.h"

namespace tessara {
namespace {

using Words = std::vector<std::string>;

CommandWords ParseFor(const char* command, const Words& words) {
  return WordParser(FindCommand(command)->options, WordOrder::kAnywhere).Parse(words);
}

TEST(WordParser, OptionsStandAnywhere) {
  for (const Words& line : {Words{"--chart", "A", "B"}, Words{"A", "--chart", "B"}, Words{"A", "B", "--chart"}}) {
    const CommandWords words = ParseFor("descriptives", line);
    EXPECT_EQ(words.error, "");
    EXPECT_EQ(words.words, (Words{"A", "B"}));
    EXPECT_TRUE(words.Has("--chart"));
    EXPECT_FALSE(words.Has("--save-z"));
  }
}

TEST(WordParser, AValueMayStartWithASign) {
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "-5"}).Value("--lt"), "-5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "--5"}).Value("--lt"), "--5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "+5"}).Value("--lt"), "+5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt=-5"}).Value("--lt"), "-5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--eq", ""}).Value("--eq"), "");
}

TEST(WordParser, TwoHyphensEndTheOptions) {
  const CommandWords words = ParseFor("descriptives", {"A", "--", "--chart", "--", "-x"});
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.words, (Words{"A", "--chart", "--", "-x"}));
  EXPECT_FALSE(words.Has("--chart"));
}

TEST(WordParser, WordsStayAsTheyAre) {
  const Words strange = {"[A,B]", "[]", "{}", "%%", "", "\x01x", "a=b", "/x", "++", "'q'", "#3", "-"};
  const CommandWords words = ParseFor("frequencies", strange);
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.words, strange);
  EXPECT_EQ(ParseFor("control", {"A", "--eq", "[x,y]"}).Value("--eq"), "[x,y]");
  EXPECT_EQ(ParseFor("control", {"A", "--eq", "{}"}).Value("--eq"), "{}");
}

TEST(WordParser, TellsWhatIsWrong) {
  EXPECT_EQ(ParseFor("frequencies", {"A", "--chart"}).error, "unknown option \"--chart\"");
  EXPECT_EQ(ParseFor("frequencies", {"A", "-x"}).error, "unknown option \"-x\"");
  EXPECT_EQ(ParseFor("frequencies", {"A", "--disp"}).error, "unknown option \"--disp\"");
  EXPECT_EQ(ParseFor("control", {"A", "--gt"}).error, "--gt needs a value");
  EXPECT_EQ(ParseFor("control", {"A", "--gt", "1", "--gt", "2"}).error, "--gt is given twice");
  EXPECT_EQ(ParseFor("frequencies", {"A", "--dispersion=no"}).error, "--dispersion takes no value");
}

TEST(WordParser, AnOptionOfTwoValues) {
  const CommandWords words = ParseFor("t-test", {"AGE", "--groups", "-1", "[b]", "by", "SEX"});
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.Value("--groups"), "-1");
  EXPECT_EQ(words.SecondValue("--groups"), "[b]");
  EXPECT_EQ(words.words, (Words{"AGE", "by", "SEX"}));
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "-1", "-.5", "by", "SEX"}).SecondValue("--groups"), "-.5");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "a", "-b", "by", "SEX"}).SecondValue("--groups"), "-b");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "1", "2", "-b"}).error, "unknown option \"-b\"");
  EXPECT_FALSE(ParseFor("t-test", {"AGE"}).SecondValue("--groups"));
  EXPECT_EQ(ParseFor("t-test", {"AGE", "by", "SEX", "--groups", "1"}).error, "--groups needs two values");
  EXPECT_EQ(ParseFor("t-test", {"A", "--groups", "1", "2", "--groups", "1", "2"}).error, "--groups is given twice");
  EXPECT_EQ(ParseFor("t-test", {"A", "--groups", "1", "--groups", "2"}).error, "--groups is given twice");
}

TEST(WordParser, KeepsNothingFromLineToLine) {
  WordParser parser(FindCommand("descriptives")->options, WordOrder::kAnywhere);
  EXPECT_EQ(parser.Parse(Words{"A", "--chart"}).words, Words{"A"});
  const CommandWords second = parser.Parse(Words{"B"});
  EXPECT_EQ(second.words, Words{"B"});
  EXPECT_FALSE(second.Has("--chart"));
  EXPECT_EQ(parser.Parse(Words{"--nothing"}).error, "unknown option \"--nothing\"");
  EXPECT_EQ(parser.Parse(Words{}).error, "");
}

TEST(ReadCommandLine, DataFileCommandAndWords) {
  const BatchOptions options = ReadCommandLine(Words{"survey.dcs", "frequencies", "SEX", "--dispersion"});
  EXPECT_EQ(options.error, "");
  EXPECT_EQ(options.data_file, "survey.dcs");
  ASSERT_NE(options.command, nullptr);
  EXPECT_EQ(options.command->name, "frequencies");
  EXPECT_EQ(options.words.words, Words{"SEX"});
  EXPECT_TRUE(options.words.Has("--dispersion"));
}

TEST(ReadCommandLine, TheProgramsOptionsStandInEveryPlace) {
  for (const Words& line : {Words{"-o", "log.txt", "--bytes", "--seed", "7", "a.dcs", "statistics"},
                            Words{"a.dcs", "-o", "log.txt", "--bytes", "--seed", "7", "statistics"},
                            Words{"a.dcs", "statistics", "--output", "log.txt", "--bytes", "--seed", "7"}}) {
    const BatchOptions options = ReadCommandLine(line);
    EXPECT_EQ(options.error, "");
    EXPECT_EQ(options.data_file, "a.dcs");
    EXPECT_EQ(options.output, "log.txt");
    EXPECT_EQ(options.seed, 7u);
    EXPECT_TRUE(options.bytes);
    EXPECT_TRUE(options.words.words.empty());
    EXPECT_TRUE(options.words.options.empty());
  }
}

TEST(ReadCommandLine, ACommandNeedsNoDataFile) {
  const BatchOptions options = ReadCommandLine(Words{"open", "survey.dcs"});
  EXPECT_FALSE(options.data_file);
  ASSERT_NE(options.command, nullptr);
  EXPECT_EQ(options.command->name, "open");
}

TEST(ReadCommandLine, TwoHyphensAheadOfTheDataFileEndTheProgramsOptions) {
  const BatchOptions options = ReadCommandLine(Words{"--", "-x.dcs", "descriptives", "A", "--chart"});
  EXPECT_EQ(options.error, "");
  EXPECT_EQ(options.data_file, "-x.dcs");
  EXPECT_TRUE(options.words.Has("--chart"));
}

TEST(ReadCommandLine, ScriptFromStandardInput) {
  EXPECT_EQ(ReadCommandLine(Words{"-s", "-"}).script, "-");
  EXPECT_EQ(ReadCommandLine(Words{"--script=lesson.txt"}).script, "lesson.txt");
}

TEST(ReadCommandLine, TellsWhatIsWrong) {
  struct Case {
    Words line;
    std::string error;
  };
  const std::vector<Case> cases = {
      {{}, "nothing to do: give a data file, a command or a script (see tessara-cli --help)"},
      {{"--bytes"}, "nothing to do: give a data file, a command or a script (see tessara-cli --help)"},
      {{"--nothing"}, "unknown option \"--nothing\""},
      {{"a.dcs", "--nothing"}, "unknown option \"--nothing\""},
      {{"a.dcs", "frequences", "A"}, "unknown command \"frequences\"; the nearest is \"frequencies\""},
      {{"a.dcs", "explore", "A"}, "the command \"explore\" is not available in this version"},
      {{"compute"}, "the command \"compute\" is not available in this version"},
      {{"-s"}, "--script needs a value"},
      {{"-s", "a", "-s", "b"}, "--script is given twice"},
      {{"-s", "a", "new", "-s", "b"}, "--script is given twice"},
      {{"--seed", "x", "new"}, "--seed takes a whole number from 0, not \"x\""},
      {{"--seed", "-1", "new"}, "--seed takes a whole number from 0, not \"-1\""},
      {{"--seed", "1.5", "new"}, "--seed takes a whole number from 0, not \"1.5\""},
      {{"--seed", "18446744073709551616", "new"}, "--seed takes a whole number from 0, not \"18446744073709551616\""},
      {{"--help", "frequences"}, "unknown command \"frequences\"; the nearest is \"frequencies\""},
      {{"new", "--nothing"}, "new: unknown option \"--nothing\""},
  };
  for (const Case& c : cases) EXPECT_EQ(ReadCommandLine(c.line).error, c.error);
}

TEST(ReadCommandLine, AWordThatIsNeitherCommandNorFileIsAMistypedCommand) {
  EXPECT_EQ(ReadCommandLine(Words{"statistic"}).error,
            "unknown command \"statistic\"; the nearest is \"statistics\", and there is no data file of that name");
  EXPECT_EQ(ReadCommandLine(Words{"missing.dcs"}).error, "");  // to be opened, which fails with its own message
}

TEST(ReadCommandLine, HelpOfACommandInBothPlaces) {
  EXPECT_EQ(ReadCommandLine(Words{"--help", "print"}).help_command, FindCommand("print"));
  EXPECT_EQ(ReadCommandLine(Words{"print", "--help"}).help_command, FindCommand("print"));
  const BatchOptions program = ReadCommandLine(Words{"--help"});
  EXPECT_TRUE(program.help);
  EXPECT_EQ(program.help_command, nullptr);
  EXPECT_TRUE(ReadCommandLine(Words{"--version"}).version);
}

TEST(NearestCommand, IsTheOneWithTheFewestChangedLetters) {
  EXPECT_EQ(NearestCommand("opne").name, "open");
  EXPECT_EQ(NearestCommand("note").name, "notes");
  EXPECT_EQ(NearestCommand("descriptive").name, "descriptives");
  EXPECT_EQ(NearestCommand("tab_delimited").name, "tab-delimited");
  EXPECT_EQ(NearestCommand(std::string(1 << 20, 'x')).name.empty(), false);
}

TEST(Commands, EachHasAHelpPageWithAnExampleThatParses) {
  for (const CommandRow& row : Commands()) {
    const std::string page = CommandHelp(row);
    EXPECT_NE(page.find("Example:\n  " + std::string(row.example) + "\n"), std::string::npos) << row.name;
    EXPECT_NE(ProgramHelp().find("\n  " + std::string(row.name) + " "), std::string::npos) << row.name;
    EXPECT_TRUE(row.example.starts_with(row.name)) << row.name;
    for (const OptionRow& option : row.options) EXPECT_NE(page.find(option.names), std::string::npos) << option.names;
    EXPECT_FALSE(IsLaterCommand(row.name)) << row.name;
  }
}

}  // namespace
}  // namespace tessara
