#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "numerics/checked.h"

// The scattergram of a correlation: pairs of values drawn with text, y upward and x to the right.

namespace tessara {

struct Scattergram {
  static constexpr std::size_t kPlaces = 11;  // along either axis

  struct Axis {
    double least = 0;
    double greatest = 0;
    Number range;  // 0 when it is beyond the range of a double

    bool constant() const { return least == greatest; }
    Number Middle() const { return least + range / 2; }
  };

  Axis y;
  Axis x;
  std::array<std::array<bool, kPlaces>, kPlaces> occupied{};  // by row and column; row 0 is the top
};

// Draws y against x, of which there is at least one pair. A point whose place cannot be computed takes the row or
// column of the point before, 0 at first: so do all points of a variable without spread.
Scattergram DrawScattergram(std::span<const double> y, std::span<const double> x);

// Eleven rows, a blank line, the axis with its three values, and the name and label of x.
std::string ScattergramText(const Scattergram& drawing, std::string_view x_name, std::string_view x_label);

}  // namespace tessara
