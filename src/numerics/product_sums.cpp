#include "numerics/product_sums.h"

#include <algorithm>
#include <cmath>

namespace tessara {
namespace {

constexpr std::size_t kMostInFlight = 8;  // as many as there are registers for

template <std::size_t kWidth>
void AddPlainly(const double* left, const double* const* right, std::size_t count, double* sums) {
  const double* columns[kWidth];
  double totals[kWidth];
  for (std::size_t j = 0; j < kWidth; ++j) columns[j] = right[j];
  for (std::size_t j = 0; j < kWidth; ++j) totals[j] = sums[j];
  for (std::size_t c = 0; c < count; ++c) {
    const double factor = left[c];
    for (std::size_t j = 0; j < kWidth; ++j) totals[j] += factor * columns[j][c];
  }
  for (std::size_t j = 0; j < kWidth; ++j) sums[j] = totals[j];
}

using AddSome = void (*)(const double*, const double* const*, std::size_t, double*);
constexpr AddSome kAddPlainly[kMostInFlight] = {AddPlainly<1>, AddPlainly<2>, AddPlainly<3>, AddPlainly<4>,
                                                AddPlainly<5>, AddPlainly<6>, AddPlainly<7>, AddPlainly<8>};

void AddWithCare(const double* left, const double* right, std::size_t count, double& sum) {
  for (std::size_t c = 0; c < count; ++c) {
    const double next = sum + left[c] * right[c];
    if (std::isfinite(next)) sum = next;
  }
}

}  // namespace

void AddProducts(const double* left, std::span<const double* const> right, std::size_t count, double* sums,
                 SumSteps steps) {
  if (steps == SumSteps::kWithCare) {
    for (std::size_t j = 0; j < right.size(); ++j) AddWithCare(left, right[j], count, sums[j]);
    return;
  }
  for (std::size_t j = 0; j < right.size(); j += kMostInFlight) {
    const std::size_t width = std::min(kMostInFlight, right.size() - j);
    kAddPlainly[width - 1](left, right.data() + j, count, sums + j);
  }
}

bool AllFinite(std::span<const double> sums) {
  return std::all_of(sums.begin(), sums.end(), [](double sum) { return std::isfinite(sum); });
}

}  // namespace tessara
