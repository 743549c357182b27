#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "batch/words/option_row.h"

// The words of a line, told apart: plain words, options and their values.

namespace tessara {

struct GivenOption {
  std::string_view name;            // the long one, with its hyphens
  std::vector<std::string> values;  // none, one, or the two of an option that takes two
};

struct CommandWords {
  std::vector<std::string> words;
  std::vector<GivenOption> options;  // in the order of the line
  std::string error;                 // what could not be understood; empty when all is well

  bool Has(std::string_view option) const { return Find(option) != nullptr; }
  // The value of an option; empty text when it was given without one, nothing when it was not given.
  std::optional<std::string> Value(std::string_view option) const;
  std::optional<std::string> SecondValue(std::string_view option) const;
  // The values of an option that may be given several times, in the order of the line.
  std::vector<std::string> Values(std::string_view option) const;

 private:
  const GivenOption* Find(std::string_view option) const;
};

enum class WordOrder {
  kAnywhere,  // options may stand between and behind the words
  kLeading,   // the first plain word ends the options; it and all behind it are words
};

// Whether a word would be read as an option: one or two hyphens and more behind them, unless it is a number.
bool LooksLikeOption(std::string_view word);

// An option is named in full, "--max 20" or "--max=20"; a short name stands ahead of its value, "-s FILE" or "-sFILE".
// A needed value is the next word, whatever it starts with; a possible one only when it does not look like an option.
// The second value of two may start with one hyphen, not with two. A word "--" ends the options. Ends at the first word
// that cannot be understood.
CommandWords ParseWords(std::span<const OptionRow> rows, WordOrder order, std::span<const std::string> words);

}  // namespace tessara
