#pragma once

#include <QIcon>
#include <QWidget>

#include "platform/platform.h"

class QPainter;

// What the window draws with: icons by name that suit the palette, and the product's own mark.

namespace tessara {

// Takes the icons from the system's folders and from those of the program folder.
void AddIconFolder(const Path& program_folder);
// Chooses the light or the dark icons by the palette; called again when the palette changes.
void UseIconsOfPalette(const QPalette& palette);
QIcon ThemeIcon(const char* name);

// The colour of hints: that of text, faint but legible on any ground.
QColor HintColour(const QPalette& palette);
// Gives the program's fields and labels that colour for their hints, and what is selected and what is a link a colour
// that can be read, where the desktop's cannot; called again when the palette changes.
void UseLegibleColours();
// The usual colour of text where it can be read on that ground, else white or black.
QColor TextOn(const QColor& ground, const QColor& usual);

// The mark of the product: tiles laid into rising bars, in the palette's accent colour.
void PaintLogo(QPainter& painter, const QRectF& place, const QPalette& palette);
QIcon LogoIcon(const QPalette& palette);

// The mark as a widget of so many logical pixels.
class LogoLabel : public QWidget {
  Q_OBJECT

 public:
  LogoLabel(int size, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessara
