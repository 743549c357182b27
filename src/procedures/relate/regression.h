#pragma once

#include <cstddef>
#include <span>

#include "procedures/cases/procedure_run.h"
#include "procedures/relate/options.h"

// The entries to the regressions: one model of a dependent variable on all independent ones.

namespace tessara {

struct ModelVariables {
  std::size_t dependent = 0;  // columns
  std::span<const std::size_t> independent;
};

// Append the report, or an error frame when cases or outcomes are too few, and leave no charts. The columns that are to
// be saved stand behind the last variable by then.
void RunLeastSquares(ProcedureRun& run, const ModelVariables& variables, const LeastSquaresOptions& options);
void RunLogistic(ProcedureRun& run, const ModelVariables& variables, const LogisticOptions& options);

}  // namespace tessara
