#include "presentation/bar_chart.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "numerics/masks.h"
#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

constexpr std::size_t kMostBars = 9;
constexpr int kLabelWidth = 30;
constexpr int kRule = 65;

// The edge between bar k and bar k + 1, bars counted from 1: edge 0 is the minimum.
double Edge(double minimum, double width, std::size_t k) { return minimum + static_cast<double>(k) * width; }

// Edges grow with k, so the bars ahead of a value's own are those whose upper edge is below it. Counting them needs no
// branch. The last edge is not asked: what lies above it, by rounding, belongs to the last bar all the same.
std::array<std::size_t, kMostBars> CountByBar(const std::vector<double>& values, double minimum, double width,
                                              std::size_t bars) {
  std::array<double, kMostBars - 1> inner_edges;
  inner_edges.fill(std::numeric_limits<double>::infinity());
  for (std::size_t k = 1; k < bars; ++k) inner_edges[k - 1] = Edge(minimum, width, k);

  std::array<std::size_t, kMostBars> counts{};
  for (const double value : values) {
    std::size_t bar = 0;
    for (const double edge : inner_edges) bar += edge < value;
    ++counts[bar];
  }
  return counts;
}

// Even lengths from 0 to 20, and one "X" where a value would be lost to rounding.
std::string Bar(std::size_t count, std::size_t largest) {
  const Checked share = Checked(static_cast<double>(count)) / static_cast<double>(largest);
  const int length = 2 * ToInt16(share * 10).value_or(0);
  if (length < 1 && count > 0) return "X";
  return std::string(static_cast<std::size_t>(length), 'X');
}

}  // namespace

std::size_t BarCount(std::size_t n) {
  if (n <= 40) return 5;
  if (n <= 100) return 7;
  return kMostBars;
}

std::string IntervalText(std::string_view low, std::string_view high) {
  return std::string(low).append(" to ").append(high);
}

std::string IntervalLabel(std::string_view text) { return PadRight(text, kLabelWidth) + ' '; }

BarTable MakeBarTable(const std::vector<double>& values, double minimum, double range) {
  const std::size_t bars = BarCount(values.size());
  const double width = range / static_cast<double>(bars);
  const auto counts = CountByBar(values, minimum, width, bars);
  const std::size_t largest = *std::max_element(counts.begin(), counts.end());

  BarTable table;
  for (std::size_t k = 0; k < bars; ++k) {
    std::string low = MaskedNumber(Edge(minimum, width, k), "0.00");
    std::string high = MaskedNumber(Edge(minimum, width, k + 1), "0.00");
    std::string label = IntervalLabel(IntervalText(low, high));
    table.bars.push_back({std::move(low), std::move(high), std::move(label), Bar(counts[k], largest), counts[k]});
  }
  for (std::size_t k = 0; k <= bars; ++k) table.edges.push_back(Edge(minimum, width, k));
  return table;
}

std::string BarChartText(const BarTable& table) {
  const std::string rule = DashedRule(kRule) + "\r\n";
  std::string text = "\r\n\r\n\r\n                       Horizontal Bar Chart\r\n" + rule;
  text += IntervalLabel("Bar Interval") + "   Count\r\n";
  text += IntervalLabel(DashedRule(22)) + "  ------\r\n";
  for (const BarTable::Bar& bar : table.bars) {
    text += bar.label + PadLeftBlank(static_cast<double>(bar.count), 8) + ' ' + bar.bar + "\r\n";
  }
  return text + "\r\n" + rule;
}

}  // namespace tessara
