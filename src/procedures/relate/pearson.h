#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "numerics/checked.h"

// Pearson's coefficient of pairs of values, y the first and x the second variable of a pair. The text report of one
// pair and the matrix of all pairs print the same figures, so both take them from here.

namespace tessara {

// The sums over the cases of a pair, from the first case to the last.
struct PairSums {
  double y = 0;
  double x = 0;
  double yy = 0;
  double xx = 0;
  double xy = 0;

  bool AllFinite() const {
    return std::isfinite(y) && std::isfinite(x) && std::isfinite(yy) && std::isfinite(xx) && std::isfinite(xy);
  }
};

// Adds up `count` cases; read(i, y, x) sets the values of case i. Each sum runs in one double. A case that
// does not count may be read as 0, 0: it changes no sum. A step that would leave the range of a double is abandoned
// alone.
template <typename ReadPair>
PairSums SumPairs(std::size_t count, ReadPair read) {
  double sum_y = 0, sum_x = 0, sum_yy = 0, sum_xx = 0, sum_xy = 0;  // apart from the struct, so as to stay in registers
  double y = 0;
  double x = 0;
  for (std::size_t i = 0; i < count; ++i) {
    read(i, y, x);
    sum_y += y;
    sum_x += x;
    sum_yy += y * y;
    sum_xx += x * x;
    sum_xy += x * y;
  }
  PairSums sums = {.y = sum_y, .x = sum_x, .yy = sum_yy, .xx = sum_xx, .xy = sum_xy};
  if (sums.AllFinite()) return sums;  // an infinite or undefined step would have stayed to the end

  const auto add = [](double& sum, double term) {
    if (std::isfinite(sum + term)) sum += term;
  };
  sums = {};
  for (std::size_t i = 0; i < count; ++i) {
    read(i, y, x);
    add(sums.y, y);
    add(sums.x, x);
    add(sums.yy, y * y);
    add(sums.xx, x * x);
    add(sums.xy, x * y);
  }
  return sums;
}

// Whether all cases have the same value of a variable.
struct PairConstancy {
  bool y = false;
  bool x = false;
};

struct PearsonStatistics {
  std::size_t n = 0;
  Number numerator;  // n Sxy - Sx Sy
  Number y_spread;   // n Syy - Sy^2, exactly 0 of a variable whose values are all equal
  Number x_spread;   // n Sxx - Sx^2, likewise
  Number t;
  Number r;                 // rounded to three decimals: what is computed from r later takes the rounded one
  std::optional<double> p;  // two-tailed; nothing when it fails
};

// As the reports show them. The p of an r of exactly 1 is a point.
std::string ShownR(const Number& r);
std::string ShownP(const Number& r, const std::optional<double>& p);

// Fails nowhere as a whole. Without spread r stays 0; without degrees of freedom there is no p. The t of a coefficient
// of exactly 1 or -1 stays 0, so that the p of -1 is 1.
PearsonStatistics ComputePearson(std::size_t n, const PairSums& sums, PairConstancy constant);

// The same in two steps, for many pairs: everything but p, and then the p of all.
PearsonStatistics ComputePearsonCoefficient(std::size_t n, const PairSums& sums, PairConstancy constant);
void ComputePearsonPs(std::span<PearsonStatistics> coefficients);

}  // namespace tessara
