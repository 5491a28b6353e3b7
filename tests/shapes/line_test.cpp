#include "shapes/line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/member.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "shapes/rectangle.h"
#include "tests/support/placed_shape.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::GetByName;
using automation::PutByName;
using automation::Variant;
using automation::VariantKind;
using test::ErrorOf;
using test::PlaceOf;

using Calls = std::vector<std::string>;

constexpr Long kMost = 2147483647;
constexpr Long kLeast = -kMost - 1;

std::shared_ptr<clsLine> At(Long xs, Long ys, Long dx, Long dy) {
  return test::Placed<clsLine>({xs, ys, dx, dy});
}

/// A collision map whose far corner is (w, h).
Variant Map(Long w, Long h) { return Array(VariantKind::Byte, Bounds{0, w}, Bounds{0, h}); }

/// Every direction that moves no end of a line: those of boxes, and numbers that are no direction.
constexpr Long kNoEnds[] = {ePD_None, ePD_UpRight,  ePD_Right, ePD_DownRight,
                            ePD_Down, ePD_LeftDown, ePD_Left,  ePD_UpLeft,
                            ePD_Up,   11,           -9,        kMost};

/// Settings whose every text is the key, or one given text.
class KeySettings final : public corvane1::Settings {
 public:
  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + " " + std::to_string(key) + " '" + fallback + "'");
    return text.empty() ? std::to_string(key) : text;
  }
  Calls asked;
  std::string text;
};

/// Colours whose red, green and blue are the panel's number.
class GreyColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override {
    asked.push_back(colorNumber);
    return static_cast<std::uint32_t>(colorNumber) * 0x010101;
  }
  std::vector<Long> asked;
};

class Line : public ::testing::Test {
 protected:
  void SetUp() override {
    Platform::Current() = Platform();
    colors_ = std::make_shared<GreyColors>();
    Platform::Current().colorService = colors_;
  }
  void TearDown() override { Platform::Current() = Platform(); }

  std::shared_ptr<GreyColors> colors_;
};

// --- Class ---

TEST_F(Line, StartsWithItsDefaults) {
  const clsLine line;
  EXPECT_EQ(line.ElementType(), 2);
  EXPECT_EQ(line.ID(), -1);
  EXPECT_EQ(line.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(PlaceOf(line, location), Descriptor{});
  EXPECT_EQ(line.ColorBack(), -1);
  EXPECT_EQ(line.ColorFore(), 0);
  EXPECT_EQ(line.ColorBackTouch(), -1);
  EXPECT_EQ(line.ColorForeTouch(), 0);
  EXPECT_EQ(line.PenStyle(), ePS_Solid);
  EXPECT_EQ(line.PenWidth(), 1);
  EXPECT_EQ(line.TouchOprndAddr(), -1);
  EXPECT_EQ(line.VisibleOpAddr(), -1);
  EXPECT_EQ(line.OperandBags(), nullptr);
  EXPECT_EQ(line.OrderIndex(), 0);
  EXPECT_FALSE(line.IsCanceled());
  EXPECT_FALSE(line.IsTouchable());
}

TEST_F(Line, ReadsItsColourAndThenItsWidthFromTheSettings) {
  const auto settings = std::make_shared<KeySettings>();
  Platform::Current().settings = settings;
  const clsLine line;
  EXPECT_EQ(settings->asked, (Calls{"6000 6022 '0'", "6000 6049 '1'"}));
  EXPECT_EQ(line.ColorFore(), 6022);
  EXPECT_EQ(line.ColorForeTouch(), 6022);
  EXPECT_EQ(line.PenWidth(), 6049);
  EXPECT_EQ(line.ColorBack(), -1);
  EXPECT_EQ(line.ColorBackTouch(), -1);
}

TEST_F(Line, CannotBeMadeFromASettingThatIsNoNumber) {
  const auto settings = std::make_shared<KeySettings>();
  settings->text = "thick";
  Platform::Current().settings = settings;
  EXPECT_EQ(ErrorOf([] { clsLine(); }), 13);
}

TEST_F(Line, HasTheDefaultInterfaceOfTheRectangle) {
  EXPECT_EQ(clsLine::ClassOf().Default().Slots(), clsRectangle::ClassOf().Default().Slots());
  EXPECT_EQ(clsLine::ClassOf().Default().Name(), "_clsLine");
  EXPECT_EQ(clsLine::ClassOf().name, "clsLine");
  EXPECT_EQ(&clsLine().Class(), &clsLine::ClassOf());
}

TEST_F(Line, HasNoBodyThroughEitherInterface) {
  clsLine line;
  for (const automation::Interface* face : clsLine::ClassOf().interfaces) {
    for (const char* name : {"HatchStyle", "FillStyle", "ColorHatch"}) {
      EXPECT_EQ(GetByName(line, *face, name), Variant(Long{0})) << face->Name() << '.' << name;
      PutByName(line, *face, name, Long{1});
      EXPECT_EQ(GetByName(line, *face, name), Variant(Long{0})) << face->Name() << '.' << name;
    }
  }
}

TEST_F(Line, MarksTheMembersOfABodyAsNotCarriedAndWhatSaysWhoItIs) {
  using automation::Mark;
  for (const automation::Member& member : clsLine::ClassOf().Default().Members()) {
    Mark expected = Mark::None;
    for (const char* name : {"HatchStyle", "FillStyle", "ColorHatch"}) {
      if (member.name == name) expected = Mark::NotCarried;
    }
    for (const char* name : {"ID", "GroupID", "OrderIndex"}) {
      if (member.name == name) expected = Mark::Identity;
    }
    EXPECT_EQ(member.mark, expected) << member.name;
  }
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

TEST_F(Line, ReadsTheStubsOfWhatItDoesNotCarryAndIgnoresWrites) {
  clsLine line;
  const automation::Interface& contract = ItfHmiElement::InterfaceOf();
  for (const char* name : {"EnabledOpAddr", "HighlightOpAddr", "KeypadSuccessOpAddr", "Alignment", "Flat3D",
                           "hBmp", "hBmpCRC", "TransparencyLevel"}) {
    PutByName(line, contract, name, Long{7});
    EXPECT_EQ(automation::To<Long>(GetByName(line, contract, name)), 0) << name;
  }
  line.FontNumber(7);
  EXPECT_EQ(line.FontNumber(), 1);
  line.TabIndex(7);
  EXPECT_EQ(line.TabIndex(), 255);
  line.Txt("text");
  EXPECT_EQ(line.Txt(), "");
}

TEST_F(Line, OperationsForOtherClassesHaveNoEffect) {
  const auto line = At(1, 2, -3, 4);
  const gdi::Surface surface(8, 8);
  const gdi::Recorder recorder;
  Variant table = Array(VariantKind::Long, Bounds{0, 3});
  line->InvertColors();
  line->Rotate();
  line->SetImageSystem(1);
  line->SetNewFontNumberByLookUpTBL(table);
  line->GetSizeFromBoundingRect();
  line->DrawNonVarsInGroup(surface.Dc(), true);
  line->DrawVarsInGroup(surface.Dc(), true);
  EXPECT_TRUE(recorder.Calls().empty());
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(PlaceOf(*line, location), (Descriptor{1, 2, -3, 4}));
  }
}

TEST_F(Line, AReplicaIsALineWithTheSameValuesInAllDescriptors) {
  const auto line = At(10, 20, -30, 0);
  line->ID(4);
  line->GroupID(5);
  line->ColorBack(6);
  line->ColorFore(7);
  line->ColorBackTouch(8);
  line->ColorForeTouch(9);
  line->PenStyle(ePS_Dot);
  line->PenWidth(10);
  line->OrderIndex(11);
  line->IsCanceled(true);
  line->ColOpPropBag(std::make_shared<automation::Collection>());
  line->Stretch(1, 1, ePD_LineHead);
  line->UpdateDisplayWithTransx();
  const auto copy = std::dynamic_pointer_cast<clsLine>(line->Replica());
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(copy, line);
  for (const automation::Member& member : clsLine::ClassOf().Default().Members()) {
    if (!member.get) continue;
    EXPECT_EQ(member.get(*copy), member.get(*line)) << member.name;
  }
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(PlaceOf(*copy, location), (Descriptor{10, 20, -30, 0})) << location;
  }
  EXPECT_EQ(copy->OperandBags(), line->OperandBags());
  EXPECT_FALSE(copy->IsCanceled());
}

// --- Positions ---

TEST_F(Line, KeepsASignedVector) {
  const auto line = At(10, 20, -30, 0);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(PlaceOf(*line, location), (Descriptor{10, 20, -30, 0})) << location;
  }
  EXPECT_EQ(line->Xs(), 10);
  EXPECT_EQ(line->Ys(), 20);
  EXPECT_EQ(line->Dx(), -30);
  EXPECT_EQ(line->Dy(), 0);
  Descriptor d;
  line->GetOptimalDimensions(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{10, 20, -30, 0}));
}

TEST_F(Line, MovesFromItsPlaceAtRestEachTime) {
  const auto line = At(10, 20, -30, 4);
  line->Move(3, 0);
  line->Move(3, -4);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{13, 16, -30, 4}));
  EXPECT_EQ(PlaceOf(*line, 1), (Descriptor{10, 20, -30, 4}));
}

TEST_F(Line, StretchOfTheHeadLeavesTheTailWhereItIs) {
  const auto line = At(10, 20, 30, 40);
  line->Stretch(100, 100, ePD_LineHead);
  line->Stretch(3, -4, ePD_LineHead);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{13, 16, 27, 44}));
  line->Stretch(-15, 45, ePD_LineHead);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{-5, 65, 45, -5}));
  for (const Long location : {1, 2, 4}) {
    EXPECT_EQ(PlaceOf(*line, location), (Descriptor{10, 20, 30, 40})) << location;
  }
}

TEST_F(Line, StretchOfTheTailLeavesTheHeadWhereItIs) {
  const auto line = At(10, 20, 30, 40);
  line->Stretch(100, 100, ePD_LineTail);
  line->Stretch(3, -4, ePD_LineTail);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, 33, 36}));
  line->Stretch(-35, -41, ePD_LineTail);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, -5, -1}));
  for (const Long location : {1, 2, 4}) {
    EXPECT_EQ(PlaceOf(*line, location), (Descriptor{10, 20, 30, 40})) << location;
  }
}

TEST_F(Line, StretchInAnyOtherDirectionLeavesDescriptor3EqualToDescriptor1) {
  for (const Long direction : kNoEnds) {
    const auto line = At(10, 20, 30, 40);
    line->Move(7, 8);
    line->SaveLastLegalPosition();
    line->Stretch(5, 0, direction);
    EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, 30, 40})) << direction;
    EXPECT_EQ(PlaceOf(*line, 2), (Descriptor{17, 28, 30, 40})) << direction;
  }
}

TEST_F(Line, AVectorOfSize1DoesNotFallBackToTheLastLegalPosition) {
  const auto line = At(10, 20, 30, 40);
  line->Move(7, 8);
  line->SaveLastLegalPosition();
  line->Stretch(-29, -39, ePD_LineTail);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, 1, 1}));
  line->Stretch(29, 0, ePD_LineHead);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{39, 20, 1, 40}));
  line->Stretch(-30, -40, ePD_LineTail);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, 0, 0}));
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
    const auto line = test::Placed<clsLine>(c.rest);
    line->Stretch(0, 0, ePD_None);
    EXPECT_EQ(ErrorOf([&] { line->Stretch(c.dx, c.dy, c.direction); }), 6);
    EXPECT_EQ(PlaceOf(*line, 3), c.half);
    EXPECT_EQ(PlaceOf(*line, 1), c.rest);
  }
}

TEST_F(Line, StretchThatOverflowsAtOnceHasCopiedDescriptor1) {
  const auto line = At(kMost, 2, 3, 4);
  line->Move(-5, 0);
  EXPECT_EQ(ErrorOf([&] { line->Stretch(1, 0, ePD_LineHead); }), 6);
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{kMost, 2, 3, 4}));
}

TEST_F(Line, UpdateBoundingRectangleStretchesItsEndsAndGivesEmpty) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_EQ(line->UpdateBoundingRectangle(3, 4, ePD_LineHead), Variant());
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{13, 24, 27, 36}));
  EXPECT_EQ(line->UpdateBoundingRectangle(3, 4, ePD_LineTail), Variant());
  EXPECT_EQ(PlaceOf(*line, 3), (Descriptor{10, 20, 33, 44}));
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
  EXPECT_EQ(PlaceOf(*line, 1), (Descriptor{10, 10, 90, 20}));
  EXPECT_EQ(PlaceOf(*line, 4), (Descriptor{10, 10, 90, 20}));
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
  EXPECT_EQ(PlaceOf(*line, 3), proposed);
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
    const auto line = test::Placed<clsLine>(place);
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
    const auto line = test::Placed<clsLine>(place);
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
}

// --- Hits by a point ---

bool IsHit(const Descriptor& place, Long penWidth, Long x, Long y) {
  const auto line = test::Placed<clsLine>(place);
  line->PenWidth(penWidth);
  return line->HitTestByPoint(x, y);
}

TEST_F(Line, IsHitCloserThanHalfItsWidthAndOneAndAHalfPixels) {
  // (22, 24) and (28, 16) lie 5 pixels beside the middle of the first line; (32, 32) lies the root of 8
  // beside that of the second, (31, 31) the root of 2, and (30, 30) on it.
  const Descriptor first{5, 5, 40, 30};
  const Descriptor second{10, 50, 40, -40};
  struct Case {
    Descriptor line;
    Long x, y, missedWidth, hitWidth;
  };
  const Case cases[] = {{first, 22, 24, 7, 8},   {first, 28, 16, 7, 8},   {second, 32, 32, 2, 3},
                        {second, 28, 28, 2, 3},  {second, 31, 31, -1, 0}, {second, 29, 29, -1, 0},
                        {second, 30, 30, -3, -2}};
  for (const Case& c : cases) {
    EXPECT_FALSE(IsHit(c.line, c.missedWidth, c.x, c.y)) << c.x << ' ' << c.y;
    EXPECT_TRUE(IsHit(c.line, c.hitWidth, c.x, c.y)) << c.x << ' ' << c.y;
  }
}

TEST_F(Line, PastItsEndsADiagonalIsNotHitHoweverThick) {
  const Descriptor place{10, 10, 30, 30};
  EXPECT_TRUE(IsHit(place, 50, 10, 10));
  EXPECT_TRUE(IsHit(place, 50, 40, 40));
  EXPECT_FALSE(IsHit(place, 50, 9, 9));
  EXPECT_FALSE(IsHit(place, 50, 41, 41));
  // Beside an end within the width, but out of the box.
  EXPECT_FALSE(IsHit(place, 50, 9, 11));
  EXPECT_TRUE(IsHit(place, 50, 10, 12));
}

TEST_F(Line, AStraightLineIsHitByHalfItsWidthAboveOrOnItsLeftOnly) {
  EXPECT_TRUE(IsHit({10, 20, 30, 0}, 8, 25, 16));
  EXPECT_FALSE(IsHit({10, 20, 30, 0}, 8, 25, 15));
  EXPECT_FALSE(IsHit({10, 20, 30, 0}, 8, 25, 21));
  EXPECT_TRUE(IsHit({10, 20, 0, 30}, 8, 6, 35));
  EXPECT_FALSE(IsHit({10, 20, 0, 30}, 8, 5, 35));
  EXPECT_FALSE(IsHit({10, 20, 0, 30}, 8, 11, 35));
}

TEST_F(Line, IsHitNearTheBoxAtRestAndNearTheLineThatIsDisplayed) {
  const auto line = At(10, 10, 20, 20);
  line->Move(0, 300);
  line->SaveLastLegalPosition();
  line->Move(100, 0);
  line->UpdateDisplayWithTransx();
  EXPECT_FALSE(line->HitTestByPoint(20, 20)) << "the displayed line is far";
  EXPECT_FALSE(line->HitTestByPoint(120, 20)) << "the box at rest is far";
  line->Move(5, 5);
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByPoint(10, 10)) << "on the displayed line, beyond its end";
  line->Stretch(0, -20, ePD_LineTail);
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByPoint(25, 10));
  EXPECT_FALSE(line->HitTestByPoint(25, 25));
}

TEST_F(Line, WithoutLengthAHitIsADivisionBy0UnlessTheBoxIsMissed) {
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 0, 0}, 4, 10, 20); }), 11);
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 0, 0}, 4, 8, 20); }), 11);
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 7, 20));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 11, 20));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 10, 19));
  EXPECT_FALSE(IsHit({10, 20, 0, 0}, 4, 10, 21));
}

TEST_F(Line, TheLengthThatCountsIsTheDisplayedOne) {
  const auto line = At(10, 20, 30, 30);
  line->Stretch(-30, -30, ePD_LineTail);
  line->UpdateDisplayWithTransx();
  EXPECT_EQ(ErrorOf([&] { line->HitTestByPoint(25, 35); }), 11);
  EXPECT_FALSE(line->HitTestByPoint(25, 51));
  const auto grown = At(10, 20, 0, 0);
  grown->Stretch(30, 30, ePD_LineTail);
  grown->UpdateDisplayWithTransx();
  EXPECT_TRUE(grown->HitTestByPoint(10, 20));
}

TEST_F(Line, HitsOverflowBeyond16Bits) {
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 30, 30}, 1, 32768, 30); }), 6);
  EXPECT_EQ(ErrorOf([] { IsHit({10, 20, 30, 30}, 1, 20, -32769); }), 6);
  EXPECT_FALSE(IsHit({10, 20, 30, 30}, 1, 32767, -32768));
}

/// Whether a point is on a line, reckoned otherwise: the box pixel by pixel, the nearest pixel from a
/// quotient of whole numbers that is rounded to single precision, and the distance compared by its square.
bool IsOnLine(const Descriptor& line, Long penWidth, Long x, Long y) {
  const auto [xs, ys, dx, dy] = line;
  const bool inColumns = (x - xs) * (x - xs - dx) <= 0;
  const bool inRows = (y - ys) * (y - ys - dy) <= 0;
  const Long half = penWidth / 2;
  const bool above = dy == 0 && dx > 0 && inColumns && y <= ys && ys - y <= half;
  const bool onLeft = dx == 0 && dy >= 0 && inRows && x <= xs && xs - x <= half;
  if (!(inColumns && inRows) && !above && !onLeft) return false;

  const Long x0 = x - xs;
  const Long y0 = y - ys;
  const long double quotient = static_cast<long double>(x0 * dx + y0 * dy) / (dx * dx + dy * dy);
  const auto along = static_cast<float>(quotient);
  const auto pixel = [along](Long size) {
    return static_cast<Long>(std::nearbyint(static_cast<float>(along * static_cast<float>(size))));
  };
  const Long offX = x0 - pixel(dx);
  const Long offY = y0 - pixel(dy);
  const Long twiceTheReach = penWidth + 3;
  return twiceTheReach > 0 && 4 * (offX * offX + offY * offY) < twiceTheReach * twiceTheReach;
}

TEST_F(Line, HitsAgreeWithEveryPointAroundRandomLines) {
  std::mt19937 random(1);
  const auto between = [&random](Long low, Long high) {
    return low + static_cast<Long>(random() % static_cast<std::uint32_t>(high - low + 1));
  };
  Long hits = 0;
  for (int round = 0; round < 600; ++round) {
    Descriptor place{between(-40, 40), between(-40, 40), between(-40, 40), between(-40, 40)};
    // Straight lines are rare by chance.
    if (round % 6 == 0) place.dx = 0;
    if (round % 6 == 1) place.dy = 0;
    if (place.dx == 0 && place.dy == 0) continue;
    const auto line = test::Placed<clsLine>(place);
    const Long penWidth = between(-4, 14);
    line->PenWidth(penWidth);
    const Long left = std::min(place.xs, place.xs + place.dx),
               right = std::max(place.xs, place.xs + place.dx);
    const Long top = std::min(place.ys, place.ys + place.dy),
               bottom = std::max(place.ys, place.ys + place.dy);
    for (Long y = top - 9; y <= bottom + 9; ++y) {
      for (Long x = left - 9; x <= right + 9; ++x) {
        const bool expected = IsOnLine(place, penWidth, x, y);
        ASSERT_EQ(line->HitTestByPoint(x, y), expected)
            << x << ',' << y << " and " << place.xs << ',' << place.ys << " by " << place.dx << ','
            << place.dy << " width " << penWidth;
        hits += expected ? 1 : 0;
      }
    }
  }
  EXPECT_GT(hits, 50000);
}

// --- Hits by a rectangle ---

TEST_F(Line, IsHitByARectangleWithOneOfItsEnds) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_TRUE(line->HitTestByRect(5, 15, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(5, 15, 4, 5));
  EXPECT_FALSE(line->HitTestByRect(5, 15, 5, 4));
  EXPECT_TRUE(line->HitTestByRect(40, 60, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(41, 60, 5, 5));
  EXPECT_FALSE(line->HitTestByRect(40, 61, 5, 5));
}

TEST_F(Line, IsHitByASmallRectangleThroughWhichItPasses) {
  const auto line = At(10, 20, 30, 40);
  EXPECT_TRUE(line->HitTestByRect(24, 38, 3, 4));
  EXPECT_FALSE(line->HitTestByRect(28, 38, 3, 3));
  EXPECT_FALSE(line->HitTestByRect(-30, 10, 30, 90));
}

TEST_F(Line, IsHitByARectangleAtDescriptor1) {
  const auto line = At(10, 20, 30, 40);
  line->Move(100, 0);
  line->SaveLastLegalPosition();
  line->UpdateDisplayWithTransx();
  EXPECT_TRUE(line->HitTestByRect(5, 15, 10, 10));
  EXPECT_FALSE(line->HitTestByRect(105, 15, 10, 10));
}

TEST_F(Line, IsHitByRectanglesBeyond16BitsToo) {
  EXPECT_TRUE(At(40000, 50000, 30, 40)->HitTestByRect(39990, 49990, 100, 100));
  EXPECT_FALSE(At(40000, 50000, 30, 40)->HitTestByRect(0, 0, 100, 100));
  EXPECT_EQ(ErrorOf([] { At(kMost, 0, 1, 1)->HitTestByRect(0, 0, 1, 1); }), 6);
}

// --- Tool tip and report ---

TEST_F(Line, ToolTipTellsTheSignedSizeThatIsDisplayed) {
  const auto line = At(10, -20, -30, 0);
  EXPECT_EQ(line->GetToolTipText(), "Pos: 10, -20 ; Size: -30, 0");
  line->Stretch(1, -2, ePD_LineHead);
  EXPECT_EQ(line->GetToolTipText(), "Pos: 10, -20 ; Size: -30, 0");
  line->UpdateDisplayWithTransx();
  EXPECT_EQ(line->GetToolTipText(), "Pos: 11, -22 ; Size: -31, 2");
}

TEST_F(Line, ReportHasTheSignedSizeAtRest) {
  const auto line = At(10, 20, -30, -40);
  line->PenWidth(3);
  line->Stretch(1, 2, ePD_LineHead);
  line->UpdateDisplayWithTransx();
  test::ReportDouble report;
  line->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines(), (Calls{"Coordinates (Left,Top,Width,Height): (10,20,-30,-40)", "Pen Width: 3"}));
}

TEST_F(Line, ReportTellsTheHideOperand) {
  const auto line = At(10, 20, -30, 40);
  line->VisibleOpAddr(17);
  const auto report = std::make_shared<test::ReportDouble>();
  automation::InvokeByName(*line, "ItfHmiElement_CreateStaticElementPrinterReport", {report});
  EXPECT_EQ(report->Lines(), (Calls{"Coordinates (Left,Top,Width,Height): (10,20,-30,40)", "Pen Width: 1",
                                    "Hide Operand: MB 17"}));
}

// --- Drawing ---

/// The calls of a painting action, which has to leave context and objects as they were.
template <class Paint>
Calls CallsOf(Paint paint) {
  const gdi::Surface surface(60, 60);
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  paint(surface.Dc());
  const Calls calls = recorder.Take();
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN));
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), gdi::GetStockObject(gdi::WHITE_BRUSH));
  return calls;
}

Calls CallsOfDraw(clsLine& line, bool frame = false) {
  return CallsOf([&](Long dc) { line.Draw(dc, frame); });
}

const Calls kCallsOfDraw = {
    "GetCurrentObject(dc:1, 1)",
    "GetObjectA(stock:7, 16)",
    "ExtCreatePen(0x011206, 3, {0, 0x050505, 0}, 0) -> pen:1",
    "SelectObject(dc:1, pen:1)",
    "BeginPath(dc:1)",
    "MoveToEx(dc:1, 10, 20)",
    "LineTo(dc:1, 5, 40)",
    "EndPath(dc:1)",
    "StrokePath(dc:1)",
    "SelectObject(dc:1, stock:7)",
    "DeleteObject(pen:1)",
};

class DrawnLine : public Line {
 protected:
  void SetUp() override {
    Line::SetUp();
    line_ = At(10, 20, -5, 20);
    line_->ColorFore(5);
    line_->ColorBack(6);
    line_->PenWidth(3);
  }

  std::shared_ptr<clsLine> line_;
};

TEST_F(DrawnLine, IsAStrokedPathInThisOrderOfCalls) {
  static_assert(0x11206 == 70150);
  EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
}

TEST_F(DrawnLine, HasNoFrameAndThePrinterGetsTheSameCalls) {
  EXPECT_EQ(CallsOfDraw(*line_, true), kCallsOfDraw);
  EXPECT_EQ(CallsOf([this](Long dc) { line_->DrawToPrinter(dc, "alias"); }), kCallsOfDraw);
}

TEST_F(DrawnLine, IsSolidWhateverItsPenStyle) {
  for (const enPenStyle style : {ePS_Dash, ePS_Dot, ePS_Dash_Dot, ePS_Dash_Dot_Dot}) {
    line_->PenStyle(style);
    EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
  }
  line_->PenWidth(1);
  EXPECT_EQ(CallsOfDraw(*line_)[2], "ExtCreatePen(0x011206, 1, {0, 0x050505, 0}, 0) -> pen:1");
}

TEST_F(DrawnLine, IsPaintedAtDescriptor4) {
  line_->Stretch(1, 2, ePD_LineHead);
  EXPECT_EQ(CallsOfDraw(*line_), kCallsOfDraw);
  line_->UpdateDisplayWithTransx();
  line_->Stretch(0, 0, ePD_None);
  EXPECT_EQ(CallsOfDraw(*line_)[5], "MoveToEx(dc:1, 11, 22)");
  EXPECT_EQ(CallsOfDraw(*line_)[6], "LineTo(dc:1, 5, 40)");
  line_->Stretch(1, 2, ePD_LineTail);
  line_->UpdateDisplayWithTransx();
  EXPECT_EQ(CallsOfDraw(*line_)[5], "MoveToEx(dc:1, 10, 20)");
  EXPECT_EQ(CallsOfDraw(*line_)[6], "LineTo(dc:1, 6, 42)");
}

TEST_F(DrawnLine, AsksForItsColourAlone) {
  colors_->asked.clear();
  CallsOfDraw(*line_);
  EXPECT_EQ(colors_->asked, std::vector<Long>{5});
}

TEST_F(DrawnLine, AFailingColourServiceLeavesNothingBehind) {
  class Failing final : public corvane1::ColorService {
    std::uint32_t GetColor(Long) override {
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no colours");
    }
  };
  Platform::Current().colorService = std::make_shared<Failing>();
  const auto line = At(10, 20, -5, 20);
  const Calls calls = CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { line->Draw(dc, false); }), 5); });
  EXPECT_EQ(calls, Calls(kCallsOfDraw.begin(), kCallsOfDraw.begin() + 2));
}

TEST_F(DrawnLine, ATailBeyond32BitsOverflowsAndLeavesNothingBehind) {
  for (const auto& line : {At(kMost, 0, 1, 5), At(0, kMost, 5, 1)}) {
    CallsOf([&](Long dc) { EXPECT_EQ(ErrorOf([&] { line->Draw(dc, false); }), 6); });
  }
}

TEST_F(DrawnLine, OnAWrongContextPaintsNothing) {
  const std::size_t before = gdi::LiveObjects();
  line_->Draw(0, false);
  line_->Draw(12345, false);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

/// What a line paints in its colour on a surface of 12 by 9 pixels: '#', and '.' where the ground is left.
Calls PictureOf(clsLine& line) {
  constexpr std::uint32_t kGround = 0x123456;
  gdi::Surface surface(12, 9);
  surface.Clear(kGround);
  gdi::SetBkColor(surface.Dc(), 0x00FF00);
  line.ColorFore(0x77);
  line.ColorBack(0x55);
  line.Draw(surface.Dc(), false);
  EXPECT_EQ(gdi::GetBkColor(surface.Dc()), 0x00FF00u);
  Calls rows;
  for (std::int32_t y = 0; y < surface.Height(); ++y) {
    rows.emplace_back();
    for (std::int32_t x = 0; x < surface.Width(); ++x) {
      const std::uint32_t color = surface.At(x, y);
      rows.back() += color == kGround ? '.' : color == 0x777777 ? '#' : '?';
    }
  }
  return rows;
}

TEST_F(Line, PaintsItsLengthWithFlatEndsInItsWidth) {
  const auto line = At(2, 4, 8, 0);
  EXPECT_EQ(PictureOf(*line), (Calls{"............",  //
                                     "............",  //
                                     "............",  //
                                     "............",  //
                                     "..########..",  //
                                     "............",  //
                                     "............",  //
                                     "............",  //
                                     "............"}));
  line->PenWidth(3);
  const Calls thick = {"............",  //
                       "............",  //
                       "............",  //
                       "..########..",  //
                       "..########..",  //
                       "..########..",  //
                       "............",  //
                       "............",  //
                       "............"};
  EXPECT_EQ(PictureOf(*line), thick);
  // A gap would show the ground.
  line->PenStyle(ePS_Dash);
  EXPECT_EQ(PictureOf(*line), thick);
}

TEST_F(Line, PaintsDownAndAcross) {
  const auto down = At(5, 1, 0, 6);
  EXPECT_EQ(PictureOf(*down), (Calls{"............",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     ".....#......",  //
                                     "............",  //
                                     "............"}));
  const auto across = At(2, 2, 8, 6);
  EXPECT_EQ(PictureOf(*across), (Calls{"............",  //
                                       "............",  //
                                       "..#.........",  //
                                       "...##.......",  //
                                       ".....#......",  //
                                       "......#.....",  //
                                       ".......##...",  //
                                       ".........#..",  //
                                       "............"}));
}

}  // namespace
}  // namespace quenzel7
