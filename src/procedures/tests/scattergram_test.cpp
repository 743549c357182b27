#include "procedures/relate/scattergram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessara {
namespace {

// The occupied places, as "row,column " from the top left.
std::string Places(const Scattergram& drawing) {
  std::string places;
  for (std::size_t row = 0; row < Scattergram::kPlaces; ++row) {
    for (std::size_t column = 0; column < Scattergram::kPlaces; ++column) {
      if (drawing.occupied[row][column]) places += std::to_string(row) + "," + std::to_string(column) + " ";
    }
  }
  return places;
}

std::string PlacesOf(const std::vector<double>& y, const std::vector<double>& x) {
  return Places(DrawScattergram(y, x));
}

// Each of the four corners, the middle and one point elsewhere: x = 3 is 10 * 8 / 10, y = 7 is (1 - 9 / 12) * 10 = 2.5.
TEST(Scattergram, WholeText) {
  const std::vector<double> y = {-2, -2, 10, 10, 4, 7};
  const std::vector<double> x = {-5, 5, -5, 5, 0, 3};
  EXPECT_EQ(ScattergramText(DrawScattergram(y, x), "HEIGHT", "In metres"),
            "      10.0| *                             * \r\n"
            "          |                                 \r\n"
            "          |                         *       \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "       4.0|                *                \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "          |                                 \r\n"
            "      -2.0| *                             * \r\n"
            "\r\n"
            "           ---------------|--------------|\r\n"
            "                    -5.0           0.0           5.0\r\n"
            "\r\n"
            "          HEIGHT: In metres\r\n");
}

TEST(Scattergram, HalvesGoToTheEvenColumn) {
  // 10 * x / 20 is half of x: 0.5, 1.5, 2.5 and 9.5.
  const std::vector<double> x = {0, 1, 3, 5, 19, 20};
  EXPECT_EQ(PlacesOf({0, 10, 10, 10, 10, 0}, x), "0,0 0,2 0,10 10,0 10,10 ");
  EXPECT_EQ(PlacesOf({7, 7, 7, 7, 7, 7}, x), "0,0 0,2 0,10 ");  // the same where each row fails
}

TEST(Scattergram, HalvesGoToTheEvenRow) {
  // (1 - y / 4) * 10: 10, 7.5, 5, 2.5, 0.
  EXPECT_EQ(PlacesOf({0, 1, 2, 3, 4}, {0, 0, 0, 0, 1}), "0,10 2,0 5,0 8,0 10,0 ");
}

// 1 - 19 / 20 is a little more than 0.05, so that the row is not the half that other orders of the steps would give.
TEST(Scattergram, TheRowIsComputedFromLeftToRight) { EXPECT_EQ(PlacesOf({0, 19, 20}, {0, 1, 10}), "0,10 1,1 10,0 "); }

TEST(Scattergram, WithoutSpreadAllPointsStandAtIndexZero) {
  EXPECT_EQ(PlacesOf({1, 2, 3}, {0.3, 0.3, 0.3}), "0,0 5,0 10,0 ");
  EXPECT_EQ(PlacesOf({4, 4, 4}, {1, 2, 3}), "0,0 0,5 0,10 ");
  EXPECT_EQ(PlacesOf({4, 4, 4}, {9, 9, 9}), "0,0 ");
}

TEST(Scattergram, AllPointsOfOneValueHaveThatValueOnTheWholeAxis) {
  const std::string text =
      ScattergramText(DrawScattergram(std::vector<double>{4, 4}, std::vector<double>{9, 9}), "X", "");
  EXPECT_TRUE(text.starts_with("       4.0| *  "));
  EXPECT_NE(text.find("\r\n       4.0|                                 \r\n          |"), std::string::npos);
  EXPECT_NE(text.find("\r\n                     9.0           9.0           9.0\r\n\r\n          X: \r\n"),
            std::string::npos);
}

// The distance of the extremes is beyond the range of a double: it fails like a range of 0.
TEST(Scattergram, ARangeThatOverflowsIsNone) {
  const std::vector<double> wide = {-1.5e308, 1.5e308, 0};
  EXPECT_EQ(PlacesOf(wide, {0, 5, 10}), "0,0 0,5 0,10 ");
  EXPECT_EQ(PlacesOf({0, 5, 10}, wide), "0,0 5,0 10,0 ");
  const Scattergram drawing = DrawScattergram(wide, wide);
  EXPECT_EQ(drawing.y.range.value(), 0);
  EXPECT_EQ(drawing.y.Middle().value(), -1.5e308);
}

// Ten times the distance of the second and fourth point overflows, so that they keep the columns of the first and
// third.
TEST(Scattergram, APointThatFailsKeepsTheColumnOfTheOneBefore) {
  EXPECT_EQ(PlacesOf({0, 1, 2, 3}, {0, 1e308, 1e307, 1.5e308}), "0,1 3,1 7,0 10,0 ");
}

}  // namespace
}  // namespace tessara
