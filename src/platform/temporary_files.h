#pragma once

#include <cstddef>

#include "platform/path.h"

// The temporary files of saves: their names, and that none of them outlives its program. What a crash has left is taken
// away by the next save into the folder.

namespace tessara {

// A name beside the target, hidden and short, that tells which machine and which process writes it, and that no other
// writer takes.
Path TemporaryBeside(const Path& target);

// Removes temporary files of processes of this machine that are gone.
void RemoveStrays(const Path& folder);

// From now on a signal that ends the program takes the temporary files in work with it. Signals that the program
// ignores stay ignored. A file that grows beyond its limit is a write that fails, no signal.
void RemoveTemporariesOnSignals();

// A temporary file in work, or a folder that holds none any more, for as long as the object lives.
class TemporaryInWork {
 public:
  explicit TemporaryInWork(const Path& path);
  ~TemporaryInWork();
  TemporaryInWork(const TemporaryInWork&) = delete;
  TemporaryInWork& operator=(const TemporaryInWork&) = delete;

 private:
  std::size_t slot_;
};

}  // namespace tessara
