#include "calculators/intervals.h"

#include <cstddef>
#include <iterator>

#include "calculators/summary_text.h"
#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {

CriticalValues CriticalTOf(double df) {
  constexpr CriticalValues kExactRows[] = {
      {6.314, 12.706, 63.657}, {2.920, 4.303, 9.925}, {2.353, 3.182, 5.841},  // 1
      {2.132, 2.776, 4.604},   {2.015, 2.571, 4.032}, {1.943, 2.447, 3.707},  // 4
      {1.895, 2.365, 3.499},   {1.860, 2.306, 3.355}, {1.833, 2.262, 3.250},  // 7
      {1.812, 2.228, 3.169},   {1.796, 2.201, 3.106}, {1.782, 2.179, 3.055},  // 10
      {1.771, 2.160, 3.012},   {1.761, 2.145, 2.977}, {1.753, 2.131, 2.947},  // 13
      {1.746, 2.120, 2.921},   {1.740, 2.110, 2.898}, {1.734, 2.101, 2.878},  // 16
      {1.729, 2.093, 2.861},   {1.725, 2.086, 2.845}, {1.721, 2.080, 2.831},  // 19
      {1.717, 2.074, 2.819},   {1.714, 2.069, 2.807}, {1.711, 2.064, 2.797},  // 22
      {1.708, 2.060, 2.787},   {1.706, 2.056, 2.779}, {1.703, 2.052, 2.771},  // 25
      {1.701, 2.048, 2.763},   {1.699, 2.045, 2.756},                         // 28
  };
  // The first 29 rows take exact equality, so a df of 29.5 falls under the first band.
  for (std::size_t i = 0; i < std::size(kExactRows); ++i) {
    if (df == static_cast<double>(i + 1)) return kExactRows[i];
  }
  if (df > 29 && df < 40) return {1.697, 2.042, 2.750};
  if (df > 39 && df < 60) return {1.684, 2.021, 2.704};
  if (df > 59 && df < 90) return {1.671, 2.000, 2.660};
  if (df > 89 && df < 121) return {1.658, 1.980, 2.617};
  return {1.645, 1.960, 2.576};
}

namespace {

Margin MarginAround(const Number& middle, double critical, const Number& standard_error) {
  Margin margin;
  margin.error = critical * standard_error;
  margin.lower = middle - margin.error;
  margin.upper = middle + margin.error;
  return margin;
}

// A proportion has no limit outside 0 and 1.
Margin MarginWithinOne(const Number& middle, double critical, const Number& standard_error) {
  Margin margin = MarginAround(middle, critical, standard_error);
  if (margin.lower < 0) margin.lower = 0;
  if (margin.upper > 1) margin.upper = 1;
  return margin;
}

// What the pages of the two intervals have in common.

std::string MarginRow(std::string_view label, const Margin& margin) {
  std::string row(label);
  row += FormatCol(margin.error, 14, 4) + "   " + FormatCol(margin.lower, 14, 4) + "   " +
         FormatCol(margin.upper, 14, 4) + "\r\n";
  return row;
}

std::string MarginRows(const Margins& margins) {
  return MarginRow("    90%    ", margins.of_90) +  //
         MarginRow("    95%    ", margins.of_95) +  //
         MarginRow("    99%    ", margins.of_99);
}

std::string MarginBlock(std::string_view title, const Margin& margin) {
  std::string block(title);
  block += "\r\n";
  block += " +/- " + Text(margin.error, "0.0000") + "  LL " + Text(margin.lower, "0.0000") + "  UL " +
           Text(margin.upper, "0.0000") + "\r\n\r\n";
  return block;
}

std::string MarginBlocks(const Margins& margins) {
  return MarginBlock(" 90% Confidence Interval", margins.of_90) +
         MarginBlock(" 95% Confidence Interval", margins.of_95) +
         MarginBlock(" 99% Confidence Interval", margins.of_99);
}

Calculation Refused(std::string_view title, std::string_view text) {
  Calculation calculation;
  calculation.messages.push_back({std::string(title), std::string(text)});
  return calculation;
}

// The mean.

std::string MeanReport(const MeanInterval& m) {
  std::string report = "Margin of Error for Means\r\n\r\n";
  report += "n = " + Text(m.n) + "   Mean = " + Text(m.mean) + "   Standard Deviation = " + Text(m.deviation);
  report += "\r\n\r\n";
  report += "                                         Margin Limits\r\n";
  report += "Confidence      Error +/-            Lower            Upper\r\n";
  report += DashedRule(60) + "\r\n";
  report += MarginRows(m.margins);
  report += "\r\n\r\n";
  return report;
}

std::string MeanNarrative(const MeanInterval& m) {
  const Margin& margin = m.margins.of_95;
  std::string narrative = "Interpretation of the 95% confidence interval:\r\n\r\n";
  narrative += "Based on " + Text(m.n) + " observations, a mean of " + Text(m.mean);
  narrative += ", a standard deviation equal to " + Text(m.deviation);
  narrative += ", and 5% chance of error (95% confidence), the population mean ";
  narrative += "is between " + Text(margin.lower, "0.0000") + " and " + Text(margin.upper, "0.0000") + ".\r\n\r\n";
  narrative += "The margin of error for the 95% confidence interval is plus or minus (+/-) ";
  narrative += Text(margin.error, "0.0000") + " .\r\n\r\n";
  narrative += DashedRule(54);
  return narrative;
}

// The proportion.

std::string ProportionReport(const ProportionInterval& p) {
  std::string report = "Margin of Error for Proportions\r\n\r\n";
  report += "n = " + Text(p.n) + "   Proportion = " + Text(p.proportion);
  report += "   Standard Error = " + Text(p.standard_error, "0.000") + "\r\n\r\n";
  report += "                                          Margin Limits\r\n";
  report += "Confidence      Error +/-            Lower            Upper\r\n";
  report += DashedRule(60) + "\r\n";
  report += MarginRows(p.margins);
  report += "\r\n";
  return report;
}

std::string ProportionNarrative(const ProportionInterval& p) {
  const Margin& margin = p.margins.of_95;
  std::string narrative = "Interpretation of the 95% confidence interval:\r\n\r\n";
  narrative += "Based on " + Text(p.n) + " observations, a proportion of " + Text(p.proportion);
  narrative += ", a standard error equal to " + Text(p.standard_error, ".00");
  narrative += ", and 5% chance of error (95% confidence), the population proportion ";
  narrative += "is between " + Text(margin.lower, ".000") + " and " + Text(margin.upper, ".000");
  narrative += " (" + Text(100 * margin.lower, ".0") + "% to " + Text(100 * margin.upper, ".0") + "%).\r\n\r\n";
  narrative += "The margin of error for the 95% confidence interval is plus or minus (+/-) ";
  narrative += Text(margin.error, "0.000") + "  or plus or minus " + Text(100 * margin.error, "0.000") + "% .\r\n\r\n";
  narrative += DashedRule(54);
  return narrative;
}

}  // namespace

MeanInterval ComputeMeanInterval(double n, double mean, double deviation) {
  MeanInterval m;
  m.n = n;
  m.mean = mean;
  m.deviation = deviation;
  m.standard_error = m.deviation / Sqrt(m.n);
  const CriticalValues t = CriticalTOf(n - 1);
  m.margins.of_90 = MarginAround(m.mean, t.at_90, m.standard_error);
  m.margins.of_95 = MarginAround(m.mean, t.at_95, m.standard_error);
  m.margins.of_99 = MarginAround(m.mean, t.at_99, m.standard_error);
  return m;
}

std::string MeanIntervalShortReport(const MeanInterval& m) {
  return " n = " + Text(m.n) + "   Mean = " + Text(m.mean) + "   StdDev = " + Text(m.deviation) + "\r\n\r\n" +
         MarginBlocks(m.margins);
}

Calculation CalculateMeanInterval(const MeanIntervalBoxes& boxes) {
  if (!IsNumeric(boxes.n) || !IsNumeric(boxes.mean) || !IsNumeric(boxes.deviation)) {
    return Refused(kEntryError, "Only numerical data can be entered.");
  }
  const Number n = TypedNumber(boxes.n);
  if (n - 1 == 0) return Refused("Error!", "You need more than one observation.");

  const MeanInterval m =
      ComputeMeanInterval(n.value(), TypedNumber(boxes.mean).value(), TypedNumber(boxes.deviation).value());
  Calculation calculation;
  calculation.report = MeanReport(m);
  calculation.short_report = MeanIntervalShortReport(m);
  calculation.narrative = MeanNarrative(m);
  return calculation;
}

ProportionInterval ComputeProportionInterval(double n, double proportion) {
  ProportionInterval p;
  p.n = n;
  p.proportion = proportion;
  p.standard_error = Sqrt((1 - p.proportion) * p.proportion / p.n);
  // These are not the values of the last row of the t table.
  p.margins.of_90 = MarginWithinOne(p.proportion, 1.65, p.standard_error);
  p.margins.of_95 = MarginWithinOne(p.proportion, 1.96, p.standard_error);
  p.margins.of_99 = MarginWithinOne(p.proportion, 2.58, p.standard_error);
  return p;
}

std::string ProportionIntervalShortReport(const ProportionInterval& p) {
  return " n = " + Text(p.n) + "   Proportion = " + Text(p.proportion) + "   SEp = " + Text(p.standard_error, "0.000") +
         "\r\n\r\n" + MarginBlocks(p.margins);
}

Calculation CalculateProportionInterval(const ProportionIntervalBoxes& boxes) {
  if (!IsNumeric(boxes.n) || !IsNumeric(boxes.proportion)) {
    return Refused(kEntryError, "Only numerical data can be entered.");
  }
  const Number proportion = TypedNumber(boxes.proportion);
  if (proportion > 1) return Refused("Entry Error", "You must enter a proportion (i.e., a number less than 1)");

  const ProportionInterval p = ComputeProportionInterval(TypedNumber(boxes.n).value(), proportion.value());
  Calculation calculation;
  calculation.report = ProportionReport(p);
  calculation.short_report = ProportionIntervalShortReport(p);
  calculation.narrative = ProportionNarrative(p);
  return calculation;
}

}  // namespace tessara
