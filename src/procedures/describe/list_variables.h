#pragma once

#include "procedures/cases/procedure_run.h"

// List Variables: the raw values of up to seven variables side by side, one line a case, for checking data.

namespace tessara {

inline constexpr std::size_t kMostListedVariables = 7;

// Lists the selected variables, all at once, and appends the report.
void RunListVariables(ProcedureRun& run);

}  // namespace tessara
