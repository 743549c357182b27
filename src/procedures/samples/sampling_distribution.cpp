#include "procedures/samples/sampling_distribution.h"

#include <array>
#include <string_view>

#include "data/column_builder.h"
#include "data/missing_test.h"
#include "numerics/sums.h"
#include "procedures/samples/record_shuffle.h"

namespace tessara {

SampledVariable GatherSampledVariable(const DataSet& data, std::size_t column) {
  const std::size_t records = data.RecordCount;
  const NumericColumn& numbers = data.matrix.Numbers(column, records);
  const MissingValues missing_values = LoadMissingSet(data.matrix, column);
  const MissingTest missing(data.matrix, column, missing_values, numbers);
  SampledVariable variable{
      .kept = std::vector<std::uint8_t>(records),
      .is_number = std::vector<std::uint8_t>(records),
      .values = {numbers.values.begin(), numbers.values.begin() + static_cast<std::ptrdiff_t>(records)}};
  for (std::size_t record = 0; record < records; ++record) {
    variable.kept[record] = missing.Drops(record) ? 0 : 1;
    variable.is_number[record] = numbers.classes[record] == CellClass::kNumber ? 1 : 0;
  }
  return variable;
}

void SampleDrawing::ReadInputs(const std::uint32_t* order) {
  inputs_.clear();
  has_texts_ = false;
  for (std::size_t i = 0; i < sample_size_; ++i) {
    const std::uint32_t record = order[i];
    if (variable_.kept[record] == 0) continue;
    if (variable_.is_number[record] != 0) {
      input_ = variable_.values[record];
    } else {
      has_texts_ = true;
    }
    inputs_.push_back(input_);
  }
}

SampleStatistics SampleDrawing::Next(const std::uint32_t* order) {
  const auto n = static_cast<double>(sample_size_);
  ReadInputs(order);
  mean_ = SumInOrder(inputs_.size(), [this](std::size_t i) { return inputs_[i]; }) / Checked(n);
  // The second pass goes on with the number that the first one has read last.
  if (has_texts_) ReadInputs(order);
  const double mean = mean_.value();
  const double squares =
      SumInOrder(inputs_.size(), [this, mean](std::size_t i) { return (inputs_[i] - mean) * (inputs_[i] - mean); });
  deviation_ = Sqrt(Checked(squares) / (n - 1));
  return {mean, deviation_.value(), inputs_.size()};
}

std::vector<SampleStatistics> DrawSamples(const SampledVariable& variable, const SamplingPlan& plan,
                                          RandomNumbers& random, const std::function<void(std::size_t k)>& told) {
  const std::size_t records = variable.values.size();
  std::vector<SampleStatistics> samples;
  samples.reserve(plan.iterations);
  RecordShuffle shuffle(records);
  SampleDrawing drawing(variable, plan.sample_size);
  for (std::size_t k = 1; k <= plan.iterations; ++k) {
    told(k);
    samples.push_back(drawing.Next(shuffle.Shuffle(records, random).data()));
  }
  return samples;
}

DataMatrix DistributionMatrix(const std::vector<SampleStatistics>& samples) {
  constexpr std::array<std::string_view, kDistributionColumns> kNames = {"IterNum", "Mean", "StdDev", "Count"};
  std::array<ColumnBuilder, kDistributionColumns> builders;
  for (std::size_t i = 0; i < kNames.size(); ++i) builders[i].PutHeader(kVariableNameRow, kNames[i]);
  builders[1].ShowFiveDecimals();
  builders[2].ShowFiveDecimals();
  for (std::size_t record = 0; record < samples.size(); ++record) {
    const SampleStatistics& sample = samples[record];
    builders[0].Put(record, static_cast<double>(record + 1));
    builders[1].Put(record, sample.mean);
    builders[2].Put(record, sample.deviation);
    builders[3].Put(record, static_cast<double>(sample.count));
  }
  std::vector<Column> columns;
  for (ColumnBuilder& builder : builders) columns.push_back(builder.Take());
  DataMatrix matrix(kFirstRecordRow + samples.size(), kDistributionColumns);
  matrix.ExchangeColumns(1, kDistributionColumns, columns);
  return matrix;
}

}  // namespace tessara
