#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "calculators/calculation.h"
#include "numerics/checked.h"
#include "numerics/counted_table.h"

// The chi-square panel: a table of up to five by five typed counts, its tests and its measures of association.

namespace tessara {

inline constexpr std::size_t kTypedRows = 5;
inline constexpr std::size_t kTypedColumns = 5;

// The texts as they were typed. cells[row][column] is the box C<column + 1>R<row + 1>; Text1 to Text5 are the labels of
// the columns, Text6 to Text10 those of the rows.
struct ChiSquareBoxes {
  std::array<std::array<std::string, kTypedColumns>, kTypedRows> cells;
  std::array<std::string, kTypedRows> row_labels;
  std::array<std::string, kTypedColumns> column_labels;
};

// The typed counts at their places, with the totals that the page shows.
struct TypedTable {
  std::array<std::array<double, kTypedColumns>, kTypedRows> cells{};
  std::array<double, kTypedRows> row_totals{};
  std::array<double, kTypedColumns> column_totals{};
  double n = 0;  // the sum of the row totals
};

struct ChiSquareStatistics {
  CountedTable counted;  // the rows and columns with a total above 0, closed up: the statistics are of these alone
  TableStatistics table;
  double low_share = 0;  // of the counted cells, how many have an expected count below 5
  // Pearson's p as the page and the narrative read it: 0 where it has failed, as in a table of one row.
  Number p;
};

// What the panel shows of a chi-square table. A table without cases, or without a counted row or column, has a results
// title alone.
struct ChiSquareCalculation {
  Calculation calculation;
  std::optional<std::string> note;         // Label28; absent: it stays as it was
  std::optional<std::string> frame_title;  // the same
};

// An empty box and a text that is not numeric count 0. A count may be negative or have a fraction.
TypedTable ReadTypedTable(const ChiSquareBoxes& boxes);

// Nothing when no row or no column has a total above 0.
std::optional<ChiSquareStatistics> ComputeChiSquareTable(const TypedTable& table);

// The boxes give the labels.
std::string ChiSquareShortReport(const ChiSquareBoxes& boxes, const TypedTable& table,
                                 const ChiSquareStatistics& statistics);

// The whole calculation, from the typed texts to everything that is shown.
ChiSquareCalculation CalculateChiSquareTable(const ChiSquareBoxes& boxes);

}  // namespace tessara
