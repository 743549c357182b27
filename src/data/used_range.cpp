#include "data/used_range.h"

#include <algorithm>

namespace tessara {

UsedRange TrimToUsedRange(const DataSet& data) {
  UsedRange used;
  used.variables = data.VariableCount;
  // From the back, so that as a rule only the last column and the last record are looked at.
  while (used.variables > 0 && data.matrix.UsedRecords(used.variables, data.RecordCount) == 0) --used.variables;
  for (std::size_t column = 1; column <= used.variables && used.records < data.RecordCount; ++column) {
    used.records = std::max(used.records, data.matrix.UsedRecords(column, data.RecordCount));
  }
  return used;
}

}  // namespace tessara
