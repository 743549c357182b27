#include "presentation/bar_chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tessara {
namespace {

std::vector<std::size_t> Counts(const BarTable& table) {
  std::vector<std::size_t> counts;
  for (const auto& bar : table.bars) counts.push_back(bar.count);
  return counts;
}

std::vector<std::size_t> Lengths(const BarTable& table) {
  std::vector<std::size_t> lengths;
  for (const auto& bar : table.bars) lengths.push_back(bar.bar.size());
  return lengths;
}

// So many values in each of five bars from 0 to 5; at most 40 in all.
BarTable TableOfCounts(const std::vector<int>& counts) {
  std::vector<double> values;
  for (std::size_t k = 0; k < counts.size(); ++k) values.insert(values.end(), counts[k], static_cast<double>(k) + 0.5);
  return MakeBarTable(values, 0, 5);
}

using List = std::vector<std::size_t>;

TEST(BarChart, NumberOfBars) {
  EXPECT_EQ(BarCount(2), 5u);
  EXPECT_EQ(BarCount(40), 5u);
  EXPECT_EQ(BarCount(41), 7u);
  EXPECT_EQ(BarCount(100), 7u);
  EXPECT_EQ(BarCount(101), 9u);
  EXPECT_EQ(BarCount(1000000), 9u);
}

TEST(BarChart, TableHasTheBarsOfItsNumberOfValues) {
  EXPECT_EQ(MakeBarTable(std::vector<double>(40, 1.0), 1, 0).bars.size(), 5u);
  EXPECT_EQ(MakeBarTable(std::vector<double>(41, 1.0), 1, 0).bars.size(), 7u);
  EXPECT_EQ(MakeBarTable(std::vector<double>(101, 1.0), 1, 0).bars.size(), 9u);
}

TEST(BarChart, LabelIsCutAndPaddedTo30AndABlank) {
  EXPECT_EQ(IntervalLabel(""), std::string(31, ' '));
  EXPECT_EQ(IntervalLabel("1.00 to 2.00"), "1.00 to 2.00" + std::string(19, ' '));
  EXPECT_EQ(IntervalLabel(std::string(30, 'x')), std::string(30, 'x') + " ");
  EXPECT_EQ(IntervalLabel(std::string(31, 'x')), std::string(30, 'x') + " ");
}

TEST(BarChart, ValueOnAnEdgeFallsInTheLowerBar) {
  EXPECT_EQ(Counts(MakeBarTable({0, 2, 4, 6, 8, 10}, 0, 10)), (List{2, 1, 1, 1, 1}));
}

TEST(BarChart, OrderOfTheValuesDoesNotMatter) {
  EXPECT_EQ(Counts(MakeBarTable({10, 0, 8, 6, 2, 4}, 0, 10)), (List{2, 1, 1, 1, 1}));
}

TEST(BarChart, NegativeValues) {
  const BarTable table = MakeBarTable({-5, -3, -2.99, 0, 5}, -5, 10);
  EXPECT_EQ(Counts(table), (List{2, 1, 1, 0, 1}));
  EXPECT_EQ(table.bars[0].label, IntervalLabel("-5.00 to -3.00"));
  EXPECT_EQ(table.bars[2].label, IntervalLabel("-1.00 to 1.00"));
}

TEST(BarChart, ValueThatRoundingPutsAboveTheLastEdgeFallsInTheLastBar) {
  const double minimum = -5;
  const double maximum = -1.7;
  const double range = maximum - minimum;
  ASSERT_LT(minimum + 5 * (range / 5), maximum);
  EXPECT_EQ(Counts(MakeBarTable({minimum, maximum}, minimum, range)), (List{1, 0, 0, 0, 1}));
}

TEST(BarChart, EdgesStandBetweenTheBars) {
  const BarTable table = MakeBarTable({0, 2, 10}, 0, 10);
  ASSERT_EQ(table.edges.size(), table.bars.size() + 1);
  EXPECT_EQ(table.edges, (std::vector<double>{0, 2, 4, 6, 8, 10}));
}

TEST(BarChart, RangeOf0PutsAllValuesInTheFirstBar) {
  const BarTable table = MakeBarTable({7, 7, 7}, 7, 0);
  EXPECT_EQ(Counts(table), (List{3, 0, 0, 0, 0}));
  EXPECT_EQ(Lengths(table), (List{20, 0, 0, 0, 0}));
  for (const auto& bar : table.bars) EXPECT_EQ(bar.label, IntervalLabel("7.00 to 7.00"));
}

TEST(BarChart, TallestBarHas20AndATenthOfItTwo) {
  EXPECT_EQ(Lengths(TableOfCounts({20, 2, 10, 4, 0})), (List{20, 2, 10, 4, 0}));
}

TEST(BarChart, HalvesOfALengthAreRoundedToEven) {
  // Of 20: 3 is 1.5, which rounds to 2; 5 is 2.5, which rounds to 2; 7 is 3.5, which rounds to 4.
  EXPECT_EQ(Lengths(TableOfCounts({20, 3, 5, 7, 5})), (List{20, 4, 4, 8, 4}));
}

TEST(BarChart, BarThatRoundsTo0ShowsOneX) {
  // 1 of 20 is 0.5, which rounds to 0; 1 of 21 is less.
  EXPECT_EQ(Lengths(TableOfCounts({20, 1, 0, 0, 0})), (List{20, 1, 0, 0, 0}));
  EXPECT_EQ(Lengths(TableOfCounts({21, 1, 0, 0, 0})), (List{20, 1, 0, 0, 0}));
}

TEST(BarChart, TableOfNoValuesHasEmptyBars) {
  const BarTable table = MakeBarTable({}, 0, 0);
  EXPECT_EQ(Counts(table), (List{0, 0, 0, 0, 0}));
  EXPECT_EQ(Lengths(table), (List{0, 0, 0, 0, 0}));
}

TEST(BarChart, BarsAreThoseOfASearchFromTheLowestUp) {
  std::mt19937 random(20261105);
  std::uniform_int_distribution<int> tenths(-300, 700);
  for (const std::size_t n : {30u, 90u, 2000u}) {
    std::vector<double> values(n);
    for (double& value : values) value = tenths(random) / 10.0;
    const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
    const double minimum = *lowest;
    const double range = *highest - minimum;

    const std::size_t bars = BarCount(n);
    List expected(bars, 0);
    for (const double value : values) {
      std::size_t k = 1;
      while (k < bars && minimum + static_cast<double>(k) * (range / static_cast<double>(bars)) < value) ++k;
      ++expected[k - 1];
    }
    EXPECT_EQ(Counts(MakeBarTable(values, minimum, range)), expected);
  }
}

TEST(BarChart, WholeChart) {
  std::vector<double> values(20, 1.0);
  values[0] = 0;
  values.insert(values.end(), {2.5, 4, 5, 9, 9, 10});
  EXPECT_EQ(BarChartText(MakeBarTable(values, 0, 10)),
            "\r\n\r\n\r\n"
            "                       Horizontal Bar Chart\r\n"
            "-----------------------------------------------------------------\r\n"
            "Bar Interval                      Count\r\n"
            "----------------------           ------\r\n"
            "0.00 to 2.00                         20  XXXXXXXXXXXXXXXXXXXX\r\n"
            "2.00 to 4.00                          2  XX\r\n"
            "4.00 to 6.00                          1  X\r\n"
            "6.00 to 8.00                          0  \r\n"
            "8.00 to 10.00                         3  XXXX\r\n"
            "\r\n"
            "-----------------------------------------------------------------\r\n");
}

TEST(BarChart, WideLabelIsCut) {
  // 1E+20 to 1.2E+20 under two decimals: 24 characters, " to ", 24 characters; the first 30 of them stand.
  const BarTable table = MakeBarTable({1e20, 2e20}, 1e20, 1e20);
  EXPECT_EQ(table.bars[0].label, "100000000000000000000.00 to 12 ");
}

}  // namespace
}  // namespace tessara
