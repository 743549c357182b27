#pragma once

class QMainWindow;

namespace tessara {

// Paints menu bar, toolbar, status bar and the headings of the help pane as a toolbar style has it, in colours that are
// made from the window's palette. Called again when the palette or the size of type has changed.
void PaintBars(QMainWindow& frame, int toolbar_style);

}  // namespace tessara
