#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/automation/class_info.h"
#include "platform/automation/object.h"
#include "server/quenzel7_automation.h"

namespace quenzel7::server {

/// An object that the host brings, as one of the library: it is called by name, without a member table.
///
/// Arguments of methods are passed by reference, as VARIANTs, so that the host may write into them; values of
/// properties by value. Errors: 438 for a member that the host's object does not have, what the host's
/// exception tells, and for any other failure the number that belongs to the result (NumberOf).
class ForeignObject final : public automation::Object {
 public:
  static constexpr std::string_view kClassName = "HostObject";

  /// Holds a reference of its own on `dispatch`; `identity` is its IUnknown.
  ForeignObject(IDispatch* dispatch, IUnknown* identity);
  ~ForeignObject() override;

  const automation::ClassInfo& Class() const override;

  /// The object as one of a host, or nullptr for one of the library's own.
  static const ForeignObject* Of(const automation::Object& object);

  /// The host's pointer, with a reference for the caller.
  IDispatch* NewReference() const;

 private:
  static automation::Variant Call(automation::Object& object, std::string_view name,
                                  automation::CallKind kind, automation::Arguments arguments);

  DISPID IdOf(std::string_view name);

  IDispatch* dispatch_;
  IUnknown* identity_;
  std::unordered_map<std::string, DISPID> ids_;
};

}  // namespace quenzel7::server
