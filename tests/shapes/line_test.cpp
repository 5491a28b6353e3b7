#include "shapes/line.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::GetByName;
using automation::PutByName;
using automation::Variant;
using automation::VariantKind;
using test::DescriptorOf;
using test::ErrorOf;
using test::Placed;

constexpr Long kMost = 2147483647;
constexpr Long kLeast = -kMost - 1;

std::shared_ptr<clsLine> At(Long xs, Long ys, Long dx, Long dy) { return Placed<clsLine>(xs, ys, dx, dy); }

/// A collision map whose far corner is (w, h).
Variant Map(Long w, Long h) { return Array(VariantKind::Byte, Bounds{0, w}, Bounds{0, h}); }

/// Every direction that moves no end of a line: those of boxes, and numbers that are no direction.
constexpr Long kNoEnds[] = {ePD_None, ePD_UpRight,  ePD_Right, ePD_DownRight,
                            ePD_Down, ePD_LeftDown, ePD_Left,  ePD_UpLeft,
                            ePD_Up,   11,           -9,        kMost};

using Line = test::ShapeTest<clsLine>;

// --- Class ---

TEST_F(Line, HasDefaultsOfItsOwn) {
  const clsLine line;
  EXPECT_EQ(clsLine::ClassOf().name, "clsLine");
  EXPECT_EQ(line.ElementType(), 2);
  EXPECT_EQ(line.ColorBack(), -1);
  EXPECT_EQ(line.ColorFore(), 0);
  EXPECT_EQ(line.ColorBackTouch(), -1);
  EXPECT_EQ(line.ColorForeTouch(), 0);
  EXPECT_EQ(line.PenWidth(), 1);
}

TEST_F(Line, ReadsItsColourAndThenItsWidthFromTheSettings) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "4";
  Platform::Current().settings = settings;
  const clsLine line;
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6022/0", "6000/6049/1"}));
  EXPECT_EQ(line.ColorFore(), 412);
  EXPECT_EQ(line.ColorForeTouch(), 412);
  EXPECT_EQ(line.PenWidth(), 429);
}

TEST_F(Line, KeepsEveryOtherPropertyInAPlaceOfItsOwn) {
  clsLine line;
  const char* names[] = {"VisibleOpAddr",
                         "PenWidth",
                         "PenStyle",
                         "ColorFore",
                         "ColorBack",
                         "GroupID",
                         "ID",
                         "Xs",
                         "Ys",
                         "Dx",
                         "Dy",
                         "ColorForeTouch",
                         "ColorBackTouch",
                         "OrderIndex"};
  Long value = 100;
  for (const char* name : names) PutByName(line, name, value++);
  value = 100;
  for (const char* name : names) EXPECT_EQ(GetByName(line, name), Variant(value++)) << name;
}

// --- Positions ---

TEST_F(Line, KeepsASignedVector) {
  const auto line = At(10, 20, -30, 0);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(*line, location), (Descriptor{10, 20, -30, 0})) << location;
  }
  EXPECT_EQ(line->Xs(), 10);
  EXPECT_EQ(line->Ys(), 20);
  EXPECT_EQ(line->Dx(), -30);
  EXPECT_EQ(line->Dy(), 0);
  Descriptor d;
  line->GetOptimalDimensions(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{10, 20, -30, 0}));
}

TEST_F(Line, ToolTipTellsTheSignedSizeThatIsDisplayed) {
  const auto line = At(10, -20, -30, 0);
  EXPECT_EQ(line->GetToolTipText(), "Pos: 10, -20 ; Size: -30, 0");
  line->Stretch(1, -2, ePD_LineHead);
  line->UpdateDisplayWithTransx();
  EXPECT_EQ(line->GetToolTipText(), "Pos: 11, -22 ; Size: -31, 2");
}

TEST_F(Line, StretchOfTheHeadLeavesTheTailWhereItIs) {
  const auto line = At(10, 20, 30, 40);
  line->Stretch(100, 100, ePD_LineHead);
  line->Stretch(3, -4, ePD_LineHead);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{13, 16, 27, 44}));
  line->Stretch(-15, 45, ePD_LineHead);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{-5, 65, 45, -5}));
  for (const Long location : {1, 2, 4}) {
    EXPECT_EQ(DescriptorOf(*line, location), (Descriptor{10, 20, 30, 40})) << location;
  }
}

TEST_F(Line, StretchOfTheTailLeavesTheHeadWhereItIs) {
  const auto line = At(10, 20, 30, 40);
  line->Stretch(100, 100, ePD_LineTail);
  line->Stretch(3, -4, ePD_LineTail);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, 33, 36}));
  line->Stretch(-35, -41, ePD_LineTail);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, -5, -1}));
  for (const Long location : {1, 2, 4}) {
    EXPECT_EQ(DescriptorOf(*line, location), (Descriptor{10, 20, 30, 40})) << location;
  }
}

TEST_F(Line, StretchInAnyOtherDirectionLeavesDescriptor3EqualToDescriptor1) {
  for (const Long direction : kNoEnds) {
    const auto line = At(10, 20, 30, 40);
    line->Move(7, 8);
    line->SaveLastLegalPosition();
    line->Stretch(5, 0, direction);
    EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, 30, 40})) << direction;
    EXPECT_EQ(DescriptorOf(*line, 2), (Descriptor{17, 28, 30, 40})) << direction;
  }
}

TEST_F(Line, AVectorOfSize1DoesNotFallBackToTheLastLegalPosition) {
  const auto line = At(10, 20, 30, 40);
  line->Move(7, 8);
  line->SaveLastLegalPosition();
  line->Stretch(-29, -39, ePD_LineTail);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, 1, 1}));
  line->Stretch(29, 0, ePD_LineHead);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{39, 20, 1, 40}));
  line->Stretch(-30, -40, ePD_LineTail);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, 0, 0}));
}

TEST_F(Line, StretchThatOverflowsLeavesDescriptor3HalfComputed) {
  // Each step of the two ends in turn, in the order in which they are computed.
  struct Case {
    Descriptor rest;
    Long dx, dy, direction;
    Descriptor half;
  };
  const Case cases[] = {
      {{kMost, 2, 3, 4}, 1, 5, ePD_LineHead, {kMost, 2, 3, 4}},
      {{1, kMost, 3, 4}, 5, 1, ePD_LineHead, {6, kMost, 3, 4}},
      {{1, 2, kLeast, 4}, 5, 6, ePD_LineHead, {6, 8, kLeast, 4}},
      {{1, 2, 3, kLeast}, 5, 6, ePD_LineHead, {6, 8, -2, kLeast}},
      {{1, 2, kMost, 4}, 1, 5, ePD_LineTail, {1, 2, kMost, 4}},
      {{1, 2, 3, kMost}, 5, 1, ePD_LineTail, {1, 2, 8, kMost}},
  };
  for (const Case& c : cases) {
    const auto line = Placed<clsLine>(c.rest);
    line->Stretch(0, 0, ePD_None);
    EXPECT_EQ(ErrorOf([&] { line->Stretch(c.dx, c.dy, c.direction); }), 6);
    EXPECT_EQ(DescriptorOf(*line, 3), c.half);
    EXPECT_EQ(DescriptorOf(*line, 1), c.rest);
  }
}

TEST_F(Line, StretchThatOverflowsAtOnceHasCopiedDescriptor1) {
  const auto line = At(kMost, 2, 3, 4);
  line->Move(-5, 0);
  EXPECT_EQ(ErrorOf([&] { line->Stretch(1, 0, ePD_LineHead); }), 6);
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{kMost, 2, 3, 4}));
}

TEST_F(Line, UpdateBoundingRectangleStretchesItsEndsAndGivesEmpty) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_EQ(line->UpdateBoundingRectangle(3, 4, ePD_LineHead), Variant());
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{13, 24, 27, 36}));
  EXPECT_EQ(line->UpdateBoundingRectangle(3, 4, ePD_LineTail), Variant());
  EXPECT_EQ(DescriptorOf(*line, 3), (Descriptor{10, 20, 33, 44}));
}

TEST_F(Line, ADragByNameStaysAtItsLastLegalPlace) {
  const auto line = At(10, 10, 20, 20);
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  const auto call = [&](const char* name, std::initializer_list<Variant> arguments = {}) {
    return automation::InvokeByName(*line, element, name, arguments);
  };
  std::vector<Variant> map{Map(100, 100)};
  call("SaveInitialPosition");
  for (const Long step : {-40, 60, 70, 71}) {
    call("Stretch", {step, Long{0}, Long{ePD_LineTail}});
    const Variant status =
        automation::CallByName(*line, element, "GetTransformState", automation::CallKind::Method, map);
    if (status == Variant(Long{eCS_Legall})) {
      call("SaveLastLegalPosition");
      call("UpdateDisplayWithTransx");
    } else {
      EXPECT_EQ(status, Variant(Long{eCS_OutOfRAnge})) << step;
      call("UpdateDisplayWithLastLegal");
    }
  }
  call("UpdateInitialDescriptor");
  EXPECT_EQ(DescriptorOf(*line, 1), (Descriptor{10, 10, 90, 20}));
  EXPECT_EQ(DescriptorOf(*line, 4), (Descriptor{10, 10, 90, 20}));
}

// --- Transform state ---

/// A row of the table by which lines are judged: the signs of the vector, and between which pixels its box
/// has to lie; those on the far side are given as what W or H is lowered by.
struct JudgedBox {
  Long signX, signY;
  Long left, top, shortOfW, shortOfH;
};

constexpr JudgedBox kJudgedBoxes[] = {
    {0, 1, 0, 0, 1, 0},     // down
    {0, -1, 0, -1, 1, 0},   // up
    {1, 0, 0, 0, 0, 1},     // right
    {-1, 0, -1, 0, 0, 1},   // left
    {1, 1, 0, 0, 0, 1},     // right and down
    {1, -1, 0, -1, 0, 1},   // right and up
    {-1, 1, -1, 0, 1, 0},   // left and down
    {-1, -1, -1, -1, 1, 1}  // left and up
};

constexpr Long kW = 32;
constexpr Long kH = 24;

/// How a line is judged that is proposed to lie there; at rest and on display it lies far off the page.
enCollisionStatus JudgedAt(const Descriptor& proposed) {
  Variant map = Map(kW, kH);
  const auto line = At(-500, -500, 3, 3);
  line->Stretch(proposed.dx - 3, proposed.dy - 3, ePD_LineTail);
  line->SaveLastLegalPosition();
  line->UpdateInitialDescriptor();
  line->Move(proposed.xs + 500, proposed.ys + 500);
  EXPECT_EQ(DescriptorOf(*line, 3), proposed);
  return line->GetTransformState(map);
}

TEST_F(Line, IsJudgedByTheSignsOfItsVectorAtEveryLimitAndOnePixelBeyond) {
  for (const JudgedBox& box : kJudgedBoxes) {
    const Long right = kW - box.shortOfW;
    const Long bottom = kH - box.shortOfH;
    // The shortest, a longer and the longest vector, and one that is too long, in all pairs.
    for (const Long dx : {1, 2, 7, right - box.left, right - box.left + 1}) {
      for (const Long dy : {1, 2, 7, bottom - box.top, bottom - box.top + 1}) {
        const Long spanX = box.signX == 0 ? 0 : dx;
        const Long spanY = box.signY == 0 ? 0 : dy;
        for (const Long x : {box.left - 1, box.left, right - spanX, right - spanX + 1}) {
          for (const Long y : {box.top - 1, box.top, bottom - spanY, bottom - spanY + 1}) {
            const bool legal = x >= box.left && x + spanX <= right && y >= box.top && y + spanY <= bottom;
            const Descriptor line{box.signX < 0 ? x + spanX : x, box.signY < 0 ? y + spanY : y,
                                  box.signX * spanX, box.signY * spanY};
            EXPECT_EQ(JudgedAt(line), legal ? eCS_Legall : eCS_OutOfRAnge)
                << line.xs << ' ' << line.ys << ' ' << line.dx << ' ' << line.dy;
          }
        }
      }
    }
  }
}

TEST_F(Line, WithoutLengthIsAnOverlapWhereverItLies) {
  for (const Long x : {-1, 0, kW, kW + 1}) {
    for (const Long y : {-1, 0, kH, kH + 1}) EXPECT_EQ(JudgedAt({x, y, 0, 0}), eCS_Overlap) << x << ' ' << y;
  }
}

TEST_F(Line, IsJudgedAtDescriptor3ByTheMapsBoundsAlone) {
  const auto line = At(10, 10, 10, 5);
  Variant map = Map(kW, kH);
  for (Byte& cell : map.MutableElements().Cells<Byte>()) cell = 1;
  const Variant before = map;
  EXPECT_EQ(line->GetTransformState(map), eCS_Legall);
  line->Stretch(13, 0, ePD_LineTail);
  EXPECT_EQ(line->GetTransformState(map), eCS_OutOfRAnge);
  line->Stretch(12, 0, ePD_LineTail);
  EXPECT_EQ(line->GetTransformState(map), eCS_Legall);
  line->Stretch(10, 5, ePD_LineHead);
  EXPECT_EQ(line->GetTransformState(map), eCS_Overlap);
  EXPECT_EQ(map, before);
}

// --- Pick-ups ---

/// Where the pick-up of a line is found around a point: its handles are squares.
void ExpectSquare(const clsLine& line, Long x, Long y, Long width, Long reach, enPickUpDirection found) {
  for (Long dy = -reach - 2; dy <= reach + 2; ++dy) {
    for (Long dx = -reach - 2; dx <= reach + 2; ++dx) {
      const bool inside = std::abs(dx) <= reach && std::abs(dy) <= reach;
      EXPECT_EQ(line.GetPupDirection(x + dx, y + dy, width), inside ? found : ePD_None)
          << dx << ' ' << dy << " width " << width;
    }
  }
}

TEST_F(Line, IsPickedUpAtEitherEndWithinHalfTheWidthRoundedUp) {
  for (const Descriptor& place : {Descriptor{10, 20, 60, 40},
                                  {10, 20, -60, 40},
                                  {10, 20, 60, -40},
                                  {10, 20, -60, -40},
                                  {10, 20, 60, 0},
                                  {10, 20, 0, -60}}) {
    const auto line = Placed<clsLine>(place);
    for (const auto& [width, reach] : {std::pair<Long, Long>{1, 1}, {2, 1}, {3, 2}, {4, 2}, {5, 3}, {6, 3}}) {
      ExpectSquare(*line, place.xs, place.ys, width, reach, ePD_LineHead);
      ExpectSquare(*line, place.xs + place.dx, place.ys + place.dy, width, reach, ePD_LineTail);
    }
  }
}

TEST_F(Line, AHandleThatHalvesToNothingReachesOnePixel) {
  const auto line = At(10, 20, 60, 40);
  for (const Long width : {0, -1, -2}) {
    ExpectSquare(*line, 10, 20, width, 1, ePD_LineHead);
    ExpectSquare(*line, 70, 60, width, 1, ePD_LineTail);
  }
}

TEST_F(Line, AHandleOfANegativeReachIsNeverFound) {
  const auto line = At(10, 20, 60, 40);
  for (const Long width : {-3, -4, -50}) {
    EXPECT_EQ(line->GetPupDirection(10, 20, width), ePD_None) << width;
    EXPECT_EQ(line->GetPupDirection(70, 60, width), ePD_None) << width;
  }
}

TEST_F(Line, APointAsNearToTheTailAsToTheHeadIsTheTails) {
  const auto line = At(10, 10, 20, 20);
  EXPECT_EQ(line->GetPupDirection(20, 20, 60), ePD_LineTail);
  // Nearness is the sum along both axes: (10, 30) is as near to either end.
  EXPECT_EQ(line->GetPupDirection(10, 30, 60), ePD_LineTail);
  EXPECT_EQ(line->GetPupDirection(19, 20, 60), ePD_LineHead);
  EXPECT_EQ(line->GetPupDirection(20, 19, 60), ePD_LineHead);
  EXPECT_EQ(line->GetPupDirection(21, 20, 60), ePD_LineTail);
  // Without length both ends are one.
  EXPECT_EQ(At(10, 10, 0, 0)->GetPupDirection(10, 10, 5), ePD_LineTail);
}

TEST_F(Line, TheNearerEndDecidesAloneEvenOutOfItsReach) {
  const auto line = At(0, 0, 20, 30);
  EXPECT_EQ(line->GetPupDirection(20, 19, 21), ePD_LineTail) << "11 off";
  EXPECT_EQ(line->GetPupDirection(20, 19, 20), ePD_None);
  EXPECT_EQ(line->GetPupDirection(10, 10, 19), ePD_LineHead) << "10 off along both axes";
  EXPECT_EQ(line->GetPupDirection(10, 10, 18), ePD_None);
  // One end is in reach, 15, along both axes, but the other one is nearer by the sum.
  const auto flat = At(0, 0, 36, 10);
  EXPECT_EQ(flat->GetPupDirection(15, 15, 30), ePD_None);
  EXPECT_EQ(flat->GetPupDirection(21, -5, 30), ePD_None);
  EXPECT_EQ(flat->GetPupDirection(15, 14, 30), ePD_None);
  EXPECT_EQ(flat->GetPupDirection(15, 3, 30), ePD_LineHead);
}

TEST_F(Line, AVectorOf1And1IsPickedUpByItsBox) {
  const auto line = At(10, 20, 1, 1);
  for (Long y = 18; y <= 23; ++y) {
    for (Long x = 8; x <= 13; ++x) {
      const bool inBox = (x == 10 || x == 11) && (y == 20 || y == 21);
      EXPECT_EQ(line->GetPupDirection(x, y, 9), inBox ? ePD_LineTail : ePD_None) << x << ' ' << y;
    }
  }
}

TEST_F(Line, OnlyAVectorOf1And1HasABoxForItsHandle) {
  for (const Descriptor& place : {Descriptor{10, 20, 1, 0},
                                  {10, 20, 0, 1},
                                  {10, 20, 1, 2},
                                  {10, 20, 2, 1},
                                  {10, 20, 1, -1},
                                  {10, 20, -1, 1},
                                  {10, 20, -1, -1}}) {
    const auto line = Placed<clsLine>(place);
    EXPECT_EQ(line->GetPupDirection(10, 20, 5), ePD_LineHead) << place.dx << ' ' << place.dy;
    EXPECT_EQ(line->GetPupDirection(10 + place.dx, 20 + place.dy, 5), ePD_LineTail);
  }
}

TEST_F(Line, IsPickedUpAtDescriptor1) {
  const auto line = At(10, 20, 60, 40);
  line->Move(100, 0);
  line->SaveLastLegalPosition();
  line->UpdateDisplayWithTransx();
  EXPECT_EQ(line->GetPupDirection(10, 20, 3), ePD_LineHead);
  EXPECT_EQ(line->GetPupDirection(70, 60, 3), ePD_LineTail);
  EXPECT_EQ(line->GetPupDirection(110, 20, 3), ePD_None);
}

TEST_F(Line, PickUpsOverflowBeyond32Bits) {
  const auto line = At(-2, -2, 60, 40);
  EXPECT_EQ(ErrorOf([&] { line->GetPupDirection(kMost, 0, 3); }), 6);
  EXPECT_EQ(ErrorOf([&] { line->GetPupDirection(0, kMost, 3); }), 6);
  EXPECT_EQ(ErrorOf([&] { line->GetPupDirection(0, 0, kMost); }), 6);
  EXPECT_EQ(ErrorOf([&] { line->GetPupDirection(0, 0, kMost - 1); }), 0);
  const auto far = At(0, 0, 60, 40);
  EXPECT_EQ(ErrorOf([&] { far->GetPupDirection(kMost, 1, 3); }), 6);
  EXPECT_EQ(ErrorOf([&] { far->GetPupDirection(kLeast, 0, 3); }), 6);
  EXPECT_EQ(ErrorOf([&] { At(0, 0, 1, 1)->GetPupDirection(32768, 0, 3); }), 6);
  // The reach is computed for a vector of 1 and 1, too.
  EXPECT_EQ(ErrorOf([&] { At(0, 0, 1, 1)->GetPupDirection(0, 0, kMost); }), 6);
  EXPECT_EQ(At(0, 0, 1, 1)->GetPupDirection(0, 0, kMost - 1), ePD_LineTail);
}

}  // namespace
}  // namespace quenzel7
