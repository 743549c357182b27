#include "procedures/relate/regression.h"

#include <string>
#include <string_view>
#include <vector>

#include "numerics/report_text.h"
#include "procedures/relate/logistic_regression.h"
#include "procedures/relate/ols_regression.h"
#include "procedures/relate/regression_model.h"

namespace tessara {
namespace {

constexpr std::string_view kTitle = "Regression Comparison for Y = ";

// The case pass, what both kinds ask of the cases, and the model. One variable may stand in several places.
void RunModel(ProcedureRun& run, std::size_t dependent) {
  const CaseSource source = BeginCases(run);
  const ModelCases cases = GatherModelCases(source, dependent, run.panel.IndependentVariables);
  if (cases.n < 2) {
    run.ReportError(ErrorMessage(kTitle, cases.dependent_name, "Two or more cases are required."));
    return;
  }
  if (cases.n <= cases.k()) {
    run.ReportError(ErrorMessage(kTitle, cases.dependent_name,
                                 "Regression requires that the number of observations be greater than the number of "
                                 "variables used in the model."));
    return;
  }
  if (run.panel.regression == RegressionKind::kLogistic) {
    ReportLogistic(run, source.control, cases);
  } else {
    ReportLeastSquares(run, source.control, cases);
  }
}

}  // namespace

void RunRegression(ProcedureRun& run, const Roles& roles) {
  const std::size_t dependent = roles.main;
  const std::vector<std::size_t>& independent = run.panel.IndependentVariables;
  if (dependent < 1 || independent.empty()) {
    const std::string names = run.data.VariableName(dependent) + " by " +
                              (independent.empty() ? std::string() : run.data.VariableName(independent.front()));
    run.ReportError(
        ErrorMessage("Multiple Regression: ", names, "You must select a dependent and independent variable."));
    return;
  }
  RunModel(run, dependent);
  if (run.panel.checks.Check1) RebuildVariableLists(run.data);  // the names of what was saved
}

}  // namespace tessara
