#include <cstdlib>
#include <new>

#include "faults.h"

// All memory of this program goes through here.

namespace tessara {
namespace {

std::size_t requests = 0;
std::size_t fails_at = 0;  // 0 for never
bool fails_on = false;

void* Take(std::size_t size, std::size_t alignment) {
  if (fails_at != 0) {
    ++requests;
    if (requests == fails_at || (fails_on && requests > fails_at)) return nullptr;
  }
  const std::size_t whole = (size + alignment - 1) / alignment * alignment;
  return alignment <= alignof(std::max_align_t) ? std::malloc(size == 0 ? 1 : size)
                                                : std::aligned_alloc(alignment, whole == 0 ? alignment : whole);
}

void* TakeOrThrow(std::size_t size, std::size_t alignment) {
  if (void* memory = Take(size, alignment)) return memory;
  throw std::bad_alloc();
}

}  // namespace

FailingMemory::FailingMemory(std::size_t number, Fault fault) {
  requests = 0;
  fails_on = fault == Fault::kFromThenOn;
  fails_at = number;
}
FailingMemory::~FailingMemory() { fails_at = 0; }
bool FailingMemory::HasFailed() { return fails_at != 0 && requests >= fails_at; }

}  // namespace tessara

void* operator new(std::size_t size) { return tessara::TakeOrThrow(size, 1); }
void* operator new[](std::size_t size) { return tessara::TakeOrThrow(size, 1); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return tessara::Take(size, 1); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return tessara::Take(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return tessara::TakeOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return tessara::Take(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t, const std::nothrow_t&) noexcept { std::free(memory); }
