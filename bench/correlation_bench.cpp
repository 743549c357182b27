// Correlation, the correlation matrix and the listing, after a load and the first parse of the columns.

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

#include "bench_data.h"

namespace tessara {
namespace {

void RunPanel(BenchData& bench) {
  bench.data.SelectedVariableCount = bench.panel.SelectedVariables.size();
  tessara::Run(bench.data, bench.panel, bench.output, bench.charts, bench.platform);
  bench.output = {};
}

void RunAgain(benchmark::State& state, BenchData& bench) {
  RunPanel(bench);
  for (auto _ : state) RunPanel(bench);
}

void Correlation(benchmark::State& state) {
  BenchData bench;
  bench.panel.selected = Procedure::kCorrelation;
  bench.panel.SelectedVariables = {kNumberColumn};
  bench.panel.IndependentVariables = {kNumberColumn + 1};
  RunAgain(state, bench);
}
BENCHMARK(Correlation)->Unit(benchmark::kMillisecond);

// The p of unrelated variables takes a step for every second degree of freedom.
void CorrelationOfUnrelatedVariables(benchmark::State& state) {
  BenchData bench;
  bench.panel.selected = Procedure::kCorrelation;
  bench.panel.SelectedVariables = {kNumberColumn};
  bench.panel.IndependentVariables = {kSexColumn};
  RunAgain(state, bench);
}
BENCHMARK(CorrelationOfUnrelatedVariables)->Unit(benchmark::kMillisecond);

void CorrelationMatrixOfSix(benchmark::State& state) {
  BenchData bench;
  bench.panel.selected = Procedure::kCorrelation;
  bench.panel.checks.Check2 = true;
  for (std::size_t i = 0; i < 6; ++i) bench.panel.SelectedVariables.push_back(kNumberColumn + i);
  RunAgain(state, bench);
}
BENCHMARK(CorrelationMatrixOfSix)->Unit(benchmark::kMillisecond);

void ListOfSeven(benchmark::State& state) {
  BenchData bench;
  bench.panel.selected = Procedure::kListVariables;
  for (std::size_t i = 0; i < 7; ++i) bench.panel.SelectedVariables.push_back(kNumberColumn + i);
  RunAgain(state, bench);
}
BENCHMARK(ListOfSeven)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessara
