#include "shapes/ellipse.h"

#include "shapes/element_setting.h"
#include "shapes/figure_region.h"

namespace quenzel7 {
namespace {

FigureRegion RegionOf(const Descriptor& position) {
  const auto [left, top, right, bottom] = RegionBox(position);
  return FigureRegion(gdi::CreateEllipticRgn(left, top, right, bottom));
}

}  // namespace

clsEllipse::clsEllipse()
    : ShapeClass(
          [] {
            constexpr Long kBorderColor = 6053;
            // Two reads: each colour asks for itself.
            const Long colorFore = ElementSetting(kBorderColor, "0");
            const Long colorForeTouch = ElementSetting(kBorderColor, "0");
            return Stroke{.colorFore = colorFore, .colorForeTouch = colorForeTouch, .penWidth = 1};
          }(),
          kNone) {}

void clsEllipse::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::Ellipse(hdc, x1, y1, x2, y2);
}

void clsEllipse::GiveOrder(ado::Recordset& newRow) { PutNextOrder(newRow); }

std::span<const Column<FilledShape>> clsEllipse::SaveColumns() const {
  static constexpr auto kColumns = FilledColumns<FilledShape>::kSave.Without("OrderIndex");
  return kColumns;
}

void clsEllipse::ReadBack(const ado::Recordset& row) {
  orderIndex_ = automation::To<Long>(row.Get("OrderIndex"));
  ShapeClass::ReadBack(row);
}

bool clsEllipse::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const {
  return RegionOf(Initial()).HasPoint(pX, Py);
}

bool clsEllipse::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const {
  return RegionOf(Initial()).MeetsRect(pRectXs, pRectYs, pRectDx, pRectDy);
}

}  // namespace quenzel7
