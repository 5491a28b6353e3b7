#include "platform/loomis2/bit_field.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace quenzel7::loomis2 {
namespace {

TEST(BitField, OfEightBitsIsTheNumberThatStandsThere) {
  for (std::uint32_t value = 0; value < 256; ++value) {
    EXPECT_EQ(BitField(0xFF).Of(0xABCDEF00 | value), value);
    EXPECT_EQ(BitField(0xFF000000).Of(value << 24 | 0x123456), value);
    EXPECT_EQ(BitField(0x1FE0).Of(value << 5 | 0xFFFFE01F), value);
  }
}

TEST(BitField, OfFewerBitsReachesFromBlackToFullAndRounds) {
  EXPECT_EQ(BitField(1).Of(0xFFFFFFFF), 255u);
  const BitField one(0x8000), five(0x7C00), six(0x07E0);
  EXPECT_EQ(one.Of(0x7FFF), 0u);
  EXPECT_EQ(one.Of(0x8000), 255u);
  EXPECT_EQ(five.Of(0), 0u);
  EXPECT_EQ(five.Of(1 << 10), 8u);     // 8.2
  EXPECT_EQ(five.Of(3 << 10), 25u);    // 24.7
  EXPECT_EQ(five.Of(16 << 10), 132u);  // 131.6
  EXPECT_EQ(five.Of(30 << 10), 247u);  // 246.8
  EXPECT_EQ(five.Of(31 << 10), 255u);
  EXPECT_EQ(six.Of(1 << 5), 4u);    // 4.05
  EXPECT_EQ(six.Of(11 << 5), 45u);  // 44.5
  EXPECT_EQ(six.Of(63 << 5), 255u);
}

TEST(BitField, OfMoreBitsLosesTheLowerOnes) {
  const BitField ten(0x3FF00000), all(0xFFFFFFFF);
  EXPECT_EQ(ten.Of(0x3FF00000), 255u);
  EXPECT_EQ(ten.Of(0x00200000), 0u);  // 0.4985
  EXPECT_EQ(ten.Of(0x00300000), 1u);  // 0.7
  EXPECT_EQ(all.Of(0xFFFFFFFF), 255u);
  EXPECT_EQ(all.Of(0x80000000), 128u);
  EXPECT_EQ(all.Of(0x7FFFFFFF), 127u);
}

TEST(BitField, OfNoBitsIsNothing) {
  EXPECT_EQ(BitField().Of(0xFFFFFFFF), 0u);
  EXPECT_EQ(BitField(0).Of(0xFFFFFFFF), 0u);
}

TEST(BitField, RefusesBitsThatAreNotAdjacent) {
  EXPECT_RAISES(481, "a mask of the bits 0x00000005 cannot be read: expected adjacent bits", BitField(5));
  EXPECT_RAISES(481, "a mask of the bits 0x80000001 cannot be read: expected adjacent bits",
                BitField(0x80000001));
}

}  // namespace
}  // namespace quenzel7::loomis2
