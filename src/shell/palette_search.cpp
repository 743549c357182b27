#include "shell/palette_search.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessara {
namespace {

constexpr std::size_t kMostTyped = 200;  // bytes of a text that are looked for

// A byte of the code page as a search sees it.
constexpr std::array<char, 256> MakeFolding() {
  std::array<char, 256> folding{};
  folding.fill(' ');
  for (int c = '0'; c <= '9'; ++c) folding[static_cast<std::size_t>(c)] = static_cast<char>(c);
  for (int c = 'a'; c <= 'z'; ++c) {
    folding[static_cast<std::size_t>(c)] = static_cast<char>(c);
    folding[static_cast<std::size_t>(c - 'a' + 'A')] = static_cast<char>(c);
  }
  constexpr std::pair<int, char> kSingle[] = {{0x83, 'f'}, {0x8A, 's'}, {0x8C, 'o'}, {0x8E, 'z'}, {0x9A, 's'},
                                              {0x9C, 'o'}, {0x9E, 'z'}, {0x9F, 'y'}, {0xAA, 'a'}, {0xB2, '2'},
                                              {0xB3, '3'}, {0xB5, 'u'}, {0xB9, '1'}, {0xBA, 'o'}};
  for (const auto& [byte, letter] : kSingle) folding[static_cast<std::size_t>(byte)] = letter;
  // The accented letters from C0 on, capitals and small ones in the same order.
  constexpr std::string_view kAccented = "aaaaaaaceeeeiiiidnooooo ouuuuyts";
  for (std::size_t i = 0; i < kAccented.size(); ++i) {
    folding[0xC0 + i] = kAccented[i];
    folding[0xE0 + i] = kAccented[i];
  }
  folding[0xFF] = 'y';
  return folding;
}
constexpr std::array<char, 256> kFolding = MakeFolding();

std::uint64_t LettersOf(std::string_view key) {
  std::uint64_t letters = 0;
  for (const char c : key) {
    if (c >= 'a') letters |= std::uint64_t{1} << (c - 'a');
    if (c >= '0' && c <= '9') letters |= std::uint64_t{1} << (26 + c - '0');
  }
  return letters;
}

// What has been typed, ready to be compared.
struct Wanted {
  std::string text;
  std::string word;  // the same behind a blank
  std::vector<std::string> pieces;
  std::string letters_in_order;
  std::uint64_t letters = 0;
};

Wanted WantedOf(std::string_view typed) {
  Wanted wanted;
  wanted.text = SearchKey(typed.substr(0, kMostTyped));
  wanted.word = " " + wanted.text;
  wanted.letters = LettersOf(wanted.text);
  std::string_view rest = wanted.text;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    wanted.pieces.emplace_back(rest.substr(0, end));
    wanted.letters_in_order += rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return wanted;
}

// The place of the first word from there on that begins with a piece.
std::size_t FindWord(std::string_view text, std::string_view piece, std::size_t from = 0) {
  for (std::size_t at = text.find(piece, from); at != std::string_view::npos; at = text.find(piece, at + 1)) {
    if (at == 0 || text[at - 1] == ' ') return at;
  }
  return std::string_view::npos;
}

bool HasWordsInOrder(std::string_view text, const std::vector<std::string>& pieces) {
  std::size_t at = 0;
  for (const std::string& piece : pieces) {
    at = FindWord(text, piece, at);
    if (at == std::string_view::npos) return false;
    at += piece.size();
  }
  return true;
}

bool HasLettersInOrder(std::string_view text, std::string_view letters) {
  std::size_t at = 0;
  for (const char letter : letters) {
    at = text.find(letter, at);
    if (at == std::string_view::npos) return false;
    ++at;
  }
  return true;
}

// How well an entry fits, from 0; kNoFit when it does not.
constexpr std::size_t kNoFit = 6;

std::size_t FitOf(const PaletteEntry& entry, const Wanted& wanted) {
  if ((entry.letters & wanted.letters) != wanted.letters) return kNoFit;
  const std::string_view key = entry.key;
  const std::string_view caption = key.substr(0, entry.caption_bytes);
  if (caption.starts_with(wanted.text)) return caption.size() == wanted.text.size() ? 0 : 1;
  if (caption.find(wanted.word) != std::string_view::npos) return 2;
  if (HasWordsInOrder(caption, wanted.pieces)) return 3;
  if (std::ranges::all_of(wanted.pieces,
                          [&](const std::string& piece) { return FindWord(key, piece) != std::string_view::npos; })) {
    return 4;
  }
  return HasLettersInOrder(caption, wanted.letters_in_order) ? 5 : kNoFit;
}

bool IsSame(const PaletteEntry& entry, const PaletteHistory::Choice& choice) {
  return entry.target == choice.target && entry.caption == choice.caption;
}

}  // namespace

std::string SearchKey(std::string_view text) {
  std::string key;
  key.reserve(text.size());
  for (const char c : text) {
    const char folded = kFolding[static_cast<unsigned char>(c)];
    if (folded != ' ' || (!key.empty() && key.back() != ' ')) key += folded;
  }
  if (key.ends_with(' ')) key.pop_back();
  return key;
}

void MakeSearchable(PaletteEntry& entry) {
  entry.key = SearchKey(entry.caption);
  entry.caption_bytes = entry.key.size();
  entry.key += " " + SearchKey(entry.where);
  entry.letters = LettersOf(entry.key);
}

std::vector<std::size_t> FindInPalette(const std::vector<PaletteEntry>& entries, std::string_view text) {
  const Wanted wanted = WantedOf(text);
  if (wanted.text.empty()) return {};
  std::array<std::vector<std::size_t>, 2 * kNoFit> found;  // of each fit what can be chosen ahead of what cannot
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::size_t fit = FitOf(entries[i], wanted);
    if (fit == kNoFit) continue;
    auto& equal = found[2 * fit + (entries[i].enabled ? 0 : 1)];
    if (equal.size() < kMostFound) equal.push_back(i);
  }
  std::vector<std::size_t> all;
  for (const std::vector<std::size_t>& equal : found) all.insert(all.end(), equal.begin(), equal.end());
  if (all.size() > kMostFound) all.resize(kMostFound);
  return all;
}

void NoteChoice(PaletteHistory& history, const PaletteEntry& entry) {
  std::erase_if(history.choices, [&](const auto& choice) { return IsSame(entry, choice); });
  history.choices.insert(history.choices.begin(), {entry.target, entry.caption});
  if (history.choices.size() > PaletteHistory::kMost) history.choices.pop_back();
}

std::vector<std::size_t> FirstInPalette(const std::vector<PaletteEntry>& entries, const PaletteHistory& history,
                                        View view) {
  std::vector<std::size_t> first;
  for (const PaletteHistory::Choice& choice : history.choices) {
    const auto found = std::ranges::find_if(entries, [&](const PaletteEntry& entry) { return IsSame(entry, choice); });
    if (found != entries.end()) first.push_back(static_cast<std::size_t>(found - entries.begin()));
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const auto* command = std::get_if<CommandTarget>(&entries[i].target);
    if (!command || command->view != view || std::ranges::find(first, i) != first.end()) continue;
    first.push_back(i);
  }
  return first;
}

}  // namespace tessara
