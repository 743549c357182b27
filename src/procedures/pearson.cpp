#include "procedures/pearson.h"

#include "numerics/masks.h"
#include "numerics/probability.h"

namespace tessara {

PearsonStatistics ComputePearson(std::size_t n_cases, const PairSums& sums, PairConstancy constant) {
  const Number n = static_cast<double>(n_cases);
  const Checked sum_y = sums.y;
  const Checked sum_x = sums.x;
  PearsonStatistics result;
  result.n = n_cases;
  result.numerator = n * sums.xy - sum_x * sum_y;
  // The two products of equal values need not round to the same double, so that their difference is not computed.
  if (!constant.y) result.y_spread = n * sums.yy - sum_y * sum_y;
  if (!constant.x) result.x_spread = n * sums.xx - sum_x * sum_x;
  Number r = result.numerator / Sqrt(result.y_spread * result.x_spread);
  // Beyond 1 by rounding, the root fails and t stays 0 as well.
  if (Abs(r) != 1) result.t = r * Sqrt((n - 2) / (1 - r * r));
  Keep(result.r, Masked(r, "0.000"));
  Keep(result.p, Masked(TDistP(n - 2, result.t), "0.0000"));
  if (result.r == "1.000") result.p = ".";  // on +1 alone
  return result;
}

}  // namespace tessara
