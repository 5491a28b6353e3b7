#pragma once

#include <string>
#include <type_traits>

#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/platform.h"

namespace quenzel7 {

/// The section of the settings that keeps the defaults of new elements.
inline constexpr Long kElementDefaults = 6000;

/// The keys in that section.
enum class ElementDefault : Long {
  FrameColorBack = 6018,
  FrameColorFore = 6019,
  TextColorBack = 6020,
  TextColorFore = 6021,
  LineColor = 6022,
  FrameAlignment = 6039,
  TextAlignment = 6040,
  FrameStyle = 6042,
  TextStyle = 6043,
  FlatFrameColorBack = 6045,
  FlatTextColorBack = 6046,
  LineWidth = 6049,
  RectangleWidth = 6050,
  RectangleColor = 6051,
  RoundRectColor = 6052,
  EllipseColor = 6053,
  FlatTextColorBackTouch = 6057,
  TextColorBackTouch = 6058,
  TextColorForeTouch = 6059,
};

/// A number among the defaults of new elements, or the fall-back; halves are rounded to the even number.
/// Error 13 when the text kept there is no number, 6 when the number does not fit T; both tell section and
/// key.
template <class T = Long>
T ElementSetting(ElementDefault key, const std::string& fallback) {
  const auto number = static_cast<Long>(key);
  const std::string text = Platform::Current().settings->GetSetting(kElementDefaults, number, fallback);
  try {
    const Long value = automation::LongFromText(text);
    if constexpr (std::is_same_v<T, Integer>) {
      return automation::ToInteger(value);
    } else {
      return value;
    }
  } catch (const automation::AutomationError& error) {
    throw error.In("setting " + std::to_string(kElementDefaults) + "/" + std::to_string(number));
  }
}

}  // namespace quenzel7
