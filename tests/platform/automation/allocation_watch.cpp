#include "tests/platform/automation/allocation_watch.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace quenzel7::automation {
namespace {

constinit thread_local std::size_t biggest = 0;
constinit thread_local std::size_t count = 0;
constinit thread_local std::size_t limit = AllocationWatch::kNoLimit;

}  // namespace

AllocationWatch::AllocationWatch(std::size_t most) {
  biggest = 0;
  count = 0;
  limit = most;
}

AllocationWatch::~AllocationWatch() { limit = kNoLimit; }

std::size_t AllocationWatch::Biggest() const { return biggest; }

std::size_t AllocationWatch::Count() const { return count; }

}  // namespace quenzel7::automation

void* operator new(std::size_t size) {
  using namespace quenzel7::automation;
  biggest = std::max(biggest, size);
  ++count;
  if (size > limit) throw std::bad_alloc();
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
// What is made by this one is deleted as all else.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
