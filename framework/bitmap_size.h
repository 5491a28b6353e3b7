#pragma once

#include "platform/automation/types.h"
#include "platform/gdi/types.h"

namespace quenzel7 {

/// Width and height of a bitmap in pixels.
struct BitmapSize {
  Long w = 0, h = 0;
};

/// Asks the graphics interface for the measures of a bitmap; 0 x 0 for a handle that is no bitmap.
BitmapSize BitmapSizeOf(gdi::HBITMAP bitmap);

}  // namespace quenzel7
