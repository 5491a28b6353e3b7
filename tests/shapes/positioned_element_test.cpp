#include "shapes/positioned_element.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/automation/array.h"
#include "platform/automation/call_by_name.h"
#include "tests/support/raises.h"
#include "tests/support/shape_fixture.h"

namespace quenzel7 {
namespace {

using automation::Array;
using automation::Bounds;
using automation::Variant;
using automation::VariantKind;
using test::DescriptorOf;
using test::ErrorOf;
using test::Placed;

constexpr Long kMost = 2147483647;

template <class Shape>
using PositionedElements = test::ShapeTest<Shape>;
TYPED_TEST_SUITE(PositionedElements, test::StrokedShapeTypes, test::ClassNameOfShape);

TYPED_TEST(PositionedElements, StartAsNewElementsWithoutPlaceAndOperands) {
  const TypeParam r;
  EXPECT_EQ(r.ID(), -1);
  EXPECT_EQ(r.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location) EXPECT_EQ(DescriptorOf(r, location), Descriptor{});
  EXPECT_EQ(r.PenStyle(), ePS_Solid);
  EXPECT_EQ(r.TouchOprndAddr(), -1);
  EXPECT_EQ(r.VisibleOpAddr(), -1);
  EXPECT_EQ(r.OperandBags(), nullptr);
  EXPECT_EQ(r.OrderIndex(), 0);
  EXPECT_FALSE(r.IsCanceled());
  EXPECT_FALSE(r.IsTouchable());
}

TYPED_TEST(PositionedElements, CannotBeMadeFromASettingThatIsNoNumber) {
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "thick";
  Platform::Current().settings = settings;
  EXPECT_EQ(ErrorOf([] { TypeParam(); }), 13);
}

TYPED_TEST(PositionedElements, ReadsTheStubsOfWhatItDoesNotCarryAndIgnoresWrites) {
  TypeParam r;
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
  EXPECT_EQ(r.EnabledOpAddr(), 0);
  EXPECT_EQ(r.HighlightOpAddr(), 0);
  EXPECT_EQ(r.KeypadSuccessOpAddr(), 0);
  EXPECT_EQ(r.Alignment(), 0);
  EXPECT_EQ(r.Flat3D(), 0);
  EXPECT_EQ(r.hBmp(), 0);
  EXPECT_EQ(r.hBmpCRC(), 0);
  EXPECT_EQ(r.TransparencyLevel(), 0);
}

TYPED_TEST(PositionedElements, OperationsForOtherClassesHaveNoEffect) {
  const auto r = Placed<TypeParam>(1, 2, 3, 4);
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
  for (Long location = 1; location <= 4; ++location)
    EXPECT_EQ(DescriptorOf(*r, location), (Descriptor{1, 2, 3, 4}));
}

TYPED_TEST(PositionedElements, PublishesItsDefaultInterfaceInSlotOrder) {
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
  EXPECT_EQ(TypeParam::ClassOf().Default().Slots(), expected);
  EXPECT_EQ(TypeParam::ClassOf().name, TypeParam::kClassName);
  ASSERT_EQ(TypeParam::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(TypeParam::ClassOf().interfaces[1], &ItfHmiElement::InterfaceOf());
}

TYPED_TEST(PositionedElements, PositionWritersSetAllFourDescriptors) {
  const auto r = Placed<TypeParam>(1, 2, 3, 4);
  for (Long location = 1; location <= 4; ++location)
    EXPECT_EQ(DescriptorOf(*r, location), (Descriptor{1, 2, 3, 4}));
  r->Move(5, 5);
  r->Xs(9);
  for (Long location : {1, 2, 4}) EXPECT_EQ(DescriptorOf(*r, location), (Descriptor{9, 2, 3, 4})) << location;
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{9, 7, 3, 4}));
}

TYPED_TEST(PositionedElements, PositionReadersGiveDescriptor1) {
  const auto r = Placed<TypeParam>(1, 2, 3, 4);
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

TYPED_TEST(PositionedElements, MoveStartsFromThePositionAtRestEachTime) {
  const auto r = Placed<TypeParam>(10, 20, 5, 6);
  r->Move(3, 0);
  r->Move(3, -4);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{13, 16, 5, 6}));
  for (Long location : {1, 2, 4})
    EXPECT_EQ(DescriptorOf(*r, location), (Descriptor{10, 20, 5, 6})) << location;
}

TYPED_TEST(PositionedElements, MoveBeyond32BitsOverflows) {
  const auto r = Placed<TypeParam>(1, 1, 5, 5);
  EXPECT_EQ(ErrorOf([&] { r->Move(kMost, 0); }), 6);
  EXPECT_EQ(ErrorOf([&] { r->Move(0, kMost); }), 6);
  r->Xs(-2);
  EXPECT_EQ(ErrorOf([&] { r->Move(-kMost, 0); }), 6);
}

TYPED_TEST(PositionedElements, EachCopyOfTheDragSequenceCopiesItsDescriptors) {
  const auto r = Placed<TypeParam>(0, 0, 10, 10);
  const Descriptor rest{0, 0, 10, 10}, moved{5, 6, 10, 10}, legal{1, 1, 10, 10};

  r->Move(1, 1);
  r->SaveLastLegalPosition();
  EXPECT_EQ(DescriptorOf(*r, 2), legal);
  EXPECT_EQ(DescriptorOf(*r, 4), rest);

  r->Move(5, 6);
  r->UpdateDisplayWithTransx();
  EXPECT_EQ(DescriptorOf(*r, 4), moved);
  EXPECT_EQ(DescriptorOf(*r, 2), legal);

  r->UpdateDisplayWithLastLegal();
  EXPECT_EQ(DescriptorOf(*r, 4), legal);
  EXPECT_EQ(DescriptorOf(*r, 3), moved);
  EXPECT_EQ(DescriptorOf(*r, 1), rest);

  r->UpdateInitialDescriptor();
  EXPECT_EQ(DescriptorOf(*r, 1), legal);
  EXPECT_EQ(DescriptorOf(*r, 3), moved);

  r->Move(30, 30);
  r->SaveLastLegalPosition();
  r->UpdateDisplayWithTransx();
  r->SaveInitialPosition();
  EXPECT_EQ(DescriptorOf(*r, 2), legal);
  EXPECT_EQ(DescriptorOf(*r, 4), legal);
  EXPECT_EQ(DescriptorOf(*r, 3), (Descriptor{31, 31, 10, 10}));
}

TYPED_TEST(PositionedElements, ToolTipTellsDescriptor4) {
  const auto r = Placed<TypeParam>(1, -2, 30, 40);
  EXPECT_EQ(r->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  r->Move(5, 5);
  EXPECT_EQ(r->GetToolTipText(), "Pos: 1, -2 ; Size: 30, 40");
  r->UpdateDisplayWithTransx();
  EXPECT_EQ(r->GetToolTipText(), "Pos: 6, 3 ; Size: 30, 40");
}

}  // namespace
}  // namespace quenzel7
