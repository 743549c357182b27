#include "window/system/application.h"

namespace tessara {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event) {
  if (!messages_) return QApplication::notify(receiver, event);
  bool handled = true;
  WithinMemory(*messages_, reserve_, [&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

}  // namespace tessara
