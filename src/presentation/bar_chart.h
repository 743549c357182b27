#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The horizontal bar chart of Descriptives, a histogram written in text, and the interval table that the chart views
// share with it.

namespace tessara {

struct BarTable {
  struct Bar {
    std::string low;  // the ends of the interval, two decimals
    std::string high;
    std::string label;  // of both ends, 31 characters, by IntervalLabel
    std::string bar;    // "X" characters, 20 for the tallest
    std::size_t count = 0;
  };
  std::vector<Bar> bars;      // lowest interval first
  std::vector<double> edges;  // where each bar begins, and where the last one ends
};

// 5 bars for up to 40 values, 7 for up to 100, 9 above.
std::size_t BarCount(std::size_t n);

// The words for an interval.
std::string IntervalText(std::string_view low, std::string_view high);
// The first 30 characters of a text, padded with blanks to 30, and one blank.
std::string IntervalLabel(std::string_view text);

// The table of n values with the given minimum and range. The order of the values does not matter. A value belongs to
// the first bar whose upper edge is not below it; one that rounding puts above the last edge belongs to the last bar.
BarTable MakeBarTable(const std::vector<double>& values, double minimum, double range);

// The chart as a report shows it.
std::string BarChartText(const BarTable& table);

}  // namespace tessara
