#include "batch/words/script_line.h"

#include <utility>

#include "numerics/code_page.h"

namespace tessara {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLongestQuotation = 60;

bool IsContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

std::optional<std::vector<std::string>> SplitWords(std::string_view line) {
  std::vector<std::string> words;
  bool in_word = false;
  bool in_quotes = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (!in_quotes && c == ' ') {
      in_word = false;
      continue;
    }
    if (!in_word) {
      words.emplace_back();
      in_word = true;
    }
    if (c != '"') {
      words.back().push_back(c);
    } else if (in_quotes && i + 1 < line.size() && line[i + 1] == '"') {
      words.back().push_back('"');
      ++i;
    } else {
      in_quotes = !in_quotes;
    }
  }
  if (in_quotes) return std::nullopt;
  return words;
}

bool IsSilentLine(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  return first == std::string_view::npos || line[first] == '#';
}

std::string DecodeScript(std::string content) {
  if (!IsUtf8(content)) return ToUtf8(content);
  if (content.starts_with(kByteOrderMark)) content.erase(0, kByteOrderMark.size());
  return content;
}

std::optional<std::string_view> ScriptLines::Next() {
  if (rest_.empty()) return std::nullopt;
  const std::size_t end = rest_.find('\n');
  std::string_view line = rest_.substr(0, end);
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  ++number_;
  return line;
}

std::string HeldText(std::string_view word) { return IsUtf8(word) ? FromUtf8(word) : std::string(word); }

std::string WithBoxLineEnds(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    if (text[i] == '\r' || text[i] == '\n') {
      result += "\r\n";
    } else {
      result += text[i];
    }
  }
  return result;
}

bool IsPossiblePath(std::string_view word) { return !word.empty() && word.find('\0') == std::string_view::npos; }

std::string Quoted(std::string_view word) {
  std::string text = IsUtf8(word) ? std::string(word) : ToUtf8(word);
  if (text.size() > kLongestQuotation) {
    std::size_t cut = kLongestQuotation;
    while (cut > 0 && IsContinuationByte(text[cut])) --cut;
    text.resize(cut);
    text += "...";
  }
  return "\"" + text + "\"";
}

}  // namespace tessara
