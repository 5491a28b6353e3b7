#pragma once

#include "shapes/shape_class.h"

namespace quenzel7 {

/// The round rectangle of a page. It is always as round as it can be: its corners meet at the middle of each
/// side.
class clsRoundRect final : public ShapeClass<clsRoundRect, FilledShape, kRoundRectElement> {
 public:
  static constexpr std::string_view kClassName = "clsRoundRect";

  /// Takes the border's colour from the settings. Error 13 when the setting is no number.
  clsRoundRect();

 private:
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;

  // Body and hatch come out in the border's colour; the colour of the hatch is kept and never painted. Panels
  // show round rectangles so.
  Long SolidBodyColor() const override { return colorFore_; }
  Long HatchLineColor() const override { return colorFore_; }

  // The new row is given the next order, and then, with the other columns, the field's: a host that wants a
  // new round rectangle on top has to say so. The font of a description stays as the database has it.
  void GiveOrder(ado::Recordset& newRow) override;
  std::span<const Column<FilledShape>> SaveColumns() const override;

  bool ItfHmiElement_HitTestByPoint(Long pX, Long Py) const override;
  bool ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const override;
};

}  // namespace quenzel7
