#pragma once

#include <span>
#include <vector>

// Values of cases: what every procedure takes from them in the same way.

namespace tessara {

// Whether all values are the same one; also of no values.
bool AllEqual(std::span<const double> values);

// The sum of squared deviations from the mean of the values. Values that are all equal have no deviation, whatever
// their mean rounds to.
double SumOfSquares(std::span<const double> values, double mean);

// The middle value, or the mean of the two middle ones; 0 of no values. The order of the values changes.
double MedianOf(std::vector<double>& values);

}  // namespace tessara
