#include "calculators/standard_score.h"

#include "calculators/summary_text.h"
#include "calculators/typed_number.h"
#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

std::string StandardScoreReport(const StandardScore& s) {
  const int ahead = s.dashes_ahead;
  const int behind = s.dashes_behind;
  std::string report = "Standardized Scores\r\n";
  report += DashedRule(45) + "\r\n";
  report += "Individual Score     " + FormatCol(s.score, 18, 4) + "\r\n";
  report += "Mean                 " + FormatCol(s.mean, 18, 4) + "\r\n";
  report += "Standard Deviation   " + FormatCol(s.deviation, 18, 4) + "\r\n";
  report += "Standardized Z-Score " + FormatCol(s.z, 18, 4) + "\r\n\r\n\r\n";
  report += "                      * *                    \r\n";
  report += "                    *     *                  \r\n";
  report += "                   *       *                 \r\n";
  report += "                  *         *                \r\n";
  report += "                *             *              \r\n";
  report += "              *                 *            \r\n";
  report += "            *                     *          \r\n";
  report += "        *                             *      \r\n";
  report += "   *                                       * \r\n";
  report += "   " + DashedRule(ahead) + "|" + DashedRule(behind) + "\r\n";
  report += Blanks(ahead + 2) + Text(s.z, ".00") + Blanks(behind + 2) + "\r\n\r\n";
  return report;
}

std::string StandardScoreNarrative(const StandardScore& s) {
  std::string narrative = "Based on a mean of " + Text(s.mean) + ", a standard deviation equal to " + Text(s.deviation);
  narrative += ", and an individual score value of " + Text(s.score);
  narrative += ", the standardized (z) score is equal to " + Text(s.z, "0.000") + " . \r\n\r\n";
  narrative += "The z-score indicates the individual score is ";
  if (s.z > 0) {
    narrative += Text(Abs(s.z), "0.000") + " standard deviations above the distribution mean.";
  } else if (s.z < 0) {
    narrative += Text(Abs(s.z), "0.000") + " standard deviations below the distribution mean.";
  } else {
    narrative += "equal to the distribution mean.";
  }
  narrative += "\r\n\r\n" + DashedRule(54);
  return narrative;
}

}  // namespace

StandardScore ComputeStandardScore(double score, double mean, double deviation) {
  constexpr double kEdge = 1900;    // the farthest place of the marker from the middle
  constexpr double kPerRoot = 700;  // just below z = 8 the marker passes the edge by a little
  constexpr int kMiddleOfAxis = 20;
  constexpr int kAxis = 40;

  StandardScore s;
  s.score = score;
  s.mean = mean;
  s.deviation = deviation;
  s.z = (s.score - s.mean) / s.deviation;

  const double sign = s.z < 0 ? -1 : 1;
  if (s.z * s.z >= 64) {  // also where the square leaves the range of a double
    s.marker_offset = kEdge * sign;
  } else {
    s.marker_offset = kPerRoot * Sqrt(Abs(s.z)) * sign;
  }
  // The cast cuts toward zero, as the chart does; the place is within 20.84 of the middle.
  const Number place = s.marker_offset / kEdge * kAxis / 2;
  s.dashes_ahead = static_cast<int>(place.value()) + kMiddleOfAxis;
  s.dashes_behind = kAxis - s.dashes_ahead;
  return s;
}

StandardScoreCalculation CalculateStandardScore(const StandardScoreBoxes& boxes) {
  StandardScoreCalculation result;
  if (!IsNumeric(boxes.score) || !IsNumeric(boxes.mean) || !IsNumeric(boxes.deviation)) {
    result.calculation.messages.push_back({std::string(kEntryError), "Only numerical data can be entered."});
    return result;
  }
  const StandardScore s = ComputeStandardScore(TypedNumber(boxes.score).value(), TypedNumber(boxes.mean).value(),
                                               TypedNumber(boxes.deviation).value());
  result.z_text = s.score == 0 ? std::string() : Text(s.z, "0.0000");
  result.marker_centre = kMarkerMiddle + s.marker_offset.value();
  result.calculation.report = StandardScoreReport(s);
  result.calculation.narrative = StandardScoreNarrative(s);
  return result;
}

}  // namespace tessara
