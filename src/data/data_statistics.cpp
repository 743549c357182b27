#include "data/data_statistics.h"

#include <algorithm>

#include "numerics/masks.h"

namespace tessara {
namespace {

constexpr double kLeastUsageShown = 3;  // below it the bar shows a sliver, so that it can be seen at all
constexpr double kSliver = 2;

}  // namespace

DataStatistics RefreshDataStatistics(const DataSet& data) {
  const double limit = static_cast<double>(kEditLimit);
  const double cells = static_cast<double>(data.RecordCount) * static_cast<double>(data.VariableCount);
  const double remaining = limit - cells;
  const double percent = 100 * cells / limit;

  DataStatistics statistics;
  statistics.usage_bar = percent > 100 ? 100 : percent < kLeastUsageShown ? kSliver : percent;
  const std::string size =
      data.DataFileSize ? Grouped(static_cast<double>(*data.DataFileSize)) + " bytes" : std::string();
  statistics.lines = {{{"Number of Observations: ", Grouped(static_cast<double>(data.RecordCount))},
                       {"Number of Variables: ", Grouped(static_cast<double>(data.VariableCount))},
                       {"Data Cells Used: ", Grouped(cells)},
                       {"Data Cells Remaining: ", Grouped(remaining)},
                       {"Data Cell Usage: ", Percentage(std::min(cells / limit, 1.0))},
                       {"Data File Size: ", size},
                       {"Data File Modified: ", data.DataFileModified}}};
  if (remaining < 0) statistics.lines[3] = {"Exceeds Edit Limit by: ", Grouped(-remaining) + " cells"};
  return statistics;
}

}  // namespace tessara
