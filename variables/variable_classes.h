#pragma once

#include <span>

#include "platform/automation/class_info.h"

namespace quenzel7 {

/// The classes of variables, of their handlers and of what these hold.
std::span<const automation::ClassInfo* const> VariableClasses();

}  // namespace quenzel7
