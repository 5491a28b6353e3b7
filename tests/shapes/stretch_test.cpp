#include "shapes/stretch.h"

#include <gtest/gtest.h>

#include <tuple>

#include "framework/enums.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;

constexpr Descriptor kRest{10, 50, 20, 30};

Descriptor Stretched(Long dx, Long dy, Long direction) {
  return quenzel7::Stretched(kRest, dx, dy, direction).descriptor;
}

struct Case {
  Long direction;
  Descriptor byThreeAndFour;
};

TEST(Stretch, EachPickUpMovesItsOwnEdges) {
  const Case cases[] = {
      {ePD_UpRight, {10, 54, 23, 26}}, {ePD_Right, {10, 50, 23, 30}},    {ePD_DownRight, {10, 50, 23, 34}},
      {ePD_Down, {10, 50, 20, 34}},    {ePD_LeftDown, {13, 50, 17, 34}}, {ePD_Left, {13, 50, 17, 30}},
      {ePD_UpLeft, {13, 54, 17, 26}},  {ePD_Up, {10, 54, 20, 26}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Stretched(3, 4, c.direction), c.byThreeAndFour) << c.direction;
    EXPECT_TRUE(quenzel7::Stretched(kRest, 3, 4, c.direction).moved) << c.direction;
  }
}

TEST(EdgesOf, AreThoseThatAPickUpMoves) {
  using enum Edge;
  struct Row {
    Long direction;
    Edge x, y;
  };
  for (const Row& row :
       {Row{ePD_None, None, None}, Row{ePD_UpRight, End, Start}, Row{ePD_Right, End, None},
        Row{ePD_DownRight, End, End}, Row{ePD_Down, None, End}, Row{ePD_LeftDown, Start, End},
        Row{ePD_Left, Start, None}, Row{ePD_UpLeft, Start, Start}, Row{ePD_Up, None, Start},
        Row{ePD_LineHead, None, None}, Row{-1, None, None}, Row{2147483647, None, None}}) {
    const Edges edges = EdgesOf(row.direction);
    EXPECT_TRUE(edges.x == row.x && edges.y == row.y) << row.direction;
  }
}

TEST(Stretch, OtherDirectionsMoveNothing) {
  for (const Long direction : {0, 9, 10, 11, -1, 2147483647, -2147483647}) {
    EXPECT_EQ(Stretched(3, 4, direction), kRest) << direction;
    EXPECT_FALSE(quenzel7::Stretched(kRest, 3, 4, direction).moved) << direction;
  }
}

TEST(Stretch, AnEndDraggedPastTheStartFlips) {
  EXPECT_EQ(Stretched(-30, 0, ePD_Right), (Descriptor{0, 50, 10, 30}));
  EXPECT_EQ(Stretched(0, -40, ePD_Down), (Descriptor{10, 40, 20, 10}));
}

TEST(Stretch, AStartDraggedPastTheEndFlips) {
  EXPECT_EQ(Stretched(25, 0, ePD_Left), (Descriptor{30, 50, 5, 30}));
  EXPECT_EQ(Stretched(0, 36, ePD_Up), (Descriptor{10, 80, 20, 6}));
}

TEST(Stretch, AStartDraggedAwayFromTheEndGrows) {
  EXPECT_EQ(Stretched(-4, -5, ePD_UpLeft), (Descriptor{6, 45, 24, 35}));
}

TEST(Stretch, OnTheOppositeEdgeTheSizeIsZero) {
  EXPECT_EQ(Stretched(-20, 0, ePD_Right), (Descriptor{10, 50, 0, 30}));
  EXPECT_EQ(Stretched(20, 0, ePD_Left), (Descriptor{30, 50, 0, 30}));
  EXPECT_EQ(Stretched(0, -30, ePD_Down), (Descriptor{10, 50, 20, 0}));
  EXPECT_EQ(Stretched(0, 30, ePD_Up), (Descriptor{10, 80, 20, 0}));
}

TEST(Stretch, OnePixelShortOfTheOppositeEdgeTheSizeIsOne) {
  EXPECT_EQ(Stretched(-19, 0, ePD_Right), (Descriptor{10, 50, 1, 30}));
  EXPECT_EQ(Stretched(19, 0, ePD_Left), (Descriptor{29, 50, 1, 30}));
}

TEST(Stretch, OnePixelPastTheOppositeEdgeTheSizeIsOneOnTheOtherSide) {
  EXPECT_EQ(Stretched(-21, 0, ePD_Right), (Descriptor{9, 50, 1, 30}));
  EXPECT_EQ(Stretched(21, 0, ePD_Left), (Descriptor{30, 50, 1, 30}));
}

TEST(Stretch, RaisesOverflowBeyond32Bits) {
  const Long most = 2147483647;
  const Long least = -most - 1;
  for (const Long direction : {ePD_Right, ePD_Left}) {
    EXPECT_EQ(ErrorOf([&] { Stretched(direction == ePD_Right ? most : least, 0, direction); }), 6)
        << direction;
  }
  EXPECT_EQ(ErrorOf([&] { Stretched(least, 0, ePD_Right); }), 6);
  EXPECT_EQ(ErrorOf([&] { quenzel7::Stretched({least, 0, 5, 5}, -1, 0, ePD_Left); }), 6);
  EXPECT_EQ(ErrorOf([&] { quenzel7::Stretched({most, 0, 5, 5}, 6, 0, ePD_Left); }), 6);
}

TEST(Stretch, OverflowsInEveryStepOfBothAxes) {
  const Long most = 2147483647;
  const Long least = -most - 1;
  const auto error = [](const Descriptor& rest, Long by, Long direction) {
    return ErrorOf([&] { quenzel7::Stretched(rest, by, by, direction); });
  };
  // The same along x and along y.
  for (const auto& [start, size, by, end] :
       {std::tuple{least, Long{5}, Long{-10}, true}, std::tuple{most - 5, Long{10}, Long{-20}, true},
        std::tuple{Long{0}, Long{-1}, -most, true}, std::tuple{Long{0}, Long{5}, most, true},
        std::tuple{Long{0}, Long{-1}, most, false}, std::tuple{Long{0}, Long{5}, least, false}}) {
    EXPECT_EQ(error({start, 0, size, 5}, by, end ? ePD_Right : ePD_Left), 6)
        << start << ' ' << size << ' ' << by;
    EXPECT_EQ(error({0, start, 5, size}, by, end ? ePD_Down : ePD_Up), 6)
        << start << ' ' << size << ' ' << by;
  }
}

TEST(Stretch, OfANegativeSizeFlipsAtOnce) {
  EXPECT_EQ(quenzel7::Stretched({10, 50, -5, 30}, 0, 0, ePD_Right).descriptor, (Descriptor{5, 50, 5, 30}));
  EXPECT_EQ(quenzel7::Stretched({10, 50, -5, 30}, 0, 0, ePD_Left).descriptor, (Descriptor{5, 50, 5, 30}));
}

}  // namespace
}  // namespace quenzel7
