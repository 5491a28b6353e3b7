#pragma once

#include <memory>
#include <string_view>
#include <type_traits>

#include "framework/creatable_class.h"
#include "framework/element_contract.h"
#include "framework/element_types.h"
#include "images/itf_image.h"
#include "platform/automation/class_info.h"

namespace quenzel7 {

/// What default interfaces say of their own VisibleOpAddr.
inline constexpr std::string_view kOwnVisibleOpAddrText =
    "Address of the memory bit that hides the element; -1 none. Writing leaves the operand's row alone.";

/// What every class of elements that hosts create tells about itself: its name, its interfaces, its number,
/// and how a replica is made. `Element` is the class, `Base` what it is and gets its behaviour from;
/// `Members<Element>::kMembers` is the default interface in slot order.
template <class Element, class Base, ElementTypeNumber Type, template <class> class Members>
class ElementClass : public Base {
 public:
  /// What hosts see of the class: the default interface first, then the element contract, then that of a
  /// picture if it has one.
  static const automation::ClassInfo& ClassOf() {
    if constexpr (std::is_base_of_v<ItfImage, Element>) {
      return CreatableClass<Element>(Members<Element>::kMembers, ItfHmiElement::InterfaceOf(),
                                     ItfImage::InterfaceOf<Element>());
    } else {
      return CreatableClass<Element>(Members<Element>::kMembers, ItfHmiElement::InterfaceOf());
    }
  }
  /// ClassOf, of any object of the class.
  const automation::ClassInfo& Class() const override { return ClassOf(); }

 protected:
  using Base::Base;

 private:
  Long ItfHmiElement_ElementType() const override { return Type; }
  std::shared_ptr<ItfHmiElement> ItfHmiElement_Replica() override {
    auto copy = std::make_shared<Element>();
    static_cast<const Element&>(*this).CopyTo(*copy);
    return copy;
  }
};

}  // namespace quenzel7
