#include "platform/tests/failing_memory.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace tessara {
namespace {

constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

thread_local MemoryAskedFor asked;
thread_local std::size_t fails_at = kNever;  // the request of this number fails

}  // namespace

MemoryAskedFor AskedForSoFar() { return asked; }

FailingMemory::FailingMemory(std::size_t allowed) { fails_at = asked.times + allowed + 1; }
FailingMemory::~FailingMemory() { fails_at = kNever; }
bool FailingMemory::HasFailed() const { return asked.times >= fails_at; }

}  // namespace tessara

void* operator new(std::size_t size) {
  using namespace tessara;
  asked.bytes += size;
  if (++asked.times == fails_at) throw std::bad_alloc();
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}

// The standard library's temporary buffers ask like this, and give back by the plain delete below.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return std::malloc(size == 0 ? 1 : size); }

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { std::free(memory); }
