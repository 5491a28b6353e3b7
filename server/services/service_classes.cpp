#include "server/services/service_classes.h"

#include "server/services/host_services.h"

namespace quenzel7::server {

std::span<const automation::ClassInfo* const> ServiceClasses() {
  static const automation::ClassInfo* const classes[] = {
      &HostServices::ClassOf(),
      &EmbeddedMessageBoxes::ClassOf(),
      &EmbeddedProjectDatabase::ClassOf(),
  };
  return classes;
}

}  // namespace quenzel7::server
