#pragma once

#include <span>

#include "platform/automation/class_info.h"

namespace quenzel7 {

/// The classes that hosts can create and that are no elements: the object for what holds for all work, and
/// what holds pictures.
std::span<const automation::ClassInfo* const> ImageClasses();

}  // namespace quenzel7
