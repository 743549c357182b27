#pragma once

#include <cstddef>
#include <span>

// Many sums of products over the same cases, several in flight at once: each of them runs in one double from left to
// right, as in numerics/sums.h, and only different sums share the machine.

namespace tessara {

// Whether a sum takes every step as it comes, or looks at each and abandons the one that would leave the range of a
// double. A caller adds up plainly, and once more with care when a sum has not stayed finite.
enum class SumSteps { kPlain, kWithCare };

// Adds left[c] * right[j][c] to sums[j], for the cases c = 0 ... count - 1 in order and for each column of `right`.
void AddProducts(const double* left, std::span<const double* const> right, std::size_t count, double* sums,
                 SumSteps steps);

bool AllFinite(std::span<const double> sums);

}  // namespace tessara
