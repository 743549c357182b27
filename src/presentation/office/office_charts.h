#pragma once

#include <optional>
#include <string>
#include <vector>

#include "presentation/chart_data.h"

// Charts as pictures of a document. The core does not draw: a front end hands in what does.

namespace tessara {

// The size of a drawing, in pixels of a screen; its picture has twice as many each way.
inline constexpr int kChartPictureWidth = 640;
inline constexpr int kChartPictureHeight = 400;

// Draws charts, whose interval kinds have their rows filled in, and yields the bytes of a PNG file for each. False when
// one of them cannot be drawn.
using ChartRoutine = bool(const std::vector<Chart>& charts, std::vector<std::string>& pngs);

// The module that draws charts for a program without a window, loaded only when one is asked for, and its routine.
inline constexpr const char* kChartModule = "tessara-charts";
inline constexpr const char* kChartRoutine = "TessaraDrawCharts";

struct ChartPicture {
  std::string png;
  std::string title;
};

// The charts of the last run, drawn; nothing when one of them cannot be.
std::optional<std::vector<ChartPicture>> DrawCharts(const ChartStore& store, ChartRoutine& draw);

}  // namespace tessara
