#pragma once

#include <QPoint>
#include <span>

class QWidget;

namespace tessara {

// Stands between the commands of a menu.
inline constexpr int kMenuSeparator = 0;

// Pops a menu of the frame's commands up, as far as they show in its bars.
void PopUpCommands(QWidget* owner, const char* name, std::span<const int> commands, const QPoint& place);

}  // namespace tessara
