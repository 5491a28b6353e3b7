#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/types.h"

namespace quenzel7 {

/// Width and height of a bitmap in pixels.
struct BitmapSize {
  Long w = 0, h = 0;
  /// Bits a pixel, 1 or 32.
  Long bits = 0;
};

/// Asks the graphics interface, in one call, for the measures of a bitmap; all 0 for a handle that is none.
/// Of a font the interface gives the beginning of its description: one that happens to read like the
/// description of a bitmap in every field counts as that bitmap.
BitmapSize BitmapSizeOf(gdi::HBITMAP bitmap);

}  // namespace quenzel7
