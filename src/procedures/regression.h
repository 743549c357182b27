#pragma once

#include "procedures/run.h"

// The entry to the regressions: one model of the main variable on all independent variables of the panel, by least
// squares or logistic as the panel's kind says.

namespace tessara {

void RunRegression(ProcedureRun& run);

}  // namespace tessara
