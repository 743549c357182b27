#pragma once

#include <gtest/gtest.h>

#include <cstddef>

#include "faults.h"

// How a test lets each fault come in its turn.

namespace tessara {

// Every one of the first faults, then fewer and fewer, so that the runs stay short.
inline std::size_t NextFault(std::size_t number) { return number + 1 + number / 60; }

inline constexpr std::size_t kMostFaults = 100000;

// Calls with the number of each fault, until one comes too late to matter.
template <typename Try>
void FailInTurn(Try attempt) {
  for (std::size_t number = 1; number < kMostFaults; number = NextFault(number)) {
    if (!attempt(number)) return;
    if (testing::Test::HasFailure()) return;  // one is enough to read
  }
  ADD_FAILURE() << "the faults have no end";
}

// Remembers whether the fault has come, also when the operation ends by it.
class NoteOfFault {
 public:
  explicit NoteOfFault(bool& failed) : failed_(failed) {}
  ~NoteOfFault() { failed_ = FailingMemory::HasFailed(); }
  NoteOfFault(const NoteOfFault&) = delete;
  NoteOfFault& operator=(const NoteOfFault&) = delete;

 private:
  bool& failed_;
};

}  // namespace tessara
