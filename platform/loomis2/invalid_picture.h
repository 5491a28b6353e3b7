#pragma once

#include <string>

#include "platform/automation/automation_error.h"

namespace quenzel7::loomis2 {

/// Raises error 481, which says that a picture cannot be read, with that description.
[[noreturn]] inline void RefusePicture(const std::string& description) {
  throw automation::AutomationError(automation::ErrorNumber::InvalidPicture, description);
}

}  // namespace quenzel7::loomis2
