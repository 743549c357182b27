#pragma once

#include <array>
#include <string>

#include "calculators/calculation.h"
#include "numerics/checked.h"

// The margins of error of a mean and of a proportion, each at 90, 95 and 99 percent of confidence.

namespace tessara {

struct Margin {
  Number error;
  Number lower;
  Number upper;
};

// In the order of the page.
struct Margins {
  Margin of_90;
  Margin of_95;
  Margin of_99;
};

struct CriticalValues {
  double at_90;
  double at_95;
  double at_99;
};

// Critical values of t from the printed table. Up to 29 degrees of freedom a row takes its own value alone, above that
// the rows are bands; what no row takes, a fraction below 29 or a df below 1, has the last row, that of z.
CriticalValues CriticalTOf(double df);

// The texts in T1, T2 and T3.
struct MeanIntervalBoxes {
  std::string n = {};
  std::string mean = {};
  std::string deviation = {};
};

struct MeanInterval {
  Number n;
  Number mean;
  Number deviation;
  Number standard_error;  // 0 where n is 0 or less
  Margins margins;
};

MeanInterval ComputeMeanInterval(double n, double mean, double deviation);
std::string MeanIntervalShortReport(const MeanInterval& interval);

// The whole calculation. A box that is not numeric and an n of 1 are answered by a message alone.
Calculation CalculateMeanInterval(const MeanIntervalBoxes& boxes);

// The texts in T1 and T2.
struct ProportionIntervalBoxes {
  std::string n = {};
  std::string proportion = {};
};

struct ProportionInterval {
  Number n;
  Number proportion;
  Number standard_error;  // 0 where n is 0 or less
  Margins margins;        // limits are kept within 0 and 1
};

// With the z of 1.65, 1.96 and 2.58, whatever n is.
ProportionInterval ComputeProportionInterval(double n, double proportion);
std::string ProportionIntervalShortReport(const ProportionInterval& interval);

// The whole calculation. A box that is not numeric and a proportion above 1 are answered by a message alone.
Calculation CalculateProportionInterval(const ProportionIntervalBoxes& boxes);

}  // namespace tessara
