#include "calculators/chi_square_table.h"

#include <string_view>
#include <utility>
#include <vector>

#include "calculators/summary_text.h"
#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"
#include "numerics/sums.h"
#include "presentation/risk_measures.h"

namespace tessara {
namespace {

constexpr double kShareAllowed = 0.2;  // a share of exactly 20.0% does not warn
constexpr double kFisherBelow = 100;   // cases

// The typed table.

std::string TableRow(std::string_view label, const std::array<double, kTypedColumns>& cells, double total) {
  std::string line = PadRight(label, 9) + " | ";
  for (double cell : cells) line += FormatCol(cell, 7, 0) + " | ";
  line += FormatCol(total, 7, 0) + "\r\n";
  return line;
}

std::string TablePart(const ChiSquareBoxes& boxes, const TypedTable& table) {
  constexpr std::string_view kRule = "          +---------+---------+---------+---------+---------+---------\r\n";
  const auto& labels = boxes.column_labels;
  std::string part;
  part += "          |" + PadRight(labels[0], 9) + "|" + PadRight(labels[1], 9) + "|" + PadRight(labels[2], 9) + "|" +
          PadRight(labels[3], 9) + "|" + PadRight(labels[4], 9) + "|   RTotal\r\n";
  part += kRule;
  for (std::size_t row = 0; row < kTypedRows; ++row) {
    part += TableRow(boxes.row_labels[row], table.cells[row], table.row_totals[row]);
    part += kRule;
  }
  part += "   CTotal | ";
  for (double total : table.column_totals) part += FormatCol(total, 7, 0) + " | ";
  part += FormatCol(table.n, 7, 0) + "\r\n\r\n\r\n";
  return part;
}

// The tests.

// A p that has failed leaves its column blank.
std::string PText(const std::optional<double>& p, int width) {
  return p ? FormatCol(*p, width, 4) : FormatCol("", width, 4);
}

// Pearson's p alone is printed as the smallest that the page can show when it has failed.
std::string PearsonPText(const std::optional<double>& p) { return p ? PText(p, 13) : FormatCol("0.0001", 13, 4); }

std::string DfText(const TableStatistics& table) { return GeneralText(table.df); }

bool HasFisher(const ChiSquareStatistics& statistics) { return statistics.counted.n < kFisherBelow; }

std::string TestsPart(const ChiSquareStatistics& statistics) {
  const TableStatistics& t = statistics.table;
  const std::string df = "       " + DfText(t);
  std::string part;
  part += "Chi-Square                      Value      df          p <  \r\n";
  part += DashedRule(59) + "\r\n";
  part += "Pearson                    " + FormatCol(t.chi_square, 10, 3) + df + PearsonPText(t.chi_square_p) + "\r\n";
  part +=
      "Likelihood Ratio           " + FormatCol(t.likelihood_ratio, 10, 3) + df + PText(t.likelihood_p, 13) + "\r\n";
  if (t.df != 1) return part;
  part += "Yate's Correction          " + FormatCol(t.yates_chi_square, 10, 3) + df + PText(t.yates_p, 13) + "\r\n";
  if (!HasFisher(statistics)) return part;
  part += "Fisher's Exact (2-tailed)                       " + PText(t.fisher_p, 10) + "\r\n";
  return part;
}

std::string ShortTestsPart(const ChiSquareStatistics& statistics) {
  const TableStatistics& t = statistics.table;
  const std::string df = "      " + DfText(t);
  std::string part;
  part += "Chi-Square            Value     df          p <\r\n";
  part += "Pearson          " + FormatCol(t.chi_square, 10, 3) + df + PearsonPText(t.chi_square_p) + "\r\n";
  part += "Likelihood Ratio " + FormatCol(t.likelihood_ratio, 10, 3) + df + PText(t.likelihood_p, 13) + "\r\n";
  if (t.df != 1) return part;
  part += "Yate's Correction" + FormatCol(t.yates_chi_square, 10, 3) + df + PText(t.yates_p, 13) + "\r\n";
  if (!HasFisher(statistics)) return part;
  part += "Fisher's (2-tailed)                  " + PText(t.fisher_p, 10) + "\r\n";
  return part;
}

// The measures.

std::string AssociationPart(const TableStatistics& t) {
  std::string part = "\r\n\r\n\r\n";
  part += "Measures of Association\r\n";
  part += DashedRule(37) + "\r\n";
  part += "Cramer's V                  " + Text(t.cramers_v, ".000") + "\r\n";
  part += "Pearson C                   " + Text(t.pearson_c, ".000") + "\r\n";
  part += "Lambda Symmetric            " + Text(t.lambda_symmetric, ".000") + "\r\n";
  part += "Lambda Dependent=Row        " + Text(t.lambda_row, ".000") + "\r\n";
  part += "Lambda Dependent=Column     " + Text(t.lambda_column, ".000") + "\r\n";
  return part;
}

std::string AgreementPart(const TableStatistics& t) {
  const std::string error = t.kappa_is_perfect ? "  NA" : Text(t.kappa_error, ".000");
  const std::string significance = t.kappa_is_perfect ? "  NA" : Text(t.kappa_significance, ".0000");
  const std::string ahead_of_kappa = Blanks(t.kappa < 0 ? 4 : 5);  // the sign hangs out to the left
  std::string part = "\r\n\r\n";
  part += "Agreement Statistics\r\n";
  part += DashedRule(37) + "\r\n";
  part += "Proportion Agree            " + Text(t.proportion_agree, ".000") + "\r\n";
  part += "Kappa Statistic        " + ahead_of_kappa + Text(t.kappa, ".000") + "\r\n";
  part += "Kappa Standard Error        " + error + "\r\n";
  part += "Kappa Significance (p<)     " + significance + "\r\n";
  return part;
}

// The size of the expected counts.

std::string ShareText(const ChiSquareStatistics& statistics) { return MaskedNumber(statistics.low_share, "0.0%"); }

std::string Note(const ChiSquareStatistics& statistics) {
  return "Note: \r\n" + std::to_string(statistics.table.low_cells) + " cells (" + ShareText(statistics) +
         ") have expected frequency < 5";
}

std::string LowCellsSentence(const ChiSquareStatistics& statistics) {
  const std::size_t low_cells = statistics.table.low_cells;
  const std::string share = ShareText(statistics);
  if (low_cells == 0) return "No cells (" + share + ") have an expected frequency less than 5.";
  if (low_cells == 1) return "1 cell (" + share + ") has an expected frequency less than 5.";
  return std::to_string(low_cells) + " cells (" + share + ") have an expected frequency less than 5.";
}

// The three texts.

std::string ChiSquareReport(const ChiSquareBoxes& boxes, const TypedTable& table,
                            const ChiSquareStatistics& statistics) {
  std::string report = "Chi-Square Test of Independence\r\n\r\n";
  report += TablePart(boxes, table);
  report += TestsPart(statistics);
  if (statistics.table.df == 1) report += RiskMeasuresText(statistics.table);
  report += AssociationPart(statistics.table);
  if (statistics.counted.rows == statistics.counted.columns) report += AgreementPart(statistics.table);
  report += "\r\n" + Note(statistics) + "\r\n\r\n";
  return report;
}

std::string ChiSquareNarrative(const ChiSquareStatistics& statistics) {
  std::string narrative = "Chi-Square Test of Independent\r\n\r\n";
  narrative +=
      "Based on a benchmark of .05 alpha, the estimated p-value of " + Text(statistics.p, "0.000") + " suggests";
  narrative += statistics.p > .05 ? " there is not a statistically significant association"
                                  : " there is a statistically significant association";
  narrative += " between the two comparison variables.\r\n\r\n";
  narrative += LowCellsSentence(statistics);
  if (statistics.low_share > kShareAllowed) {
    narrative +=
        "\r\n\r\nWarning! The chi-square assumption requiring that no more than 20% of the cells may have an expected "
        "frequency less than 5 has been violated.";
  }
  narrative += "\r\n\r\n" + DashedRule(54) + "\r\n\r\n";
  return narrative;
}

// The places of the totals above 0.
template <std::size_t Count>
std::vector<std::size_t> CountedPlaces(const std::array<double, Count>& totals) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < Count; ++i) {
    if (totals[i] > 0) places.push_back(i);
  }
  return places;
}

// The counted rows and columns, closed up. Their totals are those of the whole table: a column that negative counts
// keep from counting still takes part in the totals of the rows.
CountedTable CountedPart(const TypedTable& table, const std::vector<std::size_t>& rows,
                         const std::vector<std::size_t>& columns) {
  CountedTable counted;
  counted.rows = rows.size();
  counted.columns = columns.size();
  for (std::size_t row : rows) {
    for (std::size_t column : columns) counted.cells.push_back(table.cells[row][column]);
    counted.row_totals.push_back(table.row_totals[row]);
  }
  for (std::size_t column : columns) counted.column_totals.push_back(table.column_totals[column]);
  counted.n = table.n;
  return counted;
}

}  // namespace

TypedTable ReadTypedTable(const ChiSquareBoxes& boxes) {
  TypedTable table;
  for (std::size_t row = 0; row < kTypedRows; ++row) {
    for (std::size_t column = 0; column < kTypedColumns; ++column) {
      table.cells[row][column] = TypedNumber(boxes.cells[row][column]).value();
    }
  }
  for (std::size_t row = 0; row < kTypedRows; ++row) {
    table.row_totals[row] = SumInOrder(kTypedColumns, [&](std::size_t i) { return table.cells[row][i]; });
  }
  for (std::size_t column = 0; column < kTypedColumns; ++column) {
    table.column_totals[column] = SumInOrder(kTypedRows, [&](std::size_t i) { return table.cells[i][column]; });
  }
  table.n = SumInOrder(kTypedRows, [&](std::size_t i) { return table.row_totals[i]; });
  return table;
}

std::optional<ChiSquareStatistics> ComputeChiSquareTable(const TypedTable& table) {
  const std::vector<std::size_t> rows = CountedPlaces(table.row_totals);
  const std::vector<std::size_t> columns = CountedPlaces(table.column_totals);
  if (rows.empty() || columns.empty()) return std::nullopt;

  ChiSquareStatistics statistics{.counted = CountedPart(table, rows, columns), .table = {}, .low_share = 0, .p = 0};
  statistics.table = ComputeTableStatistics(statistics.counted);
  const Number counted_cells = static_cast<double>(rows.size() * columns.size());
  const Number share = static_cast<double>(statistics.table.low_cells) / counted_cells;
  statistics.low_share = share.value();
  Keep(statistics.p, statistics.table.chi_square_p);
  return statistics;
}

std::string ChiSquareShortReport(const ChiSquareBoxes& boxes, const TypedTable& table,
                                 const ChiSquareStatistics& statistics) {
  std::string report = "Chi-Square Test of Independence       n = " + GeneralText(table.n) + "\r\n";
  report += DashedRule(47) + "\r\n";
  report += TablePart(boxes, table);
  report += ShortTestsPart(statistics);
  report += "\r\n\r\n\r\n";
  report += "   ** See Output tab for more statistics **";
  return report;
}

ChiSquareCalculation CalculateChiSquareTable(const ChiSquareBoxes& boxes) {
  ChiSquareCalculation result;
  const TypedTable typed = ReadTypedTable(boxes);
  const auto statistics = typed.n == 0 ? std::nullopt : ComputeChiSquareTable(typed);
  if (!statistics) {
    result.calculation.results_title = "Error: No cases in table";
    return result;
  }
  result.calculation.report = ChiSquareReport(boxes, typed, *statistics);
  result.calculation.short_report = ChiSquareShortReport(boxes, typed, *statistics);
  result.calculation.narrative = ChiSquareNarrative(*statistics);
  result.note = Note(*statistics);
  result.frame_title = statistics->low_share > kShareAllowed ? "Warning! Chi-square assumption violated."
                                                             : " Chi-square test of Independence";
  return result;
}

}  // namespace tessara
