#include "batch/commands/commands.h"
#include "presentation/chart_data.h"
#include "presentation/tab_delimited.h"

// Commands that print at once what a run has left. The log gets nothing from them.

namespace tessara {
namespace {

CommandResult RunCharts(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(ChartsText(batch.session.charts));
  return Done();
}

CommandResult RunRecent(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(batch.session.output.MostRecentText);
  return Done();
}

CommandResult RunTabDelimited(Batch& batch, const CommandWords&) {
  batch.stream.PrintText(TabDelimited(batch.session.output.OutputLogText));
  return Done();
}

}  // namespace

constinit const CommandRow kChartsCommand{
    .name = "charts",
    .summary = "print the chart tables of the latest run",
    .details =
        "Prints the charts that the latest procedure left, tab-delimited: for each a line with\n"
        "\"chart\", title, titles of both axes and footnote, then its rows. The log gets nothing\n"
        "from it.\n",
    .example = "charts",
    .run = RunCharts,
};

constinit const CommandRow kRecentCommand{
    .name = "recent",
    .summary = "print the most recent output",
    .details = "Prints the reports of the latest run at once. The log gets nothing from it.\n",
    .example = "recent",
    .run = RunRecent,
};

constinit const CommandRow kTabDelimitedCommand{
    .name = "tab-delimited",
    .summary = "print the log as tab-delimited text",
    .details =
        "Prints the log so far with tabs in the place of its columns and without any hyphen,\n"
        "rules and minus signs included. The log itself stays as it is.\n",
    .example = "tab-delimited",
    .run = RunTabDelimited,
};

}  // namespace tessara
