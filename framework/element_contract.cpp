#include "framework/element_contract.h"

#include "platform/automation/member.h"

namespace quenzel7 {
namespace {

using namespace automation;

constexpr Member WithOptionalLocation(Member member) {
  return member.name == "GetBoundingRect" ? LastOptional(member, 1) : member;
}

#define READ(type, name, stub, doc) \
  Property<type>(#name, doc, AUTOMATION_GETTER(ItfHmiElement, name), nullptr),
#define READ_WRITE(type, name, stub, doc)                            \
  Property<type>(#name, doc, AUTOMATION_GETTER(ItfHmiElement, name), \
                 AUTOMATION_SETTER(ItfHmiElement, type, name)),
#define WRITE_READ(type, name, stub, doc)                                        \
  WriterFirst(Property<type>(#name, doc, AUTOMATION_GETTER(ItfHmiElement, name), \
                             AUTOMATION_SETTER(ItfHmiElement, type, name))),
#define METHOD(result, name, parameters, arguments, stub, doc)                                             \
  WithOptionalLocation(                                                                                    \
      Method<ItfHmiElement, static_cast<result(ItfHmiElement::*) parameters>(&ItfHmiElement::name)>(#name, \
                                                                                                    doc)),
#define QUERY(result, name, parameters, arguments, stub, doc)                                              \
  WithOptionalLocation(                                                                                    \
      Method<ItfHmiElement, static_cast<result(ItfHmiElement::*) parameters const>(&ItfHmiElement::name)>( \
          #name, doc)),
constexpr Member kMembers[] = {
#include "framework/element_members.inc"
};

}  // namespace

const Interface& ItfHmiElement::InterfaceOf() {
  static const Interface interface(kClassName, kMembers);
  return interface;
}

}  // namespace quenzel7
