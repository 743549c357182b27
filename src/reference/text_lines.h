#pragma once

#include <string_view>

namespace tessara {

// A line without its end, CR LF or LF alone, taken from the front of a text.
inline std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace tessara
