#include "shapes/region_shape.h"

namespace quenzel7 {

void RegionShape::GiveOrder(ado::Recordset& newRow) { GiveOrderToRow(newRow); }

bool RegionShape::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const { return Region().HasPoint(pX, Py); }

bool RegionShape::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const {
  return Region().MeetsRect(pRectXs, pRectYs, pRectDx, pRectDy);
}

}  // namespace quenzel7
