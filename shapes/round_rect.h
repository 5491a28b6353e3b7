#pragma once

#include <span>
#include <string_view>

#include "shapes/region_shape.h"
#include "shapes/shape_class.h"

namespace quenzel7 {

/// The round rectangle of a page. The ellipse in each corner is half as wide and half as high as the whole,
/// so that the straight part of each side is half of it, too. Only the figure itself is hit.
///
/// Body and hatch come out in the border's colour. A new one lies where its field OrderIndex says, 0 unless
/// the host sets it: under what is there, not on top.
class clsRoundRect final : public ShapeClass<clsRoundRect, RegionShape, kRoundRectElement> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsRoundRect";

  /// Takes the border's colour from the settings. Errors of ElementSetting.
  clsRoundRect();

 private:
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;

  // Panels show round rectangles so; the colour of the hatch is kept and never painted.
  Long SolidBodyColor() const override { return colorFore_; }
  Long HatchLineColor() const override { return colorFore_; }

  // The new row is given the next order, and then, with the other columns, the field's: a host that wants a
  // new round rectangle on top has to say so. The font of a description stays as the database has it.
  std::span<const Column<FilledShape>> SaveColumns() const override;

  FigureRegion Region() const override;
};

}  // namespace quenzel7
