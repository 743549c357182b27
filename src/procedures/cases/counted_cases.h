#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "data/data_set.h"
#include "numerics/counted_table.h"
#include "presentation/chart_data.h"
#include "procedures/cases/accepted_cases.h"
#include "procedures/cases/case_source.h"

// Cases counted by the categories of two variables: what a crosstabulation and the accuracy of a diagnostic test begin
// with.

namespace tessara {

// A report of a larger table could not be read, nor held.
inline constexpr std::size_t kMostTableCells = 4'000'000;

// The columns of two variables in the matrix, one for the rows of a table and one for its columns.
struct TableVariables {
  std::size_t rows = 0;
  std::size_t columns = 0;
};

// Refers to the matrix, which must not change while it lives.
struct CountedCases {
  std::vector<Category> rows;
  std::vector<Category> columns;
  std::size_t n = 0;
  bool too_many_categories = false;  // more cells than were allowed, so that nothing has been counted
  CountedTable table;
};

// Counts the cases that have a value in both variables and pass the control. One pass over each column, and one over
// the codes.
CountedCases CountCases(const CaseSource& source, const TableVariables& variables,
                        std::size_t most_cells = kMostTableCells);

// The charts of the frequencies of each variable: "Row Variable", and the columns' under a title of its own.
std::vector<Chart> FrequencyCharts(const DataSet& data, const TableVariables& variables, const CountedCases& cases,
                                   const std::string& column_title);

std::vector<std::string> CategoryLabels(const std::vector<Category>& categories);

}  // namespace tessara
