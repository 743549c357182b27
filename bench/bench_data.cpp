#include "bench_data.h"

#include <cstdlib>
#include <utility>

namespace tessara {

Path BenchFile() {
  const char* file = std::getenv("TESSARA_BENCH_FILE");
  return file ? file : "/tmp/bench.dcs";
}

Path BenchTextFile() {
  const char* file = std::getenv("TESSARA_BENCH_TEXT");
  return file ? file : "/tmp/bench.csv";
}

BenchData::BenchData(Start) { MakeEmptyDataSet(data); }

BenchData::BenchData() : BenchData(kEmpty) { LoadDataFile(data, platform, BenchFile(), FilePick::kPicked); }

void BenchData::Run(Procedure procedure, std::size_t column) { Run(procedure, {column}, {}); }

void BenchData::Run(Procedure procedure, std::vector<std::size_t> columns, std::vector<std::size_t> independents) {
  panel.selected = procedure;
  panel.SelectedVariables = std::move(columns);
  panel.IndependentVariables = std::move(independents);
  tessara::Run(data, panel, output, charts, table, platform);
  output = {};
}

}  // namespace tessara
