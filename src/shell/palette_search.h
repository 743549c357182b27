#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "shell/palette.h"

// How the palette finds what a user types, and what it shows before anything is typed.

namespace tessara {

inline constexpr std::size_t kMostFound = 100;

// Small letters without accents and digits; everything else is a blank, so that words stand apart.
std::string SearchKey(std::string_view text);

// Fills an entry's key from its texts.
void MakeSearchable(PaletteEntry& entry);

// The places of the entries that a text finds, the best ones first, kMostFound at most: those whose caption is the text
// or begins with it, those with a word that does, those whose words begin with the typed pieces in their order, those
// where the pieces begin words of the caption or of what stands beside it in any order, and those with the typed
// letters in their order. Case and accents do not count. Of those that are equal so far what cannot be chosen comes
// last; otherwise they keep their order. Nothing is found by a text without letters and digits.
std::vector<std::size_t> FindInPalette(const std::vector<PaletteEntry>& entries, std::string_view text);

// What was chosen last, the latest first.
struct PaletteHistory {
  struct Choice {
    PaletteTarget target;
    std::string caption;  // a column may have become another variable since
  };
  static constexpr std::size_t kMost = 6;
  std::vector<Choice> choices;
};
void NoteChoice(PaletteHistory& history, const PaletteEntry& entry);

// What shows before a text is typed: what was chosen last as far as it is still there, then the commands that belong to
// the view.
std::vector<std::size_t> FirstInPalette(const std::vector<PaletteEntry>& entries, const PaletteHistory& history,
                                        View view);

}  // namespace tessara
