#include "shapes/stroked_shape.h"

#include "platform/automation/call_by_name.h"
#include "platform/platform.h"

namespace quenzel7 {

StrokedShape::StrokedShape(const Stroke& stroke)
    : colorFore_(stroke.colorFore),
      colorForeTouch_(stroke.colorForeTouch),
      penWidth_(stroke.penWidth),
      colorService_(Platform::Current().colorService) {}

StrokedShape::Stroke StrokedShape::StrokeFromSettings(ElementDefault color, ElementDefault width) {
  const Long colorFore = ElementSetting(color, "0");
  const Long penWidth = ElementSetting(width, "1");
  return {.colorFore = colorFore, .colorForeTouch = colorFore, .penWidth = penWidth};
}

void StrokedShape::CopyTo(StrokedShape& copy) const {
  copy.CopyIdentityAndPosition(*this);
  copy.ColorBack(ColorBack());
  copy.ColorFore(ColorFore());
  copy.ColorBackTouch(ColorBackTouch());
  copy.ColorForeTouch(ColorForeTouch());
  copy.ColorHatch(ColorHatch());
  copy.FillStyle(FillStyle());
  copy.PenStyle(PenStyle());
  copy.PenWidth(PenWidth());
  copy.HatchStyle(HatchStyle());
  copy.CopyOperands(*this);
}

gdi::LOGPEN StrokedShape::CurrentPen(Long hdc) {
  gdi::LOGPEN pen{};
  gdi::GetObjectA(gdi::GetCurrentObject(hdc, gdi::OBJ_PEN), sizeof pen, &pen);
  return pen;
}

void StrokedShape::ItfHmiElement_Draw(Long pHdc, bool) { Paint(pHdc); }

void StrokedShape::ItfHmiElement_DrawToPrinter(Long pHdc, const std::string&) { Paint(pHdc); }

void StrokedShape::ItfHmiElement_CreateStaticElementPrinterReport(automation::Object& pVSPrinter) {
  const auto paragraph = [&pVSPrinter](const std::string& line) {
    automation::PutByName(pVSPrinter, "Paragraph", line);
  };
  const auto [xs, ys, dx, dy] = Initial();
  paragraph("Coordinates (Left,Top,Width,Height): (" + std::to_string(xs) + "," + std::to_string(ys) + "," +
            std::to_string(dx) + "," + std::to_string(dy) + ")");
  paragraph("Pen Width: " + std::to_string(penWidth_));
  if (HasHideOperand()) paragraph("Hide Operand: MB " + std::to_string(visibleOpAddr_));
}

}  // namespace quenzel7
