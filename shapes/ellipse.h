#pragma once

#include "shapes/shape_class.h"

namespace quenzel7 {

/// The ellipse of a page: as the rectangle, but only the figure itself is hit, not the corners of its box.
class clsEllipse final : public ShapeClass<clsEllipse, FilledShape, kEllipseElement> {
 public:
  static constexpr std::string_view kClassName = "clsEllipse";

  /// Takes the border's colour from the settings. Error 13 when the setting is no number.
  clsEllipse();

 private:
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;

  // The order on the page is given by the row's creation alone: it goes into the row there, is never written
  // again, and is read back after each saving.
  void GiveOrder(ado::Recordset& newRow) override;
  std::span<const Column<FilledShape>> SaveColumns() const override;
  void ReadBack(const ado::Recordset& row) override;

  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
};

}  // namespace quenzel7
