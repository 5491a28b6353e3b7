#pragma once

#include "framework/position.h"
#include "platform/automation/types.h"

namespace quenzel7 {

/// What becomes of `rest` when its pick-up `direction` (enPickUpDirection) is dragged by (pDx, pDy) pixels.
/// An edge that is dragged past the opposite one flips the rectangle. `moved` tells whether the direction has
/// an edge to move at all. Error 6 when a number does not fit 32 bits.
struct StretchResult {
  Descriptor descriptor;
  bool moved;
};
StretchResult Stretched(const Descriptor& rest, Long pDx, Long pDy, Long direction);

}  // namespace quenzel7
