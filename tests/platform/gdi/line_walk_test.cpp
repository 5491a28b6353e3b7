#include "platform/gdi/line_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <random>
#include <tuple>
#include <vector>

namespace quenzel7::gdi {
namespace {

using Pixels = std::vector<std::tuple<int, int, std::uint64_t>>;

Pixels Walk(POINT from, POINT to, int width = 20, int height = 20) {
  Pixels pixels;
  WalkLine(from, to, width, height,
           [&](int x, int y, std::uint64_t step) { pixels.emplace_back(x, y, step); });
  return pixels;
}

TEST(WalkLine, LeavesTheLastPointOut) {
  EXPECT_EQ(Walk({2, 5}, {5, 5}), (Pixels{{2, 5, 0}, {3, 5, 1}, {4, 5, 2}}));
  EXPECT_EQ(Walk({5, 5}, {2, 5}), (Pixels{{5, 5, 0}, {4, 5, 1}, {3, 5, 2}}));
  EXPECT_EQ(Walk({5, 2}, {5, 4}), (Pixels{{5, 2, 0}, {5, 3, 1}}));
  EXPECT_EQ(Walk({5, 4}, {5, 2}), (Pixels{{5, 4, 0}, {5, 3, 1}}));
  EXPECT_EQ(Walk({3, 3}, {3, 3}), Pixels{});
}

TEST(WalkLine, TakesTheUpperOrLeftPixelWhereTheLineRunsBetweenTwo) {
  EXPECT_EQ(Walk({0, 0}, {2, 1}), (Pixels{{0, 0, 0}, {1, 0, 1}}));
  EXPECT_EQ(Walk({2, 1}, {0, 0}), (Pixels{{2, 1, 0}, {1, 0, 1}}));
  EXPECT_EQ(Walk({0, 1}, {2, 0}), (Pixels{{0, 1, 0}, {1, 0, 1}}));
  EXPECT_EQ(Walk({2, 0}, {0, 1}), (Pixels{{2, 0, 0}, {1, 0, 1}}));
  EXPECT_EQ(Walk({0, 0}, {1, 2}), (Pixels{{0, 0, 0}, {0, 1, 1}}));
  EXPECT_EQ(Walk({1, 2}, {0, 0}), (Pixels{{1, 2, 0}, {0, 1, 1}}));
  EXPECT_EQ(Walk({1, 0}, {0, 2}), (Pixels{{1, 0, 0}, {0, 1, 1}}));
}

TEST(WalkLine, RoundsToTheNearestPixelAcross) {
  EXPECT_EQ(Walk({0, 0}, {3, 1}), (Pixels{{0, 0, 0}, {1, 0, 1}, {2, 1, 2}}));
  EXPECT_EQ(Walk({0, 0}, {3, 3}), (Pixels{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}}));
}

TEST(WalkLine, EveryPixelIsTheNearestOneOrTheUpperOrLeftOfTwo) {
  constexpr int kReach = 9;
  for (int dx = -kReach; dx <= kReach; ++dx) {
    for (int dy = -kReach; dy <= kReach; ++dy) {
      const int length = std::max(std::abs(dx), std::abs(dy));
      Pixels expected;
      for (int step = 0; step < length; ++step) {
        // The true line, in parts of which twice the length make a pixel; the smaller number wins a tie.
        const auto nearest = [&](int distance) {
          const int doubled = 2 * (10 * length + step * distance) + length - 1;
          return doubled / (2 * length);
        };
        expected.emplace_back(nearest(dx), nearest(dy), static_cast<std::uint64_t>(step));
      }
      EXPECT_EQ(Walk({10, 10}, {10 + dx, 10 + dy}), expected) << dx << " " << dy;
    }
  }
}

TEST(WalkLine, ClippingMovesNoPixelAndKeepsTheCount) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> anywhere(-90, 110);
  for (int i = 0; i < 2000; ++i) {
    const POINT from{anywhere(random), anywhere(random)}, to{anywhere(random), anywhere(random)};
    // The same line where nothing is cut off.
    Pixels expected;
    for (const auto& [x, y, step] : Walk({from.x + 100, from.y + 100}, {to.x + 100, to.y + 100}, 220, 220)) {
      if (x >= 100 && x < 120 && y >= 100 && y < 117) expected.emplace_back(x - 100, y - 100, step);
    }
    ASSERT_EQ(Walk(from, to, 20, 17), expected) << from.x << " " << from.y << " " << to.x << " " << to.y;
  }
}

TEST(WalkLine, ReachesAcrossTheWholePlane) {
  constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
  // A falling diagonal through (-1, -1) and (0, 0).
  const Pixels diagonal = Walk({kMin, kMin}, {kMax, kMax}, 3, 3);
  EXPECT_EQ(diagonal, (Pixels{{0, 0, 0x80000000}, {1, 1, 0x80000001}, {2, 2, 0x80000002}}));
  const Pixels rising = Walk({kMax, kMin}, {kMin, kMax}, 3, 3);
  EXPECT_EQ(rising, (Pixels{}));
  const Pixels row = Walk({kMax, 1}, {kMin, 1}, 2, 3);
  EXPECT_EQ(row, (Pixels{{1, 1, 0x7FFFFFFE}, {0, 1, 0x7FFFFFFF}}));
  // At x = 0 the true line lies 2^30 / (2^31 - 1) below 0: by a hair more than a half.
  const Pixels flat = Walk({kMin, -(1 << 30)}, {kMax - 1, 1 << 30}, 4, 4);
  EXPECT_EQ(flat, (Pixels{{0, 1, 0x80000000}, {1, 1, 0x80000001}, {2, 2, 0x80000002}, {3, 2, 0x80000003}}));
}

TEST(LineLength, IsTheLongerAxis) {
  EXPECT_EQ(LineLength({1, 1}, {4, -9}), 10u);
  EXPECT_EQ(LineLength({4, 1}, {-7, 3}), 11u);
  EXPECT_EQ(LineLength({std::numeric_limits<int>::min(), 0}, {std::numeric_limits<int>::max(), 0}),
            0xFFFFFFFFu);
}

}  // namespace
}  // namespace quenzel7::gdi
