#pragma once

#include <span>

#include "numerics/checked.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/relate/pearson.h"

// Correlation: Pearson's coefficient of the main variable, Y, and the independent variable, X, with its two-tailed test
// and a scattergram drawn in text. Deletion is listwise over the pair.

namespace tessara {

// The regression of Y on X. All figures but the p of the coefficient, which is that of r.
struct SimpleRegression {
  Number y_mean, y_deviation;
  Number x_mean, x_deviation;
  Number r_squared;  // of the rounded r
  Number intercept, slope;
  Number slope_error;
  Number estimate_error;
};

// `pearson` and `sums` are those of the same pairs.
SimpleRegression ComputeSimpleRegression(std::span<const double> y, std::span<const double> x, const PairSums& sums,
                                         const PearsonStatistics& pearson);

// What the report holds beside the correlation.
struct SimpleRegressionOptions {
  bool regression = false;
  bool save_residuals = false;  // as a new variable; with the regression only
};

// Runs the procedure for the main variable as Y and the independent one as X and appends its report.
void RunCorrelation(ProcedureRun& run, const Roles& roles);
void RunCorrelationWith(ProcedureRun& run, const Roles& roles, const SimpleRegressionOptions& options);

}  // namespace tessara
