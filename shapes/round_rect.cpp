#include "shapes/round_rect.h"

#include "platform/automation/arithmetic.h"
#include "shapes/element_setting.h"
#include "shapes/figure_region.h"

namespace quenzel7 {
namespace {

/// Width or height of the ellipse in a corner.
Long CornerSize(Long side) { return automation::RoundHalfEven(static_cast<Single>(side) * 0.5f); }

/// The region has its box from the position at rest and its corners from the one on display: a hit in the
/// middle of a drag depends on both, as hosts know it.
FigureRegion RegionOf(const Descriptor& initial, const Descriptor& displayed) {
  const auto [left, top, right, bottom] = RegionBox(initial);
  return FigureRegion(
      gdi::CreateRoundRectRgn(left, top, right, bottom, CornerSize(displayed.dx), CornerSize(displayed.dy)));
}

}  // namespace

clsRoundRect::clsRoundRect()
    : ShapeClass(
          [] {
            const Long colorFore = ElementSetting(6052, "0");
            return Stroke{.colorFore = colorFore, .colorForeTouch = colorFore, .penWidth = 1};
          }(),
          kNone) {}

void clsRoundRect::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::RoundRect(hdc, x1, y1, x2, y2, CornerSize(Displayed().dx), CornerSize(Displayed().dy));
}

void clsRoundRect::GiveOrder(ado::Recordset& newRow) { PutNextOrder(newRow); }

std::span<const Column<FilledShape>> clsRoundRect::SaveColumns() const {
  static constexpr auto kColumns = FilledColumns<FilledShape>::kSave.Without("DescriptionFontNumber");
  return kColumns;
}

bool clsRoundRect::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const {
  return RegionOf(Initial(), Displayed()).HasPoint(pX, Py);
}

bool clsRoundRect::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const {
  return RegionOf(Initial(), Displayed()).MeetsRect(pRectXs, pRectYs, pRectDx, pRectDy);
}

}  // namespace quenzel7
