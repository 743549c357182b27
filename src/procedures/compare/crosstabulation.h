#pragma once

#include <string>

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

// Runs the procedure, the main variable in the rows and the independent one in the columns, and appends its report.
void RunCrosstabulation(ProcedureRun& run, const Roles& roles, const CrosstabulationOptions& options);

}  // namespace tessara
