#pragma once

#include <string_view>

// The options of a command or of the program, as data.

namespace tessara {

enum class OptionValue { kNone, kNeeded, kPossible, kTwo };
enum class OptionTimes { kOnce, kAnyNumber };

struct OptionRow {
  std::string_view names;  // "--chart" or "-s,--script"
  std::string_view value;  // what the help calls the value, empty for none
  std::string_view help;
  OptionValue takes = OptionValue::kNone;
  OptionTimes times = OptionTimes::kOnce;
};

// "--script" of "-s,--script".
constexpr std::string_view LongName(const OptionRow& row) {
  const std::size_t comma = row.names.find(',');
  return comma == std::string_view::npos ? row.names : row.names.substr(comma + 1);
}

// "-s" of "-s,--script"; empty when there is none.
constexpr std::string_view ShortName(const OptionRow& row) {
  const std::size_t comma = row.names.find(',');
  return comma == std::string_view::npos ? std::string_view() : row.names.substr(0, comma);
}

}  // namespace tessara
