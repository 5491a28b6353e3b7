#include "shapes/line.h"

#include <cstdint>

#include "framework/geometry.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/selected.h"
#include "shapes/current_pen.h"
#include "shapes/line_geometry.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::IntDiv;
using automation::Negate;
using automation::Subtract;

/// How far a point is from an end of the line, along each axis.
struct Distance {
  Distance(Long offsetX, Long offsetY) : across(Magnitude(offsetX)), down(Magnitude(offsetY)) {}

  Long Sum() const { return Add(across, down); }
  bool Within(Long reach) const { return across <= reach && down <= reach; }

  Long across, down;

 private:
  static Long Magnitude(Long value) { return value < 0 ? Negate(value) : value; }
};

}  // namespace

clsLine::clsLine() : ElementClass(StrokeFromSettings(ElementDefault::LineColor, ElementDefault::LineWidth)) {}

void clsLine::WriteRow(ado::Recordset& row) { WriteColumns<clsLine>(row, *this, Columns<clsLine>::kSave); }

void clsLine::ReadRow(const ado::Recordset& row) {
  ReadColumns<clsLine>(row, *this, Columns<clsLine>::kLoad);
}

void clsLine::Paint(Long hdc) const {
  CurrentPen(hdc);
  const gdi::LOGBRUSH ink{gdi::BS_SOLID, Rgb(colorFore_), 0};
  // Solid whatever the line style, and cut flat at its ends.
  constexpr std::uint32_t kStyle =
      gdi::PS_GEOMETRIC | gdi::PS_ENDCAP_FLAT | gdi::PS_JOIN_BEVEL | gdi::PS_INSIDEFRAME;
  const gdi::SelectedPen pen(
      hdc, gdi::ExtCreatePen(kStyle, static_cast<std::uint32_t>(penWidth_), &ink, 0, nullptr));
  const LinePoint tail = TailOf(Displayed());
  gdi::BeginPath(hdc);
  gdi::MoveToEx(hdc, Displayed().xs, Displayed().ys, nullptr);
  gdi::LineTo(hdc, tail.x, tail.y);
  gdi::EndPath(hdc);
  gdi::StrokePath(hdc);
}

enPickUpDirection clsLine::ItfHmiElement_GetPupDirection(Long pX, Long Py, Long pWidth) const {
  Long reach = IntDiv(Add(pWidth, 1), 2);
  if (reach == 0) reach = 1;
  const auto [xs, ys, dx, dy] = Initial();
  if (dx == 1 && dy == 1) return PointInRect(pX, Py, xs, ys, dx, dy) ? ePD_LineTail : ePD_None;
  const Long offsetX = Subtract(pX, xs);
  const Long offsetY = Subtract(Py, ys);
  const Distance fromHead(offsetX, offsetY);
  const Distance fromTail(Subtract(offsetX, dx), Subtract(offsetY, dy));
  // A tie goes to the tail.
  if (fromHead.Sum() >= fromTail.Sum()) return fromTail.Within(reach) ? ePD_LineTail : ePD_None;
  return fromHead.Within(reach) ? ePD_LineHead : ePD_None;
}

void clsLine::ItfHmiElement_Stretch(Long pDx, Long pDy, Long pDirection) {
  position_.Copy(kInitial, kTransformed);
  Descriptor& proposed = position_.At(kTransformed);
  const auto [xs, ys, dx, dy] = Initial();
  // A vector of size 1 is a line like others: nothing falls back to the last legal position.
  if (pDirection == ePD_LineHead) {
    proposed.xs = Add(xs, pDx);
    proposed.ys = Add(ys, pDy);
    proposed.dx = Subtract(dx, pDx);
    proposed.dy = Subtract(dy, pDy);
  } else if (pDirection == ePD_LineTail) {
    proposed.dx = Add(dx, pDx);
    proposed.dy = Add(dy, pDy);
  }
}

bool clsLine::ItfHmiElement_HitTestByPoint(Long pX, Long Py) const {
  if (!PointNearBox(Initial(), penWidth_, pX, Py)) return false;
  // The box is that of the line at rest, the distance that from the line on display: a hit in the middle of a
  // drag depends on both, as hosts know it.
  const Single reach = static_cast<Single>(penWidth_) / 2 + 1.5f;
  return DistanceToLine(Displayed(), pX, Py) < reach;
}

bool clsLine::ItfHmiElement_HitTestByRect(Long pRectXs, Long pRectYs, Long pRectDx, Long pRectDy) const {
  return LineMeetsRect(Initial(), {pRectXs, pRectYs, pRectDx, pRectDy});
}

}  // namespace quenzel7
