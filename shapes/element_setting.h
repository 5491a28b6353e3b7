#pragma once

#include <string>

#include "platform/automation/automation_error.h"
#include "platform/automation/convert.h"
#include "platform/platform.h"

namespace quenzel7 {

/// The section of the settings that keeps the defaults of new elements.
inline constexpr Long kElementDefaults = 6000;

/// The keys in that section.
enum class ElementDefault : Long {
  LineColor = 6022,
  LineWidth = 6049,
  RectangleWidth = 6050,
  RectangleColor = 6051,
  RoundRectColor = 6052,
  EllipseColor = 6053,
};

/// A number among the defaults of new elements, or the fall-back; halves are rounded to the even number.
/// Error 13 when the text kept there is no number, 6 when the number does not fit 32 bits; both tell section
/// and key.
inline Long ElementSetting(ElementDefault key, const std::string& fallback) {
  const auto number = static_cast<Long>(key);
  const std::string text = Platform::Current().settings->GetSetting(kElementDefaults, number, fallback);
  try {
    return automation::LongFromText(text);
  } catch (const automation::AutomationError& error) {
    throw error.In("setting " + std::to_string(kElementDefaults) + "/" + std::to_string(number));
  }
}

}  // namespace quenzel7
