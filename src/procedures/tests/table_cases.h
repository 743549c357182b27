#pragma once

#include <string>
#include <utility>
#include <vector>

#include "procedures/compare/crosstabulation.h"
#include "procedures/tests/test_data.h"

// Tables for the tests of crosstabulation, and what it prints of them.

namespace tessara {

using Counts = std::vector<std::vector<int>>;

// The cases of a table, row by row: variable A makes the rows, B the columns.
inline TestRun CasesOf(const std::vector<TaggedValue>& row_values, const std::vector<TaggedValue>& column_values,
                       const Counts& counts) {
  TestColumn a{.name = "A"};
  TestColumn b{.name = "B"};
  for (std::size_t row = 0; row < counts.size(); ++row) {
    for (std::size_t column = 0; column < counts[row].size(); ++column) {
      a.cells.insert(a.cells.end(), static_cast<std::size_t>(counts[row][column]), row_values[row]);
      b.cells.insert(b.cells.end(), static_cast<std::size_t>(counts[row][column]), column_values[column]);
    }
  }
  TestRun run({a, b});
  run.Independent(2);
  return run;
}

// The same with the values 1, 2, 3 ... in both variables.
inline TestRun CasesOf(const Counts& counts) {
  const std::vector<TaggedValue> values = Texts({"1", "2", "3", "4"});
  return CasesOf(values, values, counts);
}

inline constexpr CrosstabulationOptions kNoBox = {.chi_square_tests = false};
inline constexpr CrosstabulationOptions kAllBoxes = {
    .association = true, .chi_square_tests = true, .agreement = true, .risk = true};
inline constexpr CrosstabulationOptions kChiSquare = {.chi_square_tests = true};
inline constexpr CrosstabulationOptions kRisk = {.chi_square_tests = false, .risk = true};
inline constexpr CrosstabulationOptions kAssociation = {.association = true, .chi_square_tests = false};
inline constexpr CrosstabulationOptions kAgreement = {.chi_square_tests = false, .agreement = true};
inline constexpr CrosstabulationOptions kChiSquareAndRisk = {.chi_square_tests = true, .risk = true};

inline std::string ReportOf(TestRun run, const CrosstabulationOptions& options) {
  run.options.crosstabulation = options;
  return run.Report(RunCrosstabulation);
}

// What stands behind the table.
inline std::string Behind(const std::string& report) {
  const std::string end_of_table = "100.00\r\n\r\n\r\n\r\n\r\n";
  return report.substr(report.find(end_of_table) + end_of_table.size());
}

inline std::string SectionsOf(const Counts& counts, const CrosstabulationOptions& options) {
  return Behind(ReportOf(CasesOf(counts), options));
}

// The same for a table of more cases than a test should lay down one by one.
inline std::string SectionsOfMany(const Counts& counts, const CrosstabulationOptions& options) {
  const DataSet data = MakeTestData({{"A"}, {"B"}});
  CountedCases cases;
  std::vector<double> cells;
  for (const std::vector<int>& row : counts) cells.insert(cells.end(), row.begin(), row.end());
  cases.rows.resize(counts.size());
  cases.columns.resize(counts[0].size());
  cases.table = CountedTable(counts.size(), counts[0].size(), cells);
  return Behind(
      CrosstabulationReport(data, {.rows = 1, .columns = 2}, cases, ComputeTableStatistics(cases.table), options));
}

}  // namespace tessara
