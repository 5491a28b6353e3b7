#pragma once

#include "framework/position.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {

/// The region of a figure with which it is hit; it is deleted at the end.
class FigureRegion {
 public:
  explicit FigureRegion(gdi::HRGN region) : region_(region) {}

  bool HasPoint(Long x, Long y) const;
  /// Whether the region meets the rectangle of that size. Error 6 when its far corner does not fit 32 bits.
  bool MeetsRect(Long xs, Long ys, Long dx, Long dy) const;

 private:
  gdi::OwnedObject region_;
};

/// The box of a figure's region: one pixel larger to the right and below than what is painted. Error 6 when a
/// corner does not fit 32 bits.
gdi::RECT RegionBox(const Descriptor& position);

}  // namespace quenzel7
