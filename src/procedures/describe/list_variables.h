#pragma once

#include <cstddef>
#include <span>

#include "procedures/cases/procedure_run.h"
#include "procedures/describe/options.h"

// List Variables: the raw values of up to seven variables side by side, one line a case, for checking data.

namespace tessara {

// Lists the variables, all at once, and appends the report.
void RunListVariables(ProcedureRun& run, std::span<const std::size_t> variables, const ListOptions& options);

}  // namespace tessara
