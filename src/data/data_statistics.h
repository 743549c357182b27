#pragma once

#include <array>
#include <string>

#include "data/data_set.h"

// The data statistics of the procedure panel: seven lines and a usage bar.

namespace tessara {

struct DataStatistics {
  std::array<std::string, 7> labels;
  double usage_bar = 0;  // 0 to 100
};

DataStatistics RefreshDataStatistics(const DataSet& data);

}  // namespace tessara
