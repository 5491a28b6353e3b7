#include "framework/touch_style.h"

#include "framework/element_types.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"

namespace quenzel7 {
namespace {

using automation::Object;
using automation::Variant;

/// The address of no touch at all.
constexpr Long kNoTouch = -1;

/// What the object answers under that name, be it a property or a method without arguments.
template <class T>
T Ask(Object& object, std::string_view name) {
  const automation::Member* member = object.Class().Default().Find(name);
  const bool isMethod = member && member->IsMethod();
  return automation::To<T>(automation::CallByName(
      object, name, isMethod ? automation::CallKind::Method : automation::CallKind::Get));
}

bool IsSwitch(Object& variable, enVarType type) {
  const Variant handler = automation::InvokeByName(variable, "BinaryHandlers", {Long{type}});
  return Ask<bool>(automation::ToReference<Object>(handler), "Switch");
}

enTouchStyle KeypadStyle(Object& variable) {
  if (Ask<bool>(variable, "IsCalendarVar")) return eTS_Calendar;
  return Ask<enVarType>(variable, "VarType") == eVT_DisplayString ? eTS_Alphanumeric : eTS_Keypad_Entry;
}

/// Of a variable that no operand makes touchable: some types react to a touch by themselves.
enTouchStyle StyleOfType(Object& variable) {
  const auto type = Ask<enVarType>(variable, "VarType");
  switch (type) {
    case eVT_BinaryImage:
    case eVT_BinaryText:
      return IsSwitch(variable, type) ? eTS_Switch : eTS_None;
    case eVT_Trend:
      return eTS_Trend;
    case eVT_SDTrendViewer:
      return eTS_SDTrend;
    case eVT_SDBrowser:
      return eTS_SDBrowser;
    default:
      return eTS_None;
  }
}

enTouchStyle VariableStyle(ItfHmiElement& variable) {
  switch (variable.TouchOprndAddr()) {
    case kKeypadTouch:
      return KeypadStyle(variable);
    case kNoTouch:
      return StyleOfType(variable);
    default:
      return eTS_MB_Connected;
  }
}

bool ChangesColors(const ItfHmiElement& element) {
  const Long type = element.ElementType();
  if (type != kButtonElement && type != kTextElement) return false;
  return element.ColorBackTouch() != element.ColorBack() || element.ColorForeTouch() != element.ColorFore();
}

}  // namespace

enTouchStyle GetTouchStyle(ItfHmiElement& element) {
  if (element.Class().name == "clsVar") return VariableStyle(element);
  if (element.TouchOprndAddr() < 0) return eTS_None;
  return ChangesColors(element) ? eTS_ChangeColors : eTS_MB_Connected;
}

}  // namespace quenzel7
