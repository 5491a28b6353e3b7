#include "platform/loomis2/lab_color.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>

namespace quenzel7::loomis2 {
namespace {

std::uint32_t AnyColor() { return *rc::gen::inRange<std::uint32_t>(0, 0x1000000); }

/// By the formulas, in full precision.
std::array<double, 3> Exactly(std::uint32_t color) {
  const auto light = [&](int shift) {
    const double part = (color >> shift & 0xFF) / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  const double red = light(16), green = light(8), blue = light(0);
  const auto root = [](double value) {
    return value > 216.0 / 24389 ? std::cbrt(value) : (24389.0 / 27 * value + 16) / 116;
  };
  const double x = root((0.4124564 * red + 0.3575761 * green + 0.1804375 * blue) / 0.95047);
  const double y = root(0.2126729 * red + 0.7151522 * green + 0.0721750 * blue);
  const double z = root((0.0193339 * red + 0.1191920 * green + 0.9503041 * blue) / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

void ExpectLab(std::uint32_t color, double lightness, double a, double b) {
  constexpr double kNear = 0.006;
  const LabColor lab = LabOf(color);
  EXPECT_NEAR(lab.lightness, lightness, kNear) << std::hex << color;
  EXPECT_NEAR(lab.a, a, kNear) << std::hex << color;
  EXPECT_NEAR(lab.b, b, kNear) << std::hex << color;
}

TEST(LabOf, KnowsTheColorsOfTheBooks) {
  ExpectLab(0x000000, 0, 0, 0);
  ExpectLab(0xFFFFFF, 100, 0, 0);
  ExpectLab(0xFF0000, 53.24, 80.09, 67.20);
  ExpectLab(0x00FF00, 87.73, -86.18, 83.18);
  ExpectLab(0x0000FF, 32.30, 79.19, -107.86);
  ExpectLab(0x808080, 53.585, 0, 0);
  ExpectLab(0x0A0A0A, 2.74, 0, 0);
}

TEST(LabOf, IsCloseToTheFormulasForAllGraysAndAllColorsOfACoarseGrid) {
  const auto check = [](std::uint32_t color) {
    const auto exact = Exactly(color);
    const LabColor lab = LabOf(color);
    EXPECT_NEAR(lab.lightness, exact[0], 0.0008) << std::hex << color;
    EXPECT_NEAR(lab.a, exact[1], 0.0024) << std::hex << color;
    EXPECT_NEAR(lab.b, exact[2], 0.0012) << std::hex << color;
  };
  for (std::uint32_t gray = 0; gray < 256; ++gray) check(gray * 0x010101);
  for (std::uint32_t red = 0; red < 256; red += 15) {
    for (std::uint32_t green = 0; green < 256; green += 15) {
      for (std::uint32_t blue = 0; blue < 256; blue += 15) check(red << 16 | green << 8 | blue);
    }
  }
}

TEST(DistanceSquared, AddsTheSquaresOfAllThreeDifferences) {
  EXPECT_EQ(DistanceSquared({10, 20, 30}, {12, 17, 36}), 4.0f + 9 + 36);
  EXPECT_EQ(DistanceSquared({1, -2, 3}, {1, -2, 3}), 0.0f);
}

TEST(Preferences, ChangeByTheirStepsWithThePlace) {
  const Preference preference{10, {1, -2, 4}, 0.5f};
  EXPECT_EQ(preference.At(0, 0, 0), 10.0f);
  EXPECT_EQ(preference.At(1, 0.5f, -1), 10.0f + 1 - 1 - 4);
  EXPECT_EQ(preference.Least(), 10.0f - 1 - 2 - 4 - 0.5f);
}

TEST(LabCells, HaveTheirBoundsAtTheEndsOfTheirPlaces) {
  const LabCell cell(0x102030, 0x1F2F3F);
  for (std::size_t channel = 0; channel < 3; ++channel) {
    EXPECT_NEAR(cell.PlaceOf(channel, 0x10 + 0x10 * static_cast<std::uint32_t>(channel)), -1, 1e-5);
    EXPECT_NEAR(cell.PlaceOf(channel, 0x1F + 0x10 * static_cast<std::uint32_t>(channel)), 1, 1e-5);
  }
  // Light grows faster than the numbers: the middle number is below the middle.
  EXPECT_LT(cell.PlaceOf(0, 0x17), -0.05f);
}

TEST(LabCells, PreferOneOfTwoColorsForCertainWhenItIsMuchNearer) {
  const LabCell cell(0x800000, 0x830303);
  const LabColor red = LabOf(0x810101), green = LabOf(0x008000);
  EXPECT_NEAR(cell.Of(red, green).Least(), DistanceSquared(red, green), 1500);
  EXPECT_GT(cell.Of(red, green).Least(), 0);
  EXPECT_LT(cell.Of(green, red).Least(), 0);
  EXPECT_EQ(cell.Of(red, red).At(1, 1, 1), 0);
}

TEST(LabCells, AreTightEnoughToBeOfUse) {
  // Of four levels a channel, nothing is looser than a small part of the difference of two colours.
  const Preference preference = LabCell(0x808080, 0x838383).Of(LabOf(0x808080), LabOf(0x909090));
  EXPECT_LT(preference.loose, 1);
  EXPECT_NEAR(preference.atMiddle, DistanceSquared(LabOf(0x828282), LabOf(0x909090)), 12);
}

/// A cell with 1 << `bits` levels a channel.
struct AnyCell {
  AnyCell() {
    const int bits = *rc::gen::inRange(1, 6);
    const std::uint32_t rest = ((1u << bits) - 1) * 0x010101;
    low = AnyColor() & ~rest;
    high = low | rest;
    inside = low | (AnyColor() & rest);
  }
  std::uint32_t low, high, inside;
};

RC_GTEST_PROP(LabCells, KnowPreferencesAsCloselyAsTheyTell, ()) {
  const AnyCell any;
  const LabCell cell(any.low, any.high);
  const LabColor one = LabOf(AnyColor()), other = LabOf(AnyColor()), inside = LabOf(any.inside);
  const float real = DistanceSquared(inside, other) - DistanceSquared(inside, one);
  const Preference preference = cell.Of(one, other);
  const float told = preference.At(cell.PlaceOf(0, any.inside >> 16), cell.PlaceOf(1, any.inside >> 8 & 0xFF),
                                   cell.PlaceOf(2, any.inside & 0xFF));
  RC_ASSERT(std::abs(told - real) <= preference.loose);
  RC_ASSERT(preference.Least() <= real);
}

}  // namespace
}  // namespace quenzel7::loomis2
