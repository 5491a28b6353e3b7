#include "framework/touch_style.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/automation/member.h"
#include "tests/support/raises.h"

namespace quenzel7 {
namespace {

using automation::ClassInfo;
using automation::Interface;
using automation::Member;
using automation::Object;
using automation::ObjectRef;
using automation::Property;

using Asked = std::vector<std::string>;

/// Stands for a variable's handler that can be a switch.
class SwitchHandler final : public Object {
 public:
  explicit SwitchHandler(bool isSwitch) : isSwitch_(isSwitch) {}
  bool Switch() const { return isSwitch_; }
  const ClassInfo& Class() const override {
    static const Member members[] = {
        Property<bool>("Switch", "", AUTOMATION_GETTER(SwitchHandler, Switch), nullptr)};
    static const Interface interface("_SwitchHandler", members);
    static const Interface* const interfaces[] = {&interface};
    static const ClassInfo info{"SwitchHandler", interfaces, nullptr};
    return info;
  }

 private:
  bool isSwitch_;
};

/// One that keeps the answer as a 32-bit number, as handlers do.
class NumberedSwitchHandler final : public Object {
 public:
  explicit NumberedSwitchHandler(Long isSwitch) : isSwitch_(isSwitch) {}
  Long Switch() const { return isSwitch_; }
  const ClassInfo& Class() const override {
    static const Member members[] = {
        Property<Long>("Switch", "", AUTOMATION_GETTER(NumberedSwitchHandler, Switch), nullptr)};
    static const Interface interface("_SwitchHandler", members);
    static const Interface* const interfaces[] = {&interface};
    static const ClassInfo info{"SwitchHandler", interfaces, nullptr};
    return info;
  }

 private:
  Long isSwitch_;
};

/// Stands for a variable, and notes what it is asked.
class VariableDouble final : public ItfHmiElement {
 public:
  Long touch = -1;
  enVarType type = eVT_BinaryText;
  bool isCalendar = false;
  ObjectRef handler;
  /// Whether hosts see IsCalendarVar as a method.
  bool asMethod = false;
  std::string_view className = "clsVar";
  mutable Asked asked;

  enVarType VarType() const {
    asked.push_back("VarType");
    return type;
  }
  bool IsCalendarVar() const {
    asked.push_back("IsCalendarVar");
    return isCalendar;
  }
  ObjectRef BinaryHandlers(enVarType pVarType) const {
    asked.push_back("BinaryHandlers " + std::to_string(pVarType));
    return handler;
  }

  const ClassInfo& Class() const override {
    static constexpr Member kType =
        Property<enVarType>("VarType", "", AUTOMATION_GETTER(VariableDouble, VarType), nullptr);
    static constexpr Member kHandlers =
        automation::Method<VariableDouble, &VariableDouble::BinaryHandlers>("BinaryHandlers", "");
    static const Member members[] = {
        kType, kHandlers,
        Property<bool>("IsCalendarVar", "", AUTOMATION_GETTER(VariableDouble, IsCalendarVar), nullptr)};
    static const Member methods[] = {
        kType, kHandlers,
        automation::Method<VariableDouble, &VariableDouble::IsCalendarVar>("IsCalendarVar", "")};
    static const Interface interface("_clsVar", members);
    static const Interface methodInterface("_clsVar", methods);
    static const Interface* const interfaces[] = {&interface, &InterfaceOf()};
    static const Interface* const methodInterfaces[] = {&methodInterface, &InterfaceOf()};
    class_ = asMethod ? ClassInfo{className, methodInterfaces, nullptr}
                      : ClassInfo{className, interfaces, nullptr};
    return class_;
  }

 private:
  Long ItfHmiElement_TouchOprndAddr() const override { return touch; }
  Long ItfHmiElement_ElementType() const override { return 5; }

  mutable ClassInfo class_;
};

/// The style of a variable, and what it was asked.
std::pair<enTouchStyle, Asked> StyleOf(VariableDouble& variable) {
  const enTouchStyle style = GetTouchStyle(variable);
  return {style, std::exchange(variable.asked, {})};
}

TEST(TouchStyleOfAVariable, WithAKeypadDependsOnWhatIsEntered) {
  VariableDouble variable;
  variable.touch = -2;
  for (Long type = 0; type <= 31; ++type) {
    variable.type = static_cast<enVarType>(type);
    variable.isCalendar = false;
    EXPECT_EQ(StyleOf(variable), std::make_pair(type == 15 ? eTS_Alphanumeric : eTS_Keypad_Entry,
                                                Asked{"IsCalendarVar", "VarType"}))
        << type;
    variable.isCalendar = true;
    EXPECT_EQ(StyleOf(variable), std::make_pair(eTS_Calendar, Asked{"IsCalendarVar"})) << type;
  }
}

TEST(TouchStyleOfAVariable, AnswersWhetherItIsACalendarByAMethodToo) {
  VariableDouble variable;
  variable.touch = -2;
  variable.asMethod = true;
  EXPECT_EQ(GetTouchStyle(variable), eTS_Keypad_Entry);
  variable.isCalendar = true;
  EXPECT_EQ(GetTouchStyle(variable), eTS_Calendar);
}

TEST(TouchStyleOfAVariable, WithoutATouchDependsOnItsType) {
  VariableDouble variable;
  variable.touch = -1;
  variable.isCalendar = true;
  for (Long type = 0; type <= 31; ++type) {
    if (type == 1 || type == 2) continue;
    variable.type = static_cast<enVarType>(type);
    const enTouchStyle expected = type == 23   ? eTS_Trend
                                  : type == 27 ? eTS_SDTrend
                                  : type == 28 ? eTS_SDBrowser
                                               : eTS_None;
    EXPECT_EQ(StyleOf(variable), std::make_pair(expected, Asked{"VarType"})) << type;
  }
}

TEST(TouchStyleOfAVariable, OfAPictureOrTextForOffAndOnIsASwitchWhereItsHandlerIs) {
  VariableDouble variable;
  for (const Long type : {1, 2}) {
    variable.type = static_cast<enVarType>(type);
    const Asked asked = {"VarType", "BinaryHandlers " + std::to_string(type)};
    variable.handler = std::make_shared<SwitchHandler>(true);
    EXPECT_EQ(StyleOf(variable), std::make_pair(eTS_Switch, asked));
    variable.handler = std::make_shared<SwitchHandler>(false);
    EXPECT_EQ(StyleOf(variable), std::make_pair(eTS_None, asked));
  }
}

TEST(TouchStyleOfAVariable, TakesEveryNumberOfTheHandlerBut0ForASwitch) {
  VariableDouble variable;
  for (const Long type : {1, 2}) {
    variable.type = static_cast<enVarType>(type);
    for (const Long isSwitch : {-1, 0, 1, 2}) {
      variable.handler = std::make_shared<NumberedSwitchHandler>(isSwitch);
      EXPECT_EQ(GetTouchStyle(variable), isSwitch == 0 ? eTS_None : eTS_Switch) << isSwitch;
    }
  }
}

TEST(TouchStyleOfAVariable, NeedsTheHandlerThatItAsks) {
  VariableDouble variable;
  EXPECT_EQ(test::ErrorOf([&] { GetTouchStyle(variable); }), 91);
  variable.handler = std::make_shared<VariableDouble>();
  EXPECT_RAISES(438, "_clsVar.Switch does not exist; nearest is \"VarType\"", GetTouchStyle(variable));
}

TEST(TouchStyleOfAVariable, WithAnyOtherAddressIsConnectedToABit) {
  VariableDouble variable;
  variable.type = eVT_Trend;
  variable.isCalendar = true;
  for (const Long touch : {-2147483647, -3, 0, 1, 2147483647}) {
    variable.touch = touch;
    EXPECT_EQ(StyleOf(variable), std::make_pair(eTS_MB_Connected, Asked{})) << touch;
  }
}

TEST(TouchStyleOfAVariable, IsOnlyThatOfTheClassOfThatName) {
  VariableDouble variable;
  variable.type = eVT_Trend;
  for (const std::string_view name : {"clsVarTrend", "clsva", "Var", ""}) {
    variable.className = name;
    EXPECT_EQ(StyleOf(variable), std::make_pair(eTS_None, Asked{})) << name;
  }
}

/// An element that is no variable.
class ElementDouble final : public ItfHmiElement {
 public:
  Long type = 1, touch = -1, back = 0, backTouch = 0, fore = 0, foreTouch = 0;

  const ClassInfo& Class() const override {
    static const Interface* const interfaces[] = {&InterfaceOf()};
    static const ClassInfo info{"clsButton", interfaces, nullptr};
    return info;
  }

 private:
  Long ItfHmiElement_ElementType() const override { return type; }
  Long ItfHmiElement_TouchOprndAddr() const override { return touch; }
  Long ItfHmiElement_ColorBack() const override { return back; }
  Long ItfHmiElement_ColorBackTouch() const override { return backTouch; }
  Long ItfHmiElement_ColorFore() const override { return fore; }
  Long ItfHmiElement_ColorForeTouch() const override { return foreTouch; }
};

TEST(TouchStyleOfAnElement, WithoutAnOperandIsNone) {
  ElementDouble element;
  element.type = 11;
  element.backTouch = 1;
  for (const Long touch : {-1, -2, -3}) {
    element.touch = touch;
    EXPECT_EQ(GetTouchStyle(element), eTS_None) << touch;
  }
  element.touch = 0;
  EXPECT_EQ(GetTouchStyle(element), eTS_ChangeColors);
}

TEST(TouchStyleOfAnElement, ChangesColorsWhereAButtonOrATextHasOthersForATouch) {
  const struct {
    Long back, backTouch, fore, foreTouch;
    bool differ;
  } colors[] = {{1, 1, 2, 2, false}, {1, 1, 1, 1, false}, {1, 2, 3, 3, true},
                {1, 1, 3, 4, true},  {1, 2, 3, 4, true},  {1, 2, 2, 1, true}};
  for (Long type = 0; type <= 14; ++type) {
    for (const auto& row : colors) {
      ElementDouble element;
      element.type = type;
      element.touch = 5;
      element.back = row.back;
      element.backTouch = row.backTouch;
      element.fore = row.fore;
      element.foreTouch = row.foreTouch;
      const bool looks = type == 4 || type == 11;
      EXPECT_EQ(GetTouchStyle(element), looks && row.differ ? eTS_ChangeColors : eTS_MB_Connected) << type;
    }
  }
}

}  // namespace
}  // namespace quenzel7
