#include "window/widgets/command_menu.h"

#include <QAction>
#include <QMenu>

namespace tessara {

void PopUpCommands(QWidget* owner, const char* name, std::span<const int> commands, const QPoint& place) {
  auto* menu = new QMenu(owner);
  menu->setObjectName(name);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const int id : commands) {
    if (id == kMenuSeparator) {
      menu->addSeparator();
    } else if (auto* command = owner->window()->findChild<QAction*>(QString::number(id), Qt::FindDirectChildrenOnly)) {
      menu->addAction(command);
    }
  }
  if (menu->isEmpty()) {
    delete menu;
  } else {
    menu->popup(place);
  }
}

}  // namespace tessara
