#include "framework/transform_state.h"

#include <gtest/gtest.h>

#include "framework/position.h"
#include "platform/automation/array.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::ErrorOf;

constexpr Long kW = 320;
constexpr Long kH = 240;

/// An element of any type whose proposed position is given and whose others are far off.
class ProposedElement final : public ItfHmiElement {
 public:
  ProposedElement(Long type, const Descriptor& proposed) : type_(type), proposed_(proposed) {}
  const automation::ClassInfo& Class() const override { return clsEnums::ClassOf(); }

 private:
  Long ItfHmiElement_ElementType() const override { return type_; }
  void ItfHmiElement_GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy,
                                     const Long& pLocation) const override {
    const Descriptor far{-1000, -1000, -1000, -1000};
    const Descriptor& d = pLocation == 3 ? proposed_ : far;
    pXs = d.xs;
    pYs = d.ys;
    pDx = d.dx;
    pDy = d.dy;
  }

  Long type_;
  Descriptor proposed_;
};

Variant Map(Long w = kW, Long h = kH) { return Array(VariantKind::Byte, Bounds{0, w}, Bounds{0, h}); }

enCollisionStatus Judge(Long type, Long xs, Long ys, Long dx, Long dy) {
  return GetElementTransformState(ProposedElement(type, {xs, ys, dx, dy}), Map());
}

enCollisionStatus Rectangle(Long xs, Long ys, Long dx, Long dy) { return Judge(1, xs, ys, dx, dy); }

TEST(TransformState, InsideTheMapIsLegal) { EXPECT_EQ(Rectangle(10, 10, 20, 20), eCS_Legall); }

TEST(TransformState, TheLimitsAreIncluded) {
  EXPECT_EQ(Rectangle(0, 0, kW, kH), eCS_Legall);
  EXPECT_EQ(Rectangle(kW - 1, kH - 1, 1, 1), eCS_Legall);
}

TEST(TransformState, AnyCornerOnePixelOutsideIsOutOfRange) {
  EXPECT_EQ(Rectangle(-1, 0, 5, 5), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(0, -1, 5, 5), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(0, 0, kW + 1, 5), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(0, 0, 5, kH + 1), eCS_OutOfRAnge);
  // A negative size brings the far corner out.
  EXPECT_EQ(Rectangle(2, 2, -3, 1), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(2, 2, 1, -3), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(kW + 1, 2, -1, 1), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(2, kH + 1, 1, -1), eCS_OutOfRAnge);
}

TEST(TransformState, SizeZeroOverlapsOnEitherAxis) {
  EXPECT_EQ(Rectangle(5, 5, 0, 5), eCS_Overlap);
  EXPECT_EQ(Rectangle(5, 5, 5, 0), eCS_Overlap);
  EXPECT_EQ(Rectangle(5, 5, 0, 0), eCS_Overlap);
}

TEST(TransformState, OutOfRangeOutranksSizeZero) {
  EXPECT_EQ(Rectangle(-1, 5, 0, 5), eCS_OutOfRAnge);
  EXPECT_EQ(Rectangle(5, kH + 1, 5, 0), eCS_OutOfRAnge);
}

TEST(TransformState, CellsOfTheMapPlayNoPart) {
  Variant map = Map();
  for (Byte& cell : map.MutableElements().Cells<Byte>()) cell = 1;
  EXPECT_EQ(GetElementTransformState(ProposedElement(1, {5, 5, 5, 5}), map), eCS_Legall);
}

TEST(TransformState, WidthIsTheMapsFirstDimensionAndHeightTheSecond) {
  EXPECT_EQ(GetElementTransformState(ProposedElement(1, {0, 0, 9, 1}), Map(9, 1)), eCS_Legall);
  EXPECT_EQ(GetElementTransformState(ProposedElement(1, {0, 0, 1, 9}), Map(9, 1)), eCS_OutOfRAnge);
}

TEST(TransformState, LowerBoundsOfTheMapPlayNoPart) {
  const Variant map = Array(VariantKind::Byte, Bounds{5, 320}, Bounds{7, 240});
  const auto judge = [&map](Long dx, Long dy) {
    return GetElementTransformState(ProposedElement(1, {0, 0, dx, dy}), map);
  };
  EXPECT_EQ(judge(320, 240), eCS_Legall);
  EXPECT_EQ(judge(321, 240), eCS_OutOfRAnge);
  EXPECT_EQ(judge(320, 241), eCS_OutOfRAnge);
}

TEST(TransformState, CoordinatesBeyond16BitsAreJudgedLikeOthers) {
  for (const Long xs : {32767, 32768, -32769}) EXPECT_EQ(Rectangle(xs, 5, 5, 5), eCS_OutOfRAnge) << xs;
  EXPECT_EQ(Rectangle(40000, 5, 5, 5), eCS_OutOfRAnge);
}

TEST(TransformState, RaisesOverflowForACornerBeyond32Bits) {
  EXPECT_EQ(ErrorOf([] { Rectangle(2147483647, 5, 1, 5); }), 6);
  EXPECT_EQ(ErrorOf([] { Rectangle(5, 2147483647, 5, 1); }), 6);
}

TEST(TransformState, NeedsATwoDimensionalMap) {
  const ProposedElement element(1, {5, 5, 5, 5});
  EXPECT_EQ(ErrorOf([&] { GetElementTransformState(element, Variant()); }), 13);
  EXPECT_EQ(ErrorOf([&] { GetElementTransformState(element, Array::OfSize(VariantKind::Byte, 5)); }), 9);
}

/// Each row of the lines' table at its limits: the extreme vectors that are legal, and for each limit the
/// vector that is one pixel beyond. (W, H) is (320, 240).
struct LineCase {
  Long xs, ys, dx, dy;
  enCollisionStatus status;
};

constexpr LineCase kLines[] = {
    // A point: no range test.
    {5, 5, 0, 0, eCS_Overlap},
    {-5, 500, 0, 0, eCS_Overlap},
    // Straight down.
    {0, 0, 0, 240, eCS_Legall},
    {319, 0, 0, 240, eCS_Legall},
    {0, 0, 0, 241, eCS_OutOfRAnge},
    {0, -1, 0, 5, eCS_OutOfRAnge},
    {-1, 0, 0, 5, eCS_OutOfRAnge},
    {320, 0, 0, 5, eCS_OutOfRAnge},
    {5, 240, 0, 1, eCS_OutOfRAnge},
    // Straight up.
    {0, 240, 0, -241, eCS_Legall},
    {319, 240, 0, -241, eCS_Legall},
    {0, 241, 0, -5, eCS_OutOfRAnge},
    {0, 240, 0, -242, eCS_OutOfRAnge},
    {-1, 5, 0, -5, eCS_OutOfRAnge},
    {320, 5, 0, -5, eCS_OutOfRAnge},
    // To the right.
    {0, 0, 320, 0, eCS_Legall},
    {0, 239, 320, 0, eCS_Legall},
    {0, 0, 321, 0, eCS_OutOfRAnge},
    {-1, 0, 5, 0, eCS_OutOfRAnge},
    {0, -1, 5, 0, eCS_OutOfRAnge},
    {0, 240, 5, 0, eCS_OutOfRAnge},
    {320, 5, 1, 0, eCS_OutOfRAnge},
    // To the left.
    {320, 0, -321, 0, eCS_Legall},
    {320, 239, -321, 0, eCS_Legall},
    {321, 0, -5, 0, eCS_OutOfRAnge},
    {320, 0, -322, 0, eCS_OutOfRAnge},
    {5, -1, -5, 0, eCS_OutOfRAnge},
    {5, 240, -5, 0, eCS_OutOfRAnge},
    // Right and down.
    {0, 0, 320, 239, eCS_Legall},
    {0, 0, 320, 240, eCS_OutOfRAnge},
    {0, -1, 5, 5, eCS_OutOfRAnge},
    {-1, 0, 5, 5, eCS_OutOfRAnge},
    {0, 0, 321, 5, eCS_OutOfRAnge},
    {5, 235, 1, 5, eCS_OutOfRAnge},
    {5, 239, 5, 1, eCS_OutOfRAnge},
    // Right and up.
    {0, 239, 320, -240, eCS_Legall},
    {0, 239, 320, -241, eCS_OutOfRAnge},
    {0, 240, 5, -5, eCS_OutOfRAnge},
    {-1, 9, 5, -5, eCS_OutOfRAnge},
    {0, 9, 321, -5, eCS_OutOfRAnge},
    // Left and down.
    {319, 0, -320, 240, eCS_Legall},
    {319, 0, -320, 241, eCS_OutOfRAnge},
    {9, -1, -5, 5, eCS_OutOfRAnge},
    {320, 0, -5, 5, eCS_OutOfRAnge},
    {319, 0, -321, 5, eCS_OutOfRAnge},
    {5, -1, -3, 1, eCS_OutOfRAnge},
    // Left and up.
    {319, 239, -320, -240, eCS_Legall},
    {319, 239, -320, -241, eCS_OutOfRAnge},
    {9, 240, -5, -5, eCS_OutOfRAnge},
    {320, 9, -5, -5, eCS_OutOfRAnge},
    {319, 9, -321, -5, eCS_OutOfRAnge},
};

TEST(TransformState, LinesAreJudgedByTheSignsOfTheirVector) {
  for (const LineCase& line : kLines) {
    EXPECT_EQ(Judge(2, line.xs, line.ys, line.dx, line.dy), line.status)
        << line.xs << ", " << line.ys << " by " << line.dx << ", " << line.dy;
  }
}

TEST(TransformState, OnlyType2IsALine) {
  // Legal as a line, out of range as anything else.
  EXPECT_EQ(Judge(2, 0, 240, 0, -241), eCS_Legall);
  for (const Long type : {1, 3, 4, 5, 6, 7, 8, 11, 12}) {
    EXPECT_EQ(Judge(type, 0, 240, 0, -241), eCS_OutOfRAnge) << type;
  }
}

TEST(TransformState, LinesOverflowLikeRectangles) {
  EXPECT_EQ(ErrorOf([] { Judge(2, 2147483647, 5, 1, 0); }), 6);
  EXPECT_EQ(ErrorOf([] { Judge(2, 5, 2147483647, 0, 1); }), 6);
}

}  // namespace
}  // namespace quenzel7
