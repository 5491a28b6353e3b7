#include "shapes/pick_ups.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;

constexpr Long kLeast = -2147483647 - 1;
constexpr Long kMost = 2147483647;

/// The zones along x of the row of handles above an element (y zone 1), and along y of the column to its
/// left.
char ZoneX(const Descriptor& d, Long x, Long width) {
  switch (PickUpAt(d, x, d.ys, width)) {
    case ePD_UpLeft:
      return '1';
    case ePD_Up:
      return '2';
    case ePD_UpRight:
      return '3';
    default:
      return '.';
  }
}

char ZoneY(const Descriptor& d, Long y, Long width) {
  switch (PickUpAt(d, d.xs, y, width)) {
    case ePD_UpLeft:
      return '1';
    case ePD_Left:
      return '2';
    case ePD_LeftDown:
      return '3';
    default:
      return '.';
  }
}

std::string ZonesX(const Descriptor& d, Long width, Long from, Long to) {
  std::string zones;
  for (Long x = from; x <= to; ++x) zones += ZoneX(d, x, width);
  return zones;
}

std::string ZonesY(const Descriptor& d, Long width, Long from, Long to) {
  std::string zones;
  for (Long y = from; y <= to; ++y) zones += ZoneY(d, y, width);
  return zones;
}

TEST(PickUp, ZonesOfAnEvenSizeLieAtStartMiddleAndEnd) {
  // Start 10, size 20, handles of 3: 7 to 10, 17 to 22, 30 to 33.
  const Descriptor d{10, 10, 20, 20};
  EXPECT_EQ(ZonesX(d, 3, 5, 35), "..1111......222222.......3333..");
  EXPECT_EQ(ZonesY(d, 3, 5, 35), "..1111......222222.......3333..");
}

TEST(PickUp, TheMiddleHandleOfAnOddSizeIsHalfAsWide) {
  // Start 10, size 21: the middle is 20, its handle 20 to 22.
  const Descriptor d{10, 10, 21, 21};
  EXPECT_EQ(ZonesX(d, 3, 5, 36), "..1111.........222........3333..");
  EXPECT_EQ(ZonesY(d, 3, 5, 36), "..1111.........222........3333..");
}

TEST(PickUp, TheMiddleIsTruncatedTowardZero) {
  // Start -10, size 5: the middle is Fix(-7.5) = -7, not -8.
  EXPECT_EQ(ZonesX({-10, -10, 5, 5}, 1, -12, -3), ".11..2.33.");
}

TEST(PickUp, ANegativeOddSizeIsOddToo) {
  // Start 10, size -5: the middle is Fix(7.5) = 7, its handle of 2 is 7 and 8, of which 8 is the start's
  // already.
  EXPECT_EQ(ZonesX({10, 10, -5, -5}, 2, 4, 11), ".332111.");
}

TEST(PickUp, TheFirstZoneThatMatchesWins) {
  // Size 2 with handles of 4: start 10 covers 6 to 10, the middle 7 to 14, the end 12 to 16.
  EXPECT_EQ(ZonesX({10, 10, 2, 2}, 4, 5, 17), ".11111222233.");
}

TEST(PickUp, ByTheZonesOfBothAxes) {
  const Descriptor d{10, 100, 20, 40};
  const Long width = 3;
  const Long columns[] = {8, 20, 32};
  const Long rows[] = {98, 120, 142};
  const enPickUpDirection expected[3][3] = {{ePD_UpLeft, ePD_Up, ePD_UpRight},
                                            {ePD_Left, ePD_None, ePD_Right},
                                            {ePD_LeftDown, ePD_Down, ePD_DownRight}};
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(PickUpAt(d, columns[column], rows[row], width), expected[row][column])
          << row << ' ' << column;
    }
  }
}

TEST(PickUp, NoZoneOnEitherAxisIsNone) {
  const Descriptor d{10, 100, 20, 40};
  EXPECT_EQ(PickUpAt(d, 14, 100, 3), ePD_None);
  EXPECT_EQ(PickUpAt(d, 10, 110, 3), ePD_None);
}

TEST(PickUp, OnePixelLeftOfTheElementAtMidHeightIsLeft) {
  EXPECT_EQ(PickUpAt({10, 100, 20, 40}, 9, 120, 3), ePD_Left);
}

TEST(PickUp, AtTheFarEdgeTheRightHandleBegins) {
  EXPECT_EQ(PickUpAt({10, 100, 20, 40}, 30, 120, 3), ePD_Right);
}

TEST(PickUp, AnElementOfOnePixelIsOneHandle) {
  const Descriptor d{10, 20, 1, 1};
  EXPECT_EQ(PickUpAt(d, 10, 20, 3), ePD_DownRight);
  EXPECT_EQ(PickUpAt(d, 11, 21, 3), ePD_DownRight);
  EXPECT_EQ(PickUpAt(d, 9, 20, 3), ePD_None);
  EXPECT_EQ(PickUpAt(d, 12, 20, 3), ePD_None);
  EXPECT_EQ(PickUpAt(d, 10, 19, 3), ePD_None);
  EXPECT_EQ(PickUpAt(d, 10, 22, 3), ePD_None);
}

TEST(PickUp, OnlyBothSizesOfOneMakeOnePixel) {
  EXPECT_EQ(PickUpAt({10, 20, 1, 2}, 9, 19, 3), ePD_UpLeft);
  EXPECT_EQ(PickUpAt({10, 20, 2, 1}, 9, 19, 3), ePD_UpLeft);
}

TEST(PickUp, OnePixelElementsAreTestedIn16Bits) {
  EXPECT_EQ(ErrorOf([] { PickUpAt({40000, 0, 1, 1}, 0, 0, 3); }), 6);
}

TEST(PickUp, LimitsBeyond32BitsOverflow) {
  EXPECT_EQ(ErrorOf([] { PickUpAt({kLeast, 0, 20, 20}, 5, 5, 3); }), 6);
  EXPECT_EQ(ErrorOf([] { PickUpAt({kMost - 10, 0, 20, 20}, 0, 0, 3); }), 6);
  EXPECT_EQ(ErrorOf([] { PickUpAt({0, 0, 20, 20}, kMost, 0, kMost); }), 6);
}

TEST(PickUp, LooksAlongYOnlyWhenXLiesInAZoneAndAtTheFirstZoneFirst) {
  EXPECT_EQ(PickUpAt({10, kMost - 10, 20, 20}, 14, 0, 3), ePD_None);
  EXPECT_EQ(ErrorOf([] { PickUpAt({10, kMost - 10, 20, 20}, 10, 0, 3); }), 6);
  EXPECT_EQ(PickUpAt({kMost - 10, 10, 20, 20}, kMost - 10, 10, 3), ePD_UpLeft);
}

/// The squares that are painted, as "left, top, right, bottom".
std::vector<std::string> Squares(const Descriptor& d, const PageView& view, Long width, Long maxX,
                                 Long maxY) {
  const gdi::Surface surface(200, 200);
  gdi::Recorder recorder;
  DrawPickUps(surface.Dc(), d, view, width, maxX, maxY);
  std::vector<std::string> squares;
  for (const std::string& call : recorder.Calls()) {
    if (call.starts_with("Rectangle(dc:1, ")) squares.push_back(call.substr(16, call.size() - 17));
  }
  return squares;
}

constexpr PageView kPlain{};

TEST(DrawPickUps, PaintsEightSquaresOutsideTheElement) {
  const std::vector<std::string> expected = {
      "10, 20, 4, 14",   // top left
      "50, 20, 56, 14",  // top right
      "27, 20, 33, 14",  // top centre
      "10, 50, 4, 56",   // bottom left
      "50, 50, 56, 56",  // bottom right
      "27, 50, 33, 56",  // bottom centre
      "10, 32, 4, 38",   // left centre
      "50, 32, 56, 38",  // right centre
  };
  EXPECT_EQ(Squares({10, 20, 40, 30}, kPlain, 6, 200, 200), expected);
}

TEST(DrawPickUps, TruncatesTheMiddlesTowardZero) {
  // x1 + x2 = 61, so xm = 30; w = 5, so the halves are 27.5 and 32.5; y likewise around 35.
  const std::vector<std::string> squares = Squares({10, 20, 41, 31}, kPlain, 5, 200, 200);
  ASSERT_EQ(squares.size(), 8u);
  EXPECT_EQ(squares[2], "27, 20, 32, 15");
  EXPECT_EQ(squares[5], "27, 51, 32, 56");
  EXPECT_EQ(squares[6], "10, 32, 5, 37");
  EXPECT_EQ(squares[7], "51, 32, 56, 37");
}

TEST(DrawPickUps, TruncatesNegativeMiddlesTowardZero) {
  const PageView view{-100, -100, 1, 1};
  const std::vector<std::string> squares = Squares({10, 20, 41, 31}, view, 5, 200, 200);
  ASSERT_EQ(squares.size(), 8u);
  // xm = Fix(-139 / 2) = -69, its halves Fix(-71.5) and Fix(-66.5); ym = Fix(-129 / 2) = -64.
  EXPECT_EQ(squares[2], "-71, -80, -66, -85");
  EXPECT_EQ(squares[6], "-90, -66, -95, -61");
}

TEST(DrawPickUps, EachPointIsOffsetPlusScaleTimesCoordinateRoundedHalfToEven) {
  const PageView view{100, 7, 0.5f, 1.5f};
  const std::vector<std::string> squares = Squares({5, 3, 6, 4}, view, 2, 200, 200);
  ASSERT_EQ(squares.size(), 8u);
  // x: 102.5 -> 102 and 105.5 -> 106; y: 11.5 -> 12 and 17.5 -> 18.
  EXPECT_EQ(squares[0], "102, 12, 100, 10");
  EXPECT_EQ(squares[4], "106, 18, 108, 20");
}

TEST(DrawPickUps, LeavesHandlesAtTheLimitsOfThePageOut) {
  const std::string topLeft = "1, 1, -1, -1", topRight = "9, 1, 11, -1", top = "4, 1, 6, -1",
                    bottomLeft = "1, 9, -1, 11", bottomRight = "9, 9, 11, 11", bottom = "4, 9, 6, 11",
                    left = "1, 4, -1, 6", right = "9, 4, 11, 6";
  const Descriptor d{1, 1, 8, 8};
  EXPECT_EQ(Squares(d, kPlain, 2, 10, 10),
            (std::vector<std::string>{topLeft, topRight, top, bottomLeft, bottomRight, bottom, left, right}));
  EXPECT_EQ(Squares(d, kPlain, 2, 9, 10), (std::vector<std::string>{topLeft, top, bottomLeft, bottom, left}));
  EXPECT_EQ(Squares(d, kPlain, 2, 10, 9), (std::vector<std::string>{topLeft, topRight, top, left, right}));
}

TEST(DrawPickUps, LeavesHandlesAtTheOriginOut) {
  const auto without = [](Long xs, Long ys) { return Squares({xs, ys, 8, 8}, kPlain, 2, 100, 100); };
  EXPECT_EQ(without(0, 1), (std::vector<std::string>{"8, 1, 10, -1", "3, 1, 5, -1", "8, 9, 10, 11",
                                                     "3, 9, 5, 11", "8, 4, 10, 6"}));
  EXPECT_EQ(without(1, 0), (std::vector<std::string>{"1, 8, -1, 10", "9, 8, 11, 10", "4, 8, 6, 10",
                                                     "1, 3, -1, 5", "9, 3, 11, 5"}));
}

TEST(DrawPickUps, LeavesHandlesBeyondTheOriginOutToo) {
  EXPECT_EQ(
      Squares({-1, 5, 8, 8}, kPlain, 2, 100, 100),
      (std::vector<std::string>{"7, 5, 9, 3", "2, 5, 4, 3", "7, 13, 9, 15", "2, 13, 4, 15", "7, 8, 9, 10"}));
  EXPECT_EQ(
      Squares({5, -1, 8, 8}, kPlain, 2, 100, 100),
      (std::vector<std::string>{"5, 7, 3, 9", "13, 7, 15, 9", "8, 7, 10, 9", "5, 2, 3, 4", "13, 2, 15, 4"}));
}

TEST(DrawPickUps, ScalesInDoublePrecision) {
  // 0.1 in single precision is a little more than a tenth: times 5 it is above a half in double precision.
  EXPECT_EQ(Squares({5, 20, 40, 30}, PageView{0, 0, 0.1f, 1}, 2, 0, 0)[0], "1, 20, -1, 18");
}

/// Each side of a handle beyond 16 bits.
TEST(DrawPickUps, EverySideIsAValueOf16Bits) {
  const gdi::Surface surface(8, 8);
  const auto error = [&](const Descriptor& d, const PageView& view, Long width, Long maxX, Long maxY) {
    return ErrorOf([&] { DrawPickUps(surface.Dc(), d, view, width, maxX, maxY); });
  };
  constexpr Long kLow = -32768;
  // x1 - w and y1 - w, nothing beyond the far limits being drawn.
  EXPECT_EQ(error({1, 10, 4, 4}, {kLow, 0, 1, 1}, 2, 0, 0), 6);
  EXPECT_EQ(error({1, 10, 4, 4}, {kLow, 0, 1, 1}, 1, 0, 0), 0);
  EXPECT_EQ(error({10, 1, 4, 4}, {0, kLow, 1, 1}, 2, 0, 0), 6);
  EXPECT_EQ(error({10, 1, 4, 4}, {0, kLow, 1, 1}, 1, 0, 0), 0);
  // x2 + w and y2 + w, nothing beyond the origin being drawn.
  EXPECT_EQ(error({0, 0, 32760, 4}, {}, 8, 40000, 0), 6);
  EXPECT_EQ(error({0, 0, 32760, 4}, {}, 7, 40000, 0), 0);
  EXPECT_EQ(error({0, 0, 4, 32760}, {}, 8, 0, 40000), 6);
  EXPECT_EQ(error({0, 0, 4, 32760}, {}, 7, 0, 40000), 0);
  // The middles: of a handle above (xm 2) and of one to the left (ym 2).
  EXPECT_EQ(error({0, 30000, 4, 4}, {}, 65550, 0, 0), 6);
  EXPECT_EQ(error({30000, 0, 4, 4}, {}, 65550, 0, 0), 6);
}

TEST(DrawPickUps, AHugeWidthOverflowsAndMakesNoNumberWrap) {
  const gdi::Surface surface(8, 8);
  for (const Long width : {kMost, kLeast}) {
    EXPECT_EQ(ErrorOf([&] {
                DrawPickUps(surface.Dc(), {-5, 1, 5, 5}, kPlain, width, 100, 100);
              }),
              6)
        << width;
    EXPECT_EQ(ErrorOf([&] { DrawPickUps(surface.Dc(), {5, 5, 5, 5}, kPlain, width, 0, 0); }), 6) << width;
  }
  // What is not drawn is not computed.
  EXPECT_EQ(ErrorOf([&] { DrawPickUps(surface.Dc(), {0, 0, 5, 5}, kPlain, kMost, 0, 0); }), 0);
}

TEST(DrawPickUps, UsesASolidRedBrushAndASolidBlackPenOfWidth0) {
  const gdi::Surface surface(40, 40);
  gdi::Recorder recorder;
  DrawPickUps(surface.Dc(), {10, 10, 10, 10}, kPlain, 2, 0, 0);
  const std::vector<std::string> expected = {
      "CreateSolidBrush(0x0000ff) -> brush:1",
      "SelectObject(dc:1, brush:1)",
      "CreatePenIndirect({0, 0, 0x000000}) -> pen:1",
      "SelectObject(dc:1, pen:1)",
      "Rectangle(dc:1, 10, 10, 8, 8)",
      "Rectangle(dc:1, 14, 10, 16, 8)",
      "Rectangle(dc:1, 10, 14, 8, 16)",
      "SelectObject(dc:1, stock:7)",
      "DeleteObject(pen:1)",
      "SelectObject(dc:1, stock:0)",
      "DeleteObject(brush:1)",
  };
  EXPECT_EQ(recorder.Calls(), expected);
}

TEST(DrawPickUps, LeavesNothingBehindAndRaisesOverflowBeyond16Bits) {
  const gdi::Surface surface(40, 40);
  const std::size_t before = gdi::LiveObjects();
  EXPECT_EQ(ErrorOf([&] { DrawPickUps(surface.Dc(), {40000, 1, 5, 5}, kPlain, 2, 90000, 100); }), 6);
  EXPECT_EQ(ErrorOf([&] { DrawPickUps(surface.Dc(), {1, 32766, 5, 1}, kPlain, 2, 90000, 90000); }), 6);
  EXPECT_EQ(ErrorOf([&] {
              DrawPickUps(surface.Dc(), {1, 20000, 5, 5}, PageView{0, 0, 1, 2.0f}, 2, 90000, 90000);
            }),
            6);
  DrawPickUps(surface.Dc(), {10, 10, 10, 10}, kPlain, 2, 100, 100);
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN));
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), gdi::GetStockObject(gdi::WHITE_BRUSH));
}

}  // namespace
}  // namespace quenzel7
