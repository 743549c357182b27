#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "batch/batch_options.h"
#include "batch/commands/commands.h"
#include "batch/help_text.h"
#include "batch/words/script_line.h"

namespace tessara {
namespace {

using Words = std::vector<std::string>;

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
      {{"-5", "new"}, "unknown option \"-5\""},
      {{"a.dcs", "---x"}, "unknown option \"---x\""},
      {{"a.dcs", "frequences", "A"}, "unknown command \"frequences\"; the nearest is \"frequencies\""},
      {{"-s"}, "--script needs a value"},
      {{"-s", "a", "-s", "b"}, "--script is given twice"},
      {{"-s", "a", "new", "-s", "b"}, "--script is given twice"},
      {{"--seed", "x", "new"}, "--seed takes a whole number from 0, not \"x\""},
      {{"--seed", "-1", "new"}, "--seed takes a whole number from 0, not \"-1\""},
      {{"--seed", "1.5", "new"}, "--seed takes a whole number from 0, not \"1.5\""},
      {{"--seed", "18446744073709551616", "new"}, "--seed takes a whole number from 0, not \"18446744073709551616\""},
      {{"--help", "frequences"}, "unknown command \"frequences\"; the nearest is \"frequencies\""},
      {{"new", "--nothing"}, "new: unknown option \"--nothing\""},
      {{"--outptu", "x", "new"}, "unknown option \"--outptu\"; the nearest is \"--output\""},
      {{"a.dcs", "list", "A", "--byte"}, "list: unknown option \"--byte\"; the nearest is \"--bytes\""},
  };
  for (const Case& c : cases) EXPECT_EQ(ReadCommandLine(c.line).error, c.error);
}

TEST(ReadCommandLine, OverwriteBelongsToTheProgramAlsoBehindACommandThatHasIt) {
  for (const Words& line : {Words{"--overwrite", "save", "a.dcs"}, Words{"save", "a.dcs", "--overwrite"}}) {
    const BatchOptions options = ReadCommandLine(line);
    EXPECT_EQ(options.error, "");
    EXPECT_TRUE(options.overwrite);
    EXPECT_EQ(options.words.words, Words{"a.dcs"});
  }
  EXPECT_FALSE(ReadCommandLine(Words{"save", "a.dcs"}).overwrite);
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
  for (const CommandRow* row : Commands()) {
    const std::string page = CommandHelp(*row);
    EXPECT_NE(page.find("Example:\n  " + std::string(row->example) + "\n"), std::string::npos) << row->name;
    EXPECT_NE(ProgramHelp().find("\n  " + std::string(row->name) + " "), std::string::npos) << row->name;
    for (const OptionRow& option : row->options) EXPECT_NE(page.find(option.names), std::string::npos) << option.names;

    const auto line = SplitWords(row->example);
    ASSERT_TRUE(line && !line->empty()) << row->name;
    EXPECT_EQ(line->front(), row->name);
    const auto words = ParseWords(row->options, WordOrder::kAnywhere, std::span(*line).subspan(1));
    EXPECT_EQ(words.error, "") << row->name;
    EXPECT_LE(words.words.size(), row->most_words) << row->name;
    EXPECT_TRUE(row->needed_word.empty() || !words.words.empty()) << row->name;
  }
}

// What the synopsis of a command shows as options are its options, no more and no fewer.
TEST(Commands, EachNamesItsOptionsInTheSynopsis) {
  for (const CommandRow* row : Commands()) {
    std::set<std::string_view> shown;
    for (std::size_t at = 0; (at = row->synopsis.find("--", at)) != std::string_view::npos;) {
      const std::size_t end = std::min(row->synopsis.find_first_of(" ]", at), row->synopsis.size());
      shown.insert(row->synopsis.substr(at, end - at));
      at = end;
    }
    std::set<std::string_view> taken;
    for (const OptionRow& option : row->options) taken.insert(LongName(option));
    EXPECT_EQ(shown, taken) << row->name;
  }
}

}  // namespace
}  // namespace tessara
