#pragma once

#include <span>

#include "platform/automation/class_info.h"

namespace quenzel7 {

/// The classes of the framework that hosts can create. None of them is an element.
std::span<const automation::ClassInfo* const> FrameworkClasses();

}  // namespace quenzel7
