#include "procedures/cases/procedure_run.h"

#include <string>
#include <utility>

#include "data/change_door.h"
#include "numerics/report_text.h"

namespace tessara {

void ProcedureRun::AppendReport(std::string report) { reports.push_back(std::move(report)); }

void ProcedureRun::ReportError(std::string_view pending_text) {
  aborted = true;
  ClearCharts(charts);
  AppendReport(ErrorFrame(pending_text));
}

void ProcedureRun::SaveColumn(Column column, std::string what) {
  saved_columns.push_back(std::move(column));
  saved_as = std::move(what);
}

void ProcedureRun::LeaveCharts(ChartKind kind, std::vector<Chart> made) {
  if (!wants_charts) return;
  for (Chart& chart : made) chart.footnote = ChartFootnote;
  KeepCharts(charts, kind, std::move(made));
}

void FinishRun(ProcedureRun& run, DataSet& data, OutputLog& output, BoxOfRun box) {
  RoomForReports room = MakeRoom(output, run.reports);
  if (!run.saved_columns.empty()) {
    ApplyChange(data, AddColumns(data, std::move(run.saved_columns), std::move(run.saved_as)));
  }
  AppendRun(output, run.reports, std::move(room), box);
}

CaseSource BeginCases(ProcedureRun& run) {
  ClearCharts(run.charts);
  CaseSource source = ReadableCases(run.data, run.control_variable.column, run.control);
  run.ChartFootnote = source.control.ChartFootnote();
  return source;
}

}  // namespace tessara
