#pragma once

#include <new>

namespace tessara {

// Says what an operation has done. It stands by then: where the memory does not suffice for the words they are left
// out, and nobody is told that all is as it was.
template <typename Say>
void SayAfterwards(Say say) noexcept {
  try {
    say();
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace tessara
