/// Where a line is hit, by a point and by a rectangle.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>

#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using test::Placed;

constexpr Long kMost = 2147483647;

using HitLine = test::ShapeTest<clsLine>;

// --- Hits by a point ---

std::shared_ptr<clsLine> At(Long xs, Long ys, Long dx, Long dy) { return Placed<clsLine>(xs, ys, dx, dy); }

bool IsHit(const Descriptor& place, Long penWidth, Long x, Long y) {
  const auto line = Placed<clsLine>(place);
  line->PenWidth(penWidth);
  return line->HitTestByPoint(x, y);
}

TEST_F(HitLine, IsHitCloserThanHalfItsWidthAndOneAndAHalfPixels) {
  // (22, 24) and (28, 16) lie 5 pixels beside the middle of the first line; (32, 32) lies the root of 8
  // beside that of the second, (31, 31) the root of 2, and (30, 30) on it.
  const Descriptor first{5, 5, 40, 30};
  const Descriptor second{10, 50, 40, -40};
  struct Case {
    Descriptor line;
    Long x, y, missedWidth, hitWidth;
  };
  const Case cases[] = {{first, 22, 24, 7, 8},   {first, 28, 16, 7, 8},   {second, 32, 32, 2, 3},
                        {second, 28, 28, 2, 3},  {second, 31, 31, -1, 0}, {second, 29, 29, -1, 0},
                        {second, 30, 30, -3, -2}};
  for (const Case& c : cases) {
    EXPECT_FALSE(IsHit(c.line, c.missedWidth, c.x, c.y)) << c.x << ' ' << c.y;
    EXPECT_TRUE(IsHit(c.line, c.hitWidth, c.x, c.y)) << c.x << ' ' << c.y;
  }
}

TEST_F(HitLine, PastItsEndsADiagonalIsNotHitHoweverThick) {
  const Descriptor place{10, 10, 30, 30};
  EXPECT_TRUE(IsHit(place, 50, 10, 10));
  EXPECT_TRUE(IsHit(place, 50, 40, 40));
  EXPECT_FALSE(IsHit(place, 50, 9, 9));
  EXPECT_FALSE(IsHit(place, 50, 41, 41));
  // Beside an end within the width, but out of the box.
  EXPECT_FALSE(IsHit(place, 50, 9, 11));
  EXPECT_TRUE(IsHit(place, 50, 10, 12));
}

TEST_F(HitLine, AStraightLineIsHitByHalfItsWidthAboveOrOnItsLeftOnly) {
  EXPECT_TRUE(IsHit({10, 20, 30, 0}, 8, 25, 16));
  EXPECT_FALSE(IsHit({10, 20, 30, 0}, 8, 25, 15));
  EXPECT_FALSE(IsHit({10, 20, 30, 0}, 8, 25, 21));
  EXPECT_TRUE(IsHit({10, 20, 0, 30}, 8, 6, 35));
  EXPECT_FALSE(IsHit({10, 20, 0, 30}, 8, 5, 35));
  EXPECT_FALSE(IsHit({10, 20, 0, 30}, 8, 11, 35));
}

TEST_F(HitLine, IsHitNearTheBoxAtRestAndNearTheLineThatIsDisplayed) {
  const auto line = At(10, 10, 20, 20);
  line->Move(0, 300);
  line->SaveLastLegalPosition();
  line->Move(100, 0);
  line->UpdateDisplayWithTransx();
  EXPECT_FALSE(line->HitTestByPoint(20, 20)) << "the displayed line is far";
  EXPECT_FALSE(line->HitTestByPoint(120, 20)) << "the box at rest is far";
  line->Move(5, 5);
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByPoint(10, 10)) << "on the displayed line, beyond its end";
  line->Stretch(0, -20, ePD_LineTail);
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByPoint(25, 10));
  EXPECT_FALSE(line->HitTestByPoint(25, 25));
}

TEST_F(HitLine, WithoutLengthAHitIsADivisionBy0UnlessTheBoxIsMissed) {
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 0, 0}, 4, 10, 20); }), 11);
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 0, 0}, 4, 8, 20); }), 11);
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 7, 20));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 11, 20));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 10, 19));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 10, 21));
}

TEST_F(HitLine, TheLengthThatCountsIsTheDisplayedOne) {
  const auto line = At(10, 20, 30, 30);
  line->Stretch(-30, -30, ePD_LineTail);
  line->UpdateDisplayWithTransx();
  EXPECT_EQ(ErrorOf([&] { line->HitTestByPoint(25, 35); }), 11);
  EXPECT_FALSE(line->HitTestByPoint(25, 51));
  const auto grown = At(10, 20, 0, 0);
  grown->Stretch(30, 30, ePD_LineTail);
  grown->UpdateDisplayWithTransx();
  EXPECT_TRUE(grown->HitTestByPoint(10, 20));
}

TEST_F(HitLine, HitsOverflowBeyond16Bits) {
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 30, 30}, 1, 32768, 30); }), 6);
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 30, 30}, 1, 20, -32769); }), 6);
  EXPECT_FALSE(IsHit({10, 20, 30, 30}, 1, 32767, -32768));
}

/// A diagonal at rest that is displayed as a horizontal line, far below.
TEST_F(HitLine, TheReachIsReckonedInSinglePrecision) {
  constexpr Long kFar = 8388611;
  const auto line = At(0, 10 + kFar, 20, 0);
  const auto rest = [&line] {
    line->SaveLastLegalPosition();
    line->UpdateInitialDescriptor();
  };
  line->Move(0, -10 - kFar);
  rest();
  line->Stretch(0, 20, ePD_LineTail);
  rest();
  ASSERT_EQ(test::DescriptorOf(*line, 1), (Descriptor{0, 0, 20, 20}));
  ASSERT_EQ(test::DescriptorOf(*line, 4), (Descriptor{0, 10 + kFar, 20, 0}));
  // Half of the width, which becomes 16777220, and 1.5 are 8388611.5: 8388612 in single precision.
  line->PenWidth(16777219);
  EXPECT_TRUE(line->HitTestByPoint(10, 10));
  // Here they are 8388609.5, 8388610.
  line->PenWidth(16777217);
  EXPECT_FALSE(line->HitTestByPoint(10, 10));
}

/// Whether a point is on a line, reckoned otherwise: the box pixel by pixel, the nearest pixel from a
/// quotient of whole numbers that is rounded to single precision, and the distance compared by its square.
bool IsOnLine(const Descriptor& line, Long penWidth, Long x, Long y) {
  const auto [xs, ys, dx, dy] = line;
  const bool inColumns = (x - xs) * (x - xs - dx) <= 0;
  const bool inRows = (y - ys) * (y - ys - dy) <= 0;
  const Long half = penWidth / 2;
  const bool above = dy == 0 && dx > 0 && inColumns && y <= ys && ys - y <= half;
  const bool onLeft = dx == 0 && dy >= 0 && inRows && x <= xs && xs - x <= half;
  if (!(inColumns && inRows) && !above && !onLeft) return false;

  const Long x0 = x - xs;
  const Long y0 = y - ys;
  const long double quotient = static_cast<long double>(x0 * dx + y0 * dy) / (dx * dx + dy * dy);
  const auto along = static_cast<float>(quotient);
  const auto pixel = [along](Long size) {
    return static_cast<Long>(std::nearbyint(static_cast<float>(along * static_cast<float>(size))));
  };
  const Long offX = x0 - pixel(dx);
  const Long offY = y0 - pixel(dy);
  const Long twiceTheReach = penWidth + 3;
  return twiceTheReach > 0 && 4 * (offX * offX + offY * offY) < twiceTheReach * twiceTheReach;
}

TEST_F(HitLine, HitsAgreeWithEveryPointAroundRandomLines) {
  std::mt19937 random(1);
  const auto between = [&random](Long low, Long high) {
    return low + static_cast<Long>(random() % static_cast<std::uint32_t>(high - low + 1));
  };
  Long hits = 0;
  for (int round = 0; round < 600; ++round) {
    Descriptor place{between(-40, 40), between(-40, 40), between(-40, 40), between(-40, 40)};
    // Straight lines are rare by chance.
    if (round % 6 == 0) place.dx = 0;
    if (round % 6 == 1) place.dy = 0;
    if (place.dx == 0 && place.dy == 0) continue;
    const auto line = Placed<clsLine>(place);
    const Long penWidth = between(-4, 14);
    line->PenWidth(penWidth);
    const Long left = std::min(place.xs, place.xs + place.dx),
               right = std::max(place.xs, place.xs + place.dx);
    const Long top = std::min(place.ys, place.ys + place.dy),
               bottom = std::max(place.ys, place.ys + place.dy);
    for (Long y = top - 9; y <= bottom + 9; ++y) {
      for (Long x = left - 9; x <= right + 9; ++x) {
        const bool expected = IsOnLine(place, penWidth, x, y);
        ASSERT_EQ(line->HitTestByPoint(x, y), expected)
            << x << ',' << y << " and " << place.xs << ',' << place.ys << " by " << place.dx << ','
            << place.dy << " width " << penWidth;
        hits += expected ? 1 : 0;
      }
    }
  }
  EXPECT_GT(hits, 50000);
}

// --- Hits by a rectangle ---

TEST_F(HitLine, IsHitByARectangleWithOneOfItsEnds) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_TRUE(line->HitTestByRect(5, 15, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(5, 15, 4, 5));
  EXPECT_FALSE(line->HitTestByRect(5, 15, 5, 4));
  EXPECT_TRUE(line->HitTestByRect(40, 60, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(41, 60, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(40, 61, 5, 5));
}

TEST_F(HitLine, IsHitByASmallRectangleThroughWhichItPasses) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_TRUE(line->HitTestByRect(24, 38, 3, 4));
  EXPECT_FALSE(line->HitTestByRect(28, 38, 3, 3));
  EXPECT_FALSE(line->HitTestByRect(-30, 10, 30, 90));
}

TEST_F(HitLine, IsHitByARectangleAtDescriptor1) {
  const auto line = At(10, 20, 30, 40);
  line->Move(100, 0);
  line->SaveLastLegalPosition();
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByRect(5, 15, 10, 10));
  EXPECT_FALSE(line->HitTestByRect(105, 15, 10, 10));
}

TEST_F(HitLine, IsHitByRectanglesBeyond16BitsToo) {
  EXPECT_TRUE(At(40000, 50000, 30, 40)->HitTestByRect(39990, 49990, 100, 100));
  EXPECT_FALSE(At(40000, 50000, 30, 40)->HitTestByRect(0, 0, 100, 100));
  EXPECT_EQ(ErrorOf([] { At(kMost, 0, 1, 1)->HitTestByRect(0, 0, 1, 1); }), 6);
}

}  // namespace
}  // namespace quenzel7
