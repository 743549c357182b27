#include <string>
#include <utility>

#include "procedures/run.h"

namespace tessara {

void ProcedureRun::AppendReport(std::string report) {
  output.ReportText = std::move(report);
  tessara::AppendReport(output);
}

void ProcedureRun::ReportError(std::string_view pending_text) {
  aborted = true;
  tessara::ReportError(output, pending_text);
}

RunCases::RunCases(ProcedureRun& run) : used(run.data), control(run.data, run.panel.control) {
  LoadMissingSet(run.data, kMainRole);
  run.ChartFootnote = control.ChartFootnote();
}

}  // namespace tessara
