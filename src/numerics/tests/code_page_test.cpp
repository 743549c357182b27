#include "numerics/code_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessara {
namespace {

struct BytesAndUtf8 {
  std::string bytes;
  std::string utf8;
};

// The second half of the code page, as its published table has it.
const std::vector<BytesAndUtf8> kCharacters = {
    {"\x80", "\u20AC"}, {"\x82", "\u201A"}, {"\x83", "\u0192"}, {"\x84", "\u201E"}, {"\x85", "\u2026"},
    {"\x86", "\u2020"}, {"\x87", "\u2021"}, {"\x88", "\u02C6"}, {"\x89", "\u2030"}, {"\x8A", "\u0160"},
    {"\x8B", "\u2039"}, {"\x8C", "\u0152"}, {"\x8E", "\u017D"}, {"\x91", "\u2018"}, {"\x92", "\u2019"},
    {"\x93", "\u201C"}, {"\x94", "\u201D"}, {"\x95", "\u2022"}, {"\x96", "\u2013"}, {"\x97", "\u2014"},
    {"\x98", "\u02DC"}, {"\x99", "\u2122"}, {"\x9A", "\u0161"}, {"\x9B", "\u203A"}, {"\x9C", "\u0153"},
    {"\x9E", "\u017E"}, {"\x9F", "\u0178"}, {"\xA0", "\u00A0"}, {"\xB5", "\u00B5"}, {"\xC4", "\u00C4"},
    {"\xDF", "\u00DF"}, {"\xE9", "\u00E9"}, {"\xFF", "\u00FF"}};

TEST(CodePage, CharactersBothWays) {
  for (const auto& [bytes, utf8] : kCharacters) {
    EXPECT_EQ(ToUtf8(bytes), utf8);
    EXPECT_EQ(FromUtf8(utf8), bytes);
  }
}

TEST(CodePage, UnassignedBytesKeepTheirNumber) {
  const std::vector<BytesAndUtf8> cases = {
      {"\x81", "\xC2\x81"}, {"\x8D", "\xC2\x8D"}, {"\x8F", "\xC2\x8F"}, {"\x90", "\xC2\x90"}, {"\x9D", "\xC2\x9D"}};
  for (const auto& [bytes, utf8] : cases) {
    EXPECT_EQ(ToUtf8(bytes), utf8);
    EXPECT_EQ(FromUtf8(utf8), bytes);
  }
}

TEST(CodePage, EveryByteSurvivesTheWayThereAndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
  EXPECT_TRUE(IsUtf8(ToUtf8(all)));
}

TEST(CodePage, AMixedTextOfAnyAlignment) {
  for (std::size_t lead = 0; lead < 20; ++lead) {
    const std::string ascii(lead, 'x');
    EXPECT_EQ(ToUtf8(ascii + "\xE9" + ascii), ascii + "\u00E9" + ascii);
    EXPECT_EQ(FromUtf8(ascii + "\u20AC" + ascii), ascii + "\x80" + ascii);
    EXPECT_EQ(FromUtf8(ascii), ascii);
  }
}

TEST(CodePage, ACharacterThatItLacksBecomesAQuestionMark) {
  EXPECT_EQ(FromUtf8("a\u03B1b"), "a?b");
  EXPECT_EQ(FromUtf8("\u4E2D\u6587"), "??");
  EXPECT_EQ(FromUtf8("\U0001F600"), "?");
  EXPECT_EQ(FromUtf8("\u0080"), "?");  // a control character that none of its bytes stands for
  EXPECT_EQ(FromUtf8("\uFFFD"), "?");
}

TEST(CodePage, AMalformedSequenceBecomesOneQuestionMark) {
  EXPECT_EQ(FromUtf8("a\xE2\x82"), "a?");    // cut off at the end
  EXPECT_EQ(FromUtf8("a\xE2\x82z"), "a?z");  // cut off by another character
  EXPECT_EQ(FromUtf8("\x80z"), "?z");        // a continuation alone
  EXPECT_EQ(FromUtf8("\xFFz"), "?z");        // never a leading byte
  EXPECT_EQ(FromUtf8("\xE9t\xE9"), "?t?");   // code page text taken for UTF-8
  EXPECT_EQ(FromUtf8("\xF0\x9F\x98z"), "?z");
}

TEST(Utf8, WellFormed) {
  for (const char* text :
       {"", "plain", "\u00E9", "\u20AC", "\uFFFF", "\U00010000", "\U0010FFFF", "\uD7FF", "\uE000", "\x7F"}) {
    EXPECT_TRUE(IsUtf8(text)) << text;
  }
}

TEST(Utf8, NotWellFormed) {
  const std::vector<std::string> texts = {"\x80",              // a continuation alone
                                          "\xC0\x80",          // overlong in two bytes
                                          "\xC1\xBF",          //
                                          "\xE0\x9F\xBF",      // overlong in three
                                          "\xF0\x8F\xBF\xBF",  // overlong in four
                                          "\xED\xA0\x80",      // a surrogate
                                          "\xED\xBF\xBF",      //
                                          "\xF4\x90\x80\x80",  // above U+10FFFF
                                          "\xF5\x80\x80\x80",  //
                                          "\xFE",
                                          "\xFF",  //
                                          "\xC3",  // cut off
                                          "\xE2\x82",
                                          "\xF0\x9F\x98",
                                          "\xC3z",
                                          "\xE2\x82z",
                                          "\xF0\x9F\x98z",
                                          "a long text, and its last byte is wrong \xE9"};
  for (const std::string& text : texts) EXPECT_FALSE(IsUtf8(text)) << text;
}

TEST(TextFile, AByteOrderMarkMeansUtf8) {
  EXPECT_EQ(FromTextFile("\xEF\xBB\xBF"
                         "caf\u00E9"),
            "caf\xE9");
  EXPECT_EQ(FromTextFile("\xEF\xBB\xBF"), "");
  EXPECT_EQ(FromTextFile("\xEF\xBB\xBF"
                         "caf\xE9"),
            "caf?");
}

TEST(TextFile, WellFormedUtf8IsConverted) { EXPECT_EQ(FromTextFile("5 \u20AC, caf\u00E9"), "5 \x80, caf\xE9"); }

TEST(TextFile, AnyOtherIsTakenByteForByte) {
  EXPECT_EQ(FromTextFile("caf\xE9"), "caf\xE9");
  EXPECT_EQ(FromTextFile("caf\u00E9 caf\xE9"), "caf\xC3\xA9 caf\xE9");
  EXPECT_EQ(FromTextFile("plain\r\ntext\n"), "plain\r\ntext\n");
  EXPECT_EQ(FromTextFile(std::string_view("a\0b", 3)), std::string("a\0b", 3));
  EXPECT_EQ(FromTextFile(""), "");
}

}  // namespace
}  // namespace tessara
