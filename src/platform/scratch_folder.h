#pragma once

#include <optional>

#include "platform/path.h"
#include "platform/temporary_files.h"

namespace tessara {

// A folder for the temporary files of one piece of work, among those of the system and for nobody but its owner. It
// goes with the object and all that is in it, and also when a signal ends the program.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  // Empty when the system gave none.
  const Path& path() const { return path_; }
  // The one file that may be left in the folder: its path.
  const Path& FileOf(const char* name);

 private:
  Path path_;
  Path file_;
  std::optional<TemporaryInWork> file_in_work_;  // ahead of the folder: it goes first
  std::optional<TemporaryInWork> in_work_;
};

}  // namespace tessara
