#pragma once

#include <initializer_list>
#include <string_view>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

/// Calls by member name, as late-bound hosts make them: upper and lower case are the same.
///
/// Errors: 438 when the interface has no such member or the member cannot be called so (394 when a property
/// is write-only, 383 when it is read-only), 449 when an argument that is needed is missing, 450 when there
/// are too many, the conversion errors of arguments, and whatever the member itself raises.
namespace quenzel7::automation {

/// Calls a member of the object through one of its interfaces. By-reference arguments are written back into
/// `arguments`. The last arguments may be left out where the member allows it.
Variant CallByName(Object& object, const Interface& interface, std::string_view name, CallKind kind,
                   Arguments arguments = {});

/// The same through the object's default interface.
Variant CallByName(Object& object, std::string_view name, CallKind kind, Arguments arguments = {});

/// Reads a property through the interface.
Variant GetByName(Object& object, const Interface& interface, std::string_view name);
Variant GetByName(Object& object, std::string_view name);

/// Writes a property through the interface; an object goes in by reference where the property takes it so.
void PutByName(Object& object, const Interface& interface, std::string_view name, const Variant& value);
void PutByName(Object& object, std::string_view name, const Variant& value);

/// Calls a method of the interface with arguments by value.
Variant InvokeByName(Object& object, const Interface& interface, std::string_view name,
                     std::initializer_list<Variant> arguments = {});
Variant InvokeByName(Object& object, std::string_view name, std::initializer_list<Variant> arguments = {});

}  // namespace quenzel7::automation
