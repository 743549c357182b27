#include "procedures/compare/diagnostic.h"

#include <utility>

#include "numerics/masks.h"
#include "numerics/report_text.h"
#include "procedures/cases/counted_cases.h"

namespace tessara {
namespace {

constexpr const char* kNotDefined = "   NA";

// The table of a cut: true and false, positive and negative.
struct CutCounts {
  double true_negative = 0;
  double false_negative = 0;
  double true_positive = 0;
  double false_positive = 0;
};

void MeasureKappa(const CutCounts& counts, Checked n, CutPoint& cut) {
  const Checked tp = counts.true_positive;
  const Checked tn = counts.true_negative;
  const Checked fp = counts.false_positive;
  const Checked fn = counts.false_negative;
  const Checked observed = (tp + tn) / n;
  const Checked expected = ((tp + fp) / n) * ((tp + fn) / n) + ((fn + tn) / n) * ((fp + tn) / n);
  const Agreement agreement = ComputeAgreement(observed, expected, n);
  cut.kappa = agreement.kappa;
  const bool perfect = static_cast<bool>(observed == 1);
  if (!perfect) cut.kappa_significance = agreement.significance.value();
}

CutPoint MeasureCut(const CutCounts& counts, const CountedTable& table) {
  const Checked tp = counts.true_positive;
  const Checked tn = counts.true_negative;
  CutPoint cut;
  cut.specificity = tn / table.column_totals[0];
  cut.sensitivity = tp / table.column_totals[1];
  if (tp != 0) cut.positive_predictive_value = tp / (tp + counts.false_positive);
  if (tn != 0) cut.negative_predictive_value = tn / (tn + counts.false_negative);
  const Checked sn = cut.sensitivity;
  const Checked sp = cut.specificity;
  if (sp != 1 && sn != 0) cut.positive_ratio = Computed(sn / (1 - sp));
  if (sn != 1 && sp != 0) cut.negative_ratio = Computed((1 - sn) / sp);
  MeasureKappa(counts, table.n, cut);
  return cut;
}

}  // namespace

DiagnosticAccuracy ComputeDiagnosticAccuracy(const CountedTable& table) {
  DiagnosticAccuracy accuracy;
  CutCounts counts;
  Number previous_x = 1;
  Number previous_y = 1;
  for (std::size_t row = 0; row < table.rows; ++row) {
    counts.true_negative += table.Cell(row, 0);
    counts.false_negative += table.Cell(row, 1);
    counts.true_positive = table.column_totals[1] - counts.false_negative;
    counts.false_positive = table.column_totals[0] - counts.true_negative;
    CutPoint cut = MeasureCut(counts, table);
    const Number x = 1 - cut.specificity;
    const Number y = cut.sensitivity;
    accuracy.area += (previous_x - x) * (previous_y + y) / 2;
    previous_x = x;
    previous_y = y;
    // The last category leaves no positive result: it belongs to the area alone.
    if (row + 1 < table.rows) accuracy.cuts.push_back(std::move(cut));
  }
  return accuracy;
}

namespace {

// The head and its rule are three characters longer than the lines below them.
std::string CountsTable(const CountedCases& cases) {
  const CountedTable& table = cases.table;
  const auto count = [](double value) { return FormatCol(value, 9, 0); };
  std::string head = "    Count |";
  for (const Category& category : cases.columns) head += PadLeftBlank(category.label, 9) + "|";
  head += "    Total ";
  const std::string rule = DashedRule(static_cast<int>(head.size())) + "\r\n";

  std::string text = head + "\r\n" + rule;
  for (std::size_t row = 0; row < table.rows; ++row) {
    text += PadLeftBlank(cases.rows[row].label, 9) + "|" + count(table.Cell(row, 0)) + "|" + count(table.Cell(row, 1)) +
            "|" + count(table.row_totals[row]) + "\r\n" + rule;
  }
  text += "    Total |" + count(table.column_totals[0]) + "|" + count(table.column_totals[1]) + "|" + count(table.n);
  return text;
}

std::string CutLine(const std::string& label, const CutPoint& cut) {
  const auto value = [](const Number& number) { return MaskedNumber(number.value(), "0.000"); };
  const auto defined = [](const std::optional<double>& number, std::string_view mask) {
    return number ? MaskedNumber(*number, mask) : kNotDefined;
  };
  std::string line = label + Blanks(22 - static_cast<int>(label.size()));  // a longer label is not cut
  line += value(cut.sensitivity) + "   ";
  line += value(cut.specificity) + "   ";
  line += value(cut.positive_predictive_value) + "   ";
  line += value(cut.negative_predictive_value) + "   ";
  line += defined(cut.positive_ratio, "0.000") + "   ";
  line += defined(cut.negative_ratio, "0.000");
  line += cut.kappa < 0 ? "  " : "   ";  // the sign hangs out to the left
  line += value(cut.kappa) + "   ";
  line += defined(cut.kappa_significance, "0.0000") + "\r\n";
  return line;
}

std::string CutTable(const CountedCases& cases, const DiagnosticAccuracy& accuracy) {
  std::string text = "Cut Point (T+ >)         Sn      Sp     PPV     NPV     LR+     LR-   Kappa     K p<\r\n" +  //
                     DashedRule(84) + "\r\n";
  for (std::size_t i = 0; i < accuracy.cuts.size(); ++i) text += CutLine(cases.rows[i].label, accuracy.cuts[i]);
  return text;
}

std::string Definitions() {
  return "Definitions\r\n\r\n" + DashedRule(83) +
         "\r\n"
         "Sn   Sensitivity: The proportion of diseased cases with a positive test.\r\n"
         "Sp   Specificity: The proportion of non-diseased cases with a negative test.\r\n"
         "PPV  Positive Predictive Value: The proportion of cases with a positive test\r\n"
         "     who have the disease A/(A+C).\r\n"
         "NPV  Negative Predictive Value: The proportion of cases with a negative test\r\n"
         "     who do not have the disease D/(D+B).\r\n"
         "LR+  Positive Likelihood Ratio: A positive ratio greater than 1 indicates the\r\n"
         "     diagnostic test increases the odds of identifying disease Sn/(1-Sp).\r\n"
         "LR-  Negative Likelihood Ratio: A negative ratio less than 1 indicates the\r\n"
         "     diagnostic test increases the odds of correctly identifying disease absence\r\n"
         "     (1-Sn)/Sp.\r\n"
         "K    Kappa: The level of agreement beyond chance for a 2x2 table at the cutpoint.\r\n";
}

std::string DiagnosticReport(const DataSet& data, const TableVariables& variables, const CountedCases& cases,
                             const DiagnosticAccuracy& accuracy) {
  std::string report;
  report += "Diagnostic Accuracy: " + data.VariableName(variables.rows) + " (Test)  by  " +
            data.VariableName(variables.columns) + " (Reference)\r\n\r\n";
  report += "Reference Variable Label: " + data.VariableLabel(variables.columns) + "\r\n";
  report += "Test Variable Label: " + data.VariableLabel(variables.rows) + "\r\n\r\n";
  report += "              [D-]      [D+]  \r\n\r\n";
  report += CountsTable(cases);
  report += "\r\n\r\n";
  report += CutTable(cases, accuracy);
  report += "\r\n\r\n";
  report += Definitions();
  report += "\r\n\r\n";
  report += "Area Under ROC Curve: " + MaskedNumber(accuracy.area.value(), "0.000") + "\r\n\r\n";
  return report;
}

std::string NotTwoCategories(const DataSet& data, const TableVariables& variables) {
  return "The reference standard variable (" + data.VariableName(variables.columns) +
         ") has more than two categories.\r\n"
         "If you are using a variable with more than two categories, you must\r\n"
         "recode the variable into two categories (values). The first category\r\n"
         "must be coded to represent known non-disease (usually coded as 0) and the\r\n"
         "second category must be coded to represent known disease (coded as 1).";
}

}  // namespace

void RunDiagnostic(ProcedureRun& run, const Roles& roles) {
  constexpr std::string_view kTitle = "Diagnostic Accuracy: ";
  const DataSet& data = run.data;
  const TableVariables variables{.rows = roles.main, .columns = roles.independent};
  const std::string names = NamesOfPair(data, variables.rows, variables.columns);
  if (variables.rows < 1 || variables.columns < 1) {
    run.ReportError(ErrorMessage(kTitle, names, "You must select a reference standard variable and a test variable."));
    return;
  }
  const CaseSource source = BeginCases(run);
  const CountedCases cases = CountCases(source, variables);
  if (cases.n < 1) {
    run.ReportError(ErrorMessage("Diagnostic Accuracy Comparison: ", names, "There are no observations."));
    return;
  }
  if (cases.columns.size() != 2) {
    run.ReportError(ErrorMessage(kTitle, names, NotTwoCategories(data, variables)));
    return;
  }
  if (cases.too_many_categories) {
    run.ReportError(ErrorMessage(kTitle, names, "There are too many categories for a table."));
    return;
  }
  run.AppendReport(source.control.ControlCaption() +
                   DiagnosticReport(data, variables, cases, ComputeDiagnosticAccuracy(cases.table)));
  if (run.wants_charts) run.LeaveCharts(ChartKind::kDiagnostic, FrequencyCharts(data, variables, cases, "Frequency"));
}

}  // namespace tessara
