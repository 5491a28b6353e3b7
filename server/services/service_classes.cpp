#include "server/services/service_classes.h"

#include "server/services/host_services.h"

namespace quenzel7::server {

std::span<const automation::ClassInfo* const> ServiceClasses() {
  static const automation::ClassInfo* const classes[] = {
      &HostServices::ClassOf(),     &EmbeddedMessageBoxes::ClassOf(),    &EmbeddedMessages::ClassOf(),
      &EmbeddedErrorLog::ClassOf(), &EmbeddedProjectDatabase::ClassOf(), &EmbeddedChanges::ClassOf(),
      &EmbeddedFrame::ClassOf(),    &EmbeddedSettings::ClassOf(),        &PanelColors::ClassOf(),
      &PanelFonts::ClassOf(),       &ProjectStrings::ClassOf(),          &PanelList::ClassOf(),
      &CallRecorder::ClassOf(),
  };
  return classes;
}

}  // namespace quenzel7::server
