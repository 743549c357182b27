#pragma once

#include <string>
#include <string_view>

namespace tessara {

// A text with CR LF at each line end, from one with LF.
inline std::string CrLf(std::string_view text) {
  std::string lines;
  for (const char c : text) {
    if (c == '\n') lines += '\r';
    lines += c;
  }
  return lines;
}

}  // namespace tessara
