#include "batch/visible_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace tessara {
namespace {

TEST(TerminalText, IsUtf8WithLineFeeds) {
  EXPECT_EQ(TerminalText("K\xF6ln\r\nBern\r\n"), "K\xC3\xB6ln\nBern\n");
  EXPECT_EQ(TerminalText("a\rb\r\r\n"), "a\rb\r\n");
}

TEST(WithVisibleControls, TabsLineFeedsAndTextStand) {
  EXPECT_EQ(WithVisibleControls("K\xC3\xB6ln\t1\n\xE2\x82\xAC"), "K\xC3\xB6ln\t1\n\xE2\x82\xAC");
  EXPECT_EQ(WithVisibleControls(""), "");
}

// U+2400 and the number of the character; U+2421 for DEL.
TEST(WithVisibleControls, EachControlCharacterHasItsPicture) {
  EXPECT_EQ(WithVisibleControls("\x1B[31m"), "\xE2\x90\x9B[31m");
  EXPECT_EQ(WithVisibleControls("\r\f\b\a"), "\xE2\x90\x8D\xE2\x90\x8C\xE2\x90\x88\xE2\x90\x87");
  EXPECT_EQ(WithVisibleControls(std::string_view("\0\x01\x1F", 3)), "\xE2\x90\x80\xE2\x90\x81\xE2\x90\x9F");
  EXPECT_EQ(WithVisibleControls("\x7F"), "\xE2\x90\xA1");
}

// U+009B opens a sequence as ESC and [ do. U+00A0, the blank that does not break, is no control character.
TEST(WithVisibleControls, TheControlsAboveDelAreReplaced) {
  EXPECT_EQ(WithVisibleControls("\xC2\x9B"
                                "31m"),
            "\xEF\xBF\xBD"
            "31m");
  EXPECT_EQ(WithVisibleControls("\xC2\x80\xC2\x9F\xC2\xA0"), "\xEF\xBF\xBD\xEF\xBF\xBD\xC2\xA0");
  // The bytes of the code page that no character has become those controls on the way out.
  EXPECT_EQ(WithVisibleControls(TerminalText("\x9D")), "\xEF\xBF\xBD");
}

TEST(WithVisibleControls, WhatIsNotUtf8IsOfTheCodePage) {
  EXPECT_EQ(WithVisibleControls("K\xF6ln\x1B"), "K\xC3\xB6ln\xE2\x90\x9B");
  EXPECT_EQ(WithVisibleControls("\x9D"), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tessara
