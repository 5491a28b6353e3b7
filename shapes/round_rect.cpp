#include "shapes/round_rect.h"

#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"

namespace quenzel7 {
namespace {

/// Width or height of the ellipse in a corner.
Long CornerSize(Long side) { return automation::RoundHalfEven(static_cast<Single>(side) * 0.5f); }

}  // namespace

clsRoundRect::clsRoundRect()
    : ElementClass(
          [] {
            const Long colorFore = ElementSetting(ElementDefault::RoundRectColor, "0");
            return Stroke{.colorFore = colorFore, .colorForeTouch = colorFore, .penWidth = 1};
          }(),
          kNone) {}

void clsRoundRect::PaintFigure(Long hdc, Long x1, Long y1, Long x2, Long y2) const {
  gdi::RoundRect(hdc, x1, y1, x2, y2, CornerSize(Displayed().dx), CornerSize(Displayed().dy));
}

FigureRegion clsRoundRect::Region() const {
  // The box is that of the position at rest, the corners those of the one on display: a hit in the middle of
  // a drag depends on both, as hosts know it.
  const auto [left, top, right, bottom] = RegionBox(Initial());
  return FigureRegion(gdi::CreateRoundRectRgn(left, top, right, bottom, CornerSize(Displayed().dx),
                                              CornerSize(Displayed().dy)));
}

std::span<const Column<FilledShape>> clsRoundRect::SaveColumns() const {
  static constexpr auto kColumns = FilledColumns<FilledShape>::kSave.Without("DescriptionFontNumber");
  return kColumns;
}

}  // namespace quenzel7
