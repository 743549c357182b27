#include "calculators/sample_size.h"

#include <string_view>

#include "calculators/summary_text.h"
#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

// The level that a z stands for; 0 for a z of no choice.
template <std::size_t Count>
double LevelOf(const std::array<ChosenLevel, Count>& choices, double z) {
  for (const ChosenLevel& choice : choices) {
    if (choice.z == z) return choice.level;
  }
  return 0;
}

// A part without data prints 0, so that a half filled panel gets its page.
std::string SizeText(const std::optional<Number>& size) { return size ? Text(*size, "0") : "0"; }

std::string LevelLines(const SampleSizePlan& plan) {
  std::string lines;
  lines += "    Statistical Significance (Alpha)   = " + Text(LevelOf(kAlphaChoices, plan.alpha_z), "0.00") + "\r\n";
  lines += "    Statistical Power (Beta)           = " + Text(LevelOf(kPowerChoices, plan.power_z), "0.00") + "\r\n";
  return lines;
}

std::string SampleSizeReport(const SampleSizePlan& plan, const SampleSizes& sizes) {
  std::string report = "Sample Size Estimator\r\n\r\n";
  report += "    Proportions (for two sample z-test)\r\n\r\n";
  report += LevelLines(plan);
  report += "    Estimated Proportion for Sample 1  = " + Text(plan.proportion1) + "\r\n";
  report += "    Estimated Proportion for Sample 2  = " + Text(plan.proportion2) + "\r\n";
  report += "    Estimated Total Sample Size        = " + SizeText(sizes.for_proportions) + "\r\n\r\n";
  report += "    Means (for two sample t-test)\r\n\r\n";
  report += LevelLines(plan);
  report += "    Estimated Difference Between Means = " + Text(plan.difference) + "\r\n";
  report += "    Estimated Standard Deviation       = " + Text(plan.deviation) + "\r\n";
  report += "    Estimated Total Sample Size        = " + SizeText(sizes.for_means) + "\r\n\r\n\r\n";
  return report;
}

std::string SampleSizeNarrative(const SampleSizePlan& plan, const SampleSizes& sizes) {
  constexpr std::string_view kMinimum = ", the minimum combined sample size from the two populations is ";
  std::string narrative;
  if (sizes.for_proportions) {
    narrative += "Based on a difference between the independent samples proportions of ";
    narrative += Text(Abs(plan.proportion1 - plan.proportion2), "0.000");
    narrative.append(kMinimum).append(SizeText(sizes.for_proportions)).append(" .");
  }
  if (sizes.for_proportions && sizes.for_means) narrative += "\r\n\r\n" + DashedRule(54) + "\r\n\r\n";
  if (sizes.for_means) {
    narrative += "Based on a difference between the independent samples means of " + Text(plan.difference, ".00");
    narrative += " and a standard deviation of " + Text(plan.deviation, "0.00");
    narrative.append(kMinimum).append(SizeText(sizes.for_means)).append(" .");
  }
  return narrative;
}

}  // namespace

SampleSizes ComputeSampleSizes(const SampleSizePlan& plan) {
  SampleSizes sizes;
  const Number z_alpha = plan.alpha_z;
  const Number z_power = plan.power_z;
  const Number p1 = plan.proportion1;
  const Number p2 = plan.proportion2;
  if (p1 != 0 && p2 != 0) {
    const Number pooled = (p1 + p2) / 2;
    const Number a = z_alpha * Sqrt(2 * pooled * (1 - pooled));
    const Number b = z_power * Sqrt((1 - p1) * p1 + (1 - p2) * p2);
    sizes.for_proportions = Number((a + b) * (a + b) / ((p1 - p2) * (p1 - p2)));
  }
  const Number d = plan.difference;
  const Number s = plan.deviation;
  if (s != 0 && d != 0) {
    sizes.for_means = Number(4 * (s * s) * ((z_alpha + z_power) * (z_alpha + z_power)) / (d * d));
  }
  return sizes;
}

std::string SampleSizeShortReport(const SampleSizes& sizes) {
  std::string report = "Sample Size Estimator\r\n\r\n";
  report += "Proportions (two sample z-test)\r\n";
  report += "Estimated Total Sample Size   = " + SizeText(sizes.for_proportions) + "\r\n\r\n";
  report += "Means (two sample t-test)\r\n";
  report += "Estimated Total Sample Size   = " + SizeText(sizes.for_means);
  return report;
}

Calculation CalculateSampleSize(const SampleSizeBoxes& boxes) {
  const SampleSizePlan plan = {.proportion1 = TypedNumber(boxes.proportion1),
                               .proportion2 = TypedNumber(boxes.proportion2),
                               .difference = TypedNumber(boxes.difference),
                               .deviation = TypedNumber(boxes.deviation),
                               .alpha_z = boxes.alpha_z,
                               .power_z = boxes.power_z};
  const SampleSizes sizes = ComputeSampleSizes(plan);
  Calculation calculation;
  calculation.report = SampleSizeReport(plan, sizes);
  calculation.short_report = SampleSizeShortReport(sizes);
  calculation.narrative = SampleSizeNarrative(plan, sizes);
  return calculation;
}

}  // namespace tessara
