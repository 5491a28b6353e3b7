#include "shapes/figure_region.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/gdi/recorder.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;

constexpr Long kMost = 2147483647;
constexpr Long kLeast = -kMost - 1;

std::vector<Long> Sides(const gdi::RECT& box) { return {box.left, box.top, box.right, box.bottom}; }

TEST(FigureRegion, ItsBoxIsOnePixelLargerToTheRightAndBelow) {
  EXPECT_EQ(Sides(RegionBox({10, 20, 5, 7})), (std::vector<Long>{10, 20, 16, 28}));
  EXPECT_EQ(Sides(RegionBox({-3, -4, 0, 0})), (std::vector<Long>{-3, -4, -2, -3}));
  EXPECT_EQ(Sides(RegionBox({10, 20, -5, -7})), (std::vector<Long>{10, 20, 6, 14}));
}

TEST(FigureRegion, ItsBoxMayReachTheLastCoordinateAndNotBeyond) {
  EXPECT_EQ(Sides(RegionBox({kMost - 1, kMost - 2, 0, 1})),
            (std::vector<Long>{kMost - 1, kMost - 2, kMost, kMost}));
  EXPECT_EQ(ErrorOf([] { RegionBox({kMost, 0, 0, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { RegionBox({0, kMost, 0, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { RegionBox({kMost, 0, 1, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { RegionBox({0, kMost, 0, 1}); }), 6);
  EXPECT_EQ(ErrorOf([] { RegionBox({kLeast, 0, -1, 0}); }), 6);
  EXPECT_EQ(ErrorOf([] { RegionBox({0, kLeast, 0, -1}); }), 6);
  EXPECT_EQ(Sides(RegionBox({kMost, kMost, -1, -1})), (std::vector<Long>{kMost, kMost, kMost, kMost}));
}

TEST(FigureRegion, AsksThePlatformAndDeletesTheRegionAtTheEnd) {
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  std::optional<FigureRegion> region(std::in_place, gdi::CreateEllipticRgn(10, 20, 31, 42));
  EXPECT_EQ(gdi::LiveObjects(), before + 1);
  EXPECT_TRUE(region->HasPoint(20, 31));
  EXPECT_FALSE(region->HasPoint(31, 20));
  EXPECT_TRUE(region->MeetsRect(3, 25, 8, 12));
  EXPECT_FALSE(region->MeetsRect(3, 25, 7, 12));
  region.reset();
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(recorder.Calls(), (std::vector<std::string>{
                                  "CreateEllipticRgn(10, 20, 31, 42) -> region:1",
                                  "PtInRegion(region:1, 20, 31)",
                                  "PtInRegion(region:1, 31, 20)",
                                  "RectInRegion(region:1, {3, 25, 11, 37})",
                                  "RectInRegion(region:1, {3, 25, 10, 37})",
                                  "DeleteObject(region:1)",
                              }));
}

TEST(FigureRegion, ARegionThatCouldNotBeMadeIsNeverHit) {
  gdi::Recorder recorder;
  {
    const FigureRegion none(0);
    EXPECT_FALSE(none.HasPoint(0, 0));
    EXPECT_FALSE(none.MeetsRect(0, 0, 10, 10));
  }
  EXPECT_EQ(recorder.Calls(),
            (std::vector<std::string>{"PtInRegion(null, 0, 0)", "RectInRegion(null, {0, 0, 10, 10})"}));
}

TEST(FigureRegion, ARectangleMayEndAtTheLastCoordinateAndNotBeyond) {
  const FigureRegion region(gdi::CreateEllipticRgn(0, 0, 10, 10));
  EXPECT_TRUE(region.MeetsRect(1, 1, kMost - 1, kMost - 1));
  EXPECT_EQ(ErrorOf([&] { region.MeetsRect(1, 1, kMost, 5); }), 6);
  EXPECT_EQ(ErrorOf([&] { region.MeetsRect(1, 1, 5, kMost); }), 6);
  EXPECT_EQ(ErrorOf([&] { region.MeetsRect(kLeast, 1, -1, 5); }), 6);
  EXPECT_EQ(ErrorOf([&] { region.MeetsRect(1, kLeast, 5, -1); }), 6);
}

}  // namespace
}  // namespace quenzel7
