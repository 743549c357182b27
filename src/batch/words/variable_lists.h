#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"

// Variables as the words of a command name them.

namespace tessara {

// The column of a variable named by its exact name in the heading row, the first of that name in column order, or by
// #N, its column number. A name wins over a number.
std::optional<std::size_t> FindVariable(const DataSet& data, std::string_view word);

struct VariableLists {
  std::vector<std::size_t> first;   // columns ahead of "by"
  std::vector<std::size_t> second;  // columns behind it
  std::string error;                // what could not be understood; empty when all is well
};

// "A B by C". A variable whose name is "by" is reached by its number.
VariableLists ReadVariableLists(const DataSet& data, std::span<const std::string> words);

std::string UnknownVariable(std::string_view word);

}  // namespace tessara
