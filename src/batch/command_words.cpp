#include "batch/command_words.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iterator>

#include "batch/script_line.h"

namespace tessara {
namespace {

// The option parser takes a plain word in square brackets for a list. A byte ahead of such a word keeps it whole.
constexpr char kGuard = '\x01';

bool NeedsGuard(std::string_view word) { return word.starts_with('[') || word.starts_with(kGuard); }

std::string Unguarded(const std::string& word) { return word.starts_with(kGuard) ? word.substr(1) : word; }

bool LooksLikeOption(std::string_view word) { return word.size() > 1 && word.starts_with('-') && word != "--"; }

// In the words of the other messages.
std::string WhatIsWrong(const CLI::ParseError& error, const std::vector<std::string>& left) {
  const auto unknown = std::ranges::find_if(left, LooksLikeOption);
  if (unknown != left.end()) return "unknown option " + Quoted(*unknown);
  const std::string text = error.what();
  if (const std::size_t colon = text.find(": "); colon != std::string::npos) {
    const bool wants_two = text.compare(colon, 12, ": 2 required") == 0;
    return text.substr(0, colon) + (wants_two ? " needs two values" : " needs a value");
  }
  return "--" + text.substr(0, text.find(' ')) + " takes no value";
}

}  // namespace

std::string_view LongName(std::string_view names) {
  const std::size_t comma = names.find(',');
  return comma == std::string_view::npos ? names : names.substr(comma + 1);
}

namespace {

using NamedValues = std::vector<std::pair<std::string_view, std::string>>;

std::optional<std::string> FindValue(const NamedValues& values, std::string_view option) {
  const auto found = std::ranges::find(values, option, &NamedValues::value_type::first);
  if (found == values.end()) return std::nullopt;
  return found->second;
}

}  // namespace

std::optional<std::string> CommandWords::Value(std::string_view option) const { return FindValue(options, option); }

std::optional<std::string> CommandWords::SecondValue(std::string_view option) const {
  return FindValue(second_values, option);
}

struct WordParser::Body {
  CLI::App app;
  CLI::Option* plain_words = nullptr;
  std::vector<std::pair<std::string_view, CLI::Option*>> options;
};

WordParser::WordParser(std::span<const OptionRow> options, WordOrder order) : body_(std::make_unique<Body>()) {
  CLI::App& app = body_->app;
  app.set_help_flag();
  app.allow_windows_style_options(false);
  for (const OptionRow& row : options) {
    const std::string names(row.names);
    CLI::Option* option = row.takes == OptionValue::kNone ? app.add_flag(names) : app.add_option(names);
    if (row.takes == OptionValue::kNone) option->disable_flag_override();
    if (row.takes == OptionValue::kNeeded) option->expected(1);
    if (row.takes == OptionValue::kPossible) option->expected(0, 1);
    if (row.takes == OptionValue::kTwo) option->expected(2);
    option->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);  // Parse tells of repetitions
    body_->options.emplace_back(LongName(row.names), option);
  }
  if (order == WordOrder::kAnywhere) {
    body_->plain_words = app.add_option("word")->expected(-1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  } else {
    app.prefix_command();
  }
}

WordParser::~WordParser() = default;
WordParser::WordParser(WordParser&&) noexcept = default;
WordParser& WordParser::operator=(WordParser&&) noexcept = default;

// The words as the option parser takes them, the last one first. The second value of an option may start with a sign,
// like the first one.
std::vector<std::string> WordParser::GuardedFromTheEnd(std::span<const std::string> words) const {
  std::vector<std::string> reversed;
  reversed.reserve(words.size());
  int values_due = 0;
  for (const std::string& word : words) {
    const bool second_value = values_due == 1 && LooksLikeOption(word) && !word.starts_with("--");
    reversed.push_back(second_value || NeedsGuard(word) ? kGuard + word : word);
    if (values_due > 0) {
      --values_due;
      continue;
    }
    for (const auto& [name, option] : body_->options) {
      if (option->get_items_expected_min() == 2 && word == name) values_due = 2;
    }
  }
  std::ranges::reverse(reversed);
  return reversed;
}

namespace {

// How often an option stands among the words, alone or with its value behind "=".
std::ptrdiff_t TimesGiven(std::span<const std::string> words, std::string_view option) {
  return std::ranges::count_if(words, [&](std::string_view word) {
    return word == option || (word.starts_with(option) && word.substr(option.size()).starts_with('='));
  });
}

}  // namespace

CommandWords WordParser::Parse(std::span<const std::string> words) {
  std::vector<std::string> reversed = GuardedFromTheEnd(words);
  CommandWords result;
  try {
    body_->app.parse(std::move(reversed));
  } catch (const CLI::ParseError& error) {
    result.error = WhatIsWrong(error, body_->app.remaining());
    return result;
  }
  for (const auto& [name, option] : body_->options) {
    const std::vector<std::string>& values = option->results();
    if (option->count() == 0) continue;
    const bool takes_two = option->get_items_expected_min() == 2;
    if (takes_two && values.size() < 2) result.error = std::string(name) + " needs two values";
    if (values.size() > (takes_two ? 2u : 1u) || (takes_two && TimesGiven(words, name) > 1))
      result.error = std::string(name) + " is given twice";
    result.options.emplace_back(name, values.empty() ? std::string() : Unguarded(values.front()));
    if (takes_two) result.second_values.emplace_back(name, Unguarded(values.back()));
  }
  const std::vector<std::string> plain = body_->plain_words ? body_->plain_words->results() : body_->app.remaining();
  for (const std::string& word : plain) result.words.push_back(Unguarded(word));
  return result;
}

}  // namespace tessara
