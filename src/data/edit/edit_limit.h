#pragma once

#include "data/data_set.h"
#include "platform/dialogs.h"

// What the edit limit allows by hand.

namespace tessara {

// Whether the data have room for the entry of cells; where they have none, the box says so. One column more than there
// are counts here, so that an entry is refused a column ahead of the limit.
bool AllowsEntry(const DataSet& data, Messages& messages);

// Whether cells that stand there may be blanked or pasted over: in all data that the grid shows whole.
bool AllowsBlockEdit(const DataSet& data, Messages& messages);

// Whether a row or a column may be added.
bool AllowsMoreCells(const DataSet& data, Messages& messages);

}  // namespace tessara
