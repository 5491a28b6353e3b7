#include "shapes/ellipse.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::Placed;
using test::WithFourPositions;

using Ellipse = test::ShapeTest<clsEllipse>;

TEST_F(Ellipse, HasDefaultsOfItsOwn) {
  const clsEllipse e;
  EXPECT_EQ(clsEllipse::ClassOf().name, "clsEllipse");
  EXPECT_EQ(e.ElementType(), 6);
  EXPECT_EQ(e.ColorFore(), 0);
  EXPECT_EQ(e.ColorForeTouch(), 0);
  EXPECT_EQ(e.ColorHatch(), -1);
  EXPECT_EQ(e.PenWidth(), 1);
}

TEST_F(Ellipse, ReadsItsColourTwiceOnceForEachField) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "4";
  Platform::Current().settings = settings;
  const clsEllipse e;
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6053/0", "6000/6053/0"}));
  EXPECT_EQ(e.ColorFore(), 413);
  EXPECT_EQ(e.ColorForeTouch(), 423);
  EXPECT_EQ(e.PenWidth(), 1);
}

// --- Hits ---

TEST_F(Ellipse, IsHitInItselfAndNotInTheCornersOfItsBox) {
  const auto e = Placed<clsEllipse>(10, 20, 20, 10);
  EXPECT_TRUE(e->HitTestByPoint(20, 25));
  for (const Long x : {10, 29, 30}) {
    for (const Long y : {20, 29, 30}) EXPECT_FALSE(e->HitTestByPoint(x, y)) << x << ' ' << y;
  }
  EXPECT_TRUE(Placed<clsRectangle>(10, 20, 20, 10)->HitTestByPoint(10, 20));
  EXPECT_FALSE(e->HitTestByRect(8, 18, 3, 3));
  EXPECT_TRUE(e->HitTestByRect(8, 18, 8, 6));
}

TEST_F(Ellipse, HitTestsAskForTheRegionAtDescriptor1AndDeleteIt) {
  const auto e = WithFourPositions<clsEllipse>();
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  e->HitTestByPoint(15, 25);
  EXPECT_EQ(recorder.Take(),
            (std::vector<std::string>{"CreateEllipticRgn(1, 2, 32, 43) -> region:1",
                                      "PtInRegion(region:1, 15, 25)", "DeleteObject(region:1)"}));
  e->HitTestByRect(15, 25, 3, 4);
  EXPECT_EQ(recorder.Take(),
            (std::vector<std::string>{"CreateEllipticRgn(1, 2, 32, 43) -> region:2",
                                      "RectInRegion(region:2, {15, 25, 18, 29})", "DeleteObject(region:2)"}));
  EXPECT_EQ(gdi::LiveObjects(), before);
}

// --- Pixels ---

/// The colours in the middle of a shape of 24 x 24 at (4, 4), where no border is.
std::set<std::uint32_t> BodyColors(ItfHmiElement& shape) {
  gdi::Surface surface(32, 32);
  surface.Clear(0xFFFFFF);
  shape.Draw(surface.Dc(), false);
  std::set<std::uint32_t> colors;
  for (std::int32_t y = 12; y < 20; ++y) {
    for (std::int32_t x = 12; x < 20; ++x) colors.insert(surface.At(x, y));
  }
  return colors;
}

TEST_F(Ellipse, PaintsAHatchInItsOwnColourOnThatOfTheBody) {
  Platform::Current().colorService = std::make_shared<test::TracedColors>();
  const auto e = Placed<clsEllipse>(4, 4, 24, 24);
  e->ColorFore(1);
  e->ColorBack(2);
  e->ColorHatch(3);
  e->HatchStyle(eHS_Cross);
  EXPECT_EQ(BodyColors(*e), (std::set<std::uint32_t>{0x0a0002, 0x0a0003}));
  e->FillStyle(eFS_Solid);
  EXPECT_EQ(BodyColors(*e), (std::set<std::uint32_t>{0x0a0002}));
}

TEST_F(Ellipse, PaintsItsBorderAndLeavesTheCornersOfItsBox) {
  Platform::Current().colorService = std::make_shared<test::TracedColors>();
  const auto e = Placed<clsEllipse>(2, 3, 9, 5);
  e->ColorFore(1);
  gdi::Surface surface(14, 10);
  surface.Clear(0xFFFFFF);
  e->Draw(surface.Dc(), false);
  EXPECT_EQ(surface.At(2, 5), 0x0a0001u);
  EXPECT_EQ(surface.At(10, 5), 0x0a0001u);
  EXPECT_EQ(surface.At(6, 3), 0x0a0001u);
  EXPECT_EQ(surface.At(6, 7), 0x0a0001u);
  EXPECT_EQ(surface.At(6, 5), 0xFFFFFFu);
  for (const std::int32_t x : {1, 2, 10, 11}) {
    for (const std::int32_t y : {2, 3, 7, 8}) EXPECT_EQ(surface.At(x, y), 0xFFFFFFu) << x << ' ' << y;
  }
}

}  // namespace
}  // namespace quenzel7
