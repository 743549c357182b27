#pragma once

#include <QKeyEvent>
#include <optional>

#include "presentation/table_face.h"

// The keys of the summary table that move its cursor.

namespace tessara {

// Where a key leads from a place; nothing for a key that leads nowhere. Shift, with all keys but Enter, takes the end
// of the selection there, which never jumps to another row. `page` is the number of rows that are in sight.
std::optional<TablePlace> TablePlaceByKey(const QKeyEvent& event, const TableGrid& grid, const TablePlace& from,
                                          std::size_t page);

}  // namespace tessara
