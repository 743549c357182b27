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
  statistics.labels[0] = "Number of Observations: " + Grouped(static_cast<double>(data.RecordCount));
  statistics.labels[1] = "Number of Variables: " + Grouped(static_cast<double>(data.VariableCount));
  statistics.labels[2] = "Data Cells Used: " + Grouped(cells);
  statistics.labels[3] = remaining < 0 ? "Exceeds Edit Limit by: " + Grouped(-remaining) + " cells"
                                       : "Data Cells Remaining: " + Grouped(remaining);
  statistics.labels[4] = "Data Cell Usage: " + Percentage(std::min(cells / limit, 1.0));
  statistics.labels[5] = "Data File Size: ";
  if (data.DataFileSize) statistics.labels[5] += Grouped(static_cast<double>(*data.DataFileSize)) + " bytes";
  statistics.labels[6] = "Data File Modified: " + data.DataFileModified;
  return statistics;
}

}  // namespace tessara
