// The procedures of two and more variables, behind the load and the first parse of their columns.

#include <benchmark/benchmark.h>

#include "bench_data.h"

namespace tessara {
namespace {

constexpr std::size_t kX1 = kNumberColumn;
constexpr std::size_t kX2 = kX1 + 1;
constexpr std::size_t kX3 = kX1 + 2;
constexpr std::size_t kX4 = kX1 + 3;
constexpr std::size_t kX5 = kX1 + 4;
constexpr std::size_t kX6 = kX1 + 5;

// The first run parses the columns and is not timed.
void Time(benchmark::State& state, BenchData& bench, Procedure procedure, const std::vector<std::size_t>& columns,
          const std::vector<std::size_t>& independents) {
  bench.Run(procedure, columns, independents);
  for (auto _ : state) bench.Run(procedure, columns, independents);
}

void Crosstab5By6(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.crosstabulation = {
      .association = true, .chi_square_tests = true, .agreement = true, .risk = true};
  Time(state, bench, Procedure::kCrosstabulation, {kCodedColumn}, {kRegionColumn});
}
BENCHMARK(Crosstab5By6)->Unit(benchmark::kMillisecond);

void TTest(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.t_test = {"1", "2"};
  Time(state, bench, Procedure::kTTest, {kX1}, {kSexColumn});
}
BENCHMARK(TTest)->Unit(benchmark::kMillisecond);

void AnovaOver5Groups(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.anova = {.summary = true, .post_hoc = true};
  Time(state, bench, Procedure::kAnova, {kX1}, {kCodedColumn});
}
BENCHMARK(AnovaOver5Groups)->Unit(benchmark::kMillisecond);

void Correlation(benchmark::State& state) {
  BenchData bench;
  Time(state, bench, Procedure::kCorrelation, {kX1}, {kX2});
}
BENCHMARK(Correlation)->Unit(benchmark::kMillisecond);

// A group for every case.
void AnovaOverAMillionGroups(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.anova = {.summary = true, .post_hoc = true};
  for (auto _ : state) bench.Run(Procedure::kAnova, {kX1}, {kIdColumn});
}
BENCHMARK(AnovaOverAMillionGroups)->Unit(benchmark::kMillisecond)->Iterations(2);

// The p of unrelated variables takes a step for every second degree of freedom.
void CorrelationOfUnrelatedVariables(benchmark::State& state) {
  BenchData bench;
  Time(state, bench, Procedure::kCorrelation, {kX1}, {kSexColumn});
}
BENCHMARK(CorrelationOfUnrelatedVariables)->Unit(benchmark::kMillisecond);

void CorrelationMatrix6By6(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.correlation.create_matrix = true;
  Time(state, bench, Procedure::kCorrelation, {kX1, kX2, kX3, kX4, kX5, kX6}, {});
}
BENCHMARK(CorrelationMatrix6By6)->Unit(benchmark::kMillisecond);

void LeastSquares5Predictors(benchmark::State& state) {
  BenchData bench;
  Time(state, bench, Procedure::kRegression, {kX1}, {kX2, kX3, kX4, kX5, kAgeColumn});
}
BENCHMARK(LeastSquares5Predictors)->Unit(benchmark::kMillisecond);

void Logistic5Predictors(benchmark::State& state) {
  BenchData bench;
  bench.panel.regression = RegressionKind::kLogistic;
  Time(state, bench, Procedure::kRegression, {kOutcomeColumn}, {kX1, kX2, kX3, kAgeColumn, kSexColumn});
}
BENCHMARK(Logistic5Predictors)->Unit(benchmark::kMillisecond);

void ListOf7Variables(benchmark::State& state) {
  BenchData bench;
  Time(state, bench, Procedure::kListVariables, {1, kX1, kX2, kX3, kX4, kX5, kX6}, {});
}
BENCHMARK(ListOf7Variables)->Unit(benchmark::kMillisecond);

void ExploreOver5Groups(benchmark::State& state) {
  BenchData bench;
  Time(state, bench, Procedure::kExplore, {kX1}, {kCodedColumn});
}
BENCHMARK(ExploreOver5Groups)->Unit(benchmark::kMillisecond);

// The table is full behind the first run: what is timed writes the same figures anew.
void CategoricalTable5By6(benchmark::State& state) {
  BenchData bench;
  bench.panel.options.summary_tables = {.counts = true, .percent = true};
  Time(state, bench, Procedure::kSummaryTables, {kCodedColumn}, {kRegionColumn});
}
BENCHMARK(CategoricalTable5By6)->Unit(benchmark::kMillisecond);

void ContinuousTableOver5Groups(benchmark::State& state) {
  BenchData bench;
  bench.panel.table_data = TableData::kContinuous;
  bench.panel.options.summary_tables = {.count = true, .mean = true, .standard_deviation = true, .interval = true};
  Time(state, bench, Procedure::kSummaryTables, {kX1}, {kCodedColumn});
}
BENCHMARK(ContinuousTableOver5Groups)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessara
