#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "data/value_labels.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "numerics/text.h"
#include "procedures/cases/accepted_cases.h"
#include "procedures/compare/crosstabulation.h"
#include "procedures/describe/frequencies.h"
#include "procedures/tables/report_mask.h"
#include "procedures/tables/table_rows.h"
#include "procedures/tables/table_variables.h"

namespace tessara {
namespace {

constexpr std::string_view kTotal = "total";
constexpr std::string_view kInterval = "interval";
constexpr std::string_view kPercent = "percent";
constexpr std::string_view kCount = "count";

struct RowCategory {
  std::string key;
  std::string label;
};

struct CountedColumn {
  WantedColumn column;
  double total = 0;
  std::vector<double> counts;  // of each row category
};

// Counts of a row variable's categories in some columns.
struct CountedPart {
  std::vector<RowCategory> categories;
  std::vector<CountedColumn> columns;
};

RowCategory MakeRowCategory(const TaggedView& value, const ValueLabels& labels) {
  NumberBuffer buffer;
  std::string label(labels.LabelOf(Trimmed(TextOf(value, buffer))));
  return {CategoryKey(value, label), std::move(label)};
}

// The cases of one variable, counted by cell.
struct CountedCell {
  TaggedView cell;
  double count = 0;
  Checked number = Checked::Failed();
  bool ahead_of_text = false;  // met while all accepted values were numeric
};

std::vector<CountedCell> CountCells(const CaseSource& source, const CodedColumn& coded, const CaseFlags& accepted) {
  std::vector<CountedCell> cells;
  for (const TaggedView& cell : coded.cells) cells.push_back({.cell = cell, .number = ToNumber(cell)});
  bool all_numeric = true;
  for (std::size_t record = 0; record < source.used.records; ++record) {
    if (accepted[record] == 0) continue;
    CountedCell& counted = cells[coded.codes[record]];
    if (all_numeric && counted.number.failed()) all_numeric = false;
    counted.ahead_of_text |= all_numeric;
    ++counted.count;
  }
  std::erase_if(cells, [](const CountedCell& cell) { return cell.count == 0; });
  return cells;
}

// The order of Frequencies: by number when all values are numeric; else by text, those ahead of the first text padded.
void SortAsFrequenciesDo(std::vector<CountedCell>& cells) {
  struct Item {
    CountedCell cell;
    TaggedValue sorted_by;
  };
  std::vector<Item> items;
  for (const CountedCell& cell : cells) {
    items.push_back({cell, cell.ahead_of_text ? TaggedValue(PaddedText(cell.cell)) : TaggedValue(cell.cell)});
  }
  const bool all_numeric = std::ranges::none_of(cells, [](const CountedCell& cell) { return cell.number.failed(); });
  std::ranges::sort(items, [all_numeric](const Item& a, const Item& b) {
    const double x = a.cell.number.value_or(0);
    const double y = b.cell.number.value_or(0);
    if (all_numeric && x != y) return x < y;
    if (a.sorted_by.view() != b.sorted_by.view()) return TaggedLess(a.sorted_by, b.sorted_by);
    return TaggedLess(a.cell.cell, b.cell.cell);  // a number ahead of the text of the same look
  });
  std::ranges::transform(items, cells.begin(), [](const Item& item) { return item.cell; });
}

// The column of all cases.
CountedPart CountAll(const CaseSource& source, std::size_t variable) {
  const CodedColumn coded = ReadCodedColumn(source, variable);
  CaseFlags accepted = PassingRecords(source);
  DropMissing(coded, accepted);
  std::vector<CountedCell> cells = CountCells(source, coded, accepted);
  CountedPart part;
  part.columns.push_back({.column = {{}, "   All"}, .total = static_cast<double>(CountCases(accepted)), .counts = {}});
  if (cells.size() > kMostTableCategories) {
    part.categories.resize(cells.size());
    return part;  // refused: the labels of a million cells are not wanted
  }
  SortAsFrequenciesDo(cells);
  const ValueLabels labels = LoadValueLabels(source.data.matrix, variable);
  for (const CountedCell& cell : cells) {
    part.categories.push_back(MakeRowCategory(cell.cell, labels));
    part.columns.front().counts.push_back(cell.count);
  }
  return part;
}

// A column for each category of the column variable.
CountedPart PartOfCrosstabulation(const DataSet& data, const TableVariables& variables, const CountedCases& cases) {
  const ValueLabels labels = LoadValueLabels(data.matrix, variables.rows);
  const std::string column_variable = VariableKey(data, variables.columns);
  CountedPart part;
  for (const Category& row : cases.rows) part.categories.push_back(MakeRowCategory(row.value, labels));
  for (std::size_t column = 0; column < cases.columns.size(); ++column) {
    const Category& category = cases.columns[column];
    CountedColumn counted{
        .column = {ColumnKey(column_variable, CategoryKey(category.value, category.label)), category.label},
        .total = cases.table.column_totals[column],
        .counts = {}};
    for (std::size_t row = 0; row < cases.rows.size(); ++row) counted.counts.push_back(cases.table.Cell(row, column));
    part.columns.push_back(std::move(counted));
  }
  return part;
}

// Writes counts into the table.
class CountsWriter {
 public:
  CountsWriter(TableWriter& writer, const SummaryTableOptions& options)
      : writer_(writer),
        options_(options),
        percent_mask_(ReportMask(OutputFormatIndex(options.output_format), MaskKind::kPercent)),
        count_mask_(ReportMask(OutputFormatIndex(options.output_format), MaskKind::kOther)) {}

  // False when the table has no room.
  bool Write(const DataSet& data, std::size_t variable, const CountedPart& part) {
    std::vector<WantedColumn> columns;
    for (const CountedColumn& column : part.columns) columns.push_back(column.column);
    const auto places = writer_.Place(VariableKey(data, variable), Rows(data, variable, part), columns);
    if (!places) return false;
    for (std::size_t i = 0; i < part.columns.size(); ++i) WriteColumn(*places, places->columns[i], part.columns[i]);
    return true;
  }

 private:
  std::vector<WantedRow> Rows(const DataSet& data, std::size_t variable, const CountedPart& part) const {
    std::vector<WantedRow> rows = {{.what = kTotal, .category = {}, .group = "Total Count", .label = {}}};
    if (options_.percent) rows.push_back({.what = kInterval, .category = {}, .group = "95% CI (+/-)", .label = {}});
    rows.push_back({.what = kGroupRow, .category = {}, .group = VariableHeading(data, variable), .label = {}});
    for (const RowCategory& category : part.categories) {
      if (options_.percent) rows.push_back({kPercent, category.key, category.label, "Percent"});
      if (options_.counts) rows.push_back({kCount, category.key, category.label, "Count"});
    }
    return rows;
  }

  void WriteColumn(const TablePlaces& places, std::size_t column, const CountedColumn& counted) const {
    std::size_t next = 0;
    writer_.Write(places, places.rows[next++], column, GeneralText(counted.total));
    if (options_.percent) {
      const Number interval = 1.96 * Sqrt(0.25 / Checked(counted.total));
      writer_.Write(places, places.rows[next++], column, MaskedNumber(interval.value(), percent_mask_));
    }
    ++next;  // the heading has no figure
    for (const double count : counted.counts) {
      if (options_.percent) {
        const Number share = count / Checked(counted.total);
        writer_.Write(places, places.rows[next++], column, MaskedNumber(share.value(), percent_mask_));
      }
      if (options_.counts) writer_.Write(places, places.rows[next++], column, MaskedNumber(count, count_mask_));
    }
    // Categories that the table has got from elsewhere have no case in this column.
    for (const TablePlaces::OtherRow& other : places.others) {
      if (other.what == kPercent && options_.percent) {
        writer_.Write(places, other.row, column, MaskedNumber(0, percent_mask_));
      }
      if (other.what == kCount && options_.counts) {
        writer_.Write(places, other.row, column, MaskedNumber(0, count_mask_));
      }
    }
  }

  TableWriter& writer_;
  const SummaryTableOptions& options_;
  std::string_view percent_mask_;
  std::string_view count_mask_;
};

void AddAllCases(ProcedureRun& run, const CaseSource& source, CountsWriter& writer, std::size_t variable) {
  const CountedPart part = CountAll(source, variable);
  if (part.columns.front().total < 1) return ReportNoFrequencies(run, variable);
  const auto refuse = [&](std::string_view sentence) {
    run.ReportError(ErrorMessage(kFrequencyTitle, run.data.VariableName(variable), sentence));
  };
  if (part.categories.size() > kMostTableCategories) return refuse(kTooManyCategories);
  if (!writer.Write(run.data, variable, part)) refuse(kTableIsFull);
}

void AddPair(ProcedureRun& run, const CaseSource& source, CountsWriter& writer, const TableVariables& variables) {
  const std::optional<CountedCases> cases = RunCountPass(run, source, variables);
  if (!cases) return;
  if (std::max(cases->rows.size(), cases->columns.size()) > kMostTableCategories) {
    return ReportCrosstabError(run, variables, kTooManyCategories);
  }
  if (!writer.Write(run.data, variables.rows, PartOfCrosstabulation(run.data, variables, *cases))) {
    ReportCrosstabError(run, variables, kTableIsFull);
  }
}

}  // namespace

std::string VariableHeading(const DataSet& data, std::size_t column) {
  const std::string label = data.VariableLabel(column);
  return label.empty() ? data.VariableName(column) : label;
}

void AddCategoricalVariable(ProcedureRun& run, TableWriter& writer, const SummaryTableOptions& options,
                            std::size_t rows, const std::vector<std::size_t>& columns) {
  const CaseSource source = BeginCases(run);
  CountsWriter counts(writer, options);
  AddAllCases(run, source, counts, rows);
  for (const std::size_t column : columns) AddPair(run, source, counts, {.rows = rows, .columns = column});
}

}  // namespace tessara
