#pragma once

#include <QImage>
#include <string>
#include <vector>

#include "presentation/chart_data.h"

// Charts to draw, and a look at what was drawn.

namespace tessara {

inline Chart BarsOf(int categories) {
  std::vector<std::string> labels;
  Chart::Series counts{"n", {}};
  for (int i = 0; i < categories; ++i) {
    labels.push_back("Category " + std::to_string(i));
    counts.values.push_back(i % 7);
  }
  return BarsChart("Bars", "", "Frequency", labels, {counts});
}

inline bool HasColour(const QImage& picture, QRgb colour) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if ((picture.pixel(x, y) & 0xFFFFFF) == colour) return true;
    }
  }
  return false;
}

}  // namespace tessara
