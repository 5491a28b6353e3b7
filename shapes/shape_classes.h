#pragma once

#include <span>

#include "platform/automation/class_info.h"

namespace quenzel7 {

/// The classes of the static elements.
std::span<const automation::ClassInfo* const> ShapeClasses();

}  // namespace quenzel7
