#include "framework/element_contract.h"

#include <gtest/gtest.h>

#include "platform/automation/call_by_name.h"
#include "platform/automation/property_bag.h"
#include "tests/support/empty_connection.h"

namespace quenzel7 {
namespace {

using automation::CallByName;
using automation::CallKind;
using automation::GetByName;
using automation::InvokeByName;
using automation::Variant;

/// A class that implements nothing: every operation is the contract's stub.
class BareElement final : public ItfHmiElement {
 public:
  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"BareElement", interfaces, nullptr};
    return info;
  }
};

TEST(ElementContract, SlotsStandInTheirPublishedOrder) {
  const std::vector<std::string> expected = {
      "get EnabledOpAddr() As Long",
      "put EnabledOpAddr(Long)",
      "get VisibleOpAddr() As Long",
      "put VisibleOpAddr(Long)",
      "get HighlightOpAddr() As Long",
      "put HighlightOpAddr(Long)",
      "get KeypadSuccessOpAddr() As Long",
      "put KeypadSuccessOpAddr(Long)",
      "call LoadFromDB(Recordset) As Boolean",
      "call GetBoundingRect(ByRef Long, ByRef Long, ByRef Long, ByRef Long, [Long])",
      "get IsTouchable() As Boolean",
      "put IsTouchable(Boolean)",
      "get ElementType() As Long",
      "call SaveInitialPosition()",
      "call SaveLastLegalPosition()",
      "call UpdateDisplayWithTransx()",
      "call UpdateDisplayWithLastLegal()",
      "call UpdateInitialDescriptor()",
      "call Draw(Long, Boolean)",
      "call DrawNonVarsInGroup(Long, Boolean)",
      "call DrawVarsInGroup(Long, Boolean)",
      "call SaveToDB()",
      "call Stretch(Long, Long, Long)",
      "call GetPupDirection(Long, Long, Long) As enPickUpDirection",
      "call HitTestByPoint(Long, Long) As Boolean",
      "call GetToolTipText() As String",
      "call HitTestByRect(Long, Long, Long, Long) As Boolean",
      "call Move(Long, Long)",
      "put IsCanceled(Boolean)",
      "get IsCanceled() As Boolean",
      "call DeleteFromDB()",
      "put Xs(Long)",
      "get Xs() As Long",
      "put Ys(Long)",
      "get Ys() As Long",
      "put Dx(Long)",
      "get Dx() As Long",
      "put Dy(Long)",
      "get Dy() As Long",
      "call GetOptimalDimensions(ByRef Long, ByRef Long, ByRef Long, ByRef Long)",
      "call Replica() As ItfHmiElement",
      "get ID() As Long",
      "put ID(Long)",
      "get FontNumber() As Long",
      "put FontNumber(Long)",
      "call RestoreAllOperands()",
      "get TouchOprndAddr() As Long",
      "put TouchOprndAddr(Long)",
      "put ColorBack(Long)",
      "get ColorBack() As Long",
      "put ColorFore(Long)",
      "get ColorFore() As Long",
      "put ColorHatch(Long)",
      "get ColorHatch() As Long",
      "call InvertColors()",
      "call Rotate()",
      "get GroupID() As Long",
      "put GroupID(Long)",
      "call GetTransformState(ByRef Variant) As enCollisionStatus",
      "put Txt(String)",
      "get Txt() As String",
      "put Alignment(Integer)",
      "get Alignment() As Integer",
      "put Flat3D(Integer)",
      "get Flat3D() As Integer",
      "put PenWidth(Long)",
      "get PenWidth() As Long",
      "put PenStyle(enPenStyle)",
      "get PenStyle() As enPenStyle",
      "put FillStyle(enFillStyle)",
      "get FillStyle() As enFillStyle",
      "put HatchStyle(enHatchStyle)",
      "get HatchStyle() As enHatchStyle",
      "put hBmp(Long)",
      "get hBmp() As Long",
      "put hBmpCRC(Long)",
      "get hBmpCRC() As Long",
      "call DrawToPrinter(Long, String)",
      "call SetNewFontNumberByLookUpTBL(ByRef Variant)",
      "put TabIndex(Long)",
      "get TabIndex() As Long",
      "call UpdateBoundingRectangle(Long, Long, Long) As Variant",
      "call GetSizeFromBoundingRect()",
      "put TransparencyLevel(Long)",
      "get TransparencyLevel() As Long",
      "call CreateStaticElementPrinterReport(Object)",
      "put ColorBackTouch(Long)",
      "get ColorBackTouch() As Long",
      "put ColorForeTouch(Long)",
      "get ColorForeTouch() As Long",
      "get OrderIndex() As Long",
      "put OrderIndex(Long)",
      "call SetImageSystem(Long)",
  };
  EXPECT_EQ(ItfHmiElement::InterfaceOf().Slots(), expected);
  EXPECT_EQ(ItfHmiElement::InterfaceOf().Name(), "ItfHmiElement");
}

/// What a reader gives in a class that does not carry the property, whatever was written before.
const std::pair<const char*, Variant> kStubs[] = {
    {"EnabledOpAddr", Long{0}},
    {"VisibleOpAddr", Long{0}},
    {"HighlightOpAddr", Long{0}},
    {"KeypadSuccessOpAddr", Long{0}},
    {"IsTouchable", false},
    {"ElementType", Long{0}},
    {"IsCanceled", false},
    {"Xs", Long{0}},
    {"Ys", Long{0}},
    {"Dx", Long{0}},
    {"Dy", Long{0}},
    {"ID", Long{0}},
    {"FontNumber", Long{1}},
    {"TouchOprndAddr", Long{0}},
    {"ColorBack", Long{0}},
    {"ColorFore", Long{0}},
    {"ColorHatch", Long{0}},
    {"GroupID", Long{0}},
    {"Txt", ""},
    {"Alignment", Integer{0}},
    {"Flat3D", Integer{0}},
    {"PenWidth", Long{0}},
    {"PenStyle", Long{0}},
    {"FillStyle", Long{0}},
    {"HatchStyle", Long{0}},
    {"hBmp", Long{0}},
    {"hBmpCRC", Long{0}},
    {"TabIndex", Long{255}},
    {"TransparencyLevel", Long{0}},
    {"ColorBackTouch", Long{0}},
    {"ColorForeTouch", Long{0}},
    {"OrderIndex", Long{0}},
};

TEST(ElementContract, StubsReadTheirConstantAndIgnoreWrites) {
  BareElement element;
  std::size_t properties = 0;
  for (const automation::Member& member : ItfHmiElement::InterfaceOf().Members())
    properties += !member.IsMethod();
  EXPECT_EQ(std::size(kStubs), properties);
  for (const auto& [name, value] : kStubs) {
    EXPECT_EQ(GetByName(element, name), value) << name;
    const automation::Member* member = ItfHmiElement::InterfaceOf().Find(name);
    if (member->put) automation::PutByName(element, name, Variant(Long{7}));
    EXPECT_EQ(GetByName(element, name), value) << name;
  }
}

TEST(ElementContract, OnlyTheElementTypeCannotBeWritten) {
  for (const automation::Member& member : ItfHmiElement::InterfaceOf().Members()) {
    if (member.IsMethod()) continue;
    EXPECT_EQ(member.put == nullptr, member.name == "ElementType") << member.name;
  }
}

TEST(ElementContract, StubMethodsDoNothingAndGiveZeroOrEmpty) {
  BareElement element;
  const auto none = std::make_shared<automation::PropertyBag>();
  for (const char* name :
       {"SaveInitialPosition", "SaveLastLegalPosition", "UpdateDisplayWithTransx",
        "UpdateDisplayWithLastLegal", "UpdateInitialDescriptor", "SaveToDB", "DeleteFromDB",
        "RestoreAllOperands", "InvertColors", "Rotate", "GetSizeFromBoundingRect"}) {
    EXPECT_EQ(InvokeByName(element, name), Variant()) << name;
  }
  EXPECT_EQ(InvokeByName(element, "Draw", {Long{1}, true}), Variant());
  EXPECT_EQ(InvokeByName(element, "DrawNonVarsInGroup", {Long{1}, true}), Variant());
  EXPECT_EQ(InvokeByName(element, "DrawVarsInGroup", {Long{1}, true}), Variant());
  EXPECT_EQ(InvokeByName(element, "DrawToPrinter", {Long{1}, "alias"}), Variant());
  EXPECT_EQ(InvokeByName(element, "Stretch", {Long{1}, Long{1}, Long{1}}), Variant());
  EXPECT_EQ(InvokeByName(element, "Move", {Long{1}, Long{1}}), Variant());
  EXPECT_EQ(InvokeByName(element, "SetImageSystem", {Long{1}}), Variant());
  EXPECT_EQ(InvokeByName(element, "SetNewFontNumberByLookUpTBL", {Variant()}), Variant());
  EXPECT_EQ(InvokeByName(element, "CreateStaticElementPrinterReport", {none}), Variant());
  EXPECT_EQ(InvokeByName(element, "GetPupDirection", {Long{1}, Long{1}, Long{1}}), Variant(Long{ePD_None}));
  EXPECT_EQ(InvokeByName(element, "HitTestByPoint", {Long{0}, Long{0}}), Variant(false));
  EXPECT_EQ(InvokeByName(element, "HitTestByRect", {Long{0}, Long{0}, Long{0}, Long{0}}), Variant(false));
  EXPECT_EQ(InvokeByName(element, "GetToolTipText"), Variant(""));
  EXPECT_EQ(InvokeByName(element, "GetTransformState", {Variant()}), Variant(Long{eCS_Legall}));
  EXPECT_EQ(InvokeByName(element, "UpdateBoundingRectangle", {Long{1}, Long{1}, Long{1}}), Variant());
  EXPECT_EQ(InvokeByName(element, "Replica"), Variant(std::shared_ptr<ItfHmiElement>()));
}

TEST(ElementContract, StubsLeaveByReferenceArgumentsAsTheyWere) {
  BareElement element;
  Long xs = 1, ys = 2, dx = 3, dy = 4;
  element.GetBoundingRect(xs, ys, dx, dy);
  element.GetOptimalDimensions(xs, ys, dx, dy);
  EXPECT_EQ(xs, 1);
  EXPECT_EQ(ys, 2);
  EXPECT_EQ(dx, 3);
  EXPECT_EQ(dy, 4);
}

TEST(ElementContract, EveryMemberHasAWordOfDocumentationAndNoMark) {
  for (const automation::Member& member : ItfHmiElement::InterfaceOf().Members()) {
    ASSERT_FALSE(member.documentation.empty()) << member.name;
    EXPECT_EQ(member.documentation.back(), '.') << member.name;
    EXPECT_EQ(member.mark, automation::Mark::None) << member.name;
  }
}

TEST(ElementContract, DocumentationStandsWithItsMember) {
  const auto words = [](const char* name) { return ItfHmiElement::InterfaceOf().Find(name)->documentation; };
  EXPECT_EQ(words("EnabledOpAddr"), "Address of the memory bit that enables the element; -1 none.");
  EXPECT_EQ(words("UpdateDisplayWithTransx"), "Shows the proposed position: descriptor 3 is copied to 4.");
  EXPECT_EQ(words("SetImageSystem"), "Chooses how the element's picture is kept.");
}

TEST(ElementContract, TheStubOfLoadFromDBIsFalseAndReadsNothing) {
  BareElement element;
  const auto row = std::make_shared<test::EmptyRecordset>();
  EXPECT_EQ(InvokeByName(element, "LoadFromDB", {row}), Variant(false));
  EXPECT_EQ(row->Asked(), 0);
}

}  // namespace
}  // namespace quenzel7
