#pragma once

#include <string>
#include <string_view>

#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// The programmatic name of a class: "Quenzel7.clsRectangle".
std::string ProgrammaticName(std::string_view className);
/// The name of the class in a programmatic name, whose prefix is compared without regard to the case of ASCII
/// letters; empty for a name that is none.
std::string_view ClassOfProgrammaticName(std::string_view name);

/// The number of a class and of an interface: name-based numbers of version 5 (RFC 4122) in the name space
/// {5C7B1E0A-7A41-4E0F-9D52-3F7C1B6E8A17}, of "class clsRectangle" and "interface ItfHmiElement", names in
/// their published spelling. So they are the same in every build, and every host can work them out.
GUID ClassId(std::string_view className);
GUID InterfaceId(std::string_view interfaceName);

/// As people write it: "{5C7B1E0A-7A41-4E0F-9D52-3F7C1B6E8A17}".
std::string GuidText(const GUID& id);

bool IsSameGuid(const GUID& a, const GUID& b);

}  // namespace quenzel7::server
