#include "numerics/product_sums.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

namespace tessara {
namespace {

// Against one sum at a time, bit by bit, for every number of sums in flight.
TEST(AddProducts, EachSumRunsFromLeftToRightByItself) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(-1e6, 1e6);
  constexpr std::size_t kCount = 1000;
  std::vector<std::vector<double>> columns(20, std::vector<double>(kCount));
  for (auto& column : columns) {
    for (double& value : column) value = uniform(random);
  }
  std::vector<double> left(kCount);
  for (double& value : left) value = uniform(random);
  for (std::size_t width = 0; width <= columns.size(); ++width) {
    std::vector<const double*> right;
    for (std::size_t j = 0; j < width; ++j) right.push_back(columns[j].data());
    std::vector<double> plain(width, 0.5), careful(width, 0.5);
    AddProducts(left.data(), right, kCount, plain.data(), SumSteps::kPlain);
    AddProducts(left.data(), right, kCount, careful.data(), SumSteps::kWithCare);
    for (std::size_t j = 0; j < width; ++j) {
      double sum = 0.5;
      for (std::size_t c = 0; c < kCount; ++c) sum += left[c] * columns[j][c];
      ASSERT_EQ(plain[j], sum) << width;
      ASSERT_EQ(careful[j], sum) << width;
    }
  }
}

TEST(AddProducts, WithCareAStepThatOverflowsIsAbandonedAlone) {
  const double left[] = {1e200, 2, 1e200, 3};
  const double right[] = {1e200, 5, -1e200, 7};
  const double* const columns[] = {right};
  double sum = 1;
  AddProducts(left, columns, 4, &sum, SumSteps::kPlain);
  EXPECT_FALSE(AllFinite({&sum, 1}));
  sum = 1;
  AddProducts(left, columns, 4, &sum, SumSteps::kWithCare);
  EXPECT_EQ(sum, 1 + 10 + 21);
}

TEST(AllFinite, LooksAtEachSum) {
  EXPECT_TRUE(AllFinite({}));
  const double sums[] = {1, -1e308, std::numeric_limits<double>::quiet_NaN()};
  EXPECT_TRUE(AllFinite({sums, 2}));
  EXPECT_FALSE(AllFinite(sums));
}

}  // namespace
}  // namespace tessara
