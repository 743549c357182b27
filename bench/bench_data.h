#pragma once

#include <memory>
#include <vector>

#include "data/data_file.h"
#include "platform/scripted_platform.h"
#include "presentation/output_log.h"
#include "procedures/panel.h"
#include "procedures/run.h"

// The data file that the benchmarks work on: the one that TESSARA_BENCH_FILE names.

namespace tessara {

Path BenchFile();
// The same as comma-separated text: the file that TESSARA_BENCH_TEXT names.
Path BenchTextFile();

struct BenchData {
  BenchData();
  // Without data.
  enum Start { kEmpty };
  explicit BenchData(Start);

  // One run of a procedure on a variable, or on variables and independent ones; its report is dropped.
  void Run(Procedure procedure, std::size_t column);
  void Run(Procedure procedure, std::vector<std::size_t> columns, std::vector<std::size_t> independents);

  ScriptedPlatform platform;
  DataSet data;
  ProcedurePanel panel;
  OutputLog output;
  ChartStore charts;
  SummaryTable table;
};

// Columns of the benchmark data.
inline constexpr std::size_t kIdColumn = 1;
inline constexpr std::size_t kCodedColumn = 2;  // Q1
inline constexpr std::size_t kOutcomeColumn = 9;
inline constexpr std::size_t kSexColumn = 10;
inline constexpr std::size_t kAgeColumn = 11;
inline constexpr std::size_t kNumberColumn = 12;  // X1, and X2 to X6 behind it
inline constexpr std::size_t kRegionColumn = 19;

}  // namespace tessara
