#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "data/data_set.h"
#include "numerics/checked.h"
#include "numerics/random_numbers.h"

// The sampling distribution of one variable: many random samples of its records, and of each its mean and standard
// deviation.

namespace tessara {

// The records of the variable that is sampled.
struct SampledVariable {
  std::vector<std::uint8_t> kept;       // 0 where the value is missing
  std::vector<std::uint8_t> is_number;  // a kept text is none
  std::vector<double> values;
};
SampledVariable GatherSampledVariable(const DataSet& data, std::size_t column);

struct SampleStatistics {
  double mean = 0;
  double deviation = 0;
  std::size_t count = 0;  // of the values that are not missing
};

// Draws samples one after the other. The sum of the values that are not missing is divided by the size of the sample,
// missing or not; the squares of their deviations by that size less 1. What fails keeps its former value: a text counts
// as the number read before it, whatever sample that was in, and a deviation that cannot be computed is that of the
// sample before.
class SampleDrawing {
 public:
  SampleDrawing(const SampledVariable& variable, std::size_t sample_size)
      : variable_(variable), sample_size_(sample_size) {
    inputs_.reserve(sample_size);
  }

  // The sample is made of the first records of the order.
  SampleStatistics Next(const std::uint32_t* order);

 private:
  void ReadInputs(const std::uint32_t* order);

  const SampledVariable& variable_;
  std::size_t sample_size_;
  std::vector<double> inputs_;  // of the sums, from the sample at hand
  bool has_texts_ = false;      // among them
  double input_ = 0;            // read last, in this sample or in one before
  Number mean_, deviation_;
};

struct SamplingPlan {
  std::size_t sample_size = 0;
  std::size_t iterations = 0;
};

// All samples; each shuffles all records anew. `told(k)` is called ahead of sample k, counted from 1.
std::vector<SampleStatistics> DrawSamples(const SampledVariable& variable, const SamplingPlan& plan,
                                          RandomNumbers& random, const std::function<void(std::size_t k)>& told);

// The samples as data: a record each, with the variables IterNum, Mean, StdDev and Count.
DataMatrix DistributionMatrix(const std::vector<SampleStatistics>& samples);
inline constexpr std::size_t kMeanColumn = 2;
inline constexpr std::size_t kDistributionColumns = 4;

}  // namespace tessara
