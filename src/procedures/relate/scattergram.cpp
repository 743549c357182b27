#include "procedures/relate/scattergram.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "numerics/number_text.h"
#include "numerics/report_text.h"

namespace tessara {
namespace {

using Axis = Scattergram::Axis;

Axis MakeAxis(std::span<const double> values) {
  Axis axis{.least = values.front(), .greatest = values.front(), .range = {}};
  for (const double value : values) {
    axis.least = std::min(axis.least, value);
    axis.greatest = std::max(axis.greatest, value);
  }
  axis.range = Checked(axis.greatest) - axis.least;
  return axis;
}

// Rounds half to even. Next to this large number no fraction has a place, so that the addition itself rounds: in loops
// over cases faster than a call. For numbers of a size below 2^51.
double Rounded(double value) {
  constexpr double kNoPlaceForFractions = 0x1.8p52;
  return (value + kNoPlaceForFractions) - kNoPlaceForFractions;
}

// Whether no point's place can fail: the greatest step is ten times the range of x.
bool EveryPlaceCanBeComputed(const Axis& y, const Axis& x) {
  return y.range.value() > 0 && x.range.value() > 0 && std::isfinite(10 * x.range.value());
}

void DrawAllPoints(Scattergram& drawing, std::span<const double> y, std::span<const double> x) {
  const double y_least = drawing.y.least;
  const double x_least = drawing.x.least;
  const double y_range = drawing.y.range.value();
  const double x_range = drawing.x.range.value();
  for (std::size_t i = 0; i < y.size(); ++i) {
    const double column = Rounded(10 * (x[i] - x_least) / x_range);
    const double row = Rounded((1 - (y[i] - y_least) / y_range) * 10);
    drawing
        .occupied[static_cast<std::size_t>(static_cast<int>(row))][static_cast<std::size_t>(static_cast<int>(column))] =
        true;
  }
}

// The same point by point, where some steps fail.
void DrawPointsThatCanBe(Scattergram& drawing, std::span<const double> y, std::span<const double> x) {
  std::int16_t column = 0;  // these outlive a point: where a step fails, the place of the point before stands
  std::int16_t row = 0;
  for (std::size_t i = 0; i < y.size(); ++i) {
    Keep(column, ToInt16(10 * (Checked(x[i]) - drawing.x.least) / drawing.x.range));
    Keep(row, ToInt16((1 - (Checked(y[i]) - drawing.y.least) / drawing.y.range) * 10));
    drawing.occupied[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = true;
  }
}

}  // namespace

Scattergram DrawScattergram(std::span<const double> y, std::span<const double> x) {
  Scattergram drawing{.y = MakeAxis(y), .x = MakeAxis(x)};
  if (EveryPlaceCanBeComputed(drawing.y, drawing.x)) {
    DrawAllPoints(drawing, y, x);
  } else {
    DrawPointsThatCanBe(drawing, y, x);
  }
  return drawing;
}

std::string ScattergramText(const Scattergram& drawing, std::string_view x_name, std::string_view x_label) {
  constexpr std::size_t kLastRow = Scattergram::kPlaces - 1;
  std::string text;
  for (std::size_t row = 0; row <= kLastRow; ++row) {
    switch (row) {
      case 0:
        text += FormatCol(drawing.y.greatest, 10, 1) + "|";
        break;
      case kLastRow / 2:
        text += FormatCol(drawing.y.Middle(), 10, 1) + "|";
        break;
      case kLastRow:
        text += FormatCol(drawing.y.least, 10, 1) + "|";
        break;
      default:
        text += "          |";
    }
    for (const bool occupied : drawing.occupied[row]) text += occupied ? " * " : "   ";
    text += "\r\n";
  }
  text += "\r\n           ---------------|--------------|\r\n";
  text += "          " + FormatCol(drawing.x.least, 14, 1) + FormatCol(drawing.x.Middle(), 14, 1) +
          FormatCol(drawing.x.greatest, 14, 1);
  text += "\r\n\r\n";
  text.append("          ").append(x_name).append(": ").append(x_label).append("\r\n");
  return text;
}

}  // namespace tessara
