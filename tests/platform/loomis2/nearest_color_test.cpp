#include "platform/loomis2/nearest_color.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace quenzel7::loomis2 {
namespace {

/// By comparison with each colour.
Byte NearestOf(const PanelColors& colors, std::uint32_t color) {
  std::size_t nearest = 0;
  for (std::size_t i = 1; i < colors.size(); ++i) {
    if (DistanceSquared(LabOf(color), LabOf(colors[i])) <
        DistanceSquared(LabOf(color), LabOf(colors[nearest])))
      nearest = i;
  }
  return static_cast<Byte>(nearest);
}

PanelColors AnyColors(std::size_t count) {
  return *rc::gen::container<PanelColors>(count, rc::gen::inRange<std::uint32_t>(0, 0x1000000));
}

TEST(NearestColor, HoldsItsColors) { EXPECT_EQ(NearestColor({5, 4, 3}).Colors(), (PanelColors{5, 4, 3})); }

TEST(NearestColor, IsTheOnlyOneOfASinglePanelColor) {
  NearestColor nearest({0x123456});
  EXPECT_EQ(nearest.Of(0), 0);
  EXPECT_EQ(nearest.Of(0xFFFFFF), 0);
}

TEST(NearestColor, IsTheFirstOfEqualOnes) {
  NearestColor nearest({0xFFFFFF, 0x808080, 0x000000, 0x808080, 0xFFFFFF});
  EXPECT_EQ(nearest.Of(0x808080), 1);
  EXPECT_EQ(nearest.Of(0x7F8180), 1);
  EXPECT_EQ(nearest.Of(0xFEFFFF), 0);
  EXPECT_EQ(nearest.Of(0), 2);
}

TEST(NearestColor, IsTheOneThatLooksNearestNotTheOneOfTheNearestNumbers) {
  // Dark blues look nearer to black than their numbers are.
  NearestColor nearest({0x000000, 0x0000FF});
  EXPECT_EQ(nearest.Of(0x000010), 0);
  EXPECT_EQ(nearest.Of(0x0000A0), 1);
  EXPECT_EQ(nearest.Of(0x000070), 1);
}

TEST(NearestColor, AnswersTheSameAgain) {
  NearestColor nearest({0x000000, 0xFFFFFF, 0xFF0000});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(nearest.Of(0x707070), NearestOf(nearest.Colors(), 0x707070));
    EXPECT_EQ(nearest.Of(0x737373), NearestOf(nearest.Colors(), 0x737373));
    EXPECT_EQ(nearest.Of(0xE01010), 2);
  }
}

TEST(NearestColor, IsExactInEveryColorOfACellThatACutRunsThrough) {
  // Grays whose middle lies in the cell of 0x80 to 0x83.
  NearestColor nearest({0x717171, 0x929292, 0x719271});
  int first = 0;
  for (std::uint32_t red = 0x80; red < 0x84; ++red) {
    for (std::uint32_t green = 0x80; green < 0x84; ++green) {
      for (std::uint32_t blue = 0x80; blue < 0x84; ++blue) {
        const std::uint32_t color = red << 16 | green << 8 | blue;
        EXPECT_EQ(nearest.Of(color), NearestOf(nearest.Colors(), color)) << std::hex << color;
        first += nearest.Of(color) == 0;
      }
    }
  }
  EXPECT_GT(first, 0);
  EXPECT_LT(first, 64);
}

RC_GTEST_PROP(NearestColor, IsThatOfAComparisonWithEachColor, ()) {
  const auto count = *rc::gen::element(1u, 2u, 3u, 16u, 200u, 256u);
  NearestColor nearest(AnyColors(count));
  for (const std::uint32_t color : AnyColors(200))
    RC_ASSERT(nearest.Of(color) == NearestOf(nearest.Colors(), color));
}

RC_GTEST_PROP(NearestColor, IsThatOfAComparisonAlsoWhereColorsCrowd, ()) {
  // All of the same few levels, so that cells have many candidates and many ties.
  const auto base = *rc::gen::inRange<std::uint32_t>(0, 0x1000000) & 0xF8F8F8;
  const auto near = [&] { return base | (*rc::gen::inRange<std::uint32_t>(0, 0x1000000) & 0x070707); };
  PanelColors colors;
  for (int i = 0; i < 24; ++i) colors.push_back(near());
  NearestColor nearest(colors);
  for (int i = 0; i < 100; ++i) {
    const std::uint32_t color = near();
    RC_ASSERT(nearest.Of(color) == NearestOf(colors, color));
  }
}

}  // namespace
}  // namespace quenzel7::loomis2
