#pragma once

#include <span>

#include "platform/automation/class_info.h"

namespace quenzel7::server {

/// The classes of HostServices and of all that its members give; none of them can be created by its number.
std::span<const automation::ClassInfo* const> ServiceClasses();

}  // namespace quenzel7::server
