#include "numerics/sums.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace tessara {
namespace {

double Sum(const std::vector<double>& terms) {
  return SumInOrder(terms.size(), [&terms](std::size_t i) { return terms[i]; });
}

TEST(SumInOrder, OfNothingIsZero) { EXPECT_EQ(Sum({}), 0); }

TEST(SumInOrder, RunsFromLeftToRight) {
  EXPECT_EQ(Sum({1, 2, 3.5}), 6.5);
  // Each 1 is half the spacing of doubles at 1E+16 and is rounded away alone; any pairing of the ones would keep them.
  EXPECT_EQ(Sum({1e16, 1, 1, 1, 1}), 1e16);
  EXPECT_EQ(Sum({1, 1, 1, 1, 1e16}), 1e16 + 4);
  EXPECT_EQ(Sum({1e16, 1, -1e16}), 0);
}

TEST(SumInOrder, AsksForEachTermByItsIndex) {
  EXPECT_EQ(SumInOrder(4, [](std::size_t i) { return static_cast<double>(i * i); }), 0 + 1 + 4 + 9);
}

TEST(SumInOrder, AStepThatOverflowsIsAbandonedAlone) {
  EXPECT_EQ(Sum({1e308, 1e308, -5e307}), 1e308 - 5e307);
  EXPECT_EQ(Sum({-1e308, -1e308}), -1e308);
}

TEST(SumInOrder, ATermThatHasFailedIsAbandonedAlone) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Sum({1, kInfinity, 2}), 3);
  EXPECT_EQ(Sum({1, kInfinity, -kInfinity, 2}), 3);
  EXPECT_EQ(Sum({std::numeric_limits<double>::quiet_NaN(), 2}), 2);
}

}  // namespace
}  // namespace tessara
