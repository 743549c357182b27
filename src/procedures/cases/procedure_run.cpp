#include "procedures/cases/procedure_run.h"

#include <string>
#include <utility>

#include "numerics/report_text.h"

namespace tessara {

void ProcedureRun::AppendReport(std::string report) { reports.push_back(std::move(report)); }

void ProcedureRun::ReportError(std::string_view pending_text) {
  aborted = true;
  ClearCharts(charts);
  AppendReport(ErrorFrame(pending_text));
}

void ProcedureRun::LeaveCharts(ChartKind kind, std::vector<Chart> made) {
  if (!wants_charts) return;
  for (Chart& chart : made) chart.footnote = ChartFootnote;
  KeepCharts(charts, kind, std::move(made));
}

CaseSource BeginCases(ProcedureRun& run) {
  ClearCharts(run.charts);
  CaseSource source = ReadableCases(run.data, run.control_variable.column, run.control);
  run.ChartFootnote = source.control.ChartFootnote();
  return source;
}

}  // namespace tessara
