#pragma once

#include <QSize>

#include "presentation/chart_data.h"

// A chart on its way out of the window: clipboard, files, printer. It stands on white there, whatever the palette.

namespace tessara {

class QtPlatform;
struct Session;

// Puts the picture on the clipboard, and the rows as tab-delimited text beside it: a program that pastes takes what it
// can use.
void CopyChart(QtPlatform& platform, Session& session, const Chart& chart, const QSize& size);

// Prints the chart on a sheet across. A printer that refuses gets its box.
void PrintChart(QtPlatform& platform, const Chart& chart, const QSize& size);

// Asks for a file and writes the chart as its ending says: an SVG drawing, else a PNG picture of twice the size.
void SaveChart(QtPlatform& platform, const Chart& chart, const QSize& size);

}  // namespace tessara
