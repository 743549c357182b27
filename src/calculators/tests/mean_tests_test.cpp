#include "calculators/mean_tests.h"

#include <gtest/gtest.h>

#include "calculators/tests/text_lines.h"
#include "numerics/masks.h"

// Figures marked "scipy" come from scipy.stats: ttest_ind_from_stats for t, t.sf and f.sf for the p-values.

namespace tessara {
namespace {

const TwoMeansBoxes kScores = {.label1 = "Boys",
                               .label2 = "Girls\r\n-and-all",
                               .mean1 = "82.4",
                               .mean2 = "78.1",
                               .deviation1 = "6.3",
                               .deviation2 = "7.1",
                               .cases1 = "25",
                               .cases2 = "22"};
const OneMeanBoxes kNoSample = {};
const TwoMeansBoxes kNoSamples = {};

TwoMeansBoxes Boxes(std::string_view mean1, std::string_view deviation1, std::string_view cases1,
                    std::string_view mean2, std::string_view deviation2, std::string_view cases2) {
  return {.mean1 = mean1,
          .mean2 = mean2,
          .deviation1 = deviation1,
          .deviation2 = deviation2,
          .cases1 = cases1,
          .cases2 = cases2};
}

bool Contains(const std::string& text, std::string_view part) { return text.find(part) != text.npos; }

// scipy: t 2.200304 (45 df) p .032960; Welch's t 2.183286; the df of the separate variances by hand
// (1.5876 + 2.291364)^2 / (1.5876^2 / 26 + 2.291364^2 / 23) - 2 = 44.2656, p of 44 df .034392; F 1.270093 (21, 24)
// p .284406.
TEST(MeanTests, TwoSamples) {
  const Calculation result = MeanTests(kScores, kNoSample, Samples::kTwo);
  EXPECT_EQ(result.report.value_or(""), CrLf("Two-Sample Difference of Means\n"
                                             "\n"
                                             "                           Boys      Girls-and\n"
                                             "Sample Mean             82.4000        78.1000\n"
                                             "Std Deviation            6.3000         7.1000\n"
                                             "Sample Size (n)         25             22\n"
                                             "\n"
                                             "\n"
                                             "              Homogeneity of Variance\n"
                                             "     F= 1.27     DF= (21, 24)     p < 0.2844\n"
                                             "\n"
                                             "\n"
                                             "                     T-statistic        DF      p < (2-tailed)\n"
                                             "---------------------------------------------------------------\n"
                                             "Equal Variance            2.2003        45            0.0330\n"
                                             "Unequal Variance          2.1833        44.27         0.0344\n"
                                             "\n"
                                             "\n"));
  EXPECT_EQ(result.short_report.value_or(""), CrLf("Two-Sample Difference of Means (2-tailed)\n"
                                                   "\n"
                                                   "            Homogeneity of Variance\n"
                                                   "    F= 1.27    DF= (21, 24)     p < 0.2844\n"
                                                   "\n"
                                                   "             T-statistic      DF          p < \n"
                                                   "Equal            2.2003       45          0.0330\n"
                                                   "Unequal          2.1833       44.27       0.0344"));
  EXPECT_EQ(result.narrative.value_or(""),
            CrLf("Two-Sample T-Test\n"
                 "\n"
                 "Based on a benchmark of .05 alpha, the estimated p-value of 0.033 suggests there is a statistically "
                 "significant difference between the two independent sample means."));
  EXPECT_FALSE(result.results_title);
  EXPECT_TRUE(result.messages.empty());
}

// scipy: t -.094229 (2 df) p .933518; F 900 (1, 1) p .021213. The df of the separate variances is 1.01 by hand.
TEST(MeanTests, TwoSamplesOfTwoCasesWithVeryUnequalDeviationsShowErr) {
  const Calculation result = MeanTests(Boxes("10", "1", "2", "12", "30", "2"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "\r\n     F= 900.00     DF= (1, 1)     p < 0.0212\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nEqual Variance           -0.0942         2            0.9335\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nUnequal Variance         -0.0942          Err            Err\r\n"));
  EXPECT_TRUE(result.short_report.value_or("").ends_with("\r\nUnequal         -0.0942         Err          Err"));
  EXPECT_EQ(
      result.narrative.value_or(""),
      CrLf("Two-Sample T-Test\n"
           "\n"
           "Based on a benchmark of .05 alpha, the estimated p-value of Err suggests there is not a statistically "
           "significant difference between the two independent sample means."));
}

// scipy: t -.569399 (50 df) p .571635; Welch's t -.976762, 49.23 df by hand, p of 49 df .333485; F 20.25 (39, 11).
TEST(MeanTests, UnequalVariancesGiveTheNarrativeTheOtherP) {
  const Calculation result = MeanTests(Boxes("5", "2", "12", "6.5", "9", "40"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "F= 20.25     DF= (39, 11)     p < 0.0000\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nEqual Variance           -0.5694        50            0.5716\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nUnequal Variance         -0.9768        49.23         0.3335\r\n"));
  EXPECT_TRUE(Contains(result.narrative.value_or(""), "p-value of 0.333 suggests there is not"));
}

TEST(MeanTests, IdenticalVariancesUseTheFirstForm) {
  const auto test = ComputeTwoMeans(Boxes("5", "3", "10", "6", "3", "12"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->ratio.f.value(), 1);
  EXPECT_EQ(test->ratio.numerator_df.value(), 11);
  EXPECT_EQ(test->ratio.denominator_df.value(), 9);
  const auto first_larger = ComputeTwoMeans(Boxes("5", "4", "10", "6", "3", "12"));
  ASSERT_TRUE(first_larger);
  EXPECT_EQ(first_larger->ratio.numerator_df.value(), 9);
  EXPECT_EQ(first_larger->ratio.denominator_df.value(), 11);
}

// Both variances 0: F and t cannot be divided and stay 0, F keeps its degrees; scipy: f.sf(0, 14, 9) = 1, t.sf(0) = .5.
// A sample without deviation leaves the degrees of the other: b^2 / (b^2 / 7) - 2 = 5 for six cases, and five are
// enough. t is 2 / sqrt(4 / 6) = 2.449490; its p with 5 degrees by the closed form of an odd number of them,
// 1 - 2/pi (a + sin a (cos a + 2/3 cos^3 a)) with tan a = t / sqrt(5), is .057973.
TEST(MeanTests, FiveDegreesOfFreedomAreEnoughForUnequalVariances) {
  const auto test = ComputeTwoMeans(Boxes("10", "0", "10", "8", "2", "6"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->unequal_df.value(), 5);
  EXPECT_TRUE(Contains(TwoMeansReport(*test), "\r\nUnequal Variance          2.4495         5.00         0.0580\r\n"));
  const auto fewer = ComputeTwoMeans(Boxes("10", "0", "10", "8", "2", "5"));
  ASSERT_TRUE(fewer);
  EXPECT_TRUE(Contains(TwoMeansReport(*fewer), "          Err            Err\r\n"));
}

TEST(MeanTests, DeviationsOfZero) {
  const Calculation result = MeanTests(Boxes("5", "0", "10", "6", "", "15"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "     F= 0.00     DF= (14, 9)     p < 1.0000\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nEqual Variance            0.0000        23            1.0000\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nUnequal Variance          0.0000          Err            Err\r\n"));
  EXPECT_TRUE(Contains(result.narrative.value_or(""), "p-value of 1.000 suggests there is not"));
}

// One case a sample: no degrees of freedom, so no p of either kind.
TEST(MeanTests, AMissingPShowsAsOneInTenThousand) {
  const Calculation result = MeanTests(Boxes("5", "1", "1", "6", "1", "1"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "DF= (0, 0)     p < 0.0000\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nEqual Variance            0.0000         0            0.0001\r\n"));
  EXPECT_TRUE(Contains(report, "          Err            Err\r\n"));
}

// A t of 4,999,950 with 98 df: no p but 0 can be told.
TEST(MeanTests, APOfZeroShowsAsOneInTenThousand) {
  const Calculation result = MeanTests(Boxes("1000000", "1", "50", "10", "1", "50"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "        98            0.0001\r\n"));
  EXPECT_TRUE(Contains(result.narrative.value_or(""), "p-value of 0.000 suggests there is a statistically"));
}

// scipy: t 3.067112 (2198 df) p .002188; Welch's 3.057982, 2102.68 df by hand, p of 2102 df .002256; F p .138942.
TEST(MeanTests, ThousandsCommasAreLeftOut) {
  const Calculation result =
      MeanTests(Boxes("1,200", "15.5", "1,000", "1,198", "15", "1,200"), kNoSample, Samples::kTwo);
  const std::string report = result.report.value_or("");
  EXPECT_TRUE(Contains(report, "Sample Size (n)       1000           1200\r\n"));
  EXPECT_TRUE(Contains(report, "F= 1.07     DF= (999, 1199)     p < 0.1389\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nEqual Variance            3.0671      2198            0.0022\r\n"));
  EXPECT_TRUE(Contains(report, "\r\nUnequal Variance          3.0580      2102.68         0.0023\r\n"));
  EXPECT_TRUE(ComputeTwoMeans(Boxes("1", "1", "1,0", "1", "1", ",5")));  // wherever they stand
}

TEST(MeanTests, TwoSamplesNeedCasesInBoth) {
  for (const char* empty : {"", "0", "abc", "-", "1e999"}) {
    EXPECT_FALSE(ComputeTwoMeans(Boxes("1", "2", empty, "3", "4", "10"))) << empty;
    EXPECT_FALSE(ComputeTwoMeans(Boxes("1", "2", "10", "3", "4", empty))) << empty;
  }
  EXPECT_FALSE(MeanTests(kNoSamples, kNoSample, Samples::kTwo).narrative);
}

TEST(MeanTests, LettersCountAsZero) {
  const auto test = ComputeTwoMeans(Boxes("abc", "x", "10", "five", "2", "12"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->mean1.value(), 0);
  EXPECT_EQ(test->deviation1.value(), 0);
  EXPECT_EQ(test->mean2.value(), 0);
  EXPECT_EQ(test->t.value(), 0);
}

// s^2 overflows: no standard error, so t stays 0 and its p is that of 0.
TEST(MeanTests, HugeAndNegativeNumbersAreAnswered) {
  const auto huge = ComputeTwoMeans(Boxes("1e308", "1e200", "1e15", "-1e308", "1e200", "1e15"));
  ASSERT_TRUE(huge);
  EXPECT_EQ(huge->t.value(), 0);
  EXPECT_EQ(MaskedOrEmpty(huge->p, "0.000"), "1.000");
  EXPECT_FALSE(TwoMeansReport(*huge).empty());
  const auto negative = ComputeTwoMeans(Boxes("1", "2", "-10", "3", "4", "-12"));
  ASSERT_TRUE(negative);
  EXPECT_EQ(MaskedOrEmpty(negative->p, "0.000"), "");  // -24 degrees of freedom
  EXPECT_TRUE(Contains(TwoMeansNarrative(*negative), "suggests there is not"));
  EXPECT_TRUE(MeanTests(Boxes("1", "1", "1000000000000000", "2", "1", "1000000000000000"), {"1", "2", "3", "1e15"},
                        Samples::kTwo)
                  .report);
}

// scipy: t 2.016000, two-sided p of 35 df .051527.
TEST(MeanTests, OneSample) {
  const Calculation result = MeanTests(kNoSamples, {"100", "104.2", "12.5", "36"}, Samples::kOne);
  const std::string lines =
      "Population Mean           100.0000\n"
      "Sample Mean               104.2000\n"
      "Std Deviation              12.5000\n"
      "Sample Size (n)            36\n"
      "Test statistic              2.0160\n"
      "            p <             0.0515";
  EXPECT_EQ(result.report.value_or(""), CrLf("One-Sample Difference of Means\n\n\n" + lines + "  (2-tailed)\n\n\n"));
  EXPECT_EQ(result.short_report.value_or(""), CrLf("One-Sample Difference of Means (2-Tailed)\n\n" + lines + "\n\n\n"));
  EXPECT_EQ(result.narrative.value_or(""),
            CrLf("One-Sample T-Test\n"
                 "\n"
                 "Based on a benchmark of .05 alpha, the estimated p-value of 0.052 suggests there is not a "
                 "statistically significant difference between the sample and population mean."));
}

// scipy: t 4.65, two-sided p of 8 df .001645.
TEST(MeanTests, ABlankPopulationMeanIsZero) {
  const auto test = ComputeOneMean({"", "3.1", "2", "9"});
  ASSERT_TRUE(test);
  EXPECT_EQ(test->population_mean.value(), 0);
  EXPECT_DOUBLE_EQ(test->t.value(), 4.65);
  EXPECT_EQ(MaskedOrEmpty(test->p, "0.000"), "0.002");
}

TEST(MeanTests, OneSampleNeedsADegreeOfFreedomOfSixteenBits) {
  EXPECT_FALSE(ComputeOneMean({"1", "2", "3", "1"}));
  EXPECT_FALSE(ComputeOneMean({"1", "2", "3", "-5"}));
  EXPECT_FALSE(ComputeOneMean({"1", "2", "3", "1.5"}));  // .5 rounds to the even 0
  EXPECT_TRUE(ComputeOneMean({"1", "2", "3", "2.5"}));
  EXPECT_TRUE(ComputeOneMean({"1", "2", "3", "32,768"}));
  EXPECT_FALSE(ComputeOneMean({"1", "2", "3", "32769"}));
}

TEST(MeanTests, OneSampleWithoutDeviation) {
  const auto test = ComputeOneMean({"1", "2", "0", "10"});
  ASSERT_TRUE(test);
  EXPECT_EQ(test->t.value(), 0);  // no error to divide by
  EXPECT_EQ(MaskedOrEmpty(test->p, "0.000"), "1.000");
}

TEST(MeanTests, TheNarrativeTellsBothTestsWhicheverIsPosted) {
  const OneMeanBoxes one = {"100", "104.2", "12.5", "36"};
  const std::string rule = "\r\n\r\n\r\n" + std::string(54, '-') + "\r\n\r\n\r\n";
  const std::string both = TwoMeansNarrative(*ComputeTwoMeans(kScores)) + rule + OneMeanNarrative(*ComputeOneMean(one));
  const Calculation posted_two = MeanTests(kScores, one, Samples::kTwo);
  EXPECT_EQ(posted_two.narrative.value_or(""), both);
  EXPECT_TRUE(posted_two.report.value_or("").starts_with("Two-Sample"));
  const Calculation posted_one = MeanTests(kScores, one, Samples::kOne);
  EXPECT_EQ(posted_one.narrative.value_or(""), both);
  EXPECT_TRUE(posted_one.report.value_or("").starts_with("One-Sample"));

  const Calculation other_branch = MeanTests(kNoSamples, one, Samples::kTwo);
  EXPECT_FALSE(other_branch.report);
  EXPECT_FALSE(other_branch.short_report);
  EXPECT_TRUE(other_branch.narrative.value_or("").starts_with("One-Sample T-Test"));
}

ManyMeansBoxes Columns(std::array<std::string_view, 4> cases, std::array<std::string_view, 4> means,
                       std::array<std::string_view, 4> deviations) {
  return {.labels = {"Low", "Middle", "A very long label"}, .cases = cases, .means = means, .deviations = deviations};
}

// By hand: 9 * 3.24 + 11 * 4.84 + 14 * 4.2025 = 141.235 within, and 270.4 + 446.52 + 714.15 - 228.7^2 / 37 = 17.4568
// between; scipy: f.sf(2.10, 2, 34) = .138059.
TEST(MeanTests, AnalysisOfVarianceOfThreeColumns) {
  const Calculation result =
      AnalysisOfVariance(Columns({"10", "12", "15", ""}, {"5.2", "6.1", "6.9", ""}, {"1.8", "2.2", "2.05", ""}));
  EXPECT_EQ(result.report.value_or(""),
            CrLf("Analysis of Variance (ANOVA)\n"
                 "\n"
                 "Groups    |         Low |      Middle |A very long  |             |\n"
                 "          +-------------+-------------+-------------+-------------+\n"
                 "    Cases |       10     |       12     |       15     |              | \n"
                 "          +-------------+-------------+-------------+-------------+\n"
                 "     Mean |        5.20 |        6.10 |        6.90 |             | \n"
                 "          +-------------+-------------+-------------+-------------+\n"
                 " Std. Dev |        1.80 |        2.20 |        2.05 |             | \n"
                 "          +-------------+-------------+-------------+-------------+\n"
                 "\n"
                 "                     Sum of Squares            df            Mean Squares    \n"
                 "                ------------------------     ------     ---------------------\n"
                 "Between Groups                 17.46            2                  8.73      \n"
                 " Within Groups                141.24           34                  4.15      \n"
                 "         Total                158.69                   36\n"
                 "\n"
                 "                   F Statistic          p <\n"
                 "                 ---------------      -------\n"
                 "                             2.10                0.14\n"
                 "\n"
                 "\n"));
  EXPECT_EQ(result.short_report.value_or(""), CrLf("Analysis of Variance (ANOVA)\n"
                                                   "\n"
                                                   "          Sum of Squares    df       Mean SQ\n"
                                                   "         ----------------  ----  -------------\n"
                                                   "Between             17.46    2          8.73\n"
                                                   " Within            141.24   34          4.15\n"
                                                   "  Total            158.69   36\n"
                                                   "\n"
                                                   "      F Statistic = 2.10    p < 0.138"));
  EXPECT_EQ(result.narrative.value_or(""),
            CrLf("ANOVA\n"
                 "\n"
                 "Based on a benchmark of .05 alpha, the estimated p-value of 0.138 suggests there is not a "
                 "statistically significant difference among the 3 independent sample means."));
}

// numpy: 520.5245 between, 507.5 within; scipy: F 11.6242, f.sf(11.62, 3, 34) = .0000214.
TEST(MeanTests, AnalysisOfVarianceOfFourColumns) {
  const auto test =
      ComputeManyMeans(Columns({"8", "9", "10", "11"}, {"20.5", "22.25", "24", "30.1"}, {"3", "3.5", "4", "4.5"}));
  ASSERT_TRUE(test);
  EXPECT_NEAR(test->between.value(), 520.5245394736849, 1e-9);
  EXPECT_NEAR(test->within.value(), 507.5, 1e-9);
  EXPECT_EQ(test->f.value(), 11.62);
  EXPECT_EQ(MaskedOrEmpty(test->p, "0.000"), "0.000");
  EXPECT_TRUE(Contains(ManyMeansNarrative(*test), "there is a statistically significant difference among the 4 "));
}

TEST(MeanTests, ThreeColumnsOfSixCasesAreTooFew) {
  const Calculation result = AnalysisOfVariance(Columns({"6", "6", "6", ""}, {"1", "2", "3", ""}, {"1", "1", "1", ""}));
  EXPECT_EQ(result.results_title.value_or(""), "Minimum of 10 cases required for each sample");
  EXPECT_FALSE(result.report);
  EXPECT_FALSE(result.short_report);
  EXPECT_FALSE(result.narrative);
}

// 18 degrees of freedom within; equal means: F 0, and scipy's f.sf(0, 1, 18) is 1.
TEST(MeanTests, TwoColumnsOfTenCasesRun) {
  const Calculation result = AnalysisOfVariance(Columns({"10", "10", "", ""}, {"5", "5", "", ""}, {"1", "1", "", ""}));
  ASSERT_TRUE(result.report);
  EXPECT_TRUE(result.short_report.value_or("").ends_with("F Statistic = 0.00    p < 1.000"));
  EXPECT_TRUE(Contains(result.narrative.value_or(""), " among the 2 independent sample means."));
}

TEST(MeanTests, ColumnsCountUpToTheFirstEmptyOne) {
  const std::array<std::string_view, 4> ones = {"1", "1", "1", "1"};
  const auto k = [&](std::array<std::string_view, 4> cases) {
    const auto test = ComputeManyMeans(Columns(cases, ones, ones));
    return test ? test->k : 0;
  };
  EXPECT_EQ(k({"", "", "", ""}), 0U);
  EXPECT_EQ(k({"10", "", "10", "10"}), 0U);
  EXPECT_EQ(k({"", "10", "10", "10"}), 0U);
  EXPECT_EQ(k({"10", "10", "-3", "10"}), 2U);
  EXPECT_EQ(k({"10", "10", "abc", "10"}), 2U);
  EXPECT_EQ(k({"10", "10", "10", ""}), 3U);
  EXPECT_EQ(k({"10", "10", "10", "10"}), 4U);
}

TEST(MeanTests, ColumnsBehindAGapAreLeftBlank) {
  const Calculation result =
      AnalysisOfVariance(Columns({"10", "12", "", "15"}, {"1", "2", "3", "4"}, {"1", "1", "1", "1"}));
  EXPECT_TRUE(Contains(result.report.value_or(""),
                       "\r\n     Mean |        1.00 |        2.00 |             |             | \r\n"));
}

TEST(MeanTests, AnalysisWithoutDeviationHasAnFOfZero) {
  const auto test = ComputeManyMeans(Columns({"10", "10", "", ""}, {"5", "9", "", ""}, {"0", "x", "", ""}));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->within_square.value(), 0);
  EXPECT_EQ(test->f.value(), 0);
  EXPECT_EQ(MaskedOrEmpty(test->p, "0.000"), "1.000");
}

TEST(MeanTests, HugeColumnsAreAnswered) {
  const Calculation result =
      AnalysisOfVariance(Columns({"1e15", "1e300", "5", "5"}, {"1e300", "-1e300", "1", "1"}, {"1e300", "1", "1", "1"}));
  EXPECT_TRUE(result.report);
}

}  // namespace
}  // namespace tessara
