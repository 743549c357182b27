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

void RefuseModel(ProcedureRun& run, const ModelVariables& variables) {
  const std::string names =
      run.data.VariableName(variables.dependent) + " by " +
      (variables.independent.empty() ? std::string() : run.data.VariableName(variables.independent.front()));
  run.ReportError(
      ErrorMessage("Multiple Regression: ", names, "You must select a dependent and independent variable."));
}

// The case pass, what both kinds ask of the cases, and the model: report(control, cases). One variable may stand in
// several places.
template <typename Report>
void RunModel(ProcedureRun& run, const ModelVariables& variables, Report report) {
  if (variables.dependent < 1 || variables.independent.empty()) return RefuseModel(run, variables);
  const CaseSource source = BeginCases(run);
  const ModelCases cases = GatherModelCases(source, variables.dependent, variables.independent);
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
  report(source.control, cases);
}

}  // namespace

void RunLeastSquares(ProcedureRun& run, const ModelVariables& variables, const LeastSquaresOptions& options) {
  RunModel(run, variables, [&](const CaseControl& control, const ModelCases& cases) {
    ReportLeastSquares(run, control, cases, options);
  });
}

void RunLogistic(ProcedureRun& run, const ModelVariables& variables, const LogisticOptions& options) {
  RunModel(run, variables,
           [&](const CaseControl& control, const ModelCases& cases) { ReportLogistic(run, control, cases, options); });
}

}  // namespace tessara
