#pragma once

#include <cstddef>

#include "data/data_set.h"

// The used range: the data without the trailing run of wholly blank variables and the trailing run of wholly blank
// records. A save writes it, and every procedure reads the cases of it.

namespace tessara {

struct UsedRange {
  std::size_t records = 0;
  std::size_t variables = 0;
};

// Header rows do not count: a named but empty last column is outside. Where every cell is blank both counts are 0.
UsedRange TrimToUsedRange(const DataSet& data);

}  // namespace tessara
