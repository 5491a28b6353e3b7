#pragma once

#include <string_view>

#include "shapes/shape_class.h"

namespace quenzel7 {

/// A straight line between two points of a page. Its size is a vector that may be negative or 0; it is
/// stretched by its two ends and has no body: the members of a body read 0 and ignore writes.
///
/// A point hits it when it lies in the box of the line at rest (PointNearBox) and near the line on display
/// (DistanceToLine), closer than half the pen and one and a half pixels. The two differ in the middle of a
/// drag.
class clsLine final : public ShapeClass<clsLine, StrokedShape, kLineElement> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsLine";

  /// Takes colour and width from the settings. Errors of ElementSetting.
  clsLine();

 private:
  void Paint(Long hdc) const override;
  void WriteRow(ado::Recordset& row) override;
  void ReadRow(const ado::Recordset& row) override;

  enPickUpDirection ItfHmiElement_GetPupDirection(Long pX, Long Py, Long pWidth) const override;
  void ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) override;
  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
};

}  // namespace quenzel7
