#include "procedures/compare/crosstabulation.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "presentation/risk_measures.h"

namespace tessara {
namespace {

constexpr std::string_view kTitle = "Crosstab Comparison: ";

// Of the chart of the cells, which has a bar for each of them and a series for each column.
constexpr std::size_t kMostChartedCells = 10000;
constexpr std::size_t kMostChartedColumns = 250;

std::string CountText(double count) { return FormatCol(count, 9, 0); }

std::string PercentText(Checked percent) { return FormatCol(Number(percent), 9, 2); }

std::string TableRule(const CountedTable& table) {
  return DashedRule(4 + (static_cast<int>(table.columns) + 2) * 10) + "\r\n";
}

std::string TableHead(const CountedCases& cases) {
  std::string head;
  head += "       Count |\r\n";
  head += "       Row % |\r\n";
  head += "       Col % |\r\n";
  head += "     Total % |";
  for (const Category& category : cases.columns) head += PadLeftBlank(category.label, 8) + "|";
  head += "    Total \r\n";
  return head;
}

void AppendCategoryBlock(const CountedCases& cases, std::size_t row, std::string& report) {
  const CountedTable& table = cases.table;
  const Checked row_total = table.row_totals[row];
  report += PadLeftBlank(cases.rows[row].label, 12) + "|";
  for (std::size_t column = 0; column < table.columns; ++column) report += CountText(table.Cell(row, column)) + "|";
  report += CountText(row_total.value()) + "\r\n";
  report += "             |";
  for (std::size_t column = 0; column < table.columns; ++column) {
    report += PercentText(100 * (table.Cell(row, column) / row_total)) + "|";
  }
  report += "\r\n";
  report += "             |";
  for (std::size_t column = 0; column < table.columns; ++column) {
    report += PercentText(100 * (table.Cell(row, column) / Checked(table.column_totals[column]))) + "|";
  }
  report += PercentText(100 * row_total / table.n) + "\r\n";
  report += "             |";
  for (std::size_t column = 0; column < table.columns; ++column) {
    report += PercentText(100 * (table.Cell(row, column) / Checked(table.n))) + "|";
  }
  report += "\r\n";
}

std::string TotalsBlock(const CountedTable& table) {
  std::string block = "             |";
  for (const double total : table.column_totals) block += CountText(total) + "|";
  block += CountText(table.n) + "\r\n";
  block += "       Total |";
  for (const double total : table.column_totals) block += PercentText(100 * Checked(total) / table.n) + "|";
  block += PercentText(100);
  block += "\r\n\r\n\r\n";  // the percent line and two empty ones
  block += "\r\n\r\n";
  return block;
}

// The columns of the chi-square tests. The blanks ahead of each are counted on Pearson's line, and the lines below take
// them over: a value of another length shifts what stands behind it.
struct TestColumns {
  explicit TestColumns(const std::string& value, const std::string& df, const std::string& p)
      : value_padding(9 - static_cast<int>(value.size())),
        df_padding(11 - static_cast<int>(df.size())),
        p_padding(12 - static_cast<int>(p.size())) {}

  std::string Line(const std::string& label, const std::string& value, const std::string& df,
                   const std::string& p) const {
    return label + Blanks(value_padding) + value + Blanks(df_padding) + df + Blanks(p_padding) + p + "\r\n";
  }

  int value_padding;
  int df_padding;
  int p_padding;
};

std::string StatisticText(const Number& statistic) { return MaskedNumber(statistic.value(), "0.000"); }

std::string ChiSquareSection(const CountedTable& table, const TableStatistics& s) {
  const std::string df = GeneralText(s.df);
  const std::string chi = StatisticText(s.chi_square);
  std::string p = MaskedOrEmpty(s.chi_square_p, "0.0000");
  if (p.empty()) p = "0.0001";  // of Pearson's test alone
  const TestColumns columns(chi, df, p);

  std::string section;
  section += "Chi-square                    Value         DF         p < \r\n";
  section += DashedRule(59) + "\r\n";
  section += columns.Line("Pearson                   ", chi, df, p);
  section += columns.Line("Likelihood Ratio          ", StatisticText(s.likelihood_ratio), df,  //
                          MaskedOrEmpty(s.likelihood_p, "0.0000"));
  if (s.df != 1) return section;
  section += columns.Line("Yate's Correction         ", StatisticText(s.yates_chi_square), df,  //
                          MaskedOrEmpty(s.yates_p, "0.0000"));
  if (table.n < 100) {
    section += "Fisher's Exact (2-tailed)                       " + FormatCol(s.fisher_p.value_or(0), 10, 4) +
               "\r\n"
               "\r\n";
  } else {
    section += "\r\n";
  }
  return section;
}

std::string AssociationSection(const TableStatistics& s) {
  const auto value = [](const Number& measure) { return "     " + MaskedNumber(measure.value(), ".000") + "\r\n"; };
  std::string section = "Measures of Association\r\n";
  section += DashedRule(37) + "\r\n";
  section += "Cramer's V             " + value(s.cramers_v);
  section += "Pearson C              " + value(s.pearson_c);
  section += "Lambda Symmetric       " + value(s.lambda_symmetric);
  section += "Lambda Dependent=Row   " + value(s.lambda_row);
  section += "Lambda Dependent=Column" + value(s.lambda_column);
  return section;
}

std::string AgreementSection(const TableStatistics& s) {
  const auto text = [](const Number& measure) { return MaskedNumber(measure.value(), ".000"); };
  // The sign of a kappa below 0 hangs out to the left. One that is too small to show it has the shorter margin too.
  const std::string kappa_margin = s.kappa < 0 ? "    " : "     ";
  const std::string error = s.kappa_is_perfect ? "  NA" : text(s.kappa_error);
  const std::string significance = s.kappa_is_perfect ? "  NA" : MaskedNumber(s.kappa_significance.value(), ".0000");
  std::string section = "\r\n\r\nAgreement Statistics\r\n";
  section += DashedRule(37) + "\r\n";
  section += "Proportion Agree       " + ("     " + text(s.proportion_agree)) + "\r\n";
  section += "Kappa Statistic        " + kappa_margin + text(s.kappa) + "\r\n";
  section += "Kappa Standard Error   " + ("     " + error) + "\r\n";
  section += "Kappa Significance (p<)" + ("     " + significance) + "\r\n";
  return section;
}

std::string LowCellsNote(const CountedTable& table, const TableStatistics& s) {
  const Number cells = static_cast<double>(table.rows * table.columns);
  const Number share = static_cast<double>(s.low_cells) / cells;
  return "\r\nNote: " + MaskedNumber(share.value(), "00.00%") +
         " of the cells have an expected frequency <5 \r\n"
         "\r\n";
}

}  // namespace

std::string CrosstabulationReport(const DataSet& data, const TableVariables& variables, const CountedCases& cases,
                                  const TableStatistics& statistics, const CrosstabulationOptions& options) {
  const CountedTable& table = cases.table;
  const bool with_risk = options.risk && statistics.df == 1;
  std::string report;
  report += "Crosstabulation: " + data.VariableName(variables.rows) + " (Rows)  by  " +
            data.VariableName(variables.columns) + " (Columns)\r\n\r\n";
  report += "Column Variable Label: " + data.VariableLabel(variables.columns) + "\r\n";
  report += "Row Variable Label: " + data.VariableLabel(variables.rows) + "\r\n\r\n";
  report += TableHead(cases);
  const std::string rule = TableRule(table);
  report += rule;
  for (std::size_t row = 0; row < table.rows; ++row) {
    AppendCategoryBlock(cases, row, report);
    report += rule;
  }
  report += TotalsBlock(table);
  if (options.chi_square_tests) report += ChiSquareSection(table, statistics);
  if (with_risk) {
    report += RiskMeasuresText(statistics) + "\r\n\r\n";
  } else if (options.chi_square_tests) {
    report += "\r\n\r\n";  // they close the chi-square tests
  }
  if (options.association) report += AssociationSection(statistics);
  if (options.agreement && table.rows == table.columns) report += AgreementSection(statistics);
  if (options.chi_square_tests) report += LowCellsNote(table, statistics);
  report += "\r\n\r\n";
  return report;
}

namespace {

// A series for each column category, so that a row category has its cells side by side.
Chart CellsChart(const DataSet& data, const TableVariables& variables, const CountedCases& cases) {
  const CountedTable& table = cases.table;
  const std::string row_name = data.VariableName(variables.rows);
  std::vector<Chart::Series> series;
  for (std::size_t column = 0; column < table.columns; ++column) {
    Chart::Series counts{cases.columns[column].label, {}};
    for (std::size_t row = 0; row < table.rows; ++row) counts.values.push_back(table.Cell(row, column));
    series.push_back(std::move(counts));
  }
  return BarsChart(row_name + " by " + data.VariableName(variables.columns), row_name, "Frequency",
                   CategoryLabels(cases.rows), std::move(series));
}

void LeaveTableCharts(ProcedureRun& run, const TableVariables& variables, const CountedCases& cases) {
  if (!run.wants_charts) return;
  std::vector<Chart> charts = FrequencyCharts(run.data, variables, cases, "Column Variable");
  const bool few =
      cases.columns.size() <= kMostChartedColumns && cases.rows.size() * cases.columns.size() <= kMostChartedCells;
  if (few) charts.push_back(CellsChart(run.data, variables, cases));
  run.LeaveCharts(ChartKind::kCrosstabulation, std::move(charts));
}

}  // namespace

void ReportCrosstabError(ProcedureRun& run, const TableVariables& variables, std::string_view sentence) {
  run.ReportError(ErrorMessage(kTitle, NamesOfPair(run.data, variables.rows, variables.columns), sentence));
}

std::optional<CountedCases> RunCountPass(ProcedureRun& run, const CaseSource& source, const TableVariables& variables) {
  CountedCases cases = CountCases(source, variables);
  if (cases.n < 1) {
    ReportCrosstabError(run, variables, "There are no observations.");
    return std::nullopt;
  }
  if (cases.too_many_categories) {
    ReportCrosstabError(run, variables, "There are too many categories for a table.");
    return std::nullopt;
  }
  return cases;
}

void RunCrosstabulation(ProcedureRun& run, const Roles& roles, const CrosstabulationOptions& options) {
  const DataSet& data = run.data;
  const TableVariables variables{.rows = roles.main, .columns = roles.independent};
  if (variables.rows < 1 || variables.columns < 1) {
    ReportCrosstabError(run, variables, "You must select an independent and dependent variable.");
    return;
  }
  const CaseSource source = BeginCases(run);
  const std::optional<CountedCases> cases = RunCountPass(run, source, variables);
  if (!cases) return;
  run.AppendReport(source.control.ControlCaption() +
                   CrosstabulationReport(data, variables, *cases, ComputeTableStatistics(cases->table), options));
  LeaveTableCharts(run, variables, *cases);
}

}  // namespace tessara
