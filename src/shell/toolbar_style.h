#pragma once

#include <span>
#include <string_view>

// The toolbar's styles, in the order of their numbers in Op6.

namespace tessara {

struct ToolbarStyle {
  std::string_view caption;
  int bar_theme = 0;      // how menu bar, toolbar and status bar are painted
  int heading_theme = 0;  // how the two headings of the help pane are
};

inline constexpr int kPaintThemes = 5;

std::span<const ToolbarStyle> ToolbarStyles();

}  // namespace tessara
