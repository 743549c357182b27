#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "batch/commands/command.h"
#include "data/recode/recode_panel.h"

// What the lines of the recode panel share: their words, and a panel that holds nothing of the line before but the new
// variable that it may go on with.

namespace tessara {

struct RecodeLine {
  std::vector<std::size_t> columns;  // of the variables that stand first
  std::string error;                 // what could not be understood; empty when all is well
};

// Looks up the first `variables` words; the line must have a word for each of the names.
RecodeLine ReadRecodeLine(const Batch& batch, const CommandWords& words, std::initializer_list<std::string_view> names,
                          std::size_t variables);

// What is wrong when more than one of these options stands in the line; empty when all is well.
std::string MoreThanOne(const CommandWords& words, std::initializer_list<std::string_view> options,
                        std::string_view what);

// A word as a box holds it that takes no commas: each of them is answered by a box and dropped.
std::string BoxWithoutCommas(Batch& batch, std::string_view word);

// The value of an option as a box holds it; empty when the option is not given.
std::string BoxOfOption(const CommandWords& words, std::string_view option);

CommandResult RunRecodeLine(Batch& batch);

}  // namespace tessara
