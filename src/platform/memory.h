#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>

#include "platform/dialogs.h"

// Out of memory is no end of the program: the operation at work is given up, everything stays as it was, and the user
// is told. Operations let std::bad_alloc out and leave nothing half done; a front end catches it in one place.

namespace tessara {

inline constexpr const char* kOutOfMemory = "There is not enough memory for this operation.";

// Some memory that is let go when there is no other, so that the user can be told.
class MemoryReserve {
 public:
  MemoryReserve() : block_(new char[kSize]) {}
  void LetGo() { block_.reset(); }
  void TakeAgain() { block_.reset(new (std::nothrow) char[kSize]); }

 private:
  // A box on the screen with its window, icons, type and pictures takes some ten million bytes.
  static constexpr std::size_t kSize = std::size_t{16} << 20;
  std::unique_ptr<char[]> block_;
};

// Runs an operation. False when the memory did not suffice; the user has been told then.
template <typename Operation>
bool WithinMemory(Messages& messages, MemoryReserve& reserve, Operation operation) {
  try {
    operation();
    return true;
  } catch (const std::bad_alloc&) {
  } catch (const std::length_error&) {  // what a container asks for when it wants more than there can be
  }
  reserve.LetGo();
  try {
    messages.ShowMessage({"Operation Aborted!", std::string(kOutOfMemory) + " Everything is as it was before it."});
  } catch (const std::bad_alloc&) {  // not even for that: the program goes on all the same
  }
  reserve.TakeAgain();
  return false;
}

}  // namespace tessara
