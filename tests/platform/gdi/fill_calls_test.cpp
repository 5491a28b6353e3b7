#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "platform/gdi/selected.h"
#include "tests/platform/gdi/picture.h"

namespace quenzel7::gdi {
namespace {

constexpr int kMin = std::numeric_limits<int>::min(), kMax = std::numeric_limits<int>::max();
using Text = std::vector<std::string>;

BOOL Fill(const Surface& surface, RECT rect, HBRUSH brush) { return FillRect(surface.Dc(), &rect, brush); }

TEST(FillRect, LeavesRightAndBottomEdgeOut) {
  const Surface surface = White(5, 4);
  EXPECT_EQ(Fill(surface, {1, 1, 4, 3}, GetStockObject(BLACK_BRUSH)), 1);
  EXPECT_EQ(Rows(surface), (Text{".....", ".###.", ".###.", "....."}));
}

// The interface leaves open what a rectangle with its corners exchanged means; it is the same rectangle.
TEST(FillRect, TakesTheCornersInAnyOrder) {
  for (const RECT& rect : {RECT{4, 1, 1, 3}, RECT{1, 3, 4, 1}, RECT{4, 3, 1, 1}}) {
    const Surface surface = White(5, 4);
    Fill(surface, rect, GetStockObject(BLACK_BRUSH));
    EXPECT_EQ(Rows(surface), (Text{".....", ".###.", ".###.", "....."}));
  }
}

TEST(FillRect, OfNoWidthOrHeightFillsNothingAndSucceeds) {
  const Surface surface = White(3, 3);
  EXPECT_EQ(Fill(surface, {1, 0, 1, 3}, GetStockObject(BLACK_BRUSH)), 1);
  EXPECT_EQ(Fill(surface, {0, 1, 3, 1}, GetStockObject(BLACK_BRUSH)), 1);
  EXPECT_EQ(Rows(surface), Text(3, "..."));
}

TEST(FillRect, UsesTheGivenBrushNotTheSelectedOne) {
  const Surface surface = White(2, 1);
  const SelectedBrush selected(surface.Dc(), CreateSolidBrush(kRed));
  const HBRUSH blue = CreateSolidBrush(kBlue);
  Fill(surface, {0, 0, 1, 1}, blue);
  DeleteObject(blue);
  EXPECT_EQ(Rows(surface), (Text{"b."}));
}

TEST(FillRect, NullBrushFillsNothingAndSucceeds) {
  const Surface surface = White(2, 1);
  EXPECT_EQ(Fill(surface, {0, 0, 2, 1}, GetStockObject(NULL_BRUSH)), 1);
  EXPECT_EQ(Rows(surface), (Text{".."}));
}

TEST(FillRect, HatchIsAnchoredToTheSurfaceAndItsGapsHaveTheBackgroundColor) {
  const Surface surface = White(10, 5);
  SetBkColor(surface.Dc(), kBlue);
  const HBRUSH hatch = CreateHatchBrush(HS_CROSS, kRed);
  Fill(surface, {1, 1, 10, 5}, hatch);
  DeleteObject(hatch);
  EXPECT_EQ(Rows(surface), (Text{"..........", ".bbbrbbbbb", ".bbbrbbbbb", ".rrrrrrrrr", ".bbbrbbbbb"}));
}

TEST(FillRect, EachHatchOnEightByEight) {
  const Text expected[] = {
      {"bbbbbbbb", "bbbbbbbb", "bbbbbbbb", "rrrrrrrr", "bbbbbbbb", "bbbbbbbb", "bbbbbbbb", "bbbbbbbb"},
      {"bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb"},
      {"rbbbbbbb", "brbbbbbb", "bbrbbbbb", "bbbrbbbb", "bbbbrbbb", "bbbbbrbb", "bbbbbbrb", "bbbbbbbr"},
      {"bbbbbbbr", "bbbbbbrb", "bbbbbrbb", "bbbbrbbb", "bbbrbbbb", "bbrbbbbb", "brbbbbbb", "rbbbbbbb"},
      {"bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "rrrrrrrr", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb", "bbbbrbbb"},
      {"rbbbbbbr", "brbbbbrb", "bbrbbrbb", "bbbrrbbb", "bbbrrbbb", "bbrbbrbb", "brbbbbrb", "rbbbbbbr"}};
  for (int hatch = 0; hatch <= 5; ++hatch) {
    const Surface surface = White(8, 8);
    SetBkColor(surface.Dc(), kBlue);
    const HBRUSH brush = CreateHatchBrush(hatch, kRed);
    Fill(surface, {0, 0, 8, 8}, brush);
    DeleteObject(brush);
    EXPECT_EQ(Rows(surface), expected[hatch]) << hatch;
  }
}

// The gaps follow the background colour of the moment, also for a brush that has been drawn with.
TEST(FillRect, GapsFollowTheBackgroundColorOfTheMoment) {
  const Surface surface = White(2, 1);
  const HBRUSH hatch = CreateHatchBrush(HS_HORIZONTAL, kRed);
  SetBkColor(surface.Dc(), kBlue);
  Fill(surface, {0, 0, 1, 1}, hatch);
  SetBkColor(surface.Dc(), kGreen);
  Fill(surface, {1, 0, 2, 1}, hatch);
  DeleteObject(hatch);
  EXPECT_EQ(Rows(surface), (Text{"bg"}));
}

TEST(FillRect, OnOneBitBecomesBlackOrWhite) {
  const Surface surface = White(3, 1, 1);
  const HBRUSH red = CreateSolidBrush(kRed);
  Fill(surface, {0, 0, 1, 1}, red);
  DeleteObject(red);
  const HBRUSH green = CreateSolidBrush(kGreen);
  Fill(surface, {1, 0, 2, 1}, green);
  DeleteObject(green);
  EXPECT_EQ(Rows(surface), (Text{"#.."}));
}

TEST(FillRect, ReachesOverTheWholePlane) {
  const Surface surface = White(3, 2);
  EXPECT_EQ(Fill(surface, {kMin, kMin, kMax, kMax}, GetStockObject(BLACK_BRUSH)), 1);
  EXPECT_EQ(Rows(surface), Text(2, "###"));
  EXPECT_EQ(Fill(surface, {kMax, kMax, kMin, 1}, GetStockObject(WHITE_BRUSH)), 1);
  EXPECT_EQ(Rows(surface), (Text{"###", "..."}));
}

TEST(FillRect, FailsWithoutContextRectangleOrBrush) {
  const Surface surface = White(2, 1);
  const RECT rect{0, 0, 2, 1};
  EXPECT_EQ(FillRect(0, &rect, GetStockObject(BLACK_BRUSH)), 0);
  EXPECT_EQ(FillRect(surface.Dc(), nullptr, GetStockObject(BLACK_BRUSH)), 0);
  EXPECT_EQ(FillRect(surface.Dc(), &rect, 0), 0);
  EXPECT_EQ(FillRect(surface.Dc(), &rect, 6), 0);
  EXPECT_EQ(FillRect(surface.Dc(), &rect, GetStockObject(BLACK_PEN)), 0);
  EXPECT_EQ(Rows(surface), (Text{".."}));
}

// Which pixels of the frame are inverted is left open by the interface; counted from the top right
// corner it is every second one.
TEST(DrawFocusRect, InvertsEverySecondPixelFromTheTopRightCorner) {
  const Surface surface = White(7, 6);
  const RECT rect{1, 1, 6, 5};
  EXPECT_EQ(DrawFocusRect(surface.Dc(), &rect), 1);
  EXPECT_EQ(Rows(surface), (Text{".......", ".#.#.#.", ".......", ".#...#.", "..#.#..", "......."}));
}

TEST(DrawFocusRect, TwiceRestoresEverything) {
  std::mt19937 random(3);
  for (const int bits : {1, 32}) {
    for (int i = 0; i < 200; ++i) {
      Surface surface(20, 15, bits);
      Scatter(surface, static_cast<std::uint32_t>(i));
      const std::vector<COLORREF> before = Colors(surface);
      const auto any = [&] { return static_cast<int>(random() % 30) - 5; };
      const RECT rect{any(), any(), any(), any()};
      DrawFocusRect(surface.Dc(), &rect);
      DrawFocusRect(surface.Dc(), &rect);
      EXPECT_EQ(Colors(surface), before);
    }
  }
}

TEST(DrawFocusRect, InvertsTheColor) {
  Surface surface(1, 2);
  surface.Clear(0x123456);
  const RECT rect{-4, 0, 1, 3};
  DrawFocusRect(surface.Dc(), &rect);
  EXPECT_EQ(surface.At(0, 0), 0xEDCBA9u);
  EXPECT_EQ(surface.At(0, 1), 0x123456u);
}

TEST(DrawFocusRect, TakesTheCornersInAnyOrder) {
  const Surface a = White(9, 9), b = White(9, 9);
  const RECT rect{1, 2, 7, 8}, reversed{7, 8, 1, 2};
  DrawFocusRect(a.Dc(), &rect);
  DrawFocusRect(b.Dc(), &reversed);
  EXPECT_EQ(Rows(a), Rows(b));
}

TEST(DrawFocusRect, OnePixelThinMeetsItselfOnTheWayBack) {
  const Surface tall = White(3, 7);
  const RECT five{1, 1, 2, 6};
  DrawFocusRect(tall.Dc(), &five);
  EXPECT_EQ(Rows(tall), (Text{"...", ".#.", "...", "...", "...", ".#.", "..."}));
  const Surface wide = White(7, 3);
  const RECT four{1, 1, 5, 2};
  DrawFocusRect(wide.Dc(), &four);
  EXPECT_EQ(Rows(wide), (Text{".......", "....#..", "......."}));
  const Surface dot = White(3, 3);
  const RECT one{1, 1, 2, 2}, none{1, 1, 1, 2};
  DrawFocusRect(dot.Dc(), &one);
  DrawFocusRect(dot.Dc(), &none);
  EXPECT_EQ(Rows(dot), Text(3, "..."));
}

TEST(DrawFocusRect, AroundTheWholePlaneIsOutside) {
  const Surface surface = White(3, 3);
  const RECT rect{kMin, kMin, kMax, kMax};
  EXPECT_EQ(DrawFocusRect(surface.Dc(), &rect), 1);
  EXPECT_EQ(Rows(surface), Text(3, "..."));
}

TEST(DrawFocusRect, FailsWithoutContextOrRectangle) {
  const Surface surface = White(3, 3);
  const RECT rect{0, 0, 3, 3};
  EXPECT_EQ(DrawFocusRect(0, &rect), 0);
  EXPECT_EQ(DrawFocusRect(surface.Dc(), nullptr), 0);
}

}  // namespace
}  // namespace quenzel7::gdi
