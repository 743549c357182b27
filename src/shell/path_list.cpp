#include "shell/path_list.h"

#include <charconv>

#include "platform/files.h"

namespace tessara {
namespace {

constexpr char kBetween = '\n';
constexpr char kMark = '%';

bool StandsAsItIs(char c) { return c >= ' ' && c <= '~' && c != kMark; }

void AppendByte(std::string& text, char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  text += kMark;
  text += kDigits[value / 16];
  text += kDigits[value % 16];
}

// The byte that two hexadecimal digits behind a mark stand for; nothing when they are none.
bool ReadByte(std::string_view digits, char& byte) {
  unsigned value = 0;
  if (digits.size() < 2) return false;
  const auto result = std::from_chars(digits.data(), digits.data() + 2, value, 16);
  if (result.ptr != digits.data() + 2) return false;
  byte = static_cast<char>(value);
  return true;
}

std::string PathOfLine(std::string_view line) {
  std::string path;
  for (std::size_t i = 0; i < line.size(); ++i) {
    char byte = line[i];
    if (byte == kMark && ReadByte(line.substr(i + 1), byte)) i += 2;
    path += byte;
  }
  return path;
}

}  // namespace

std::string PathListText(const std::vector<Path>& paths) {
  std::string text;
  for (const Path& path : paths) {
    if (!text.empty()) text += kBetween;
    for (const char byte : PathToUtf8(path)) {
      if (StandsAsItIs(byte)) {
        text += byte;
      } else {
        AppendByte(text, byte);
      }
    }
  }
  return text;
}

std::vector<Path> PathsOfList(std::string_view text) {
  std::vector<Path> paths;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find(kBetween));
    if (!line.empty()) paths.push_back(PathFromUtf8(PathOfLine(line)));
    text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
  }
  return paths;
}

}  // namespace tessara
