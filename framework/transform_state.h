#pragma once

#include "framework/element_contract.h"

namespace quenzel7 {

/// Judges the proposed position (what GetBoundingRect gives for descriptor 3) of any element but a group
/// against the bounds of a collision map, a two-dimensional array with one cell per panel pixel, addressed
/// (x, y); its cells are not looked at.
///
/// An element of size 0 overlaps; one with a corner outside (0, 0) to the upper bounds, limits included, is
/// out of range, whatever its size. Lines (`kLineElement`) are judged by the signs of their vector instead:
/// one of length 0 overlaps wherever it lies, and the limits of the others differ by a pixel from case to
/// case. Errors: 13 when the map is no array, 9 when it has no second dimension, 6 when a corner does not fit
/// 32 bits.
enCollisionStatus GetElementTransformState(const ItfHmiElement& element,
                                           const automation::Variant& collisionMap);

/// The same for an element that may not stand where the host has marked the map: one that is not out of range
/// overlaps if a cell under it holds 1. Further errors: 9 when a pixel of the element lies before the first
/// cells of the map, 13 and 94 for a cell that is no number.
enCollisionStatus GetTouchTransformState(const ItfHmiElement& element,
                                         const automation::Variant& collisionMap);

}  // namespace quenzel7
