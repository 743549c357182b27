#pragma once

#include "platform/path.h"

namespace tessara {

// A turn at a file among the programs that read it, change it and write it anew: while one has its turn, another one
// that asks waits. It is the folder that is locked, since the file itself gives its name to a new one. Where a file
// system knows no locks, or somebody keeps his turn for longer than a few seconds, work goes on without.
class FileTurn {
 public:
  explicit FileTurn(const Path& file);
  ~FileTurn();
  FileTurn(const FileTurn&) = delete;
  FileTurn& operator=(const FileTurn&) = delete;

 private:
  int folder_ = -1;
};

}  // namespace tessara
