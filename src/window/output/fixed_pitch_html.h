#pragma once

#include <QString>

namespace tessara {

// A text, lines ended by LF, as an HTML page in which each character has the same width and each blank counts, as a
// word processor takes it from the clipboard.
QString FixedPitchHtml(const QString& text);

}  // namespace tessara
