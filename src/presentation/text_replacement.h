#pragma once

#include <span>
#include <string>
#include <string_view>

// Replacing in report texts: every step runs over the whole text, one after the other.

namespace tessara {

struct Replacement {
  std::string_view find;  // not empty
  std::string_view by;
};

// Replaces all occurrences from left to right; what was put in is not looked at again. Takes time for the text, and
// memory for what it grows by.
void ReplaceAll(std::string& text, const Replacement& step);

void ReplaceAll(std::string& text, std::span<const Replacement> steps);

}  // namespace tessara
