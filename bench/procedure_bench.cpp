// The procedures after a load.

#include <benchmark/benchmark.h>

#include "bench_data.h"

namespace tessara {
namespace {

void Frequencies(benchmark::State& state) {
  BenchData bench;
  for (auto _ : state) bench.Run(Procedure::kFrequencies, kCodedColumn);
}
BENCHMARK(Frequencies)->Unit(benchmark::kMillisecond);

void FrequenciesWithControl(benchmark::State& state) {
  BenchData bench;
  bench.panel.control_variable.column = kSexColumn;
  bench.panel.control = {ControlRelation::kEqualTo, "1"};
  for (auto _ : state) bench.Run(Procedure::kFrequencies, kCodedColumn);
}
BENCHMARK(FrequenciesWithControl)->Unit(benchmark::kMillisecond);

void DescriptivesTheFirstTime(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    BenchData bench;
    state.ResumeTiming();
    bench.Run(Procedure::kDescriptives, kNumberColumn);
  }
}
BENCHMARK(DescriptivesTheFirstTime)->Unit(benchmark::kMillisecond)->Iterations(5);

void DescriptivesAgain(benchmark::State& state) {
  BenchData bench;
  bench.Run(Procedure::kDescriptives, kNumberColumn);
  for (auto _ : state) bench.Run(Procedure::kDescriptives, kNumberColumn);
}
BENCHMARK(DescriptivesAgain)->Unit(benchmark::kMillisecond);

void DescriptivesWithControl(benchmark::State& state) {
  BenchData bench;
  bench.panel.control_variable.column = kAgeColumn;
  bench.panel.control = {ControlRelation::kGreaterThan, "40"};
  bench.Run(Procedure::kDescriptives, kNumberColumn);
  for (auto _ : state) bench.Run(Procedure::kDescriptives, kNumberColumn);
}
BENCHMARK(DescriptivesWithControl)->Unit(benchmark::kMillisecond);

void ZScores(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.descriptives.save_z_scores = true;
  for (auto _ : state) bench.Run(Procedure::kDescriptives, kNumberColumn);
}
BENCHMARK(ZScores)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace
}  // namespace tessara
