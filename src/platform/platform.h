#pragma once

#include <cstdint>
#include <string>

#include "numerics/dates.h"
#include "platform/clipboard.h"
#include "platform/dialogs.h"
#include "platform/path.h"
#include "platform/printing.h"
#include "platform/status.h"

// What the core asks of the outside, service by service. Operations never print, exit or touch a widget: they ask here,
// and a front end (or a script of answers in a test) replies. An operation takes the services that it needs, or all of
// them as the Platform. Texts are bytes of the system's code page; paths are the operating system's own.

namespace tessara {

class Sounds {
 public:
  virtual ~Sounds() = default;
  // Starts a sound file without waiting for its end. False when it cannot be played.
  virtual bool PlaySoundFile(const Path& path) = 0;
};

class Documents {
 public:
  virtual ~Documents() = default;
  // Opens a document or a web address with the program that the user's system has for it.
  virtual bool OpenDocument(const std::string& address) = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // Local time.
  virtual DateTime Now() = 0;
};

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  // A seed for random numbers.
  virtual std::uint64_t Entropy() = 0;
};

class Folders {
 public:
  virtual ~Folders() = default;
  // The folder that holds the executables, Data, Help and Media; and the user's documents.
  virtual Path ProgramFolder() = 0;
  virtual Path DocumentsFolder() = 0;
  // Makes a folder the one that relative paths mean. One that cannot be entered leaves it as it was.
  virtual void EnterFolder(const Path& folder) = 0;
};

class Platform : public FileDialogs,
                 public Messages,
                 public Status,
                 public Clipboard,
                 public Printing,
                 public Sounds,
                 public Documents,
                 public Clock,
                 public RandomSource,
                 public Folders {};

}  // namespace tessara
