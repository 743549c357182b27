#pragma once

#include <string>
#include <string_view>
#include <vector>

// A data file taken apart without any speed: what the index of the loaded text has to agree with.

namespace tessara {

inline std::vector<std::string> NaiveFields(std::string_view line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c == '\x01') {
      fields.emplace_back();
    } else {
      fields.back().push_back(c);
    }
  }
  return fields;
}

// Lines end in LF or CR LF; the last one may have no line end, and then keeps a CR at its end.
inline std::vector<std::vector<std::string>> NaiveSplit(std::string_view text) {
  std::vector<std::vector<std::string>> lines;
  std::string line;
  for (const char c : text) {
    if (c != '\n') {
      line.push_back(c);
      continue;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(NaiveFields(line));
    line.clear();
  }
  if (!line.empty()) lines.push_back(NaiveFields(line));
  return lines;
}

}  // namespace tessara
