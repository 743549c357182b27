#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/data_set.h"
#include "platform/platform.h"
#include "presentation/chart_data.h"
#include "presentation/output_log.h"
#include "procedures/cases/case_source.h"

// What every procedure begins and ends with: the cases of a run, its report, its charts.

namespace tessara {

// The columns of the variables whose turn it is in a run; 0 for none.
struct Roles {
  std::size_t main = 0;         // the analysis variable
  std::size_t independent = 0;  // the variable that it is compared with
};

// What a procedure works with, and what one run shares between its procedures.
struct ProcedureRun {
  const DataSet& data;
  ChartStore& charts;
  Platform& platform;
  const ControlVariable& control_variable;
  const ControlChoice& control;
  bool wants_charts = true;  // whether it is worth the time to make charts: one analysis variable alone is selected

  bool aborted = false;            // a procedure has ended in the error frame; a later variable still gets its turn
  std::string ChartFootnote = {};  // the words of the control caption
  // The reports reach the output log, and the saved columns the data, when the run is over: all or none.
  std::vector<std::string> reports = {};
  std::vector<Column> saved_columns = {};
  std::string saved_as = {};  // the name of their step

  void AppendReport(std::string report);
  // Makes a report of a title and message in the error frame, and marks the run. No chart stands beside it.
  void ReportError(std::string_view pending_text);
  // A result that becomes a new variable. `what` names the step: "Save Residuals".
  void SaveColumn(Column column, std::string what);
  // Leaves the charts of a procedure, with the run's footnote, once its report stands: only where charts are wanted.
  void LeaveCharts(ChartKind kind, std::vector<Chart> made);
};

// The end of a run: its columns become variables, as one step, and its reports go to the output log. Where the memory
// does not suffice, std::bad_alloc leaves both as they were.
void FinishRun(ProcedureRun& run, DataSet& data, OutputLog& output, BoxOfRun box = BoxOfRun::kKept);

// What every procedure that reads cases begins with: no charts, the footnote of those to come, and its cases.
CaseSource BeginCases(ProcedureRun& run);

}  // namespace tessara
