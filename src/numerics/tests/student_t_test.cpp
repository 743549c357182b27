#include "numerics/student_t.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

// Two samples of 4 and 6 cases with the variances 9 and 4.
const SampleSpread kOne{.n = 4, .squares = 27, .mean_variance = 2.25};
const SampleSpread kTwo{.n = 6, .squares = 20, .mean_variance = 4.0 / 6};

TEST(StudentT, PooledByHand) {
  EXPECT_EQ(PooledDf(kOne, kTwo).value(), 8);
  EXPECT_NEAR(PooledError(kOne, kTwo).value(), 1.5645819, 1e-7);  // sqrt(47 / 8) sqrt(10 / 24)
}

TEST(StudentT, SeparateByHand) {
  EXPECT_NEAR(WelchError(kOne, kTwo).value(), 1.7078251, 1e-7);  // sqrt(35 / 12)
  // (35 / 12)^2 / (2.25^2 / 5 + (2 / 3)^2 / 7) - 2
  EXPECT_NEAR(WelchDf(kOne, kTwo).value(), 5.9061405, 1e-7);
}

TEST(StudentT, SamplesWithoutSpreadHaveNoSeparateDegreesOfFreedom) {
  const SampleSpread none{.n = 5, .squares = 0, .mean_variance = 0};
  EXPECT_TRUE(WelchDf(none, none).failed());
  EXPECT_EQ(PooledError(none, none).value(), 0);
  const SampleSpread alone{.n = 1, .squares = 0, .mean_variance = 0};
  EXPECT_TRUE(PooledError(alone, alone).failed());  // no degree of freedom
}

TEST(CompareVariances, TheLargerOneStandsAbove) {
  const VarianceRatio second = CompareVariances(4, 2, 6, 5);
  EXPECT_EQ(second.f.value(), 2.5);
  EXPECT_EQ(second.numerator_df.value(), 5);
  EXPECT_EQ(second.denominator_df.value(), 3);
  const VarianceRatio first = CompareVariances(4, 5, 6, 2);
  EXPECT_EQ(first.f.value(), 2.5);
  EXPECT_EQ(first.numerator_df.value(), 3);
  EXPECT_EQ(first.denominator_df.value(), 5);
  EXPECT_EQ(CompareVariances(4, 3, 6, 3).numerator_df.value(), 5);
}

TEST(CompareVariances, ADivisionByZeroLeavesF) {
  const VarianceRatio ratio = CompareVariances(4, 0, 6, 5);
  EXPECT_EQ(ratio.f.value(), 0);
  EXPECT_EQ(ratio.numerator_df.value(), 5);
}

}  // namespace
}  // namespace tessara
