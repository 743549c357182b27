#include "calculators/proportion_tests.h"

#include <gtest/gtest.h>

#include "calculators/tests/text_lines.h"

// The p-values come from scipy: 2 * norm.sf(|z|) of the z that stands rounded to three decimals.

namespace tessara {
namespace {

const TwoProportionsBoxes kNoSamples = {};
const OneProportionBoxes kNoSample = {};

TwoProportionsBoxes Boxes(std::string_view p1, std::string_view n1, std::string_view p2, std::string_view n2) {
  return {
      .label1 = "Sample(1)", .label2 = "Sample(2)", .proportion1 = p1, .proportion2 = p2, .cases1 = n1, .cases2 = n2};
}

// Pooled .566897; z = .11 / (sqrt(.566897 * .433103) * sqrt(290 / 21000)) = 1.889; p .058892.
TEST(ProportionTests, TwoSamples) {
  const Calculation result = ProportionTests(Boxes(".62", "150", "0.51", "140"), kNoSample, Samples::kTwo);
  const std::string lines =
      "Two-Sample Difference of Proportions (2-tailed)\n"
      "\n"
      "                    Sample(1)      Sample(2)\n"
      "Sample Proportion            0.6200        0.5100\n"
      "Sample Size (n)      150      140\n"
      "\n";
  EXPECT_EQ(result.report.value_or(""), CrLf(lines + "                   Z-statistic          p < \n"
                                                     "Significance     1.8890          0.0589\n"
                                                     "\n"
                                                     "\n"));
  EXPECT_EQ(result.short_report.value_or(""), CrLf(lines + "           Z-statistic         p < \n"
                                                           "        1.8890          0.0589"));
  EXPECT_EQ(result.narrative.value_or(""),
            CrLf("Two-Sample Z-Test\n"
                 "\n"
                 "Based on a benchmark of .05 alpha, the estimated p-value of 0.059 suggests there is not a "
                 "statistically significant difference between the two independend sample proportions."));
}

TEST(ProportionTests, SevenCasesASampleAreTooFew) {
  EXPECT_FALSE(ComputeTwoProportions(Boxes(".4", "7", ".6", "7")));
  const auto test = ComputeTwoProportions(Boxes(".4", "8", ".6", "7"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->z.value(), -0.773);
  EXPECT_NEAR(test->p.value(), 0.43952, 1e-5);
}

TEST(ProportionTests, BothProportionsZero) {
  const auto test = ComputeTwoProportions(Boxes("0", "20", "", "30"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->z.value(), 0);
  EXPECT_EQ(test->p.value(), 1);
  EXPECT_NE(TwoProportionsReport(*test).find("Significance     0.0000          1.0000\r\n"), std::string::npos);
}

// z = 1 / (.5 * sqrt(2 / 1000)) = 44.7: the area beyond it is 0.
TEST(ProportionTests, AnExtremeDifferenceHasAPOfZero) {
  const auto test = ComputeTwoProportions(Boxes("1", "1000", "0", "1000"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->p.value(), 0);
  EXPECT_NE(TwoProportionsNarrative(*test).find("of 0.000 suggests there is a statistically"), std::string::npos);
}

TEST(ProportionTests, AThousandWithACommaReadsAsOne) {
  const auto test = ComputeTwoProportions(Boxes(".5", "1,000", ".4", "2000"));
  ASSERT_TRUE(test);
  EXPECT_EQ(test->n1.value(), 1);
  const auto one = ComputeOneProportion({".5", ".6", "1,500"});
  ASSERT_TRUE(one);
  EXPECT_EQ(one->n.value(), 1);
}

TEST(ProportionTests, LeadingDigitsAreTaken) {
  const auto test = ComputeOneProportion({".5x", " 0.6%", "200 people"});
  ASSERT_TRUE(test);
  EXPECT_EQ(test->population_proportion.value(), 0.5);
  EXPECT_EQ(test->proportion.value(), 0.6);
  EXPECT_EQ(test->n.value(), 200);
  EXPECT_FALSE(ComputeOneProportion({".5", ".6", "n = 200"}));
}

// z = .06 / sqrt(.25 / 200) = 1.697; p .089697.
TEST(ProportionTests, OneSample) {
  const Calculation result = ProportionTests(kNoSamples, {".5", ".56", "200"}, Samples::kOne);
  const std::string lines =
      "One-Sample Difference of Proportions\n"
      "\n"
      "\n"
      "Population Proportion     0.5000\n"
      "Sample Proportion         0.5600\n"
      "Sample Size (n)         200\n"
      "Test statistic            1.6970\n"
      "            p <           0.0897  (2-tailed)\n";
  EXPECT_EQ(result.report.value_or(""), CrLf(lines + "\n\n"));
  EXPECT_EQ(result.short_report.value_or(""), CrLf(lines + "\n"));
  EXPECT_EQ(result.narrative.value_or(""),
            CrLf("One-Sample Z-Test\n"
                 "\n"
                 "Based on a benchmark of .05 alpha, the estimated p-value of 0.090 suggests there is not a "
                 "statistically significant difference between the sample and population proportions."));
}

// z = (.001 - .0001) / sqrt(.9999 * .0001 / 50) = .636; p .524776.
TEST(ProportionTests, APopulationProportionOfZeroIsReplaced) {
  const auto test = ComputeOneProportion({"0", ".001", "50"});
  ASSERT_TRUE(test);
  EXPECT_EQ(test->z.value(), 0.636);
  EXPECT_NEAR(test->p.value(), 0.524776, 1e-6);
  EXPECT_NE(OneProportionReport(*test).find("Population Proportion     0.0001\r\n"), std::string::npos);
}

TEST(ProportionTests, EqualProportionsPostNothing) {
  EXPECT_FALSE(ComputeOneProportion({".5", "0.50", "100"}));
  EXPECT_FALSE(ComputeOneProportion({"", "", "100"}));
  const Calculation result = ProportionTests(kNoSamples, {".5", ".5", "100"}, Samples::kOne);
  EXPECT_FALSE(result.report);
  EXPECT_FALSE(result.short_report);
  EXPECT_FALSE(result.narrative);
}

// z = 0 by rounding: the area is fixed at one half.
TEST(ProportionTests, AZOfZeroHasAPOfOne) {
  const auto test = ComputeOneProportion({".5", ".50001", "10"});
  ASSERT_TRUE(test);
  EXPECT_EQ(test->z.value(), 0);
  EXPECT_EQ(test->p.value(), 1);
}

// The error of a proportion above 1 and that of fewer than no cases have no square root: z stays 0.
TEST(ProportionTests, FailedErrorsLeaveZAtZero) {
  for (const OneProportionBoxes& boxes :
       {OneProportionBoxes{"1.5", ".5", "100"}, OneProportionBoxes{".5", ".6", "-10"}}) {
    const auto test = ComputeOneProportion(boxes);
    ASSERT_TRUE(test);
    EXPECT_EQ(test->z.value(), 0);
    EXPECT_EQ(test->p.value(), 1);
  }
  const auto two = ComputeTwoProportions(Boxes("62", "150", "51", "140"));
  ASSERT_TRUE(two);
  EXPECT_EQ(two->z.value(), 0);
}

TEST(ProportionTests, HugeNumbersAreAnswered) {
  EXPECT_TRUE(ProportionTests(Boxes("1e300", "1e307", "-1e300", "1e307"), kNoSample, Samples::kTwo).report);
  // The cases together have no double: the test of their number cannot be made, and enters its branch.
  EXPECT_FALSE(ProportionTests(Boxes(".5", "1e308", ".6", "1e308"), kNoSample, Samples::kTwo).report);
  EXPECT_TRUE(ProportionTests(kNoSamples, {"1e-300", "1e300", "1e15"}, Samples::kOne).report);
}

TEST(ProportionTests, TheNarrativeTellsBothTests) {
  const TwoProportionsBoxes two = Boxes(".62", "150", "0.51", "140");
  const OneProportionBoxes one = {".5", ".56", "200"};
  const std::string both = TwoProportionsNarrative(*ComputeTwoProportions(two)) + "\r\n\r\n\r\n" +
                           std::string(54, '-') + "\r\n\r\n\r\n" + OneProportionNarrative(*ComputeOneProportion(one));
  EXPECT_EQ(ProportionTests(two, one, Samples::kOne).narrative.value_or(""), both);
  EXPECT_TRUE(ProportionTests(two, one, Samples::kOne).report.value_or("").starts_with("One-Sample"));
  EXPECT_EQ(ProportionTests(two, one, Samples::kTwo).narrative.value_or(""), both);
  const Calculation other_branch = ProportionTests(kNoSamples, one, Samples::kTwo);
  EXPECT_FALSE(other_branch.report);
  EXPECT_TRUE(other_branch.narrative.value_or("").starts_with("One-Sample Z-Test"));
}

}  // namespace
}  // namespace tessara
