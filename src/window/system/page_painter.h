#pragma once

#include <QByteArray>
#include <functional>
#include <optional>

#include "platform/printing.h"

class QFont;
class QPagedPaintDevice;
class QPrinter;

// Sheets of text on paper, in a fixed pitch.

namespace tessara {

// "Courier New", and where the system lacks it a face with the same widths.
QFont FixedPitchFont();

// Paints the job, each text on a sheet of its own. False when the device refuses.
bool PaintJob(QPagedPaintDevice& device, const PrintJob& job);

// Whether what is painted on the printer goes to a PDF file of its choice.
bool PrintsToFile(const QPrinter& printer);

// Paints on the printer. A file gets its name when it is whole, so that the old one stays when it cannot be written.
// False when the printer refuses, the painting fails or the file cannot be written.
bool PaintOnPrinter(QPrinter& printer, const std::function<bool(QPagedPaintDevice& device)>& paint);

// The bytes of a PDF file with the sheets of the job; nothing when they cannot be made.
std::optional<QByteArray> MakePdf(const PrintJob& job);

}  // namespace tessara
