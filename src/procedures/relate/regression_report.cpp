#include "procedures/relate/regression_report.h"

#include <algorithm>

#include "numerics/case_values.h"
#include "numerics/masks.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::size_t kLineLength = 65;

// An equation that goes on in the next line, under its first sign, where it has passed the length of a line. The length
// is that of the whole text so far, its line ends and blanks included, and not that of the last line.
class WrappedEquation {
 public:
  explicit WrappedEquation(std::size_t indent) : indent_(static_cast<int>(indent)) {}

  void Add(std::string_view part) { text_ += part; }
  void BreakWhenLong() {
    if (text_.size() <= limit_) return;
    text_.append(kLineEnd).append(Blanks(indent_));
    limit_ += kLineLength;
  }
  const std::string& text() const { return text_; }

 private:
  int indent_;
  std::string text_;
  std::size_t limit_ = kLineLength;
};

std::string SummaryLine(const std::string& name, const std::vector<double>& values) {
  const auto [least, greatest] = std::minmax_element(values.begin(), values.end());
  std::vector<double> sorted = values;
  const VariableSpread spread = MeasureSpread(values);
  return PadLeftBlank(name, 10) + FormatCol(*least, 14, 3) + FormatCol(*greatest, 14, 3) +
         FormatCol(MedianOf(sorted), 14, 3) + FormatCol(spread.mean, 14, 3) + FormatCol(spread.deviation, 14, 3) +
         "\r\n";
}

}  // namespace

std::string ModelEquation(const ModelCases& cases) {
  constexpr std::size_t kLengthOfConstant = 11;  // of " = Constant"

  WrappedEquation equation(kLengthOfConstant + cases.dependent_name.size());
  equation.Add(cases.dependent_name + " = ");
  for (std::size_t j = 0; j < cases.k(); ++j) {
    if (j > 0) equation.Add(" + ");
    equation.Add(cases.ModelNames[j]);
    equation.BreakWhenLong();
  }
  return equation.text() + " + e\r\n";
}

std::string EstimatedEquation(const ModelCases& cases, std::span<const double> coefficients, std::string_view mask) {
  constexpr std::size_t kLengthOfSign = 3;  // of " = "

  const std::string constant = MaskedNumber(coefficients[0], mask);
  WrappedEquation equation(kLengthOfSign + cases.dependent_name.size() + constant.size());
  equation.Add(cases.dependent_name + " = " + constant);
  for (std::size_t j = 1; j < cases.k(); ++j) {
    equation.Add(" + " + MaskedNumber(coefficients[j], mask) + "(" + cases.ModelNames[j] + ")");
    equation.BreakWhenLong();
  }
  return equation.text();
}

std::string SummaryTable(const ModelCases& cases) {
  std::string table = "\r\n\r\nSummary Statistics\r\n\r\n";
  table += PadLeftBlank("Variable", 10) + PadLeftBlank("Min", 14) + PadLeftBlank("Max", 13) +
           PadLeftBlank("Median", 13) + PadLeftBlank("Mean", 13) + PadLeftBlank("Std. Dev.", 13) + "\r\n";
  table += DashedRule(kRegressionRuleLength) + "\r\n";
  table += SummaryLine(cases.dependent_name, cases.variables[0]);
  for (std::size_t j = 1; j < cases.k(); ++j) table += SummaryLine(cases.ModelNames[j], cases.variables[j]);
  return table;
}

}  // namespace tessara
