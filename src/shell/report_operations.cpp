#include "shell/report_operations.h"

#include "presentation/table_edit.h"

namespace tessara {

void PrintTable(Session& session) { PrintReport(session.table.grid, session.report_page, session.platform); }

std::optional<PrintJob> TableJob(Session& session) {
  return ReportJob(session.table.grid, session.report_page, session.platform);
}

bool SetTableColumnWidth(Session& session, std::string_view typed) {
  TableGrid next = session.table.grid;
  if (!EqualizeColumns(next, typed, session.platform)) return false;
  ReplaceTable(session.table.grid, session.table.face, std::move(next), "Column Width");
  return true;
}

}  // namespace tessara
