#pragma once

#include <string_view>

#include "shapes/shape_class.h"

namespace quenzel7 {

/// The plain rectangle of a page: a border in one panel colour and a body that is hollow, hatched or solid.
class clsRectangle final : public ShapeClass<clsRectangle, FilledShape, kRectangleElement> {
 public:
  /// The name under which hosts create it.
  static constexpr std::string_view kClassName = "clsRectangle";

  /// Takes the border's colour and width from the settings. Errors of ElementSetting.
  clsRectangle();

 private:
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;
};

}  // namespace quenzel7
