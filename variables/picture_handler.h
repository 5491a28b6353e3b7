#pragma once

#include "platform/gdi/owned.h"
#include "shapes/bitmap.h"
#include "variables/drawn_handler.h"

namespace quenzel7 {

/// What the handlers share that paint a picture themselves: the bitmap element that shows it.
using PictureHandler = DrawnHandler<clsBitmap>;

/// A picture that is being painted: a bitmap in a context of its own. What is selected beside the bitmap is
/// declared before it, since the context goes first.
class PictureCanvas {
 public:
  /// One that fits a context, in panel pixels.
  PictureCanvas(Long hdc, Long width, Long height);

  /// The context to paint in.
  gdi::HDC Dc() const { return memory_.Get(); }
  /// Gives the picture to an element, as one that was painted.
  void ShowIn(clsBitmap& element);

 private:
  // In this order: a bitmap that a context holds cannot be deleted.
  gdi::OwnedBitmap bitmap_;
  gdi::OwnedContext memory_;
};

}  // namespace quenzel7
