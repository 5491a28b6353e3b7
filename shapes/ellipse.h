#pragma once

#include <span>
#include <string_view>

#include "shapes/region_shape.h"
#include "shapes/shape_class.h"

namespace quenzel7 {

/// The ellipse of a page: as the rectangle, but only the figure itself is hit, not the corners of its box.
///
/// Its order on the page is the row's: each saving reads it back, and one that a host sets never reaches the
/// row. A row without an order is error 94, told when the row has been written.
class clsEllipse final : public ShapeClass<clsEllipse, RegionShape, kEllipseElement> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsEllipse";

  /// Takes the border's colour from the settings. Errors of ElementSetting.
  clsEllipse();

 private:
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;

  // The order on the page is given by the row's creation alone: it is never written again, and is read back
  // after each saving.
  std::span<const Column<FilledShape>> SaveColumns() const override;
  void ReadBack(const ado::Recordset& row) override;

  FigureRegion Region() const override;
};

}  // namespace quenzel7
