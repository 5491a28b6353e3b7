#include "shapes/filled_shape.h"

#include <optional>

#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"
#include "shapes/current_pen.h"
#include "shapes/pick_ups.h"

namespace quenzel7 {

using automation::Add;

std::span<const Column<FilledShape>> FilledShape::SaveColumns() const {
  return FilledColumns<FilledShape>::kSave;
}

void FilledShape::WriteRow(ado::Recordset& row) { WriteColumns(row, *this, SaveColumns()); }

void FilledShape::ReadRow(const ado::Recordset& row) {
  ReadColumns<FilledShape>(row, *this, FilledColumns<FilledShape>::kLoad);
}

void FilledShape::Paint(Long hdc) const {
  gdi::LOGPEN border = CurrentPen(hdc);
  border.lopnColor = Rgb(colorFore_);
  border.lopnWidth.x = penWidth_;
  // A thick border is solid and grows inward; only a one-pixel border has a line style.
  border.lopnStyle = penWidth_ == 1 ? static_cast<std::uint32_t>(penStyle_) : gdi::PS_INSIDEFRAME;
  std::optional<gdi::SelectedPen> pen(std::in_place, hdc, gdi::CreatePenIndirect(&border));

  const Descriptor& box = Displayed();
  const Long x2 = Add(box.xs, box.dx);
  const Long y2 = Add(box.ys, box.dy);
  const gdi::SelectedBrush brush(hdc, CreateBodyBrush(hdc));
  PaintFigure(hdc, box.xs, box.ys, x2, y2);
  // The pen goes back before the brush.
  pen.reset();
}

Long FilledShape::CreateBodyBrush(Long hdc) const {
  if (fillStyle_ != eFS_Hollow) {
    const gdi::LOGBRUSH solid{gdi::BS_SOLID, Rgb(SolidBodyColor()), 0};
    return gdi::CreateBrushIndirect(&solid);
  }
  if (hatchStyle_ != eHS_None) {
    gdi::SetBkColor(hdc, Rgb(colorBack_));
    return gdi::CreateHatchBrush(hatchStyle_, Rgb(HatchLineColor()));
  }
  constexpr gdi::LOGBRUSH kHollow{gdi::BS_NULL, 0, 0};
  return gdi::CreateBrushIndirect(&kHollow);
}

void FilledShape::DrawPickUps(Long hdc, Long offsetX, Long offsetY, Single scaleX, Single scaleY, Long width,
                              Long maxX, Long maxY) const {
  quenzel7::DrawPickUps(hdc, Displayed(), PageView{offsetX, offsetY, scaleX, scaleY}, width, maxX, maxY);
}

}  // namespace quenzel7
