#include "tests/support/failing_memory.h"

#include <cstdlib>
#include <new>

namespace quenzel7::test {

thread_local int allocationsLeft = -1;
thread_local std::size_t smallestCounted = 0;
thread_local long blocksInUse = 0;

}  // namespace quenzel7::test

using quenzel7::test::allocationsLeft;
using quenzel7::test::blocksInUse;

// Not inlined, so that the compiler sees them as the pair that they are.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (size >= quenzel7::test::smallestCounted) {
    if (allocationsLeft == 0) {
      allocationsLeft = -1;
      throw std::bad_alloc();
    }
    if (allocationsLeft > 0) --allocationsLeft;
  }
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  ++blocksInUse;
  return memory;
}
// The form that gives null goes the same way, or a sanitizer's own would make what is freed here.
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  try {
    return operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  if (memory != nullptr) --blocksInUse;
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
