#include "batch/words/command_words.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "batch/words/nearest_word.h"
#include "batch/words/script_line.h"
#include "numerics/number_text.h"

namespace tessara {
namespace {

constexpr std::string_view kEndOfOptions = "--";

std::string Joined(std::span<const std::string_view> names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " and " : ", ";
    text += Quoted(names[i]);
  }
  return text;
}

// What an unknown option may have meant: all that start like it, else one that is near. A short word of few letters in
// common means nothing that could be guessed.
std::string Guess(std::string_view name, std::span<const OptionRow> rows) {
  std::vector<std::string_view> names;
  for (const OptionRow& row : rows) names.push_back(LongName(row));
  std::vector<std::string_view> starting;
  std::ranges::copy_if(names, std::back_inserter(starting),
                       [&](std::string_view candidate) { return name.size() > 2 && candidate.starts_with(name); });
  if (starting.size() > 1) return "; there are " + Joined(starting);
  const std::string_view nearest = starting.empty() ? NearestWord(name, names) : starting.front();
  const bool near = !nearest.empty() && (!starting.empty() || 3 * EditDistance(name, nearest) <= nearest.size());
  return near ? "; the nearest is " + Quoted(nearest) : "";
}

// Walks the words of one line.
class WordReader {
 public:
  WordReader(std::span<const OptionRow> rows, WordOrder order, std::span<const std::string> words)
      : rows_(rows), order_(order), words_(words), seen_(rows.size(), false) {}

  CommandWords Read() {
    while (at_ < words_.size() && result_.error.empty()) {
      const std::string& word = words_[at_];
      if (order_ == WordOrder::kLeading && !LooksLikeOption(word)) {
        TakeTheRest();
      } else if (word == kEndOfOptions) {
        ++at_;
        TakeTheRest();
      } else if (LooksLikeOption(word)) {
        ++at_;
        TakeOption(word);
      } else {
        ++at_;
        result_.words.push_back(word);
      }
    }
    if (result_.error.empty()) CheckPairs();
    return std::move(result_);
  }

 private:
  void TakeTheRest() {
    result_.words.insert(result_.words.end(), words_.begin() + static_cast<std::ptrdiff_t>(at_), words_.end());
    at_ = words_.size();
  }

  // "--name", "--name=value", "-n" or "-nvalue".
  void TakeOption(std::string_view word) {
    const bool is_long = word.starts_with("--");
    const std::size_t sign = is_long ? word.find('=') : word.npos;
    const std::string_view name = is_long ? word.substr(0, sign) : word.substr(0, 2);
    std::optional<std::string_view> attached;
    if (sign != word.npos) attached = word.substr(sign + 1);
    if (!is_long && word.size() > 2) attached = word.substr(2);

    const auto row = std::ranges::find_if(
        rows_, [&](const OptionRow& candidate) { return name == LongName(candidate) || name == ShortName(candidate); });
    if (row == rows_.end()) {
      result_.error = "unknown option " + Quoted(word) + Guess(word.substr(0, word.find('=')), rows_);
      return;
    }
    const auto place = static_cast<std::size_t>(row - rows_.begin());
    if (seen_[place] && row->times == OptionTimes::kOnce) {
      result_.error = std::string(LongName(*row)) + " is given twice";
      return;
    }
    seen_[place] = true;
    TakeValues(*row, attached);
  }

  void TakeValues(const OptionRow& row, std::optional<std::string_view> attached) {
    GivenOption option{LongName(row), {}};
    if (attached && row.takes == OptionValue::kNone) {
      result_.error = std::string(option.name) + " takes no value";
      return;
    }
    if (attached) option.values.emplace_back(*attached);
    const bool needs_one = row.takes == OptionValue::kNeeded || row.takes == OptionValue::kTwo;
    if (needs_one && !attached) {
      if (at_ == words_.size()) {
        result_.error =
            std::string(option.name) + (row.takes == OptionValue::kTwo ? " needs two values" : " needs a value");
        return;
      }
      option.values.push_back(words_[at_++]);
    }
    const bool next_is_plain = at_ < words_.size() && words_[at_] != kEndOfOptions;
    if (row.takes == OptionValue::kPossible && !attached && next_is_plain && !LooksLikeOption(words_[at_])) {
      option.values.push_back(words_[at_++]);
    }
    if (row.takes == OptionValue::kTwo && next_is_plain && !words_[at_].starts_with("--")) {
      option.values.push_back(words_[at_++]);
    }
    result_.options.push_back(std::move(option));
  }

  // Told last, so that a mistyped option in the place of a second value is named itself.
  void CheckPairs() {
    for (const GivenOption& option : result_.options) {
      const auto row = std::ranges::find(rows_, option.name, LongName);
      if (row->takes == OptionValue::kTwo && option.values.size() < 2) {
        result_.error = std::string(option.name) + " needs two values";
      }
    }
  }

  std::span<const OptionRow> rows_;
  const WordOrder order_;
  std::span<const std::string> words_;
  std::size_t at_ = 0;
  std::vector<bool> seen_;  // of each row
  CommandWords result_;
};

}  // namespace

const GivenOption* CommandWords::Find(std::string_view option) const {
  const auto found = std::ranges::find(options, option, &GivenOption::name);
  return found == options.end() ? nullptr : &*found;
}

std::optional<std::string> CommandWords::Value(std::string_view option) const {
  const GivenOption* given = Find(option);
  if (!given) return std::nullopt;
  return given->values.empty() ? std::string() : given->values.front();
}

std::optional<std::string> CommandWords::SecondValue(std::string_view option) const {
  const GivenOption* given = Find(option);
  if (!given || given->values.size() < 2) return std::nullopt;
  return given->values[1];
}

std::vector<std::string> CommandWords::Values(std::string_view option) const {
  std::vector<std::string> values;
  for (const GivenOption& given : options) {
    if (given.name == option) values.insert(values.end(), given.values.begin(), given.values.end());
  }
  return values;
}

bool LooksLikeOption(std::string_view word) {
  const std::size_t name = word.starts_with("--") ? 2 : 1;
  if (!word.starts_with('-') || word.size() <= name) return false;
  const auto first = static_cast<unsigned char>(word[name]);
  return first > ' ' && first != '-' && !ParseNumber(word);
}

CommandWords ParseWords(std::span<const OptionRow> rows, WordOrder order, std::span<const std::string> words) {
  return WordReader(rows, order, words).Read();
}

}  // namespace tessara
