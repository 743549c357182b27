#pragma once

#include <string>
#include <string_view>
#include <vector>

// A delimited text taken apart step by step, without any speed: what an import has to agree with.

namespace tessara {

inline std::string NaiveReplaced(const std::string& text, const std::string& find, const std::string& replacement) {
  std::string result;
  std::size_t at = 0;
  for (std::size_t found; !find.empty() && (found = text.find(find, at)) != std::string::npos;
       at = found + find.size()) {
    result += text.substr(at, found - at) + replacement;
  }
  return result + text.substr(at);
}

inline std::string NaiveTrimmed(std::string text) {
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

inline std::string NaiveSquashed(const std::string& text) {
  std::string squashed = NaiveTrimmed(text);
  for (const int run : {10, 5, 4, 3, 2}) squashed = NaiveReplaced(squashed, std::string(run, ' '), " ");
  return NaiveReplaced(squashed, " \r\n", "\r\n");
}

// Lines end in LF or CR LF; a line end behind the last line opens no further one.
inline std::vector<std::string> NaiveLines(std::string_view text) {
  std::vector<std::string> lines;
  std::string line;
  for (const char c : text) {
    if (c != '\n') {
      line += c;
      continue;
    }
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
    line.clear();
  }
  if (!line.empty()) lines.push_back(line);
  return lines;
}

// The line as it stands ahead of its splitting.
inline std::string NaiveCleaned(std::string line, const std::string& delimiter) {
  line = NaiveTrimmed(line);
  if (delimiter != ",") line = NaiveReplaced(line, ",", "");
  if (delimiter == " ") line = NaiveSquashed(line);
  return NaiveReplaced(NaiveReplaced(line, "$", ""), "%", "");
}

inline std::vector<std::string> NaiveFieldsOf(const std::string& line, const std::string& delimiter) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  for (std::size_t found; !delimiter.empty() && (found = line.find(delimiter, at)) != std::string::npos;
       at = found + delimiter.size()) {
    fields.push_back(line.substr(at, found - at));
  }
  fields.push_back(line.substr(at));
  return fields;
}

// The fields of each line; a separator of data files in the text is a blank, unless it is the delimiter.
inline std::vector<std::vector<std::string>> NaiveImport(const std::string& text, std::string delimiter) {
  if (delimiter.size() > 1) delimiter = NaiveReplaced(delimiter, "\x01", " ");
  std::vector<std::vector<std::string>> records;
  for (std::string line : NaiveLines(text)) {
    if (delimiter != "\x01") line = NaiveReplaced(line, "\x01", " ");
    records.push_back(NaiveFieldsOf(NaiveCleaned(line, delimiter), delimiter));
  }
  return records;
}

}  // namespace tessara
