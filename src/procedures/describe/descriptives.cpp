#include "procedures/describe/descriptives.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "data/missing_test.h"
#include "numerics/case_values.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "presentation/bar_chart.h"
#include "procedures/cases/saved_column.h"

namespace tessara {
namespace {

// Calls accept(record, value) for the cases that a procedure of numbers may use, in grid order, and yields how many
// were excluded: missing, or stopped by the control. A cell that is not numeric is neither accepted nor excluded.
template <typename Accept>
std::size_t ForEachAcceptedNumber(const CaseSource& source, std::size_t column, NotEqualReading reading,
                                  Accept accept) {
  const DataMatrix& matrix = source.data.matrix;
  const NumericColumn& numbers = matrix.Numbers(column, source.used.records);
  const MissingValues missing_values = LoadMissingSet(matrix, column);
  const MissingTest missing(matrix, column, missing_values, numbers);
  const std::vector<std::uint8_t> passing = source.control.PassingCases(source.used.records, reading);
  std::size_t excluded = 0;
  for (std::size_t record = 0; record < source.used.records; ++record) {
    const bool dropped = missing.Drops(record);
    if (!dropped && numbers.classes[record] != CellClass::kNumber) continue;  // ahead of the control
    if (dropped || (!passing.empty() && passing[record] == 0)) {
      ++excluded;
      continue;
    }
    accept(record, numbers.values[record], record - excluded);
  }
  return excluded;
}

}  // namespace

DescriptiveCases GatherDescriptives(const CaseSource& source, std::size_t column) {
  DescriptiveCases cases;
  cases.values.resize(source.used.records);
  std::size_t used = 0;
  // The place of a value is its record less the cases excluded so far, so a cell that is not numeric leaves a 0 behind.
  cases.excluded = ForEachAcceptedNumber(source, column, NotEqualReading::kAsText,
                                         [&](std::size_t, double value, std::size_t place) {
                                           cases.values[place] = value;
                                           used = place + 1;
                                         });
  cases.values.resize(used);
  cases.sum = SumInOrder(used, [&](std::size_t i) { return cases.values[i]; });
  return cases;
}

DescriptiveStatistics ComputeDescriptives(DescriptiveCases& cases) {
  DescriptiveStatistics result;
  std::vector<double>& values = cases.values;
  const Number n = static_cast<double>(values.size());
  result.count = values.size();
  result.excluded = cases.excluded;
  result.sum = cases.sum;
  result.mean = result.sum / n;

  const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
  result.minimum = *least;
  result.maximum = *greatest;
  result.range = result.maximum - result.minimum;

  Number squares, cubes, fourths;
  if (*least != *greatest) {  // equal values have no deviation, whatever their mean rounds to
    const double mean = result.mean.value();
    squares = SumInOrder(values.size(), [&](std::size_t i) { return (values[i] - mean) * (values[i] - mean); });
    cubes = SumInOrder(values.size(),
                       [&](std::size_t i) { return (values[i] - mean) * (values[i] - mean) * (values[i] - mean); });
    fourths = SumInOrder(values.size(), [&](std::size_t i) {
      const double square = (values[i] - mean) * (values[i] - mean);
      return square * square;
    });
  }
  result.median = MedianOf(values);

  result.population_variance = squares / n;
  result.population_deviation = Sqrt(result.population_variance);
  result.sample_variance = squares / (n - 1);
  result.sample_deviation = Sqrt(result.sample_variance);
  result.standard_error = result.sample_deviation / Sqrt(n - 1);
  if (result.mean != 0 && result.sample_deviation != 0) {
    result.coefficient_of_variation = (result.sample_deviation / result.mean) * 100;
  }
  result.skewness = cubes / n / Power(result.population_deviation, 3);
  result.kurtosis = fourths / n / Power(result.population_deviation, 4);
  result.t = result.mean / result.standard_error;
  result.p = Computed(TDistP(n - 1, result.t));
  Number critical_n = n;  // comes back as the degrees of freedom
  result.interval = TCritical95(critical_n) * result.standard_error;
  return result;
}

namespace {

// The z-scores as a new variable behind the last one, with the dictionary of their source. Their own pass reads "not
// equal to" as a comparison of numbers.
void SaveZScores(ProcedureRun& run, const CaseSource& source, std::size_t column,
                 const DescriptiveStatistics& statistics) {
  const DataSet& data = run.data;
  const std::string name = data.VariableName(column);
  Column scores;
  for (std::size_t row = 1; row < kVariableNameRow; ++row) scores.Set(row, data.matrix.Cell(row, column));
  if (data.VariableLabel(column).empty()) scores.Set(kVariableLabelRow, name);
  scores.Set(kVariableNameRow, "Z-" + name);

  ForEachAcceptedNumber(source, column, NotEqualReading::kAsNumber, [&](std::size_t record, double value, std::size_t) {
    const Checked z = (value - statistics.mean) / statistics.sample_deviation;
    if (const auto text = Masked(z, "0.00000")) scores.Set(kFirstRecordRow + record, *text);
  });
  run.SaveColumn(std::move(scores), "Save Z-Scores");
}

std::string DescriptivesReport(const CaseSource& source, std::size_t column, const DescriptiveStatistics& s,
                               const std::string& chart) {
  const auto value = [](const Number& number) { return FormatCol(number, 24, 4); };
  std::string report = source.control.ControlCaption();
  report += ReportHead("Descriptive Statistics", source.data.VariableName(column), source.data.VariableLabel(column));
  report += "Count        " + FormatCol(static_cast<double>(s.count), 19, 0) + "         " +  //
            "Pop Var      " + value(s.population_variance) + "\r\n";
  report += "Sum          " + value(s.sum) + "    " + "Sam Var      " + value(s.sample_variance) + "\r\n";
  report += "Mean         " + value(s.mean) + "    " + "Pop Std      " + value(s.population_deviation) + "\r\n";
  report += "Median       " + value(s.median) + "    " + "Sam Std      " + value(s.sample_deviation) + "\r\n";
  report += "Min          " + value(s.minimum) + "    " + "Std Error    " + value(s.standard_error) + "\r\n";
  report += "Max          " + value(s.maximum) + "    " + "CV%          " + value(s.coefficient_of_variation) + "\r\n";
  report += "Range        " + value(s.range) + "    " + "95% CI (+/-) " + value(s.interval) + "\r\n";
  report += "Skewness     " + value(s.skewness) + "    " + "One sample t-test (mu=0)  |p<| " +
            MaskedOrEmpty(s.p, "0.0000") + "\r\n";
  report += DashedRule() + "\r\n\r\n";
  report += "Missing Cases    " + std::to_string(s.excluded) + "\r\n";
  report += chart;
  return report;
}

// What stands beside an enlarged chart. The count has decimals here as the other values have.
std::string ShortSummary(const CaseSource& source, std::size_t column, const DescriptiveStatistics& s) {
  const auto value = [](const Number& number) { return FormatCol(number, 14, 4) + "\r\n"; };
  std::string summary = source.control.ControlCaption();
  summary += "Descriptive Statistics\r\n";
  summary += "Variable: " + source.data.VariableName(column) + "\r\n";
  summary += "Label: " + source.data.VariableLabel(column) + "\r\n";
  summary += "Count        " + value(static_cast<double>(s.count));
  summary += "Mean         " + value(s.mean);
  summary += "Median       " + value(s.median);
  summary += "Min          " + value(s.minimum);
  summary += "Max          " + value(s.maximum);
  summary += "Missing Cases    " + std::to_string(s.excluded) + "\r\n";
  return summary;
}

// The same intervals in three forms. The values go over to the charts.
void LeaveDescriptiveCharts(ProcedureRun& run, const std::string& name, std::vector<double> values) {
  const auto shared = std::make_shared<const std::vector<double>>(std::move(values));
  run.LeaveCharts(ChartKind::kDescriptives, {IntervalChart(ChartType::kHistogram, "Histogram", name, shared),
                                             IntervalChart(ChartType::kLine, "Line Chart", name, shared),
                                             IntervalChart(ChartType::kHistogramAndLine, "Line/Hist", name, shared)});
}

}  // namespace

void ReportTooFewObservations(ProcedureRun& run, std::size_t column) {
  run.ReportError(ErrorMessage(kDescriptiveTitle, run.data.VariableName(column),
                               "There are less than 2 observations, so procedure was aborted."));
}

std::optional<DescriptiveCases> RunDescriptivePass(ProcedureRun& run, const CaseSource& source, std::size_t column) {
  DescriptiveCases cases = GatherDescriptives(source, column);
  if (cases.values.size() >= 2) return cases;
  ReportTooFewObservations(run, column);
  return std::nullopt;
}

void RunDescriptives(ProcedureRun& run, const Roles& roles, const DescriptivesOptions& options) {
  const DataSet& data = run.data;
  const std::size_t column = roles.main;
  if (column < 1) {
    run.ReportError(ErrorMessage(kDescriptiveTitle, "", "You must select a dependent variable."));
    return;
  }
  const CaseSource source = BeginCases(run);
  std::optional<DescriptiveCases> cases = RunDescriptivePass(run, source, column);
  if (!cases) return;
  const DescriptiveStatistics statistics = ComputeDescriptives(*cases);
  const std::string chart =
      options.bar_chart
          ? BarChartText(MakeBarTable(cases->values, statistics.minimum.value(), statistics.range.value()))
          : "\r\n";
  run.AppendReport(DescriptivesReport(source, column, statistics, chart));
  if (run.wants_charts) {
    LeaveDescriptiveCharts(run, data.VariableName(column), std::move(cases->values));
    run.charts.summary = ShortSummary(source, column, statistics);
  }
  if (options.save_z_scores) SaveZScores(run, source, column, statistics);
}

}  // namespace tessara
