#include "shapes/filled_shape.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::CallsOfDraw;
using test::DescriptorOf;
using test::ErrorOf;
using test::Placed;
using test::WithFourPositions;

constexpr Long kMost = 2147483647;

template <class Shape>
using FilledShapes = test::ShapeTest<Shape>;
TYPED_TEST_SUITE(FilledShapes, test::FilledShapeTypes, test::ClassNameOfShape);

TYPED_TEST(FilledShapes, EveryPropertyHasAPlaceOfItsOwnByName) {
  const auto r = std::make_shared<TypeParam>();
  Long value = 100;
  for (const automation::Member& member : TypeParam::ClassOf().Default().Members()) {
    // An operand that a touch drives is looked for in a project, and none is open here.
    if (!member.get || member.name == "TouchOprndAddr") continue;
    automation::PutByName(*r, member.name, value++);
  }
  value = 100;
  for (const automation::Member& member : TypeParam::ClassOf().Default().Members()) {
    if (!member.get || member.name == "TouchOprndAddr") continue;
    EXPECT_EQ(automation::GetByName(*r, member.name), Variant(value++)) << member.name;
  }
  EXPECT_EQ(automation::GetByName(*r, "TouchOprndAddr"), Variant(Long{-1}));
}

TYPED_TEST(FilledShapes, GetBoundingRectGivesDescriptor1WhenNoneIsNamedAndRaisesForOthers) {
  const auto r = WithFourPositions<TypeParam>();
  Descriptor d;
  r->GetBoundingRect(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{1, 2, 30, 40}));
  r->GetOptimalDimensions(d.xs, d.ys, d.dx, d.dy);
  EXPECT_EQ(d, (Descriptor{1, 2, 30, 40}));
  EXPECT_EQ(DescriptorOf(*r, 1), (Descriptor{1, 2, 30, 40}));
  EXPECT_EQ(DescriptorOf(*r, 2), (Descriptor{1, 2, 31, 40}));
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{1, 2, 32, 43}));
  EXPECT_EQ(DescriptorOf(*r, 4), (Descriptor{6, 2, 25, 44}));
  EXPECT_EQ(ErrorOf([&] { DescriptorOf(*r, 5); }), 9);
  EXPECT_EQ(ErrorOf([&] { DescriptorOf(*r, 0); }), 9);
}

TYPED_TEST(FilledShapes, GetBoundingRectByNameWritesItsArgumentsBack) {
  const auto r = WithFourPositions<TypeParam>();
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

TYPED_TEST(FilledShapes, MoveTakesTheSizeAtRest) {
  const auto r = Placed<TypeParam>(10, 20, 5, 6);
  r->Stretch(7, 7, ePD_DownRight);
  r->Move(1, 1);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{11, 21, 5, 6}));
}

TYPED_TEST(FilledShapes, ADragStaysAtItsLastLegalPlace) {
  const auto r = Placed<TypeParam>(10, 10, 20, 20);
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
  EXPECT_EQ(DescriptorOf(*r, 1), (Descriptor{80, 10, 20, 20}));
  EXPECT_EQ(DescriptorOf(*r, 4), (Descriptor{80, 10, 20, 20}));
}

TYPED_TEST(FilledShapes, StretchSetsDescriptor3FromDescriptor1) {
  const auto r = Placed<TypeParam>(10, 50, 20, 30);
  r->Stretch(3, 4, ePD_DownRight);
  r->Stretch(5, 6, ePD_DownRight);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 25, 36}));
  EXPECT_EQ(DescriptorOf(*r, 1), (Descriptor{10, 50, 20, 30}));
  r->Stretch(5, 6, ePD_None);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 20, 30}));
}

TYPED_TEST(FilledShapes, StretchPastTheOppositeEdgeFlips) {
  const auto r = Placed<TypeParam>(10, 50, 20, 30);
  r->Stretch(-30, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{0, 50, 10, 30}));
  r->Stretch(25, 0, ePD_Left);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{30, 50, 5, 30}));
}

TYPED_TEST(FilledShapes, StretchToOnePixelFallsBackToTheLastLegalPosition) {
  const auto r = Placed<TypeParam>(10, 50, 20, 30);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->Stretch(-19, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{110, 150, 20, 30}));
  r->Stretch(3, 0, ePD_Right);
  r->Stretch(0, -29, ePD_Down);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{110, 150, 20, 30}));
  r->Stretch(-18, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 2, 30}));
}

TYPED_TEST(FilledShapes, StretchFallsBackAlsoForASizeOfOneThatDidNotChange) {
  const auto narrow = Placed<TypeParam>(10, 50, 1, 30);
  narrow->Move(100, 100);
  narrow->SaveLastLegalPosition();
  narrow->Stretch(0, 5, ePD_Down);
  EXPECT_EQ(DescriptorOf(*narrow, 3), (Descriptor{110, 150, 1, 30}));
  const auto low = Placed<TypeParam>(10, 50, 20, 1);
  low->Move(100, 100);
  low->SaveLastLegalPosition();
  low->Stretch(5, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*low, 3), (Descriptor{110, 150, 20, 1}));
}

TYPED_TEST(FilledShapes, StretchOfAOnePixelWideElementInNoDirectionStaysAtRest) {
  const auto r = Placed<TypeParam>(10, 50, 1, 30);
  r->Move(100, 100);
  r->SaveLastLegalPosition();
  r->Stretch(5, 5, ePD_None);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 1, 30}));
}

TYPED_TEST(FilledShapes, StretchToSizeZeroPassesAndIsAnOverlap) {
  const auto r = Placed<TypeParam>(10, 50, 20, 30);
  Variant map = Array(VariantKind::Byte, Bounds{0, 320}, Bounds{0, 240});
  r->Stretch(-20, 0, ePD_Right);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 0, 30}));
  EXPECT_EQ(r->GetTransformState(map), eCS_Overlap);
}

TYPED_TEST(FilledShapes, UpdateBoundingRectangleStretchesAndGivesEmpty) {
  const auto r = Placed<TypeParam>(10, 50, 20, 30);
  EXPECT_EQ(r->UpdateBoundingRectangle(3, 4, ePD_DownRight), Variant());
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{10, 50, 23, 34}));
}

TYPED_TEST(FilledShapes, TransformStateJudgesDescriptor3AndLeavesTheMapAlone) {
  const auto r = Placed<TypeParam>(10, 10, 20, 20);
  Variant map = Array(VariantKind::Byte, Bounds{0, 100}, Bounds{0, 100});
  const Variant before = map;
  EXPECT_EQ(r->GetTransformState(map), eCS_Legall);
  r->Move(71, 0);
  EXPECT_EQ(r->GetTransformState(map), eCS_OutOfRAnge);
  EXPECT_EQ(map, before);
  const auto flat = Placed<TypeParam>(10, 10, 0, 5);
  EXPECT_EQ(flat->GetTransformState(map), eCS_Overlap);
  const auto flatOutside = Placed<TypeParam>(-1, 10, 0, 5);
  EXPECT_EQ(flatOutside->GetTransformState(map), eCS_OutOfRAnge);
}

TYPED_TEST(FilledShapes, ADragWorksByNameAlike) {
  const auto r = Placed<TypeParam>(10, 10, 20, 20);
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
  EXPECT_EQ(DescriptorOf(*r, 1), (Descriptor{80, 10, 20, 20}));
  EXPECT_EQ(DescriptorOf(*r, 4), (Descriptor{80, 10, 20, 20}));
  call("Stretch", {Long{-30}, Long{0}, Long{ePD_Right}});
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{70, 10, 10, 20}));
}

TYPED_TEST(FilledShapes, GetPupDirectionFindsTheHandlesOfDescriptor1) {
  const auto r = Placed<TypeParam>(10, 20, 20, 40);
  EXPECT_EQ(r->GetPupDirection(20, 40, 3), ePD_None);
  EXPECT_EQ(r->GetPupDirection(9, 40, 3), ePD_Left);
  EXPECT_EQ(r->GetPupDirection(30, 40, 3), ePD_Right);
  EXPECT_EQ(r->GetPupDirection(20, 20, 3), ePD_Up);
}

TYPED_TEST(FilledShapes, TheCommonDefaultsAreThese) {
  const TypeParam r;
  EXPECT_EQ(r.ColorBack(), -1);
  EXPECT_EQ(r.ColorBackTouch(), -1);
  EXPECT_EQ(r.HatchStyle(), eHS_None);
  EXPECT_EQ(r.FillStyle(), eFS_Hollow);
}

TYPED_TEST(FilledShapes, EachPlaceIsTakenFromItsOwnDescriptor) {
  const auto r = WithFourPositions<TypeParam>();
  EXPECT_EQ(r->GetToolTipText(), "Pos: 6, 2 ; Size: 25, 44");
  test::ReportDouble report;
  r->CreateStaticElementPrinterReport(report);
  EXPECT_EQ(report.Lines()[0], "Coordinates (Left,Top,Width,Height): (1,2,30,40)");
  EXPECT_EQ(r->GetPupDirection(31, 42, 0), ePD_DownRight);
  EXPECT_EQ(r->GetPupDirection(32, 43, 0), ePD_None);
  EXPECT_NE(CallsOfDraw(*r)[6].find("(dc:1, 6, 2, 31, 46"), std::string::npos);
}

// --- Drawing ---

/// How a class paints the shape of DrawnShape, written out: at rest (1, 2, 30, 40) and moved by (5, 6).
struct Painted {
  const char* atRest;
  const char* moved;
  const char* solidBrush;
  Long bodyColor;
  Long hatchColor;
};
template <class Shape>
constexpr Painted kPainted{};
template <>
constexpr Painted kPainted<clsRectangle>{"Rectangle(dc:1, 1, 2, 31, 42)", "Rectangle(dc:1, 6, 8, 36, 48)",
                                         "CreateBrushIndirect({0, 0x0a0002, 0}) -> brush:1", 2, 3};
template <>
constexpr Painted kPainted<clsEllipse>{"Ellipse(dc:1, 1, 2, 31, 42)", "Ellipse(dc:1, 6, 8, 36, 48)",
                                       "CreateBrushIndirect({0, 0x0a0002, 0}) -> brush:1", 2, 3};
// Body and hatch in the colour of the border.
template <>
constexpr Painted kPainted<clsRoundRect>{"RoundRect(dc:1, 1, 2, 31, 42, 15, 20)",
                                         "RoundRect(dc:1, 6, 8, 36, 48, 15, 20)",
                                         "CreateBrushIndirect({0, 0x0a0001, 0}) -> brush:1", 1, 1};

template <class Shape>
std::string HatchBrush(Long style) {
  return "CreateHatchBrush(" + std::to_string(style) + ", 0x0a000" +
         std::to_string(kPainted<Shape>.hatchColor) + ")";
}

/// A shape with border 1, body 2 and hatch 3.
template <class Shape>
class DrawnShape : public test::ShapeTest<Shape> {
 protected:
  void SetUp() override {
    test::ShapeTest<Shape>::SetUp();
    Platform::Current().colorService = colors_;
    r_ = Placed<Shape>(1, 2, 30, 40);
    r_->ColorFore(1);
    r_->ColorBack(2);
    r_->ColorHatch(3);
  }

  const std::shared_ptr<test::TracedColors> colors_ = std::make_shared<test::TracedColors>();
  std::shared_ptr<Shape> r_;
};
TYPED_TEST_SUITE(DrawnShape, test::FilledShapeTypes, test::ClassNameOfShape);

TYPED_TEST(DrawnShape, HollowInThisOrderOfCalls) {
  EXPECT_EQ(CallsOfDraw(*this->r_), (std::vector<std::string>{
                                        "GetCurrentObject(dc:1, 1)",
                                        "GetObjectA(stock:7, 16)",
                                        "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1",
                                        "SelectObject(dc:1, pen:1)",
                                        "CreateBrushIndirect({1, 0x000000, 0}) -> brush:1",
                                        "SelectObject(dc:1, brush:1)",
                                        kPainted<TypeParam>.atRest,
                                        "SelectObject(dc:1, stock:7)",
                                        "DeleteObject(pen:1)",
                                        "SelectObject(dc:1, stock:0)",
                                        "DeleteObject(brush:1)",
                                    }));
}

TYPED_TEST(DrawnShape, SolidInThisOrderOfCallsAlsoWhereAHatchIsSet) {
  this->r_->FillStyle(eFS_Solid);
  const std::vector<std::string> solid = CallsOfDraw(*this->r_);
  EXPECT_EQ(solid, (std::vector<std::string>{
                       "GetCurrentObject(dc:1, 1)",
                       "GetObjectA(stock:7, 16)",
                       "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1",
                       "SelectObject(dc:1, pen:1)",
                       kPainted<TypeParam>.solidBrush,
                       "SelectObject(dc:1, brush:1)",
                       kPainted<TypeParam>.atRest,
                       "SelectObject(dc:1, stock:7)",
                       "DeleteObject(pen:1)",
                       "SelectObject(dc:1, stock:0)",
                       "DeleteObject(brush:1)",
                   }));
  this->r_->HatchStyle(eHS_Cross);
  EXPECT_EQ(CallsOfDraw(*this->r_), solid);
}

TYPED_TEST(DrawnShape, AnyFillStyleButZeroIsSolid) {
  for (const Long style : {-1, 2}) {
    this->r_->FillStyle(static_cast<enFillStyle>(style));
    EXPECT_EQ(CallsOfDraw(*this->r_)[4], kPainted<TypeParam>.solidBrush) << style;
  }
}

TYPED_TEST(DrawnShape, HatchedInThisOrderOfCalls) {
  this->r_->HatchStyle(eHS_Downward_Diagonal);
  EXPECT_EQ(CallsOfDraw(*this->r_), (std::vector<std::string>{
                                        "GetCurrentObject(dc:1, 1)",
                                        "GetObjectA(stock:7, 16)",
                                        "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1",
                                        "SelectObject(dc:1, pen:1)",
                                        "SetBkColor(dc:1, 0x0a0002)",
                                        HatchBrush<TypeParam>(3) + " -> brush:1",
                                        "SelectObject(dc:1, brush:1)",
                                        kPainted<TypeParam>.atRest,
                                        "SelectObject(dc:1, stock:7)",
                                        "DeleteObject(pen:1)",
                                        "SelectObject(dc:1, stock:0)",
                                        "DeleteObject(brush:1)",
                                    }));
}

TYPED_TEST(DrawnShape, AHatchLeavesTheBackgroundColourSet) {
  this->r_->HatchStyle(eHS_Downward_Diagonal);
  const gdi::Surface surface(60, 60);
  this->r_->Draw(surface.Dc(), false);
  EXPECT_EQ(gdi::GetBkColor(surface.Dc()), 0x0a0002u);
}

TYPED_TEST(DrawnShape, HatchStyleZeroIsAHatch) {
  this->r_->HatchStyle(eHS_Horizontal);
  EXPECT_EQ(CallsOfDraw(*this->r_)[5], HatchBrush<TypeParam>(0) + " -> brush:1");
}

TYPED_TEST(DrawnShape, OnlyStyle99IsNoHatchAndAStyleThatThereIsNotKeepsTheContextsBrush) {
  for (const Long style : {98, 100, -1}) {
    this->r_->HatchStyle(static_cast<enHatchStyle>(style));
    const std::vector<std::string> calls = CallsOfDraw(*this->r_);
    EXPECT_EQ(calls[4], "SetBkColor(dc:1, 0x0a0002)") << style;
    EXPECT_EQ(calls[5].find(HatchBrush<TypeParam>(style)), 0u) << calls[5];
    EXPECT_EQ(calls[7], kPainted<TypeParam>.atRest) << style;
  }
  // No brush could be made, so the body has the one that the context had: white.
  gdi::Surface surface(60, 60);
  surface.Clear(0x00FF00);
  this->r_->Draw(surface.Dc(), false);
  EXPECT_EQ(surface.At(10, 10), 0xFFFFFFu);
}

TYPED_TEST(DrawnShape, OnlyAOnePixelBorderHasALineStyle) {
  this->r_->PenStyle(ePS_Dash);
  EXPECT_EQ(CallsOfDraw(*this->r_)[2], "CreatePenIndirect({1, 1, 0x0a0001}) -> pen:1");
  this->r_->PenStyle(ePS_Dash_Dot_Dot);
  EXPECT_EQ(CallsOfDraw(*this->r_)[2], "CreatePenIndirect({4, 1, 0x0a0001}) -> pen:1");
  this->r_->PenWidth(2);
  EXPECT_EQ(CallsOfDraw(*this->r_)[2], "CreatePenIndirect({6, 2, 0x0a0001}) -> pen:1");
  this->r_->PenWidth(0);
  EXPECT_EQ(CallsOfDraw(*this->r_)[2], "CreatePenIndirect({6, 0, 0x0a0001}) -> pen:1");
}

TYPED_TEST(DrawnShape, AtDescriptor4) {
  this->r_->Move(5, 6);
  EXPECT_EQ(CallsOfDraw(*this->r_)[6], kPainted<TypeParam>.atRest);
  this->r_->UpdateDisplayWithTransx();
  EXPECT_EQ(CallsOfDraw(*this->r_)[6], kPainted<TypeParam>.moved);
}

TYPED_TEST(DrawnShape, HasNoFrameOfItsOwnAndThePrinterGetsTheSameCalls) {
  const std::vector<std::string> plain = CallsOfDraw(*this->r_);
  EXPECT_EQ(CallsOfDraw(*this->r_, true), plain);
  const gdi::Surface surface(60, 60);
  gdi::Recorder recorder;
  this->r_->DrawToPrinter(surface.Dc(), "alias");
  EXPECT_EQ(recorder.Calls(), plain);
}

TYPED_TEST(DrawnShape, AFailingColourServiceLeavesNothingBehind) {
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
    const auto r = Placed<TypeParam>(1, 2, 30, 40);
    r->HatchStyle(eHS_Cross);
    const gdi::Surface surface(60, 60);
    const std::size_t before = gdi::LiveObjects();
    EXPECT_EQ(ErrorOf([&] { r->Draw(surface.Dc(), false); }), 5) << good;
    EXPECT_EQ(gdi::LiveObjects(), before) << good;
    EXPECT_EQ(gdi::GetCurrentObject(surface.Dc(), gdi::OBJ_PEN), gdi::GetStockObject(gdi::BLACK_PEN)) << good;
  }
}

TYPED_TEST(DrawnShape, OverflowsWhenItsFarCornerDoes) {
  const gdi::Surface surface(60, 60);
  const std::size_t before = gdi::LiveObjects();
  for (const auto& r : {Placed<TypeParam>(kMost, 0, 1, 5), Placed<TypeParam>(0, kMost, 5, 1)}) {
    EXPECT_EQ(ErrorOf([&] { r->Draw(surface.Dc(), false); }), 6);
  }
  EXPECT_EQ(gdi::LiveObjects(), before);
}

TYPED_TEST(DrawnShape, HoldsTheColourServiceAsLongAsItLives) {
  auto colors = std::make_shared<test::TracedColors>();
  const std::weak_ptr<test::TracedColors> held = colors;
  Platform::Current().colorService = colors;
  auto r = std::make_shared<TypeParam>();
  Platform::Current().colorService = nullptr;
  colors.reset();
  EXPECT_FALSE(held.expired());
  r.reset();
  EXPECT_TRUE(held.expired());
}

TYPED_TEST(DrawnShape, AsksForTheColoursThatItPaintsWithAndNoOthers) {
  using Colors = std::vector<Long>;
  CallsOfDraw(*this->r_);
  EXPECT_EQ(std::exchange(this->colors_->asked, {}), (Colors{1}));
  this->r_->HatchStyle(eHS_Cross);
  CallsOfDraw(*this->r_);
  EXPECT_EQ(std::exchange(this->colors_->asked, {}), (Colors{1, 2, kPainted<TypeParam>.hatchColor}));
  this->r_->FillStyle(eFS_Solid);
  CallsOfDraw(*this->r_);
  EXPECT_EQ(std::exchange(this->colors_->asked, {}), (Colors{1, kPainted<TypeParam>.bodyColor}));
}

TYPED_TEST(DrawnShape, KeepsTheColourServiceOfItsCreation) {
  Platform::Current().colorService = std::make_shared<corvane1::PaletteColorService>();
  EXPECT_EQ(CallsOfDraw(*this->r_)[2], "CreatePenIndirect({0, 1, 0x0a0001}) -> pen:1");
}

TYPED_TEST(FilledShapes, DrawOnAWrongContextDoesNothing) {
  const auto r = Placed<TypeParam>(2, 2, 10, 10);
  const std::size_t before = gdi::LiveObjects();
  r->Draw(0, false);
  r->Draw(12345, false);
  EXPECT_EQ(gdi::LiveObjects(), before);
}

/// A shape with its handles in reach.
class ProbedShape final : public FilledShape {
 public:
  ProbedShape() : FilledShape(Stroke{0, 0, 1}, 0) {}
  const automation::ClassInfo& Class() const override { return clsRectangle::ClassOf(); }
  using FilledShape::DrawPickUps;

 private:
  void PaintFigure(Long, Long, Long, Long, Long) const override {}
};

TEST(FilledShape, HandlesArePaintedAtDescriptor4) {
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
