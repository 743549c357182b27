#include "platform/settings_file.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <system_error>
#include <utility>

#include "platform/files.h"

namespace tessara {
namespace {

constexpr std::string_view kGroup = "[Software]";
constexpr std::string_view kPrefix = "Tessara5\\Options\\";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

// A letter behind a backslash, and what it stands for.
constexpr std::pair<char, char> kEscapes[] = {{'\\', '\\'}, {'"', '"'},  {'n', '\n'}, {'r', '\r'}, {'t', '\t'},
                                              {'a', '\a'},  {'b', '\b'}, {'f', '\f'}, {'v', '\v'}};

bool IsHexDigit(char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }

void AppendHex(std::string& text, char c) {
  const auto byte = static_cast<unsigned char>(c);
  text += kHexDigits[byte >> 4];
  text += kHexDigits[byte & 15];
}

void AppendUtf8(std::string& text, unsigned code) {
  const auto add = [&text](unsigned byte) { text += static_cast<char>(byte); };
  if (code < 0x80) return add(code);
  if (code < 0x800) {
    add(0xC0 | code >> 6);
  } else {
    add(0xE0 | (code >> 12 & 15));
    add(0x80 | (code >> 6 & 63));
  }
  add(0x80 | (code & 63));
}

// The lines of a text one after the other, each without its end.
class Lines {
 public:
  explicit Lines(std::string_view text) : text_(text) {}

  std::size_t at() const { return at_; }  // where the next line begins
  std::optional<std::string_view> Next() {
    if (at_ >= text_.size()) return std::nullopt;
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    std::string_view line = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

// Where a setting stands in the file, and where one would be put that is not there.
struct Place {
  std::size_t start = 0;
  std::size_t end = 0;  // the line end included; equal to start for a new line
  bool has_group = false;
  std::optional<std::string_view> written;  // the value as it stands
};

Place PlaceOf(std::string_view text, std::string_view key) {
  Place place{text.size(), text.size(), false, std::nullopt};
  Lines lines(text);
  bool in_group = false;
  for (std::size_t start = 0;; start = lines.at()) {
    const auto line = lines.Next();
    if (!line) return place;
    if (line->starts_with('[')) {
      in_group = *line == kGroup;
    } else if (in_group && line->starts_with(key) && line->substr(key.size()).starts_with('=')) {
      return {start, lines.at(), true, line->substr(key.size() + 1)};
    }
    if (in_group) place = {lines.at(), lines.at(), true, std::nullopt};
  }
}

std::string KeyOf(std::string_view name) { return std::string(kPrefix) + EscapedSettingName(name); }

}  // namespace

std::string EscapedSettingName(std::string_view name) {
  std::string escaped;
  for (const char c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || c == '.') {
      escaped += c;
    } else {
      escaped += '%';
      AppendHex(escaped, c);
    }
  }
  return escaped;
}

std::string QuotedSettingValue(std::string_view value) {
  std::string written = "\"";
  if (value.starts_with('@')) written += '@';  // a single one would announce something else than a text
  bool behind_hex = false;
  for (const char c : value) {
    const auto* escape = std::ranges::find(kEscapes, c, &std::pair<char, char>::second);
    if (escape != std::end(kEscapes)) {
      written += {'\\', escape->first};
      behind_hex = false;
    } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7F' || (behind_hex && IsHexDigit(c))) {
      written += "\\x";
      AppendHex(written, c);
      behind_hex = true;
    } else {
      written += c;
      behind_hex = false;
    }
  }
  return written + '"';
}

std::string SettingValue(std::string_view written) {
  while (written.starts_with(' ')) written.remove_prefix(1);
  while (written.ends_with(' ')) written.remove_suffix(1);
  std::string value;
  for (std::size_t i = 0; i < written.size(); ++i) {
    if (written[i] == '"') continue;
    if (written[i] != '\\' || i + 1 == written.size()) {
      value += written[i];
      continue;
    }
    const char letter = written[++i];
    const auto* escape = std::ranges::find(kEscapes, letter, &std::pair<char, char>::first);
    if (escape != std::end(kEscapes)) {
      value += escape->second;
    } else if (letter == 'x') {
      unsigned code = 0;
      const char* start = written.data() + i + 1;
      const auto result = std::from_chars(start, written.data() + written.size(), code, 16);
      AppendUtf8(value, code);
      i += static_cast<std::size_t>(result.ptr - start);
    } else {
      value += letter;
    }
  }
  if (value.starts_with("@@")) value.erase(0, 1);
  return value;
}

SettingsFile::SettingsFile(Path path) : path_(std::move(path)) {
  std::error_code error;
  if (!std::filesystem::exists(path_, error)) return;
  const auto bytes = ReadWholeFile(path_);
  readable_ = bytes.has_value();
  if (bytes) text_ = bytes->text();
}

bool SettingsFile::SectionExists() const {
  Lines lines(text_);
  bool in_group = false;
  while (const auto line = lines.Next()) {
    if (line->starts_with('[')) in_group = *line == kGroup;
    if (in_group && line->starts_with(kPrefix)) return true;
  }
  return false;
}

std::optional<std::string> SettingsFile::Read(const std::string& name) const {
  const Place place = PlaceOf(text_, KeyOf(name));
  if (!place.written) return std::nullopt;
  return SettingValue(*place.written);
}

bool SettingsFile::Write(const std::string& name, const std::string& value) {
  // Another program that runs may have written since.
  if (readable_) {
    if (const auto bytes = ReadWholeFile(path_)) text_ = bytes->text();
  }
  const std::string key = KeyOf(name);
  const Place place = PlaceOf(text_, key);
  std::string changed = text_.substr(0, place.start);
  if (!changed.empty() && !changed.ends_with('\n')) changed += '\n';
  if (!place.has_group) changed += std::string(kGroup) + '\n';
  changed += key + '=' + QuotedSettingValue(value) + '\n';
  changed += std::string_view(text_).substr(place.end);
  text_ = std::move(changed);
  if (!readable_) return false;
  std::error_code error;
  std::filesystem::create_directories(path_.parent_path(), error);
  return WriteWholeFile(path_, text_) == WriteResult::kWritten;
}

}  // namespace tessara
