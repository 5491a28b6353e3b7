#pragma once

#include "platform/automation/types.h"
#include "platform/loomis2/image_library.h"

namespace quenzel7 {

/// What the library knows of the host's work as a whole: one set per thread, which lives as long as the
/// thread does. Nothing saves it. clsGrpElmntsSrv sets all but the last.
struct LibraryState {
  /// The set of the calling thread.
  static LibraryState& Current();

  /// The panel model that the project is for; 0 until set.
  Long CurrentPanelType = 0;
  /// The panel colour number that areas of the panel are cleared with.
  Long PanelBackColor = 0;
  /// The second value of the panel.
  Long PanelValue2 = 0;
  /// How one-bit pictures are made smaller: 2 keeps white pixels, 1 black ones; 0 until the panel is set.
  Long StretchMode = 0;
  /// The pictures that elements share; none until set up.
  loomis2::ImageLibraryRef ImageLibrary;
  /// Set by resizing the pictures of a variable when one could not be made; the next variable that is drawn
  /// tells the user and clears it.
  bool ImageResizeFailed = false;
};

}  // namespace quenzel7
