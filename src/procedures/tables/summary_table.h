#pragma once

#include "presentation/table_face.h"
#include "presentation/table_grid.h"

// The summary table: it grows from run to run, until it is cleared.

namespace tessara {

struct SummaryTable {
  TableGrid grid;
  TableFace face;  // how the Output view shows it
};

}  // namespace tessara
