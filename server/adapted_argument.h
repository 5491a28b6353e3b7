#pragma once

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"

namespace quenzel7::server {

/// What a parameter of that type is given for an argument: an object of the host's own becomes one of the
/// library where the library has a class that stands for such objects, as with recordsets and connections;
/// everything else stays as it is.
automation::Variant AdaptedArgument(const automation::TypeInfo& type, const automation::Variant& argument);

}  // namespace quenzel7::server
