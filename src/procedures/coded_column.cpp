#include "procedures/coded_column.h"

namespace tessara {

CodedColumn CodeColumn(const DataSet& data, std::size_t column, std::size_t role) {
  const MissingValues& missing = data.MissingSet[role];
  CodedColumn coded;
  coded.codes.resize(data.RecordCount);
  data.matrix.ForEachRecord(column, data.RecordCount, [&](std::size_t record, const TaggedView& cell) {
    const std::size_t code = coded.cells.Find(cell);
    if (code == coded.dropped.size()) coded.dropped.push_back(static_cast<bool>(missing.IsMissing(cell)));
    coded.codes[record] = static_cast<std::uint32_t>(code);
  });
  return coded;
}

}  // namespace tessara
