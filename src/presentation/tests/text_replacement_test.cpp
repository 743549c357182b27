#include "presentation/text_replacement.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tessara {
namespace {

std::string Replaced(std::string text, std::string_view find, std::string_view by) {
  ReplaceAll(text, Replacement{find, by});
  return text;
}

TEST(TextReplacement, ATextShrinksGrowsOrKeepsItsLength) {
  EXPECT_EQ(Replaced("a--b--", "--", "-"), "a-b-");
  EXPECT_EQ(Replaced("a-b-", "-", "+++"), "a+++b+++");
  EXPECT_EQ(Replaced("--", "-", "xyz"), "xyzxyz");
  EXPECT_EQ(Replaced("abcabc", "bc", "XY"), "aXYaXY");
  EXPECT_EQ(Replaced("abab", "ab", ""), "");
}

TEST(TextReplacement, WhatIsNotThereChangesNothing) {
  EXPECT_EQ(Replaced("", "-", "+++"), "");
  EXPECT_EQ(Replaced("abc", "-", "+++"), "abc");
}

// From left to right, and what was put in is not looked at again.
TEST(TextReplacement, OverlapsGoToTheFirstOne) {
  EXPECT_EQ(Replaced("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replaced("aaa", "aa", "aaaa"), "aaaaa");
  EXPECT_EQ(Replaced("ab", "a", "aa"), "aab");
}

TEST(TextReplacement, BytesOfEveryKindAreText) {
  const std::string text("\0-\x01-\xff", 5);
  EXPECT_EQ(Replaced(text, "-", "\t\t"), std::string("\0\t\t\x01\t\t\xff", 7));
}

TEST(TextReplacement, AgreesWithACopyOfTheTextOnRandomTexts) {
  std::mt19937 random(20261122);
  for (int round = 0; round < 2000; ++round) {
    std::string text;
    for (auto length = random() % 30; length > 0; --length) text += "ab-"[random() % 3];
    const std::string find = std::string(1 + random() % 2, "ab-"[random() % 3]);
    const std::string by(random() % 5, 'x');
    std::string wanted;
    for (std::size_t i = 0; i < text.size();) {
      const bool found = text.compare(i, find.size(), find) == 0;
      wanted += found ? by : text.substr(i, 1);
      i += found ? find.size() : 1;
    }
    ASSERT_EQ(Replaced(text, find, by), wanted) << text << " " << find << " " << by;
  }
}

}  // namespace
}  // namespace tessara
