#pragma once

#include <QKeyEvent>
#include <optional>

#include "data/data_set.h"
#include "data/edit/grid_block.h"

// The keys of the grid that move its cursor.

namespace tessara {

// Where a key leads from a place; nothing for a key that leads nowhere. `page` is the number of rows that are in sight.
std::optional<GridPlace> PlaceByKey(const QKeyEvent& event, const DataSet& data, const GridPlace& from,
                                    std::size_t page);

// The cell behind or ahead of a place, row after row; nothing at the end of the grid.
std::optional<GridPlace> PlaceByTab(const DataSet& data, const GridPlace& from, bool forward);

// The characters with which a key begins an entry; a null text for none.
QString TypedText(const QKeyEvent& event);

}  // namespace tessara
