#include <string>

#include "batch/commands/commands.h"
#include "data/data_statistics.h"
#include "presentation/output_log.h"

namespace tessara {
namespace {

CommandResult Run(Batch& batch, const CommandWords&) {
  std::string report;
  for (const DataStatistics::Line& line : RefreshDataStatistics(batch.session.data).lines) {
    report += line.Text() + "\r\n";
  }
  AppendReport(batch.session.output, report);
  return Done();
}

}  // namespace

constinit const CommandRow kStatisticsCommand{
    .name = "statistics",
    .summary = "report the data statistics",
    .details =
        "Adds seven lines to the log: observations, variables, cells used and remaining, usage,\n"
        "file size and file time.\n",
    .example = "statistics",
    .run = Run,
};

}  // namespace tessara
