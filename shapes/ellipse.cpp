#include "shapes/ellipse.h"

#include "platform/gdi/gdi.h"

namespace quenzel7 {

clsEllipse::clsEllipse()
    : ElementClass(
          [] {
            // Two reads: each colour asks for itself.
            const Long colorFore = ElementSetting(ElementDefault::EllipseColor, "0");
            const Long colorForeTouch = ElementSetting(ElementDefault::EllipseColor, "0");
            return Stroke{.colorFore = colorFore, .colorForeTouch = colorForeTouch, .penWidth = 1};
          }(),
          kNone) {}

void clsEllipse::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::Ellipse(hdc, x1, y1, x2, y2);
}

FigureRegion clsEllipse::Region() const {
  const auto [left, top, right, bottom] = RegionBox(Initial());
  return FigureRegion(gdi::CreateEllipticRgn(left, top, right, bottom));
}

std::span<const Column<FilledShape>> clsEllipse::SaveColumns() const {
  static constexpr auto kColumns = FilledColumns<FilledShape>::kSave.Without("OrderIndex");
  return kColumns;
}

void clsEllipse::ReadBack(const ado::Recordset& row) {
  static constexpr Column<FilledShape> kColumns[] = {Columns<FilledShape>::kOrderIndex};
  ReadColumns<FilledShape>(row, *this, kColumns);
  ElementClass::ReadBack(row);
}

}  // namespace quenzel7
