#pragma once

#include <span>
#include <string_view>

#include "platform/automation/class_info.h"

namespace quenzel7::server {

/// Classes in the order in which hosts are shown them.
using Classes = std::span<const automation::ClassInfo* const>;

/// All classes of the library that hosts meet. First those that they can create: the static elements, the
/// service object and what holds pictures, the variable with its texts and handlers. Then those that are
/// published for their types only, a contract being a class that has nothing but itself, and those of the
/// objects that members give. Whoever wants those alone that hosts can create asks `IsCreatable`.
///
/// What stands above the library has classes of its own; who describes those too hands them over beside
/// these.
Classes PublishedClasses();

/// Whether hosts create objects of the class by its number.
bool IsCreatable(const automation::ClassInfo& published);

/// The class of that name that hosts can create, or nullptr. Upper and lower case are the same.
const automation::ClassInfo* FindCreatable(std::string_view className);

}  // namespace quenzel7::server
