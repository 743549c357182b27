#include "numerics/case_values.h"

#include <algorithm>
#include <cstddef>
#include <functional>

#include "numerics/checked.h"
#include "numerics/sums.h"

namespace tessara {

bool AllEqual(std::span<const double> values) {
  return std::adjacent_find(values.begin(), values.end(), std::not_equal_to<>()) == values.end();
}

double SumOfSquares(std::span<const double> values, double mean) {
  if (AllEqual(values)) return 0;
  return SumInOrder(values.size(), [&](std::size_t i) { return (values[i] - mean) * (values[i] - mean); });
}

double MedianOf(std::vector<double>& values) {
  if (values.empty()) return 0;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 != 0) return *middle;
  const Number median = (Checked(*middle) + *std::max_element(values.begin(), middle)) / 2;
  return median.value();
}

}  // namespace tessara
