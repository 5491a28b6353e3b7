#pragma once

#include <cstddef>

// A program that is linked with failing_memory.cpp has its allocation in the place of that of the language.

namespace quenzel7::test {

/// How many more allocations of the thread succeed before one fails; negative: all do.
extern thread_local int allocationsLeft;

/// Allocations of the thread of fewer bytes do not count.
extern thread_local std::size_t smallestCounted;

/// How many more blocks the thread has allocated than it has freed.
extern thread_local long blocksInUse;

/// Lets one allocation fail after so many of at least a size have succeeded, until it ends.
class Failing {
 public:
  explicit Failing(int after, std::size_t smallest = 0) {
    allocationsLeft = after;
    smallestCounted = smallest;
  }
  ~Failing() { allocationsLeft = -1; }
  Failing(const Failing&) = delete;
  Failing& operator=(const Failing&) = delete;
};

}  // namespace quenzel7::test
