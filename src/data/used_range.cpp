#include "data/used_range.h"

#include <algorithm>

namespace tessara {

void TrimToUsedRange(DataSet& data) {
  data.WorkingRecordCount = data.RecordCount;
  data.WorkingVariableCount = data.VariableCount;
  // From the back, so that as a rule only the last column and the last record are looked at.
  while (data.VariableCount > 0 && data.matrix.UsedRecords(data.VariableCount, data.RecordCount) == 0) {
    --data.VariableCount;
  }
  std::size_t used = 0;
  for (std::size_t column = 1; column <= data.VariableCount && used < data.RecordCount; ++column) {
    used = std::max(used, data.matrix.UsedRecords(column, data.RecordCount));
  }
  data.RecordCount = used;
}

void RestoreWorkingCounts(DataSet& data) {
  data.RecordCount = data.WorkingRecordCount;
  data.VariableCount = data.WorkingVariableCount;
}

}  // namespace tessara
