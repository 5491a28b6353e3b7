#pragma once

#include <memory>

#include "shapes/filled_shape.h"

namespace quenzel7 {

/// The plain rectangle of a page: a border in one panel colour and a body that is hollow, hatched or solid.
class clsRectangle final : public FilledShape {
 public:
  static constexpr std::string_view kClassName = "clsRectangle";

  /// Takes the border's colour and width from the settings. Error 13 when a setting is no number.
  clsRectangle();

  static const automation::ClassInfo& ClassOf();
  const automation::ClassInfo& Class() const override { return ClassOf(); }

 private:
  Long ItfHmiElement_ElementType() const override;
  std::shared_ptr<ItfHmiElement> ItfHmiElement_Replica() override;
  void PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const override;
};

}  // namespace quenzel7
