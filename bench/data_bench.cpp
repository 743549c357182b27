// The data store: reading, finding the field ends, loading, saving, text in and out, and what a change costs.

#include <benchmark/benchmark.h>

#include <bit>
#include <memory>

#include "bench_data.h"
#include "data/change_door.h"
#include "data/exchange/export.h"
#include "data/exchange/import.h"
#include "data/exchange/split.h"
#include "data/field_ends.h"
#include "platform/files.h"

namespace tessara {
namespace {

void ReadFile(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ReadWholeFile(BenchFile()));
}
BENCHMARK(ReadFile)->Unit(benchmark::kMillisecond)->UseRealTime();

// The floor for a load: the bytes read, and the end of every field noted.
void ReadAndFindFieldEnds(benchmark::State& state) {
  for (auto _ : state) {
    const auto bytes = ReadWholeFile(BenchFile());
    const auto ends = std::make_unique_for_overwrite<std::uint32_t[]>(bytes->size());  // untouched pages cost nothing
    std::size_t count = 0;
    for (std::size_t at = 0; at < bytes->size(); at += 64) {
      for (std::uint64_t bits = FieldEnds(bytes->data() + at); bits != 0; bits &= bits - 1) {
        ends[count++] = static_cast<std::uint32_t>(at) + static_cast<std::uint32_t>(std::countr_zero(bits));
      }
    }
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(ReadAndFindFieldEnds)->Unit(benchmark::kMillisecond)->UseRealTime();

void Load(benchmark::State& state) {
  for (auto _ : state) {
    BenchData bench;
    benchmark::DoNotOptimize(bench.data.RecordCount);
  }
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond)->UseRealTime();

void Save(benchmark::State& state) {
  BenchData bench;
  const Path target = BenchFile().string() + ".saved";
  for (auto _ : state) {
    SaveDataFileTo(bench.data, bench.platform, target);
  }
  std::filesystem::remove(target);
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same records as comma-separated text: TESSARA_BENCH_TEXT names the file.
void Import(benchmark::State& state) {
  for (auto _ : state) {
    BenchData bench(BenchData::kEmpty);
    DelimitForm form;
    TakeImportFile(form, bench.data, BenchTextFile());
    form.delimiter = DelimiterOption::kComma;
    benchmark::DoNotOptimize(ImportText(form, bench.data, bench.platform));
  }
}
BENCHMARK(Import)->Unit(benchmark::kMillisecond)->UseRealTime();

void Export(benchmark::State& state) {
  BenchData bench;
  const Path target = BenchFile().string() + ".csv";
  for (auto _ : state) ExportText(bench.data, bench.platform, target, ',');
  std::filesystem::remove(target);
}
BENCHMARK(Export)->Unit(benchmark::kMillisecond)->UseRealTime();

void SplitOfFiveVariables(benchmark::State& state) {
  BenchData bench;
  const Path target = BenchFile().string() + ".part";
  SplitPanel panel{{1, 2, 10, 11, 12}};
  for (auto _ : state) RunSplit(panel, bench.data, bench.platform, target);
  std::filesystem::remove(target);
}
BENCHMARK(SplitOfFiveVariables)->Unit(benchmark::kMillisecond)->UseRealTime();

void FirstParseOfAColumn(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    BenchData bench;
    state.ResumeTiming();
    benchmark::DoNotOptimize(bench.data.matrix.Numbers(kNumberColumn, bench.data.RecordCount).values.data());
  }
}
BENCHMARK(FirstParseOfAColumn)->Unit(benchmark::kMillisecond)->UseRealTime();

void FirstChangedCell(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    BenchData bench;
    state.ResumeTiming();
    MatrixEditor(bench.data).SetText(kFirstRecordRow, kNumberColumn, "1");
  }
}
BENCHMARK(FirstChangedCell)->Unit(benchmark::kMillisecond)->UseRealTime();

void AddedColumn(benchmark::State& state) {
  BenchData bench;
  for (auto _ : state) benchmark::DoNotOptimize(MatrixEditor(bench.data).AddColumn());
}
BENCHMARK(AddedColumn)->Iterations(1000);

}  // namespace
}  // namespace tessara
