#include "procedures/describe/frequencies.h"

#include <algorithm>
#include <utility>

#include "data/cell_key.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "numerics/text.h"

namespace tessara {
namespace {

constexpr std::size_t kSortWidth = 20;
constexpr int kRuleLength = 65;
constexpr std::size_t kMostLabelText = 4096;  // of a value beside its bar: what a chart has room for, and far beyond

// What is decided once for each different cell, and how often it was accepted.
struct DistinctCell {
  bool dropped = false;  // missing, or the missing-value test has failed
  bool numeric = false;
  double number = 0;
  std::size_t ahead_of_text = 0;  // accepted while all accepted values were numeric
  std::size_t behind_text = 0;
};

struct SortItem {
  TaggedValue value;
  double number = 0;
  std::size_t count = 0;
};

// Counts the accepted cases by cell. Yields whether all accepted values are numeric.
bool CountCells(const CaseSource& source, std::size_t column, CellDictionary& dictionary,
                std::vector<DistinctCell>& cells) {
  const DataMatrix& matrix = source.data.matrix;
  const MissingValues missing = LoadMissingSet(matrix, column);
  const std::vector<std::uint8_t> passing = source.control.PassingCases(source.used.records);
  bool all_numeric = true;
  matrix.ForEachRecord(column, source.used.records, [&](std::size_t record, const TaggedView& view) {
    const std::size_t id = dictionary.Find(view);
    if (id == cells.size()) {
      const Checked number = ToNumber(view);
      cells.push_back({static_cast<bool>(missing.IsMissing(view)), !number.failed(), number.value_or(0)});
    }
    DistinctCell& cell = cells[id];
    if (cell.dropped || (!passing.empty() && passing[record] == 0)) return;
    if (!cell.numeric) all_numeric = false;
    ++(all_numeric ? cell.ahead_of_text : cell.behind_text);
  });
  return all_numeric;
}

// The values ahead of the first text are padded on the left, so that their texts sort as numbers do; that text and the
// rest stay as they are. So a 5 ahead of it and a 5 behind it are two values.
std::vector<SortItem> SortItems(const CellDictionary& dictionary, const std::vector<DistinctCell>& cells) {
  std::vector<SortItem> items;
  for (std::size_t id = 0; id < cells.size(); ++id) {
    const DistinctCell& cell = cells[id];
    if (cell.ahead_of_text > 0) items.push_back({PaddedText(dictionary.Cell(id)), cell.number, cell.ahead_of_text});
    if (cell.behind_text > 0) items.push_back({TaggedValue(dictionary.Cell(id)), cell.number, cell.behind_text});
  }
  return items;
}

bool NumbersAscend(const SortItem& a, const SortItem& b) {
  if (a.number != b.number) return a.number < b.number;
  return a.value.view().text() < b.value.view().text();  // 1 and 1.0 are two values, and each stays in one run
}

bool TagsAscend(const SortItem& a, const SortItem& b) { return TaggedLess(a.value, b.value); }

}  // namespace

std::string PaddedText(const TaggedView& cell) {
  std::string text = TextOf(cell);
  if (text.size() < kSortWidth) text.insert(0, kSortWidth - text.size(), ' ');
  return text;
}

FrequencyCases GatherFrequencies(const CaseSource& source, std::size_t column) {
  CellDictionary dictionary;
  std::vector<DistinctCell> cells;
  const bool all_numeric = CountCells(source, column, dictionary, cells);
  std::vector<SortItem> items = SortItems(dictionary, cells);
  std::sort(items.begin(), items.end(), all_numeric ? NumbersAscend : TagsAscend);

  FrequencyCases cases;
  cases.record_count = source.used.records;
  for (SortItem& item : items) {
    const Condition below_zero = ToNumber(item.value) < 0;
    if (below_zero) cases.negative_seen = true;  // also when it could not be tested
    cases.accepted += item.count;
    if (!cases.categories.empty() && cases.categories.back().value.view() == item.value.view()) {
      cases.categories.back().count += item.count;
    } else {
      cases.categories.push_back({std::move(item.value), item.count, item.number < 0});
    }
  }
  return cases;
}

FrequencyTable ComputeFrequencies(const FrequencyCases& cases) {
  FrequencyTable table;
  table.n = cases.accepted;
  table.missing = cases.record_count - cases.accepted;
  const Number n = static_cast<double>(cases.accepted);
  Number cumulative;
  double sum_of_squares = 0;
  for (const FrequencyCases::Category& category : cases.categories) {
    const double count = static_cast<double>(category.count);
    FrequencyTable::Row row{.count = category.count, .percent = count / n * 100, .cumulative = {}};
    cumulative += row.percent;
    row.cumulative = cumulative;
    sum_of_squares += count * count;
    table.rows.push_back(row);
  }
  const Number k = static_cast<double>(cases.categories.size());
  if (k != 1) {
    table.index_of_dispersion = k * (n * n - sum_of_squares) / (n * n * (k - 1));
    if (table.index_of_dispersion > 1) table.index_of_dispersion = 1;
  }
  return table;
}

namespace {

// What the report and the charts call a category: its value label, else the value itself.
std::string_view CategoryText(const FrequencyCases::Category& category, const ValueLabels& labels,
                              NumberBuffer& buffer) {
  return labels.LabelOf(Trimmed(TextOf(category.value.view(), buffer)));
}

std::string CategoryRow(const FrequencyCases& cases, const FrequencyCases::Category& category,
                        const FrequencyTable::Row& row, const ValueLabels& labels) {
  NumberBuffer buffer;
  const std::string_view text = CategoryText(category, labels, buffer);
  // Values of 0 or more shift by one to stand under the digits of negative ones.
  std::string line = cases.negative_seen && !category.below_zero ? " " + PadRight(text, 20) + "   "  //
                                                                 : PadRight(text, 20) + "    ";
  line += FormatCol(static_cast<double>(row.count), 9, 0) + "    ";
  line += FormatCol(row.percent, 9, 2) + "    ";
  line += FormatCol(row.cumulative, 11, 2) + "\r\n";
  return line;
}

std::string DispersionBlock(const FrequencyTable& table) {
  const std::size_t k = table.rows.size();
  return "\r\nNominal/Ordinal Measure of Variation\r\n" + DashedRule(kRuleLength) +
         "\r\n\r\n"
         "Index of Dispersion\t\t" +
         MaskedNumber(table.index_of_dispersion.value(), " 0.000") + "       (Assumes " + std::to_string(k) +
         (k == 1 ? " category)" : " categories)") + "\r\n";
}

std::string FrequenciesReport(const CaseSource& source, std::size_t column, const FrequencyCases& cases,
                              const FrequencyTable& table, bool with_dispersion) {
  const DataSet& data = source.data;
  const ValueLabels labels = LoadValueLabels(data.matrix, column);
  const std::string rule = DashedRule(kRuleLength) + "\r\n";
  std::string report = source.control.ControlCaption();
  report += "Frequencies\r\n\r\n";
  report += "Variable: " + data.VariableName(column) + "     " + data.VariableLabel(column) + "\r\n\r\n";
  report += "Value                       Count       Percent      Cumulative\r\n" + rule;
  for (std::size_t i = 0; i < cases.categories.size(); ++i) {
    report += CategoryRow(cases, cases.categories[i], table.rows[i], labels);
  }
  report += rule;
  report += "                  Total " + FormatCol(static_cast<double>(table.n), 9, 0) + "\r\n";
  report += "                Missing " + FormatCol(static_cast<double>(table.missing), 9, 0) + "\r\n";
  report += "\r\n";
  if (with_dispersion) report += DispersionBlock(table);
  report += "\r\n";
  report += "\r\n\r\n\r\n";
  return report;
}

// Two charts of the same categories: counts and percents.
void LeaveFrequencyCharts(ProcedureRun& run, std::size_t column, const FrequencyCases& cases,
                          const FrequencyTable& table) {
  const std::string name = run.data.VariableName(column);
  const std::string label = run.data.VariableLabel(column);
  const ValueLabels value_labels = LoadValueLabels(run.data.matrix, column);
  const Number n = static_cast<double>(table.n);
  NumberBuffer buffer;
  std::vector<std::string> labels;
  std::vector<std::string> shares;
  Chart::Series counts{"Frequency", {}};
  Chart::Series percents{"Percent (%)", {}};
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const FrequencyTable::Row& row = table.rows[i];
    const Checked share = static_cast<double>(row.count) / n;
    labels.emplace_back(CategoryText(cases.categories[i], value_labels, buffer).substr(0, kMostLabelText));
    shares.push_back(MaskedNumber(share.value_or(0), "0.0%"));
    counts.values.push_back(static_cast<double>(row.count));
    percents.values.push_back(row.percent.value());
  }
  std::vector<Chart> charts = {BarsChart(name, label, "Frequency", labels, {counts}),
                               BarsChart(name + " (%)", label, "Percent (%)", labels, {percents})};
  for (Chart& chart : charts) chart.details = shares;
  run.LeaveCharts(ChartKind::kFrequencies, std::move(charts));
}

}  // namespace

void ReportNoFrequencies(ProcedureRun& run, std::size_t column) {
  run.ReportError(ErrorMessage(kFrequencyTitle, run.data.VariableName(column),
                               "There are no observations, so the procedure was aborted."));
}

void RunFrequencies(ProcedureRun& run, const Roles& roles, const FrequenciesOptions& options) {
  const std::size_t column = roles.main;
  if (column < 1) {
    run.ReportError(ErrorMessage(kFrequencyTitle, "", "You must select a dependent variable."));
    return;
  }
  const CaseSource source = BeginCases(run);
  const FrequencyCases cases = GatherFrequencies(source, column);
  if (cases.accepted < 1) {
    ReportNoFrequencies(run, column);
    return;
  }
  const FrequencyTable table = ComputeFrequencies(cases);
  run.AppendReport(FrequenciesReport(source, column, cases, table, options.dispersion));
  if (run.wants_charts && table.rows.size() <= kMostChartedCategories) LeaveFrequencyCharts(run, column, cases, table);
}

}  // namespace tessara
