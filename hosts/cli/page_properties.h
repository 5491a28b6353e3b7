#pragma once

#include <vector>

#include "platform/automation/class_info.h"

namespace quenzel7::cli {

/// The properties of a class that a page file holds, in the order in which page files list them and in which
/// they are set: position and size first, then the slots of the default interface.
///
/// They are those that can be read and written, have a type that a page file can hold, and do not say who the
/// element is.
std::vector<const automation::Member*> PageProperties(const automation::ClassInfo& elementClass);

/// Whether the property is one of those that say where the element is and how large; page files always list
/// them.
bool IsPositionProperty(const automation::Member& property);

}  // namespace quenzel7::cli
