#pragma once

#include <string_view>
#include <vector>

#include "platform/automation/class_info.h"

namespace quenzel7::cli {

/// The properties of a class that a page file holds, in the order in which page files list them and in which
/// they are set: position and size first, then the type of a variable, on which others depend, then the slots
/// of the default interface.
///
/// They are those that can be read and written, have a type that a page file can hold, and do not say who the
/// element is; of an element that holds a picture also how transparent that is, but nothing that follows from
/// the picture. Values go through the thunks of the members, which need not be of the default interface.
std::vector<const automation::Member*> PageProperties(const automation::ClassInfo& elementClass);

/// Whether the property tells of the picture that an element of the class holds what follows from it.
bool IsOfPicture(const automation::ClassInfo& elementClass, const automation::Member& property);

/// Whether the property is one of those that say where the element is and how large; page files always list
/// them.
bool IsPositionProperty(std::string_view property);

}  // namespace quenzel7::cli
