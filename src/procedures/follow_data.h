#pragma once

#include <cstddef>
#include <string>

#include "data/data_set.h"
#include "procedures/panel.h"

// The panel follows its variables when the columns of the data change.

namespace tessara {

enum class ColumnChange {
  kOtherData,  // a load, an import, new data: any column may be another variable
  kAdded,      // columns stand where there were none, and move those behind them
  kRemoved,
  kNamed,  // names have been typed anew
};

// The columns that a change is about; of no meaning for kOtherData and kNamed.
struct ColumnStretch {
  std::size_t first = 0;
  std::size_t count = 0;
};

// Moves the entries of the lists and the control with their columns, or drops them with them. Other data empty the
// lists, and keep the control only while its column carries the same name. Called when the change has been made. Yields
// the name of a control variable that had to be reset, empty for none.
std::string FollowData(ProcedurePanel& panel, const DataSet& data, ColumnChange change,
                       const ColumnStretch& columns = {});

}  // namespace tessara
