#include "framework/geometry.h"

#include "platform/automation/arithmetic.h"

namespace quenzel7 {
namespace {

using automation::ToInteger;

/// A rectangle of 16-bit values; the far sides are kept in 32 bits, where they always fit.
struct Rect {
  Rect(Long x, Long y, Long dx, Long dy)
      : left(ToInteger(x)), top(ToInteger(y)), right(left + ToInteger(dx)), bottom(top + ToInteger(dy)) {}

  Long left, top, right, bottom;

  bool Has(Long x, Long y) const {
    const Integer column = ToInteger(x);
    const Integer row = ToInteger(y);
    return left <= column && column <= right && top <= row && row <= bottom;
  }

  bool HasCornerOf(const Rect& other) const {
    return Has(other.left, other.top) || Has(other.right, other.top) || Has(other.left, other.bottom) ||
           Has(other.right, other.bottom);
  }
};

/// `upright` passes through `lying` from above its top to below its bottom, between its sides.
bool CrossesUpright(const Rect& upright, const Rect& lying) {
  return upright.left >= lying.left && upright.right <= lying.right && upright.top <= lying.top &&
         upright.bottom >= lying.bottom;
}

}  // namespace

bool PointInRect(Long x, Long y, Long rx, Long ry, Long rdx, Long rdy) {
  return Rect(rx, ry, rdx, rdy).Has(x, y);
}

bool RectsMeet(Long ax, Long ay, Long adx, Long ady, Long bx, Long by, Long bdx, Long bdy) {
  const Rect a(ax, ay, adx, ady);
  const Rect b(bx, by, bdx, bdy);
  return b.HasCornerOf(a) || a.HasCornerOf(b) || CrossesUpright(a, b) || CrossesUpright(b, a);
}

}  // namespace quenzel7
