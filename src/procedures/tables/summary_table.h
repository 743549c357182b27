#pragma once

#include <string>
#include <vector>

#include "presentation/table_face.h"
#include "presentation/table_grid.h"

// The summary table: it grows from run to run, until it is cleared.

namespace tessara {

struct SummaryTable {
  TableGrid grid;
  TableFace face;  // how the Output view shows it

  // What the columns of data stand for. A cell's tag is the place of its column here, so that a run finds the column
  // again wherever it has moved to. The list only grows: an older state of the grid still finds its columns.
  struct Column {
    std::string key;
    std::string heading;
  };
  std::vector<Column> columns = {};
};

}  // namespace tessara
