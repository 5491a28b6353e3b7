#include "shapes/round_rect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/shapes/region_sweep.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::CallsOfDraw;
using test::Placed;
using test::WithFourPositions;

using RoundRect = test::ShapeTest<clsRoundRect>;

TEST_F(RoundRect, HasDefaultsOfItsOwn) {
  const clsRoundRect r;
  EXPECT_EQ(clsRoundRect::ClassOf().name, "clsRoundRect");
  EXPECT_EQ(r.ElementType(), 7);
  EXPECT_EQ(r.ColorFore(), 0);
  EXPECT_EQ(r.ColorForeTouch(), 0);
  EXPECT_EQ(r.ColorHatch(), -1);
  EXPECT_EQ(r.PenWidth(), 1);
}

TEST_F(RoundRect, ReadsOneSettingAndTheTouchColourFollowsTheBorders) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "4";
  Platform::Current().settings = settings;
  const clsRoundRect r;
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6052/0"}));
  EXPECT_EQ(r.ColorFore(), 412);
  EXPECT_EQ(r.ColorForeTouch(), 412);
  EXPECT_EQ(r.PenWidth(), 1);
}

// --- Corners ---

/// Half a side, ties to even, for sizes around every kind of tie.
struct Corner {
  Long side;
  Long size;
};
constexpr Corner kCorners[] = {{0, 0},  {1, 0},   {2, 1},   {3, 2},   {4, 2},   {5, 2},   {6, 3},   {7, 4},
                               {8, 4},  {9, 4},   {10, 5},  {11, 6},  {12, 6},  {13, 6},  {14, 7},  {15, 8},
                               {-1, 0}, {-2, -1}, {-3, -2}, {-5, -2}, {-7, -4}, {39, 20}, {40, 20}, {41, 20}};

TEST_F(RoundRect, CornersAreHalfOfEachSideRoundedToEven) {
  for (const auto& [side, size] : kCorners) {
    const std::string far = std::to_string(3 + side);
    EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(3, 5, side, 20))[6],
              "RoundRect(dc:1, 3, 5, " + far + ", 25, " + std::to_string(size) + ", 10)");
    EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(5, 3, 20, side))[6],
              "RoundRect(dc:1, 5, 3, 25, " + far + ", 10, " + std::to_string(size) + ")");
  }
}

TEST_F(RoundRect, CornersAreComputedInSinglePrecision) {
  // The side becomes 33554432 before it is halved.
  EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(0, 0, 33554434, 2))[6],
            "RoundRect(dc:1, 0, 0, 33554434, 2, 16777216, 1)");
  EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(0, 0, 2, 33554434))[6],
            "RoundRect(dc:1, 0, 0, 2, 33554434, 1, 16777216)");
}

TEST_F(RoundRect, CornersOfTheLargestSizesFit32Bits) {
  EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(0, 0, 2147483647, 2147483647))[6],
            "RoundRect(dc:1, 0, 0, 2147483647, 2147483647, 1073741824, 1073741824)");
  EXPECT_EQ(CallsOfDraw(*Placed<clsRoundRect>(0, 0, -2147483647 - 1, -2147483647 - 1))[6],
            "RoundRect(dc:1, 0, 0, -2147483648, -2147483648, -1073741824, -1073741824)");
}

TEST_F(RoundRect, CornersOfADraggedOneAreThoseOfItsPlaceOnDisplay) {
  EXPECT_EQ(CallsOfDraw(*WithFourPositions<clsRoundRect>())[6], "RoundRect(dc:1, 6, 2, 31, 46, 12, 22)");
}

// --- Hits ---

/// The region with which a round rectangle at rest is hit.
gdi::HRGN RegionAtRest(Long xs, Long ys, Long dx, Long dy, Long width, Long height) {
  return gdi::CreateRoundRectRgn(xs, ys, xs + dx + 1, ys + dy + 1, width, height);
}

TEST_F(RoundRect, HitTestsTakeTheBoxOfDescriptor1AndTheCornersOfDescriptor4) {
  const auto r = WithFourPositions<clsRoundRect>();
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  r->HitTestByPoint(15, 25);
  EXPECT_EQ(recorder.Take(),
            (std::vector<std::string>{"CreateRoundRectRgn(1, 2, 32, 43, 12, 22) -> region:1",
                                      "PtInRegion(region:1, 15, 25)", "DeleteObject(region:1)"}));
  r->HitTestByRect(15, 25, 3, 4);
  EXPECT_EQ(recorder.Take(),
            (std::vector<std::string>{"CreateRoundRectRgn(1, 2, 32, 43, 12, 22) -> region:2",
                                      "RectInRegion(region:2, {15, 25, 18, 29})", "DeleteObject(region:2)"}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(RoundRect, DuringADragTheCornersOfTheBoxAtRestAreThoseOnDisplay) {
  const auto r = Placed<clsRoundRect>(10, 20, 40, 30);
  const auto sweep = [&](Long width, Long height) {
    const gdi::OwnedObject region(RegionAtRest(10, 20, 40, 30, width, height));
    test::ComparePoints(*r, {10, 20, 40, 30}, region.Get());
    test::CompareRects(*r, {10, 20, 40, 30}, region.Get());
  };
  sweep(20, 15);
  EXPECT_FALSE(r->HitTestByPoint(11, 21));

  // Displayed 4 x 2: nearly square corners on the box at rest.
  r->Stretch(-36, -28, ePD_DownRight);
  r->UpdateDisplayWithTransx();
  ASSERT_EQ(test::DescriptorOf(*r, 4), (Descriptor{10, 20, 4, 2}));
  sweep(2, 1);
  EXPECT_TRUE(r->HitTestByPoint(11, 21));
  EXPECT_TRUE(r->HitTestByRect(11, 21, 1, 1));
  EXPECT_TRUE(r->HitTestByPoint(40, 40));

  // The drag ends: the descriptors agree.
  r->SaveLastLegalPosition();
  r->UpdateInitialDescriptor();
  EXPECT_FALSE(r->HitTestByPoint(40, 40));
  const gdi::OwnedObject region(RegionAtRest(10, 20, 4, 2, 2, 1));
  EXPECT_GT(test::ComparePoints(*r, {10, 20, 4, 2}, region.Get()), 0);
}

// --- Pixels ---

TEST_F(RoundRect, PaintsBodyAndHatchInTheColourOfTheBorder) {
  Platform::Current().colorService = std::make_shared<test::TracedColors>();
  const auto r = Placed<clsRoundRect>(2, 3, 20, 12);
  r->ColorFore(1);
  r->ColorBack(2);
  r->ColorHatch(3);
  const auto painted = [&r] {
    gdi::Surface surface(26, 20);
    surface.Clear(0xFFFFFF);
    r->Draw(surface.Dc(), false);
    std::string picture;
    for (std::int32_t x = 0; x < 26; ++x) {
      const std::uint32_t color = surface.At(x, 9);
      picture += color == 0xFFFFFF ? '.' : static_cast<char>('0' + (color - 0x0a0000));
    }
    return picture;
  };
  EXPECT_EQ(painted(), "..1..................1....");
  r->FillStyle(eFS_Solid);
  EXPECT_EQ(painted(), "..11111111111111111111....");
  r->FillStyle(eFS_Hollow);
  r->HatchStyle(eHS_Vertical);
  EXPECT_EQ(painted(), "..12122222221222222211....");
}

TEST_F(RoundRect, LeavesTheCornersOfItsBox) {
  const auto r = Placed<clsRoundRect>(2, 3, 20, 12);
  r->FillStyle(eFS_Solid);
  gdi::Surface surface(26, 20);
  surface.Clear(0xFFFFFF);
  r->Draw(surface.Dc(), false);
  for (const std::int32_t x : {2, 21}) {
    for (const std::int32_t y : {3, 14}) EXPECT_EQ(surface.At(x, y), 0xFFFFFFu) << x << ' ' << y;
  }
  EXPECT_NE(surface.At(12, 3), 0xFFFFFFu);
  EXPECT_NE(surface.At(12, 14), 0xFFFFFFu);
}

}  // namespace
}  // namespace quenzel7
