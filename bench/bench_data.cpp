#include "bench_data.h"

#include <cstdlib>

namespace tessara {

Path BenchFile() {
  const char* file = std::getenv("TESSARA_BENCH_FILE");
  return file ? file : "/tmp/bench.dcs";
}

BenchData::BenchData() {
  MakeEmptyDataSet(data);
  data.WaitingPath = BenchFile();
  LoadDataFile(data, platform);
}

void BenchData::Run(Procedure procedure, std::size_t column) {
  panel.selected = procedure;
  panel.SelectedVariables = {column};
  data.SelectedVariableCount = 1;
  tessara::Run(data, panel, output, charts, platform);
  output = {};
}

}  // namespace tessara
