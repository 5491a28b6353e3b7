#pragma once

#include "framework/position.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {

/// The region of a figure with which it is hit; it is deleted at the end.
class FigureRegion {
 public:
  /// Takes over a region. With no region, 0, nothing is hit.
  explicit FigureRegion(gdi::HRGN region) : region_(region) {}

  /// Whether the point lies in the region.
  bool HasPoint(Long x, Long y) const;
  /// Whether the region meets the rectangle of that size. Error 6 when its far corner does not fit 32 bits.
  bool MeetsRect(Long xs, Long ys, Long dx, Long dy) const;

 private:
  gdi::OwnedObject region_;
};

/// The box from which a figure's region is made: one pixel larger to the right and below than that of the
/// painted figure. A region is one pixel less than its box, so what is hit is what is painted: no pixel of
/// column xs + dx or row ys + dy. Error 6 when a corner does not fit 32 bits.
gdi::RECT RegionBox(const Descriptor& position);

}  // namespace quenzel7
