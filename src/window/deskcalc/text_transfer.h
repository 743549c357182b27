#pragma once

#include <QString>

class QWidget;

namespace tessara {

// Types a text where the user is at work in a window: into the box or text that has its keyboard, or into the current
// cell of a sheet. The window gets the keyboard. False when there is nothing that takes a text.
bool TransferText(QWidget* window, const QString& text);

}  // namespace tessara
