#pragma once

#include "presentation/table_grid.h"

// The summary table: it grows from run to run, until it is cleared.

namespace tessara {

struct SummaryTable {
  TableGrid grid;
};

}  // namespace tessara
