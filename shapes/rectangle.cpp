#include "shapes/rectangle.h"

#include "platform/gdi/gdi.h"

namespace quenzel7 {
namespace {

constexpr Long kLiquidColor = 96;

}  // namespace

clsRectangle::clsRectangle()
    : ElementClass(StrokeFromSettings(ElementDefault::RectangleColor, ElementDefault::RectangleWidth),
                   kLiquidColor) {}

void clsRectangle::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::Rectangle(hdc, x1, y1, x2, y2);
}

}  // namespace quenzel7
