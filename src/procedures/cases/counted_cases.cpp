#include "procedures/cases/counted_cases.h"

#include <cstdint>
#include <utility>

namespace tessara {
namespace {

constexpr const char* kFrequency = "Frequency";

}  // namespace

CountedCases CountCases(const CaseSource& source, const TableVariables& variables, std::size_t most_cells) {
  const CodedColumn row_column = ReadCodedColumn(source, variables.rows);
  const CodedColumn column_column = ReadCodedColumn(source, variables.columns);
  CaseFlags accepted = PassingRecords(source);
  DropMissing(row_column, accepted);
  DropMissing(column_column, accepted);

  CountedCases cases;
  cases.n = CountCases(accepted);
  if (cases.n == 0) return cases;
  Categories rows = MakeCategories(source.data, variables.rows, row_column, accepted);
  Categories columns = MakeCategories(source.data, variables.columns, column_column, accepted);
  const std::size_t row_count = rows.list.size();
  const std::size_t column_count = columns.list.size();
  cases.rows = std::move(rows.list);
  cases.columns = std::move(columns.list);
  if (row_count > most_cells / column_count) {
    cases.too_many_categories = true;
    return cases;
  }

  std::vector<std::uint32_t> counts(row_count * column_count);
  for (std::size_t record = 0; record < accepted.size(); ++record) {
    if (accepted[record] == 0) continue;
    const std::size_t row = rows.of_code[row_column.codes[record]];
    ++counts[row * column_count + columns.of_code[column_column.codes[record]]];
  }
  cases.table = CountedTable(row_count, column_count, {counts.begin(), counts.end()});
  return cases;
}

std::vector<std::string> CategoryLabels(const std::vector<Category>& categories) {
  std::vector<std::string> labels;
  labels.reserve(categories.size());
  for (const Category& category : categories) labels.push_back(category.label);
  return labels;
}

std::vector<Chart> FrequencyCharts(const DataSet& data, const TableVariables& variables, const CountedCases& cases,
                                   const std::string& column_title) {
  if (std::max(cases.rows.size(), cases.columns.size()) > kMostChartedCategories) return {};
  return {BarsChart("Row Variable", data.VariableName(variables.rows), kFrequency, CategoryLabels(cases.rows),
                    {{kFrequency, cases.table.row_totals}}),
          BarsChart(column_title, data.VariableName(variables.columns), kFrequency, CategoryLabels(cases.columns),
                    {{kFrequency, cases.table.column_totals}})};
}

}  // namespace tessara
