#include "server/types/member_ids.h"

#include <algorithm>

namespace quenzel7::server {
namespace {

using automation::Interface;
using automation::Member;
using automation::Role;

const Member* MemberOfRole(const Interface& interface, Role role) {
  const auto members = interface.Members();
  const auto found = std::find_if(members.begin(), members.end(),
                                  [role](const Member& member) { return member.role == role; });
  return found == members.end() ? nullptr : &*found;
}

}  // namespace

DISPID MemberId(const Interface& interface, std::size_t place) {
  switch (interface.Members()[place].role) {
    case Role::Value:
      return DISPID_VALUE;
    case Role::Enumerator:
      return DISPID_NEWENUM;
    case Role::None:
      break;
  }
  return static_cast<DISPID>(place) + 1;
}

const Member* MemberOfId(const Interface& interface, DISPID id) {
  if (id == DISPID_VALUE) return MemberOfRole(interface, Role::Value);
  if (id == DISPID_NEWENUM) return MemberOfRole(interface, Role::Enumerator);
  const auto members = interface.Members();
  if (id < 1 || static_cast<std::size_t>(id) > members.size()) return nullptr;
  const Member& member = members[static_cast<std::size_t>(id) - 1];
  // One with a role has another number.
  return member.role == Role::None ? &member : nullptr;
}

DISPID ParameterId(const Member& member, std::string_view name) {
  const auto names = member.ParameterNames();
  const auto found = std::find_if(names.begin(), names.end(), [name](std::string_view known) {
    return automation::EqualFolded(known, name);
  });
  return found == names.end() ? DISPID_UNKNOWN : static_cast<DISPID>(found - names.begin());
}

}  // namespace quenzel7::server
