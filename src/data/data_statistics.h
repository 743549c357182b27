#pragma once

#include <array>
#include <string>

#include "data/data_set.h"

// The data statistics of the procedure panel: seven lines and a usage bar.

namespace tessara {

struct DataStatistics {
  struct Line {
    std::string caption;  // with its colon and blank
    std::string value;

    std::string Text() const { return caption + value; }
  };
  std::array<Line, 7> lines;
  double usage_bar = 0;  // 0 to 100
};

DataStatistics RefreshDataStatistics(const DataSet& data);

}  // namespace tessara
