#include "calculators/mean_tests.h"

#include "calculators/summary_text.h"
#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/probability.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

SampleSpread SpreadOf(const Number& n, const Number& deviation) {
  return {.n = n, .squares = (n - 1) * Square(deviation), .mean_variance = Square(deviation) / n};
}

void TestEqualVariances(const SampleSpread& one, const SampleSpread& two, TwoMeansTest& test) {
  test.df = PooledDf(one, two);
  const Number error = PooledError(one, two);
  test.t = (test.mean1 - test.mean2) / error;
  test.p = Computed(TDistP(test.df, test.t));
}

void TestUnequalVariances(const SampleSpread& one, const SampleSpread& two, TwoMeansTest& test) {
  test.unequal_df = RoundedBy(WelchDf(one, two), ".00");
  test.unequal_t = (test.mean1 - test.mean2) / WelchError(one, two);
  if (test.unequal_df < 5) {
    test.unequal_err = true;
    return;
  }
  test.unequal_p = Computed(TDistP(Floor(test.unequal_df), test.unequal_t));
}

void TestHomogeneity(TwoMeansTest& test) {
  test.ratio = CompareVariances(test.n1, Square(test.deviation1), test.n2, Square(test.deviation2));
  test.f_p = FDistP(test.ratio.numerator_df, test.ratio.denominator_df, test.ratio.f);
}

// A p of 0 is shown as 0.0001, and so is one that could not be computed.
double ShownP(const std::optional<double>& p) { return p.value_or(0) == 0 ? 0.0001 : *p; }

std::string DegreesText(const TwoMeansTest& test) {
  return "DF= (" + GeneralText(test.ratio.numerator_df.value()) + ", " +
         GeneralText(test.ratio.denominator_df.value()) + ")";
}

std::string UnequalDf(const TwoMeansTest& test) {
  return test.unequal_err ? FormatCol("Err", 11, 2) : FormatCol(test.unequal_df, 11, 2);
}

std::string UnequalP(const TwoMeansTest& test) {
  return test.unequal_err ? FormatCol("Err", 13, 4) : FormatCol(ShownP(test.unequal_p), 13, 4);
}

// The six lines that both reports of the one-sample test share, up to the p-value.
std::string OneMeanLines(const OneMeanTest& test) {
  std::string lines;
  lines += "Population Mean " + FormatCol(test.population_mean, 18, 4) + "\r\n";
  lines += "Sample Mean     " + FormatCol(test.mean, 18, 4) + "\r\n";
  lines += "Std Deviation   " + FormatCol(test.deviation, 18, 4) + "\r\n";
  lines += "Sample Size (n) " + FormatCol(test.n, 13, 0) + "\r\n";
  lines += "Test statistic  " + FormatCol(test.t, 18, 4) + "\r\n";
  lines += "            p < " + FormatCol(test.p.value_or(0), 18, 4);
  return lines;
}

std::size_t CountColumns(const std::array<Number, kMostMeans>& cases) {
  std::size_t k = 0;
  while (k < cases.size() && cases[k].value() > 0) ++k;
  return k;
}

void ComputeSquares(ManyMeansTest& test) {
  Number cases;  // N
  Number sum_of_totals;
  Checked between = 0;  // of T squared / n
  Checked within = 0;
  for (std::size_t i = 0; i < test.k; ++i) {
    const Number total = test.n[i] * test.means[i];
    cases += test.n[i];
    sum_of_totals += total;
    between = between + Square(total) / test.n[i];
    within = within + (test.n[i] - 1) * Square(test.deviations[i]);
  }
  test.between = between - Square(sum_of_totals) / cases;
  test.within = within;
  test.df1 = static_cast<double>(test.k) - 1;
  test.df2 = cases - (test.df1 + 1);
  test.total_df = cases - 1;
}

// A row of the table of columns, and the rule below it. Each column's text is as wide empty as filled.
template <typename ColumnText>
std::string ColumnsRow(const ManyMeansTest& test, std::string_view caption, ColumnText text) {
  std::string row(caption);
  for (std::size_t i = 0; i < kMostMeans; ++i) row += text(i, i < test.k) + " | ";
  return row + "\r\n          +-------------+-------------+-------------+-------------+\r\n";
}

std::string Cell(bool used, const Number& value, int width, int decimals) {
  return used ? FormatCol(value, width, decimals) : Blanks(width);
}

}  // namespace

std::optional<TwoMeansTest> ComputeTwoMeans(const TwoMeansBoxes& boxes) {
  TwoMeansTest test;
  test.n1 = TypedNumber(boxes.cases1);
  test.n2 = TypedNumber(boxes.cases2);
  if (test.n1.value() == 0 || test.n2.value() == 0) return std::nullopt;
  test.mean1 = TypedNumber(boxes.mean1);
  test.mean2 = TypedNumber(boxes.mean2);
  test.deviation1 = TypedNumber(boxes.deviation1);
  test.deviation2 = TypedNumber(boxes.deviation2);
  test.label1 = SampleLabel(boxes.label1);
  test.label2 = SampleLabel(boxes.label2);
  const SampleSpread one = SpreadOf(test.n1, test.deviation1);
  const SampleSpread two = SpreadOf(test.n2, test.deviation2);
  TestEqualVariances(one, two, test);
  TestUnequalVariances(one, two, test);
  TestHomogeneity(test);
  return test;
}

std::string TwoMeansReport(const TwoMeansTest& test) {
  std::string report = "Two-Sample Difference of Means\r\n\r\n";
  report += Blanks(22) + test.label1 + Blanks(6) + test.label2 + "\r\n";
  report += "Sample Mean     " + FormatCol(test.mean1, 15, 4) + FormatCol(test.mean2, 15, 4) + "\r\n";
  report += "Std Deviation   " + FormatCol(test.deviation1, 15, 4) + FormatCol(test.deviation2, 15, 4) + "\r\n";
  report += "Sample Size (n) " + FormatCol(test.n1, 10, 0) + "     " + FormatCol(test.n2, 10, 0) + "\r\n\r\n\r\n";
  report += "              Homogeneity of Variance\r\n";
  report += "     F= " + MaskedNumber(test.ratio.f.value(), "0.00") + "     " + DegreesText(test) + "     p < " +
            MaskedNumber(test.f_p.value(), "0.0000") + "\r\n\r\n\r\n";
  report += "                     T-statistic        DF      p < (2-tailed)\r\n";
  report += DashedRule(63) + "\r\n";
  report += "Equal Variance   " + FormatCol(test.t, 15, 4) + "  " + FormatCol(test.df, 8, 0) + "  " +
            FormatCol(ShownP(test.p), 16, 4) + "\r\n";
  report += "Unequal Variance " + FormatCol(test.unequal_t, 15, 4) + "  " + UnequalDf(test) + "  " + UnequalP(test) +
            "\r\n\r\n\r\n";
  return report;
}

std::string TwoMeansShortReport(const TwoMeansTest& test) {
  std::string report = "Two-Sample Difference of Means (2-tailed)\r\n\r\n";
  report += "            Homogeneity of Variance\r\n";
  report += "    F= " + MaskedNumber(test.ratio.f.value(), "0.00") + "    " + DegreesText(test) + "     p < " +
            MaskedNumber(test.f_p.value(), "0.0000") + "\r\n\r\n";
  report += "             T-statistic      DF          p < \r\n";
  report += "Equal   " + FormatCol(test.t, 15, 4) + " " + FormatCol(test.df, 8, 0) + FormatCol(ShownP(test.p), 16, 4) +
            "\r\n";
  report += "Unequal " + FormatCol(test.unequal_t, 15, 4) + " " + UnequalDf(test) + UnequalP(test);
  return report;
}

std::string TwoMeansNarrative(const TwoMeansTest& test) {
  const std::string unequal_p = test.unequal_err ? "Err" : MaskedOrEmpty(test.unequal_p, "0.000");
  return DifferenceNarrative("Two-Sample T-Test", test.f_p >= 0.05 ? MaskedOrEmpty(test.p, "0.000") : unequal_p,
                             " between the two independent sample means.");
}

std::optional<OneMeanTest> ComputeOneMean(const OneMeanBoxes& boxes) {
  OneMeanTest test;
  test.population_mean = TypedNumber(boxes.population_mean);
  test.mean = TypedNumber(boxes.mean);
  test.deviation = TypedNumber(boxes.deviation);
  test.n = TypedNumber(boxes.cases);
  std::int16_t df = 0;  // an n that has no 16 bits leaves it at 0
  Keep(df, ToInt16(test.n - 1));
  const Number error = test.deviation / Sqrt(test.n);
  test.t = (test.mean - test.population_mean) / error;
  if (df <= 0) return std::nullopt;
  test.p = Computed(TDistP(df, test.t));
  return test;
}

std::string OneMeanReport(const OneMeanTest& test) {
  return "One-Sample Difference of Means\r\n\r\n\r\n" + OneMeanLines(test) + "  (2-tailed)\r\n\r\n\r\n";
}

std::string OneMeanShortReport(const OneMeanTest& test) {
  return "One-Sample Difference of Means (2-Tailed)\r\n\r\n" + OneMeanLines(test) + "\r\n\r\n\r\n";
}

std::string OneMeanNarrative(const OneMeanTest& test) {
  return DifferenceNarrative("One-Sample T-Test", MaskedOrEmpty(test.p, "0.000"),
                             " between the sample and population mean.");
}

Calculation MeanTests(const TwoMeansBoxes& two, const OneMeanBoxes& one, Samples posted) {
  Calculation calculation;
  std::optional<std::string> two_narrative;
  std::optional<std::string> one_narrative;
  if (const auto test = ComputeTwoMeans(two)) {
    two_narrative = TwoMeansNarrative(*test);
    if (posted == Samples::kTwo) {
      calculation.report = TwoMeansReport(*test);
      calculation.short_report = TwoMeansShortReport(*test);
    }
  }
  if (const auto test = ComputeOneMean(one)) {
    one_narrative = OneMeanNarrative(*test);
    if (posted == Samples::kOne) {
      calculation.report = OneMeanReport(*test);
      calculation.short_report = OneMeanShortReport(*test);
    }
  }
  calculation.narrative = JoinedNarratives(two_narrative, one_narrative);
  return calculation;
}

std::optional<ManyMeansTest> ComputeManyMeans(const ManyMeansBoxes& boxes) {
  ManyMeansTest test;
  for (std::size_t i = 0; i < kMostMeans; ++i) {
    test.labels[i] = boxes.labels[i];
    test.n[i] = TypedNumber(boxes.cases[i]);
    test.means[i] = TypedNumber(boxes.means[i]);
    test.deviations[i] = TypedNumber(boxes.deviations[i]);
  }
  test.k = CountColumns(test.n);
  if (test.k < 2) return std::nullopt;
  ComputeSquares(test);
  test.between_square = test.between / test.df1;
  test.within_square = test.within / test.df2;
  test.f = RoundedBy(test.between_square / test.within_square, "0.00");
  // The p-value belongs to the F that is printed.
  test.p = Computed(RoundedBy(FDistP(test.df1, test.df2, test.f), "0.000"));
  return test;
}

std::string ManyMeansReport(const ManyMeansTest& test) {
  std::string report = "Analysis of Variance (ANOVA)\r\n\r\n";
  report += "Groups    |";
  for (const std::string& label : test.labels) report += PadLeftBlank(label, 12) + "|";
  report += "\r\n          +-------------+-------------+-------------+-------------+\r\n";
  report += ColumnsRow(test, "    Cases | ",
                       [&](std::size_t i, bool used) { return Cell(used, test.n[i], 8, 0) + Blanks(4); });
  report +=
      ColumnsRow(test, "     Mean | ", [&](std::size_t i, bool used) { return Cell(used, test.means[i], 11, 2); });
  report +=
      ColumnsRow(test, " Std. Dev | ", [&](std::size_t i, bool used) { return Cell(used, test.deviations[i], 11, 2); });
  report += "\r\n                     Sum of Squares            df            Mean Squares    \r\n";
  report += "                ------------------------     ------     ---------------------\r\n";
  report += "Between Groups " + FormatCol(test.between, 21, 2) + "    " + FormatCol(test.df1, 9, 0) + "  " +
            FormatCol(test.between_square, 20, 2) + "      \r\n";
  report += " Within Groups " + FormatCol(test.within, 21, 2) + "    " + FormatCol(test.df2, 9, 0) + "  " +
            FormatCol(test.within_square, 20, 2) + "      \r\n";
  report += "         Total " + FormatCol(Number(test.between + test.within), 21, 2) + "    " +
            FormatCol(test.total_df, 17, 0) + "\r\n\r\n";
  report += "                   F Statistic          p <\r\n";
  report += "                 ---------------      -------\r\n";
  report += Blanks(15) + FormatCol(test.f, 18, 2) + "  " + (test.p ? FormatCol(*test.p, 18, 2) : FormatCol("", 18, 2)) +
            "\r\n\r\n\r\n";
  return report;
}

std::string ManyMeansShortReport(const ManyMeansTest& test) {
  std::string report = "Analysis of Variance (ANOVA)\r\n\r\n";
  report += "          Sum of Squares    df       Mean SQ\r\n";
  report += "         ----------------  ----  -------------\r\n";
  report += "Between" + FormatCol(test.between, 18, 2) + FormatCol(test.df1, 5, 0) +
            FormatCol(test.between_square, 14, 2) + "\r\n";
  report += " Within" + FormatCol(test.within, 18, 2) + FormatCol(test.df2, 5, 0) +
            FormatCol(test.within_square, 14, 2) + "\r\n";
  report +=
      "  Total" + FormatCol(Number(test.between + test.within), 18, 2) + FormatCol(test.total_df, 5, 0) + "\r\n\r\n";
  report += "      F Statistic = " + MaskedNumber(test.f.value(), "0.00") + "    p < " + MaskedOrEmpty(test.p, "0.000");
  return report;
}

std::string ManyMeansNarrative(const ManyMeansTest& test) {
  return DifferenceNarrative("ANOVA", MaskedOrEmpty(test.p, "0.000"),
                             " among the " + std::to_string(test.k) + " independent sample means.");
}

Calculation AnalysisOfVariance(const ManyMeansBoxes& boxes) {
  Calculation calculation;
  const auto test = ComputeManyMeans(boxes);
  if (!test) return calculation;
  if (test->df2 < 18) {
    // The test looks at all cases together, whatever the message says of each sample.
    calculation.results_title = "Minimum of 10 cases required for each sample";
    return calculation;
  }
  calculation.report = ManyMeansReport(*test);
  calculation.short_report = ManyMeansShortReport(*test);
  calculation.narrative = ManyMeansNarrative(*test);
  return calculation;
}

}  // namespace tessara
