#include "shapes/rectangle.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/member.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "platform/platform.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::ErrorOf;

constexpr Long kMost = 2147483647;

std::shared_ptr<clsRectangle> At(Long xs, Long ys, Long dx, Long dy) {
  auto rectangle = std::make_shared<clsRectangle>();
  rectangle->Xs(xs);
  rectangle->Ys(ys);
  rectangle->Dx(dx);
  rectangle->Dy(dy);
  return rectangle;
}

Descriptor At(const clsRectangle& rectangle, Long location) {
  Descriptor d;
  rectangle.GetBoundingRect(d.xs, d.ys, d.dx, d.dy, location);
  return d;
}

/// Settings that give what they are told and note what they are asked.
class TracedSettings final : public corvane1::Settings {
 public:
  std::string GetSetting(Long section, Long key, const std::string& fallback) override {
    asked.push_back(std::to_string(section) + "/" + std::to_string(key) + "/" + fallback);
    return answer.empty() ? fallback : answer + std::to_string(key % 10);
  }
  std::vector<std::string> asked;
  std::string answer;
};

/// Colours that are told apart at a glance: number n is 0x0a0000 + n.
class TracedColors final : public corvane1::ColorService {
 public:
  std::uint32_t GetColor(Long colorNumber) override {
    return 0x0a0000 + static_cast<std::uint32_t>(colorNumber);
  }
};

class Rectangle : public ::testing::Test {
 protected:
  void SetUp() override { Platform::Current() = Platform(); }
  void TearDown() override { Platform::Current() = Platform(); }
};

TEST_F(Rectangle, StartsWithItsDefaults) {
  const clsRectangle r;
  EXPECT_EQ(r.ID(), -1);
  EXPECT_EQ(r.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(At(r, location), Descriptor{});
  EXPECT_EQ(r.ColorBack(), -1);
  EXPECT_EQ(r.ColorFore(), 0);
  EXPECT_EQ(r.ColorBackTouch(), -1);
  EXPECT_EQ(r.ColorForeTouch(), 0);
  EXPECT_EQ(r.ColorHatch(), 96);
  EXPECT_EQ(r.PenStyle(), ePS_Solid);
  EXPECT_EQ(r.PenWidth(), 1);
  EXPECT_EQ(r.HatchStyle(), eHS_None);
  EXPECT_EQ(r.FillStyle(), eFS_Hollow);
  EXPECT_EQ(r.TouchOprndAddr(), -1);
  EXPECT_EQ(r.VisibleOpAddr(), -1);
  EXPECT_EQ(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OrderIndex(), 0);
  EXPECT_FALSE(r.IsCanceled());
  EXPECT_FALSE(r.IsTouchable());
  EXPECT_EQ(r.ElementType(), 1);
}

TEST_F(Rectangle, ReadsTwoSettingsAndTheTouchColourFollowsTheBorders) {
  const auto settings = std::make_shared<TracedSettings>();
  settings->answer = "4";
  Platform::Current().settings = settings;
  const clsRectangle r;
  EXPECT_EQ(settings->asked, (std::vector<std::string>{"6000/6051/0", "6000/6050/1"}));
  EXPECT_EQ(r.ColorFore(), 41);
  EXPECT_EQ(r.ColorForeTouch(), 41);
  EXPECT_EQ(r.PenWidth(), 40);
}

TEST_F(Rectangle, CannotBeMadeFromASettingThatIsNoNumber) {
  const auto settings = std::make_shared<TracedSettings>();
  settings->answer = "thick";
  Platform::Current().settings = settings;
  EXPECT_EQ(ErrorOf([] { clsRectangle(); }), 13);
}

TEST_F(Rectangle, ReadsTheStubsOfWhatItDoesNotCarryAndIgnoresWrites) {
  clsRectangle r;
  for (const char* name : {"EnabledOpAddr", "HighlightOpAddr", "KeypadSuccessOpAddr", "Alignment", "Flat3D",
                           "hBmp", "hBmpCRC", "TransparencyLevel", "FontNumber", "TabIndex", "Txt"}) {
    const automation::Interface& contract = ItfHmiElement::InterfaceOf();
    const Variant before = automation::GetByName(r, contract, name);
    automation::PutByName(r, contract, name, "7");
    EXPECT_EQ(automation::GetByName(r, contract, name), before) << name;
  }
  EXPECT_EQ(r.FontNumber(), 1);
  EXPECT_EQ(r.TabIndex(), 255);
  EXPECT_EQ(r.Txt(), "");
  EXPECT_EQ(r.Alignment(), 0);
}

TEST_F(Rectangle, OperationsForOtherClassesHaveNoEffect) {
  const auto r = At(1, 2, 3, 4);
  const gdi::Surface surface(8, 8);
  gdi::Recorder recorder;
  Variant table = Array(VariantKind::Long, Bounds{0, 3});
  r->InvertColors();
  r->Rotate();
  r->SetImageSystem(1);
  r->SetNewFontNumberByLookUpTBL(table);
  r->GetSizeFromBoundingRect();
  r->DrawNonVarsInGroup(surface.Dc(), true);
  r->DrawVarsInGroup(surface.Dc(), true);
  EXPECT_TRUE(recorder.Calls().empty());
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(At(*r, location), (Descriptor{1, 2, 3, 4}));
}

TEST_F(Rectangle, PublishesItsDefaultInterfaceInSlotOrder) {
  const std::vector<std::string> expected = {
      "putref ColOpPropBag(Collection)",
      "get VisibleOpAddr() As Long",
      "put VisibleOpAddr(Long)",
      "get TouchOprndAddr() As Long",
      "put TouchOprndAddr(Long)",
      "get HatchStyle() As enHatchStyle",
      "put HatchStyle(enHatchStyle)",
      "get PenWidth() As Long",
      "put PenWidth(Long)",
      "get PenStyle() As enPenStyle",
      "put PenStyle(enPenStyle)",
      "get FillStyle() As enFillStyle",
      "put FillStyle(enFillStyle)",
      "get ColorHatch() As Long",
      "put ColorHatch(Long)",
      "get ColorFore() As Long",
      "put ColorFore(Long)",
      "get ColorBack() As Long",
      "put ColorBack(Long)",
      "get GroupID() As Long",
      "put GroupID(Long)",
      "get ID() As Long",
      "put ID(Long)",
      "get Xs() As Long",
      "put Xs(Long)",
      "get Ys() As Long",
      "put Ys(Long)",
      "get Dx() As Long",
      "put Dx(Long)",
      "get Dy() As Long",
      "put Dy(Long)",
      "call SaveToDB() As Boolean",
      "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
      "get ColorForeTouch() As Long",
      "put ColorForeTouch(Long)",
      "get ColorBackTouch() As Long",
      "put ColorBackTouch(Long)",
      "get OrderIndex() As Long",
      "put OrderIndex(Long)",
  };
  EXPECT_EQ(clsRectangle::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(clsRectangle::ClassOf().name, "clsRectangle");
  ASSERT_EQ(clsRectangle::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(clsRectangle::ClassOf().interfaces[1], &ItfHmiElement::InterfaceOf());
}

TEST_F(Rectangle, EveryPropertyHasAPlaceOfItsOwnByName) {
  const auto r = std::make_shared<clsRectangle>();
  Long value = 100;
  for (const automation::Member& member : clsRectangle::ClassOf().Default().Members()) {
    // An operand that a touch drives is looked for in a project, and none is open here.
    if (!member.get || member.name == "TouchOprndAddr") continue;
    automation::PutByName(*r, member.name, value++);
  }
  value = 100;
  for (const automation::Member& member : clsRectangle::ClassOf().Default().Members()) {
    if (!member.get || member.name == "TouchOprndAddr") continue;
    EXPECT_EQ(automation::GetByName(*r, member.name), Variant(value++)) << member.name;
  }
  EXPECT_EQ(automation::GetByName(*r, "TouchOprndAddr"), Variant(Long{-1}));
}

TEST_F(Rectangle, MarksWhatTheProjectDoesNotKeepAndWhatSaysWhoItIs) {
  for (const automation::Member& member : clsRectangle::ClassOf().Default().Members()) {
    const bool identity = member.name == "ID" || member.name == "GroupID" || member.name == "OrderIndex";
    const auto expected = identity                     ? automation::Mark::Identity
                          : member.name == "FillStyle" ? automation::Mark::NotStored
                                                       : automation::Mark::None;
    EXPECT_EQ(member.mark, expected) << member.name;
  }
}

// --- Positions and the drag sequence ---

TEST_F(Rectangle, PositionWritersSetAllFourDescriptors) {
  const auto r = At(1, 2, 3, 4);
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(At(*r, location), (Descriptor{1, 2, 3, 4}));
  r->Move(5, 5);
  r->Xs(9);
  for (Long location : {1, 2, 4}) EXPECT_EQ(At(*r, location), (Descriptor{9, 2, 3, 4})) << location;
  EXPECT_EQ(At(*r, 3), (Descriptor{9, 7, 3, 4}));
}

TEST_F(Rectangle, PositionReadersGiveDescriptor1) {
  const auto r = At(1, 2, 3, 4);
  r->Move(5, 6);
  r->UpdateDisplayWithTransx();
  r->SaveLastLegalPosition();
  EXPECT_EQ(r->Xs(), 1);
  EXPECT_EQ(r->Ys(), 2);
  EXPECT_EQ(r->Dx(), 3);
  EXPECT_EQ(r->Dy(), 4);
  Descriptor d;
  r->GetOptimalDimensions(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{1, 2, 3, 4}));
}

/// A rectangle whose four descriptors differ in place and size: (1, 2, 30, 40), (1, 2, 31, 40), (1, 2, 32,
/// 43) and (6, 2, 25, 44).
std::shared_ptr<clsRectangle> WithFourPositions() {
  auto r = At(1, 2, 30, 40);
  r->Stretch(1, 0, ePD_Right);
  r->SaveLastLegalPosition();
  r->Stretch(5, 4, ePD_LeftDown);
  r->UpdateDisplayWithTransx();
  r->Stretch(2, 3, ePD_DownRight);
  return r;
}

TEST_F(Rectangle, GetBoundingRectGivesDescriptor1WhenNoneIsNamedAndRaisesForOthers) {
  const auto r = WithFourPositions();
  Descriptor d;
  r->GetBoundingRect(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{1, 2, 30, 40}));
  r->GetOptimalDimensions(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{1, 2, 30, 40}));
  EXPECT_EQ(At(*r, 1), (Descriptor{1, 2, 30, 40}));
  EXPECT_EQ(At(*r, 2), (Descriptor{1, 2, 31, 40}));
  EXPECT_EQ(At(*r, 3), (Descriptor{1, 2, 32, 43}));
  EXPECT_EQ(At(*r, 4), (Descriptor{6, 2, 25, 44}));
  EXPECT_EQ(ErrorOf([&] { At(*r, 5); }), 9);
  EXPECT_EQ(ErrorOf([&] { At(*r, 0); }), 9);
}

TEST_F(Rectangle, GetBoundingRectByNameWritesItsArgumentsBack) {
  const auto r = WithFourPositions();
  const automation::Interface& contract = ItfHmiElement::InterfaceOf();
  const auto call = [&](std::vector<Variant> arguments) {
    automation::CallByName(*r, contract, "getboundingrect", automation::CallKind::Method, arguments);
    return arguments;
  };
  const Variant none(Long{0});
  EXPECT_EQ(call({none, none, none, none}), (std::vector<Variant>{Long{1}, Long{2}, Long{30}, Long{40}}));
  EXPECT_EQ(call({none, none, none, none, Long{3}}),
            (std::vector<Variant>{Long{1}, Long{2}, Long{32}, Long{43}, Long{3}}));
  EXPECT_EQ(ErrorOf([&] { call({none, none, none, none, Long{5}}); }), 9);
  EXPECT_EQ(ErrorOf([&] { call({none, none, none, none, Long{0}}); }), 9);
}

TEST_F(Rectangle, EachPlaceIsTakenFromItsOwnDescriptor) {
  const auto r = WithFourPositions();
  EXPECT_EQ(r->GetToolTipText(), "Pos: 6, 2 ; Size: 25, 44");
  test::ReportDouble report;
  r->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines()[0], "Coordinates (Left,Top,Width,Height): (1,2,30,40)");
  EXPECT_TRUE(r->HitTestByPoint(30, 41));
  EXPECT_FALSE(r->HitTestByPoint(31, 41));
  EXPECT_FALSE(r->HitTestByPoint(30, 42));
  EXPECT_TRUE(r->HitTestByRect(30, 41, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(31, 41, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(30, 42, 5, 5));
  EXPECT_EQ(r->GetPupDirection(31, 42, 0), ePD_DownRight);
  EXPECT_EQ(r->GetPupDirection(32, 43, 0), ePD_None);
  const gdi::Surface surface(60, 60);
  gdi::Recorder recorder;
  r->Draw(surface.Dc(), false);
  EXPECT_EQ(recorder.Calls()[6], "Rectangle(dc:1, 6, 2, 31, 46)");
}

TEST_F(Rectangle, MoveStartsFromThePositionAtRestEachTime) {
  const auto r = At(10, 20, 5, 6);
  r->Move(3, 0);
  r->Move(3, -4);
  EXPECT_EQ(At(*r, 3), (Descriptor{13, 16, 5, 6}));
  for (Long location : {1, 2, 4}) EXPECT_EQ(At(*r, location), (Descriptor{10, 20, 5, 6})) << location;
}

TEST_F(Rectangle, MoveTakesTheSizeAtRest) {
  const auto r = At(10, 20, 5, 6);
  r->Stretch(7, 7, ePD_DownRight);
  r->Move(1, 1);
  EXPECT_EQ(At(*r, 3), (Descriptor{11, 21, 5, 6}));
}

TEST_F(Rectangle, MoveBeyond32BitsOverflows) {
  const auto r = At(1, 1, 5, 5);
  EXPECT_EQ(ErrorOf([&] { r->Move(kMost, 0); }), 6);
  EXPECT_EQ(ErrorOf([&] { r->Move(0, kMost); }), 6);
  r->Xs(-2);
  EXPECT_EQ(ErrorOf([&] { r->Move(-kMost, 0); }), 6);
}

TEST_F(Rectangle, EachCopyOfTheDragSequenceCopiesItsDescriptors) {
  const auto r = At(0, 0, 10, 10);
  const Descriptor rest{0, 0, 10, 10}, moved{5, 6, 10, 10}, legal{1, 1, 10, 10};

  r->Move(1, 1);
  r->SaveLastLegalPosition();
  EXPECT_EQ(At(*r, 2), legal);
  EXPECT_EQ(At(*r, 4), rest);

  r->Move(5, 6);
  r->UpdateDisplayWithTransx();
  EXPECT_EQ(At(*r, 4), moved);
  EXPECT_EQ(At(*r, 2), legal);

  r->UpdateDisplayWithLastLegal();
  EXPECT_EQ(At(*r, 4), legal);
  EXPECT_EQ(At(*r, 3), moved);
  EXPECT_EQ(At(*r, 1), rest);

  r->UpdateInitialDescriptor();
  EXPECT_EQ(At(*r, 1), legal);
  EXPECT_EQ(At(*r, 3), moved);

  r->Move(30, 30);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  r->SaveInitialPosition();
  EXPECT_EQ(At(*r, 2), legal);
  EXPECT_EQ(At(*r, 4), legal);
  EXPECT_EQ(At(*r, 3), (Descriptor{31, 31, 10, 10}));
}

TEST_F(Rectangle, ADragStaysAtItsLastLegalPlace) {
  const auto r = At(10, 10, 20, 20);
  Variant map = Array(VariantKind::Byte, Bounds{0, 100}, Bounds{0, 100});
  r->SaveInitialPosition();
  for (const Long step : {20, 40, 70, 71, 90}) {
    r->Move(step, 0);
    if (r->GetTransformState(map) == eCS_Legall) {
      r->SaveLastLegalPosition();
      r->UpdateDisplayWithTransx();
    } else {
      r->UpdateDisplayWithLastLegal();
    }
  }
  r->UpdateInitialDescriptor();
  EXPECT_EQ(At(*r, 1), (Descriptor{80, 10, 20, 20}));
  EXPECT_EQ(At(*r, 4), (Descriptor{80, 10, 20, 20}));
}

TEST_F(Rectangle, StretchSetsDescriptor3FromDescriptor1) {
  const auto r = At(10, 50, 20, 30);
  r->Stretch(3, 4, ePD_DownRight);
  r->Stretch(5, 6, ePD_DownRight);
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 25, 36}));
  EXPECT_EQ(At(*r, 1), (Descriptor{10, 50, 20, 30}));
  r->Stretch(5, 6, ePD_None);
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 20, 30}));
}

TEST_F(Rectangle, StretchPastTheOppositeEdgeFlips) {
  const auto r = At(10, 50, 20, 30);
  r->Stretch(-30, 0, ePD_Right);
  EXPECT_EQ(At(*r, 3), (Descriptor{0, 50, 10, 30}));
  r->Stretch(25, 0, ePD_Left);
  EXPECT_EQ(At(*r, 3), (Descriptor{30, 50, 5, 30}));
}

TEST_F(Rectangle, StretchToOnePixelFallsBackToTheLastLegalPosition) {
  const auto r = At(10, 50, 20, 30);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->Stretch(-19, 0, ePD_Right);
  EXPECT_EQ(At(*r, 3), (Descriptor{110, 150, 20, 30}));
  r->Stretch(3, 0, ePD_Right);
  r->Stretch(0, -29, ePD_Down);
  EXPECT_EQ(At(*r, 3), (Descriptor{110, 150, 20, 30}));
  r->Stretch(-18, 0, ePD_Right);
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 2, 30}));
}

TEST_F(Rectangle, StretchFallsBackAlsoForASizeOfOneThatDidNotChange) {
  const auto narrow = At(10, 50, 1, 30);
  narrow->Move(100, 100);
  narrow->SaveLastLegalPosition();
  narrow->Stretch(0, 5, ePD_Down);
  EXPECT_EQ(At(*narrow, 3), (Descriptor{110, 150, 1, 30}));
  const auto low = At(10, 50, 20, 1);
  low->Move(100, 100);
  low->SaveLastLegalPosition();
  low->Stretch(5, 0, ePD_Right);
  EXPECT_EQ(At(*low, 3), (Descriptor{110, 150, 20, 1}));
}

TEST_F(Rectangle, StretchOfAOnePixelWideElementInNoDirectionStaysAtRest) {
  const auto r = At(10, 50, 1, 30);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->Stretch(5, 5, ePD_None);
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 1, 30}));
}

TEST_F(Rectangle, StretchToSizeZeroPassesAndIsAnOverlap) {
  const auto r = At(10, 50, 20, 30);
  Variant map = Array(VariantKind::Byte, Bounds{0, 320}, Bounds{0, 240});
  r->Stretch(-20, 0, ePD_Right);
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 0, 30}));
  EXPECT_EQ(r->GetTransformState(map), eCS_Overlap);
}

TEST_F(Rectangle, UpdateBoundingRectangleStretchesAndGivesEmpty) {
  const auto r = At(10, 50, 20, 30);
  EXPECT_EQ(r->UpdateBoundingRectangle(3, 4, ePD_DownRight), Variant());
  EXPECT_EQ(At(*r, 3), (Descriptor{10, 50, 23, 34}));
}

TEST_F(Rectangle, TransformStateJudgesDescriptor3AndLeavesTheMapAlone) {
  const auto r = At(10, 10, 20, 20);
  Variant map = Array(VariantKind::Byte, Bounds{0, 100}, Bounds{0, 100});
  const Variant before = map;
  EXPECT_EQ(r->GetTransformState(map), eCS_Legall);
  r->Move(71, 0);
  EXPECT_EQ(r->GetTransformState(map), eCS_OutOfRAnge);
  EXPECT_EQ(map, before);
  const auto flat = At(10, 10, 0, 5);
  EXPECT_EQ(flat->GetTransformState(map), eCS_Overlap);
  const auto flatOutside = At(-1, 10, 0, 5);
  EXPECT_EQ(flatOutside->GetTransformState(map), eCS_OutOfRAnge);
}

// --- Hits, pick-ups, tool tip, report ---

TEST_F(Rectangle, HitTestByPointCoversTheBodyWithoutTheFarEdges) {
  const auto r = At(10, 20, 5, 6);
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
  const auto r = At(10, 20, 5, 6);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  EXPECT_TRUE(r->HitTestByPoint(10, 20));
  EXPECT_TRUE(r->HitTestByRect(0, 0, 10, 20));
  EXPECT_EQ(r->GetPupDirection(9, 23, 2), ePD_Left);
}

TEST_F(Rectangle, HitTestByRectMeetsTheBodyWithoutTheFarEdges) {
  const auto r = At(10, 20, 5, 6);
  EXPECT_TRUE(r->HitTestByRect(14, 25, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(15, 20, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(10, 26, 5, 5));
  EXPECT_TRUE(r->HitTestByRect(5, 15, 5, 5));
  EXPECT_FALSE(r->HitTestByRect(5, 15, 4, 5));
  EXPECT_FALSE(r->HitTestByRect(5, 15, 5, 4));
}

TEST_F(Rectangle, HitTestByRectOfAnElementOfSizeZeroTakesItsSizeForMinus1) {
  // As spans: 0 to -1 across, 0 to 10 down.
  const auto flat = At(0, 0, 0, 11);
  EXPECT_TRUE(flat->HitTestByRect(-1, 5, 0, 2));
  EXPECT_FALSE(flat->HitTestByRect(1, 5, 5, 2));
  const auto low = At(0, 0, 11, 0);
  EXPECT_TRUE(low->HitTestByRect(5, -1, 2, 0));
  EXPECT_FALSE(low->HitTestByRect(5, 1, 2, 5));
}

TEST_F(Rectangle, HitTestByRectTriesTheCornersOfTheGivenRectangleFirst) {
  EXPECT_TRUE(At(20000, 0, 20001, 11)->HitTestByRect(30000, 5, 10, 10));
}

TEST_F(Rectangle, ADragWorksByNameAlike) {
  const auto r = At(10, 10, 20, 20);
  const automation::Interface& element = ItfHmiElement::InterfaceOf();
  const auto call = [&](const char* name, std::initializer_list<Variant> arguments = {}) {
    return automation::InvokeByName(*r, element, name, arguments);
  };
  std::vector<Variant> map{Array(VariantKind::Byte, Bounds{0, 100}, Bounds{0, 100})};
  const std::vector<Variant> before = map;
  call("SaveInitialPosition");
  for (const Long step : {20, 70, 71}) {
    call("move", {step, Long{0}});
    const Variant status =
        automation::CallByName(*r, element, "GetTransformState", automation::CallKind::Method, map);
    if (status == Variant(Long{eCS_Legall})) {
      call("SaveLastLegalPosition");
      call("UpdateDisplayWithTransx");
    } else {
      EXPECT_EQ(status, Variant(Long{eCS_OutOfRAnge}));
      call("UpdateDisplayWithLastLegal");
    }
  }
  call("UpdateInitialDescriptor");
  EXPECT_EQ(map, before);
  EXPECT_EQ(At(*r, 1), (Descriptor{80, 10, 20, 20}));
  EXPECT_EQ(At(*r, 4), (Descriptor{80, 10, 20, 20}));
  call("Stretch", {Long{-30}, Long{0}, Long{ePD_Right}});
  EXPECT_EQ(At(*r, 3), (Descriptor{70, 10, 10, 20}));
}

TEST_F(Rectangle, HitTestByRectOverflowsBeyond16Bits) {
  const auto r = At(10, 20, 5, 6);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByRect(40000, 0, 1, 1); }), 6);
  const auto far = At(40000, 20, 5, 6);
  EXPECT_EQ(ErrorOf([&] { far->HitTestByRect(0, 0, 1, 1); }), 6);
}

TEST_F(Rectangle, HitTestByPointOverflowsWhenTheFarEdgeDoes) {
  const auto r = At(kMost, 0, 1, 5);
  EXPECT_EQ(ErrorOf([&] { r->HitTestByPoint(kMost, 0); }), 6);
  const auto low = At(0, kMost, 5, 1);
  EXPECT_EQ(ErrorOf([&] { low->HitTestByPoint(0, kMost); }), 6);
}

TEST_F(Rectangle, GetPupDirectionFindsTheHandlesOfDescriptor1) {
  const auto r = At(10, 20, 20, 40);
  EXPECT_EQ(r->GetPupDirection(20, 40, 3), ePD_None);
  EXPECT_EQ(r->GetPupDirection(9, 40, 3), ePD_Left);
  EXPECT_EQ(r->GetPupDirection(30, 40, 3), ePD_Right);
  EXPECT_EQ(r->GetPupDirection(20, 20, 3), ePD_Up);
}

TEST_F(Rectangle, ToolTipTellsDescriptor4) {
  const auto r = At(1, -2, 30, 40);
  EXPECT_EQ(r->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  r->Move(5, 5);
  EXPECT_EQ(r->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  r->UpdateDisplayWithTransx();
  EXPECT_EQ(r->GetToolTipText(), "Pos: 6, 3 ; Size: 30, 40");
}

TEST_F(Rectangle, ReportHasItsLinesFromDescriptor1) {
  const auto r = At(1, 2, 30, 40);
  r->PenWidth(3);
  r->Move(5, 5);
  r->UpdateDisplayWithTransx();
  test::ReportDouble report;
  r->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines(),
            (std::vector<std::string>{"Coordinates (Left,Top,Width,Height): (1,2,30,40)", "Pen Width: 3"}));
}

TEST_F(Rectangle, ReportTellsTheHideOperand) {
  const auto r = At(1, 2, 30, 40);
  r->VisibleOpAddr(17);
  const auto report = std::make_shared<test::ReportDouble>();
  automation::InvokeByName(*r, "ItfHmiElement_CreateStaticElementPrinterReport", {report});
  EXPECT_EQ(report->Lines(), (std::vector<std::string>{"Coordinates (Left,Top,Width,Height): (1,2,30,40)",
                                                       "Pen Width: 1", "Hide Operand: MB 17"}));
}

// --- Drawing ---

std::vector<std::string> CallsOfDraw(clsRectangle& r, bool frame = false) {
  const gdi::Surface surface(60, 60);
  const std::size_t before = gdi::LiveObjects();
  gdi::Recorder recorder;
  r.Draw(surface.Dc(), frame);
  const std::vector<std::string> calls = recorder.Calls();
  EXPECT_EQ(gdi::LiveObjects(), before);
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN));
  EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_BRUSH), gdi::GetStockObject(gdi::WHITE_BRUSH));
  return calls;
}

class DrawnRectangle : public Rectangle {
 protected:
  void SetUp() override {
    Rectangle::SetUp();
    Platform::Current().colorService = std::make_shared<TracedColors>();
    r_ = At(1, 2, 30, 40);
    r_->ColorFore(1);
    r_->ColorBack(2);
    r_->ColorHatch(3);
  }

  std::shared_ptr<clsRectangle> r_;
};

TEST_F(DrawnRectangle, HollowInThisOrderOfCalls) {
  EXPECT_EQ(CallsOfDraw(*r_), (std::vector<std::string>{
                                  "GetCurrentObject(dc:1, 1)",
                                  "GetObjectA(stock:7, 16)",
                                  "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1",
                                  "SelectObject(dc:1, pen:1)",
                                  "CreateBrushIndirect({1, 0x000000, 0}) -> brush:1",
                                  "SelectObject(dc:1, brush:1)",
                                  "Rectangle(dc:1, 1, 2, 31, 42)",
                                  "SelectObject(dc:1, stock:7)",
                                  "DeleteObject(pen:1)",
                                  "SelectObject(dc:1, stock:0)",
                                  "DeleteObject(brush:1)",
                              }));
}

TEST_F(DrawnRectangle, SolidWinsOverTheHatch) {
  r_->FillStyle(eFS_Solid);
  r_->HatchStyle(eHS_Cross);
  const std::vector<std::string> calls = CallsOfDraw(*r_);
  ASSERT_EQ(calls.size(), 11u);
  EXPECT_EQ(calls[4], "CreateBrushIndirect({0, 0x0a0002, 0}) -> brush:1");
}

TEST_F(DrawnRectangle, AnyFillStyleButZeroIsSolid) {
  r_->FillStyle(static_cast<enFillStyle>(-1));
  EXPECT_EQ(CallsOfDraw(*r_)[4], "CreateBrushIndirect({0, 0x0a0002, 0}) -> brush:1");
}

TEST_F(DrawnRectangle, HatchedSetsTheBackgroundColourAndLeavesItSet) {
  r_->HatchStyle(eHS_Downward_Diagonal);
  const std::vector<std::string> calls = CallsOfDraw(*r_);
  ASSERT_EQ(calls.size(), 12u);
  EXPECT_EQ(calls[4], "SetBkColor(dc:1, 0x0a0002)");
  EXPECT_EQ(calls[5], "CreateHatchBrush(3, 0x0a0003) -> brush:1");
  EXPECT_EQ(calls[6], "SelectObject(dc:1, brush:1)");

  const gdi::Surface surface(60, 60);
  r_->Draw(surface.Dc(), false);
  EXPECT_EQ(gdi::GetBkColor(surface.Dc()), 0x0a0002u);
}

TEST_F(DrawnRectangle, HatchStyleZeroIsAHatch) {
  r_->HatchStyle(eHS_Horizontal);
  EXPECT_EQ(CallsOfDraw(*r_)[5], "CreateHatchBrush(0, 0x0a0003) -> brush:1");
}

TEST_F(DrawnRectangle, OnlyStyle99IsNoHatchAndAStyleThatThereIsNotKeepsTheContextsBrush) {
  for (const Long style : {98, 100, -1}) {
    r_->HatchStyle(static_cast<enHatchStyle>(style));
    const std::vector<std::string> calls = CallsOfDraw(*r_);
    EXPECT_EQ(calls[4], "SetBkColor(dc:1, 0x0a0002)") << style;
    EXPECT_EQ(calls[5].find("CreateHatchBrush(" + std::to_string(style) + ", 0x0a0003)"), 0u) << calls[5];
    EXPECT_EQ(calls[7], "Rectangle(dc:1, 1, 2, 31, 42)") << style;
  }
  // No brush could be made, so the body has the one that the context had: white.
  gdi::Surface surface(60, 60);
  surface.Clear(0x00FF00);
  r_->Draw(surface.Dc(), false);
  EXPECT_EQ(surface.At(10, 10), 0xFFFFFFu);
}

TEST_F(DrawnRectangle, OnlyAOnePixelBorderHasALineStyle) {
  r_->PenStyle(ePS_Dash);
  EXPECT_EQ(CallsOfDraw(*r_)[2], "CreatePenIndirect({1, 1, 0x0a0001}) -> pen:1");
  r_->PenStyle(ePS_Dash_Dot_Dot);
  EXPECT_EQ(CallsOfDraw(*r_)[2], "CreatePenIndirect({4, 1, 0x0a0001}) -> pen:1");
  r_->PenWidth(2);
  EXPECT_EQ(CallsOfDraw(*r_)[2], "CreatePenIndirect({6, 2, 0x0a0001}) -> pen:1");
  r_->PenWidth(0);
  EXPECT_EQ(CallsOfDraw(*r_)[2], "CreatePenIndirect({6, 0, 0x0a0001}) -> pen:1");
}

TEST_F(DrawnRectangle, AtDescriptor4) {
  r_->Move(5, 6);
  EXPECT_EQ(CallsOfDraw(*r_)[6], "Rectangle(dc:1, 1, 2, 31, 42)");
  r_->UpdateDisplayWithTransx();
  EXPECT_EQ(CallsOfDraw(*r_)[6], "Rectangle(dc:1, 6, 8, 36, 48)");
}

TEST_F(DrawnRectangle, HasNoFrameOfItsOwnAndThePrinterGetsTheSameCalls) {
  const std::vector<std::string> plain = CallsOfDraw(*r_);
  EXPECT_EQ(CallsOfDraw(*r_, true), plain);
  const gdi::Surface surface(60, 60);
  gdi::Recorder recorder;
  r_->DrawToPrinter(surface.Dc(), "alias");
  EXPECT_EQ(recorder.Calls(), plain);
}

TEST_F(DrawnRectangle, AFailingColourServiceLeavesNothingBehind) {
  class Failing final : public corvane1::ColorService {
   public:
    explicit Failing(Long good) : good_(good) {}
    std::uint32_t GetColor(Long) override {
      if (good_-- > 0) return 0;
      throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no colours");
    }
    Long good_;
  };
  for (Long good = 0; good < 3; ++good) {
    Platform::Current().colorService = std::make_shared<Failing>(good);
    const auto r = At(1, 2, 30, 40);
    r->HatchStyle(eHS_Cross);
    const gdi::Surface surface(60, 60);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(ErrorOf([&] { r->Draw(surface.Dc(), false); }), 5) << good;
    EXPECT_EQ(gdi::LiveObjects(), before) << good;
    EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN)) << good;
  }
}

TEST_F(DrawnRectangle, OverflowsWhenItsFarCornerDoes) {
  const gdi::Surface surface(60, 60);
  const std::size_t before = gdi::LiveObjects();
  for (const auto& r : {At(kMost, 0, 1, 5), At(0, kMost, 5, 1)}) {
    EXPECT_EQ(ErrorOf([&] { r->Draw(surface.Dc(), false); }), 6);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TEST_F(DrawnRectangle, HoldsTheColourServiceAsLongAsItLives) {
  auto colors = std::make_shared<TracedColors>();
  const std::weak_ptr<TracedColors> held = colors;
  Platform::Current().colorService = colors;
  auto r = std::make_shared<clsRectangle>();
  Platform::Current().colorService = nullptr;
  colors.reset();
  EXPECT_FALSE(held.expired());
  r.reset();
  EXPECT_TRUE(held.expired());
}

TEST_F(DrawnRectangle, AsksForTheColoursThatItPaintsWithAndNoOthers) {
  class Asked final : public corvane1::ColorService {
   public:
    std::uint32_t GetColor(Long colorNumber) override {
      numbers.push_back(colorNumber);
      return 0;
    }
    std::vector<Long> numbers;
  };
  const auto colors = std::make_shared<Asked>();
  Platform::Current().colorService = colors;
  const auto r = At(1, 2, 3, 4);
  r->ColorFore(1);
  r->ColorBack(2);
  r->ColorHatch(3);
  CallsOfDraw(*r);
  EXPECT_EQ(std::exchange(colors->numbers, {}), (std::vector<Long>{1}));
  r->HatchStyle(eHS_Cross);
  CallsOfDraw(*r);
  EXPECT_EQ(std::exchange(colors->numbers, {}), (std::vector<Long>{1, 2, 3}));
  r->FillStyle(eFS_Solid);
  CallsOfDraw(*r);
  EXPECT_EQ(std::exchange(colors->numbers, {}), (std::vector<Long>{1, 2}));
}

TEST_F(DrawnRectangle, KeepsTheColourServiceOfItsCreation) {
  Platform::Current().colorService = std::make_shared<corvane1::PaletteColorService>();
  EXPECT_EQ(CallsOfDraw(*r_)[2], "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1");
}

TEST_F(Rectangle, PaintsBorderAndBodyWithoutTheFarEdges) {
  const auto r = At(2, 3, 5, 4);
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
  const auto r = At(2, 2, 10, 10);
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

TEST_F(Rectangle, DrawOnAWrongContextDoesNothing) {
  const auto r = At(2, 2, 10, 10);
  const std::size_t before = gdi::LiveObjects();
  r->Draw(0, false);
  r->Draw(12345, false);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

/// A rectangle with its handles in reach.
class ProbedShape final : public FilledShape {
 public:
  ProbedShape() : FilledShape(Stroke{0, 0, 1}, 0) {}
  const automation::ClassInfo& Class() const override { return clsRectangle::ClassOf(); }
  using FilledShape::DrawPickUps;

 private:
  void PaintFigure(Long, Long, Long, Long, Long) const override {}
};

TEST_F(Rectangle, HandlesArePaintedAtDescriptor4) {
  ProbedShape shape;
  shape.Xs(10);
  shape.Ys(20);
  shape.Dx(40);
  shape.Dy(30);
  shape.Move(1, 2);
  shape.UpdateDisplayWithTransx();
  const gdi::Surface surface(60, 60);
  gdi::Recorder recorder;
  // Offset (100, 200), scale (2, 3): the displayed (11, 22) comes to (122, 266), the far corner (51, 52) to
  // (202, 356).
  shape.DrawPickUps(surface.Dc(), 100, 200, 2, 3, 4, 500, 52);
  std::vector<std::string> squares;
  for (const std::string& call : recorder.Calls()) {
    if (call.starts_with("Rectangle")) squares.push_back(call);
  }
  EXPECT_EQ(squares, (std::vector<std::string>{
                         "Rectangle(dc:1, 122, 266, 118, 262)", "Rectangle(dc:1, 202, 266, 206, 262)",
                         "Rectangle(dc:1, 160, 266, 164, 262)", "Rectangle(dc:1, 122, 309, 118, 313)",
                         "Rectangle(dc:1, 202, 309, 206, 313)"}));
}

}  // namespace
}  // namespace quenzel7
