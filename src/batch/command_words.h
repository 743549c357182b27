#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The words of a command, told apart: plain words, options and their values.

namespace tessara {

enum class OptionValue { kNone, kNeeded, kPossible, kTwo };

struct OptionRow {
  std::string_view names;  // "--chart" or "-s,--script"
  std::string_view value;  // what the help calls the value, empty for none
  std::string_view help;
  OptionValue takes = OptionValue::kNone;
};

struct CommandWords {
  std::vector<std::string> words;
  std::vector<std::pair<std::string_view, std::string>> options;        // long name with its dashes, value
  std::vector<std::pair<std::string_view, std::string>> second_values;  // of the options that take two
  std::string error;  // what could not be understood; empty when all is well

  bool Has(std::string_view option) const { return Value(option).has_value(); }
  std::optional<std::string> Value(std::string_view option) const;
  std::optional<std::string> SecondValue(std::string_view option) const;
};

enum class WordOrder {
  kAnywhere,  // options may stand between and behind the words
  kLeading,   // the first plain word ends the options; it and all behind it are words
};

// The parser of one set of options. Parsing does not change it, so that a script keeps the parser of a command.
class WordParser {
 public:
  WordParser(std::span<const OptionRow> options, WordOrder order);
  ~WordParser();
  WordParser(WordParser&&) noexcept;
  WordParser& operator=(WordParser&&) noexcept;

  CommandWords Parse(std::span<const std::string> words);

 private:
  struct Body;
  std::vector<std::string> GuardedFromTheEnd(std::span<const std::string> words) const;

  std::unique_ptr<Body> body_;
};

// "--script" of "-s,--script".
std::string_view LongName(std::string_view names);

}  // namespace tessara
