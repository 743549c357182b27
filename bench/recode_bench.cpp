// New variables, find and replace: each run on all records, behind the first parse of its columns.

#include <benchmark/benchmark.h>

#include "bench_data.h"
#include "data/change_door.h"
#include "data/recode/find_cells.h"
#include "data/recode/follow_recode.h"
#include "data/recode/recode_run.h"

namespace tessara {
namespace {

constexpr std::size_t kDateColumn = 20;

struct RecodeBench : BenchData {
  RecodeBench() {
    data.history.SetLimit(0);
    FollowRecodeData(recode, data);
    for (const std::size_t column : {kCodedColumn, kAgeColumn, kNumberColumn, kNumberColumn + 1}) {
      data.matrix.Numbers(column, data.RecordCount);
    }
  }

  void Open(RecodeMode mode, std::size_t column) {
    OpenRecodePanel(recode, data, mode);
    PickRecodeVariable(recode, column);
  }
  void OpenTwo(RecodeMode mode, std::size_t first, std::size_t second) {
    Open(mode, first);
    CopyVariable1(recode, data, platform);
    PickRecodeVariable(recode, second);
    CopyVariable2(recode, data, platform);
    recode.DateVar = "NEW";
  }
  // A run that adds a variable, which goes again.
  void Measure(benchmark::State& state) {
    const std::size_t variables = data.VariableCount;
    for (auto _ : state) {
      const RecodeOutcome outcome = RunRecodePanel(recode, data, platform);
      state.PauseTiming();
      if (outcome.refused) state.SkipWithError("the run was refused");
      while (data.VariableCount > variables) ApplyChange(data, RemoveColumns(data, data.VariableCount, 1, {}));
      recode.NewVariableMade = false;
      state.ResumeTiming();
    }
  }

  RecodePanel recode;
};

void Recode(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kRecode, kAgeColumn);
  bench.recode.NewVar = "NEW";
  bench.recode.OldValue = "50";
  bench.recode.NewValue = "older";
  bench.recode.recode_option = static_cast<RecodeOption>(state.range(0));
  bench.Measure(state);
}
BENCHMARK(Recode)->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond)->UseRealTime();

void RecodeDates(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kRecode, kDateColumn);
  bench.recode.NewVar = "NEW";
  bench.recode.OldValue = "1/1/2022";
  bench.recode.NewValue = "late";
  bench.recode.recode_option = RecodeOption::kGreaterThan;
  bench.recode.Check2 = true;
  bench.Measure(state);
}
BENCHMARK(RecodeDates)->Unit(benchmark::kMillisecond)->UseRealTime();

void Compute(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kCompute, kNumberColumn);
  bench.recode.Text1 = "NEW";
  bench.recode.Text2 = "2.5";
  bench.recode.compute_option = static_cast<ComputeOption>(state.range(0));
  bench.Measure(state);
}
BENCHMARK(Compute)->Arg(1)->Arg(4)->Arg(5)->Unit(benchmark::kMillisecond)->UseRealTime();

void ComputeLogarithm(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kCompute, kNumberColumn);
  bench.recode.Text1 = "NEW";
  bench.recode.Check3 = true;
  bench.Measure(state);
}
BENCHMARK(ComputeLogarithm)->Unit(benchmark::kMillisecond)->UseRealTime();

void Duplicate(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kCompute, kNumberColumn);
  bench.recode.Text1 = "NEW";
  bench.recode.Check1 = true;
  bench.Measure(state);
}
BENCHMARK(Duplicate)->Unit(benchmark::kMillisecond)->UseRealTime();

void Combine(benchmark::State& state) {
  RecodeBench bench;
  bench.OpenTwo(RecodeMode::kCombine, kNumberColumn, kNumberColumn + 1);
  bench.recode.combine_option = static_cast<CombineOption>(state.range(0));
  bench.Measure(state);
}
BENCHMARK(Combine)->Arg(1)->Arg(4)->Unit(benchmark::kMillisecond)->UseRealTime();

void CompareTwoDates(benchmark::State& state) {
  RecodeBench bench;
  for (auto _ : state) {
    state.PauseTiming();
    bench.OpenTwo(RecodeMode::kCompareDates, kDateColumn, kDateColumn);  // a run empties the boxes
    state.ResumeTiming();
    RunRecodePanel(bench.recode, bench.data, bench.platform);
    state.PauseTiming();
    ApplyChange(bench.data, RemoveColumns(bench.data, bench.data.VariableCount, 1, {}));
    state.ResumeTiming();
  }
}
BENCHMARK(CompareTwoDates)->Unit(benchmark::kMillisecond)->UseRealTime();

void Trim(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kTrim, kNumberColumn);
  bench.recode.Text4 = "NEW";
  bench.recode.Text5 = "30";
  bench.recode.Text6 = "70";
  bench.Measure(state);
}
BENCHMARK(Trim)->Unit(benchmark::kMillisecond)->UseRealTime();

// Back and forth, so that each run changes cells.
void ReplaceAndUndo(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kReplace, kRegionColumn);
  bench.recode.Text12 = "th";
  bench.recode.Text13 = "TH";
  for (auto _ : state) {
    RunRecodePanel(bench.recode, bench.data, bench.platform);
    if (state.range(0) == 0) state.PauseTiming();
    UndoReplace(bench.recode, bench.data);
    if (state.range(0) == 0) state.ResumeTiming();
  }
}
BENCHMARK(ReplaceAndUndo)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

// A search that runs through the whole column, and the count of its matches.
void Find(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kFind, kRegionColumn);
  bench.recode.Text12 = "nowhere";
  for (auto _ : state) {
    benchmark::DoNotOptimize(RunRecodePanel(bench.recode, bench.data, bench.platform).found_row);
    benchmark::DoNotOptimize(CountMatches(bench.recode, bench.data));
  }
}
BENCHMARK(Find)->Unit(benchmark::kMillisecond)->UseRealTime();

// What a keystroke costs: a rule that no record meets.
void Preview(benchmark::State& state) {
  RecodeBench bench;
  bench.Open(RecodeMode::kRecode, kNumberColumn);
  bench.recode.NewVar = "NEW";
  bench.recode.OldValue = "-1000";
  bench.recode.NewValue = "low";
  bench.recode.recode_option = RecodeOption::kLessThan;
  for (auto _ : state) benchmark::DoNotOptimize(PreviewRecode(bench.recode, bench.data, 5, 20000).looked_at);
}
BENCHMARK(Preview)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace tessara
