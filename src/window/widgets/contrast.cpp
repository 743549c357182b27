#include "window/widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace tessara {
namespace {

double Linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

double LeastContrast(const QColor& colour, std::initializer_list<QColor> grounds) {
  double least = 21;
  for (const QColor& ground : grounds) least = std::min(least, ContrastOf(colour, ground));
  return least;
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
  const auto [darker, lighter] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor Mixed(const QColor& first, const QColor& second, double part) {
  const auto mix = [part](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * part)); };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()), mix(first.blue(), second.blue())};
}

QColor StandingOut(const QColor& colour, std::initializer_list<QColor> grounds, double contrast) {
  constexpr int kSteps = 20;
  const bool to_black = LeastContrast(Qt::black, grounds) > LeastContrast(Qt::white, grounds);
  const QColor end = to_black ? Qt::black : Qt::white;
  for (int step = 0; step < kSteps; ++step) {
    const QColor tried = Mixed(colour, end, static_cast<double>(step) / kSteps);
    if (LeastContrast(tried, grounds) >= contrast) return tried;
  }
  return end;
}

}  // namespace tessara
