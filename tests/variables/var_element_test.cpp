#include "variables/var_element.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

#include "framework/touch_style.h"
#include "platform/automation/call_by_name.h"
#include "platform/gdi/recorder.h"
#include "platform/gdi/surface.h"
#include "tests/support/raises.h"
#include "tests/support/report_double.h"
#include "tests/support/text_fixture.h"
#include "tests/support/variable_fixture.h"

namespace quenzel7 {
namespace {

using automation::GetByName;
using automation::InvokeByName;
using automation::Mark;
using automation::PutByName;
using automation::Variant;
using test::CallLog;
using test::DescriptorOf;
using test::ErrorOf;
using test::TypeOf;

using Variable = test::VariableTest;
using Names = std::vector<std::string>;

constexpr Long kMost = std::numeric_limits<Long>::max();

const automation::Interface& Contract() { return ItfHmiElement::InterfaceOf(); }

// --- What it is ---

TEST_F(Variable, PublishesItsDefaultInterfaceInSlotOrder) {
  const std::vector<std::string> expected = {
      "get TabIndex() As Long",
      "put TabIndex(Long)",
      "get EnabledOpAddr() As Long",
      "put EnabledOpAddr(Long)",
      "get VisibleOpAddr() As Long",
      "put VisibleOpAddr(Long)",
      "get HighlightOpAddr() As Long",
      "put HighlightOpAddr(Long)",
      "get KeypadSuccessOpAddr() As Long",
      "put KeypadSuccessOpAddr(Long)",
      "get ColorBack() As Long",
      "put ColorBack(Long)",
      "putref ColOpPropBag(Collection)",
      "put DisplayID(Long)",
      "get TouchOprndAddr() As Long",
      "call SetTouchWithoutLoadingPropertyBag(Long)",
      "put TouchOprndAddr(Long)",
      "get HatchStyle() As enHatchStyle",
      "put HatchStyle(enHatchStyle)",
      "get GroupID() As Long",
      "put GroupID(Long)",
      "get DefaultDisplay() As Long",
      "put DefaultDisplay(Long)",
      "get KeypadEntry() As Boolean",
      "put KeypadEntry(Boolean)",
      "call BinaryHandlers(enVarType) As ItfVarBinaryHandler",
      "call SetBinaryHandler(enVarType, ItfVarBinaryHandler)",
      "get OperandType() As Long",
      "put OperandType(Long)",
      "get OperandAddress() As Long",
      "put OperandAddress(Long)",
      "get ID() As Long",
      "put ID(Long)",
      "get VarType() As enVarType",
      "put VarType(enVarType)",
      "get GlobalVarID() As Long",
      "put GlobalVarID(Long)",
      "get VarName() As String",
      "put VarName(String)",
      "get Xs() As Long",
      "put Xs(Long)",
      "get Ys() As Long",
      "put Ys(Long)",
      "get Dx() As Long",
      "put Dx(Long)",
      "get Dy() As Long",
      "put Dy(Long)",
      "get TransparencyLevel() As Long",
      "put TransparencyLevel(Long)",
      "get IsCalendarVar() As Boolean",
      "get IsTouchable() As Boolean",
      "call GetDataCRC() As Long",
      "call DeleteAllOperands()",
      "call DeleteFromDB()",
      "call CreatePrinterReport() As Variant",
      "call CreatePrinterReportEX(Object)",
      "call GetColOpPropertyBag() As Collection",
      "call GetOptimalDimensions(ByRef Long, ByRef Long, ByRef Long, ByRef Long)",
      "call BuildOpPropBag() As Collection",
      "call BuildImageList()",
      "call LoadFromDB(Recordset) As Boolean",
      "call SaveToDB() As Boolean",
      "call Replica() As clsVar",
      "call RestoreAllOperands()",
      "get Alignment() As Long",
      "put Alignment(Long)",
      "get Flat3D() As Long",
      "put Flat3D(Long)",
      "get FontNumber() As Long",
      "put FontNumber(Long)",
      "get DescriptionFontNumber() As Long",
      "put DescriptionFontNumber(Long)",
      "call ItfHmiElement_CreateStaticElementPrinterReport(Object)",
      "get ColorBackTouch() As Long",
      "put ColorBackTouch(Long)",
      "get ListText() As clsVarTextElement",
      "putref ListText(clsVarTextElement)",
      "get StorageText() As Long",
      "put StorageText(Long)",
      "get StorageLibNum() As Long",
      "put StorageLibNum(Long)",
      "call SaveToDBEx() As Boolean",
      "call HMIElementSize() As Long",
  };
  const std::vector<std::string> slots = clsVar::ClassOf().Default().Slots();
  ASSERT_EQ(slots.size(), expected.size());
  for (std::size_t i = 0; i < slots.size(); ++i) EXPECT_EQ(slots[i], expected[i]);
}

TEST_F(Variable, IsAnElementOfItsOwnClass) {
  EXPECT_EQ(clsVar::ClassOf().name, "clsVar");
  EXPECT_EQ(clsVar::ClassOf().Default().Name(), "_clsVar");
  ASSERT_EQ(clsVar::ClassOf().interfaces.size(), 2u);
  EXPECT_EQ(clsVar::ClassOf().interfaces[1], &Contract());
  EXPECT_EQ(clsVar().ElementType(), 5);
  EXPECT_EQ(&clsVar().Class(), &clsVar::ClassOf());
  EXPECT_NE(dynamic_cast<const clsVar*>(clsVar::ClassOf().create().get()), nullptr);
}

TEST_F(Variable, MarksWhatIsNotOfThePage) {
  Names identity, transient;
  for (const automation::Member& member : clsVar::ClassOf().Default().Members()) {
    EXPECT_FALSE(member.documentation.empty()) << member.name;
    if (member.mark == Mark::Identity) identity.emplace_back(member.name);
    if (member.mark == Mark::Transient) transient.emplace_back(member.name);
    EXPECT_TRUE(member.mark == Mark::None || member.mark == Mark::Identity || member.mark == Mark::Transient);
  }
  EXPECT_EQ(identity, (Names{"DisplayID", "GroupID", "ID"}));
  EXPECT_EQ(transient, Names{"HatchStyle"});
}

TEST_F(Variable, StartsAsATextForABitWithoutHandlerAndPlace) {
  test::CountingServices services;
  services.Install();
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  clsVar variable;
  const ItfHmiElement& element = variable;
  EXPECT_EQ(settings->asked, (Names{"6000/6020/103", "6000/6021/5", "6000/6020/103"}));
  EXPECT_EQ(variable.ID(), -1);
  EXPECT_EQ(variable.GroupID(), -1);
  for (Long location = 1; location <= 4; ++location)
    EXPECT_EQ(DescriptorOf(variable, location), Descriptor{});
  EXPECT_EQ(variable.TouchOprndAddr(), -1);
  EXPECT_FALSE(variable.IsTouchable());
  EXPECT_EQ(variable.EnabledOpAddr(), -1);
  EXPECT_EQ(variable.VisibleOpAddr(), -1);
  EXPECT_EQ(variable.HighlightOpAddr(), -1);
  EXPECT_EQ(variable.KeypadSuccessOpAddr(), -1);
  EXPECT_FALSE(variable.KeypadEntry());
  EXPECT_EQ(variable.VarName(), "");
  EXPECT_EQ(variable.VarType(), eVT_BinaryText);
  EXPECT_EQ(variable.GlobalVarID(), 0);
  EXPECT_EQ(variable.HatchStyle(), eHS_None);
  EXPECT_EQ(variable.DefaultDisplay(), 1);
  ASSERT_NE(variable.GetColOpPropertyBag(), nullptr);
  EXPECT_EQ(variable.GetColOpPropertyBag()->Count(), 0);
  EXPECT_EQ(variable.ColorBack(), 103);
  EXPECT_EQ(variable.ColorBackTouch(), 103);
  EXPECT_EQ(variable.Alignment(), 4);
  EXPECT_EQ(variable.Flat3D(), 3);
  EXPECT_EQ(variable.FontNumber(), test::CountingFonts::kDefault);
  EXPECT_EQ(variable.DescriptionFontNumber(), 1);
  EXPECT_EQ(variable.TabIndex(), 255);
  EXPECT_EQ(variable.TransparencyLevel(), 0);
  ASSERT_NE(variable.ListText(), nullptr);
  EXPECT_EQ(variable.ListText()->StorageStringID(), -1);
  EXPECT_NE(variable.ListText(), clsVar().ListText());
  EXPECT_EQ(variable.StorageText(), 0);
  EXPECT_EQ(variable.StorageLibNum(), 0);
  EXPECT_EQ(element.Txt(), "");
  EXPECT_EQ(ErrorOf([&] { variable.OperandType(); }), 91);
  EXPECT_EQ(ErrorOf([&] { variable.OperandType(1); }), 91);
  EXPECT_EQ(ErrorOf([&] { variable.OperandAddress(); }), 91);
  EXPECT_EQ(ErrorOf([&] { variable.OperandAddress(1); }), 91);
}

TEST_F(Variable, HasNoBoundsBeforeItIsPlaced) {
  clsVar variable;
  variable.SetBinaryHandler(eVT_MovingImage, handler_);
  variable.VarType(eVT_MovingImage);
  EXPECT_EQ(DescriptorOf(variable, 1), Descriptor{});
}

TEST_F(Variable, TakesItsColourFromTheSettingsOnce) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  settings->answer = "7";
  const clsVar variable;
  // The first question, about key 6020.
  EXPECT_EQ(variable.ColorBack(), 710);
  EXPECT_EQ(variable.ColorBackTouch(), 710);
  settings->answer = "blue";
  EXPECT_EQ(ErrorOf([] { clsVar(); }), 13);
}

// --- Fields ---

TEST_F(Variable, FieldsReadAsTheyWereWritten) {
  const char* const names[] = {"TabIndex",      "ColorBack",       "TouchOprndAddr",
                               "GroupID",       "DefaultDisplay",  "ID",
                               "GlobalVarID",   "Alignment",       "FontNumber",
                               "StorageText",   "StorageLibNum",   "DescriptionFontNumber",
                               "Flat3D",        "VisibleOpAddr",   "ColorBackTouch",
                               "EnabledOpAddr", "HighlightOpAddr", "KeypadSuccessOpAddr"};
  clsVar variable;
  variable.SetBinaryHandler(eVT_BinaryText, handler_);
  Long number = 40;
  for (const char* name : names) PutByName(variable, name, ++number);
  number = 40;
  for (const char* name : names) EXPECT_EQ(GetByName(variable, name), Variant(++number)) << name;
  for (const Long extreme : {kMost, -kMost - 1}) {
    for (const char* name : names) {
      clsVar other;
      PutByName(other, name, extreme);
      EXPECT_EQ(GetByName(other, name), Variant(extreme)) << name;
    }
  }
  PutByName(variable, "HatchStyle", Long{eHS_Upward_Diagonal});
  EXPECT_EQ(variable.HatchStyle(), eHS_Upward_Diagonal);
  PutByName(variable, "KeypadEntry", true);
  EXPECT_TRUE(variable.KeypadEntry());
  PutByName(variable, "VarName", std::string("Pump 1"));
  EXPECT_EQ(variable.VarName(), "Pump 1");
  const auto text = std::make_shared<clsVarTextElement>();
  PutByName(variable, "ListText", Variant(text));
  EXPECT_EQ(variable.ListText(), text);
  const auto bags = std::make_shared<automation::Collection>();
  PutByName(variable, "ColOpPropBag", Variant(bags));
  EXPECT_EQ(variable.GetColOpPropertyBag(), bags);
  EXPECT_EQ(ErrorOf([&] { GetByName(variable, "ColOpPropBag"); }), 394);
  EXPECT_EQ(ErrorOf([&] { GetByName(variable, "DisplayID"); }), 394);
}

TEST_F(Variable, BothInterfacesShareTheFields) {
  const struct {
    const char* name;
    Long written;
  } kBoth[] = {{"ID", 5},
               {"GroupID", 6},
               {"TouchOprndAddr", 7},
               {"TabIndex", 9},
               {"ColorBack", 10},
               {"ColorBackTouch", 11},
               {"FontNumber", 12},
               {"Flat3D", 2},
               {"Alignment", 8},
               {"EnabledOpAddr", 14},
               {"HighlightOpAddr", 15},
               {"KeypadSuccessOpAddr", 16},
               {"VisibleOpAddr", 17},
               {"HatchStyle", 3},
               {"Xs", 18},
               {"Ys", 19},
               {"Dx", 20},
               {"Dy", 21}};
  for (const auto& [name, written] : kBoth) {
    const auto one = Of(30);
    PutByName(*one, Contract(), name, written);
    EXPECT_EQ(automation::To<Long>(GetByName(*one, name)), written) << name;
    const auto other = Of(30);
    PutByName(*other, name, written);
    EXPECT_EQ(automation::To<Long>(GetByName(*other, Contract(), name)), written) << name;
  }
}

TEST_F(Variable, WhatAVariableLacksReadsAsNothingWhateverIsWritten) {
  const auto variable = Of(30);
  for (const char* name : {"ColorHatch", "ColorForeTouch", "FillStyle", "PenStyle", "PenWidth", "hBmp",
                           "hBmpCRC", "OrderIndex", "ColorFore"}) {
    PutByName(*variable, Contract(), name, Long{1});
    EXPECT_EQ(automation::To<Long>(GetByName(*variable, Contract(), name)), 0) << name;
  }
  PutByName(*variable, Contract(), "IsCanceled", true);
  EXPECT_EQ(GetByName(*variable, Contract(), "IsCanceled"), Variant(false));
  ItfHmiElement& element = *variable;
  TakeLog();
  const gdi::Surface surface(4, 4);
  const gdi::Recorder recorder;
  element.DrawNonVarsInGroup(surface.Dc(), true);
  element.DrawVarsInGroup(surface.Dc(), true);
  EXPECT_EQ(recorder.Calls(), CallLog{});
  InvokeByName(*variable, Contract(), "SetImageSystem", {Variant(Long{1})});
  EXPECT_EQ(TakeLog(), CallLog{});
}

TEST_F(Variable, TheTextIsItsNameAndIsNotWritten) {
  clsVar variable;
  variable.VarName("Pump 1");
  ItfHmiElement& element = variable;
  EXPECT_EQ(element.Txt(), "Pump 1");
  element.Txt("other");
  EXPECT_EQ(element.Txt(), "Pump 1");
  EXPECT_EQ(variable.VarName(), "Pump 1");
}

TEST_F(Variable, StyleAndAlignmentOfTheContractAreOf16Bits) {
  clsVar variable;
  ItfHmiElement& element = variable;
  element.Alignment(Integer{-8});
  EXPECT_EQ(variable.Alignment(), -8);
  variable.Alignment(32767);
  EXPECT_EQ(element.Alignment(), 32767);
  variable.Alignment(32768);
  EXPECT_EQ(ErrorOf([&] { element.Alignment(); }), 6);
  variable.Flat3D(-32768);
  EXPECT_EQ(element.Flat3D(), -32768);
  variable.Flat3D(-32769);
  EXPECT_EQ(ErrorOf([&] { element.Flat3D(); }), 6);
}

// --- Place ---

/// The frame of a stretch, which only these types tell.
Descriptor BoundsOf(clsVar& variable) {
  const enVarType type = variable.VarType();
  variable.VarType(eVT_MovingImage);
  const Descriptor bounds = DescriptorOf(variable, 1);
  variable.VarType(type);
  return bounds;
}

TEST_F(Variable, PositionWritersSetAllDescriptorsAndTheirEdgeOfTheBounds) {
  clsVar variable;
  variable.Xs(3);
  variable.Ys(4);
  variable.Dx(50);
  variable.Dy(60);
  for (Long location = 1; location <= 4; ++location) {
    EXPECT_EQ(DescriptorOf(variable, location), (Descriptor{3, 4, 50, 60}));
  }
  EXPECT_EQ(BoundsOf(variable), (Descriptor{3, 4, 50, 60}));
  // The right and the lower edge do not follow.
  variable.Xs(10);
  EXPECT_EQ(BoundsOf(variable), (Descriptor{10, 4, 43, 60}));
  variable.Ys(14);
  EXPECT_EQ(BoundsOf(variable), (Descriptor{10, 14, 43, 50}));
  variable.Dx(7);
  EXPECT_EQ(BoundsOf(variable), (Descriptor{10, 14, 7, 50}));
  variable.Dy(8);
  EXPECT_EQ(BoundsOf(variable), (Descriptor{10, 14, 7, 8}));
  EXPECT_EQ(variable.Xs(), 10);
  EXPECT_EQ(variable.Ys(), 14);
  EXPECT_EQ(variable.Dx(), 7);
  EXPECT_EQ(variable.Dy(), 8);
}

TEST_F(Variable, AnEdgeBeyond32BitsIsAnOverflow) {
  clsVar variable;
  variable.Xs(1);
  variable.Ys(1);
  variable.Dx(kMost - 1);
  variable.Dy(kMost - 1);
  EXPECT_EQ(ErrorOf([&] { variable.Dx(kMost); }), 6);
  EXPECT_EQ(ErrorOf([&] { variable.Dy(kMost); }), 6);
}

TEST_F(Variable, HitTestsAndPickUpsAreThoseOfItsBoxAtRest) {
  const auto variable = Of(8);
  ItfHmiElement& element = *variable;
  element.Move(100, 100);
  element.UpdateDisplayWithTransx();
  EXPECT_TRUE(element.HitTestByPoint(10, 20));
  EXPECT_TRUE(element.HitTestByPoint(39, 59));
  EXPECT_FALSE(element.HitTestByPoint(40, 59));
  EXPECT_FALSE(element.HitTestByPoint(39, 60));
  EXPECT_TRUE(element.HitTestByRect(0, 0, 10, 20));
  EXPECT_FALSE(element.HitTestByRect(0, 0, 9, 20));
  const Long xs[] = {8, 25, 42}, ys[] = {18, 40, 62};
  const enPickUpDirection expected[3][3] = {{ePD_UpLeft, ePD_Up, ePD_UpRight},
                                            {ePD_Left, ePD_None, ePD_Right},
                                            {ePD_LeftDown, ePD_Down, ePD_DownRight}};
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      EXPECT_EQ(element.GetPupDirection(xs[column], ys[row], 3), expected[row][column]) << row << column;
    }
  }
}

// --- Properties that do more ---

TEST_F(Variable, AStyleWithABevelHasTheHandlersOfStateColoursChangeThem) {
  for (Long type = 1; type <= 30; ++type) {
    const bool converts = type == 2 || type == 3 || type == 11 || type == 29;
    for (const Long style : {-1, 0, 1, 2, 3, 4}) {
      const auto variable = Of(type);
      variable->Flat3D(style);
      EXPECT_EQ(variable->Flat3D(), style);
      EXPECT_EQ(TakeLog(), converts && (style == 1 || style == 3)
                               ? CallLog{"handler.ConvertFlatColorToClosestGradientColor()"}
                               : CallLog{})
          << type << ' ' << style;
      static_cast<ItfHmiElement&>(*variable).Flat3D(Integer{1});
      EXPECT_EQ(variable->Flat3D(), 1);
      EXPECT_EQ(TakeLog(), CallLog{});
    }
  }
}

TEST_F(Variable, AStyleIsStoredBeforeTheColoursAreChanged) {
  clsVar variable;
  variable.Flat3D(0);
  EXPECT_EQ(ErrorOf([&] { variable.Flat3D(1); }), 91);
  EXPECT_EQ(variable.Flat3D(), 1);
  variable.VarType(eVT_NumericRange);
  EXPECT_EQ(ErrorOf([&] { variable.Flat3D(3); }), 91);
  EXPECT_EQ(variable.Flat3D(), 3);
  variable.VarType(eVT_Float);
  variable.Flat3D(1);
  EXPECT_EQ(variable.Flat3D(), 1);
}

TEST_F(Variable, TheContractTellsABackgroundToTheTextsOfThreeTypesAlone) {
  for (Long type = 1; type <= 30; ++type) {
    const auto variable = Of(type);
    static_cast<ItfHmiElement&>(*variable).ColorBack(77);
    EXPECT_EQ(variable->ColorBack(), 77);
    EXPECT_EQ(TakeLog(), type == 2 || type == 3 || type == 11 ? CallLog{"element.ColorBack=77"} : CallLog{})
        << type;
    variable->ColorBack(78);
    EXPECT_EQ(variable->ColorBack(), 78);
    EXPECT_EQ(TakeLog(), CallLog{});
  }
  clsVar withoutHandler;
  const Long before = withoutHandler.ColorBack();
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(withoutHandler).ColorBack(77); }), 91);
  EXPECT_EQ(withoutHandler.ColorBack(), before);
}

TEST_F(Variable, AColourGoesToWhereTheTypeKeepsIt) {
  for (Long type = 1; type <= 30; ++type) {
    const auto variable = Of(type);
    ItfHmiElement& element = *variable;
    element.ColorFore(77);
    const bool none = type == 1 || type == 4 || type == 12 || type == 18 || type == 20;
    const bool own = type == 9 || type == 22 || type == 24 || type == 25;
    EXPECT_EQ(TakeLog(), none  ? CallLog{}
                         : own ? CallLog{"handler.TakeColorFore(77)"}
                               : CallLog{"element.ColorFore=77"})
        << type;
    EXPECT_EQ(element.ColorFore(), 0);
    EXPECT_EQ(TakeLog(), CallLog{});
  }
}

TEST_F(Variable, TransparencyIsWrittenToThePicturesBeforeItIsStored) {
  clsVar variable;
  variable.ID(5);
  Connection().Execute("INSERT INTO ElementsAndImages (Element_ID,TransparencyLevel) VALUES (5,1)");
  Connection().Execute("INSERT INTO ElementsAndImages (Element_ID,TransparencyLevel) VALUES (6,1)");
  TakeLog();
  variable.TransparencyLevel(3);
  EXPECT_EQ(TakeLog(),
            CallLog{"execute UPDATE ElementsAndImages SET TransparencyLevel=3 WHERE Element_ID=5"});
  EXPECT_EQ(variable.TransparencyLevel(), 3);
  EXPECT_EQ(Rows("SELECT * FROM ElementsAndImages ORDER BY Element_ID", {"Element_ID", "TransparencyLevel"}),
            (CallLog{"5 3", "6 1"}));
  Recorder().FailAt(1);
  EXPECT_NE(ErrorOf([&] { variable.TransparencyLevel(4); }), 0);
  EXPECT_EQ(variable.TransparencyLevel(), 3);
}

TEST_F(Variable, PicturesInAListAloneAreTurnedAndInvertedAndNotThoseOfGlobalVariables) {
  for (Long type = 1; type <= 30; ++type) {
    for (const Long global : {-1, 0, 1, 5}) {
      const auto variable = Of(type);
      variable->GlobalVarID(global);
      ItfHmiElement& element = *variable;
      const bool reaches = (type == 1 || type == 4 || type == 12) && global < 1;
      element.Rotate();
      EXPECT_EQ(TakeLog(), reaches ? CallLog{"handler.Rotate()"} : CallLog{}) << type << ' ' << global;
      element.InvertColors();
      EXPECT_EQ(TakeLog(), reaches ? CallLog{"handler.InvertColors()"} : CallLog{}) << type << ' ' << global;
    }
  }
}

TEST_F(Variable, PassesNewFontNumbersAndTheListOfPicturesOnToItsHandler) {
  const auto variable = Of(17);
  Variant table = automation::From(std::vector<Long>{4, 5});
  static_cast<ItfHmiElement&>(*variable).SetNewFontNumberByLookUpTBL(table);
  EXPECT_EQ(TakeLog(), CallLog{"handler.SetNewFontNumberByLookUpTBL([4 5])"});
  variable->BuildImageList();
  EXPECT_EQ(TakeLog(), CallLog{"handler.BuildImageList(5)"});
}

TEST_F(Variable, ItsLinkOperandIsTheHandlers) {
  const auto variable = Of(17);
  variable->OperandType(3);
  variable->OperandAddress(40);
  EXPECT_EQ(TakeLog(), (CallLog{"handler.LinkOperandType=3", "handler.LinkOperandAddress=40"}));
  EXPECT_EQ(handler_->LinkOperandType(), 3);
  handler_->LinkOperandAddress(41);
  EXPECT_EQ(variable->OperandType(), 3);
  EXPECT_EQ(variable->OperandAddress(), 41);
}

TEST_F(Variable, IsACalendarWhenATimeFunctionShowsADayOrAMonth) {
  for (Long type = 1; type <= 30; ++type) {
    const auto variable = Of(type);
    for (Long format = -1; format <= 6; ++format) {
      handler_->formatType = format;
      const bool expected = type == 6 && format >= 2 && format <= 4;
      EXPECT_EQ(variable->IsCalendarVar(), expected) << type << ' ' << format;
      EXPECT_EQ(GetByName(*variable, "IsCalendarVar"), Variant(expected));
    }
  }
  clsVar withoutHandler;
  withoutHandler.VarType(eVT_TimeFunctions);
  withoutHandler.SetBinaryHandler(eVT_TimeFunctions, nullptr);
  EXPECT_EQ(ErrorOf([&] { withoutHandler.IsCalendarVar(); }), 91);
}

TEST_F(Variable, IsTouchableWithEveryAddressBut1BelowZero) {
  clsVar variable;
  ItfHmiElement& element = variable;
  for (const Long address : {-3, -2, -1, 0, 1}) {
    variable.SetTouchWithoutLoadingPropertyBag(address);
    EXPECT_EQ(variable.IsTouchable(), address != -1) << address;
    EXPECT_EQ(element.IsTouchable(), address != -1) << address;
    EXPECT_EQ(GetByName(variable, "IsTouchable"), Variant(address != -1)) << address;
  }
}

TEST_F(Variable, ReportsNothingAsAStaticElementDoes) {
  const auto variable = Of(8);
  EXPECT_EQ(InvokeByName(*variable, "CreatePrinterReport"), Variant());
  const auto printer = std::make_shared<test::ReportDouble>();
  InvokeByName(*variable, "ItfHmiElement_CreateStaticElementPrinterReport", {Variant(printer)});
  InvokeByName(*variable, Contract(), "CreateStaticElementPrinterReport", {Variant(printer)});
  EXPECT_EQ(printer->Lines(), CallLog{});
}

TEST_F(Variable, ReportsWhereItStandsThenWhatItsHandlerSays) {
  const auto variable = Of(8);
  static_cast<ItfHmiElement&>(*variable).Move(1, 1);
  static_cast<ItfHmiElement&>(*variable).UpdateDisplayWithTransx();
  const auto printer = std::make_shared<test::ReportDouble>();
  variable->CreatePrinterReportEX(*printer);
  const std::string place = "Coordinates (Left,Top,Width,Height): (10,20,30,40)";
  EXPECT_EQ(printer->Lines(), (CallLog{place, "handler"}));
  const auto other = std::make_shared<test::ReportDouble>();
  Of(10)->CreatePrinterReportEX(*other);
  clsVar withoutHandler;
  withoutHandler.VarType(eVT_Float);
  withoutHandler.CreatePrinterReportEX(*other);
  EXPECT_EQ(other->Lines(), (CallLog{place, "handler", "Coordinates (Left,Top,Width,Height): (0,0,0,0)"}));
}

// --- Touch style ---

TEST_F(Variable, ATouchThatOpensAKeypadIsStyledByWhatIsEntered) {
  for (Long type = 1; type <= 30; ++type) {
    for (Long format = 1; format <= 5; ++format) {
      const auto variable = Of(type);
      variable->SetTouchWithoutLoadingPropertyBag(-2);
      handler_->formatType = format;
      const enTouchStyle expected = type == 6 && format >= 2 && format <= 4 ? eTS_Calendar
                                    : type == 15                            ? eTS_Alphanumeric
                                                                            : eTS_Keypad_Entry;
      EXPECT_EQ(GetTouchStyle(*variable), expected) << type << ' ' << format;
    }
  }
}

TEST_F(Variable, WithoutATouchIsStyledByItsType) {
  for (Long type = 1; type <= 30; ++type) {
    for (const bool isSwitch : {false, true}) {
      const auto variable = Of(type);
      handler_->isSwitch = isSwitch;
      const enTouchStyle expected = (type == 1 || type == 2) && isSwitch ? eTS_Switch
                                    : type == 23                         ? eTS_Trend
                                    : type == 27                         ? eTS_SDTrend
                                    : type == 28                         ? eTS_SDBrowser
                                                                         : eTS_None;
      EXPECT_EQ(GetTouchStyle(*variable), expected) << type << ' ' << isSwitch;
      for (const Long touch : {-3, 0, 7}) {
        variable->SetTouchWithoutLoadingPropertyBag(touch);
        EXPECT_EQ(GetTouchStyle(*variable), eTS_MB_Connected) << type << ' ' << touch;
      }
    }
  }
}

TEST_F(Variable, ATextForABitIsASwitchWhereItsOwnHandlerIs) {
  clsVar variable;
  EXPECT_EQ(GetTouchStyle(variable), eTS_None);
  PutByName(*variable.BinaryHandlers(eVT_BinaryText), "Switch", true);
  EXPECT_EQ(GetTouchStyle(variable), eTS_Switch);
}

}  // namespace
}  // namespace quenzel7
