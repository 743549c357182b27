#include <benchmark/benchmark.h>

#include <string>

#include "bench_data.h"
#include "data/change_door.h"
#include "procedures/samples/create_sample.h"
#include "procedures/samples/create_subset.h"
#include "procedures/samples/run_iterations.h"

// Samples and subsets of all records; undo brings the data back untimed.

namespace tessara {
namespace {

// So many percent of the records.
void DrawSample(benchmark::State& state) {
  BenchData bench;
  RandomNumbers random(1);
  const std::size_t size = bench.data.RecordCount * static_cast<std::size_t>(state.range(0)) / 100;
  const SamplePanel samples{.Text8 = std::to_string(size), .Text15 = {}, .Text16 = {}};
  for (auto _ : state) {
    CreateSample(bench.data, samples, random, bench.platform);
    state.PauseTiming();
    UndoChange(bench.data);
    state.ResumeTiming();
  }
}
BENCHMARK(DrawSample)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

// What it costs to read a variable of a sample for the first time: its records stand all over the file.
void DescriptivesOfASample(benchmark::State& state) {
  BenchData bench;
  RandomNumbers random(1);
  const SamplePanel samples{.Text8 = std::to_string(bench.data.RecordCount), .Text15 = {}, .Text16 = {}};
  for (auto _ : state) {
    state.PauseTiming();
    CreateSample(bench.data, samples, random, bench.platform);
    state.ResumeTiming();
    bench.Run(Procedure::kDescriptives, kNumberColumn);
    state.PauseTiming();
    UndoChange(bench.data);
    state.ResumeTiming();
  }
}
BENCHMARK(DescriptivesOfASample)->Unit(benchmark::kMillisecond)->Iterations(5);

// Samples of 100 out of the first 10,000 records.
void DrawIterations(benchmark::State& state) {
  BenchData bench;
  RecordOrder first(10000);
  for (std::uint32_t i = 0; i < first.size(); ++i) first[i] = i;
  ApplyChange(bench.data, ChooseRecords(bench.data, first, "First"));
  RandomNumbers random(1);
  const SamplePanel samples{.Text8 = {}, .Text15 = "100", .Text16 = "1000"};
  for (auto _ : state) {
    RunIterations(bench.data, samples, kNumberColumn, bench.output, bench.charts, random, bench.platform);
    state.PauseTiming();
    UndoChange(bench.data);
    state.ResumeTiming();
  }
}
BENCHMARK(DrawIterations)->Unit(benchmark::kMillisecond);

void Subset(benchmark::State& state) {
  BenchData bench;
  for (auto _ : state) {
    bench.platform.message_answers = {Answer::kYes};
    CreateSubset(bench.data, kCodedColumn, {ControlRelation::kEqualTo, "3"}, bench.platform);
    state.PauseTiming();
    UndoChange(bench.data);
    state.ResumeTiming();
  }
}
BENCHMARK(Subset)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessara
