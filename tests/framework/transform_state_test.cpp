#include "framework/transform_state.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <tuple>

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

// --- Elements that stand on no mark ---

/// What a button of that place is told of a map.
enCollisionStatus Touch(const Array& map, const Descriptor& place) {
  return GetTouchTransformState(ProposedElement(11, place), map);
}

constexpr VariantKind kCellKinds[] = {VariantKind::Byte,   VariantKind::Integer, VariantKind::Long,
                                      VariantKind::Double, VariantKind::String,  VariantKind::Variant};

TEST(TouchTransformState, AMarkUnderAnyPixelOverlapsAndOneBesideItDoesNot) {
  for (const VariantKind kind : kCellKinds) {
    for (Long x = 0; x <= 9; ++x) {
      for (Long y = 0; y <= 8; ++y) {
        Array map(kind, Bounds{0, 9}, Bounds{0, 8});
        if (kind == VariantKind::String) {
          for (Long cell = 0; cell < 90; ++cell) map.Set(cell % 10, cell / 10, "0");
        }
        map.Set(x, y, Long{1});
        const bool isUnder = x >= 2 && x < 6 && y >= 3 && y < 5;
        EXPECT_EQ(Touch(map, {2, 3, 4, 2}), isUnder ? eCS_Overlap : eCS_Legall) << x << ", " << y;
      }
    }
  }
}

TEST(TouchTransformState, AMarkBetweenTheRowsOfAWideElementIsBesideIt) {
  for (const VariantKind kind : kCellKinds) {
    if (kind == VariantKind::String) continue;
    for (const Long width : {4, 5, 6, 9, 10}) {
      for (Long x = 0; x <= 9; ++x) {
        for (Long y = 0; y <= 3; ++y) {
          Array map(kind, Bounds{0, 10}, Bounds{0, 3});
          map.Set(x, y, Long{1});
          const Long left = width < 10 ? 1 : 0;
          const bool isUnder = x >= left && x < left + width && y >= 1 && y < 3;
          EXPECT_EQ(Touch(map, {left, 1, width, 2}), isUnder ? eCS_Overlap : eCS_Legall)
              << width << ": " << x << ", " << y;
        }
      }
    }
  }
}

TEST(TouchTransformState, Only1IsAMark) {
  for (const VariantKind kind : {VariantKind::Byte, VariantKind::Integer, VariantKind::Long}) {
    for (const Long value : {0, 1, 2, 255}) {
      Array map(kind, Bounds{0, 9}, Bounds{0, 9});
      map.Set(3, 3, value);
      EXPECT_EQ(Touch(map, {3, 3, 1, 1}), value == 1 ? eCS_Overlap : eCS_Legall) << value;
    }
  }
  Array map(VariantKind::Long, Bounds{0, 9}, Bounds{0, 9});
  for (const Long value : {-1, 257, 65537}) {
    map.Set(3, 3, value);
    EXPECT_EQ(Touch(map, {0, 0, 9, 9}), eCS_Legall) << value;
  }
  // True is -1.
  Array truths(VariantKind::Boolean, Bounds{0, 9}, Bounds{0, 9});
  truths.Set(3, 3, true);
  EXPECT_EQ(Touch(truths, {0, 0, 9, 9}), eCS_Legall);
  Array doubles(VariantKind::Double, Bounds{0, 9}, Bounds{0, 9});
  doubles.Set(3, 3, 1.25);
  EXPECT_EQ(Touch(doubles, {0, 0, 9, 9}), eCS_Legall);
}

TEST(TouchTransformState, OutOfRangeWinsAndNoSizeOverlapsWithoutAMark) {
  Array map(VariantKind::Byte, Bounds{0, 9}, Bounds{0, 9});
  EXPECT_EQ(Touch(map, {3, 3, 0, 2}), eCS_Overlap);
  EXPECT_EQ(Touch(map, {3, 3, 2, 0}), eCS_Overlap);
  for (Long cell = 0; cell < 100; ++cell) map.Set(cell % 10, cell / 10, Long{1});
  EXPECT_EQ(Touch(map, {8, 8, 2, 2}), eCS_OutOfRAnge);
  EXPECT_EQ(Touch(map, {-1, 3, 2, 2}), eCS_OutOfRAnge);
  EXPECT_EQ(Touch(map, {8, 8, 1, 1}), eCS_Overlap);
  // There is no pixel in a size below 0.
  EXPECT_EQ(Touch(map, {5, 5, -2, 3}), eCS_Legall);
  EXPECT_EQ(Touch(map, {5, 5, 3, -2}), eCS_Legall);
  EXPECT_EQ(Touch(map, {5, 5, 1, -1}), eCS_Legall);
}

TEST(TouchTransformState, CellsAreFoundByTheBoundsOfTheMap) {
  for (const VariantKind kind : {VariantKind::Byte, VariantKind::Integer, VariantKind::Variant}) {
    Array map(kind, Bounds{3, 12}, Bounds{2, 9});
    map.Set(3, 2, Long{1});
    EXPECT_EQ(Touch(map, {3, 2, 1, 1}), eCS_Overlap);
    EXPECT_EQ(Touch(map, {4, 2, 8, 7}), eCS_Legall);
    EXPECT_EQ(Touch(map, {3, 3, 9, 6}), eCS_Legall);
    // Pixels before the first cells.
    EXPECT_EQ(ErrorOf([&] { Touch(map, {2, 2, 3, 3}); }), 9);
    EXPECT_EQ(ErrorOf([&] { Touch(map, {3, 1, 3, 3}); }), 9);
    // Without a size there is no pixel.
    EXPECT_EQ(Touch(map, {0, 0, 3, 0}), eCS_Overlap);
    EXPECT_EQ(Touch(map, {0, 0, 0, 3}), eCS_Overlap);
    Array below(kind, Bounds{-4, 12}, Bounds{-3, 9});
    below.Set(0, 0, Long{1});
    EXPECT_EQ(Touch(below, {0, 0, 1, 1}), eCS_Overlap);
    EXPECT_EQ(Touch(below, {1, 0, 11, 9}), eCS_Legall);
    EXPECT_EQ(Touch(below, {0, 1, 12, 8}), eCS_Legall);
    below.Set(11, 8, Long{1});
    EXPECT_EQ(Touch(below, {1, 1, 11, 8}), eCS_Overlap);
  }
}

TEST(TouchTransformState, WhatIsNoNumberIsAnErrorUnlessAMarkComesFirst) {
  Array map(VariantKind::Variant, Bounds{0, 9}, Bounds{0, 9});
  map.Set(4, 2, "x");
  EXPECT_EQ(ErrorOf([&] { Touch(map, {2, 2, 4, 4}); }), 13);
  map.Set(4, 2, automation::NullValue{});
  EXPECT_EQ(ErrorOf([&] { Touch(map, {2, 2, 4, 4}); }), 94);
  // The mark stands in an earlier column, though in a later row.
  map.Set(3, 5, Long{1});
  EXPECT_EQ(Touch(map, {2, 2, 4, 4}), eCS_Overlap);
  EXPECT_EQ(Touch(map, {5, 2, 4, 4}), eCS_Legall);
  EXPECT_EQ(ErrorOf([] { GetTouchTransformState(ProposedElement(11, {}), Variant(Long{1})); }), 13);
}

TEST(TouchTransformState, IsWhatLookingAtEachPixelTells) {
  EXPECT_TRUE(rc::check([](std::uint32_t seed) {
    const auto next = [&seed](Long count) {
      seed = seed * 1664525u + 1013904223u;
      return static_cast<Long>((seed >> 8) % static_cast<std::uint32_t>(count));
    };
    const Long lowX = next(4) - 3, lowY = next(4) - 3;
    const Long lastX = 3 + next(8), lastY = 3 + next(8);
    Array map(kCellKinds[next(3)], Bounds{lowX, lastX}, Bounds{lowY, lastY});
    for (Long mark = next(6); mark > 0; --mark) {
      map.Set(lowX + next(lastX - lowX + 1), lowY + next(lastY - lowY + 1), Long{1});
    }
    const Descriptor place{next(lastX + 3) - 1, next(lastY + 3) - 1, next(7) - 1, next(7) - 1};
    enCollisionStatus expected = GetElementTransformState(ProposedElement(11, place), map);
    if (expected != eCS_OutOfRAnge) {
      for (Long x = place.xs; x < place.xs + place.dx; ++x) {
        for (Long y = place.ys; y < place.ys + place.dy; ++y) {
          if (automation::To<Long>(map.At(x, y)) == 1) expected = eCS_Overlap;
        }
      }
    }
    RC_ASSERT(Touch(map, place) == expected);
  }));
}

}  // namespace
}  // namespace quenzel7
