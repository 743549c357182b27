#include "batch/visible_text.h"

#include "numerics/code_page.h"

namespace tessara {
namespace {

constexpr unsigned char kDelete = 0x7F;
constexpr std::string_view kDeletePicture = "\xE2\x90\xA1";  // U+2421
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";    // U+FFFD; no pictures stand for the controls above DEL

bool IsObeyed(unsigned char byte) { return (byte < 0x20 && byte != '\t' && byte != '\n') || byte == kDelete; }

// U+0080 to U+009F, two bytes.
bool IsHighControl(std::string_view text, std::size_t at) {
  return text[at] == '\xC2' && at + 1 < text.size() && static_cast<unsigned char>(text[at + 1]) < 0xA0;
}

// U+2400 and on: a picture for each control character below the blank.
std::string Picture(unsigned char byte) {
  if (byte == kDelete) return std::string(kDeletePicture);
  return {'\xE2', '\x90', static_cast<char>(0x80 + byte)};
}

}  // namespace

std::string TerminalText(std::string_view held_text) {
  std::string text = ToUtf8(held_text);
  std::size_t kept = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    text[kept++] = text[i];
  }
  text.resize(kept);
  return text;
}

std::string WithVisibleControls(std::string_view text) {
  std::string converted;
  if (!IsUtf8(text)) {
    converted = ToUtf8(text);
    text = converted;
  }
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (IsObeyed(byte)) {
      result += Picture(byte);
    } else if (IsHighControl(text, i)) {
      result += kReplacement;
      ++i;
    } else {
      result += text[i];
    }
  }
  return result;
}

}  // namespace tessara
