#include "platform/corvane1/panel_palette.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace quenzel7::corvane1 {
namespace {

struct Rgb {
  int red;
  int green;
  int blue;

  friend bool operator==(const Rgb&, const Rgb&) = default;
};

Rgb At(std::size_t index) {
  const std::uint32_t colour = kPanelPalette[index];
  return {static_cast<int>(colour >> 16), static_cast<int>(colour >> 8 & 255),
          static_cast<int>(colour & 255)};
}

int Luma(Rgb colour) { return (299 * colour.red + 587 * colour.green + 114 * colour.blue) / 1000; }

bool IsGrey(Rgb colour) { return colour.red == colour.green && colour.green == colour.blue; }

/// The colour of a hue in degrees, a lightness and a saturation from 0 to 1, by the usual double cone.
Rgb OfHue(double hue, double lightness, double saturation) {
  const double chroma = (1 - std::abs(2 * lightness - 1)) * saturation;
  const auto channel = [&](double shift) {
    const double turned = std::fmod(hue + shift, 360.0) / 60;
    const double part = std::clamp(std::abs(turned - 3) - 1, 0.0, 1.0);
    return static_cast<int>(std::lround(255 * (lightness + chroma * (part - 0.5))));
  };
  return {channel(0), channel(240), channel(120)};
}

TEST(PanelPalette, HasNoColourBeyondTwentyFourBits) {
  for (const std::uint32_t colour : kPanelPalette) EXPECT_EQ(colour >> 24, 0u);
}

TEST(PanelPalette, TheSignalColoursLookTheirPart) {
  EXPECT_GT(At(0).red, 200);
  EXPECT_LT(std::max(At(0).green, At(0).blue), 60);
  EXPECT_GT(At(1).green, 130);
  EXPECT_LT(std::max(At(1).red, At(1).blue), 60);
  EXPECT_GT(At(2).blue, 150);
  EXPECT_LT(std::max(At(2).red, At(2).green), 60);
  EXPECT_GT(std::min(At(3).red, At(3).green), 200);
  EXPECT_LT(At(3).blue, 60);
}

TEST(PanelPalette, TheFirstSixteenColoursAreExactlyThese) {
  const Rgb expected[] = {{224, 0, 0},     {0, 160, 0},   {0, 0, 200},     {240, 216, 0},
                          {0, 128, 128},   {16, 16, 16},  {192, 0, 192},   {32, 32, 64},
                          {255, 255, 255}, {0, 0, 0},     {255, 128, 0},   {128, 64, 0},
                          {0, 200, 232},   {128, 0, 192}, {255, 128, 176}, {128, 192, 0}};
  for (std::size_t index = 0; index < std::size(expected); ++index)
    EXPECT_EQ(At(index), expected[index]) << index;
}

TEST(PanelPalette, TextAndScalesAreDark) {
  EXPECT_LT(Luma(At(5)), 80);
  EXPECT_LT(Luma(At(7)), 80);
}

TEST(PanelPalette, TheFirstSixteenColoursAreDistinct) {
  std::set<std::uint32_t> distinct(kPanelPalette.begin(), kPanelPalette.begin() + 16);
  EXPECT_EQ(distinct.size(), 16u);
}

TEST(PanelPalette, TenHuesInEightStepsFromDarkToLight) {
  const double hues[] = {0, 24, 45, 70, 120, 165, 195, 225, 270, 315};
  const double steps[] = {0.14, 0.245, 0.35, 0.455, 0.56, 0.665, 0.77, 0.875};
  std::size_t index = 16;
  for (const double hue : hues) {
    for (const double lightness : steps) {
      const Rgb expected = OfHue(hue, lightness, 0.75);
      EXPECT_LE(std::abs(At(index).red - expected.red), 1) << index;
      EXPECT_LE(std::abs(At(index).green - expected.green), 1) << index;
      EXPECT_LE(std::abs(At(index).blue - expected.blue), 1) << index;
      ++index;
    }
  }
}

TEST(PanelPalette, TheLiquidColourIsSaturated) { EXPECT_EQ(At(96), (Rgb{0, 102, 232})); }

TEST(PanelPalette, FacesAreLightGreysAndTheSecondIsLighter) {
  for (const std::size_t index : {103, 104}) {
    EXPECT_TRUE(IsGrey(At(index)));
    EXPECT_GT(At(index).red, 190);
  }
  EXPECT_GT(At(104).red, At(103).red);
}

TEST(PanelPalette, TheColoursFrom97To111AreThese15Greys) {
  const int levels[] = {24, 48, 72, 96, 128, 160, 216, 232, 200, 184, 144, 112, 80, 56, 244};
  for (std::size_t step = 0; step < std::size(levels); ++step) {
    const Rgb colour = At(97 + step);
    EXPECT_TRUE(IsGrey(colour)) << 97 + step;
    EXPECT_EQ(colour.red, levels[step]) << 97 + step;
  }
}

TEST(PanelPalette, TheRestIsACubeWithBlueRunningFastest) {
  std::size_t index = 112;
  for (int red = 0; red < 6; ++red) {
    for (int green = 0; green < 6; ++green) {
      for (int blue = 0; blue < 4; ++blue)
        EXPECT_EQ(At(index++), (Rgb{red * 51, green * 51, blue * 85})) << index;
    }
  }
  EXPECT_EQ(index, kPanelPalette.size());
}

/// FNV-1a over all colours: pages are drawn in them, so none may change by accident.
TEST(PanelPalette, IsUnchanged) {
  std::uint32_t hash = 2166136261u;
  for (const std::uint32_t color : kPanelPalette) {
    for (const int shift : {16, 8, 0}) hash = (hash ^ (color >> shift & 0xFF)) * 16777619u;
  }
  EXPECT_EQ(hash, 0x1def4c80u);
}

}  // namespace
}  // namespace quenzel7::corvane1
