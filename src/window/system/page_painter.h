#pragma once

#include <QByteArray>
#include <optional>

#include "platform/printing.h"

class QFont;
class QPagedPaintDevice;

// Sheets of text on paper, in a fixed pitch.

namespace tessara {

// "Courier New", and where the system lacks it a face with the same widths.
QFont FixedPitchFont();

// Paints the job, each text on a sheet of its own. False when the device refuses.
bool PaintJob(QPagedPaintDevice& device, const PrintJob& job);

// The bytes of a PDF file with the sheets of the job; nothing when they cannot be made.
std::optional<QByteArray> MakePdf(const PrintJob& job);

}  // namespace tessara
