#include "presentation/chart_data.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "numerics/number_text.h"
#include "platform/scripted_platform.h"

namespace tessara {
namespace {

using Rows = std::vector<std::vector<std::string>>;

ChartValues Values(std::vector<double> values) {
  return std::make_shared<const std::vector<double>>(std::move(values));
}

Rows RowsOf(const Chart& chart) {
  Rows rows;
  for (const auto& row : ChartRows(chart)) {
    rows.emplace_back();
    for (const TaggedValue& cell : row) rows.back().push_back(TextOf(cell));
  }
  return rows;
}

Chart Histogram(std::vector<double> values) {
  return IntervalChart(ChartType::kHistogram, "Histogram", "X", Values(std::move(values)));
}

Chart TwoBars() { return BarsChart("SEX", "Sex", "Frequency", {"Male  (40.0%)", "Female  (60.0%)"}, {{"n", {2, 3}}}); }

// 0 to n - 1: the intervals of equal width share them out as evenly as a hand count does.
std::vector<double> CountedUp(int n) {
  std::vector<double> values;
  for (int i = 0; i < n; ++i) values.push_back(i);
  return values;
}

TEST(ChartData, BarsHaveARowForEachLabel) {
  EXPECT_EQ(RowsOf(TwoBars()), (Rows{{"Male  (40.0%)", "2"}, {"Female  (60.0%)", "3"}}));
  const Chart grouped = BarsChart("A by B", "", "Frequency", {"a", "b"}, {{"x", {1, 2}}, {"y", {3, 4.5}}});
  EXPECT_EQ(RowsOf(grouped), (Rows{{"a", "1", "3"}, {"b", "2", "4.5"}}));
  EXPECT_EQ(grouped.type, ChartType::kBars);
}

TEST(ChartData, AShortSeriesHasEmptyCells) {
  const Chart chart = BarsChart("", "", "", {"a", "b"}, {{"x", {1}}});
  const ChartTable table = ChartRows(chart);
  ASSERT_EQ(table.size(), 2u);
  EXPECT_TRUE(table[1][1].view().is_empty());
}

TEST(ChartData, IntervalsAreCountedWhenTheChartIsLookedAt) {
  // 2 to 9 in five intervals of 1.4: the text bar chart's example.
  for (const ChartType type : {ChartType::kHistogram, ChartType::kLine, ChartType::kHistogramAndLine}) {
    const Chart chart = IntervalChart(type, "T", "X", Values({2, 4, 4, 4, 5, 4.5, 7, 9}));
    EXPECT_TRUE(chart.labels.empty());
    EXPECT_EQ(chart.vertical_title, "Frequency");
    EXPECT_EQ(chart.horizontal_title, "X");
    EXPECT_EQ(RowsOf(chart), (Rows{{"2.00 to 3.40", "1"},
                                   {"3.40 to 4.80", "4"},
                                   {"4.80 to 6.20", "1"},
                                   {"6.20 to 7.60", "1"},
                                   {"7.60 to 9.00", "1"}}));
  }
}

TEST(ChartData, NumberOfIntervals) {
  const std::pair<int, std::size_t> expected[] = {{1, 5}, {40, 5}, {41, 7}, {100, 7}, {101, 9}, {1000, 9}};
  for (const auto& [n, bars] : expected) EXPECT_EQ(ChartRows(Histogram(CountedUp(n))).size(), bars) << n;
}

// 0 to 40 in seven intervals of 40 / 7: the edges are 5.71, 11.43, 17.14, 22.86, 28.57, 34.29.
TEST(ChartData, FortyOneValuesInSevenIntervals) {
  EXPECT_EQ(RowsOf(Histogram(CountedUp(41))), (Rows{{"0.00 to 5.71", "6"},
                                                    {"5.71 to 11.43", "6"},
                                                    {"11.43 to 17.14", "6"},
                                                    {"17.14 to 22.86", "5"},
                                                    {"22.86 to 28.57", "6"},
                                                    {"28.57 to 34.29", "6"},
                                                    {"34.29 to 40.00", "6"}}));
}

TEST(ChartData, ARangeOf0CountsAllInTheFirstInterval) {
  EXPECT_EQ(RowsOf(Histogram({7, 7, 7})), (Rows{{"7.00 to 7.00", "3"},
                                                {"7.00 to 7.00", "0"},
                                                {"7.00 to 7.00", "0"},
                                                {"7.00 to 7.00", "0"},
                                                {"7.00 to 7.00", "0"}}));
}

// The range fails and stays 0. Then every edge is the minimum, and what lies above it is above the last edge.
TEST(ChartData, ARangeBeyondADoubleCountsAs0) {
  const Rows rows = RowsOf(Histogram({-1.5e308, 1.5e308, -1.5e308}));
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[0][1], "2");
  EXPECT_EQ(rows[4][1], "1");
  EXPECT_EQ(rows[0][0], rows[4][0]);
}

// 1 to 5 by 0.8, of which none has more than 1; and 3 to 13 by 2, with three values in the first.
TEST(ChartData, ChartsThatShareAxesKeepTheirOwnIntervals) {
  Chart one = Histogram({1, 2, 3, 4, 5});
  Chart two = Histogram({3, 3, 4, 13});
  ShareAxes(one, two);
  for (const Chart& chart : {WithRows(one), WithRows(two)}) {
    ASSERT_TRUE(chart.axes);
    EXPECT_EQ(chart.axes->low, 1);
    EXPECT_EQ(chart.axes->high, 13);
    EXPECT_EQ(chart.axes->most, 3);
  }
  EXPECT_EQ(RowsOf(two)[0], (std::vector<std::string>{"3.00 to 5.00", "3"}));
  EXPECT_EQ(WithRows(two).edges, (std::vector<double>{3, 5, 7, 9, 11, 13}));
  EXPECT_EQ(RowsOf(one), RowsOf(Histogram({1, 2, 3, 4, 5})));
}

TEST(ChartData, AnEmptyNeighbourSharesNothing) {
  Chart one = Histogram({1, 2});
  Chart none = Histogram({});
  ShareAxes(one, none);
  EXPECT_FALSE(WithRows(one).axes);
  EXPECT_FALSE(WithRows(none).axes);
  EXPECT_FALSE(WithRows(Histogram({1, 2})).axes);
}

TEST(ChartData, NoValuesHaveNoRows) {
  EXPECT_TRUE(ChartRows(Histogram({})).empty());
  EXPECT_TRUE(ChartRows(IntervalChart(ChartType::kLine, "T", "X", nullptr)).empty());
  EXPECT_TRUE(ChartRows(ScatterChart("T", "X", "Y", nullptr, Values({1}))).empty());
  EXPECT_TRUE(ChartRows(BarsChart("T", "", "", {}, {})).empty());
  EXPECT_TRUE(ChartRows(Chart()).empty());
}

TEST(ChartData, AScatterChartsRowsAreItsPoints) {
  const Chart chart = ScatterChart("A by B", "X axis variable - A", "Y axis variable - B", Values({1, -2.5, 3}),
                                   Values({10, 0.25, 30}));
  EXPECT_EQ(RowsOf(chart), (Rows{{"1", "10"}, {"-2.5", "0.25"}, {"3", "30"}}));
  EXPECT_EQ(RowsOf(ScatterChart("", "", "", Values({1, 2}), Values({5}))), (Rows{{"1", "5"}}));
  EXPECT_EQ(ChartRowsText(chart), "1\t10\r\n-2.5\t0.25\r\n3\t30\r\n");
}

TEST(ChartData, RowsTextNamesSeveralSeriesAlone) {
  EXPECT_EQ(ChartRowsText(TwoBars()), "Male  (40.0%)\t2\r\nFemale  (60.0%)\t3\r\n");
  EXPECT_EQ(ChartRowsText(BarsChart("", "", "", {"a"}, {{"x\t1", {1}}, {"y", {2}}})), "\tx 1\ty\r\na\t1\t2\r\n");
}

class ChartStoreTest : public testing::Test {
 protected:
  void Keep(std::size_t variables, std::vector<Chart> charts) {
    store.SelectedVariableCount = variables;
    KeepCharts(store, ChartKind::kFrequencies, std::move(charts));
  }

  ChartStore store;
  ScriptedPlatform platform;
};

TEST_F(ChartStoreTest, ClearChartsLeavesNoViewATitle) {
  Keep(1, {TwoBars(), TwoBars()});
  store.summary = "Descriptive Statistics";
  const std::uint64_t revision = store.Revision;
  ClearCharts(store);
  EXPECT_TRUE(store.charts.empty());
  EXPECT_EQ(store.kind, ChartKind::kNone);
  EXPECT_EQ(store.summary, "");
  EXPECT_EQ(ChartsText(store), "");
  EXPECT_GT(store.Revision, revision);
}

TEST_F(ChartStoreTest, ChartsBeyondTheFourViewsAreLeftOut) {
  const std::uint64_t revision = store.Revision;
  Keep(1, std::vector<Chart>(5, TwoBars()));
  EXPECT_EQ(store.charts.size(), kChartViews);
  EXPECT_GT(store.Revision, revision);
}

TEST_F(ChartStoreTest, AViewOfARunOfTwoVariablesHasNoChart) {
  Keep(2, {TwoBars()});
  EXPECT_FALSE(ShowChart(store, 0, platform));
  ASSERT_EQ(platform.messages.size(), 1u);
  EXPECT_EQ(platform.messages[0].title, "No Chart Available");
  EXPECT_EQ(platform.messages[0].text,
            "Charts are not shown when there is more than one variable in a stat procedure list box.");
}

TEST_F(ChartStoreTest, AViewWithoutAChartSaysSo) {
  Keep(1, {TwoBars(), TwoBars()});
  EXPECT_FALSE(ShowChart(store, 2, platform));
  ClearCharts(store);
  EXPECT_FALSE(ShowChart(store, 0, platform));
  ASSERT_EQ(platform.messages.size(), 2u);
  for (const MessageBox& box : platform.messages) {
    EXPECT_EQ(box.title, "No Chart Available");
    EXPECT_EQ(box.text, "Charts are not available for this procedure.");
  }
}

TEST_F(ChartStoreTest, AViewIsShownWithItsRowsAndTitles) {
  Chart chart = Histogram({1, 2, 3});
  chart.footnote = "Controlling for SEX = 1";
  Keep(1, {TwoBars(), chart});
  const std::optional<Chart> shown = ShowChart(store, 1, platform);
  ASSERT_TRUE(shown);
  EXPECT_TRUE(platform.messages.empty());
  EXPECT_EQ(shown->title, "Histogram");
  EXPECT_EQ(shown->footnote, "Controlling for SEX = 1");
  EXPECT_EQ(shown->labels.size(), 5u);
  ASSERT_EQ(shown->series.size(), 1u);
  EXPECT_EQ(shown->series[0].values, (std::vector<double>{1, 0, 1, 0, 1}));  // edges 1.4, 1.8, 2.2, 2.6
  EXPECT_EQ(shown->type, ChartType::kHistogram);
}

TEST_F(ChartStoreTest, TextOfAllChartsIsTabDelimited) {
  Chart bars = TwoBars();
  bars.footnote = "Controlling for\tAGE";
  bars.title = "SEX\r\nof the\tpatients";
  bars.labels[0] = "Ma\tle\n";
  Keep(1, {bars, ScatterChart("", "X", "Y", Values({1}), Values({2}))});
  EXPECT_EQ(ChartsText(store),
            "chart\tSEX  of the patients\tSex\tFrequency\tControlling for AGE\r\n"
            "Ma le \t2\r\n"
            "Female  (60.0%)\t3\r\n"
            "chart\t\tX\tY\t\r\n"
            "1\t2\r\n");
}

}  // namespace
}  // namespace tessara
