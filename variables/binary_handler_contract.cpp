#include "variables/binary_handler_contract.h"

#include "platform/automation/member.h"

namespace quenzel7 {
namespace {

using namespace automation;

constexpr Member kMembers[] = {
#define QUENZEL7_CONTRACT ItfVarBinaryHandler
#define QUENZEL7_METHOD_ENTRY
#define QUENZEL7_MEMBERS "variables/handler_members.inc"
#include "framework/tabulate_contract.inc"
};

}  // namespace

const Interface& ItfVarBinaryHandler::InterfaceOf() {
  static const Interface interface(kClassName, kMembers);
  return interface;
}

}  // namespace quenzel7
