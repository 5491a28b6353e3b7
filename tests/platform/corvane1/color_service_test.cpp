#include "platform/corvane1/color_service.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/corvane1/panel_palette.h"

namespace quenzel7::corvane1 {
namespace {

TEST(ColorService, GivesThePaletteColourWithRedInTheLowByte) {
  PaletteColorService colors;
  EXPECT_EQ(colors.GetColor(0), 0x0000E0u);
  EXPECT_EQ(colors.GetColor(3), 0x00D8F0u);
  EXPECT_EQ(colors.GetColor(11), 0x004080u);
  EXPECT_EQ(colors.GetColor(96), 0xE86600u);
}

TEST(ColorService, KnowsEveryNumberOfThePalette) {
  PaletteColorService colors;
  for (Long number = 0; number < 256; ++number) {
    const std::uint32_t rgb = kPanelPalette[static_cast<std::size_t>(number)];
    const std::uint32_t red = rgb / 0x10000;
    const std::uint32_t green = rgb / 0x100 % 0x100;
    const std::uint32_t blue = rgb % 0x100;
    EXPECT_EQ(colors.GetColor(number), blue * 0x10000 + green * 0x100 + red) << number;
  }
}

TEST(ColorService, TheLastNumberIsNotTheFallBack) {
  // 254 tells the limit apart, as 255 is white itself.
  PaletteColorService colors;
  EXPECT_EQ(colors.GetColor(254), 0xAAFFFFu);
}

TEST(ColorService, NumbersOutsideThePaletteAreWhite) {
  PaletteColorService colors;
  for (const Long number :
       {-1, -2, 256, 257, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()}) {
    EXPECT_EQ(colors.GetColor(number), 0xFFFFFFu) << number;
  }
}

}  // namespace
}  // namespace quenzel7::corvane1
