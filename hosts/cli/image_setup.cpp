#include "hosts/cli/image_setup.h"

#include "images/grp_elmnts_srv.h"
#include "platform/platform.h"

namespace quenzel7::cli {

ImageSetup::ImageSetup() : before_(LibraryState::Current()) {
  automation::Variant palette = Platform::Current().colorService->GetPalette();
  clsGrpElmntsSrv().InitImageLibrary("Quenzel7", palette);
}

ImageSetup::~ImageSetup() { LibraryState::Current() = before_; }

void UsePanel(Long panelType) { clsGrpElmntsSrv().ChangeHMIPanel(panelType); }

}  // namespace quenzel7::cli
