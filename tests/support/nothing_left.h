#pragma once

#include <gtest/gtest.h>

#include "tests/support/failing_memory.h"

namespace quenzel7::test {

/// Expects that what is allocated while it lives is freed by its end, all on one thread. Values that are made
/// once and kept, inside of functions, must be there before.
class NothingLeft {
 public:
  NothingLeft() {
    {
      // What the test framework keeps for its traces is there from the first one on.
      SCOPED_TRACE("outer");
      SCOPED_TRACE("inner");
    }
    before_ = blocksInUse;
  }
  ~NothingLeft() { EXPECT_EQ(blocksInUse - before_, 0) << "blocks were not freed"; }
  NothingLeft(const NothingLeft&) = delete;
  NothingLeft& operator=(const NothingLeft&) = delete;

 private:
  long before_;
};

}  // namespace quenzel7::test
