#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>

#include "calculators/calculation.h"
#include "numerics/checked.h"

// The sample size estimator: how many cases, of both samples together, a comparison of two proportions or of two means
// needs at a significance (alpha) and a power.

namespace tessara {

// A choice of a selector and the z that it stands for.
struct ChosenLevel {
  double level;
  double z;
};

// By index of the selectors Alpha and Beta. A power of .95 has the z of an alpha of .10.
inline constexpr std::array<ChosenLevel, 3> kAlphaChoices{{{.01, 2.576}, {.05, 1.96}, {.10, 1.645}}};
inline constexpr std::array<ChosenLevel, 4> kPowerChoices{{{.80, .842}, {.85, 1.036}, {.90, 1.282}, {.95, 1.645}}};
inline constexpr std::size_t kFirstAlpha = 1;  // where the selectors stand at first: .05 and .80
inline constexpr std::size_t kFirstPower = 0;

// The texts in T1 to T4, and the z of the two selectors.
struct SampleSizeBoxes {
  std::string proportion1 = {};
  std::string proportion2 = {};
  std::string difference = {};
  std::string deviation = {};
  double alpha_z = kAlphaChoices[kFirstAlpha].z;
  double power_z = kPowerChoices[kFirstPower].z;
};

struct SampleSizePlan {
  Number proportion1;
  Number proportion2;
  Number difference;
  Number deviation;
  double alpha_z = 0;
  double power_z = 0;
};

struct SampleSizes {
  // Nothing where the boxes of that part are not filled; 0 where the formula fails, as for equal proportions.
  std::optional<Number> for_proportions;
  std::optional<Number> for_means;
};

SampleSizes ComputeSampleSizes(const SampleSizePlan& plan);

std::string SampleSizeShortReport(const SampleSizes& sizes);

// The whole calculation. An empty box and a text that is not numeric count 0. The narrative is empty when neither part
// is filled.
Calculation CalculateSampleSize(const SampleSizeBoxes& boxes);

}  // namespace tessara
