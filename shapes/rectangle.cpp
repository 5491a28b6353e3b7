#include "shapes/rectangle.h"

#include "framework/element_types.h"
#include "platform/gdi/gdi.h"
#include "shapes/element_setting.h"

namespace quenzel7 {
namespace {

constexpr Long kLiquidColor = 96;

}  // namespace

clsRectangle::clsRectangle()
    : FilledShape([]() -> Defaults {
        const Long colorFore = ElementSetting(6051, "0");
        const Long penWidth = ElementSetting(6050, "1");
        return {.colorFore = colorFore,
                .colorForeTouch = colorFore,
                .colorHatch = kLiquidColor,
                .penWidth = penWidth};
      }()) {}

const automation::ClassInfo& clsRectangle::ClassOf() {
  static const automation::Interface interface("_clsRectangle", FilledShapeMembers<clsRectangle>::kMembers);
  static const automation::Interface* const interfaces[] = {&interface, &InterfaceOf()};
  static const automation::ClassInfo info{
      kClassName, interfaces, []() -> automation::ObjectRef { return std::make_shared<clsRectangle>(); }};
  return info;
}

Long clsRectangle::ItfHmiElement_ElementType() const { return kRectangleElement; }

std::shared_ptr<ItfHmiElement> clsRectangle::ItfHmiElement_Replica() {
  auto copy = std::make_shared<clsRectangle>();
  CopyTo(*copy);
  return copy;
}

void clsRectangle::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::Rectangle(hdc, x1, y1, x2, y2);
}

}  // namespace quenzel7
