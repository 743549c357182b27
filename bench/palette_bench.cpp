// The command palette over the variables of a wide data set: what a keystroke finds, and the list that it searches.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

#include "platform/scripted_platform.h"
#include "shell/palette_search.h"

namespace tessara {
namespace {

constexpr std::size_t kVariables = 100'000;

std::vector<PaletteEntry> WideList() {
  std::vector<PaletteEntry> entries(kVariables);
  for (std::size_t i = 0; i < kVariables; ++i) {
    entries[i].target = VariableTarget{i + 1};
    entries[i].caption = "Q" + std::to_string(i) + "_AGE";
    entries[i].where = "How old was the child of the household, person " + std::to_string(i % 977) + "?";
    MakeSearchable(entries[i]);
  }
  return entries;
}

void FindAmongVariables(benchmark::State& state, const char* text) {
  const std::vector<PaletteEntry> entries = WideList();
  for (auto _ : state) benchmark::DoNotOptimize(FindInPalette(entries, text));
}
BENCHMARK_CAPTURE(FindAmongVariables, one_letter, "q")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindAmongVariables, three_words, "child person 97")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindAmongVariables, nothing, "household zebra")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FindAmongVariables, no_match, "egaq")->Unit(benchmark::kMillisecond);

// One record of as many variables, each with a name and a label.
Path WideFile() {
  const Path path = std::filesystem::temp_directory_path() / "tessara_wide_bench.dcs";
  std::ofstream file(path, std::ios::binary);
  const auto write_line = [&](auto cell) {
    for (std::size_t i = 0; i < kVariables; ++i) file << (i == 0 ? "" : "\x01") << cell(i);
    file << "\r\n";
  };
  file << "1 " << kVariables << " Tessara data\r\n";
  for (std::size_t row = 1; row <= kHeaderRowCount; ++row) {
    write_line([&](std::size_t i) {
      if (row == kVariableNameRow) return "Q" + std::to_string(i);
      return row == kVariableLabelRow ? "Answer of person " + std::to_string(i) : std::string();
    });
  }
  write_line([](std::size_t) { return "1"; });
  return path;
}

void ListVariables(benchmark::State& state) {
  ScriptedPlatform platform;
  MemorySettingsStore store;
  Session session(platform, store);
  const Path file = WideFile();
  OpenDataFile(session, file, FilePick::kPicked);
  std::filesystem::remove(file);
  if (session.data.VariableCount != kVariables) state.SkipWithError("the data were not loaded");
  for (auto _ : state) {
    benchmark::DoNotOptimize(BuildPalette(session, [](View) { return std::optional<WidgetState>(WidgetState{}); }));
  }
}
BENCHMARK(ListVariables)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessara
