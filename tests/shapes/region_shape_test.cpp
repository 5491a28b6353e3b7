#include "shapes/region_shape.h"

#include <gtest/gtest.h>

#include "tests/shapes/region_sweep.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using test::ErrorOf;
using test::Placed;

constexpr Long kMost = 2147483647;

/// The region with which a shape of the class is hit when it lies there at rest and on display.
template <class Shape>
gdi::HRGN RegionOf(const Descriptor& place);
template <>
gdi::HRGN RegionOf<clsEllipse>(const Descriptor& place) {
  return gdi::CreateEllipticRgn(place.xs, place.ys, place.xs + place.dx + 1, place.ys + place.dy + 1);
}
template <>
gdi::HRGN RegionOf<clsRoundRect>(const Descriptor& place) {
  // Half of a side in whole numbers, ties to even.
  const auto half = [](Long side) { return side / 2 + (side % 4 == 3); };
  return gdi::CreateRoundRectRgn(place.xs, place.ys, place.xs + place.dx + 1, place.ys + place.dy + 1,
                                 half(place.dx), half(place.dy));
}

template <class Shape>
using RegionShapes = test::ShapeTest<Shape>;
TYPED_TEST_SUITE(RegionShapes, test::RegionShapeTypes, test::ClassNameOfShape);

TYPED_TEST(RegionShapes, AreHitWhereTheRegionOfTheLargerBoxIs) {
  int hits = 0;
  for (Long dx = 0; dx <= 40; ++dx) {
    for (Long dy = 0; dy <= 40; ++dy) {
      const Descriptor place{7, -4, dx, dy};
      const gdi::OwnedObject region(RegionOf<TypeParam>(place));
      hits += test::ComparePoints(*Placed<TypeParam>(7, -4, dx, dy), place, region.Get());
    }
  }
  EXPECT_GT(hits, 100000);
}

TYPED_TEST(RegionShapes, MeetTheRectanglesThatTheRegionOfTheLargerBoxMeets) {
  int hits = 0;
  for (const Long dx : {0, 1, 2, 3, 7, 12, 25, 40}) {
    for (const Long dy : {0, 1, 2, 3, 8, 13, 26, 39}) {
      const Descriptor place{7, -4, dx, dy};
      const gdi::OwnedObject region(RegionOf<TypeParam>(place));
      hits += test::CompareRects(*Placed<TypeParam>(7, -4, dx, dy), place, region.Get());
    }
  }
  EXPECT_GT(hits, 10000);
}

TYPED_TEST(RegionShapes, AreHitOnTheirOutermostPixelsAndNotBeside) {
  const auto r = Placed<TypeParam>(10, 20, 20, 10);
  EXPECT_TRUE(r->HitTestByPoint(10, 25));
  EXPECT_TRUE(r->HitTestByPoint(29, 25));
  EXPECT_TRUE(r->HitTestByPoint(20, 20));
  EXPECT_TRUE(r->HitTestByPoint(20, 29));
  EXPECT_FALSE(r->HitTestByPoint(9, 25));
  EXPECT_FALSE(r->HitTestByPoint(30, 25));
  EXPECT_FALSE(r->HitTestByPoint(20, 19));
  EXPECT_FALSE(r->HitTestByPoint(20, 30));
  EXPECT_TRUE(r->HitTestByRect(29, 25, 1, 1));
  EXPECT_FALSE(r->HitTestByRect(30, 25, 1, 1));
  EXPECT_TRUE(r->HitTestByRect(20, 29, 1, 1));
  EXPECT_FALSE(r->HitTestByRect(20, 30, 1, 1));
  EXPECT_TRUE(r->HitTestByRect(9, 25, 2, 1));
  EXPECT_FALSE(r->HitTestByRect(9, 25, 1, 1));
  EXPECT_TRUE(r->HitTestByRect(20, 19, 1, 2));
  EXPECT_FALSE(r->HitTestByRect(20, 19, 1, 1));
}

TYPED_TEST(RegionShapes, AreHitBeyond16Bits) {
  const auto r = Placed<TypeParam>(40000, -70000, 20, 10);
  EXPECT_TRUE(r->HitTestByPoint(40010, -69995));
  EXPECT_TRUE(r->HitTestByRect(40010, -69995, 50000, 50000));
  EXPECT_FALSE(r->HitTestByRect(0, 0, 50000, 50000));
}

TYPED_TEST(RegionShapes, HitTestsOverflowWhereACornerDoesAndLeaveNoRegion) {
  const std::size_t before = gdi::LiveObjects();
  for (const auto& r : {Placed<TypeParam>(kMost, 0, 0, 5), Placed<TypeParam>(0, kMost, 5, 0)}) {
    EXPECT_EQ(ErrorOf([&] { r->HitTestByPoint(0, 0); }), 6);
    EXPECT_EQ(ErrorOf([&] { r->HitTestByRect(0, 0, 1, 1); }), 6);
  }
  const auto r = Placed<TypeParam>(0, 0, 20, 10);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByRect(kMost, 0, 1, 0); }), 6);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByRect(0, kMost, 0, 1); }), 6);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

}  // namespace
}  // namespace quenzel7
