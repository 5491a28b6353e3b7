#include "framework/geometry.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;

constexpr Long kOverflow = 6;

TEST(PointInRect, IncludesAllFourLimitsAndNothingBeyond) {
  // The rectangle spans 10 to 30 and 20 to 25.
  EXPECT_TRUE(PointInRect(10, 20, 10, 20, 20, 5));
  EXPECT_TRUE(PointInRect(30, 25, 10, 20, 20, 5));
  EXPECT_TRUE(PointInRect(30, 20, 10, 20, 20, 5));
  EXPECT_TRUE(PointInRect(10, 25, 10, 20, 20, 5));
  EXPECT_FALSE(PointInRect(9, 20, 10, 20, 20, 5));
  EXPECT_FALSE(PointInRect(31, 20, 10, 20, 20, 5));
  EXPECT_FALSE(PointInRect(10, 19, 10, 20, 20, 5));
  EXPECT_FALSE(PointInRect(10, 26, 10, 20, 20, 5));
}

TEST(PointInRect, OfSizeZeroIsItsOnePoint) {
  EXPECT_TRUE(PointInRect(4, 4, 4, 4, 0, 0));
  EXPECT_FALSE(PointInRect(5, 4, 4, 4, 0, 0));
  EXPECT_FALSE(PointInRect(4, 3, 4, 4, 0, 0));
}

TEST(PointInRect, OfNegativeSizeHasNoPoint) {
  EXPECT_FALSE(PointInRect(4, 4, 4, 4, -1, 0));
  EXPECT_FALSE(PointInRect(4, 4, 4, 4, 0, -1));
}

TEST(PointInRect, TakesEveryArgumentIn16Bits) {
  EXPECT_TRUE(PointInRect(32767, -32768, 32767, -32768, 0, 0));
  for (int argument = 0; argument < 6; ++argument) {
    for (const Long value : {32768, -32769, 40000}) {
      Long a[6] = {};
      a[argument] = value;
      EXPECT_EQ(ErrorOf([&a] { PointInRect(a[0], a[1], a[2], a[3], a[4], a[5]); }), kOverflow)
          << "argument " << argument << " = " << value;
    }
  }
}

TEST(PointInRect, MaySpanBeyond16Bits) {
  EXPECT_TRUE(PointInRect(32767, 32767, 32000, 32000, 32767, 32767));
  EXPECT_FALSE(PointInRect(31999, 32000, 32000, 32000, 32767, 32767));
}

struct Meeting {
  const char* what;
  Long a[4];
  Long b[4];
  bool meet;
};

constexpr Meeting kMeetings[] = {
    {"corner of a inside b: top left", {5, 5, 20, 20}, {0, 0, 10, 10}, true},
    {"corner of a inside b: top right", {-15, 5, 20, 20}, {0, 0, 10, 10}, true},
    {"corner of a inside b: bottom left", {5, -15, 20, 20}, {0, 0, 10, 10}, true},
    {"corner of a inside b: bottom right", {-15, -15, 20, 20}, {0, 0, 10, 10}, true},
    {"a around b", {-5, -5, 30, 30}, {0, 0, 10, 10}, true},
    {"b's corners on a's right side only", {-20, -5, 25, 30}, {0, 0, 10, 10}, true},
    {"b's corners on a's left side only", {5, -5, 30, 30}, {0, 0, 10, 10}, true},
    {"a upright through b lying, no corner inside", {5, -10, 2, 40}, {0, 0, 10, 10}, true},
    {"a lying through b upright, no corner inside", {-10, 5, 40, 2}, {0, 0, 10, 10}, true},
    {"upright and exactly as wide", {0, -10, 10, 40}, {0, 0, 10, 10}, true},
    {"upright and exactly as high", {5, 0, 2, 10}, {0, 0, 10, 10}, true},
    {"lying and exactly as high", {-10, 0, 40, 10}, {0, 0, 10, 10}, true},
    {"only an edge shared, right", {10, 0, 5, 10}, {0, 0, 10, 10}, true},
    {"only an edge shared, below", {0, 10, 10, 5}, {0, 0, 10, 10}, true},
    {"only a corner shared", {10, 10, 5, 5}, {0, 0, 10, 10}, true},
    {"one pixel apart, right", {11, 0, 5, 10}, {0, 0, 10, 10}, false},
    {"one pixel apart, left", {-6, 0, 5, 10}, {0, 0, 10, 10}, false},
    {"one pixel apart, below", {0, 11, 10, 5}, {0, 0, 10, 10}, false},
    {"one pixel apart, above", {0, -6, 10, 5}, {0, 0, 10, 10}, false},
    {"upright but beside", {12, -10, 2, 40}, {0, 0, 10, 10}, false},
    {"upright but left of it", {-3, -10, 2, 40}, {0, 0, 10, 10}, false},
    {"lying but below", {-10, 12, 40, 2}, {0, 0, 10, 10}, false},
    {"lying but above", {-10, -3, 40, 2}, {0, 0, 10, 10}, false},
    {"upright, sticking out at one side, not reaching the bottom", {5, -10, 2, 9}, {0, 0, 10, 10}, false},
};

TEST(RectsMeet, ByCornersAndByCrossing) {
  for (const Meeting& m : kMeetings) {
    EXPECT_EQ(RectsMeet(m.a[0], m.a[1], m.a[2], m.a[3], m.b[0], m.b[1], m.b[2], m.b[3]), m.meet) << m.what;
    EXPECT_EQ(RectsMeet(m.b[0], m.b[1], m.b[2], m.b[3], m.a[0], m.a[1], m.a[2], m.a[3]), m.meet)
        << m.what << ", exchanged";
  }
}

/// A size below 0, as a rubber band that is drawn to the upper left has, turns a span round; the tests go by
/// their words all the same.
constexpr Meeting kBackward[] = {
    {"right bottom corner of a inside b", {12, 12, -4, -4}, {0, 0, 10, 10}, true},
    {"left bottom corner of a inside b", {8, 12, 4, -4}, {0, 0, 10, 10}, true},
    {"right top corner of a inside b", {12, 8, -4, 4}, {0, 0, 10, 10}, true},
    {"upright at the left limit", {0, -10, -1, 40}, {0, 0, 10, 10}, true},
    {"upright at the right limit", {11, -10, -1, 40}, {0, 0, 10, 10}, true},
    {"upright at the top limit", {5, 0, 2, 5}, {0, 0, 10, -1}, true},
    {"upright at the bottom limit", {5, -6, 2, 5}, {0, 0, 10, -1}, true},
    {"left bottom corner of a flat a inside b", {10, 2, -1, 4}, {10, 5, 3, 3}, true},
    {"lying over a flat b at its left limit", {10, 5, 10, 2}, {10, 0, -1, 20}, true},
    {"lying over a flat b at its right limit", {10, 5, 10, 2}, {21, 0, -1, 20}, true},
    {"upright over a flat b at its top limit", {12, 5, 2, 3}, {10, 5, 10, -1}, true},
    {"upright over a flat b at its bottom limit", {12, 2, 2, 2}, {10, 5, 10, -1}, true},
};

TEST(RectsMeet, GoesByItsWordsForNegativeSizesToo) {
  for (const Meeting& m : kBackward) {
    EXPECT_EQ(RectsMeet(m.a[0], m.a[1], m.a[2], m.a[3], m.b[0], m.b[1], m.b[2], m.b[3]), m.meet) << m.what;
    EXPECT_EQ(RectsMeet(m.b[0], m.b[1], m.b[2], m.b[3], m.a[0], m.a[1], m.a[2], m.a[3]), m.meet)
        << m.what << ", exchanged";
  }
}

TEST(RectsMeet, TriesTheCornersOfTheFirstRectangleFirst) {
  EXPECT_TRUE(RectsMeet(30000, 5, 10, 10, 20000, 0, 20000, 10));
  EXPECT_EQ(ErrorOf([] { RectsMeet(20000, 0, 20000, 10, 30000, 5, 10, 10); }), kOverflow);
}

TEST(PointInRect, TakesTheRowIn16BitsAlsoWhenTheColumnLiesOutside) {
  EXPECT_EQ(ErrorOf([] { PointInRect(100, 40000, 0, 0, 10, 10); }), kOverflow);
}

/// Two rectangles of sizes that are not negative meet exactly when their spans overlap on both axes.
TEST(RectsMeet, AgreesWithOverlappingSpansOnAllSmallRectangles) {
  const auto spansMeet = [](Long a, Long aSize, Long b, Long bSize) {
    return a <= b + bSize && b <= a + aSize;
  };
  for (Long ax = -3; ax <= 3; ++ax) {
    for (Long ay = -3; ay <= 3; ++ay) {
      for (Long adx = 0; adx <= 4; ++adx) {
        for (Long ady = 0; ady <= 4; ++ady) {
          for (const Long bdx : {0, 1, 3}) {
            for (const Long bdy : {0, 2}) {
              EXPECT_EQ(RectsMeet(ax, ay, adx, ady, 0, 0, bdx, bdy),
                        spansMeet(ax, adx, 0, bdx) && spansMeet(ay, ady, 0, bdy))
                  << ax << ' ' << ay << ' ' << adx << ' ' << ady << ' ' << bdx << ' ' << bdy;
            }
          }
        }
      }
    }
  }
}

TEST(RectsMeet, TakesEveryArgumentIn16Bits) {
  for (int argument = 0; argument < 8; ++argument) {
    for (const Long value : {32768, -32769, 40000}) {
      Long a[8] = {};
      a[argument] = value;
      EXPECT_EQ(ErrorOf([&a] { RectsMeet(a[0], a[1], a[2], a[3], a[4], a[5], a[6], a[7]); }), kOverflow)
          << "argument " << argument << " = " << value;
    }
  }
}

TEST(RectsMeet, OverflowsWhenACornerToTestLiesBeyond16Bits) {
  // The first corner lies inside, so the far ones are not looked at.
  EXPECT_TRUE(RectsMeet(30000, 0, 10000, 10, 30000, 0, 10, 10));
  EXPECT_EQ(ErrorOf([] { RectsMeet(30000, 0, 10000, 10, 0, 0, 10, 10); }), kOverflow);
}

}  // namespace
}  // namespace quenzel7
