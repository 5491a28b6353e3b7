#pragma once

#include <span>
#include <string_view>

#include "platform/automation/class_info.h"

namespace quenzel7::server {

/// All classes that hosts meet, those that they can create first: the elements, the service object, what
/// holds pictures and texts, the handlers; then those that are published for their types only, and those of
/// the objects that members give. Whoever wants those alone that hosts can create asks `IsCreatable`.
std::span<const automation::ClassInfo* const> PublishedClasses();

/// Whether hosts create objects of the class by its number.
bool IsCreatable(const automation::ClassInfo& published);

/// The class of that name that hosts can create, or nullptr. Upper and lower case are the same.
const automation::ClassInfo* FindCreatable(std::string_view className);

}  // namespace quenzel7::server
