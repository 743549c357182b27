#pragma once

#include <functional>

class QPagedPaintDevice;
class QPrinter;

// A job of a printer, which may be a file.

namespace tessara {

// Paints on the printer. A file gets its name when it is whole, so that the old one stays when it cannot be written.
// False when the printer refuses, the painting fails or the file cannot be written.
bool PaintOnPrinter(QPrinter& printer, const std::function<bool(QPagedPaintDevice& device)>& paint);

}  // namespace tessara
