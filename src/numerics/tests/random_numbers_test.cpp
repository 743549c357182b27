#include "numerics/random_numbers.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tessara {
namespace {

// The first draw of the generator seeded with 5489 is 14514284786278117030, as its authors print it.
TEST(RandomNumbers, AreTheUpperBitsOfADraw) {
  RandomNumbers numbers(5489);
  EXPECT_EQ(numbers.Uniform(), static_cast<float>(14514284786278117030ULL >> 40) / 16777216.0F);
}

TEST(RandomNumbers, StayBelowOne) {
  RandomNumbers numbers(1);
  float least = 1;
  float greatest = 0;
  for (int i = 0; i < 100000; ++i) {
    const float number = numbers.Uniform();
    least = std::min(least, number);
    greatest = std::max(greatest, number);
  }
  EXPECT_GE(least, 0.0F);
  EXPECT_LT(greatest, 1.0F);
  EXPECT_LT(least, 0.001F);
  EXPECT_GT(greatest, 0.999F);
}

TEST(RandomNumbers, ASeedGivesTheSameNumbersAgain) {
  RandomNumbers one(7);
  RandomNumbers other(7);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(one.Uniform(), other.Uniform());
}

}  // namespace
}  // namespace tessara
