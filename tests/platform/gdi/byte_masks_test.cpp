#include "platform/gdi/byte_masks.h"

#include <gtest/gtest.h>

namespace quenzel7::gdi {
namespace {

using Masks = std::array<std::uint32_t, 8>;

TEST(ByteMasks, AreAllOnesWhereTheBitIsSetTheHighestFirst) {
  constexpr std::uint32_t kSet = 0xFFFFFFFF;
  EXPECT_EQ(kByteMasks[0x00], (Masks{}));
  EXPECT_EQ(kByteMasks[0x80], (Masks{kSet}));
  EXPECT_EQ(kByteMasks[0x05], (Masks{0, 0, 0, 0, 0, kSet, 0, kSet}));
  EXPECT_EQ(kByteMasks[0xFF], (Masks{kSet, kSet, kSet, kSet, kSet, kSet, kSet, kSet}));
}

}  // namespace
}  // namespace quenzel7::gdi
