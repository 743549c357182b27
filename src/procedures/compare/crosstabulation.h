#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "data/data_set.h"
#include "numerics/counted_table.h"
#include "procedures/cases/counted_cases.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/compare/options.h"

// Crosstabulation: the table of two categorical variables with its percents, and on request chi-square tests, risk
// measures, measures of association and agreement.

namespace tessara {

// The report behind its control caption.
std::string CrosstabulationReport(const DataSet& data, const TableVariables& variables, const CountedCases& cases,
                                  const TableStatistics& statistics, const CrosstabulationOptions& options);

// The cases counted by both variables, of which there is at least one. No case, and more categories than a table can
// have, is an error, which the pass reports itself, and it yields nothing.
std::optional<CountedCases> RunCountPass(ProcedureRun& run, const CaseSource& source, const TableVariables& variables);
void ReportCrosstabError(ProcedureRun& run, const TableVariables& variables, std::string_view sentence);

// Runs the procedure, the main variable in the rows and the independent one in the columns, and appends its report.
void RunCrosstabulation(ProcedureRun& run, const Roles& roles, const CrosstabulationOptions& options);

}  // namespace tessara
