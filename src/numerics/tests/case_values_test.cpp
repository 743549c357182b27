#include "numerics/case_values.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

using Values = std::vector<double>;

TEST(CaseValues, AllEqual) {
  EXPECT_TRUE(AllEqual(Values{}));
  EXPECT_TRUE(AllEqual(Values{4}));
  EXPECT_TRUE(AllEqual(Values{0.1, 0.1, 0.1}));
  EXPECT_FALSE(AllEqual(Values{0.1, 0.1, 0.2}));
}

TEST(CaseValues, SumOfSquares) { EXPECT_EQ(SumOfSquares(Values{1, 2, 6}, 3), 4 + 1 + 9); }

TEST(CaseValues, EqualValuesHaveNoDeviationThoughTheirMeanIsRounded) {
  const Values values(3, 0.1);
  const double mean = (0.1 + 0.1 + 0.1) / 3;
  ASSERT_NE(mean, 0.1);
  EXPECT_EQ(SumOfSquares(values, mean), 0);
}

TEST(CaseValues, Median) {
  Values none, one = {7}, odd = {9, 1, 5}, even = {8, 1, 4, 2};
  EXPECT_EQ(MedianOf(none), 0);
  EXPECT_EQ(MedianOf(one), 7);
  EXPECT_EQ(MedianOf(odd), 5);
  EXPECT_EQ(MedianOf(even), 3);
}

TEST(CaseValues, AMedianBeyondTheRangeFails) {
  Values huge = {1.5e308, 1.6e308};
  EXPECT_EQ(MedianOf(huge), 0);
}

}  // namespace
}  // namespace tessara
