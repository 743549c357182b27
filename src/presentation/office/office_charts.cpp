#include "presentation/office/office_charts.h"

#include <utility>

namespace tessara {

std::optional<std::vector<ChartPicture>> DrawCharts(const ChartStore& store, ChartRoutine* draw) {
  std::vector<ChartPicture> pictures;
  for (const Chart& chart : store.charts) {
    ChartPicture picture;
    if (!draw(WithRows(chart), picture.png) || picture.png.empty()) return std::nullopt;
    picture.title = chart.title.empty() ? "Chart" : chart.title;
    pictures.push_back(std::move(picture));
  }
  return pictures;
}

}  // namespace tessara
