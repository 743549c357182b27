#pragma once

#include <string_view>

namespace tessara {

// A text without its leading and trailing blanks (byte 32 alone).
inline std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace tessara
