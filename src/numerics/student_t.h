#pragma once

#include "numerics/checked.h"

// Student's t for the difference of two means, with a pooled variance and with separate ones (B. L. Welch, Biometrika
// 34, 1947). The samples may be cases or typed figures; t is the difference of the means over an error.

namespace tessara {

struct SampleSpread {
  Number n;
  Checked squares;       // squared deviations from the mean
  Number mean_variance;  // the variance over n, that is the square of the mean's standard error
};

Checked PooledDf(const SampleSpread& one, const SampleSpread& two);
Checked PooledError(const SampleSpread& one, const SampleSpread& two);

// The form with n + 1 below and less 2 behind it, and not the simpler one with n - 1.
Checked WelchDf(const SampleSpread& one, const SampleSpread& two);
Checked WelchError(const SampleSpread& one, const SampleSpread& two);

// The larger variance over the smaller, with the degrees of freedom of either; equal ones put the second above. A
// quotient that fails leaves f at 0.
struct VarianceRatio {
  Number f;
  Number numerator_df;
  Number denominator_df;
};
VarianceRatio CompareVariances(const Number& n_one, Checked variance_one, const Number& n_two, Checked variance_two);

}  // namespace tessara
