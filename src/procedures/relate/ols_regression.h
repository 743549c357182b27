#pragma once

#include <optional>
#include <string>
#include <vector>

#include "numerics/checked.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/relate/options.h"
#include "procedures/relate/regression_model.h"

// Ordinary least squares: one dependent variable explained by one or more others with a straight-line equation.

namespace tessara {

struct LeastSquaresModel {
  Number n, m;  // cases, independent variables
  std::vector<double> Coef;
  std::vector<double> CoefSE;    // 0 where the inverse gives none
  std::vector<double> CoefBeta;  // of the standardised variables; the constant's is not printed
  std::vector<double> t, p;      // of each coefficient
  Number SST, SSE, SSR, MSE;
  Number degrees_of_freedom;  // n - 1 - m
  Number r_square, r, adjusted_r_square, standard_error;
  Number mean_square, f;      // of the regression
  std::optional<double> f_p;  // three decimals
  std::vector<double> residuals;
};

// Fits the model. Nothing ends it: constant or copied variables and a solver that does not arrive leave their figures.
LeastSquaresModel ComputeLeastSquares(const ModelCases& cases);

std::string LeastSquaresReport(const ModelCases& cases, const LeastSquaresModel& model, const CaseControl& control,
                               bool with_summary);

// Appends the report of the model, and adds the residuals as a new variable when they are asked for.
void ReportLeastSquares(ProcedureRun& run, const CaseControl& control, const ModelCases& cases,
                        const LeastSquaresOptions& options);

}  // namespace tessara
