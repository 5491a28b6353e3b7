#pragma once

#include "framework/library_state.h"

namespace quenzel7::cli {

/// Sets the image library up for as long as it lives, as a host does before it opens a project: in the
/// colours of the colour service. What was set before comes back at the end.
class ImageSetup {
 public:
  /// Errors of making the image library.
  ImageSetup();
  ImageSetup(const ImageSetup&) = delete;
  ImageSetup& operator=(const ImageSetup&) = delete;
  ~ImageSetup();

 private:
  LibraryState before_;
};

/// Tells the library which panel the work is for from now on.
void UsePanel(Long panelType);

}  // namespace quenzel7::cli
