#pragma once

#include <QStringList>

class QFont;
class QPagedPaintDevice;
class QString;

// Report pages on paper, in a fixed pitch. Nothing is cut: a page's type shrinks until its longest line fits the sheet,
// and what is longer than a sheet goes on on the next one.

namespace tessara {

// "Courier New", and where the system lacks it a face with the same widths.
QFont FixedPitchFont();

// Paints each text on a sheet of its own. False when the device refuses.
bool PaintPages(QPagedPaintDevice& device, const QStringList& pages);

// Writes the pages as a PDF file, which takes its name when it is whole. False when it cannot be written.
bool WritePdf(const QString& file, const QStringList& pages);

}  // namespace tessara
