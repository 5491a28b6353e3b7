#pragma once

#include "framework/enums.h"
#include "framework/position.h"
#include "platform/automation/types.h"

/// The eight handles by which a rectangular element is stretched.
namespace quenzel7 {

/// The handle that lies at a point, for handles of `width` pixels on the outside of an element at `position`.
/// An element of one pixel is one handle, ePD_DownRight. Error 6 when a limit of a handle does not fit 32
/// bits, or when a one-pixel element or the point lies outside 16 bits.
enPickUpDirection PickUpAt(const Descriptor& position, Long x, Long y, Long width);

/// How a page is shown: a point of it comes to offset + scale * coordinate.
struct PageView {
  Long offsetX = 0, offsetY = 0;
  Single scaleX = 1, scaleY = 1;
};

/// Paints the handles of an element at `position` as squares of `width` pixels, red with a thin black border.
/// A handle beyond the limits of the page, (0, 0) to (maxX, maxY), is left out. Error 6 when a point of a
/// handle does not fit 16 bits.
void DrawPickUps(Long hdc, const Descriptor& position, const PageView& view, Long width, Long maxX,
                 Long maxY);

}  // namespace quenzel7
