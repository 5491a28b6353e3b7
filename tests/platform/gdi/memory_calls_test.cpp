#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"

namespace quenzel7::gdi {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(RtlMoveMemory, CopiesThatManyBytesAndNoMore) {
  const Bytes from = {1, 0, 0xFF, 4, 5};
  Bytes to(5, 0xEE);
  RtlMoveMemory(to.data() + 1, from.data(), 3);
  EXPECT_EQ(to, (Bytes{0xEE, 1, 0, 0xFF, 0xEE}));
  RtlMoveMemory(to.data(), from.data() + 4, 1);
  EXPECT_EQ(to, (Bytes{5, 1, 0, 0xFF, 0xEE}));
  EXPECT_EQ(from, (Bytes{1, 0, 0xFF, 4, 5}));
}

TEST(RtlMoveMemory, MovesBytesOverThemselvesInBothDirections) {
  Bytes up(1000), down(1000);
  for (std::size_t i = 0; i < 1000; ++i) up[i] = down[i] = static_cast<std::uint8_t>(i % 251);
  RtlMoveMemory(up.data() + 1, up.data(), 999);
  RtlMoveMemory(down.data(), down.data() + 1, 999);
  EXPECT_EQ(up[0], 0);
  EXPECT_EQ(down[999], 999 % 251);
  for (std::size_t i = 0; i < 999; ++i) {
    ASSERT_EQ(up[i + 1], i % 251) << i;
    ASSERT_EQ(down[i], (i + 1) % 251) << i;
  }
  RtlMoveMemory(up.data(), up.data(), 1000);
  EXPECT_EQ(up[1], 0);
}

TEST(RtlMoveMemory, OfNoBytesOrToOrFromNowhereDoesNothing) {
  const Bytes from = {1, 2};
  Bytes to = {7, 8};
  RtlMoveMemory(to.data(), from.data(), 0);
  RtlMoveMemory(nullptr, nullptr, 0);
  RtlMoveMemory(to.data(), nullptr, 0);
  RtlMoveMemory(nullptr, from.data(), 0);
  RtlMoveMemory(to.data(), nullptr, 2);
  RtlMoveMemory(nullptr, from.data(), 2);
  EXPECT_EQ(to, (Bytes{7, 8}));
}

TEST(RtlMoveMemory, IsNotNoted) {
  const Recorder recorder;
  const Bytes from = {1, 2};
  Bytes to(2);
  RtlMoveMemory(to.data(), from.data(), 2);
  EXPECT_EQ(to, from);
  EXPECT_TRUE(recorder.Calls().empty());
}

}  // namespace
}  // namespace quenzel7::gdi
