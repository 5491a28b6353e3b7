#include "server/services/late_object.h"

namespace quenzel7::server {

using automation::AutomationError;
using automation::Variant;

std::optional<std::string> LateObject::TextIfThere(std::string_view name) const {
  const automation::Interface& interface = object_->Class().Default();
  if (!interface.Late() && !interface.Find(name)) return std::nullopt;
  Variant value;
  try {
    value = Get(name);
  } catch (const AutomationError& error) {
    // Without a table of its members nothing else tells that there is no such one.
    if (!interface.Late() || error.Code() != automation::ErrorNumber::NoSuchMember) throw;
  }
  if (value.IsEmpty() || value.IsNull()) return std::nullopt;
  return Converted<std::string>(name, value);
}

void LateObject::Put(std::string_view name, const Variant& value) const {
  const automation::ObjectRef object = object_;
  automation::PutByName(*object, name, value);
}

automation::ObjectRef HostObjectOf(const automation::ObjectRef& object) {
  const auto* const backed = dynamic_cast<const HostBacked*>(object.get());
  return backed ? backed->HostObject() : object;
}

}  // namespace quenzel7::server
