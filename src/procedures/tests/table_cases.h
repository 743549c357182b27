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

inline constexpr PanelChecks kNoBox = {};
inline constexpr PanelChecks kAllBoxes = {.Check1 = true, .Check2 = true, .Check11 = true, .Check12 = true};
inline constexpr PanelChecks kChiSquare = {.Check2 = true};
inline constexpr PanelChecks kRisk = {.Check12 = true};
inline constexpr PanelChecks kAssociation = {.Check1 = true};
inline constexpr PanelChecks kAgreement = {.Check11 = true};
inline constexpr PanelChecks kChiSquareAndRisk = {.Check2 = true, .Check12 = true};

inline std::string ReportOf(TestRun run, const PanelChecks& checks) {
  run.panel.checks = checks;
  return run.Report(RunCrosstabulation);
}

// What stands behind the table.
inline std::string Behind(const std::string& report) {
  const std::string end_of_table = "100.00\r\n\r\n\r\n\r\n\r\n";
  return report.substr(report.find(end_of_table) + end_of_table.size());
}

inline std::string SectionsOf(const Counts& counts, const PanelChecks& checks) {
  return Behind(ReportOf(CasesOf(counts), checks));
}

// The same for a table of more cases than a test should lay down one by one.
inline std::string SectionsOfMany(const Counts& counts, const PanelChecks& checks) {
  const DataSet data = MakeTestData({{"A"}, {"B"}});
  CountedCases cases;
  std::vector<double> cells;
  for (const std::vector<int>& row : counts) cells.insert(cells.end(), row.begin(), row.end());
  cases.rows.resize(counts.size());
  cases.columns.resize(counts[0].size());
  cases.table = CountedTable(counts.size(), counts[0].size(), cells);
  return Behind(
      CrosstabulationReport(data, {.rows = 1, .columns = 2}, cases, ComputeTableStatistics(cases.table), checks));
}

}  // namespace tessara
