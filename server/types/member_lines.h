#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/class_info.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// How a type is written where people read it.
using WriteType = std::function<std::string(const automation::TypeInfo&)>;

/// By its name.
std::string TypeName(const automation::TypeInfo& type);

/// A member as people read it.
struct MemberLine {
  DISPID id;
  /// Its places among the slots of the interface, from 1: "3 4".
  std::string slots;
  /// What stands at these places, in the same order: "get put", "put get", "putref", "call".
  std::string calls;
  /// "Xs As Long", "GetBoundingRect(ByRef pXs As Long, ..., Optional pLocation As Long = 1)".
  std::string signature;
  /// "Identity", ...; empty for none.
  std::string_view mark;
  std::string_view documentation;
};

/// The members of an interface in slot order. Each parameter has to have a name.
std::vector<MemberLine> MemberLines(const automation::Interface& interface,
                                    const WriteType& writeType = TypeName);

/// "get", "put", "putref" or "call".
std::string_view CallName(automation::CallKind kind);

/// "Identity", "NotStored", "NotCarried" or "Transient"; empty for no mark.
std::string_view MarkName(automation::Mark mark);

}  // namespace quenzel7::server
