#include "variables/var_types.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <utility>

#include "platform/automation/array.h"
#include "tests/support/raises.h"
#include "tests/support/variable_fixture.h"
#include "variables/text/numeric.h"

namespace quenzel7 {
namespace {

using test::CallLog;
using test::ErrorOf;
using test::TypeOf;

using TypeOfVariable = test::VariableTest;

/// The class of the handler of each type that has one.
const std::map<Long, std::string> kClasses = {
    {2, "clsVarBinaryText"}, {3, "clsVarListText"}, {8, "clsVarNumeric"},        {9, "clsVarBargraph"},
    {11, "clsVarRangeText"}, {13, "clsVarNumeric"}, {15, "clsVarDisplayString"},
};

/// The settings that tell the background of each type that has one of its own.
const std::map<Long, Long> kColorBackKeys = {
    {2, 6060},  {3, 6062},  {5, 6092},  {6, 6082},  {7, 6086},  {8, 6066},
    {11, 6064}, {13, 6072}, {15, 6070}, {16, 6088}, {19, 6084}, {21, 6076},
    {22, 6077}, {24, 6079}, {25, 6078}, {28, 6090}, {29, 6068}, {30, 6074},
};

/// Panels of whatever type.
class PanelDouble final : public corvane1::PanelService {
 public:
  Long current = 0;
  bool fails = false;

  corvane1::PanelValues SelectPanel(Long) override { return {}; }
  Long CurrentPanelType() override {
    if (fails) throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no panel");
    return current;
  }
  corvane1::PanelModel Model(Long) override { return {}; }
};

// --- Sets and names ---

TEST(SetOfTypes, HasWhatItIsMadeOf) {
  constexpr VarTypes kSome = {eVT_None, eVT_BinaryImage, eVT_PassString};
  for (Long type = 0; type <= 30; ++type) EXPECT_EQ(kSome.Has(type), type <= 1 || type == 30) << type;
  for (const Long outside : {-1, 31, 32, 33, 62, -31, -32}) {
    EXPECT_FALSE(kSome.Has(outside));
    EXPECT_FALSE(VarTypes({}).Has(outside));
  }
}

TEST(SettingOfABackground, IsThatOfTheTable) {
  for (Long type = -1; type <= 31; ++type) {
    const auto key = kColorBackKeys.find(type);
    const auto setting = ColorBackSettingOf(type);
    ASSERT_EQ(setting.has_value(), key != kColorBackKeys.end()) << type;
    if (!setting) continue;
    EXPECT_EQ(static_cast<Long>(*setting), key->second) << type;
  }
}

TEST(NameOfAType, IsEmptyForWhatIsNone) {
  for (const Long type : {-1, 0, 14, 26, 29, 31}) EXPECT_EQ(VarTypeName(type), "") << type;
}

// --- Handlers ---

TEST_F(TypeOfVariable, HasTheHandlerOfItsClass) {
  for (Long type = 1; type <= 30; ++type) {
    clsVar variable;
    const HandlerRef handler = variable.BinaryHandlers(TypeOf(type));
    const auto expected = kClasses.find(type);
    ASSERT_EQ(handler != nullptr, expected != kClasses.end()) << type;
    if (!handler) continue;
    EXPECT_EQ(handler->Class().name, expected->second) << type;
    EXPECT_EQ(variable.BinaryHandlers(TypeOf(type)), handler);
    EXPECT_EQ(variable.VarType(), eVT_BinaryText);
    EXPECT_NE(NewHandler(type), NewHandler(type));
  }
  for (const Long outside : {-1, 0, 31, 32}) {
    EXPECT_EQ(clsVar().BinaryHandlers(TypeOf(outside)), nullptr);
    EXPECT_EQ(NewHandler(outside), nullptr);
  }
}

TEST_F(TypeOfVariable, EachHasAHandlerOfItsOwn) {
  clsVar variable;
  std::set<HandlerRef> handlers;
  for (const auto& [type, name] : kClasses) handlers.insert(variable.BinaryHandlers(TypeOf(type)));
  EXPECT_EQ(handlers.size(), kClasses.size());
}

TEST_F(TypeOfVariable, APasswordIsANumberInAColourOfItsOwn) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  const auto colorOf = [](const HandlerRef& handler) {
    return std::dynamic_pointer_cast<clsVarNumeric>(handler)->ColorFore();
  };
  const HandlerRef number = NewHandler(8);
  EXPECT_EQ(std::count(settings->asked.begin(), settings->asked.end(), "6000/6073/5"), 0);
  settings->asked.clear();
  EXPECT_EQ(colorOf(NewHandler(13)), 5);
  EXPECT_EQ(settings->asked.back(), "6000/6073/5");
  settings->asked.clear();
  settings->answer = "1";
  const Long color = colorOf(NewHandler(13));
  EXPECT_EQ(std::to_string(color), "1" + std::to_string(settings->asked.size()) + "3");
}

TEST_F(TypeOfVariable, AHandlerIsPutInThePlaceOfItsType) {
  clsVar variable;
  const auto other = NewHandlerDouble("other");
  for (Long type = 1; type <= 30; ++type) {
    variable.SetBinaryHandler(TypeOf(type), handler_);
    EXPECT_EQ(variable.BinaryHandlers(TypeOf(type)), handler_) << type;
    variable.SetBinaryHandler(TypeOf(type), other);
    EXPECT_EQ(variable.BinaryHandlers(TypeOf(type)), other) << type;
    variable.VarType(TypeOf(type));
    EXPECT_EQ(variable.BinaryHandlers(TypeOf(type)), other) << type;
    variable.SetBinaryHandler(TypeOf(type), nullptr);
    const HandlerRef made = variable.BinaryHandlers(TypeOf(type));
    EXPECT_EQ(made != nullptr, kClasses.count(type) == 1);
    variable.SetBinaryHandler(TypeOf(type), nullptr);
  }
  for (const Long outside : {-1, 0, 31, 2147483647}) {
    EXPECT_RAISES(9, "a handler of type " + std::to_string(outside) + " was given, there are types 1 to 30",
                  variable.SetBinaryHandler(TypeOf(outside), handler_));
  }
}

TEST_F(TypeOfVariable, SwitchedAndBackKeepsTheSettingsOfItsHandler) {
  clsVar variable;
  variable.VarType(eVT_Numeric);
  variable.OperandType(3);
  variable.OperandAddress(44);
  const HandlerRef number = variable.BinaryHandlers(eVT_Numeric);
  std::dynamic_pointer_cast<clsVarNumeric>(number)->Format("999.9");
  variable.VarType(eVT_DisplayString);
  EXPECT_EQ(variable.OperandType(), 0);
  EXPECT_EQ(variable.OperandAddress(), 0);
  variable.OperandAddress(9);
  variable.VarType(eVT_Numeric);
  EXPECT_EQ(variable.BinaryHandlers(eVT_Numeric), number);
  EXPECT_EQ(variable.OperandType(), 3);
  EXPECT_EQ(variable.OperandAddress(), 44);
  EXPECT_EQ(std::dynamic_pointer_cast<clsVarNumeric>(number)->Format(), "999.9");
}

TEST_F(TypeOfVariable, WithoutAClassHasNoHandlerToAsk) {
  const gdi::Surface surface(4, 4);
  for (Long type = 0; type <= 31; ++type) {
    if (kClasses.count(type)) continue;
    clsVar variable;
    variable.VarType(TypeOf(type));
    variable.ID(5);
    EXPECT_EQ(variable.VarType(), type);
    ItfHmiElement& element = variable;
    Descriptor size;
    automation::Variant table;
    const std::string description = "variable 5 of type " + std::to_string(type) + " has no handler";
    EXPECT_RAISES(91, description, variable.OperandType());
    EXPECT_EQ(ErrorOf([&] { variable.OperandAddress(4); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { variable.GetDataCRC(); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { variable.BuildOpPropBag(); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { variable.BuildImageList(); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { element.Draw(surface.Dc(), false); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { element.Stretch(0, 0, 0); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { element.GetOptimalDimensions(size.xs, size.ys, size.dx, size.dy); }), 91) << type;
    EXPECT_EQ(ErrorOf([&] { element.SetNewFontNumberByLookUpTBL(table); }), 91) << type;
    const bool told = type == 5 || type == 13 || type == 30;
    EXPECT_EQ(ErrorOf([&] { element.GetToolTipText(); }), told ? 0 : 91) << type;
    const bool isPictureList = type == 1 || type == 4 || type == 12;
    EXPECT_EQ(ErrorOf([&] { element.Rotate(); }), isPictureList ? 91 : 0) << type;
    EXPECT_EQ(ErrorOf([&] { element.InvertColors(); }), isPictureList ? 91 : 0) << type;
    const bool isColorless = isPictureList || type == 18 || type == 20;
    EXPECT_EQ(ErrorOf([&] { element.ColorFore(1); }), isColorless ? 0 : 91) << type;
    EXPECT_EQ(ErrorOf([&] { element.UpdateBoundingRectangle(1, 1, 1); }), type == 6 || type == 21 ? 91 : 0)
        << type;
    automation::Variant map = automation::Array(automation::VariantKind::Byte, automation::Bounds{0, 99},
                                                automation::Bounds{0, 99});
    EXPECT_EQ(ErrorOf([&] { element.GetTransformState(map); }), type == 20 ? 91 : 0) << type;
    // An address is stored all the same, and what comes before the handler is done.
    EXPECT_EQ(ErrorOf([&] { variable.EnabledOpAddr(30); }), 91) << type;
    EXPECT_EQ(variable.EnabledOpAddr(), 30);
    variable.SetTouchWithoutLoadingPropertyBag(22);
    Define(22);
    Connection().Execute("INSERT INTO HMI_Operands (ElementID) VALUES (5)");
    EXPECT_EQ(ErrorOf([&] { variable.DeleteAllOperands(); }), 91) << type;
    EXPECT_EQ(OperandRows(), CallLog{});
    EXPECT_FALSE(IsDefined(22));
    EXPECT_EQ(ErrorOf([&] { variable.RestoreAllOperands(); }), 9) << type;
    variable.SetTouchWithoutLoadingPropertyBag(-1);
    EXPECT_EQ(ErrorOf([&] { variable.RestoreAllOperands(); }), 91) << type;
  }
}

/// A handler of the host's own that has nothing but the contract.
class ForeignHandler final : public ItfVarBinaryHandler {
 public:
  explicit ForeignHandler(ElementRef drawing) : drawing_(std::move(drawing)) {}
  const automation::ClassInfo& Class() const override {
    static const automation::Interface* const interfaces[] = {&InterfaceOf()};
    static const automation::ClassInfo info{"ForeignHandler", interfaces, nullptr};
    return info;
  }

 private:
  ElementRef ItfVarBinaryHandler_DrawingElement() const override { return drawing_; }

  ElementRef drawing_;
};

TEST_F(TypeOfVariable, AHandlerOfAForeignClassServesAsFarAsTheContractGoes) {
  const gdi::Surface surface(4, 4);
  const auto of = [&](Long type) {
    auto variable = Of(type);
    variable->SetBinaryHandler(TypeOf(type), std::make_shared<ForeignHandler>(element_));
    return variable;
  };
  const auto draws = [&](Long type) {
    return ErrorOf([&] { static_cast<ItfHmiElement&>(*of(type)).Draw(surface.Dc(), false); });
  };
  for (const Long type : {9, 21, 22, 23, 24, 25, 27}) EXPECT_EQ(draws(type), 13) << type;
  for (const Long type : {2, 3, 8, 11, 13, 29, 30}) EXPECT_EQ(draws(type), 13) << type;
  for (const Long type : {1, 4, 5, 6, 7, 12, 15, 16, 18, 19, 20, 28}) EXPECT_EQ(draws(type), 0) << type;
  EXPECT_EQ(ErrorOf([&] { of(2)->Flat3D(1); }), 13);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*of(9)).ColorFore(1); }), 13);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*of(21)).UpdateBoundingRectangle(1, 1, 1); }), 13);
  EXPECT_EQ(ErrorOf([&] { of(8)->GetDataCRC(); }), 0);
}

TEST_F(TypeOfVariable, AHandlerWithoutAnElementHasNothingToDraw) {
  const gdi::Surface surface(4, 4);
  const auto variable = Of(5);
  variable->SetBinaryHandler(eVT_DateTime, std::make_shared<ForeignHandler>(nullptr));
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).Draw(surface.Dc(), false); }), 91);
  EXPECT_EQ(ErrorOf([&] { static_cast<ItfHmiElement&>(*variable).ColorFore(1); }), 91);
}

TEST_F(TypeOfVariable, AtTheEndEveryHandlerIsReleasedOnceInTheOrderOfTypes) {
  CallLog expected;
  {
    clsVar variable;
    for (Long type = 30; type >= 1; --type) {
      if (type == 7 || type == 14) continue;
      variable.SetBinaryHandler(TypeOf(type), NewHandlerDouble(std::to_string(type)));
    }
    TakeLog();
  }
  for (Long type = 1; type <= 30; ++type) {
    if (type != 7 && type != 14) expected.push_back(std::to_string(type) + ".ReleaseResources()");
  }
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(TypeOfVariable, AtTheEndAHandlerThatFailsLeavesTheOthersToBeReleased) {
  CallLog expected;
  {
    clsVar variable;
    for (Long type = 1; type <= 30; ++type) {
      const auto handler = NewHandlerDouble(std::to_string(type));
      handler->during = [](const std::string&) {
        throw automation::AutomationError(automation::ErrorNumber::InvalidProcedureCall, "no");
      };
      variable.SetBinaryHandler(TypeOf(type), handler);
      expected.push_back(std::to_string(type) + ".ReleaseResources()");
    }
    TakeLog();
  }
  EXPECT_EQ(TakeLog(), expected);
}

TEST_F(TypeOfVariable, AtTheEndAHandlerMayStillAskTheVariable) {
  {
    clsVar variable;
    auto asking = NewHandlerDouble("asking");
    const std::weak_ptr<test::HandlerDouble> held = asking;
    asking->during = [this, &variable, &held](const std::string&) {
      EXPECT_EQ(variable.BinaryHandlers(TypeOf(10)), nullptr);
      variable.SetBinaryHandler(TypeOf(10), nullptr);
      EXPECT_FALSE(held.expired());
      variable.SetBinaryHandler(TypeOf(9), NewHandlerDouble("too late"));
      variable.SetBinaryHandler(TypeOf(11), NewHandlerDouble("other"));
    };
    variable.SetBinaryHandler(TypeOf(10), std::move(asking));
    variable.SetBinaryHandler(TypeOf(11), NewHandlerDouble("replaced"));
    TakeLog();
  }
  EXPECT_EQ(TakeLog(), (CallLog{"asking.ReleaseResources()", "other.ReleaseResources()"}));
}

// --- Writing the type ---

TEST_F(TypeOfVariable, WritingItTakesTheBackgroundOfTheTypeFromTheSettings) {
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  for (Long type = 0; type <= 31; ++type) {
    clsVar variable;
    if (type >= 1 && type <= 30) variable.SetBinaryHandler(TypeOf(type), handler_);
    variable.ColorBack(77);
    variable.ColorBackTouch(78);
    settings->asked.clear();
    settings->answer = "9";
    variable.VarType(TypeOf(type));
    settings->answer = "";
    const auto key = kColorBackKeys.find(type);
    if (key == kColorBackKeys.end()) {
      EXPECT_EQ(settings->asked, CallLog{}) << type;
      EXPECT_EQ(variable.ColorBack(), 77) << type;
    } else {
      EXPECT_EQ(settings->asked, CallLog{"6000/" + std::to_string(key->second) + "/103"}) << type;
      EXPECT_EQ(variable.ColorBack(), 910 + key->second % 10) << type;
    }
    EXPECT_EQ(variable.ColorBackTouch(), 78) << type;
  }
}

TEST_F(TypeOfVariable, WritingItLeavesTheStyleButOfTypesThatAreFlat) {
  for (Long type = 0; type <= 31; ++type) {
    for (const Long style : {0, 1, 2, 3}) {
      clsVar variable;
      variable.Flat3D(Long{2});
      variable.SetBinaryHandler(eVT_BinaryText, handler_);
      variable.Flat3D(style);
      variable.VarType(TypeOf(type));
      const bool isFlat = type == 1 || type == 4 || type == 12 || type == 20 || type == 21 || type == 22;
      EXPECT_EQ(variable.Flat3D(), isFlat ? 0 : style) << type << ' ' << style;
    }
  }
}

TEST_F(TypeOfVariable, WritingItTakesTheFontOfStringsOnTwoPanels) {
  const auto panels = std::make_shared<PanelDouble>();
  Platform::Current().panelService = panels;
  for (Long panel = 11; panel <= 16; ++panel) {
    panels->current = panel;
    for (Long type = 0; type <= 31; ++type) {
      clsVar variable;
      variable.DescriptionFontNumber(6);
      variable.FontNumber(7);
      variable.VarType(TypeOf(type));
      const bool takes = (panel == 13 || panel == 14) && (type == 15 || type == 30);
      EXPECT_EQ(variable.DescriptionFontNumber(), takes ? 246995310 : 6) << panel << ' ' << type;
      EXPECT_EQ(variable.FontNumber(), 7);
    }
  }
}

TEST_F(TypeOfVariable, AHostThatTellsNoPanelLeavesItAsItWas) {
  clsVar variable;
  const Long before = variable.ColorBack();
  const auto settings = std::make_shared<test::TracedSettings>();
  Platform::Current().settings = settings;
  const auto panels = std::make_shared<PanelDouble>();
  Platform::Current().panelService = panels;
  panels->fails = true;
  for (const Long type : {8, 21}) {
    EXPECT_EQ(ErrorOf([&] { variable.VarType(TypeOf(type)); }), 5);
    EXPECT_EQ(variable.VarType(), eVT_BinaryText);
    EXPECT_EQ(variable.ColorBack(), before);
    EXPECT_EQ(variable.Flat3D(), 3);
  }
  // No handler was made, which would have looked for its colours.
  EXPECT_EQ(settings->asked, CallLog{});
}

/// Does something once, when it is asked for the first time.
class ActingSettings final : public corvane1::Settings {
 public:
  std::function<void()> act;

  std::string GetSetting(Long, Long, const std::string& fallback) override {
    if (act) std::exchange(act, nullptr)();
    return fallback;
  }
};

TEST_F(TypeOfVariable, AHandlerThatAHostPutsThereWhileOneIsMadeStays) {
  clsVar variable;
  const auto settings = std::make_shared<ActingSettings>();
  Platform::Current().settings = settings;
  settings->act = [&] { variable.SetBinaryHandler(eVT_Numeric, handler_); };
  EXPECT_EQ(variable.BinaryHandlers(eVT_Numeric), handler_);
  EXPECT_EQ(settings->act, nullptr);
  EXPECT_EQ(variable.BinaryHandlers(eVT_Numeric), handler_);
}

TEST_F(TypeOfVariable, IsWrittenAndItsHandlerMadeBeforeTheSettingsAreAsked) {
  clsVar variable;
  const Long before = variable.ColorBack();
  const auto settings = std::make_shared<test::TracedSettings>();
  settings->answer = "blue";
  Platform::Current().settings = settings;
  variable.SetBinaryHandler(eVT_Meter, handler_);
  EXPECT_EQ(ErrorOf([&] { variable.VarType(eVT_Meter); }), 13);
  EXPECT_EQ(variable.VarType(), eVT_Meter);
  EXPECT_EQ(variable.ColorBack(), before);
  EXPECT_EQ(variable.Flat3D(), 3);
  // A handler that cannot be made.
  EXPECT_EQ(ErrorOf([&] { variable.VarType(eVT_Numeric); }), 13);
  EXPECT_EQ(variable.VarType(), eVT_Numeric);
  settings->answer = "";
  EXPECT_NE(variable.BinaryHandlers(eVT_Numeric), nullptr);
}

}  // namespace
}  // namespace quenzel7
