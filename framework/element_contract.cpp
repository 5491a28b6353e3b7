#include "framework/element_contract.h"

#include "platform/automation/member.h"

namespace quenzel7 {
namespace {

using namespace automation;

constexpr Member WithOptionalLocation(Member member) {
  return member.name == "GetBoundingRect" ? LastOptional(member, 1) : member;
}

constexpr Member kMembers[] = {
#define QUENZEL7_CONTRACT ItfHmiElement
#define QUENZEL7_METHOD_ENTRY WithOptionalLocation
#define QUENZEL7_MEMBERS "framework/element_members.inc"
#include "framework/tabulate_contract.inc"
};

}  // namespace

const Interface& ItfHmiElement::InterfaceOf() {
  static const Interface interface(kClassName, kMembers);
  return interface;
}

}  // namespace quenzel7
