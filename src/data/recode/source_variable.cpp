#include "data/recode/source_variable.h"

namespace tessara {
namespace {

bool IsNumberOrBlank(const TaggedView& entry) { return entry.is_blank() || IsNumeric(entry); }

}  // namespace

SourceVariable::SourceVariable(const DataSet& data, std::size_t column, Reading reading)
    : column_(data.matrix.ColumnAt(column)),
      missing_(LoadMissingSet(data.matrix, column)),
      has_definition_(missing_.HasSingleValues() || missing_.HasBounds()),
      bounds_are_numbers_(IsNumberOrBlank(missing_.entries[kLowerBoundEntry]) &&
                          IsNumberOrBlank(missing_.entries[kUpperBoundEntry])) {
  if (reading == Reading::kCells) return;
  numbers_ = &column_.Numbers(data.RecordCount);
  test_.emplace(data.matrix, column, missing_, *numbers_);
}

}  // namespace tessara
