#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "procedures/cases/accepted_cases.h"
#include "procedures/tables/case_summary.h"
#include "procedures/tables/report_mask.h"
#include "procedures/tables/table_rows.h"
#include "procedures/tables/table_variables.h"

namespace tessara {
namespace {

// A figure that a box asks for; its name stands in the table and marks its row.
struct Figure {
  std::string_view name;
  bool SummaryTableOptions::*box;
  Number CaseSummary::*value;
};

constexpr Figure kFigures[] = {
    {"Mean", &SummaryTableOptions::mean, &CaseSummary::mean},
    {"Count", &SummaryTableOptions::count, &CaseSummary::n},
    {"Sum", &SummaryTableOptions::sum, &CaseSummary::sum},
    {"Std Dev", &SummaryTableOptions::standard_deviation, &CaseSummary::deviation},
    {"SE Mean", &SummaryTableOptions::standard_error, &CaseSummary::error},
    {"95% CI (+/-)", &SummaryTableOptions::interval, &CaseSummary::interval},
};

struct SummaryColumn {
  WantedColumn column;
  CaseSummary summary;
};

// False when the table has no room.
bool WriteSummaries(const DataSet& data, std::size_t variable, TableWriter& writer, const SummaryTableOptions& options,
                    const std::vector<SummaryColumn>& summaries) {
  std::vector<WantedRow> rows = {
      {.what = kGroupRow, .category = {}, .group = VariableHeading(data, variable), .label = {}}};
  for (const Figure& figure : kFigures) {
    if (options.*figure.box) rows.push_back({.what = figure.name, .category = {}, .group = {}, .label = figure.name});
  }
  std::vector<WantedColumn> columns;
  for (const SummaryColumn& column : summaries) columns.push_back(column.column);
  const auto places = writer.Place(VariableKey(data, variable), rows, columns);
  if (!places) return false;

  const std::string_view mask = ReportMask(OutputFormatIndex(options.output_format), MaskKind::kOther);
  for (std::size_t i = 0; i < summaries.size(); ++i) {
    std::size_t next = 1;  // the heading has no figure
    for (const Figure& figure : kFigures) {
      if (!(options.*figure.box)) continue;
      const double value = (summaries[i].summary.*figure.value).value();
      const bool whole = figure.box == &SummaryTableOptions::count;
      writer.Write(*places, places->rows[next++], places->columns[i],
                   whole ? GeneralText(value) : MaskedNumber(value, mask));
    }
  }
  return true;
}

void AddAllCases(ProcedureRun& run, const CaseSource& source, TableWriter& writer, const SummaryTableOptions& options,
                 std::size_t variable) {
  std::optional<DescriptiveCases> cases = RunDescriptivePass(run, source, variable);
  if (!cases) return;
  const std::vector<SummaryColumn> all = {{{{}, "All"}, SummaryOf(ComputeDescriptives(*cases))}};
  if (!WriteSummaries(run.data, variable, writer, options, all)) {
    run.ReportError(ErrorMessage(kDescriptiveTitle, run.data.VariableName(variable), kTableIsFull));
  }
}

void AddGroups(ProcedureRun& run, const CaseSource& source, TableWriter& writer, const SummaryTableOptions& options,
               const Roles& roles) {
  const std::optional<GroupStats> stats = RunGroupPass(run, source, roles);
  if (!stats) return;
  const auto refuse = [&](std::string_view sentence) {
    run.ReportError(
        ErrorMessage(kSummaryComparisonTitle, NamesOfPair(run.data, roles.main, roles.independent), sentence));
  };
  if (stats->GroupCount() > kMostTableCategories) return refuse(kTooManyCategories);
  const std::string column_variable = VariableKey(run.data, roles.independent);
  std::vector<SummaryColumn> groups;
  for (const GroupStats::Group& group : stats->groups) {
    groups.push_back(
        {{ColumnKey(column_variable, CategoryKey(group.value, group.label)), group.label}, SummaryOf(group)});
  }
  if (!WriteSummaries(run.data, roles.main, writer, options, groups)) refuse(kTableIsFull);
}

}  // namespace

void AddContinuousVariable(ProcedureRun& run, TableWriter& writer, const SummaryTableOptions& options, std::size_t rows,
                           const std::vector<std::size_t>& columns) {
  const CaseSource source = BeginCases(run);
  AddAllCases(run, source, writer, options, rows);
  for (const std::size_t column : columns) {
    AddGroups(run, source, writer, options, {.main = rows, .independent = column});
  }
}

}  // namespace tessara
