#include "shapes/stroked_shape.h"

#include "shapes/element_report.h"

namespace quenzel7 {

StrokedShape::StrokedShape(const Stroke& stroke)
    : ColoredElement(
          {.back = kNone, .fore = stroke.colorFore, .backTouch = kNone, .foreTouch = stroke.colorForeTouch}),
      penWidth_(stroke.penWidth) {}

StrokedShape::Stroke StrokedShape::StrokeFromSettings(ElementDefault color, ElementDefault width) {
  const Long colorFore = ElementSetting(color, "0");
  const Long penWidth = ElementSetting(width, "1");
  return {.colorFore = colorFore, .colorForeTouch = colorFore, .penWidth = penWidth};
}

void StrokedShape::CopyTo(StrokedShape& copy) const {
  copy.CopyIdentityAndPosition(*this);
  copy.CopyColors(*this);
  copy.ColorHatch(ColorHatch());
  copy.FillStyle(FillStyle());
  copy.PenStyle(PenStyle());
  copy.PenWidth(PenWidth());
  copy.HatchStyle(HatchStyle());
  copy.CopyOperands(*this);
}

void StrokedShape::ItfHmiElement_Draw(Long pHdc, bool) { Paint(pHdc); }

void StrokedShape::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string&) { Paint(pHdc); }

void StrokedShape::ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) {
  ElementReport report(pVSPrinter);
  report.Coordinates(Initial());
  report.Line("Pen Width: " + std::to_string(penWidth_));
  report.MemoryBit("Hide Operand: ", visibleOpAddr_);
}

}  // namespace quenzel7
