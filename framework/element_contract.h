#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "framework/enums.h"
#include "framework/tab_index.h"
#include "platform/ado/recordset.h"
#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7 {

/// The interface through which a host handles everything that stands on a page.
///
/// Its members stand in element_members.inc with a word on each. A member Name is called by hosts as Name and
/// implemented by classes as ItfHmiElement_Name; a property is an overload pair Name() / Name(value). What a
/// class does not implement is the stub: a writer does nothing, a reader gives the value told there.
///
/// A class may give a member of the same name another behaviour on its own, default interface. A call through
/// an ItfHmiElement& always takes this interface, a call through the class always the default one.
///
/// Failures raise automation errors; rows already written stay written.
class ItfHmiElement : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ItfHmiElement";

  /// The member table.
  static const automation::Interface& InterfaceOf();

#define QUENZEL7_IMPLEMENTED(name) ItfHmiElement_##name
#define QUENZEL7_MEMBERS "framework/element_members.inc"
#include "framework/declare_contract.inc"

 public:
  /// GetBoundingRect with pLocation left out: the position at rest.
  void GetBoundingRect(Long& pXs, Long& pYs, Long& pDx, Long& pDy) const {
    GetBoundingRect(pXs, pYs, pDx, pDy, 1);
  }
};

using ElementRef = std::shared_ptr<ItfHmiElement>;

}  // namespace quenzel7
