#include "platform/gdi/wide_work.h"

#include <gtest/gtest.h>

namespace quenzel7::gdi {
namespace {

struct Counting {
  int* count;

  [[gnu::always_inline]] void operator()() { ++*count; }
};

TEST(DoOnWidestRegisters, DoesTheWorkOnce) {
  int count = 0;
  DoOnWidestRegisters(Counting{&count});
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace quenzel7::gdi
