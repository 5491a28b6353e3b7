#include "platform/corvane1/bevel_shades.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace quenzel7::corvane1 {
namespace {

using Shades = std::vector<std::uint32_t>;

Shades ShadesOf(std::uint32_t face) {
  Shades shades;
  for (Long level = 1; level <= 8; ++level) shades.push_back(BevelShade(face, level));
  return shades;
}

std::uint32_t Grey(std::uint32_t level) { return level << 16 | level << 8 | level; }

TEST(BevelShade, GoesFromTheStrongestOutsideToTheFaintestInside) {
  EXPECT_EQ(ShadesOf(0xD8D8D8),
            (Shades{0x565656, 0x777777, 0x979797, 0xB8B8B8, 0xEFEFEF, 0xEAEAEA, 0xE4E4E4, 0xDEDEDE}));
}

TEST(BevelShade, ShowsOnBlackByItsLightLines) {
  EXPECT_EQ(ShadesOf(0), (Shades{0, 0, 0, 0, 0x999999, 0x737373, 0x4C4C4C, 0x262626}));
}

TEST(BevelShade, ShowsOnWhiteByItsDarkLines) {
  EXPECT_EQ(ShadesOf(0xFFFFFF),
            (Shades{0x666666, 0x8C8C8C, 0xB3B3B3, 0xD9D9D9, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}));
}

TEST(BevelShade, TonesEachChannelByItself) {
  EXPECT_EQ(ShadesOf(0x0010C8),
            (Shades{0x000650, 0x00096E, 0x000B8C, 0x000EAA, 0x999FE9, 0x737CE1, 0x4C58D8, 0x2634D0}));
}

TEST(BevelShade, OfAnyOtherLevelIsTheFace) {
  for (const Long level : {std::numeric_limits<Long>::min(), -1, 0, 9, std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(BevelShade(0x123456, level), 0x123456u) << level;
  }
}

TEST(BevelShade, OppositeLinesAreEquallyFarApartOnEveryFace) {
  const int apart[] = {153, 115, 77, 38};
  for (std::uint32_t channel = 0; channel < 256; ++channel) {
    for (Long line = 0; line < kBevelLines; ++line) {
      const int dark = static_cast<int>(BevelShade(channel, line + 1) & 0xFF);
      const int light = static_cast<int>(BevelShade(channel, line + 5) & 0xFF);
      EXPECT_NEAR(light - dark, apart[line], 1) << channel << " line " << line;
    }
  }
}

TEST(ReadsAsBevel, TakesTwelveStepsOfBrightnessOnBothSides) {
  EXPECT_TRUE(ReadsAsBevel(Grey(100), Grey(88), Grey(112)));
  EXPECT_TRUE(ReadsAsBevel(Grey(100), Grey(87), Grey(113)));
  EXPECT_TRUE(ReadsAsBevel(Grey(12), 0, Grey(24)));
  EXPECT_FALSE(ReadsAsBevel(Grey(100), Grey(89), Grey(112)));
  EXPECT_FALSE(ReadsAsBevel(Grey(100), Grey(88), Grey(111)));
}

TEST(ReadsAsBevel, WeighsGreenMostAndBlueLeast) {
  // 41 of red are 12 of brightness, 21 of green, 106 of blue.
  EXPECT_TRUE(ReadsAsBevel(0x000029, 0, 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x000028, 0, 0xFFFFFF));
  EXPECT_TRUE(ReadsAsBevel(0x001500, 0, 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x001400, 0, 0xFFFFFF));
  EXPECT_TRUE(ReadsAsBevel(0x6A0000, 0, 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x690000, 0, 0xFFFFFF));
}

TEST(ReadsAsBevel, DropsFractionsOfBrightness) {
  // Red 107 is 31.993 bright, green 109 is 63.983, blue 114 is 12.996.
  EXPECT_TRUE(ReadsAsBevel(0x00006B, Grey(19), 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x00006B, Grey(20), 0xFFFFFF));
  EXPECT_TRUE(ReadsAsBevel(0x006D00, Grey(51), 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x006D00, Grey(52), 0xFFFFFF));
  EXPECT_TRUE(ReadsAsBevel(0x720000, Grey(0), 0xFFFFFF));
  EXPECT_FALSE(ReadsAsBevel(0x720000, Grey(1), 0xFFFFFF));
}

TEST(ColorDistance, AddsTheSquaresOfAllThreeChannels) {
  EXPECT_EQ(ColorDistance(0x123456, 0x123456), 0);
  EXPECT_EQ(ColorDistance(0x000003, 0x000001), 4);
  EXPECT_EQ(ColorDistance(0x000100, 0x000400), 9);
  EXPECT_EQ(ColorDistance(0x050000, 0x010000), 16);
  EXPECT_EQ(ColorDistance(0x010204, 0x020406), 1 + 4 + 4);
  EXPECT_EQ(ColorDistance(0, 0xFFFFFF), 3 * 255 * 255);
}

}  // namespace
}  // namespace quenzel7::corvane1
