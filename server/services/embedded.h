#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/automation/automation_error.h"

namespace quenzel7::server {

/// The embedded service that stands behind a service of the platform. Error 91 when there is another one, a
/// host's own; `what` names it then, "message boxes".
template <class Embedded, class Service>
std::shared_ptr<Embedded> EmbeddedOf(const std::shared_ptr<Service>& service, std::string_view what) {
  auto embedded = std::dynamic_pointer_cast<Embedded>(service);
  if (!embedded) {
    throw automation::AutomationError(automation::ErrorNumber::ObjectNotSet,
                                      std::string(what) + ": the embedded service is not in use");
  }
  return embedded;
}

}  // namespace quenzel7::server
