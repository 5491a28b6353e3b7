#include "shapes/pick_ups.h"

#include "framework/geometry.h"
#include "platform/automation/arithmetic.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/selected.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::Fix;
using automation::RoundHalfEven;
using automation::Subtract;
using automation::ToInteger;

/// By y zone, then x zone, both counted from 1.
constexpr enPickUpDirection kPickUpTable[3][3] = {{ePD_UpLeft, ePD_Up, ePD_UpRight},
                                                  {ePD_Left, ePD_None, ePD_Right},
                                                  {ePD_LeftDown, ePD_Down, ePD_DownRight}};

/// Which zone of an axis a place lies in: 1 at the start, 2 in the middle, 3 at the end, 0 none.
int Zone(Long place, Long start, Long size, Long width) {
  if (Subtract(start, width) <= place && place <= start) return 1;
  const Long middle = Fix(start + size / 2.0);
  // The middle handle of an odd size is half as wide as that of an even one: users of odd sizes aim at the
  // one column that is the middle.
  const Long middleStart = size % 2 == 0 ? Subtract(middle, width) : middle;
  if (middleStart <= place && place < Add(middle, width)) return 2;
  const Long end = Add(start, size);
  if (end <= place && place <= Add(end, width)) return 3;
  return 0;
}

/// In double precision, as the run-time multiplies a Single by a Long.
Long Scaled(Long offset, Single scale, Long coordinate) {
  return ToInteger(RoundHalfEven(offset + static_cast<Double>(scale) * coordinate));
}

}  // namespace

enPickUpDirection PickUpAt(const Descriptor& position, Long x, Long y, Long width) {
  const auto [xs, ys, dx, dy] = position;
  if (dx == 1 && dy == 1) return PointInRect(x, y, xs, ys, dx, dy) ? ePD_DownRight : ePD_None;
  const int column = Zone(x, xs, dx, width);
  if (column == 0) return ePD_None;
  const int row = Zone(y, ys, dy, width);
  if (row == 0) return ePD_None;
  return kPickUpTable[row - 1][column - 1];
}

void DrawPickUps(Long hdc, const Descriptor& position, const PageView& view, Long width, Long maxX,
                 Long maxY) {
  const auto [xs, ys, dx, dy] = position;
  const Long right = Add(xs, dx);
  const Long bottom = Add(ys, dy);
  const Long x1 = Scaled(view.offsetX, view.scaleX, xs);
  const Long y1 = Scaled(view.offsetY, view.scaleY, ys);
  const Long x2 = Scaled(view.offsetX, view.scaleX, right);
  const Long y2 = Scaled(view.offsetY, view.scaleY, bottom);
  const Double half = width / 2.0;
  const Long xm = Fix((x1 + x2) / 2.0);
  const Long ym = Fix((y1 + y2) / 2.0);
  const Long midLeft = Fix(xm - half), midRight = Fix(xm + half);
  const Long midTop = Fix(ym - half), midBottom = Fix(ym + half);

  const struct {
    bool drawn;
    Long left, top;
    /// The opposite corner: a place, and whether the handle's width goes on from there to the right or down
    /// (1), to the left or up (-1), or not at all.
    Long right;
    int across;
    Long bottom;
    int down;
  } handles[] = {
      {xs >= 1 && ys >= 1, x1, y1, x1, -1, y1, -1},
      {right < maxX && ys > 0, x2, y1, x2, 1, y1, -1},
      {ys > 0, midLeft, y1, midRight, 0, y1, -1},
      {xs >= 1 && bottom < maxY, x1, y2, x1, -1, y2, 1},
      {right < maxX && bottom < maxY, x2, y2, x2, 1, y2, 1},
      {bottom < maxY, midLeft, y2, midRight, 0, y2, 1},
      {xs > 0, x1, midTop, x1, -1, midBottom, 0},
      {right < maxX, x2, midTop, x2, 1, midBottom, 0},
  };
  const auto outward = [width](Long place, int side) {
    return ToInteger(side == 0 ? place : side > 0 ? Add(place, width) : Subtract(place, width));
  };
  const gdi::SelectedBrush brush(hdc, gdi::CreateSolidBrush(gdi::RGB(255, 0, 0)));
  const gdi::LOGPEN border{gdi::PS_SOLID, {0, 0}, gdi::RGB(0, 0, 0)};
  const gdi::SelectedPen pen(hdc, gdi::CreatePenIndirect(&border));
  for (const auto& handle : handles) {
    if (!handle.drawn) continue;
    gdi::Rectangle(hdc, ToInteger(handle.left), ToInteger(handle.top), outward(handle.right, handle.across),
                   outward(handle.bottom, handle.down));
  }
}

}  // namespace quenzel7
