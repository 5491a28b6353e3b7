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

/// The keys in that section: name, number, type of the value.
#define QUENZEL7_ELEMENT_DEFAULTS(KEY)      \
  KEY(ButtonColorBack, 6016, Long)          \
  KEY(ButtonColorFore, 6017, Long)          \
  KEY(FrameColorBack, 6018, Long)           \
  KEY(FrameColorFore, 6019, Long)           \
  KEY(TextColorBack, 6020, Long)            \
  KEY(TextColorFore, 6021, Long)            \
  KEY(LineColor, 6022, Long)                \
  KEY(ButtonAlignment, 6038, Integer)       \
  KEY(FrameAlignment, 6039, Integer)        \
  KEY(TextAlignment, 6040, Integer)         \
  KEY(ButtonStyle, 6041, Long)              \
  KEY(FrameStyle, 6042, Long)               \
  KEY(TextStyle, 6043, Long)                \
  KEY(FlatButtonColorBack, 6044, Long)      \
  KEY(FlatFrameColorBack, 6045, Long)       \
  KEY(FlatTextColorBack, 6046, Long)        \
  KEY(ButtonTransparency, 6047, Long)       \
  KEY(BitmapTransparency, 6048, Long)       \
  KEY(LineWidth, 6049, Long)                \
  KEY(RectangleWidth, 6050, Long)           \
  KEY(RectangleColor, 6051, Long)           \
  KEY(RoundRectColor, 6052, Long)           \
  KEY(EllipseColor, 6053, Long)             \
  KEY(FlatButtonColorBackTouch, 6054, Long) \
  KEY(ButtonColorBackTouch, 6055, Long)     \
  KEY(ButtonColorForeTouch, 6056, Long)     \
  KEY(FlatTextColorBackTouch, 6057, Long)   \
  KEY(TextColorBackTouch, 6058, Long)       \
  KEY(TextColorForeTouch, 6059, Long)       \
  KEY(BinaryTextColorBack, 6060, Long)      \
  KEY(BinaryTextColorFore, 6061, Long)      \
  KEY(ListTextColorBack, 6062, Long)        \
  KEY(ListTextColorFore, 6063, Long)        \
  KEY(RangeTextColorBack, 6064, Long)       \
  KEY(RangeTextColorFore, 6065, Long)       \
  KEY(NumericColorBack, 6066, Long)         \
  KEY(NumericColorFore, 6067, Long)         \
  KEY(NumericRangeColorBack, 6068, Long)    \
  KEY(StringColorBack, 6070, Long)          \
  KEY(StringColorFore, 6071, Long)          \
  KEY(PasswordColorBack, 6072, Long)        \
  KEY(PasswordColorFore, 6073, Long)        \
  KEY(PassStringColorBack, 6074, Long)      \
  KEY(MeterColorBack, 6076, Long)           \
  KEY(TankGraphColorBack, 6077, Long)       \
  KEY(ThermometerColorBack, 6078, Long)     \
  KEY(LedColorBack, 6079, Long)             \
  KEY(TimeFunctionsColorBack, 6082, Long)   \
  KEY(UtcColorBack, 6084, Long)             \
  KEY(TimerColorBack, 6086, Long)           \
  KEY(CounterColorBack, 6088, Long)         \
  KEY(SdBrowserColorBack, 6090, Long)       \
  KEY(DateTimeColorBack, 6092, Long)

/// Their names.
enum class ElementDefault : Long {
#define QUENZEL7_KEY(name, number, Type) name = number,
  QUENZEL7_ELEMENT_DEFAULTS(QUENZEL7_KEY)
#undef QUENZEL7_KEY
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

/// A key among the defaults of new elements, and how its value is read.
struct ElementDefaultKey {
  ElementDefault key;
  /// Reads what is set as new elements do. Errors of ElementSetting.
  void (*require)();
};

/// All keys in the order of their numbers.
inline constexpr ElementDefaultKey kElementDefaultKeys[] = {
#define QUENZEL7_KEY(name, number, Type) \
  {ElementDefault::name, [] { ElementSetting<Type>(ElementDefault::name, "0"); }},
    QUENZEL7_ELEMENT_DEFAULTS(QUENZEL7_KEY)
#undef QUENZEL7_KEY
};
#undef QUENZEL7_ELEMENT_DEFAULTS

}  // namespace quenzel7
