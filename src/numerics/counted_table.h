#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "numerics/checked.h"
#include "numerics/two_by_two.h"

// The statistics of a table of counts: chi-square tests, measures of association, agreement and risk. The table may
// come from cases or from typed figures.

namespace tessara {

// Counts of `rows` by `columns` categories, row by row, with their totals. A caller may fill in totals of its own,
// which are then not the sums of the cells: those of a larger table of which this one is a part.
struct CountedTable {
  CountedTable() = default;
  // Cells that are not given count 0.
  CountedTable(std::size_t row_count, std::size_t column_count, std::vector<double> counts);

  double Cell(std::size_t row, std::size_t column) const { return cells[row * columns + column]; }

  std::size_t rows = 0;
  std::size_t columns = 0;
  std::vector<double> cells;
  std::vector<double> row_totals;
  std::vector<double> column_totals;
  double n = 0;
};

struct TableStatistics {
  std::size_t low_cells = 0;  // cells with an expected count below 5
  double df = 0;
  Number chi_square;                   // Pearson's
  Number likelihood_ratio;             // G, twice the sum of O ln(O / E)
  std::optional<double> chi_square_p;  // nothing where it fails, of a chi-square of 0 for example
  std::optional<double> likelihood_p;

  Number cramers_v;
  Number pearson_c;
  Number lambda_symmetric;
  Number lambda_row;     // the row variable is the dependent one
  Number lambda_column;  // the column variable is

  // Agreement, of a table with as many rows as columns.
  Number proportion_agree;
  Number kappa;
  Number kappa_error;
  Number kappa_significance;
  bool kappa_is_perfect = false;  // all cases agree: neither error nor significance is given

  // Of a table with one degree of freedom, which is one of 2 by 2.
  Number yates_chi_square;
  std::optional<double> yates_p;
  std::optional<double> fisher_p;  // below 100 cases only
  RatioInterval odds_ratio;
  RatioInterval relative_risk;
};

// Every statistic of the table. Fails nowhere as a whole: a statistic whose formula fails keeps its first value, 0.
// Chi-square after Pearson (1900), the likelihood ratio after Wilks (1935), V after Cramer (1946), lambda after Goodman
// and Kruskal (1954), kappa after Cohen (1960), with the standard error of a kappa of 0.
TableStatistics ComputeTableStatistics(const CountedTable& table);

// Kappa of agreement from the observed and the expected share of agreeing cases among n. What fails stays 0.
struct Agreement {
  Number kappa;
  Number standard_error;
  // 1 where 100 z rounds to 0 (half to even, and also where z failed), 0.0001 where it is above 459, else twice the
  // normal tail.
  Number significance;
};
Agreement ComputeAgreement(Checked observed, Checked expected, Checked n);

}  // namespace tessara
