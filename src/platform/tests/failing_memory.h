#pragma once

#include <cstddef>

// Memory under the eyes of a test: how much was asked for, and what happens when it runs out.

namespace tessara {

// What the thread has asked for through operator new so far.
struct MemoryAskedFor {
  std::size_t times = 0;
  std::size_t bytes = 0;
};
MemoryAskedFor AskedForSoFar();

// While it lives, `allowed` further requests of memory succeed; the one behind them fails, and only that one.
class FailingMemory {
 public:
  explicit FailingMemory(std::size_t allowed);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Whether the request that fails has come.
  bool HasFailed() const;
};

}  // namespace tessara
