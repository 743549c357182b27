#include "shell/toolbar_style.h"

#include <gtest/gtest.h>

#include <set>

namespace tessara {
namespace {

TEST(ToolbarStyles, HaveTheirCaptionsAndThePairsOfTheirThemes) {
  const auto styles = ToolbarStyles();
  ASSERT_EQ(styles.size(), 5u);
  const struct {
    const char* caption;
    int bars, headings;
  } expected[] = {
      {"Office 2003", 2, 2}, {"Office 2000", 0, 1}, {"Office XP", 1, 0}, {"Native Windows XP", 3, 4}, {"Whidbey", 4, 4},
  };
  for (std::size_t i = 0; i < styles.size(); ++i) {
    EXPECT_EQ(styles[i].caption, expected[i].caption);
    EXPECT_EQ(styles[i].bar_theme, expected[i].bars) << i;
    EXPECT_EQ(styles[i].heading_theme, expected[i].headings) << i;
  }
}

TEST(ToolbarStyles, NoTwoPaintTheirBarsAlike) {
  std::set<int> themes;
  for (const ToolbarStyle& style : ToolbarStyles()) {
    EXPECT_TRUE(themes.insert(style.bar_theme).second) << style.caption;
    EXPECT_GE(style.bar_theme, 0);
    EXPECT_LT(style.bar_theme, kPaintThemes);
    EXPECT_GE(style.heading_theme, 0);
    EXPECT_LT(style.heading_theme, kPaintThemes);
  }
}

}  // namespace
}  // namespace tessara
