#pragma once

#include <span>

#include "platform/automation/class_info.h"
#include "platform/automation/member.h"

namespace quenzel7::server {

/// What hosts see of a class whose objects other members give: one interface of its own name. Hosts cannot
/// create it by its number. One class has one such description.
template <class Class>
const automation::ClassInfo& ServiceClass(std::span<const automation::Member> members) {
  static const automation::Interface interface(Class::kClassName, members);
  static const automation::Interface* const interfaces[] = {&interface};
  static const automation::ClassInfo info{Class::kClassName, interfaces, nullptr};
  return info;
}

/// A property that takes an object by reference, Nothing too, and gives it back.
constexpr automation::Member ObjectProperty(std::string_view name, std::string_view documentation,
                                            automation::Variant (*get)(automation::Object&),
                                            void (*putRef)(automation::Object&, const automation::Variant&)) {
  return automation::WithGetter(automation::PutRefProperty<automation::Object>(name, documentation, putRef),
                                get);
}

}  // namespace quenzel7::server
