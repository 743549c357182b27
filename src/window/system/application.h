#pragma once

#include <QApplication>

#include "platform/memory.h"

// The application: its event loop outlives an operation that has run out of memory.

namespace tessara {

class Application : public QApplication {
 public:
  Application(int& argc, char** argv);

  // Where the user is told; none at the start.
  void SetMessages(Messages* messages) { messages_ = messages; }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Messages* messages_ = nullptr;
  MemoryReserve reserve_;
};

}  // namespace tessara
