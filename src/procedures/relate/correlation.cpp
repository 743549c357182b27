#include "procedures/relate/correlation.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "numerics/case_values.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "procedures/cases/accepted_cases.h"
#include "procedures/cases/saved_column.h"
#include "procedures/relate/scattergram.h"

namespace tessara {

SimpleRegression ComputeSimpleRegression(std::span<const double> y, std::span<const double> x, const PairSums& sums,
                                         const PearsonStatistics& pearson) {
  constexpr double kCasesForShortForm = 30;
  const Number n = static_cast<double>(pearson.n);
  SimpleRegression result;
  result.y_mean = sums.y / n;
  result.x_mean = sums.x / n;
  const Number y_squares = SumOfSquares(y, result.y_mean.value());
  const Number x_squares = SumOfSquares(x, result.x_mean.value());
  result.y_deviation = Sqrt(y_squares / (n - 1));
  result.x_deviation = Sqrt(x_squares / (n - 1));
  result.slope = pearson.numerator / pearson.x_spread;
  result.intercept = result.y_mean - result.slope * result.x_mean;
  const Number r = pearson.r;
  result.r_squared = r * r;

  const double a = result.intercept.value();
  const double b = result.slope.value();
  const Number residual_squares = SumInOrder(y.size(), [&](std::size_t i) {
    const double residual = y[i] - (a + b * x[i]);
    return residual * residual;
  });
  result.slope_error = Sqrt((residual_squares / (n - 2)) / x_squares);
  // From 30 cases on, the correction for the lost degree of freedom is left out.
  if (n < kCasesForShortForm) {
    result.estimate_error = Sqrt(1 - r * r) * Sqrt((n - 1) / (n - 2)) * result.y_deviation;
  } else {
    result.estimate_error = Sqrt(1 - r * r) * result.y_deviation;
  }
  return result;
}

namespace {

constexpr std::string_view kTitle = "Correlation Comparison: ";

// Everything that the report of one pair holds.
struct PairResults {
  std::size_t missing = 0;
  PearsonStatistics pearson;
  Scattergram drawing;
  SimpleRegression regression;  // only when it is asked for
};

PairResults ComputePair(const NumberCases& cases, const SimpleRegressionOptions& options) {
  const std::vector<double>& y = cases.variables[0];
  const std::vector<double>& x = cases.variables[1];
  PairResults results;
  results.missing = cases.missing;
  results.drawing = DrawScattergram(y, x);
  const PairSums sums = SumPairs(cases.n, [&](std::size_t i, double& y_value, double& x_value) {
    y_value = y[i];
    x_value = x[i];
  });
  results.pearson =
      ComputePearson(cases.n, sums, {.y = results.drawing.y.constant(), .x = results.drawing.x.constant()});
  if (options.regression) results.regression = ComputeSimpleRegression(y, x, sums, results.pearson);
  return results;
}

std::string NameAndLabel(const DataSet& data, std::size_t column, std::string_view between) {
  return data.VariableName(column).append(between).append(data.VariableLabel(column));
}

std::string RegressionBlock(const DataSet& data, const Roles& roles, const SimpleRegression& s, const std::string& p) {
  const auto value = [](const Number& number) { return FormatCol(number, 14, 4) + "\r\n"; };
  std::string block = "\r\nSimple Regression\r\n";
  block += "Y = " + NameAndLabel(data, roles.main, ":   ") + "\r\n";
  block += "X = " + NameAndLabel(data, roles.independent, ":   ") + "\r\n\r\n";
  block += "Variable Y Mean    " + value(s.y_mean);
  block += "Variable Y Std Dev " + value(s.y_deviation);
  block += "Variable X Mean    " + value(s.x_mean);
  block += "Variable X Std Dev " + value(s.x_deviation);
  block += "R Squared          " + value(s.r_squared);
  block += "Y Intercept (a)    " + value(s.intercept);
  block += "Slope (b)          " + value(s.slope);
  block += "Std Error (b)      " + value(s.slope_error);
  block += "Ho:(b)=0, p <      " + FormatCol(TaggedView(p), 14, 4) + "\r\n";
  block += "Std Err of Estimate" + value(s.estimate_error);
  return block;
}

std::string CorrelationReport(const CaseSource& source, const Roles& roles, const PairResults& results,
                              const SimpleRegressionOptions& options) {
  const DataSet& data = source.data;
  const std::size_t x = roles.independent;
  const std::string p = ShownP(results.pearson.r, results.pearson.p);
  std::string report = source.control.ControlCaption();
  report += options.regression ? RegressionBlock(data, roles, results.regression, p)  //
                               : "Pearson's Correlation\r\n";
  report += NameAndLabel(data, roles.main, ": ") + "\r\n";
  report += ScattergramText(results.drawing, data.VariableName(x), data.VariableLabel(x));
  report += "Number of cases: " + std::to_string(results.pearson.n) + "\r\n";
  report += "Missing: " + std::to_string(results.missing) + "\r\n";
  report += "Pearson Correlation: " + ShownR(results.pearson.r) + "\r\n";
  report += "p < (2-tailed signif.): " + p + "\r\n\r\n";
  return report;
}

// y - (a + b x) of each accepted case as a new variable; the others stay empty.
void SaveResiduals(ProcedureRun& run, std::size_t dependent, const NumberCases& cases,
                   const SimpleRegression& regression) {
  const std::vector<double>& y = cases.variables[0];
  const std::vector<double>& x = cases.variables[1];
  std::vector<double> residuals(y.size());
  for (std::size_t i = 0; i < y.size(); ++i) {
    residuals[i] = y[i] - (regression.intercept.value() + regression.slope.value() * x[i]);
  }
  const std::string name = "R-" + run.data.VariableName(dependent);
  run.SaveColumn(MakeSavedColumn(name, cases.accepted, residuals), "Save Residuals");
}

// Takes the values of the cases along, so that a chart of a million points costs no copy.
void LeaveCorrelationCharts(ProcedureRun& run, const Roles& roles, NumberCases cases) {
  const std::string y_name = run.data.VariableName(roles.main);
  const std::string x_name = run.data.VariableName(roles.independent);
  const auto y = std::make_shared<const std::vector<double>>(std::move(cases.variables[0]));
  const auto x = std::make_shared<const std::vector<double>>(std::move(cases.variables[1]));
  run.LeaveCharts(ChartKind::kCorrelation, {ScatterChart(y_name + " by " + x_name, "X axis variable - " + x_name,
                                                         "Y axis variable - " + y_name, x, y),
                                            IntervalChart(ChartType::kHistogram, y_name, y_name, y),
                                            IntervalChart(ChartType::kHistogram, x_name, x_name, x)});
}

bool IsVariable(const DataSet& data, std::size_t column) { return column >= 1 && column <= data.matrix.ColumnCount(); }

}  // namespace

void RunCorrelation(ProcedureRun& run, const Roles& roles) { RunCorrelationWith(run, roles, {}); }

void RunCorrelationWith(ProcedureRun& run, const Roles& roles, const SimpleRegressionOptions& options) {
  const DataSet& data = run.data;
  const std::array<std::size_t, 2> columns = {roles.main, roles.independent};
  const std::string names = NamesOfPair(data, roles.main, roles.independent);
  if (!IsVariable(data, roles.main) || !IsVariable(data, roles.independent)) {
    run.ReportError(ErrorMessage(kTitle, names, "You must select a dependent and independent variable."));
    return;
  }
  const CaseSource source = BeginCases(run);
  NumberCases cases = GatherNumberCases(source, columns);
  if (cases.n < 2) {
    run.ReportError(ErrorMessage(kTitle, names, "Two or more cases are required."));
    return;
  }
  const PairResults results = ComputePair(cases, options);
  run.AppendReport(CorrelationReport(source, roles, results, options));
  if (options.regression && options.save_residuals) SaveResiduals(run, roles.main, cases, results.regression);
  if (run.wants_charts) LeaveCorrelationCharts(run, roles, std::move(cases));
}

}  // namespace tessara
