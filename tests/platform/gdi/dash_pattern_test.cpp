#include "platform/gdi/dash_pattern.h"

#include <gtest/gtest.h>

#include <string>

namespace quenzel7::gdi {
namespace {

std::string Drawn(std::uint32_t style, std::uint64_t from = 0) {
  std::string text;
  for (std::uint64_t i = 0; i < 24; ++i) text += DashPattern(style).IsGap(from + i) ? '.' : '#';
  return text;
}

TEST(DashPattern, DashIs18And6) { EXPECT_EQ(Drawn(PS_DASH), "##################......"); }
TEST(DashPattern, DotIs3And3) { EXPECT_EQ(Drawn(PS_DOT), "###...###...###...###..."); }
TEST(DashPattern, DashDotIs9636) { EXPECT_EQ(Drawn(PS_DASHDOT), "#########......###......"); }
TEST(DashPattern, DashDotDotIs933333) { EXPECT_EQ(Drawn(PS_DASHDOTDOT), "#########...###...###..."); }

TEST(DashPattern, OtherStylesHaveNoGaps) {
  for (const std::uint32_t style : {PS_SOLID, PS_NULL, PS_INSIDEFRAME}) {
    EXPECT_EQ(Drawn(style), std::string(24, '#')) << style;
  }
}

TEST(DashPattern, RepeatsEvery24Pixels) {
  for (std::uint32_t style = PS_DASH; style <= PS_DASHDOTDOT; ++style) {
    EXPECT_EQ(Drawn(style, 24), Drawn(style)) << style;
    EXPECT_EQ(Drawn(style, 24ull * 1'000'000'007), Drawn(style)) << style;
  }
}

}  // namespace
}  // namespace quenzel7::gdi
