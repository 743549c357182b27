#include "procedures/cases/procedure_run.h"

#include <string>
#include <utility>

namespace tessara {

void ProcedureRun::AppendReport(std::string report) {
  output.ReportText = std::move(report);
  tessara::AppendReport(output);
}

void ProcedureRun::ReportError(std::string_view pending_text) {
  aborted = true;
  ClearCharts(charts);
  tessara::ReportError(output, pending_text);
}

void ProcedureRun::LeaveCharts(ChartKind kind, std::vector<Chart> made) {
  if (!WantsCharts()) return;
  for (Chart& chart : made) chart.footnote = ChartFootnote;
  KeepCharts(charts, kind, std::move(made));
}

RunCases::RunCases(ProcedureRun& run) : used(run.data), control(run.data, run.panel.control) {
  LoadMissingSet(run.data, kMainRole);
  run.ChartFootnote = control.ChartFootnote();
  ClearCharts(run.charts);
}

}  // namespace tessara
