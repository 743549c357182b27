#include "numerics/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace tessara {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kLacking = '?';

// Bytes 80 to 9F. All others stand for the character of the same number.
constexpr std::size_t kFirstOwn = 0x80;
constexpr std::array<char16_t, 32> kOwnCharacters = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

// The number of leading bytes below 128, eight at a time.
std::size_t AsciiLength(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t i = 0;
  for (std::uint64_t eight = 0; i + sizeof eight <= text.size(); i += sizeof eight) {
    std::memcpy(&eight, text.data() + i, sizeof eight);
    if ((eight & kHighBits) != 0) break;
  }
  while (i < text.size() && Byte(text[i]) < 0x80) ++i;
  return i;
}

void AppendUtf8(char16_t character, std::string& out) {
  constexpr unsigned kContinuation = 0x80, kPayload = 0x3F;
  if (character >= 0x800) {
    out += static_cast<char>(0xE0 | character >> 12);
    out += static_cast<char>(kContinuation | (character >> 6 & kPayload));
  } else {
    out += static_cast<char>(0xC0 | character >> 6);
  }
  out += static_cast<char>(kContinuation | (character & kPayload));
}

char ByteOf(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
  const auto own = std::find(kOwnCharacters.begin(), kOwnCharacters.end(), character);
  if (own == kOwnCharacters.end()) return kLacking;
  return static_cast<char>(kFirstOwn + static_cast<std::size_t>(own - kOwnCharacters.begin()));
}

// One step through UTF-8: a character, or nothing for a malformed stretch, and the bytes that it takes.
struct Utf8Step {
  std::optional<char32_t> character;
  std::size_t length;
};

// What a leading byte announces: how many bytes follow, and what the first of them may be. The bounds keep out overlong
// forms (E0, F0), surrogates (ED) and what is above U+10FFFF (F4).
struct Utf8Lead {
  std::size_t following = 0;
  unsigned char lowest_second = 0x80;
  unsigned char highest_second = 0xBF;
};

Utf8Lead ReadLead(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {.following = 1};
  if (lead == 0xE0) return {.following = 2, .lowest_second = 0xA0};
  if (lead == 0xED) return {.following = 2, .highest_second = 0x9F};
  if (lead >= 0xE1 && lead <= 0xEF) return {.following = 2};
  if (lead == 0xF0) return {.following = 3, .lowest_second = 0x90};
  if (lead == 0xF4) return {.following = 3, .highest_second = 0x8F};
  if (lead >= 0xF1 && lead <= 0xF3) return {.following = 3};
  return {};
}

// Reads at the start of a text that is not empty. A malformed stretch is the longest start of a well-formed sequence,
// at least one byte.
Utf8Step ReadUtf8(std::string_view text) {
  const unsigned char first = Byte(text[0]);
  if (first < 0x80) return {first, 1};
  const Utf8Lead lead = ReadLead(first);
  if (lead.following == 0) return {std::nullopt, 1};
  char32_t character = first & (0x3Fu >> lead.following);
  for (std::size_t i = 1; i <= lead.following; ++i) {
    const unsigned char lowest = i == 1 ? lead.lowest_second : 0x80;
    const unsigned char highest = i == 1 ? lead.highest_second : 0xBF;
    if (i == text.size() || Byte(text[i]) < lowest || Byte(text[i]) > highest) return {std::nullopt, i};
    character = character << 6 | (Byte(text[i]) & 0x3Fu);
  }
  return {character, lead.following + 1};
}

}  // namespace

std::string ToUtf8(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  while (true) {
    const std::size_t ascii = AsciiLength(bytes);
    utf8.append(bytes.substr(0, ascii));
    if (ascii == bytes.size()) return utf8;
    const unsigned char byte = Byte(bytes[ascii]);
    AppendUtf8(byte < kFirstOwn + kOwnCharacters.size() ? kOwnCharacters[byte - kFirstOwn] : byte, utf8);
    bytes.remove_prefix(ascii + 1);
  }
}

std::string FromUtf8(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (true) {
    const std::size_t ascii = AsciiLength(utf8);
    bytes.append(utf8.substr(0, ascii));
    if (ascii == utf8.size()) return bytes;
    utf8.remove_prefix(ascii);
    const Utf8Step step = ReadUtf8(utf8);
    bytes += step.character ? ByteOf(*step.character) : kLacking;
    utf8.remove_prefix(step.length);
  }
}

bool IsUtf8(std::string_view text) {
  while (true) {
    text.remove_prefix(AsciiLength(text));
    if (text.empty()) return true;
    const Utf8Step step = ReadUtf8(text);
    if (!step.character) return false;
    text.remove_prefix(step.length);
  }
}

std::string FromTextFile(std::string_view content) {
  if (content.starts_with(kByteOrderMark)) return FromUtf8(content.substr(kByteOrderMark.size()));
  return IsUtf8(content) ? FromUtf8(content) : std::string(content);
}

}  // namespace tessara
