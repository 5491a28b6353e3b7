#pragma once

#include <initializer_list>
#include <string_view>

#include "framework/element_contract.h"
#include "framework/position.h"
#include "platform/automation/call_by_name.h"
#include "platform/automation/convert.h"

/// What this host asks of elements, by call by name through ItfHmiElement.
namespace quenzel7::cli {

/// Calls a method of ItfHmiElement.
inline automation::Variant Call(ItfHmiElement& element, std::string_view method,
                                std::initializer_list<automation::Variant> arguments = {}) {
  return automation::InvokeByName(element, ItfHmiElement::InterfaceOf(), method, arguments);
}

/// Calls a method of ItfHmiElement that writes its arguments back.
inline automation::Variant CallInPlace(ItfHmiElement& element, std::string_view method,
                                       automation::Arguments arguments) {
  return automation::CallByName(element, ItfHmiElement::InterfaceOf(), method, automation::CallKind::Method,
                                arguments);
}

/// Reads a property of ItfHmiElement.
inline automation::Variant Read(ItfHmiElement& element, std::string_view property) {
  return automation::GetByName(element, ItfHmiElement::InterfaceOf(), property);
}

/// The key of the element's row; -1 when it has none.
inline Long IdOf(ItfHmiElement& element) { return automation::To<Long>(Read(element, "ID")); }

/// Where the element is at rest, as it tells it: a group tells nothing.
inline Descriptor BoundsOf(ItfHmiElement& element) {
  automation::Variant places[4];
  CallInPlace(element, "GetBoundingRect", places);
  using automation::To;
  return {To<Long>(places[0]), To<Long>(places[1]), To<Long>(places[2]), To<Long>(places[3])};
}

}  // namespace quenzel7::cli
