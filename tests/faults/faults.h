#pragma once

#include <cstddef>

// Faults made to order: the n-th request of memory, or the n-th call that reads or writes a file, fails; and from then
// on either all go well again or all go on failing, as when the machine or the disk is full.

namespace tessara {

enum class Fault { kOnce, kFromThenOn };

// While it lives, the request of memory with that number, from 1, fails.
class FailingMemory {
 public:
  FailingMemory(std::size_t number, Fault fault);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  // Whether it has come to the fault.
  static bool HasFailed();
};

// The same for the calls that open, read, write, flush, close, name, link and remove files.
class FailingFiles {
 public:
  FailingFiles(std::size_t number, Fault fault);
  ~FailingFiles();
  FailingFiles(const FailingFiles&) = delete;
  FailingFiles& operator=(const FailingFiles&) = delete;

  static bool HasFailed();
};

}  // namespace tessara
