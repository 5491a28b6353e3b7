#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/automation/class_info.h"
#include "platform/automation/member.h"

namespace quenzel7 {

/// What hosts see of a class that they create by its name: its default interface, named after it and made of
/// its members in slot order, then the contracts that it implements. One class has one such description.
template <class Class, class... Contracts>
const automation::ClassInfo& CreatableClass(std::span<const automation::Member> members,
                                            const Contracts&... contracts) {
  static const std::string interfaceName = "_" + std::string(Class::kClassName);
  static const automation::Interface interface(interfaceName, members);
  static const std::vector<const automation::Interface*> interfaces{&interface, &contracts...};
  static const automation::ClassInfo info{
      Class::kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<Class>(); }};
  return info;
}

}  // namespace quenzel7
