#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
using Text = std::vector<std::string>;

void Line(const Surface& surface, int x0, int y0, int x1, int y1) {
  MoveToEx(surface.Dc(), x0, y0, nullptr);
  EXPECT_EQ(LineTo(surface.Dc(), x1, y1), 1);
}

POINT Position(const Surface& surface) {
  POINT position{};
  MoveToEx(surface.Dc(), 0, 0, &position);
  MoveToEx(surface.Dc(), position.x, position.y, nullptr);
  return position;
}

TEST(MoveToEx, GivesThePositionBefore) {
  const Surface surface(2, 2);
  POINT before{9, 9};
  EXPECT_EQ(MoveToEx(surface.Dc(), -37, -31, &before), 1);
  EXPECT_EQ(before.x, 0);
  EXPECT_EQ(before.y, 0);
  EXPECT_EQ(MoveToEx(surface.Dc(), 1, 2, &before), 1);
  EXPECT_EQ(before.x, -37);
  EXPECT_EQ(before.y, -31);
  EXPECT_EQ(MoveToEx(surface.Dc(), 5, 6, nullptr), 1);
  EXPECT_EQ(MoveToEx(0, 5, 6, &before), 0);
  EXPECT_EQ(before.x, -37);
}

TEST(LineTo, LeavesTheLastPointOutAndMovesThere) {
  const Surface surface = White(6, 3);
  Line(surface, 1, 1, 4, 1);
  EXPECT_EQ(Rows(surface), (Text{"......", ".###..", "......"}));
  EXPECT_EQ(Position(surface).x, 4);
  EXPECT_EQ(Position(surface).y, 1);
}

TEST(LineTo, ToTheLeftLeavesTheLeftEndOut) {
  const Surface surface = White(6, 1);
  Line(surface, 4, 0, 1, 0);
  EXPECT_EQ(Rows(surface), (Text{"..###."}));
}

TEST(LineTo, ToItsOwnStartPaintsNothing) {
  const Surface surface = White(3, 1);
  Line(surface, 1, 0, 1, 0);
  EXPECT_EQ(Rows(surface), (Text{"..."}));
}

TEST(LineTo, SlantedTakesTheUpperOrLeftOfTwo) {
  const Surface surface = White(5, 5);
  Line(surface, 0, 0, 4, 2);
  EXPECT_EQ(Rows(surface), (Text{"##...", "..##.", ".....", ".....", "....."}));
}

TEST(LineTo, DashesBeginAnewWithEachLine) {
  const Surface surface = White(9, 2);
  SetBkColor(surface.Dc(), kBlue);
  const SelectedPen pen(surface.Dc(), MakePen(PS_DOT, 1, kRed));
  Line(surface, 0, 0, 4, 0);
  LineTo(surface.Dc(), 9, 0);
  EXPECT_EQ(Rows(surface), (Text{"rrrbrrrbb", "........."}));
}

TEST(LineTo, WithoutPenOnlyMoves) {
  const Surface surface = White(5, 1);
  SelectObject(surface.Dc(), GetStockObject(NULL_PEN));
  Line(surface, 0, 0, 5, 0);
  EXPECT_EQ(Rows(surface), (Text{"....."}));
  EXPECT_EQ(Position(surface).x, 5);
}

TEST(LineTo, OnOneBitTakesTheNearerOfBlackAndWhite) {
  Surface surface(4, 2, 1);
  const SelectedPen pen(surface.Dc(), MakePen(PS_SOLID, 1, kGreen));
  Line(surface, 1, 1, 3, 1);
  EXPECT_EQ(Rows(surface), (Text{"####", "#..#"}));
}

TEST(LineTo, AcrossTheWholePlane) {
  const Surface surface = White(3, 3);
  Line(surface, kMin, kMin, kMax, kMax);
  EXPECT_EQ(Rows(surface), (Text{"#..", ".#.", "..#"}));
  Line(surface, kMax, 1, kMin, 1);
  EXPECT_EQ(Rows(surface), (Text{"#..", "###", "..#"}));
}

TEST(Polyline, JoinsPointsAndGoesOnWithTheDashes) {
  const Surface surface = White(6, 4);
  SetBkColor(surface.Dc(), kBlue);
  const SelectedPen pen(surface.Dc(), MakePen(PS_DOT, 1, kRed));
  const std::array<POINT, 3> points{{{0, 0}, {5, 0}, {5, 3}}};
  MoveToEx(surface.Dc(), 3, 3, nullptr);
  EXPECT_EQ(Polyline(surface.Dc(), points.data(), 3), 1);
  EXPECT_EQ(Rows(surface), (Text{"rrrbbb", ".....r", ".....r", "......"}));
  EXPECT_EQ(Position(surface).x, 3);
  EXPECT_EQ(Position(surface).y, 3);
}

TEST(Polyline, OfSolidRowsDoesNotCountAsDashes) {
  const Surface surface = White(6, 2);
  const std::array<POINT, 3> points{{{5, 0}, {1, 0}, {1, 2}}};
  Polyline(surface.Dc(), points.data(), 3);
  EXPECT_EQ(Rows(surface), (Text{".#####", ".#...."}));
}

TEST(Polyline, NeedsTwoPoints) {
  const Surface surface = White(3, 1);
  const std::array<POINT, 2> points{{{0, 0}, {3, 0}}};
  EXPECT_EQ(Polyline(surface.Dc(), points.data(), 1), 0);
  EXPECT_EQ(Polyline(surface.Dc(), points.data(), 0), 0);
  EXPECT_EQ(Polyline(surface.Dc(), points.data(), -1), 0);
  EXPECT_EQ(Polyline(surface.Dc(), nullptr, 2), 0);
  EXPECT_EQ(Polyline(0, points.data(), 2), 0);
  EXPECT_EQ(Rows(surface), (Text{"..."}));
  EXPECT_EQ(Polyline(surface.Dc(), points.data(), 2), 1);
  EXPECT_EQ(Rows(surface), (Text{"###"}));
}

TEST(LineTo, WithAWidePenHasRoundEnds) {
  const Surface surface = White(9, 5);
  const SelectedPen pen(surface.Dc(), MakePen(PS_SOLID, 3, kRed));
  Line(surface, 2, 2, 6, 2);
  EXPECT_EQ(Rows(surface), (Text{".........", "..rrrrr..", ".rrrrrrr.", "..rrrrr..", "........."}));
}

TEST(LineTo, WithAWideDashedPenIsSolid) {
  for (std::uint32_t style = PS_DASH; style <= PS_DASHDOTDOT; ++style) {
    const Surface dashed = White(30, 5), solid = White(30, 5);
    const SelectedPen dashedPen(dashed.Dc(), MakePen(style, 2, kRed)),
        solidPen(solid.Dc(), MakePen(PS_SOLID, 2, kRed));
    Line(dashed, 2, 2, 26, 2);
    Line(solid, 2, 2, 26, 2);
    EXPECT_EQ(Rows(dashed), Rows(solid)) << style;
  }
}

TEST(LineTo, WithAThinExtendedPenLeavesTheLastPixelOut) {
  for (const std::uint32_t width : {0u, 1u}) {
    const Surface surface = White(5, 4);
    const LOGBRUSH solid{BS_SOLID, kRed, 0};
    const SelectedPen pen(surface.Dc(), ExtCreatePen(0x11206, width, &solid, 0, nullptr));
    Line(surface, 0, 0, 3, 0);
    Line(surface, 1, 1, 4, 4);
    EXPECT_EQ(Rows(surface), (Text{"rrr..", ".r...", "..r..", "...r."}));
  }
}

// The circle is the one around the given point: 2 * radius + 1 pixels across.
TEST(AngleArc, DrawsACircleAroundItsCentre) {
  const Surface surface = White(11, 11);
  MoveToEx(surface.Dc(), 9, 5, nullptr);
  EXPECT_EQ(AngleArc(surface.Dc(), 5, 5, 4, 0, 360), 1);
  EXPECT_EQ(Rows(surface),
            (Text{"...........", "....###....", "..##...##..", "..#.....#..", ".#.......#.", ".#.......#.",
                  ".#.......#.", "..#.....#..", "..##...##..", "....###....", "..........."}));
}

TEST(AngleArc, DrawsALineToItsStartAndMovesToItsEnd) {
  const Surface surface = White(12, 12);
  MoveToEx(surface.Dc(), 2, 10, nullptr);
  AngleArc(surface.Dc(), 2, 10, 8, 0, 90);
  EXPECT_EQ(surface.At(5, 10), kBlack);
  EXPECT_EQ(surface.At(10, 9), kBlack);
  EXPECT_EQ(surface.At(2, 9), kWhite);
  EXPECT_EQ(Position(surface).x, 2);
  EXPECT_EQ(Position(surface).y, 2);
}

TEST(AngleArc, WithoutPenOnlyMoves) {
  const Surface surface = White(12, 3);
  SelectObject(surface.Dc(), GetStockObject(NULL_PEN));
  AngleArc(surface.Dc(), 5, 1, 3, 180, 180);
  EXPECT_EQ(Rows(surface), Text(3, "............"));
  EXPECT_EQ(Position(surface).x, 8);
  EXPECT_EQ(Position(surface).y, 1);
}

TEST(AngleArc, FailsWithoutContextOrFiniteAngles) {
  const Surface surface = White(3, 3);
  constexpr float kInfinite = std::numeric_limits<float>::infinity(),
                  kNan = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(AngleArc(0, 1, 1, 1, 0, 90), 0);
  EXPECT_EQ(AngleArc(surface.Dc(), 1, 1, 1, kInfinite, 90), 0);
  EXPECT_EQ(AngleArc(surface.Dc(), 1, 1, 1, 0, kNan), 0);
  EXPECT_EQ(Rows(surface), Text(3, "..."));
}

TEST(AngleArc, CanBeAsLargeAsThePlane) {
  const Surface surface = White(3, 3);
  EXPECT_EQ(AngleArc(surface.Dc(), kMax, kMin, 0xFFFFFFFF, 12, 345), 1);
  // The arc ends at 357 degrees, far outside to the right and 4294967295 * sin(3 degrees) below its centre.
  EXPECT_EQ(Position(surface).x, kMax);
  EXPECT_EQ(Position(surface).y, -1922702428);
}

// Two hundred thousand chords, each as wide as the pen: only those that pass the surface are looked at.
TEST(AngleArc, WithAWidePenCanBeAsLargeAsThePlane) {
  constexpr int kRadius = 2147470000, kWidth = 16000, kEdge = 20;
  const LOGBRUSH brush{BS_SOLID, kRed, 0};
  for (const std::uint32_t join : {PS_JOIN_ROUND, PS_JOIN_BEVEL, PS_JOIN_MITER}) {
    const Surface surface = White(40, 3);
    const SelectedPen pen(surface.Dc(), ExtCreatePen(PS_GEOMETRIC | join, kWidth, &brush, 0, nullptr));
    const int center = kEdge - kWidth / 2 - kRadius;
    MoveToEx(surface.Dc(), center + kRadius, 1, nullptr);
    AngleArc(surface.Dc(), center, 1, kRadius, 0, 360);
    for (int x = 0; x < 40; ++x) EXPECT_EQ(surface.At(x, 1), x < kEdge ? kRed : kWhite) << x << " " << join;
  }
}

TEST(LineTo, FailsWithoutContext) { EXPECT_EQ(LineTo(0, 1, 1), 0); }

}  // namespace
}  // namespace quenzel7::gdi
