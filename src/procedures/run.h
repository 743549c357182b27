#pragma once

#include "data/data_set.h"
#include "platform/platform.h"
#include "presentation/chart_data.h"
#include "presentation/output_log.h"
#include "procedures/panel.h"
#include "procedures/tables/summary_table.h"

// The run check: tests the selection of the panel and calls the procedures. It goes on past every numeric failure.

namespace tessara {

struct RunOutcome {
  bool refused = false;  // a message box ended the run
  bool subset = false;   // it was a request for a subset, and the data are that by now: the panel is to be reset
  bool aborted = false;  // some procedure printed the error frame
};

// Runs the selected procedure for the analysis variables, in list order; each is the main variable in its turn. The
// wait cursor stands as long as the run lasts.
// A run of summary tables adds to the table, all of it or nothing, and makes it the visible face of the Output view;
// one that writes a report makes the text visible.
RunOutcome Run(DataSet& data, const ProcedurePanel& panel, OutputLog& output, ChartStore& charts, SummaryTable& table,
               Platform& platform);

}  // namespace tessara
