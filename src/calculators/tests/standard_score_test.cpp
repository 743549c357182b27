#include "calculators/standard_score.h"

#include <gtest/gtest.h>

#include <string>

namespace tessara {
namespace {

const std::string kDashes = std::string(54, '-');

// The curve of the long report, line by line.
const std::string kCurve =
    "                      * *                    \r\n"
    "                    *     *                  \r\n"
    "                   *       *                 \r\n"
    "                  *         *                \r\n"
    "                *             *              \r\n"
    "              *                 *            \r\n"
    "            *                     *          \r\n"
    "        *                             *      \r\n"
    "   *                                       * \r\n";

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// 15 points above a mean of 70: z = 1.5, the offset is 700 sqrt(1.5) = 857.32 (numpy), and 857.32 / 1900 * 20 = 9.02.
class AboveTheMean : public testing::Test {
 protected:
  const StandardScoreCalculation result = CalculateStandardScore({"85", "70", "10"});
};

TEST_F(AboveTheMean, LongReport) {
  EXPECT_EQ(result.calculation.report,
            "Standardized Scores\r\n"
            "---------------------------------------------\r\n"
            "Individual Score                85.0000\r\n"
            "Mean                            70.0000\r\n"
            "Standard Deviation              10.0000\r\n"
            "Standardized Z-Score             1.5000\r\n"
            "\r\n"
            "\r\n" +
                kCurve +
                "   -----------------------------|-----------\r\n"
                "                               1.50             \r\n"
                "\r\n");
}

TEST_F(AboveTheMean, Narrative) {
  EXPECT_EQ(result.calculation.narrative,
            "Based on a mean of 70, a standard deviation equal to 10, and an individual score value of 85, the "
            "standardized (z) score is equal to 1.500 . \r\n"
            "\r\n"
            "The z-score indicates the individual score is 1.500 standard deviations above the distribution mean.\r\n"
            "\r\n" +
                kDashes);
}

TEST_F(AboveTheMean, TheBoxesOfThePanel) {
  EXPECT_EQ(result.z_text, "1.5000");
  ASSERT_TRUE(result.marker_centre);
  EXPECT_NEAR(*result.marker_centre, 2887.3214, 1e-4);
  EXPECT_EQ(result.calculation.short_report, std::nullopt);
  EXPECT_EQ(result.calculation.results_title, std::nullopt);
  EXPECT_TRUE(result.calculation.messages.empty());
}

// The same to the left: -9.02 is cut toward zero, to -9.
TEST(StandardScore, BelowTheMean) {
  const StandardScoreCalculation result = CalculateStandardScore({"55", "70", "10"});
  EXPECT_TRUE(Contains(*result.calculation.report, "Standardized Z-Score            -1.5000\r\n\r\n\r\n" + kCurve +
                                                       "   -----------|-----------------------------\r\n"
                                                       "             -1.50                               \r\n"
                                                       "\r\n"));
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "is equal to -1.500 . \r\n\r\nThe z-score indicates the individual score is 1.500 standard "
                       "deviations below the distribution mean.\r\n\r\n---"));
  EXPECT_EQ(result.z_text, "-1.5000");
  EXPECT_NEAR(*result.marker_centre, 1172.6786, 1e-4);
}

TEST(StandardScore, AtTheMeanTheMarkStandsInTheMiddle) {
  const StandardScoreCalculation result = CalculateStandardScore({"70", "70", "10"});
  EXPECT_TRUE(Contains(*result.calculation.report, kCurve + "   --------------------|--------------------\r\n"
                                                            "                      .00                      \r\n"
                                                            "\r\n"));
  EXPECT_TRUE(Contains(*result.calculation.narrative,
                       "\r\n\r\nThe z-score indicates the individual score is equal to the distribution mean.\r\n\r\n"
                       "---"));
  EXPECT_EQ(result.marker_centre, 2030);
  EXPECT_EQ(result.z_text, "0.0000");
}

TEST(StandardScore, AScoreOfZeroShowsNoZ) {
  const StandardScoreCalculation result = CalculateStandardScore({"0", "10", "5"});
  EXPECT_EQ(result.z_text, "");
  EXPECT_TRUE(Contains(*result.calculation.report, "Standardized Z-Score            -2.0000\r\n"));
}

struct Place {
  double z;
  double offset;
  int ahead;
  int behind;
};

// Just below 8 the marker is a little beyond the edge (700 sqrt(7.9) = 1967.49), from 8 on it stays at it.
TEST(StandardScore, PlacesOnTheCurve) {
  const Place places[] = {{0, 0, 20, 20},
                          {1, 700, 27, 13},
                          {-1, -700, 13, 27},
                          {7, 1852.025918, 39, 1},
                          {-7, -1852.025918, 1, 39},
                          {7.9, 1967.485705, 40, 0},
                          {-7.9, -1967.485705, 0, 40},
                          {8, 1900, 40, 0},
                          {-8, -1900, 0, 40},
                          {1e6, 1900, 40, 0},
                          {-1e200, -1900, 0, 40},
                          {1e200, 1900, 40, 0}};
  for (const Place& place : places) {
    const StandardScore s = ComputeStandardScore(place.z, 0, 1);
    EXPECT_NEAR(s.marker_offset.value(), place.offset, 1e-6) << place.z;
    EXPECT_EQ(s.dashes_ahead, place.ahead) << place.z;
    EXPECT_EQ(s.dashes_behind, place.behind) << place.z;
  }
}

// The division fails and z keeps its first value.
TEST(StandardScore, WithoutADeviationZIsZero) {
  const StandardScoreCalculation result = CalculateStandardScore({"85", "70", "0"});
  EXPECT_EQ(result.z_text, "0.0000");
  EXPECT_TRUE(Contains(*result.calculation.narrative, "is equal to the distribution mean."));
  EXPECT_EQ(CalculateStandardScore({"1e308", "-1e308", "1"}).z_text, "0.0000");
}

// Widths hold no number of 300 digits: the line is pushed to the right and nothing is cut.
TEST(StandardScore, AHugeZKeepsItsPage) {
  const StandardScoreCalculation result = CalculateStandardScore({"1e300", "0", "1"});
  EXPECT_TRUE(Contains(*result.calculation.report, "\r\n   ----------------------------------------|\r\n"));
  EXPECT_EQ(result.marker_centre, 3930);
}

TEST(StandardScore, EveryBoxMustBeNumeric) {
  const StandardScoreBoxes refused[] = {{}, {"", "70", "10"}, {"85", "x", "10"}, {"85", "70", "."}};
  for (const StandardScoreBoxes& boxes : refused) {
    const StandardScoreCalculation result = CalculateStandardScore(boxes);
    ASSERT_EQ(result.calculation.messages.size(), 1u);
    EXPECT_EQ(result.calculation.messages[0].title, "Entry Error!");
    EXPECT_EQ(result.calculation.messages[0].text, "Only numerical data can be entered.");
    EXPECT_EQ(result.calculation.report, std::nullopt);
    EXPECT_EQ(result.calculation.narrative, std::nullopt);
    EXPECT_EQ(result.z_text, std::nullopt);
    EXPECT_EQ(result.marker_centre, std::nullopt);
  }
}

TEST(StandardScore, CommasAreStripped) {
  EXPECT_EQ(CalculateStandardScore({"1,085", "1,070", "1,0"}).calculation.report,
            CalculateStandardScore({"1085", "1070", "10"}).calculation.report);
}

}  // namespace
}  // namespace tessara
