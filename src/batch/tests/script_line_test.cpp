#include "batch/words/script_line.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tessara {
namespace {

using Words = std::vector<std::string>;

struct SplitCase {
  std::string line;
  Words words;
};

TEST(SplitWords, OnlyBlanksSeparateAndQuotesHoldWordsTogether) {
  const std::vector<SplitCase> cases = {
      {"", {}},
      {"   ", {}},
      {"new", {"new"}},
      {"  frequencies   SEX  SMOKE ", {"frequencies", "SEX", "SMOKE"}},
      {"a\tb", {"a\tb"}},
      {"a\rb", {"a\rb"}},
      {"notes \"two words\"", {"notes", "two words"}},
      {"notes \"\"", {"notes", ""}},
      {"\"\"", {""}},
      {"a\"b c\"d e", {"ab cd", "e"}},
      {"\"a\"\"b\"", {"a\"b"}},
      {"\"\"\"\"", {"\""}},
      {"a\"\"b", {"ab"}},
      {"\"a b\"\"\"", {"a b\""}},
      {"\"a\" \"b\"", {"a", "b"}},
      {"--gt=\"4 0\"", {"--gt=4 0"}},
      {"K\xC3\xB6ln", {"K\xC3\xB6ln"}},
      {std::string("a\0b c", 5), {std::string("a\0b", 3), "c"}},
  };
  for (const SplitCase& c : cases) {
    const auto words = SplitWords(c.line);
    ASSERT_TRUE(words.has_value()) << c.line;
    EXPECT_EQ(*words, c.words) << c.line;
  }
}

TEST(SplitWords, AnOpenQuoteIsNotUnderstood) {
  for (const char* line : {"\"", "notes \"open", "a\"b\"\"", "\"\"\""}) EXPECT_FALSE(SplitWords(line)) << line;
}

TEST(SplitWords, ALineOfAMegabyteIsOneWord) {
  const std::string long_word(1 << 20, 'x');
  const auto words = SplitWords("notes " + long_word);
  ASSERT_TRUE(words.has_value());
  EXPECT_EQ(*words, (Words{"notes", long_word}));
}

TEST(IsSilentLine, EmptyLinesAndRemarksSayNothing) {
  EXPECT_TRUE(IsSilentLine(""));
  EXPECT_TRUE(IsSilentLine("  "));
  EXPECT_TRUE(IsSilentLine("# open survey.dcs"));
  EXPECT_TRUE(IsSilentLine("  # behind blanks"));
  EXPECT_FALSE(IsSilentLine("new # this is a word"));
  EXPECT_FALSE(IsSilentLine("\t"));
}

std::vector<std::string> AllLines(std::string_view text) {
  ScriptLines lines(text);
  std::vector<std::string> result;
  while (const auto line = lines.Next()) {
    result.push_back(std::to_string(lines.number()) + ":" + std::string(*line));
  }
  return result;
}

TEST(ScriptLines, EndsAreLfOrCrLfAndTheLastLineNeedsNone) {
  EXPECT_EQ(AllLines(""), Words{});
  EXPECT_EQ(AllLines("new"), Words{"1:new"});
  EXPECT_EQ(AllLines("new\n"), Words{"1:new"});
  EXPECT_EQ(AllLines("new\r\nsave\r\n"), (Words{"1:new", "2:save"}));
  EXPECT_EQ(AllLines("new\n\nsave\r\nlast"), (Words{"1:new", "2:", "3:save", "4:last"}));
  EXPECT_EQ(AllLines("a\rb\n"), Words{"1:a\rb"});
}

TEST(DecodeScript, IsUtf8OrElseTheCodePage) {
  EXPECT_EQ(DecodeScript("K\xC3\xB6ln"), "K\xC3\xB6ln");
  EXPECT_EQ(DecodeScript("K\xF6ln"), "K\xC3\xB6ln");
  EXPECT_EQ(DecodeScript("\xEF\xBB\xBFnew"), "new");
  // One byte that is no UTF-8 makes the whole script a text of the code page: C3 B6 is two characters then.
  EXPECT_EQ(DecodeScript("\xC3\xB6 \xF6"), "\xC3\x83\xC2\xB6 \xC3\xB6");
  EXPECT_EQ(DecodeScript(""), "");
}

TEST(HeldText, IsBytesOfTheCodePage) {
  EXPECT_EQ(HeldText("K\xC3\xB6ln"), "K\xF6ln");
  EXPECT_EQ(HeldText("\xE2\x82\xAC"), "\x80");
  EXPECT_EQ(HeldText("\xE4\xB8\xAD"), "?");
  EXPECT_EQ(HeldText("K\xF6ln"), "K\xF6ln");  // an argument that is not UTF-8 stands as it is
}

TEST(Quoted, LongWordsAreCutBetweenCharacters) {
  EXPECT_EQ(Quoted("SEX"), "\"SEX\"");
  EXPECT_EQ(Quoted(std::string(60, 'x')), "\"" + std::string(60, 'x') + "\"");
  EXPECT_EQ(Quoted(std::string(1000, 'x')), "\"" + std::string(60, 'x') + "...\"");
  // The character of two bytes at the cut goes whole.
  EXPECT_EQ(Quoted(std::string(59, 'x') + "\xC3\xB6yyyy"), "\"" + std::string(59, 'x') + "...\"");
}

TEST(IsPossiblePath, NeitherEmptyNorWithAZeroByte) {
  EXPECT_TRUE(IsPossiblePath("a b.dcs"));
  EXPECT_FALSE(IsPossiblePath(""));
  EXPECT_FALSE(IsPossiblePath(std::string_view("a.dcs\0b", 7)));
}

}  // namespace
}  // namespace tessara
