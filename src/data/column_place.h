#pragma once

#include <cstddef>

#include "data/change_notes.h"

namespace tessara {

// Whether columns have come or gone by a change, so that others stand elsewhere behind it.
inline bool MovesColumns(const ChangeNote& note) {
  return note.kind == ChangeKind::kColumnsAdded || note.kind == ChangeKind::kColumnsRemoved;
}

// Where a column stands behind columns that were added or removed; 0 when it is gone, and for no column.
inline std::size_t PlaceBehind(std::size_t column, const ChangeNote& note) {
  const ChangeExtent& extent = note.extent;
  if (column == 0 || column < extent.first_column) return column;
  if (note.kind == ChangeKind::kColumnsAdded) return column + extent.column_count;
  return column < extent.first_column + extent.column_count ? 0 : column - extent.column_count;
}

}  // namespace tessara
