#pragma once

#include <cmath>
#include <cstddef>

// Sums over cases. They run in one double, from left to right in the order of the cases: no lanes and no pairwise sums,
// so that every build prints the same digits.

namespace tessara {

// The sum of term(0) ... term(count - 1). A step that would leave the range of a double is abandoned alone, like any
// failing statement: the plain loop stands while no step fails, and only then is every step looked at.
template <typename Term>
double SumInOrder(std::size_t count, Term term) {
  double sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += term(i);
  if (std::isfinite(sum)) return sum;  // an infinite or undefined step would have stayed to the end
  sum = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double next = sum + term(i);
    if (std::isfinite(next)) sum = next;
  }
  return sum;
}

}  // namespace tessara
