#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "data/cell_key.h"
#include "data/data_set.h"

// A categorical variable read once: each record's cell as a small number, so that tables are counted on integers.

namespace tessara {

struct CodedColumn {
  std::vector<std::uint32_t> codes;  // of each record, from 0 in the order in which the cells are met
  CellDictionary cells;              // the different cells by code; good until the matrix changes
  std::vector<bool> dropped;         // by code: missing, or the missing-value test has failed

  bool Drops(std::size_t record) const { return dropped[codes[record]]; }
};

// The trimmed records of a column, with the missing values of the variable in a role.
CodedColumn CodeColumn(const DataSet& data, std::size_t column, std::size_t role);

}  // namespace tessara
