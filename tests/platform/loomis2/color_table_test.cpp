#include "platform/loomis2/color_table.h"

#include <gtest/gtest.h>

namespace quenzel7::loomis2 {
namespace {

TEST(PixelOf, HasRedHighestAndBlueLowest) { EXPECT_EQ(PixelOf(0x12, 0x34, 0xF6), 0x1234F6u); }

TEST(ColorTable, IsBlackBeyondItsEnd) {
  const ColorTable colors({0x111111, 0x222222});
  EXPECT_EQ(colors[0], 0x111111u);
  EXPECT_EQ(colors[1], 0x222222u);
  EXPECT_EQ(colors[2], 0x000000u);
  EXPECT_EQ(ColorTable()[0], 0x000000u);
}

}  // namespace
}  // namespace quenzel7::loomis2
