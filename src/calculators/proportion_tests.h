#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "calculators/calculation.h"
#include "calculators/mean_tests.h"
#include "numerics/checked.h"

// The z-tests of one and of two typed proportions. Of a box the leading digits are taken: 1,000 reads as 1, and a text
// without a number as 0.

namespace tessara {

struct TwoProportionsBoxes {
  std::string_view label1 = {}, label2 = {};
  std::string_view proportion1, proportion2;
  std::string_view cases1, cases2;
};

struct TwoProportionsTest {
  Number n1, n2, proportion1, proportion2;
  std::string label1, label2;  // as they head their columns
  Number z;                    // three decimals
  Number p;
};

// Nothing unless both samples have a number of cases other than 0, 15 or more together.
std::optional<TwoProportionsTest> ComputeTwoProportions(const TwoProportionsBoxes& boxes);
std::string TwoProportionsReport(const TwoProportionsTest& test);
std::string TwoProportionsShortReport(const TwoProportionsTest& test);
std::string TwoProportionsNarrative(const TwoProportionsTest& test);

struct OneProportionBoxes {
  std::string_view population_proportion, proportion, cases;
};

struct OneProportionTest {
  Number population_proportion;  // 0.0001 in the place of 0
  Number proportion, n;
  Number z;  // three decimals
  Number p;
};

// Nothing without cases, and where the two proportions are equal.
std::optional<OneProportionTest> ComputeOneProportion(const OneProportionBoxes& boxes);
std::string OneProportionReport(const OneProportionTest& test);
std::string OneProportionShortReport(const OneProportionTest& test);
std::string OneProportionNarrative(const OneProportionTest& test);

// Both tests run, whichever of them is asked for: the report is that of `posted`, the narrative tells both.
Calculation ProportionTests(const TwoProportionsBoxes& two, const OneProportionBoxes& one, Samples posted);

}  // namespace tessara
