#include "procedures/samples/sampling_distribution.h"

#include <gtest/gtest.h>

#include <cmath>

#include "procedures/tests/test_data.h"

namespace tessara {
namespace {

using Order = std::vector<std::uint32_t>;

SampledVariable Variable(const std::vector<const char*>& cells, const std::string& missing_spec = {}) {
  return GatherSampledVariable(MakeTestData({{.name = "X", .cells = Texts(cells), .missing_spec = missing_spec}}), 1);
}

void ExpectSample(const SampleStatistics& sample, double mean, double deviation, std::size_t count) {
  EXPECT_DOUBLE_EQ(sample.mean, mean);
  EXPECT_DOUBLE_EQ(sample.deviation, deviation);
  EXPECT_EQ(sample.count, count);
}

TEST(SampleDrawing, MeanAndDeviationOfTheFirstRecordsOfTheOrder) {
  const SampledVariable variable = Variable({"2", "4", "9", "100"});
  SampleDrawing drawing(variable, 3);
  // 2, 4, 9: mean 5, squares 9 + 1 + 16 = 26, over 2.
  ExpectSample(drawing.Next(Order{2, 0, 1, 3}.data()), 5, std::sqrt(13.0), 3);
}

// The divisor is the size of the sample: half of the cells missing halve the mean.
TEST(SampleDrawing, MissingCellsLowerTheMean) {
  const SampledVariable variable = Variable({"10", "", "10", "99"}, "99||||||");
  SampleDrawing drawing(variable, 4);
  // Sum 20 over 4 is 5; squares of the two that are kept 25 + 25, over 3.
  ExpectSample(drawing.Next(Order{0, 1, 2, 3}.data()), 5, std::sqrt(50.0 / 3), 2);
}

TEST(SampleDrawing, OutsideTheBoundsIsMissingAndATextFailsThatTest) {
  const SampledVariable variable = Variable({"1", "5", "20", "abc"}, "||||2|9|");
  EXPECT_EQ(variable.kept, (std::vector<std::uint8_t>{0, 1, 0, 0}));
}

// A text leaves the number read before it, which counts again; the second pass goes on where the first one ended, and
// the next sample where that one ended.
TEST(SampleDrawing, ATextCountsAsTheNumberBeforeIt) {
  const SampledVariable variable = Variable({"3", "abc", "6"});
  SampleDrawing drawing(variable, 2);
  // The first text of all counts as 0: 0 and 6, mean 3. In the second pass the text counts as 6: 9 + 9.
  ExpectSample(drawing.Next(Order{1, 2, 0}.data()), 3, std::sqrt(18.0), 2);
  // 3 and again 3.
  ExpectSample(drawing.Next(Order{0, 1, 2}.data()), 3, 0, 2);
  // The text counts as the 3 of the sample before: 3 and 6, mean 4.5; in the second pass it counts as 6: 2.25 + 2.25.
  ExpectSample(drawing.Next(Order{1, 2, 0}.data()), 4.5, std::sqrt(4.5), 2);
}

TEST(SampleDrawing, ADeviationOfOneRecordKeepsTheFormerOne) {
  const SampledVariable variable = Variable({"3", "8"});
  SampleDrawing drawing(variable, 1);
  ExpectSample(drawing.Next(Order{1, 0}.data()), 8, 0, 1);  // there is none before
  ExpectSample(drawing.Next(Order{0, 1}.data()), 3, 0, 1);
}

TEST(SampleDrawing, WhatLeavesTheRangeOfADoubleIsLeftOut) {
  const SampledVariable variable = Variable({"1e308", "1e308", "0"});
  SampleDrawing drawing(variable, 2);
  // The second step of the sum fails; so do both squares.
  ExpectSample(drawing.Next(Order{0, 1, 2}.data()), 5e307, 0, 2);
}

TEST(SampleDrawing, ASampleWithoutAValueHasTheMeanZero) {
  const SampledVariable variable = Variable({"", "", "4"});
  SampleDrawing drawing(variable, 2);
  ExpectSample(drawing.Next(Order{0, 1, 2}.data()), 0, 0, 0);
}

// The orders and sums worked out from the recurrence of the generator by another program.
TEST(DrawSamples, ShufflesAllRecordsForEachSample) {
  const SampledVariable variable = Variable({"3", "", "5", "abc", "7", "9", "11", "20"});
  RandomNumbers random(7);
  std::vector<std::size_t> told;
  const auto samples =
      DrawSamples(variable, {.sample_size = 3, .iterations = 5}, random, [&](std::size_t k) { told.push_back(k); });
  ASSERT_EQ(samples.size(), 5u);
  ExpectSample(samples[0], 7, 2, 3);
  ExpectSample(samples[1], 10.666666666666666, 8.621678104251709, 3);
  ExpectSample(samples[2], 14, 5.196152422706632, 3);
  ExpectSample(samples[3], 7.666666666666667, 9.324400487132909, 2 + 0);
  ExpectSample(samples[4], 7.666666666666667, 4.163331998932266, 3);
  EXPECT_EQ(told, (std::vector<std::size_t>{1, 2, 3, 4, 5}));
}

TEST(DistributionMatrix, HasARecordForEachSampleAsNumbers) {
  const DataMatrix matrix =
      DistributionMatrix({{.mean = 2.5, .deviation = 1.25, .count = 3}, {.mean = -1, .count = 2}});
  EXPECT_EQ(matrix.RowCount(), 18u);
  ASSERT_EQ(matrix.ColumnCount(), 4u);
  const char* names[] = {"IterNum", "Mean", "StdDev", "Count"};
  const double cells[][2] = {{1, 2}, {2.5, -1}, {1.25, 0}, {3, 2}};
  for (std::size_t column = 1; column <= 4; ++column) {
    for (std::size_t row = 0; row < kVariableNameRow; ++row) EXPECT_TRUE(matrix.Cell(row, column).is_empty());
    EXPECT_EQ(matrix.Cell(kVariableNameRow, column), TaggedView(names[column - 1]));
    EXPECT_EQ(matrix.Cell(16, column), TaggedView(cells[column - 1][0]));
    EXPECT_EQ(matrix.Cell(17, column), TaggedView(cells[column - 1][1]));
    EXPECT_EQ(matrix.ColumnAt(column).ShowsFiveDecimals(), column == 2 || column == 3);
  }
}

}  // namespace
}  // namespace tessara
