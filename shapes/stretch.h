#pragma once

#include "framework/position.h"
#include "platform/automation/types.h"

namespace quenzel7 {

/// An edge across or down: none, the one where a rectangle starts, the one where it ends.
enum class Edge { None, Start, End };
struct Edges {
  Edge x, y;
};
/// The edges that a pick-up (enPickUpDirection) moves; none for any other number.
Edges EdgesOf(Long direction);

/// What becomes of `rest` when its pick-up `direction` (enPickUpDirection) is dragged by (pDx, pDy) pixels.
/// An edge that is dragged past the opposite one flips the rectangle. `moved` tells whether the direction has
/// an edge to move at all. Error 6 when a number does not fit 32 bits.
struct StretchResult {
  Descriptor descriptor;
  bool moved;
};
StretchResult Stretched(const Descriptor& rest, Long pDx, Long pDy, Long direction);

}  // namespace quenzel7
