#pragma once

#include <optional>
#include <string>

#include "calculators/calculation.h"
#include "numerics/checked.h"

// The standard score: how many deviations an individual score stands from the mean, and where that is on the normal
// curve.

namespace tessara {

// The texts in T1, T2 and T3.
struct StandardScoreBoxes {
  std::string score = {};
  std::string mean = {};
  std::string deviation = {};
};

struct StandardScore {
  Number score;
  Number mean;
  Number deviation;
  Number z;              // 0 where the deviation is 0
  Number marker_offset;  // from the middle of the curve's picture
  int dashes_ahead = 0;  // of the mark on the axis of the text chart: 0 to 40
  int dashes_behind = 0;
};

// The marker's place when z is 0: the middle of the curve's picture.
inline constexpr double kMarkerMiddle = 2030;

struct StandardScoreCalculation {
  Calculation calculation;              // without a short report
  std::optional<std::string> z_text;    // L5, empty for a score of 0; absent: it stays as it was
  std::optional<double> marker_centre;  // 2030 + offset; absent: the marker stays where it was
};

StandardScore ComputeStandardScore(double score, double mean, double deviation);

// The whole calculation. A box that is not numeric is answered by a message alone.
StandardScoreCalculation CalculateStandardScore(const StandardScoreBoxes& boxes);

}  // namespace tessara
