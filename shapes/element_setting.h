#pragma once

#include <string>

#include "platform/automation/convert.h"
#include "platform/platform.h"

namespace quenzel7 {

/// A number among the defaults of new elements, or the fall-back. Error 13 when the text kept there is no
/// number.
inline Long ElementSetting(Long key, const std::string& fallback) {
  constexpr Long kElementDefaults = 6000;
  return automation::LongFromText(Platform::Current().settings->GetSetting(kElementDefaults, key, fallback));
}

}  // namespace quenzel7
