#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>

#include "presentation/chart_data.h"

// A chart as a picture on white, of twice the pixels that it has on the screen.

namespace tessara {

QImage ChartImage(const Chart& chart, const QSize& size);

// The same as the bytes of a PNG file; empty when they cannot be made.
QByteArray ChartPng(const Chart& chart, const QSize& size);

}  // namespace tessara
