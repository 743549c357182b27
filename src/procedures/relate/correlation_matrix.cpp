#include "procedures/relate/correlation_matrix.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <functional>
#include <utility>

#include "numerics/case_values.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "procedures/cases/accepted_cases.h"
#include "procedures/relate/pearson.h"

namespace tessara {
namespace {

// A variable, prepared once for all its pairs. Its values are those of the data, a 0 where there is no number.
struct PreparedVariable {
  std::span<const double> values;
  CaseFlags accepted;  // by the control and by the variable itself
  bool complete = false;
};

PreparedVariable Prepare(const CaseSource& source, std::size_t column, const CaseFlags& passing) {
  PreparedVariable variable;
  variable.accepted = passing;
  const std::size_t records = source.used.records;
  DropUnlessNumber(source, column, variable.accepted);
  variable.complete = CountCases(variable.accepted) == records;
  variable.values = std::span(source.data.matrix.Numbers(column, records).values).first(records);
  return variable;
}

bool AllEqualAmong(std::span<const double> values, const CaseFlags& accepted) {
  std::size_t first = 0;
  while (first < values.size() && accepted[first] == 0) ++first;
  for (std::size_t i = first; i < values.size(); ++i) {  // as a rule left at once
    if (accepted[i] != 0 && values[i] != values[first]) return false;
  }
  return true;
}

// A pair of variables that have a number in every record.
PearsonStatistics ComputeCompletePair(std::span<const double> y, std::span<const double> x) {
  const PairSums sums = SumPairs(y.size(), [&](std::size_t i, double& y_value, double& x_value) {
    y_value = y[i];
    x_value = x[i];
  });
  return ComputePearsonCoefficient(y.size(), sums, {.y = AllEqual(y), .x = AllEqual(x)});
}

// The value of an accepted case, 0 of any other: without a branch, whatever the pattern of the missing values.
double AcceptedOrZero(double value, std::uint8_t accepted) {
  const std::uint64_t all_bits_or_none = 0 - std::uint64_t{accepted};
  return std::bit_cast<double>(std::bit_cast<std::uint64_t>(value) & all_bits_or_none);
}

// The pairs of the accepted cases, `n` of them. All others count as 0, which changes no sum.
PearsonStatistics ComputePairAmong(std::span<const double> y, std::span<const double> x, const CaseFlags& accepted,
                                   std::size_t n) {
  const PairSums sums = SumPairs(y.size(), [&](std::size_t i, double& y_value, double& x_value) {
    y_value = AcceptedOrZero(y[i], accepted[i]);
    x_value = AcceptedOrZero(x[i], accepted[i]);
  });
  return ComputePearsonCoefficient(n, sums, {.y = AllEqualAmong(y, accepted), .x = AllEqualAmong(x, accepted)});
}

// The coefficient of a pair; nothing when it has fewer than two cases. `common` is space for flags, kept from pair to
// pair.
std::optional<PearsonStatistics> ComputePair(const PreparedVariable& y, const PreparedVariable& x, CaseFlags& common) {
  if (y.complete && x.complete) {
    if (y.values.size() < 2) return std::nullopt;
    return ComputeCompletePair(y.values, x.values);
  }
  common.resize(y.accepted.size());
  std::transform(y.accepted.begin(), y.accepted.end(), x.accepted.begin(), common.begin(),
                 std::bit_and<std::uint8_t>());
  const std::size_t n = CountCases(common);
  if (n < 2) return std::nullopt;
  return ComputePairAmong(y.values, x.values, common, n);
}

constexpr std::size_t kMostWaitingPairs = 4096;

// Pairs whose p is still to be computed: that of many together takes a fraction of the time.
struct WaitingPairs {
  std::vector<std::pair<std::size_t, std::size_t>> places;
  std::vector<PearsonStatistics> coefficients;

  void MoveInto(CorrelationStore& store) {
    ComputePearsonPs(coefficients);
    for (std::size_t k = 0; k < places.size(); ++k) {
      const PearsonStatistics& pearson = coefficients[k];
      store.Store(places[k].first, places[k].second, {pearson.r, pearson.n, pearson.p});
    }
    places.clear();
    coefficients.clear();
  }
};

}  // namespace

CorrelationStore ComputeCorrelationMatrix(const CaseSource& source, std::span<const std::size_t> columns) {
  const CaseFlags passing = PassingRecords(source);
  std::vector<PreparedVariable> variables;
  variables.reserve(columns.size());
  for (const std::size_t column : columns) variables.push_back(Prepare(source, column, passing));

  CorrelationStore store(columns.size());
  WaitingPairs waiting;
  CaseFlags common;
  for (std::size_t i = 0; i < variables.size(); ++i) {
    for (std::size_t j = i; j < variables.size(); ++j) {
      auto coefficient = ComputePair(variables[i], variables[j], common);
      if (!coefficient) continue;
      waiting.places.emplace_back(i, j);
      waiting.coefficients.push_back(*std::move(coefficient));
      if (waiting.places.size() == kMostWaitingPairs) waiting.MoveInto(store);
    }
  }
  waiting.MoveInto(store);
  return store;
}

namespace {

// The widths of the head line. Its right end follows the widths by a table of its own, so that the line is one longer
// than the rule for some numbers of variables.
struct HeadWidths {
  std::int16_t ahead = 0;
  int behind = 0;
};

HeadWidths HeadWidthsOf(std::size_t variables) {
  HeadWidths widths;
  const Number k = static_cast<double>(variables);
  Keep(widths.ahead, ToInt16((k * 11 - 18) / 2));
  switch (variables) {
    case 3:
    case 7:
    case 11:
    case 15:
    case 18:
      widths.behind = widths.ahead - 2;
      break;
    case 5:
    case 9:
    case 13:
    case 17:
      widths.behind = widths.ahead;
      break;
    default:
      widths.behind = widths.ahead - 1;
  }
  return widths;
}

std::string MatrixHead(const DataSet& data, std::span<const std::size_t> columns) {
  const int width = static_cast<int>(columns.size()) * 11;
  const HeadWidths widths = HeadWidthsOf(columns.size());
  std::string head = DashedRule(width + 11) + "\r\n";
  head += "    Coeff |" + Blanks(widths.ahead) + "Correlation Matrix" + Blanks(widths.behind) + " |\r\n";
  head += "    Cases |" + DashedRule(width - 1) + "|\r\n";
  head += "      p < |";
  for (const std::size_t column : columns) head += PadLeftBlank(data.VariableName(column), 9) + "|";
  head += "\r\n" + DashedRule(width + 11) + "\r\n";
  return head;
}

// The three lines of a variable. The cells of a pair that was not computed are blank.
std::string MatrixRow(const CorrelationStore& store, std::size_t i, const std::string& name) {
  using Cell = CorrelationStore::Cell;
  const auto cells = [&](auto text) {
    std::string line;
    for (std::size_t j = 0; j < store.size(); ++j) {
      const std::optional<Cell>& cell = store.At(i, j);
      line += PadLeftBlank(cell ? text(*cell) : std::string(), 9) + "|";
    }
    return line + "\r\n";
  };
  std::string row = PadLeftBlank(name, 9) + "|" + cells([](const Cell& cell) { return ShownR(cell.r); });
  row += "          |" + cells([](const Cell& cell) { return std::to_string(cell.n); });
  row += "          |" + cells([](const Cell& cell) { return ShownP(cell.r, cell.p); });
  return row;
}

std::string MatrixReport(const CaseSource& source, std::span<const std::size_t> columns,
                         const CorrelationStore& store) {
  std::string report = "Correlation: Pearson (R) Coefficients\r\n";
  if (const std::string label = source.control.ControlLabel(); !label.empty()) report += label + "\r\n";
  report += "\r\n";
  report += MatrixHead(source.data, columns);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    report += MatrixRow(store, i, source.data.VariableName(columns[i]));
    report += DashedRule(static_cast<int>(columns.size()) * 11 + 11) + "\r\n";
  }
  report += "\r\n2-tailed significance tests\r\n'.' p-value not computed\r\n\r\n\r\n";
  return report;
}

}  // namespace

void RunCorrelationMatrix(ProcedureRun& run, std::span<const std::size_t> columns) {
  if (columns.size() < 2) {
    run.ReportError("You must select at least two analysis variables.\r\n\r\n");
    return;
  }
  const CaseSource source = BeginCases(run);
  const CorrelationStore store = ComputeCorrelationMatrix(source, columns);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    for (std::size_t j = i; j < columns.size(); ++j) {
      if (store.At(i, j)) continue;
      run.ReportError(ErrorMessage("Correlation Comparison: ", NamesOfPair(run.data, columns[i], columns[j]),
                                   "Two or more cases are required."));
    }
  }
  run.AppendReport(MatrixReport(source, columns, store));
}

}  // namespace tessara
