#pragma once

#include <optional>
#include <vector>

#include "numerics/checked.h"
#include "numerics/counted_table.h"
#include "procedures/cases/procedure_run.h"

// Diagnostic accuracy: an ordered test result against a reference standard of two categories, the first known
// non-disease and the second known disease. Each cut between adjacent test categories has its sensitivity, specificity,
// predictive values, likelihood ratios and kappa; the area under the ROC curve sums them up.

namespace tessara {

// Test results up to and with a category count as negative, those above it as positive.
struct CutPoint {
  Number sensitivity;
  Number specificity;
  Number positive_predictive_value;
  Number negative_predictive_value;
  std::optional<double> positive_ratio;  // likelihood ratios; nothing where they are not defined
  std::optional<double> negative_ratio;
  Number kappa;
  std::optional<double> kappa_significance;  // nothing where all cases agree
};

struct DiagnosticAccuracy {
  std::vector<CutPoint> cuts;  // one for each test category but the last
  Number area;                 // under the ROC curve, by the trapezoid rule
};

// Of a table with a row for each test category, ascending, and the columns non-disease and disease.
DiagnosticAccuracy ComputeDiagnosticAccuracy(const CountedTable& table);

// Runs the procedure, the main variable as the test and the independent one as the reference, and appends its report.
void RunDiagnostic(ProcedureRun& run, const Roles& roles);

}  // namespace tessara
