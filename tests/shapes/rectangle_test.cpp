#include "shapes/rectangle.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using test::Placed;
using test::WithFourPositions;

constexpr Long kMost = 2147483647;

using Rectangle = test::ShapeTest<clsRectangle>;

TEST_F(Rectangle, HasDefaultsOfItsOwn) {
  const clsRectangle r;
  EXPECT_EQ(clsRectangle::ClassOf().name, "clsRectangle");
  EXPECT_EQ(r.ElementType(), 1);
  EXPECT_EQ(r.ColorFore(), 0);
  EXPECT_EQ(r.ColorForeTouch(), 0);
  EXPECT_EQ(r.ColorHatch(), 96);
  EXPECT_EQ(r.PenWidth(), 1);
}

TEST_F(Rectangle, ReadsTwoSettingsAndTheTouchColourFollowsTheBorders) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "4";
  Platform::Current().settings = settings;
  const clsRectangle r;
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6051/0", "6000/6050/1"}));
  EXPECT_EQ(r.ColorFore(), 411);
  EXPECT_EQ(r.ColorForeTouch(), 411);
  EXPECT_EQ(r.PenWidth(), 420);
}

TEST_F(Rectangle, IsHitAtDescriptor1OfFour) {
  const auto r = WithFourPositions<clsRectangle>();
  EXPECT_TRUE(r->HitTestByPoint(30, 41));
  EXPECT_FALSE(r->HitTestByPoint(31, 41));
  EXPECT_FALSE(r->HitTestByPoint(30, 42));
  EXPECT_TRUE(r->HitTestByRect(30, 41, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(31, 41, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(30, 42, 5, 5));
}

TEST_F(Rectangle, HitTestByPointCoversTheBodyWithoutTheFarEdges) {
  const auto r = Placed<clsRectangle>(10, 20, 5, 6);
  EXPECT_TRUE(r->HitTestByPoint(10, 20));
  EXPECT_TRUE(r->HitTestByPoint(14, 25));
  EXPECT_TRUE(r->HitTestByPoint(12, 22));
  EXPECT_FALSE(r->HitTestByPoint(15, 22));
  EXPECT_FALSE(r->HitTestByPoint(12, 26));
  EXPECT_FALSE(r->HitTestByPoint(9, 22));
  EXPECT_FALSE(r->HitTestByPoint(12, 19));
  // Points far beyond 16 bits are no hit and no error.
  EXPECT_FALSE(r->HitTestByPoint(40000, 22));
}

TEST_F(Rectangle, HitTestsLookAtDescriptor1) {
  const auto r = Placed<clsRectangle>(10, 20, 5, 6);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  EXPECT_TRUE(r->HitTestByPoint(10, 20));
  EXPECT_TRUE(r->HitTestByRect(0, 0, 10, 20));
  EXPECT_EQ(r->GetPupDirection(9, 23, 2), ePD_Left);
}

TEST_F(Rectangle, HitTestByRectMeetsTheBodyWithoutTheFarEdges) {
  const auto r = Placed<clsRectangle>(10, 20, 5, 6);
  EXPECT_TRUE(r->HitTestByRect(14, 25, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(15, 20, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(10, 26, 5, 5));
  EXPECT_TRUE(r->HitTestByRect(5, 15, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(5, 15, 4, 5));
  EXPECT_FALSE(r->HitTestByRect(5, 15, 5, 4));
}

TEST_F(Rectangle, HitTestByRectOfAnElementOfSizeZeroTakesItsSizeForMinus1) {
  // As spans: 0 to -1 across, 0 to 10 down.
  const auto flat = Placed<clsRectangle>(0, 0, 0, 11);
  EXPECT_TRUE(flat->HitTestByRect(-1, 5, 0, 2));
  EXPECT_FALSE(flat->HitTestByRect(1, 5, 5, 2));
  const auto low = Placed<clsRectangle>(0, 0, 11, 0);
  EXPECT_TRUE(low->HitTestByRect(5, -1, 2, 0));
  EXPECT_FALSE(low->HitTestByRect(5, 1, 2, 5));
}

TEST_F(Rectangle, HitTestByRectTriesTheCornersOfTheGivenRectangleFirst) {
  EXPECT_TRUE(Placed<clsRectangle>(20000, 0, 20001, 11)->HitTestByRect(30000, 5, 10, 10));
}

TEST_F(Rectangle, HitTestByRectOverflowsBeyond16Bits) {
  const auto r = Placed<clsRectangle>(10, 20, 5, 6);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByRect(40000, 0, 1, 1); }), 6);
  const auto far = Placed<clsRectangle>(40000, 20, 5, 6);
  EXPECT_EQ(ErrorOf([&] { far->HitTestByRect(0, 0, 1, 1); }), 6);
}

TEST_F(Rectangle, HitTestByPointOverflowsWhenTheFarEdgeDoes) {
  const auto r = Placed<clsRectangle>(kMost, 0, 1, 5);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByPoint(kMost, 0); }), 6);
  const auto low = Placed<clsRectangle>(0, kMost, 5, 1);
  EXPECT_EQ(ErrorOf([&] { low->HitTestByPoint(0, kMost); }), 6);
}

TEST_F(Rectangle, PaintsBorderAndBodyWithoutTheFarEdges) {
  const auto r = Placed<clsRectangle>(2, 3, 5, 4);
  r->ColorFore(9);
  r->ColorBack(0);
  r->FillStyle(eFS_Solid);
  gdi::Surface surface(12, 10);
  surface.Clear(0xFFFFFF);
  r->Draw(surface.Dc(), false);
  const std::uint32_t body = corvane1::PaletteColorService().GetColor(0);
  for (std::int32_t y = 0; y < 10; ++y) {
    for (std::int32_t x = 0; x < 12; ++x) {
      const bool inBox = x >= 2 && x < 7 && y >= 3 && y < 7;
      const bool inBody = x >= 3 && x < 6 && y >= 4 && y < 6;
      EXPECT_EQ(surface.At(x, y), inBody ? body : inBox ? 0x000000u : 0xFFFFFFu) << x << ' ' << y;
    }
  }
}

TEST_F(Rectangle, AThickBorderGrowsInwardAndIsSolid) {
  const auto r = Placed<clsRectangle>(2, 2, 10, 10);
  r->ColorFore(9);
  r->PenWidth(2);
  r->PenStyle(ePS_Dash);
  gdi::Surface surface(16, 16);
  surface.Clear(0xFFFFFF);
  r->Draw(surface.Dc(), false);
  EXPECT_EQ(surface.At(1, 6), 0xFFFFFFu);
  for (std::int32_t y = 4; y < 10; ++y) {
    EXPECT_EQ(surface.At(2, y), 0u);
    EXPECT_EQ(surface.At(3, y), 0u);
    EXPECT_EQ(surface.At(4, y), 0xFFFFFFu);
    EXPECT_EQ(surface.At(10, y), 0u);
    EXPECT_EQ(surface.At(11, y), 0u);
    EXPECT_EQ(surface.At(12, y), 0xFFFFFFu);
  }
}

}  // namespace
}  // namespace quenzel7
