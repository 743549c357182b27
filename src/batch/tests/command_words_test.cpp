#include "batch/words/command_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "batch/commands/commands.h"

namespace tessara {
namespace {

using Words = std::vector<std::string>;

CommandWords ParseFor(const char* command, const Words& words) {
  return ParseWords(FindCommand(command)->options, WordOrder::kAnywhere, words);
}

constexpr OptionRow kFormatOptions[] = {
    {"--missing", "V", "a missing value", OptionValue::kNeeded, OptionTimes::kAnyNumber},
    {"--label", "L", "the label", OptionValue::kNeeded},
    {"-p,--page", "NAME", "a page", OptionValue::kPossible},
};

CommandWords ParseFormat(const Words& words) { return ParseWords(kFormatOptions, WordOrder::kAnywhere, words); }

TEST(ParseWords, OptionsStandAnywhere) {
  for (const Words& line : {Words{"--chart", "A", "B"}, Words{"A", "--chart", "B"}, Words{"A", "B", "--chart"}}) {
    const CommandWords words = ParseFor("descriptives", line);
    EXPECT_EQ(words.error, "");
    EXPECT_EQ(words.words, (Words{"A", "B"}));
    EXPECT_TRUE(words.Has("--chart"));
    EXPECT_FALSE(words.Has("--save-z"));
  }
}

TEST(ParseWords, TheFirstPlainWordEndsLeadingOptions) {
  const CommandWords words =
      ParseWords(kFormatOptions, WordOrder::kLeading, Words{"--label", "x", "y", "--label", "z"});
  EXPECT_EQ(words.Value("--label"), "x");
  EXPECT_EQ(words.words, (Words{"y", "--label", "z"}));
  // What ends the options is left to the caller.
  EXPECT_EQ(ParseWords(kFormatOptions, WordOrder::kLeading, Words{"--", "-x"}).words, (Words{"--", "-x"}));
}

TEST(ParseWords, AValueMayStartWithASign) {
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "-5"}).Value("--lt"), "-5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "--5"}).Value("--lt"), "--5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt", "+5"}).Value("--lt"), "+5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--lt=-5"}).Value("--lt"), "-5");
  EXPECT_EQ(ParseFor("control", {"AGE", "--eq", "--"}).Value("--eq"), "--");
  EXPECT_EQ(ParseFor("control", {"AGE", "--eq", "--gt"}).Value("--eq"), "--gt");
}

TEST(ParseWords, AnEmptyValueIsAValue) {
  for (const Words& line : {Words{"AGE", "--eq", ""}, Words{"AGE", "--eq="}, Words{"--eq=", "AGE"}}) {
    const CommandWords words = ParseFor("control", line);
    EXPECT_EQ(words.error, "");
    EXPECT_EQ(words.Value("--eq"), "");
    EXPECT_EQ(words.words, Words{"AGE"});
  }
}

TEST(ParseWords, AnEqualSignAheadOfTheFirstPartsNameAndValue) {
  EXPECT_EQ(ParseFor("control", {"A", "--eq=a=b"}).Value("--eq"), "a=b");
  EXPECT_EQ(ParseFor("control", {"A", "--eq=="}).Value("--eq"), "=");
  EXPECT_EQ(ParseFor("control", {"A", "--eq=two words"}).Value("--eq"), "two words");
}

TEST(ParseWords, TwoHyphensEndTheOptions) {
  const CommandWords words = ParseFor("descriptives", {"A", "--", "--chart", "--", "-x"});
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.words, (Words{"A", "--chart", "--", "-x"}));
  EXPECT_FALSE(words.Has("--chart"));
}

TEST(ParseWords, WordsStayAsTheyAre) {
  const Words strange = {"[A,B]", "[]",  "{}", "%%", "",    "\x01x", "a=b", "/x",
                         "++",    "'q'", "#3", "-",  "---", "---x",  "- x", "-- x"};
  const CommandWords words = ParseFor("frequencies", strange);
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.words, strange);
  EXPECT_EQ(ParseFor("control", {"A", "--eq", "[x,y]"}).Value("--eq"), "[x,y]");
  EXPECT_EQ(ParseFor("control", {"A", "--eq", "{}"}).Value("--eq"), "{}");
}

TEST(ParseWords, ANumberIsAWord) {
  const Words numbers = {"-5", "-.5", "-1e3", "-1,000"};
  const CommandWords words = ParseFor("frequencies", numbers);
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.words, numbers);
  EXPECT_EQ(ParseFor("frequencies", {"-5x"}).error, "unknown option \"-5x\"");
}

TEST(ParseWords, TellsWhatIsWrong) {
  struct Case {
    const char* command;
    Words line;
    std::string error;
  };
  const std::vector<Case> cases = {
      {"frequencies", {"A", "--chart"}, "unknown option \"--chart\""},
      {"frequencies", {"A", "-x"}, "unknown option \"-x\""},
      {"frequencies", {"A", "--dispersion=no"}, "--dispersion takes no value"},
      {"frequencies", {"A", "--dispersion", "--dispersion"}, "--dispersion is given twice"},
      {"control", {"A", "--gt"}, "--gt needs a value"},
      {"control", {"A", "--gt", "1", "--gt", "2"}, "--gt is given twice"},
      {"new", {"--x"}, "unknown option \"--x\""},
      // The first of two errors.
      {"frequencies", {"--dispersion=no", "--chart"}, "--dispersion takes no value"},
  };
  for (const Case& c : cases) EXPECT_EQ(ParseFor(c.command, c.line).error, c.error) << c.error;
}

// A beginning is no name: a script that holds one would mean something else, or nothing, once a command learns another
// option.
TEST(ParseWords, AnUnknownOptionIsToldWithTheNearestName) {
  EXPECT_EQ(ParseFor("frequencies", {"A", "--disp"}).error,
            "unknown option \"--disp\"; the nearest is \"--dispersion\"");
  EXPECT_EQ(ParseFor("frequencies", {"A", "--dispresion"}).error,
            "unknown option \"--dispresion\"; the nearest is \"--dispersion\"");
  EXPECT_EQ(ParseFor("control", {"A", "-gt", "5"}).error, "unknown option \"-gt\"; the nearest is \"--gt\"");
  EXPECT_EQ(ParseFor("list", {"A", "--mx=5"}).error, "unknown option \"--mx=5\"; the nearest is \"--max\"");
}

TEST(ParseWords, ABeginningOfSeveralOptionsNamesThem) {
  EXPECT_EQ(ParseFor("regression", {"A", "--s"}).error,
            "unknown option \"--s\"; there are \"--summary\" and \"--save-residuals\"");
  EXPECT_EQ(ParseFor("regression", {"A", "--su"}).error, "unknown option \"--su\"; the nearest is \"--summary\"");
}

TEST(ParseWords, AnOptionOfTwoValues) {
  const CommandWords words = ParseFor("t-test", {"AGE", "--groups", "-1", "[b]", "by", "SEX"});
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.Value("--groups"), "-1");
  EXPECT_EQ(words.SecondValue("--groups"), "[b]");
  EXPECT_EQ(words.words, (Words{"AGE", "by", "SEX"}));
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "-1", "-.5", "by", "SEX"}).SecondValue("--groups"), "-.5");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "a", "-b", "by", "SEX"}).SecondValue("--groups"), "-b");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups=a", "-b", "by", "SEX"}).SecondValue("--groups"), "-b");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "1", "2", "-b"}).error, "unknown option \"-b\"");
  EXPECT_FALSE(ParseFor("t-test", {"AGE"}).SecondValue("--groups"));
  EXPECT_EQ(ParseFor("t-test", {"AGE", "by", "SEX", "--groups"}).error, "--groups needs two values");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "by", "SEX", "--groups", "1"}).error, "--groups needs two values");
  EXPECT_EQ(ParseFor("t-test", {"AGE", "--groups", "1", "--", "2"}).error, "--groups needs two values");
  EXPECT_EQ(ParseFor("t-test", {"A", "--groups", "1", "2", "--groups", "1", "2"}).error, "--groups is given twice");
  EXPECT_EQ(ParseFor("t-test", {"A", "--groups", "1", "--groups", "2"}).error, "--groups is given twice");
}

TEST(ParseWords, AnOptionThatMayBeRepeatedKeepsTheOrder) {
  const CommandWords words = ParseFormat({"AGE", "--missing", "9", "--label", "x", "--missing=-1", "--missing", ""});
  EXPECT_EQ(words.error, "");
  EXPECT_EQ(words.Values("--missing"), (Words{"9", "-1", ""}));
  EXPECT_EQ(words.Value("--missing"), "9");
  EXPECT_EQ(words.Values("--page"), Words{});
  EXPECT_EQ(ParseFormat({"--label", "x", "--label", "y"}).error, "--label is given twice");
}

TEST(ParseWords, APossibleValueIsNoOption) {
  EXPECT_EQ(ParseFormat({"--page", "a", "b"}).Value("--page"), "a");
  EXPECT_EQ(ParseFormat({"--page", "a", "b"}).words, Words{"b"});
  EXPECT_EQ(ParseFormat({"--page", "--label", "x"}).Value("--page"), "");
  EXPECT_EQ(ParseFormat({"--page", "--label", "x"}).Value("--label"), "x");
  EXPECT_EQ(ParseFormat({"--page", "--", "x"}).Value("--page"), "");
  EXPECT_EQ(ParseFormat({"--page=", "x"}).words, Words{"x"});
  EXPECT_EQ(ParseFormat({"x", "--page"}).Value("--page"), "");
}

TEST(ParseWords, AShortNameStandsAheadOfItsValue) {
  EXPECT_EQ(ParseFormat({"-p", "a"}).Value("--page"), "a");
  EXPECT_EQ(ParseFormat({"-pa"}).Value("--page"), "a");
  EXPECT_EQ(ParseFormat({"-p", "a", "--page", "b"}).error, "--page is given twice");
}

TEST(ParseWords, OfALineOfManyWordsEachIsKept) {
  constexpr std::size_t kWords = 100000;
  Words line;
  for (std::size_t i = 0; i < kWords; ++i) {
    line.push_back("--missing");
    line.push_back(std::to_string(i));
    line.push_back("V" + std::to_string(i));
  }
  const CommandWords words = ParseFormat(line);
  EXPECT_EQ(words.error, "");
  ASSERT_EQ(words.words.size(), kWords);
  EXPECT_EQ(words.words.back(), "V99999");
  EXPECT_EQ(words.Values("--missing").size(), kWords);
}

}  // namespace
}  // namespace tessara
