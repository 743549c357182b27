#include "calculators/sample_size.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

// Sizes were computed by the same formulas in numpy: 169.361 for proportions of .5 and .65, 196.280 for a difference of
// 5 with a deviation of 12.5, at .05 and .80.

const std::string kDashes = std::string(54, '-');

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

class BothParts : public testing::Test {
 protected:
  const Calculation calculation =
      CalculateSampleSize({.proportion1 = ".5", .proportion2 = ".65", .difference = "5", .deviation = "12.5"});
};

TEST_F(BothParts, LongReport) {
  EXPECT_EQ(calculation.report,
            "Sample Size Estimator\r\n"
            "\r\n"
            "    Proportions (for two sample z-test)\r\n"
            "\r\n"
            "    Statistical Significance (Alpha)   = 0.05\r\n"
            "    Statistical Power (Beta)           = 0.80\r\n"
            "    Estimated Proportion for Sample 1  = 0.5\r\n"
            "    Estimated Proportion for Sample 2  = 0.65\r\n"
            "    Estimated Total Sample Size        = 169\r\n"
            "\r\n"
            "    Means (for two sample t-test)\r\n"
            "\r\n"
            "    Statistical Significance (Alpha)   = 0.05\r\n"
            "    Statistical Power (Beta)           = 0.80\r\n"
            "    Estimated Difference Between Means = 5\r\n"
            "    Estimated Standard Deviation       = 12.5\r\n"
            "    Estimated Total Sample Size        = 196\r\n"
            "\r\n"
            "\r\n");
}

TEST_F(BothParts, ShortReport) {
  EXPECT_EQ(calculation.short_report,
            "Sample Size Estimator\r\n"
            "\r\n"
            "Proportions (two sample z-test)\r\n"
            "Estimated Total Sample Size   = 169\r\n"
            "\r\n"
            "Means (two sample t-test)\r\n"
            "Estimated Total Sample Size   = 196");
}

TEST_F(BothParts, Narrative) {
  EXPECT_EQ(calculation.narrative,
            "Based on a difference between the independent samples proportions of 0.150, the minimum combined sample "
            "size from the two populations is 169 .\r\n"
            "\r\n" +
                kDashes +
                "\r\n"
                "\r\n"
                "Based on a difference between the independent samples means of 5.00 and a standard deviation of "
                "12.50, the minimum combined sample size from the two populations is 196 .");
  EXPECT_TRUE(calculation.messages.empty());
  EXPECT_EQ(calculation.results_title, std::nullopt);
}

TEST(SampleSize, ProportionsAlone) {
  const Calculation calculation = CalculateSampleSize({.proportion1 = ".65", .proportion2 = ".5"});
  EXPECT_EQ(calculation.narrative,
            "Based on a difference between the independent samples proportions of 0.150, the minimum combined sample "
            "size from the two populations is 169 .");
  EXPECT_TRUE(Contains(*calculation.report,
                       "    Estimated Difference Between Means = 0\r\n"
                       "    Estimated Standard Deviation       = 0\r\n"
                       "    Estimated Total Sample Size        = 0\r\n\r\n\r\n"));
  EXPECT_TRUE(Contains(*calculation.short_report,
                       "= 169\r\n\r\nMeans (two sample t-test)\r\n"
                       "Estimated Total Sample Size   = 0"));
}

TEST(SampleSize, MeansAlone) {
  const Calculation calculation = CalculateSampleSize({.difference = "-.5", .deviation = "1.25"});
  EXPECT_EQ(calculation.narrative,
            "Based on a difference between the independent samples means of -.50 and a standard deviation of 1.25, the "
            "minimum combined sample size from the two populations is 196 .");
  EXPECT_TRUE(Contains(*calculation.short_report, "(two sample z-test)\r\nEstimated Total Sample Size   = 0\r\n"));
}

// Dividing by 0 gives no size, but the boxes are filled, so the narrative speaks of 0.
TEST(SampleSize, EqualProportionsHaveNoSize) {
  const Calculation calculation = CalculateSampleSize({.proportion1 = ".5", .proportion2 = "0.5"});
  EXPECT_EQ(calculation.narrative,
            "Based on a difference between the independent samples proportions of 0.000, the minimum combined sample "
            "size from the two populations is 0 .");
  EXPECT_TRUE(Contains(*calculation.report, "    Estimated Total Sample Size        = 0\r\n\r\n    Means"));
}

TEST(SampleSize, ADifferenceOfZeroHasNoSize) {
  const Calculation calculation = CalculateSampleSize({.difference = "0", .deviation = "12"});
  EXPECT_EQ(calculation.narrative, "");
  EXPECT_TRUE(Contains(*calculation.report,
                       "    Estimated Standard Deviation       = 12\r\n"
                       "    Estimated Total Sample Size        = 0\r\n"));
}

TEST(SampleSize, ADeviationOfZeroHasNoSize) {
  const Calculation calculation = CalculateSampleSize({.difference = "5", .deviation = "0"});
  EXPECT_EQ(calculation.narrative, "");
  EXPECT_TRUE(Contains(*calculation.report,
                       "    Estimated Difference Between Means = 5\r\n"
                       "    Estimated Standard Deviation       = 0\r\n"
                       "    Estimated Total Sample Size        = 0\r\n"));
  EXPECT_FALSE(
      ComputeSampleSizes(
          {.proportion1 = {}, .proportion2 = {}, .difference = 5, .deviation = 0, .alpha_z = 1.96, .power_z = .842})
          .for_means);
}

TEST(SampleSize, EmptyBoxesAndLettersPrintZeros) {
  const Calculation empty = CalculateSampleSize({});
  EXPECT_EQ(empty.narrative, "");
  EXPECT_EQ(empty.short_report,
            "Sample Size Estimator\r\n\r\n"
            "Proportions (two sample z-test)\r\nEstimated Total Sample Size   = 0\r\n\r\n"
            "Means (two sample t-test)\r\nEstimated Total Sample Size   = 0");
  EXPECT_TRUE(Contains(*empty.report, "    Estimated Proportion for Sample 1  = 0\r\n"));
  EXPECT_EQ(CalculateSampleSize({.proportion1 = "a", .proportion2 = "-", .difference = ".", .deviation = "1e"}).report,
            empty.report);
}

struct Selection {
  double alpha_z;
  double power_z;
  std::string alpha;
  std::string power;
};

TEST(SampleSize, AlphaAndPowerArePrintedFromTheirZ) {
  const Selection selections[] = {{2.576, .842, "0.01", "0.80"},
                                  {1.96, 1.036, "0.05", "0.85"},
                                  {1.645, 1.282, "0.10", "0.90"},
                                  {1.645, 1.645, "0.10", "0.95"}};
  for (const Selection& selection : selections) {
    const Calculation calculation = CalculateSampleSize({.alpha_z = selection.alpha_z, .power_z = selection.power_z});
    EXPECT_TRUE(Contains(*calculation.report, "    Statistical Significance (Alpha)   = " + selection.alpha +
                                                  "\r\n    Statistical Power (Beta)           = " + selection.power +
                                                  "\r\n    Estimated Difference"));
  }
}

// Proportions of .2 and .3 need 403.193, a difference of 3 with a deviation of 10 needs 481.071.
TEST(SampleSize, AlphaOfATenthWithAPowerOfNinetyFivePercent) {
  const SampleSizes sizes = ComputeSampleSizes({.proportion1 = .2,
                                                .proportion2 = .3,
                                                .difference = 3,
                                                .deviation = 10,
                                                .alpha_z = kAlphaChoices[2].z,
                                                .power_z = kPowerChoices[3].z});
  ASSERT_TRUE(sizes.for_proportions && sizes.for_means);
  EXPECT_NEAR(sizes.for_proportions->value(), 403.1931846384689, 1e-9);
  EXPECT_NEAR(sizes.for_means->value(), 481.07111111111107, 1e-9);
}

TEST(SampleSize, CommasAreStripped) {
  EXPECT_EQ(CalculateSampleSize({.difference = "1,000", .deviation = "2,500"}).report,
            CalculateSampleSize({.difference = "1000", .deviation = "2500"}).report);
}

// Roots of numbers below 0 and squares beyond the range leave 0 behind, and the page stands.
TEST(SampleSize, FiguresThatAreNoProportionsKeepTheirPage) {
  const Calculation both =
      CalculateSampleSize({.proportion1 = "5", .proportion2 = "7", .difference = "1e200", .deviation = "1e200"});
  EXPECT_EQ(both.short_report,
            "Sample Size Estimator\r\n\r\n"
            "Proportions (two sample z-test)\r\nEstimated Total Sample Size   = 0\r\n\r\n"
            "Means (two sample t-test)\r\nEstimated Total Sample Size   = 0");
  const Calculation negative = CalculateSampleSize({.proportion1 = "-.5", .proportion2 = "-.25"});
  EXPECT_TRUE(Contains(*negative.report, "    Estimated Proportion for Sample 1  = -0.5\r\n"));
}

}  // namespace
}  // namespace tessara
