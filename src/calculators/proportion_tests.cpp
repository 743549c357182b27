#include "calculators/proportion_tests.h"

#include "calculators/summary_text.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

// A proportion of 0 has no error to divide by; this one stands in for it.
constexpr double kLeastProportion = 0.0001;

// Twice the tail beyond z. The routine gives 0 the area 1, so that its half is set here.
Number TwoTailedP(const Number& z) {
  Number area = NormalCdf(z);
  if (z.value() > 0) area = 1 - area;
  if (z.value() == 0) area = 0.5;
  return Number(2 * area);
}

// The heading and the lines above the test that both reports of two samples share.
std::string TwoProportionsLines(const TwoProportionsTest& test) {
  std::string lines = "Two-Sample Difference of Proportions (2-tailed)\r\n\r\n";
  lines += Blanks(20) + test.label1 + Blanks(6) + test.label2 + "\r\n";
  lines += "Sample Proportion    " + FormatCol(test.proportion1, 14, 4) + FormatCol(test.proportion2, 14, 4) + "\r\n";
  lines += "Sample Size (n)" + FormatCol(test.n1, 9, 0) + FormatCol(test.n2, 9, 0) + "\r\n\r\n";
  return lines;
}

// The one-sample report but for its end.
std::string OneProportionLines(const OneProportionTest& test) {
  std::string lines = "One-Sample Difference of Proportions\r\n\r\n\r\n";
  lines += "Population Proportion" + FormatCol(test.population_proportion, 11, 4) + "\r\n";
  lines += "Sample Proportion    " + FormatCol(test.proportion, 11, 4) + "\r\n";
  lines += "Sample Size (n) " + FormatCol(test.n, 11, 0) + "\r\n";
  lines += "Test statistic  " + FormatCol(test.z, 16, 4) + "\r\n";
  lines += "            p < " + FormatCol(test.p, 16, 4) + "  (2-tailed)";
  return lines;
}

}  // namespace

std::optional<TwoProportionsTest> ComputeTwoProportions(const TwoProportionsBoxes& boxes) {
  TwoProportionsTest test;
  test.n1 = NumberPrefix(boxes.cases1);
  test.n2 = NumberPrefix(boxes.cases2);
  if (test.n1.value() == 0 || test.n2.value() == 0) return std::nullopt;
  if (test.n1 + test.n2 - 2 < 13) return std::nullopt;
  test.proportion1 = NumberPrefix(boxes.proportion1);
  test.proportion2 = NumberPrefix(boxes.proportion2);
  test.label1 = SampleLabel(boxes.label1);
  test.label2 = SampleLabel(boxes.label2);

  Number pooled = (test.n1 * test.proportion1 + test.n2 * test.proportion2) / (test.n1 + test.n2);
  if (pooled.value() == 0) pooled = kLeastProportion;
  const Number error = Sqrt(pooled * (1 - pooled)) * Sqrt((test.n1 + test.n2) / (test.n1 * test.n2));
  test.z = RoundedBy((test.proportion1 - test.proportion2) / error, "0.000");
  test.p = TwoTailedP(test.z);
  return test;
}

std::string TwoProportionsReport(const TwoProportionsTest& test) {
  std::string report = TwoProportionsLines(test);
  report += "                   Z-statistic          p < \r\n";
  report += "Significance   " + FormatCol(test.z, 8, 4) + "  " + FormatCol(test.p, 14, 4) + "\r\n\r\n\r\n";
  return report;
}

std::string TwoProportionsShortReport(const TwoProportionsTest& test) {
  std::string report = TwoProportionsLines(test);
  report += "           Z-statistic         p < \r\n";
  report += "      " + FormatCol(test.z, 8, 4) + "  " + FormatCol(test.p, 14, 4);
  return report;
}

std::string TwoProportionsNarrative(const TwoProportionsTest& test) {
  return DifferenceNarrative("Two-Sample Z-Test", MaskedNumber(test.p.value(), "0.000"),
                             " between the two independend sample proportions.");
}

std::optional<OneProportionTest> ComputeOneProportion(const OneProportionBoxes& boxes) {
  OneProportionTest test;
  test.population_proportion = NumberPrefix(boxes.population_proportion);
  test.proportion = NumberPrefix(boxes.proportion);
  test.n = NumberPrefix(boxes.cases);
  if (test.n.value() == 0 || test.proportion.value() == test.population_proportion.value()) return std::nullopt;

  if (test.population_proportion.value() == 0) test.population_proportion = kLeastProportion;
  const Number& pu = test.population_proportion;
  const Number error = Sqrt((1 - pu) * pu / test.n);
  test.z = RoundedBy((test.proportion - pu) / error, "0.000");
  test.p = TwoTailedP(test.z);
  return test;
}

std::string OneProportionReport(const OneProportionTest& test) { return OneProportionLines(test) + "\r\n\r\n\r\n"; }

std::string OneProportionShortReport(const OneProportionTest& test) { return OneProportionLines(test) + "\r\n\r\n"; }

std::string OneProportionNarrative(const OneProportionTest& test) {
  return DifferenceNarrative("One-Sample Z-Test", MaskedNumber(test.p.value(), "0.000"),
                             " between the sample and population proportions.");
}

Calculation ProportionTests(const TwoProportionsBoxes& two, const OneProportionBoxes& one, Samples posted) {
  Calculation calculation;
  std::optional<std::string> two_narrative;
  std::optional<std::string> one_narrative;
  if (const auto test = ComputeTwoProportions(two)) {
    two_narrative = TwoProportionsNarrative(*test);
    if (posted == Samples::kTwo) {
      calculation.report = TwoProportionsReport(*test);
      calculation.short_report = TwoProportionsShortReport(*test);
    }
  }
  if (const auto test = ComputeOneProportion(one)) {
    one_narrative = OneProportionNarrative(*test);
    if (posted == Samples::kOne) {
      calculation.report = OneProportionReport(*test);
      calculation.short_report = OneProportionShortReport(*test);
    }
  }
  calculation.narrative = JoinedNarratives(two_narrative, one_narrative);
  return calculation;
}

}  // namespace tessara
