#include "shell/report_operations.h"

namespace tessara {

void PrintTable(Session& session) { PrintReport(session.table.grid, session.report_page, session.platform); }

std::optional<PrintJob> TableJob(Session& session) {
  return ReportJob(session.table.grid, session.report_page, session.platform);
}

bool SetTableColumnWidth(Session& session, std::string_view typed) {
  return EqualizeColumns(session.table.grid, typed, session.platform);
}

}  // namespace tessara
