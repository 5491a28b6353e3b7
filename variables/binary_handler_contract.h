#pragma once

#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/element_contract.h"
#include "framework/enums.h"
#include "platform/automation/class_info.h"
#include "platform/automation/collection.h"
#include "platform/automation/object.h"
#include "platform/automation/variant.h"

namespace quenzel7 {

/// What gives a variable its type: its settings, what it shows on a page, its operands beside the link
/// operand, its pictures. The variable reaches it through this interface alone.
///
/// Its members stand in handler_members.inc with a word on each. A member Name is called as Name and
/// implemented by classes as ItfVarBinaryHandler_Name. What a class does not implement is the stub: a writer
/// does nothing, a reader gives 0 or nothing.
class ItfVarBinaryHandler : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "ItfVarBinaryHandler";

  /// The member table.
  static const automation::Interface& InterfaceOf();

#define QUENZEL7_IMPLEMENTED(name) ItfVarBinaryHandler_##name
#define QUENZEL7_MEMBERS "variables/handler_members.inc"
#include "framework/declare_contract.inc"
};

using HandlerRef = std::shared_ptr<ItfVarBinaryHandler>;

}  // namespace quenzel7
