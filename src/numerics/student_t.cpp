#include "numerics/student_t.h"

namespace tessara {

Checked PooledDf(const SampleSpread& one, const SampleSpread& two) { return one.n + two.n - 2; }

Checked PooledError(const SampleSpread& one, const SampleSpread& two) {
  return Sqrt((one.squares + two.squares) / Number(PooledDf(one, two))) * Sqrt((one.n + two.n) / (one.n * two.n));
}

Checked WelchDf(const SampleSpread& one, const SampleSpread& two) {
  const Checked a = one.mean_variance;
  const Checked b = two.mean_variance;
  return Square(a + b) / (Square(a) / (one.n + 1) + Square(b) / (two.n + 1)) - 2;
}

Checked WelchError(const SampleSpread& one, const SampleSpread& two) {
  return Sqrt(one.mean_variance + two.mean_variance);
}

VarianceRatio CompareVariances(const Number& n_one, Checked variance_one, const Number& n_two, Checked variance_two) {
  if (variance_one <= variance_two) {
    return {.f = variance_two / variance_one, .numerator_df = n_two - 1, .denominator_df = n_one - 1};
  }
  return {.f = variance_one / variance_two, .numerator_df = n_one - 1, .denominator_df = n_two - 1};
}

}  // namespace tessara
