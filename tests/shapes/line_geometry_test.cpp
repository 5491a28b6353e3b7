#include "shapes/line_geometry.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <utility>

#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;

constexpr Long kMost = 2147483647;
constexpr Long kLeast = -kMost - 1;

/// How many points of the box of a line, and of a margin around it, are near the box.
Long PointsNear(const Descriptor& line, Long penWidth) {
  Long count = 0;
  for (Long y = line.ys - 100; y <= line.ys + 100; ++y) {
    for (Long x = line.xs - 100; x <= line.xs + 100; ++x) count += PointNearBox(line, penWidth, x, y) ? 1 : 0;
  }
  return count;
}

/// The points near the box of a line are all those from (left, top) to (right, bottom) and no others.
void ExpectNear(const Descriptor& line, Long penWidth, Long left, Long top, Long right, Long bottom) {
  for (Long y = top; y <= bottom; ++y) {
    for (Long x = left; x <= right; ++x) {
      EXPECT_TRUE(PointNearBox(line, penWidth, x, y)) << x << ' ' << y << " width " << penWidth;
    }
  }
  EXPECT_EQ(PointsNear(line, penWidth), (right - left + 1) * (bottom - top + 1))
      << line.dx << ' ' << line.dy << " width " << penWidth;
}

// --- Tail ---

TEST(LineTail, IsTheHeadAndTheVector) {
  EXPECT_EQ(TailOf({10, 20, -13, 7}).x, -3);
  EXPECT_EQ(TailOf({10, 20, -13, 7}).y, 27);
  EXPECT_EQ(TailOf({kMost, kLeast, 0, 0}).x, kMost);
  EXPECT_EQ(TailOf({kMost, kLeast, 0, 0}).y, kLeast);
}

TEST(LineTail, OverflowsBeyond32Bits) {
  EXPECT_EQ(ErrorOf([] { TailOf({kMost, 0, 1, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { TailOf({0, kMost, 0, 1}); }), 6);
  EXPECT_EQ(ErrorOf([] { TailOf({kLeast, 0, -1, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { TailOf({0, kLeast, 0, -1}); }), 6);
}

// --- The box ---

TEST(LineBox, OfALineToTheRightHasHalfTheWidthMoreAboveOnly) {
  ExpectNear({10, 20, 30, 0}, 8, 10, 16, 40, 20);
  ExpectNear({10, 20, 30, 0}, 1, 10, 20, 40, 20);
}

TEST(LineBox, OfALineDownwardHasHalfTheWidthMoreOnTheLeftOnly) {
  ExpectNear({10, 20, 0, 30}, 8, 6, 20, 10, 50);
  ExpectNear({10, 20, 0, 30}, 1, 10, 20, 10, 50);
}

TEST(LineBox, OfALineToTheLeftOrUpwardHasNothingMore) {
  ExpectNear({40, 20, -30, 0}, 8, 10, 20, 40, 20);
  ExpectNear({10, 50, 0, -30}, 8, 10, 20, 10, 50);
}

TEST(LineBox, OfADiagonalIsWhatItsEndsSpanWhateverTheSigns) {
  ExpectNear({10, 20, 30, 40}, 8, 10, 20, 40, 60);
  ExpectNear({40, 20, -30, 40}, 8, 10, 20, 40, 60);
  ExpectNear({10, 60, 30, -40}, 8, 10, 20, 40, 60);
  ExpectNear({40, 60, -30, -40}, 8, 10, 20, 40, 60);
  // A vector of 1 along one axis is a diagonal like others.
  ExpectNear({10, 20, 30, 1}, 8, 10, 20, 40, 21);
  ExpectNear({10, 20, -1, 30}, 8, 9, 20, 10, 50);
}

TEST(LineBox, TakesTheWholePartOfHalfTheWidth) {
  for (const auto& [penWidth, half] : {std::pair<Long, Long>{0, 0}, {2, 1}, {3, 1}, {4, 2}, {7, 3}}) {
    ExpectNear({10, 20, 30, 0}, penWidth, 10, 20 - half, 40, 20);
    ExpectNear({10, 20, 0, 30}, penWidth, 10 - half, 20, 10, 50);
  }
}

TEST(LineBox, OfANegativeWidthIsTheLineItself) {
  // -1 halves to 0. From -2 on the grown box is empty, and what the ends span decides.
  for (const Long penWidth : {-1, -2, -3, -9}) {
    ExpectNear({10, 20, 30, 0}, penWidth, 10, 20, 40, 20);
    ExpectNear({10, 20, 0, 30}, penWidth, 10, 20, 10, 50);
  }
}

TEST(LineBox, OfALineWithoutLengthIsThatOfAVerticalOne) {
  ExpectNear({10, 20, 0, 0}, 8, 6, 20, 10, 20);
  ExpectNear({10, 20, 0, 0}, 1, 10, 20, 10, 20);
}

TEST(LineBox, TakesNumbersOf16Bits) {
  const Descriptor diagonal{0, 0, 5, 5};
  EXPECT_FALSE(PointNearBox(diagonal, 1, 32767, 2));
  EXPECT_FALSE(PointNearBox(diagonal, 1, 2, -32768));
  EXPECT_EQ(ErrorOf([&] { PointNearBox(diagonal, 1, 32768, 2); }), 6);
  EXPECT_EQ(ErrorOf([&] { PointNearBox(diagonal, 1, 2, -32769); }), 6);
  EXPECT_EQ(ErrorOf([] { PointNearBox({32768, 0, 5, 5}, 1, 2, 2); }), 6);
  EXPECT_EQ(ErrorOf([] { PointNearBox({0, 32768, 5, 5}, 1, 2, 2); }), 6);
  // A negative size counts by its normalised start.
  EXPECT_TRUE(PointNearBox({32767, 0, -32767, 5}, 1, 0, 2));
  EXPECT_EQ(ErrorOf([] { PointNearBox({-32768, 0, -1, 5}, 1, 2, 2); }), 6);
  EXPECT_EQ(ErrorOf([] { PointNearBox({0, -32768, 5, -1}, 1, 2, 2); }), 6);
}

TEST(LineBox, OnlyStraightLinesTakeTheWidthInto16Bits) {
  EXPECT_TRUE(PointNearBox({0, 0, 5, 0}, 65535, 0, -32767));
  EXPECT_EQ(ErrorOf([] { PointNearBox({0, 0, 5, 0}, 65536, 2, 0); }), 6);
  EXPECT_TRUE(PointNearBox({0, 0, 0, 5}, 65535, -32767, 0));
  EXPECT_EQ(ErrorOf([] { PointNearBox({0, 0, 0, 5}, 65536, 0, 2); }), 6);
  EXPECT_TRUE(PointNearBox({0, 0, 5, 5}, kMost, 2, 2));
  EXPECT_EQ(ErrorOf([] { PointNearBox({0, kLeast, 5, 0}, 2, 2, 2); }), 6);
  EXPECT_EQ(ErrorOf([] { PointNearBox({kLeast, 0, 0, 5}, 2, 2, 2); }), 6);
}

// --- Distance ---

TEST(DistanceToLine, IsMeasuredAtRightAngles) {
  const Descriptor line{10, 20, 40, 30};
  EXPECT_EQ(DistanceToLine(line, 30, 35), 0.0f);
  EXPECT_EQ(DistanceToLine(line, 27, 39), 5.0f);
  EXPECT_EQ(DistanceToLine(line, 33, 31), 5.0f);
  EXPECT_EQ(DistanceToLine({10, 20, 40, 0}, 25, 13), 7.0f);
  EXPECT_EQ(DistanceToLine({10, 20, 0, -40}, 21, 13), 11.0f);
}

TEST(DistanceToLine, IsTheSameFromEitherEnd) {
  EXPECT_EQ(DistanceToLine({50, 50, -40, -30}, 27, 39), 5.0f);
  EXPECT_EQ(DistanceToLine({10, 50, 40, -30}, 27, 31), 5.0f);
}

TEST(DistanceToLine, TakesTheLineForUnbounded) {
  EXPECT_EQ(DistanceToLine({10, 20, 40, 0}, 1000, 23), 3.0f);
  EXPECT_EQ(DistanceToLine({10, 20, 40, 0}, -1000, 17), 3.0f);
  EXPECT_EQ(DistanceToLine({10, 20, 4, 3}, 10 + 400 - 3, 20 + 300 + 4), 5.0f);
}

TEST(DistanceToLine, GoesByTheNearestPointInWholePixels) {
  // Along (2, 1) the point (1, 0) projects on (0.8, 0.4): pixel (1, 0).
  EXPECT_EQ(DistanceToLine({0, 0, 2, 1}, 1, 0), 0.0f);
  // (1, 1) projects on (1.2, 0.6): pixel (1, 1).
  EXPECT_EQ(DistanceToLine({0, 0, 2, 1}, 1, 1), 0.0f);
  // (0, 2) projects on (0.8, 0.4): pixel (1, 0), which is (-1, 2) away.
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 2, 1}, 0, 2), 2.236068f);
}

TEST(DistanceToLine, RoundsHalvesToTheEvenPixel) {
  // Along (3, 1) the point (1, 2) projects on (1.5, 0.5), pixel (2, 0); (5, 0) on (4.5, 1.5), pixel (4, 2);
  // (7, 4) on (7.5, 2.5), pixel (8, 2).
  const Single rootOf5 = 2.236068f;
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 3, 1}, 1, 2), rootOf5);
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 3, 1}, 5, 0), rootOf5);
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 3, 1}, 7, 4), rootOf5);
  // Backward on (-1.5, -0.5), pixel (-2, 0).
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 3, 1}, -1, -2), rootOf5);
}

TEST(DistanceToLine, IsReckonedInSinglePrecision) {
  // 825/1210 of 11 is 7.5, pixel 8; in double precision it would come out just below, pixel 7.
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 33, 11}, 21, 12), 4.1231056f);
  // 455/1690 of 39 is 10.5; in single precision it comes out just above, pixel 11 instead of the even 10.
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 39, 13}, 10, 5), 1.4142135f);
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 11, 33}, 12, 21), 4.1231056f);
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 13, 39}, 5, 10), 1.4142135f);
  // Products beyond 24 bits are rounded before they are divided, the upper and the lower one.
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 8590, 7856}, 2835, 2590), 1.4142135f);
  EXPECT_FLOAT_EQ(DistanceToLine({0, 0, 6383, 5161}, 3411, 2759), 1.4142135f);
}

TEST(DistanceToLine, OfALineWithoutLengthIsADivisionBy0) {
  EXPECT_RAISES(11, "a line of length 0 has no distance from a point", DistanceToLine({5, 6, 0, 0}, 5, 6));
  EXPECT_EQ(ErrorOf([] { DistanceToLine({5, 6, 0, 0}, 9, 9); }), 11);
  EXPECT_EQ(ErrorOf([] { DistanceToLine({5, 6, 1, 0}, 9, 9); }), 0);
  EXPECT_EQ(ErrorOf([] { DistanceToLine({5, 6, 0, -1}, 9, 9); }), 0);
}

TEST(DistanceToLine, OverflowsBeyond32Bits) {
  EXPECT_EQ(ErrorOf([] { DistanceToLine({-2, 0, 1, 1}, kMost, 0); }), 6);
  EXPECT_EQ(ErrorOf([] { DistanceToLine({0, -2, 1, 1}, 0, kMost); }), 6);
  // The nearest pixel of a far point: the largest number rounds up in single precision.
  EXPECT_EQ(ErrorOf([] { DistanceToLine({0, 0, 1, 0}, kMost, 0); }), 6);
  EXPECT_EQ(ErrorOf([] { DistanceToLine({0, 0, 0, 1}, 0, kMost); }), 6);
  // Lengths beyond 16 bits are lengths like others.
  EXPECT_EQ(DistanceToLine({0, 0, 1048576, 0}, 65536, 131072), 131072.0f);
}

// --- Out codes ---

TEST(OutCode, TellsTheSidesBeyondTheLimitsAndLimitsCountAsInside) {
  const Descriptor rectangle{10, 20, 30, 40};
  const Long columns[][2] = {{9, 8}, {10, 0}, {25, 0}, {40, 0}, {41, 4}};
  const Long rows[][2] = {{19, 1}, {20, 0}, {40, 0}, {60, 0}, {61, 2}};
  for (const auto& [x, across] : columns) {
    for (const auto& [y, down] : rows) EXPECT_EQ(OutCode(rectangle, {x, y}), across + down) << x << ' ' << y;
  }
}

TEST(OutCode, OfARectangleWithoutSizeIs0AtItsPointOnly) {
  const Descriptor point{10, 20, 0, 0};
  EXPECT_EQ(OutCode(point, {10, 20}), 0);
  EXPECT_EQ(OutCode(point, {9, 21}), 10);
  EXPECT_EQ(OutCode(point, {11, 19}), 5);
}

TEST(OutCode, OverflowsWhenAFarSideDoes) {
  EXPECT_EQ(ErrorOf([] { OutCode({kMost, 0, 1, 5}, {kMost, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { OutCode({0, kMost, 5, 1}, {0, kMost}); }), 6);
  EXPECT_EQ(OutCode({kMost - 1, 0, 1, 5}, {kMost, 0}), 0);
  // Also for a point on the near side, where the far one does not decide.
  EXPECT_EQ(ErrorOf([] { OutCode({kMost, 0, 1, 5}, {0, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { OutCode({0, kMost, 5, 1}, {0, 0}); }), 6);
}

/// The near limits are tried first from left to right, the far ones from below.
TEST(OutCode, OfANegativeSizeTriesLeftBeforeRightAndBelowBeforeAbove) {
  const Descriptor turned{40, 60, -30, -40};
  EXPECT_EQ(OutCode(turned, {25, 40}), 10);
  EXPECT_EQ(OutCode(turned, {39, 21}), 10);
  EXPECT_EQ(OutCode(turned, {40, 21}), 6);
  EXPECT_EQ(OutCode(turned, {39, 20}), 9);
  EXPECT_EQ(OutCode(turned, {40, 20}), 5);
  EXPECT_EQ(OutCode(turned, {10, 60}), 10);
}

// --- Crossing segments ---

TEST(SegmentsCross, WhenEachHasItsEndsOnBothSidesOfTheOther) {
  EXPECT_TRUE(SegmentsCross({0, 0}, {10, 10}, {0, 10}, {10, 0}));
  EXPECT_TRUE(SegmentsCross({10, 10}, {0, 0}, {0, 10}, {10, 0}));
  EXPECT_TRUE(SegmentsCross({0, 0}, {10, 10}, {10, 0}, {0, 10}));
  EXPECT_TRUE(SegmentsCross({5, 4}, {5, 6}, {0, 5}, {10, 5}));
}

TEST(SegmentsCross, NotWhenOneEndsShortOfTheOther) {
  // On both sides of the other's line, but beyond its end; each segment in turn.
  EXPECT_FALSE(SegmentsCross({11, 4}, {11, 6}, {0, 5}, {10, 5}));
  EXPECT_FALSE(SegmentsCross({0, 5}, {10, 5}, {11, 4}, {11, 6}));
  EXPECT_FALSE(SegmentsCross({0, 0}, {4, 4}, {0, 10}, {10, 0}));
  EXPECT_FALSE(SegmentsCross({0, 0}, {10, 0}, {0, 5}, {10, 5}));
}

TEST(SegmentsCross, NotWhenAnEndLiesOnTheOther) {
  const LinePoint left{0, 5}, right{10, 5};
  EXPECT_TRUE(SegmentsCross({5, 0}, {5, 6}, left, right));
  EXPECT_FALSE(SegmentsCross({5, 0}, {5, 5}, left, right));
  EXPECT_FALSE(SegmentsCross({5, 5}, {5, 0}, left, right));
  EXPECT_FALSE(SegmentsCross(left, right, {5, 0}, {5, 5}));
  EXPECT_FALSE(SegmentsCross(left, right, {5, 5}, {5, 0}));
  // Through the end, and along one line.
  EXPECT_FALSE(SegmentsCross({10, 0}, {10, 10}, left, right));
  EXPECT_FALSE(SegmentsCross({-5, 5}, {15, 5}, left, right));
}

TEST(SegmentsCross, ReckonsWithProductsOf64Bits) {
  constexpr Long kFar = 1000000000;
  EXPECT_TRUE(SegmentsCross({-kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}, {kFar, -kFar}));
  // The end lies one pixel off the diagonal, on either side.
  EXPECT_TRUE(SegmentsCross({-kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}, {kFar - 1, kFar - 2}));
  EXPECT_FALSE(SegmentsCross({-kFar, -kFar}, {kFar, kFar}, {-kFar, kFar}, {kFar - 2, kFar - 1}));
}

TEST(SegmentsCross, OverflowsWhenADistanceDoes) {
  EXPECT_EQ(ErrorOf([] { SegmentsCross({-2, 0}, {0, 5}, {kMost, 0}, {0, 9}); }), 6);
  EXPECT_EQ(ErrorOf([] { SegmentsCross({0, -2}, {5, 0}, {0, kMost}, {9, 0}); }), 6);
}

// --- Lines and rectangles ---

TEST(LineMeetsRect, WhenAnEndLiesInItLimitsIncluded) {
  const Descriptor rectangle{10, 20, 30, 40};
  for (const auto& [x, y] : {std::pair<Long, Long>{10, 20}, {40, 20}, {40, 60}, {10, 60}, {25, 40}}) {
    const Long dx = x < 25 ? -5 : 5;
    const Long dy = y < 40 ? -5 : 5;
    EXPECT_TRUE(LineMeetsRect({x, y, dx, dy}, rectangle)) << x << ' ' << y;
    EXPECT_TRUE(LineMeetsRect({x + dx, y + dy, -dx, -dy}, rectangle)) << x << ' ' << y;
  }
  EXPECT_FALSE(LineMeetsRect({9, 19, -5, -5}, rectangle));
  EXPECT_TRUE(LineMeetsRect({12, 22, 3, 3}, rectangle));
}

TEST(LineMeetsRect, NotWhenBothEndsLieBeyondTheSameSide) {
  const Descriptor rectangle{10, 20, 30, 40};
  EXPECT_FALSE(LineMeetsRect({0, 0, 9, 80}, rectangle));
  EXPECT_FALSE(LineMeetsRect({41, 0, 9, 80}, rectangle));
  EXPECT_FALSE(LineMeetsRect({0, 0, 80, 19}, rectangle));
  EXPECT_FALSE(LineMeetsRect({0, 61, 80, 9}, rectangle));
}

TEST(LineMeetsRect, TriesNoCrossingWhenBothEndsLieBeyondTheSameSide) {
  // The distance from line to rectangle fits no number, so trying would fail.
  constexpr Long kFar = 1500000000;
  EXPECT_EQ(LineMeetsRect({-kFar, 0, 5, 90}, {kFar, 10, 30, 40}), false);
  EXPECT_EQ(LineMeetsRect({kFar, 0, 5, 90}, {-kFar, 10, 30, 40}), false);
  EXPECT_EQ(LineMeetsRect({0, -kFar, 90, 5}, {10, kFar, 30, 40}), false);
  EXPECT_EQ(LineMeetsRect({0, kFar, 90, 5}, {10, -kFar, 30, 40}), false);
  EXPECT_EQ(ErrorOf([] { LineMeetsRect({-kFar, 0, 3, 90}, {2 - kFar, 10, kMost, 40}); }), 6);
}

TEST(LineMeetsRect, WhenItCrossesOneOfTheSides) {
  const Descriptor rectangle{10, 10, 20, 20};
  // Through two opposite sides.
  EXPECT_TRUE(LineMeetsRect({0, 15, 50, 5}, rectangle));
  EXPECT_TRUE(LineMeetsRect({15, 0, 5, 50}, rectangle));
  // Round a corner without meeting it, and cutting it off.
  EXPECT_FALSE(LineMeetsRect({0, 15, 15, -15}, rectangle));
  EXPECT_TRUE(LineMeetsRect({0, 25, 25, -25}, rectangle));
}

TEST(LineMeetsRect, CrossingASingleSideIsEnough) {
  const Descriptor rectangle{10, 10, 20, 20};
  // In through one side and out exactly through a corner, which counts as no crossing.
  EXPECT_TRUE(LineMeetsRect({15, 0, 30, 60}, rectangle)) << "top";
  EXPECT_TRUE(LineMeetsRect({40, 25, -60, -30}, rectangle)) << "right";
  EXPECT_TRUE(LineMeetsRect({25, 40, -30, -60}, rectangle)) << "bottom";
  EXPECT_TRUE(LineMeetsRect({0, 15, 60, 30}, rectangle)) << "left";
}

TEST(LineMeetsRect, NotByTouchingACornerOrRunningAlongASide) {
  const Descriptor rectangle{10, 10, 20, 20};
  EXPECT_FALSE(LineMeetsRect({0, 20, 20, -20}, rectangle));
  EXPECT_FALSE(LineMeetsRect({0, 10, 50, 0}, rectangle));
  EXPECT_FALSE(LineMeetsRect({30, 0, 0, 50}, rectangle));
  // Through two opposite corners: the ends of all sides lie on the line or on one side of it.
  EXPECT_FALSE(LineMeetsRect({0, 0, 50, 50}, rectangle));
  EXPECT_TRUE(LineMeetsRect({0, 1, 50, 50}, rectangle));
}

TEST(LineMeetsRect, ARectangleOfNegativeSizesHasNoInside) {
  const Descriptor turned{40, 60, -30, -40};
  EXPECT_FALSE(LineMeetsRect({20, 30, 5, 5}, turned));
  EXPECT_FALSE(LineMeetsRect({0, 40, 80, 0}, turned));
  // Codes 6 and 9 have nothing in common, so its sides are tried.
  EXPECT_TRUE(LineMeetsRect({45, 25, -40, -7}, turned));
}

TEST(LineMeetsRect, ARectangleWithoutSizeOnlyWithAnEndOrAcrossItsLength) {
  EXPECT_FALSE(LineMeetsRect({0, 0, 20, 20}, {10, 10, 0, 0}));
  EXPECT_TRUE(LineMeetsRect({0, 0, 10, 10}, {10, 10, 0, 0}));
  EXPECT_TRUE(LineMeetsRect({0, 0, 20, 20}, {5, 10, 9, 0}));
}

/// Whether the line crosses, between its ends and strictly between the ends of the side, a side of the
/// rectangle that runs along the other axis: told by how far along the axis the line is when it is at the
/// side, in whole numbers times its extent.
bool PassesThrough(Long from, Long to, Long side, Long otherFrom, Long otherTo, Long low, Long high) {
  if ((from - side) * (to - side) >= 0) return false;
  std::int64_t extent = to - from;
  std::int64_t at = otherFrom * extent + std::int64_t{side - from} * (otherTo - otherFrom);
  if (extent < 0) {
    extent = -extent;
    at = -at;
  }
  return at > low * extent && at < high * extent;
}

TEST(LineMeetsRect, AgreesWithTheCrossingsOfEverySideOverRandomLinesAndRectangles) {
  std::mt19937 random(2);
  const auto below = [&random](std::uint32_t end) { return static_cast<Long>(random() % end); };
  Long ends = 0, crossings = 0, misses = 0;
  for (const std::uint32_t field : {8u, 20u, 100u}) {
    for (int round = 0; round < 40000; ++round) {
      const Long x1 = below(field), y1 = below(field), x2 = below(field), y2 = below(field);
      const Long left = below(field), top = below(field), dx = below(field / 2), dy = below(field / 2);
      const Long right = left + dx, bottom = top + dy;
      const auto inside = [&](Long x, Long y) { return x >= left && x <= right && y >= top && y <= bottom; };
      const bool hasEnd = inside(x1, y1) || inside(x2, y2);
      const bool passes = PassesThrough(x1, x2, left, y1, y2, top, bottom) ||
                          PassesThrough(x1, x2, right, y1, y2, top, bottom) ||
                          PassesThrough(y1, y2, top, x1, x2, left, right) ||
                          PassesThrough(y1, y2, bottom, x1, x2, left, right);
      ASSERT_EQ(LineMeetsRect({x1, y1, x2 - x1, y2 - y1}, {left, top, dx, dy}), hasEnd || passes)
          << x1 << ',' << y1 << " to " << x2 << ',' << y2 << " and " << left << ',' << top << " to " << right
          << ',' << bottom;
      (hasEnd ? ends : passes ? crossings : misses) += 1;
    }
  }
  // Every outcome is met often.
  EXPECT_GT(ends, 10000);
  EXPECT_GT(crossings, 5000);
  EXPECT_GT(misses, 10000);
}

}  // namespace
}  // namespace quenzel7
