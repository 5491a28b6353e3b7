#pragma once

#include <string>
#include <string_view>

#include "server/types/class_table.h"

namespace quenzel7::server {

/// The type information of the class, interface or enumeration of that name with what it consists of, or of
/// everything for an empty name, as JSON on one line:
///
///   {"classes": [{"name", "progid", "clsid", "creatable", "interfaces": [names, the default one first]}],
///    "interfaces": [{"name", "iid", "slots": [lines, see Interface::Slots],
///      "members": [{"name", "id", "kind": "property" or "method", "type", "enumeration", "get", "put",
///        "putref", "role": "value" or "enumerator", "mark",
///        "parameters": [{"name", "type", "enumeration", "byref", "optional", "default"}],
///        "slots": [its own lines], "doc"}]}],
///    "enumerations": [{"name", "members": [{"name", "value"}]}]}
///
/// The type of what is of an enumeration is "Long", and "enumeration" its name; the type of a method without
/// a result is "". "enumeration", "role", "mark" and "default" are left out where there is none.
///
/// `further` are classes beside the published ones, see PublishedClasses. Error 5, with the nearest name, for
/// an unknown name.
std::string Describe(std::string_view name, Classes further = {});

}  // namespace quenzel7::server
