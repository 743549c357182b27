#pragma once

#include "procedures/cases/procedure_run.h"

// The entry to the regressions: one model of the main variable on all independent variables of the panel, by least
// squares or logistic as the panel's kind says.

namespace tessara {

// Appends the report, or an error frame when cases or outcomes are too few, and leaves no charts. The columns that the
// panel wants saved stand behind the last variable by then.
void RunRegression(ProcedureRun& run, const Roles& roles);

}  // namespace tessara
