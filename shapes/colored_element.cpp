#include "shapes/colored_element.h"

#include "platform/platform.h"

namespace quenzel7 {

ColoredElement::ColoredElement(const Colors& colors)
    : colorBack_(colors.back),
      colorFore_(colors.fore),
      colorBackTouch_(colors.backTouch),
      colorForeTouch_(colors.foreTouch),
      colorService_(Platform::Current().colorService) {}

void ColoredElement::CopyColors(const ColoredElement& source) {
  ColorBack(source.ColorBack());
  ColorFore(source.ColorFore());
  ColorBackTouch(source.ColorBackTouch());
  ColorForeTouch(source.ColorForeTouch());
}

}  // namespace quenzel7
