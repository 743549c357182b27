#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "numerics/checked.h"
#include "procedures/cases/procedure_run.h"
#include "procedures/relate/options.h"
#include "procedures/relate/regression_model.h"

// Binary logistic regression: a dependent variable coded 1 and 0, explained through the odds of the 1. Maximum
// likelihood by Newton's method.

namespace tessara {

// The outcomes of the cases. A dependent value other than 0 and 1 counts for neither, but its case is in the model, as
// one whose response is not a 1.
struct LogisticOutcomes {
  std::vector<double> response;  // of each case, 1 or 0
  std::size_t CountY1 = 0;
  std::size_t CountY0 = 0;
};
LogisticOutcomes ReadOutcomes(const ModelCases& cases);

struct LogisticModel {
  std::vector<double> Coef;
  std::vector<double> CoefSE;  // 0 where the inverse gives none
  std::vector<double> wald, p, odds_ratio;
  Number InitialDeviance, ModelDeviance;
  int IterationCount = 0;  // the round that found the step small, 201 when none of 200 did
  Number cox_snell, mcfadden, chi_square, degrees_of_freedom;
  std::optional<double> chi_square_p;  // nothing when it fails
  std::vector<double> probabilities;   // of each case

  // Counts of the predictions at the cut of .5, the observed value first, and how many percent of a group are correct,
  // nothing for a group without cases.
  std::array<std::array<std::size_t, 2>, 2> ClassTable{};
  std::array<std::optional<double>, 2> percent_correct;
  std::optional<double> percent_correct_overall;
};

// Fits the model. A coefficient that diverges, as those of perfectly separated outcomes do, ends nothing.
LogisticModel ComputeLogistic(const ModelCases& cases, const LogisticOutcomes& outcomes);

// Appends the report of the model, or the refusal of outcomes that are too few, and adds the predicted probabilities
// and the residuals as new variables when they are asked for.
void ReportLogistic(ProcedureRun& run, const CaseControl& control, const ModelCases& cases,
                    const LogisticOptions& options);

}  // namespace tessara
