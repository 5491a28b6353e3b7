#pragma once

#include "platform/automation/class_info.h"
#include "platform/automation/variant.h"

namespace quenzel7::server {

/// What a parameter is given for an argument: an object of the host's own becomes one of the library where
/// the library has a class that stands for such objects, as with recordsets and connections; a place by
/// reference for an array that holds nothing yet becomes an array without cells; everything else stays as it
/// is.
automation::Variant AdaptedArgument(const automation::Parameter& parameter,
                                    const automation::Variant& argument);

}  // namespace quenzel7::server
