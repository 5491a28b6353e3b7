#pragma once

#include "shapes/figure_region.h"
#include "shapes/filled_shape.h"

namespace quenzel7 {

/// What the ellipse and the round rectangle share: only the figure itself is hit, not the corners of its box,
/// and the creation of the row gives it the next order on the page, whatever the field says.
class RegionShape : public FilledShape {
 protected:
  using FilledShape::FilledShape;

  /// The region with which the figure at rest is hit. Error 6 when a corner of its box does not fit 32 bits.
  virtual FigureRegion Region() const = 0;

  void GiveOrder(ado::Recordset& newRow) override;
  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
};

}  // namespace quenzel7
