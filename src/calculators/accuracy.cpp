#include "calculators/accuracy.h"

#include <string_view>

#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::string_view kUnknown = "unk";

std::string Text(const Number& number) { return MaskedNumber(number.value(), "0.000"); }
std::string Text(const std::optional<Number>& ratio) { return ratio ? Text(*ratio) : std::string(kUnknown); }

std::string Percent(const Number& proportion) {
  const Number percent = 100 * proportion;
  return MaskedNumber(percent.value(), ".00") + "%";
}

std::string AccuracyReport(const TypedAccuracy& a) {
  const auto count = [](const Number& number) { return FormatCol(number, 6, 0); };
  const OutcomeCounts& c = a.cells;
  std::string report = "Diagnostic Accuracy\r\n\r\n";
  report += "                  Known Status\r\n";
  report += "Test Result |     D-   |     D+   |    Total\r\n";
  report += "            +----------+----------+\r\n";
  report += "         T- |   " + count(c.without_disease_negative) + " |   " + count(c.with_disease_negative) +
            " |   " + count(a.test_negative) + "\r\n";
  report += "            +----------+----------+\r\n";
  report += "         T+ |   " + count(c.without_disease_positive) + " |   " + count(c.with_disease_positive) +
            " |   " + count(a.test_positive) + "\r\n";
  report += "            +----------+----------+----------\r\n";
  report += "      Total |   " + count(a.without_disease) + " |   " + count(a.with_disease) + " |   " + count(a.n);
  report += "\r\n\r\n\r\n";
  report += AccuracyShortReport(a);
  return report;
}

std::string AccuracyNarrative(const TypedAccuracy& a) {
  // The ratios are compared as they are printed. "unk" cannot be, so it enters the branch.
  const std::string positive = Text(a.positive_likelihood_ratio);
  const std::string negative = Text(a.negative_likelihood_ratio);
  std::string narrative;
  narrative += "Sensitivity:   " + Percent(a.sensitivity) + " of diseased cases had a positive test.\r\n\r\n";
  narrative += "Specificity:   " + Percent(a.specificity) + " of non-diseased cases had a negative test.\r\n\r\n";
  narrative += "Pos. Pred. Value:   " + Percent(a.positive_predictive_value) +
               " of cases with a positive test have the disease.\r\n\r\n";
  narrative += "Neg. Pred. Value:   " + Percent(a.negative_predictive_value) +
               " of cases with a negative test do not have the disease.\r\n\r\n";
  narrative += "Pos. LR:   A ratio of " + positive;
  narrative += ToNumber(positive) > 1 ? " indicates a positive test increases the odds of disease.\r\n\r\n"
                                      : " indicates a positive test does not increase the odds of disease.\r\n\r\n";
  narrative += "Neg. LR:   A ratio of " + negative;
  narrative += ToNumber(negative) < 1
                   ? " indicates a negative test increases the odds of disease absence.\r\n\r\n"
                   : " indicates a negative test does not increase the odds of disease absence.\r\n\r\n";
  narrative += DashedRule(54);
  return narrative;
}

// The calculation goes on behind these boxes, but it was not given what it asks for.
MessageBox RatioMessage(std::string_view text) {
  return {std::string(kEntryError), std::string(text), Buttons::kOk, Tone::kWarning};
}

std::string TotalText(const Number& total) { return " " + GeneralText(total.value()); }

}  // namespace

TypedAccuracy ComputeTypedAccuracy(const OutcomeCounts& cells) {
  TypedAccuracy a;
  a.cells = cells;
  const Number t1 = cells.without_disease_negative;
  const Number t2 = cells.with_disease_negative;
  const Number t3 = cells.without_disease_positive;
  const Number t4 = cells.with_disease_positive;
  a.test_negative = t1 + t2;
  a.test_positive = t3 + t4;
  a.without_disease = t1 + t3;
  a.with_disease = t2 + t4;
  a.n = t1 + t2 + t3 + t4;

  a.sensitivity = t4 / a.with_disease;
  a.specificity = t1 / a.without_disease;
  a.positive_predictive_value = t4 / a.test_positive;
  a.negative_predictive_value = t1 / a.test_negative;

  if (a.sensitivity > 0 && a.specificity < 1) {
    a.positive_likelihood_ratio = Number(a.sensitivity / (1 - a.specificity));
  }
  const Condition perfect = t2 == 0 && t3 == 0 && t1 > 0 && t4 > 0;  // misses nobody and alarms nobody
  if (perfect) {
    a.negative_likelihood_ratio = Number(0);
  } else if (a.sensitivity < 1 && a.specificity > 0) {
    a.negative_likelihood_ratio = Number((1 - a.sensitivity) / a.specificity);
  }
  return a;
}

std::string AccuracyShortReport(const TypedAccuracy& a) {
  std::string lines;
  lines += "Sensitivity                   " + Text(a.sensitivity) + "\r\n";
  lines += "Specificity                   " + Text(a.specificity) + "\r\n";
  lines += "Positive Predictive Value     " + Text(a.positive_predictive_value) + "\r\n";
  lines += "Negative Predictive Value     " + Text(a.negative_predictive_value) + "\r\n";
  // The label of the positive ratio is two blanks shorter than its neighbours.
  lines += "Positive Likelihood Ratio   " + Text(a.positive_likelihood_ratio) + "\r\n";
  lines += "Negative Likelihood Ratio     " + Text(a.negative_likelihood_ratio) + "\r\n";
  return lines;
}

AccuracyCalculation CalculateAccuracy(const AccuracyBoxes& boxes) {
  AccuracyCalculation result;
  Calculation& calculation = result.calculation;
  if (!IsNumeric(boxes.without_disease_negative) || !IsNumeric(boxes.with_disease_negative) ||
      !IsNumeric(boxes.without_disease_positive) || !IsNumeric(boxes.with_disease_positive)) {
    calculation.messages.push_back({std::string(kEntryError), "Numerical data are required in all table cells."});
    return result;
  }
  const TypedAccuracy a =
      ComputeTypedAccuracy({.without_disease_negative = TypedNumber(boxes.without_disease_negative).value(),
                            .with_disease_negative = TypedNumber(boxes.with_disease_negative).value(),
                            .without_disease_positive = TypedNumber(boxes.without_disease_positive).value(),
                            .with_disease_positive = TypedNumber(boxes.with_disease_positive).value()});
  if (!a.positive_likelihood_ratio) {
    calculation.messages.push_back(
        RatioMessage("Sensitivity must be greater than 0 and specificity must be less than 1 to compute a positive "
                     "likelihood ratio."));
  }
  if (!a.negative_likelihood_ratio) {
    calculation.messages.push_back(
        RatioMessage("Sensitivity must be less than 1 and specificity must be greater than 0 to compute a negative "
                     "likelihood ratio."));
  }
  result.totals = {.test_negative = TotalText(a.test_negative),
                   .test_positive = TotalText(a.test_positive),
                   .without_disease = TotalText(a.without_disease),
                   .with_disease = TotalText(a.with_disease),
                   .n = TotalText(a.n)};
  calculation.report = AccuracyReport(a);
  calculation.short_report = AccuracyShortReport(a);
  calculation.narrative = AccuracyNarrative(a);
  return result;
}

}  // namespace tessara
