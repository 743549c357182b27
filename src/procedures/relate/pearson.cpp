#include "procedures/relate/pearson.h"

#include <vector>

#include "numerics/masks.h"
#include "numerics/probability.h"

namespace tessara {

PearsonStatistics ComputePearsonCoefficient(std::size_t n_cases, const PairSums& sums, PairConstancy constant) {
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
  result.r = RoundedBy(r, "0.000");
  return result;
}

void ComputePearsonPs(std::span<PearsonStatistics> coefficients) {
  std::vector<StudentT> values;
  values.reserve(coefficients.size());
  for (const PearsonStatistics& pearson : coefficients) {
    values.push_back({.df = static_cast<double>(pearson.n) - 2, .t = pearson.t});
  }
  const std::vector<Checked> ps = TDistPs(values);
  for (std::size_t i = 0; i < ps.size(); ++i) coefficients[i].p = Computed(ps[i]);
}

std::string ShownR(const Number& r) { return MaskedNumber(r.value(), "0.000"); }

std::string ShownP(const Number& r, const std::optional<double>& p) {
  return r.value() == 1 ? "." : MaskedOrEmpty(p, "0.0000");  // on +1 alone
}

PearsonStatistics ComputePearson(std::size_t n, const PairSums& sums, PairConstancy constant) {
  PearsonStatistics result = ComputePearsonCoefficient(n, sums, constant);
  ComputePearsonPs({&result, 1});
  return result;
}

}  // namespace tessara
