// The log on its way to office programs.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench_data.h"
#include "platform/files.h"
#include "platform/scripted_platform.h"
#include "presentation/office/excel_export.h"
#include "presentation/office/word_export.h"

namespace tessara {
namespace {

constexpr std::size_t kLogSize = 50'000'000;

// A report of frequencies, again and again.
std::string LongLog() {
  std::string report =
      "Frequencies\r\n\r\nVariable: SEX     Sex of respondent\r\n\r\n"
      "Value                       Count       Percent      Cumulative\r\n" +
      std::string(65, '-') + "\r\n";
  for (int i = 0; i < 20; ++i) report += "Male                          188        47.00          47.00\r\n";
  report += "\r\n<Page Break>\r\n\r\n\r\n";
  std::string log;
  log.reserve(kLogSize + report.size());
  while (log.size() < kLogSize) log += report;
  return log;
}

Path TemporaryFile(const char* name) {
  return std::filesystem::temp_directory_path() / (name + std::to_string(SystemEntropy()));
}

void ExcelOfALongLog(benchmark::State& state) {
  const std::string log = LongLog();
  const Path path = TemporaryFile("tessara-bench.xlsx");
  ScriptedPlatform platform;
  for (auto _ : state) PrintToExcel(log, path, platform);
  std::filesystem::remove(path);
}
BENCHMARK(ExcelOfALongLog)->Unit(benchmark::kMillisecond);

void WordOfALongLog(benchmark::State& state) {
  const std::string log = LongLog();
  const Path path = TemporaryFile("tessara-bench.docx");
  ScriptedPlatform platform;
  for (auto _ : state) PrintToWord(log, {}, path, platform);
  std::filesystem::remove(path);
}
BENCHMARK(WordOfALongLog)->Unit(benchmark::kMillisecond);

// All records and variables of the benchmark's data.
void ExcelOfTheData(benchmark::State& state) {
  BenchData bench;
  const Path path = TemporaryFile("tessara-bench-data.xlsx");
  ScriptedPlatform platform;
  for (auto _ : state) DataToExcel(bench.data, path, platform);
  std::filesystem::remove(path);
}
BENCHMARK(ExcelOfTheData)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
}  // namespace tessara
