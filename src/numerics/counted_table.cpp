#include "numerics/counted_table.h"

#include <algorithm>
#include <utility>

#include "numerics/number_text.h"
#include "numerics/probability.h"

namespace tessara {
namespace {

// Pearson's chi-square and the likelihood ratio, cell by cell.
void TestIndependence(const CountedTable& table, TableStatistics& statistics) {
  Number expected;  // a product beyond the range of a double leaves the expectation of the cell before
  for (std::size_t row = 0; row < table.rows; ++row) {
    for (std::size_t column = 0; column < table.columns; ++column) {
      const Checked observed = table.Cell(row, column);
      expected = Checked(table.row_totals[row]) * table.column_totals[column] / table.n;
      if (expected < 5) ++statistics.low_cells;
      if (expected == 0) continue;  // a category that was typed without cases
      statistics.chi_square += (observed - expected) * (observed - expected) / expected;
      if (observed != 0) statistics.likelihood_ratio += observed * Log(observed / expected);
    }
  }
  statistics.likelihood_ratio = 2 * statistics.likelihood_ratio;
  statistics.chi_square_p = Computed(ChiSquareP(statistics.df, statistics.chi_square));
  statistics.likelihood_p = Computed(ChiSquareP(statistics.df, statistics.likelihood_ratio));
}

// The sum over rows, and over columns, of their largest count.
struct LargestCounts {
  double of_rows = 0;
  double of_columns = 0;
};

LargestCounts SumLargestCounts(const CountedTable& table) {
  LargestCounts sums;
  std::vector<double> largest_of_column(table.columns, 0);
  for (std::size_t row = 0; row < table.rows; ++row) {
    double largest_of_row = 0;
    for (std::size_t column = 0; column < table.columns; ++column) {
      const double count = table.Cell(row, column);
      largest_of_row = std::max(largest_of_row, count);
      largest_of_column[column] = std::max(largest_of_column[column], count);
    }
    sums.of_rows += largest_of_row;
  }
  for (const double count : largest_of_column) sums.of_columns += count;
  return sums;
}

double LargestTotal(const std::vector<double>& totals) {
  double largest = 0;
  for (const double total : totals) largest = std::max(largest, total);
  return largest;
}

void MeasureAssociation(const CountedTable& table, TableStatistics& statistics) {
  const Checked n = table.n;
  const Checked chi = statistics.chi_square;
  const double smaller_side = static_cast<double>(std::min(table.columns, table.rows));
  statistics.cramers_v = Sqrt(chi / ((smaller_side - 1) * n));  // one row or column divides by 0
  statistics.pearson_c = Sqrt(chi / (n + chi));

  const LargestCounts sums = SumLargestCounts(table);
  const Checked sum_of_rows = sums.of_rows;
  const Checked sum_of_columns = sums.of_columns;
  const Checked most_in_row = LargestTotal(table.row_totals);
  const Checked most_in_column = LargestTotal(table.column_totals);
  statistics.lambda_symmetric =
      (sum_of_rows + sum_of_columns - most_in_row - most_in_column) / (2 * n - most_in_row - most_in_column);
  statistics.lambda_row = (sum_of_columns - most_in_row) / (n - most_in_row);
  statistics.lambda_column = (sum_of_rows - most_in_column) / (n - most_in_column);
}

void MeasureAgreement(const CountedTable& table, TableStatistics& statistics) {
  const Checked n = table.n;
  Number agreeing;
  Number expected;
  for (std::size_t i = 0; i < table.rows; ++i) {
    agreeing += table.Cell(i, i);
    expected += (table.row_totals[i] / n) * (table.column_totals[i] / n);
  }
  statistics.proportion_agree = agreeing / n;
  const Agreement agreement = ComputeAgreement(statistics.proportion_agree, expected, n);
  statistics.kappa = agreement.kappa;
  statistics.kappa_error = agreement.standard_error;
  statistics.kappa_is_perfect = statistics.proportion_agree.value() == 1;
  statistics.kappa_significance = agreement.significance;
}

void MeasureTwoByTwo(const CountedTable& table, TableStatistics& statistics) {
  const double a = table.Cell(0, 0);
  const double b = table.Cell(0, 1);
  const double c = table.Cell(1, 0);
  const double d = table.Cell(1, 1);
  statistics.yates_chi_square = YatesChiSquare(a, b, c, d);
  statistics.yates_p = Computed(ChiSquareP(statistics.df, statistics.yates_chi_square));
  if (table.n < 100) statistics.fisher_p = Computed(FisherExactP(a, b, c, d));
  statistics.odds_ratio = OddsRatioInterval(a, b, c, d);
  statistics.relative_risk = RiskRatioInterval(a, b, c, d);
}

}  // namespace

CountedTable::CountedTable(std::size_t row_count, std::size_t column_count, std::vector<double> counts)
    : rows(row_count), columns(column_count), cells(std::move(counts)), row_totals(rows), column_totals(columns) {
  cells.resize(rows * columns);
  for (std::size_t row = 0; row < rows; ++row) {
    for (std::size_t column = 0; column < columns; ++column) {
      row_totals[row] += Cell(row, column);
      column_totals[column] += Cell(row, column);
    }
    n += row_totals[row];
  }
}

TableStatistics ComputeTableStatistics(const CountedTable& table) {
  TableStatistics statistics;
  statistics.df = (static_cast<double>(table.rows) - 1) * (static_cast<double>(table.columns) - 1);
  TestIndependence(table, statistics);
  MeasureAssociation(table, statistics);
  if (table.rows == table.columns) MeasureAgreement(table, statistics);
  if (table.rows == 2 && table.columns == 2) MeasureTwoByTwo(table, statistics);
  return statistics;
}

Agreement ComputeAgreement(Checked observed, Checked expected, Checked n) {
  Agreement agreement;
  agreement.kappa = (observed - expected) / (1 - expected);
  agreement.standard_error = Sqrt(expected / ((1 - expected) * n));
  const Number z = agreement.kappa / agreement.standard_error;
  const Number hundredths = Checked(RoundHalfEven((100 * z).value()));
  const double t = Abs(hundredths).value();
  if (t == 0) {
    agreement.significance = 1;
  } else if (t > 459) {
    agreement.significance = 0.0001;
  } else {
    Number tail = NormalCdf(z);
    if (z > 0) tail = 1 - tail;
    agreement.significance = 2 * tail;
  }
  return agreement;
}

}  // namespace tessara
