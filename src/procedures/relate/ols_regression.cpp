#include "procedures/relate/ols_regression.h"

#include <utility>

#include "numerics/masks.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "procedures/cases/saved_column.h"
#include "procedures/relate/regression_report.h"

namespace tessara {
namespace {

std::vector<double> Residuals(const ModelCases& cases, const std::vector<double>& coefficients) {
  std::vector<double> residuals(cases.n);
  double prediction = 0;  // of the last case; it outlives the block
  ForEachBlock(cases, [&](const ModelBlock& block) {
    double* const out = residuals.data() + block.first;
    Predict(block, coefficients, prediction, out);
    prediction = out[block.count - 1];
    for (std::size_t c = 0; c < block.count; ++c) out[c] = block.y[c] - out[c];
  });
  return residuals;
}

void ComputeFit(const VariableSpread& y, LeastSquaresModel& model) {
  const Number& n = model.n;
  const Number& m = model.m;
  const std::vector<double>& residuals = model.residuals;
  model.degrees_of_freedom = n - 1 - m;
  model.SSE = SumInOrder(residuals.size(), [&](std::size_t i) { return residuals[i] * residuals[i]; });
  model.SST = y.squares;
  model.MSE = model.SSE / (n - (m + 1));
  model.SSR = model.SST - model.SSE;
  if (model.SSR < 0) model.SSR = 0;  // nothing is explained, and rounding or the solver's last step left a little less
  model.r_square = model.SSR / model.SST;  // a constant y fails, and leaves the 0
  model.r = Sqrt(model.r_square);
  model.adjusted_r_square = (model.r_square - m / (n - 1)) * (n - 1) / (n - 1 - m);
  model.mean_square = model.SSR / m;
  model.f = model.mean_square / model.MSE;
  model.f_p = Computed(RoundedBy(FDistP(m, model.degrees_of_freedom, model.f), "0.000"));
  model.standard_error = Sqrt(model.MSE);
}

void ComputeTests(LeastSquaresModel& model) {
  Number t, p;  // a test that fails keeps the figures of the coefficient before
  for (std::size_t j = 0; j < model.Coef.size(); ++j) {
    t = Checked(model.Coef[j]) / model.CoefSE[j];
    p = TDistP(model.degrees_of_freedom, t);
    model.t.push_back(t.value());
    model.p.push_back(p.value());
  }
}

}  // namespace

LeastSquaresModel ComputeLeastSquares(const ModelCases& cases) {
  LeastSquaresModel model;
  model.n = static_cast<double>(cases.n);
  model.m = static_cast<double>(cases.k() - 1);
  const NormalEquations equations = MakeNormalEquations(cases);
  const std::vector<VariableSpread> spreads = MeasureSpreads(cases);
  model.Coef = SolveFromZero(equations.NormalMatrix, equations.Gradient);
  model.residuals = Residuals(cases, model.Coef);
  ComputeFit(spreads[0], model);
  model.CoefSE = CoefficientErrors(JacobiInverse(equations.NormalMatrix), model.MSE);
  const NormalEquations standardized = MakeStandardizedEquations(cases, spreads);
  model.CoefBeta = SolveFromZero(standardized.NormalMatrix, standardized.Gradient);
  ComputeTests(model);
  return model;
}

namespace {

std::string CoefficientRow(const ModelCases& cases, const LeastSquaresModel& model, std::size_t j) {
  std::string row = PadLeftBlank(cases.ModelNames[j], 12);
  row += FormatCol(model.Coef[j], 15, 5);
  row += FormatCol(model.CoefSE[j], 15, 5);
  row += j == 0 ? Blanks(15) : FormatCol(model.CoefBeta[j], 15, 5);
  if (model.CoefSE[j] > 0) row += FormatCol(model.t[j], 11, 3) + FormatCol(model.p[j], 11, 4);
  return row + "\r\n";
}

}  // namespace

std::string LeastSquaresReport(const ModelCases& cases, const LeastSquaresModel& model, const CaseControl& control,
                               bool with_summary) {
  const std::string rule = DashedRule(kRegressionRuleLength) + "\r\n";
  const auto count = [](const Number& number) { return FormatCol(number, 10, 0); };
  std::string report = cases.k() == 2 ? DashedRule(29) + " Simple OLS Regression " + DashedRule(30) + "\r\n"
                                      : DashedRule(28) + " Multiple OLS Regression " + DashedRule(29) + "\r\n";
  report += control.ChartFootnote();  // the words of the caption: the line ends that follow are the report's own
  report += "\r\n\r\nExplanatory Model\r\n\r\n";
  report += ModelEquation(cases);
  if (with_summary) report += SummaryTable(cases);
  report += "\r\n\r\nModel Fit Statistics\r\n\r\n";
  report += PadLeftBlank("Cases(n)", 12) + PadLeftBlank("R", 11) + PadLeftBlank("R Square", 15) +
            PadLeftBlank("Adj Rsq", 15) + PadLeftBlank("SE Est.", 15) + "\r\n";
  report += rule;
  report += FormatCol(model.n, 12, 0) + FormatCol(model.r, 12, 3) + FormatCol(model.r_square, 16, 3) +
            FormatCol(model.adjusted_r_square, 16, 3) + FormatCol(model.standard_error, 16, 3) + "\r\n\r\n";
  report += "ANOVA Statistics\r\n\r\n";
  report += PadLeftBlank("Sum of Sqs", 31) + PadLeftBlank("df", 9) + PadLeftBlank("Mean Sq", 17) +
            PadLeftBlank("F", 10) + PadLeftBlank("p < ", 10) + "\r\n";
  report += rule;
  report += PadLeftBlank("Regression", 12) + FormatCol(model.SSR, 18, 3) + count(model.m) +
            FormatCol(model.mean_square, 18, 3) + FormatCol(model.f, 11, 3) +
            (model.f_p ? FormatCol(*model.f_p, 10, 4) : FormatCol("NA", 10, 4)) + "\r\n";
  report += PadLeftBlank("Residual", 12) + FormatCol(model.SSE, 18, 3) + count(model.degrees_of_freedom) +
            FormatCol(model.MSE, 18, 3) + "\r\n";
  report += PadLeftBlank("Total", 12) + FormatCol(model.SST, 18, 3) + count(model.n - 1) + "\r\n\r\n";
  report += "Coefficients\r\n\r\n";
  report += PadRight("Variable", 12) + PadLeftBlank("b Coeff.", 16) + PadLeftBlank("std. error", 14) +
            PadLeftBlank("BetaWgt", 14) + PadLeftBlank("t", 10) + PadLeftBlank("p <", 10) + "\r\n";
  report += rule;
  for (std::size_t j = 0; j < cases.k(); ++j) report += CoefficientRow(cases, model, j);
  report += "\r\n\r\nEstimated Model\r\n\r\n";
  report += EstimatedEquation(cases, model.Coef, ".000") + "\r\n";
  report += "\r\n\r\n";
  return report;
}

namespace {

// A new variable with the label of the dependent one. The cells of excluded cases stay empty.
void SaveResiduals(ProcedureRun& run, const ModelCases& cases, const LeastSquaresModel& model) {
  Column column = MakeSavedColumn("R-" + cases.dependent_name, cases.accepted, model.residuals);
  if (!cases.dependent_label.empty()) column.Set(kVariableLabelRow, cases.dependent_label);
  run.SaveColumn(std::move(column), "Save Residuals");
}

}  // namespace

void ReportLeastSquares(ProcedureRun& run, const CaseControl& control, const ModelCases& cases,
                        const LeastSquaresOptions& options) {
  const LeastSquaresModel model = ComputeLeastSquares(cases);
  if (options.save_residuals) SaveResiduals(run, cases, model);
  run.AppendReport(LeastSquaresReport(cases, model, control, options.summary));
}

}  // namespace tessara
