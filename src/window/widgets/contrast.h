#pragma once

#include <QColor>

// Colours that can be told apart: contrast as the Web Content Accessibility Guidelines 2.1 define it.

namespace tessara {

inline constexpr double kContrastOfText = 4.5;
inline constexpr double kContrastOfMarks = 3;  // of icons, lines and what else is no text

// From 1, the same brightness, to 21, black on white. Both colours are taken as opaque.
double ContrastOf(const QColor& one, const QColor& other);

// A part of the second colour, from 0 to 1, in the first.
QColor Mixed(const QColor& first, const QColor& second, double part);

// The colour itself where it stands out from all the grounds by that much, else as much nearer to black or to white as
// is needed.
QColor StandingOut(const QColor& colour, std::initializer_list<QColor> grounds, double contrast);

}  // namespace tessara
