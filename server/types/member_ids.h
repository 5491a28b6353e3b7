#pragma once

#include "platform/automation/class_info.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// The number of the member at a place, from 0, of an interface: places count from 1 in slot order; the
/// member that stands for the object itself has DISPID_VALUE, the one that gives the enumerator
/// DISPID_NEWENUM.
DISPID MemberId(const automation::Interface& interface, std::size_t place);

/// The member of that number, or nullptr. Only DISPID_VALUE and DISPID_NEWENUM take a search.
const automation::Member* MemberOfId(const automation::Interface& interface, DISPID id);

/// The number under which a call names a parameter: its place, from 0; DISPID_UNKNOWN for a name that the
/// member does not have. Upper and lower case are the same.
DISPID ParameterId(const automation::Member& member, std::string_view name);

}  // namespace quenzel7::server
