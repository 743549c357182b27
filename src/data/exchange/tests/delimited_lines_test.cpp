#include "data/exchange/delimited_lines.h"

#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "data/exchange/tests/naive_import.h"

namespace tessara {
namespace {

using namespace std::string_literals;

FileBytes BytesOf(std::string_view text) {
  auto bytes = FileBytes::Allocate(text.size());
  EXPECT_TRUE(bytes.has_value());
  if (!text.empty()) std::memcpy(bytes->data(), text.data(), text.size());
  return std::move(*bytes);
}

// Separators are written as '~' here.
std::string Cleaned(std::string_view text, std::string_view delimiter) {
  FileBytes bytes = BytesOf(text);
  CleanLines(bytes, delimiter);
  return NaiveReplaced(std::string(bytes.text()), "\x01", "~");
}

std::string Converted(std::string_view text) {
  FileBytes bytes = BytesOf(text);
  ConvertTextFile(bytes);
  return std::string(bytes.text());
}

// Blanks squashed.

TEST(SquashBlanks, TheEndsAreTrimmedAndShortRunsAreOneBlank) {
  EXPECT_EQ(SquashBlanks("   a  b   c    d     e  "), "a b c d e");
  EXPECT_EQ(SquashBlanks(""), "");
  EXPECT_EQ(SquashBlanks("    "), "");
  EXPECT_EQ(SquashBlanks("\t a"), "\t a");  // a tab is no blank
}

TEST(SquashBlanks, AVeryLongRunStillLeavesTwo) {
  // 309 blanks: 30 tens and 9 are 39; 7 fives and 4 are 11; 2 fours and 3 are 5; 1 three and 2 are 3; 1 two and 1
  // are 2.
  EXPECT_EQ(SquashBlanks("a" + std::string(309, ' ') + "b"), "a  b");
  // 308: 30 tens and 8 are 38; 7 fives and 3 are 10; 2 fours and 2 are 4; 1 three and 1 are 2; 1 two is 1.
  EXPECT_EQ(SquashBlanks("a" + std::string(308, ' ') + "b"), "a b");
}

TEST(SquashBlanks, EveryRunIsThatOfThePassesInTheirOrder) {
  for (std::size_t run = 0; run < 2500; ++run) {
    const std::string text = "a" + std::string(run, ' ') + "b";
    ASSERT_EQ(SquashBlanks(text), NaiveSquashed(text)) << run;
  }
}

TEST(SquashBlanks, ABlankAheadOfALineEndGoes) {
  EXPECT_EQ(SquashBlanks("a   \r\nb \r\n  c"), "a\r\nb\r\n c");
  EXPECT_EQ(SquashBlanks("a \nb"), "a \nb");  // of CR LF alone
}

// Lines and delimiters.

TEST(DelimitedLines, ALineEndBehindTheLastLineOpensNone) {
  EXPECT_EQ(CountTextLines(""), 0u);
  EXPECT_EQ(CountTextLines("a"), 1u);
  EXPECT_EQ(CountTextLines("a\r\n"), 1u);
  EXPECT_EQ(CountTextLines("a\r\n\r\n"), 2u);
  EXPECT_EQ(CountTextLines("\n"), 1u);
  EXPECT_EQ(CountTextLines(std::string(1000, '\n')), 1000u);
  EXPECT_EQ(CountTextLines("x\ry"), 1u);  // a CR alone is no line end
}

TEST(DelimitedLines, DelimitersDoNotOverlap) {
  EXPECT_EQ(CountDelimiters("a,b,,c", ","), 3u);
  EXPECT_EQ(CountDelimiters("a:::b", "::"), 1u);
  EXPECT_EQ(CountDelimiters("abc", ""), 0u);
  EXPECT_EQ(CountDelimiters("", ","), 0u);
}

// The form that is split.

TEST(CleanLines, CommasGoUnlessTheyAreTheDelimiter) {
  EXPECT_EQ(Cleaned("1,234\t5\r\n", "\t"), "1234~5\r\n");
  EXPECT_EQ(Cleaned("1,234\t5\r\n", ","), "1~234\t5\r\n");
}

TEST(CleanLines, DollarAndPercentGoUnderEveryDelimiter) {
  for (const char* delimiter : {",", "\t", " ", ";", "ab", ""}) {
    EXPECT_EQ(Cleaned("$5.00", delimiter), "5.00");
    EXPECT_EQ(Cleaned("12%", delimiter), "12");
  }
  EXPECT_EQ(Cleaned("a$b$c", "$"), "abc");  // ahead of the splitting, so that nothing is split at it
}

TEST(CleanLines, OnlyTheLineIsTrimmedAndNotItsFields) {
  EXPECT_EQ(Cleaned("  a , b  \r\n   c,d   \n", ","), "a ~ b\r\nc~d\n");
  EXPECT_EQ(Cleaned("$ 5,6", ","), " 5~6");  // the trimming comes first
}

TEST(CleanLines, ABlankAsTheDelimiterIsSquashedFirst) {
  EXPECT_EQ(Cleaned("1    2", " "), "1~2");
  EXPECT_EQ(Cleaned("1 $ 2", " "), "1~~2");  // the sign goes behind the squashing
  EXPECT_EQ(Cleaned("1 , 2", " "), "1~2");   // the comma ahead of it
  EXPECT_EQ(Cleaned(", 1 2", " "), "1~2");   // and the squashing trims once more
  EXPECT_EQ(Cleaned("1    2", "\t"), "1    2");
}

TEST(CleanLines, ADelimiterOfSeveralCharactersIsOneSeparator) {
  EXPECT_EQ(Cleaned("a::b:::c::\n::\n", "::"), "a~b~:c~\n~\n");
  EXPECT_EQ(Cleaned("a;,b", ";,"), "a;b");  // the comma went ahead of the splitting
}

TEST(CleanLines, QuotesStayAndHoldNothingTogether) { EXPECT_EQ(Cleaned("\"a,b\",c", ","), "\"a~b\"~c"); }

TEST(CleanLines, ASeparatorInTheTextIsABlank) {
  EXPECT_EQ(Cleaned("a\x01"
                    "b,c\n\x01"
                    "d,e\x01\n",
                    ","),
            "a b~c\nd~e\n");
  EXPECT_EQ(Cleaned("a\x01"
                    "b",
                    "\x01"),
            "a~b");  // as the delimiter it is one
}

TEST(CleanLines, ACrWithinALineBelongsToIt) {
  EXPECT_EQ(Cleaned("a\rb\n", ","), "a\rb\n");
  EXPECT_EQ(Cleaned("a\r\r\n", ","), "a\r\r\n");
  EXPECT_EQ(Cleaned("a\r \nb\r$\nc", ","), "a\r\r\nb\r\r\nc");  // what stood behind it has gone, and it stays
  EXPECT_EQ(Cleaned("a\r", ","), "a\r");
  EXPECT_EQ(Cleaned("a\r\nb\r\n", "\r"), "a\r\nb\r\n");  // that of a line end is no delimiter
  EXPECT_EQ(Cleaned("a\nb\n", "\n"), "a\nb\n");
}

TEST(CleanLines, NoLineIsLost) {
  EXPECT_EQ(Cleaned("a\n   ", ","), "a\n\n");  // the last one has nothing left but keeps its place
  EXPECT_EQ(Cleaned("a\n$", "\t"), "a\n\n");
  EXPECT_EQ(Cleaned("", ","), "");
  EXPECT_EQ(Cleaned("a\n\0b,c\n"s, ","), "a\n\0b~c\n"s);
}

TEST(CleanLines, AgreesWithTheStepsOneByOneOnRandomTexts) {
  std::mt19937 random(7);
  const std::string letters = "ab,,;; \t\t$%\r\n\n\x01:";
  for (int round = 0; round < 3000; ++round) {
    std::string text;
    for (std::size_t length = random() % 120; length > 0; --length) text += letters[random() % letters.size()];
    for (const std::string delimiter : {",", "\t", " ", ";", "$", "::", ", ", "\x01", "\r", ""}) {
      FileBytes bytes = BytesOf(text);
      CleanLines(bytes, delimiter);
      const auto records = NaiveImport(text, delimiter);
      std::vector<std::vector<std::string>> found;
      for (const std::string& line : NaiveLines(bytes.text())) found.push_back(NaiveFieldsOf(line, "\x01"));
      ASSERT_EQ(found, records) << "delimiter " << delimiter << " text " << text;
      ASSERT_EQ(CountTextLines(text), records.size());
    }
  }
}

TEST(CleanLines, LongTextsAreCleanedPieceByPiece) {
  // Pieces without anything to clean stand between others that have, at every distance from a piece's end.
  std::string text;
  std::string expected;
  for (int line = 0; line < 30000; ++line) {
    const bool money = line % 4999 == 17;
    text += std::to_string(line) + (money ? ",$5%\r\n" : ",5\r\n");
    expected += std::to_string(line) + "~5\r\n";
  }
  std::size_t progress = 0;
  FileBytes bytes = BytesOf(text);
  CleanLines(bytes, ",", [&](std::size_t done) { progress += done; });
  EXPECT_EQ(NaiveReplaced(std::string(bytes.text()), "\x01", "~"), expected);
  EXPECT_EQ(progress, text.size());
}

// The code page.

TEST(ConvertTextFile, Utf8IsConvertedWithAMarkOrWithout) {
  EXPECT_EQ(Converted("K\xC3\xB6ln,\xE2\x82\xAC"), "K\xF6ln,\x80");
  EXPECT_EQ(Converted("\xEF\xBB\xBF"
                      "a,b"),
            "a,b");
  EXPECT_EQ(Converted("\xEF\xBB\xBF"
                      "a\xFF"),
            "a?");                             // behind a mark it is UTF-8, well-formed or not
  EXPECT_EQ(Converted("K\xF6ln"), "K\xF6ln");  // the code page as it stands
  EXPECT_EQ(Converted("\xC3\xB6 \xF6"), "\xC3\xB6 \xF6");
  EXPECT_EQ(Converted(""), "");
}

TEST(ConvertTextFile, NoCharacterIsCutWhereThePiecesMeet) {
  for (std::size_t ahead = 65530; ahead < 65540; ++ahead) {
    const std::string text = std::string(ahead, 'x') + "\xE2\x82\xAC\xC3\xB6" + std::string(70000, 'y');
    EXPECT_EQ(Converted(text), std::string(ahead, 'x') + "\x80\xF6" + std::string(70000, 'y'));
  }
}

}  // namespace
}  // namespace tessara
