#include "presentation/office/office_charts.h"

#include <utility>

namespace tessara {

std::optional<std::vector<ChartPicture>> DrawCharts(const ChartStore& store, ChartRoutine& draw) {
  std::vector<Chart> charts;
  for (const Chart& chart : store.charts) charts.push_back(WithRows(chart));
  std::vector<std::string> pngs;
  if (!draw(charts, pngs) || pngs.size() != charts.size()) return std::nullopt;
  std::vector<ChartPicture> pictures;
  for (std::size_t i = 0; i < charts.size(); ++i) {
    pictures.push_back({std::move(pngs[i]), charts[i].title.empty() ? "Chart" : charts[i].title});
  }
  return pictures;
}

}  // namespace tessara
