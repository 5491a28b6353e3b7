#include "framework/transform_state.h"

#include "framework/element_types.h"
#include "framework/position.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/array.h"

namespace quenzel7 {
namespace {

using automation::Add;

struct Limits {
  Long w, h;
};

enCollisionStatus LegalIf(bool inside) { return inside ? eCS_Legall : eCS_OutOfRAnge; }

enCollisionStatus JudgeRectangle(const Descriptor& p, const Limits& limits) {
  const auto inside = [&limits](Long x, Long y) {
    return x >= 0 && x <= limits.w && y >= 0 && y <= limits.h;
  };
  const Long right = Add(p.xs, p.dx);
  const Long bottom = Add(p.ys, p.dy);
  const bool allInside =
      inside(p.xs, p.ys) && inside(right, p.ys) && inside(p.xs, bottom) && inside(right, bottom);
  if (!allInside) return eCS_OutOfRAnge;
  return p.dx == 0 || p.dy == 0 ? eCS_Overlap : eCS_Legall;
}

/// By the signs of the vector. The limits differ by one from case to case: the panel takes lines so, and a
/// rule that made them alike would refuse lines that stand in projects.
enCollisionStatus JudgeLine(const Descriptor& p, const Limits& limits) {
  const auto [xs, ys, dx, dy] = p;
  const auto [w, h] = limits;
  if (dx == 0 && dy == 0) return eCS_Overlap;
  const Long endX = Add(xs, dx);
  const Long endY = Add(ys, dy);
  if (dx == 0) {
    if (dy > 0) return LegalIf(endY <= h && ys >= 0 && xs >= 0 && xs < w);
    return LegalIf(ys <= h && endY >= -1 && xs >= 0 && xs < w);
  }
  if (dy == 0) {
    if (dx > 0) return LegalIf(endX <= w && xs >= 0 && ys >= 0 && ys < h);
    return LegalIf(xs <= w && endX >= -1 && ys >= 0 && ys < h);
  }
  if (dx > 0) {
    if (dy > 0) return LegalIf(endY < h && ys >= 0 && xs >= 0 && endX <= w);
    return LegalIf(endY >= -1 && ys < h && xs >= 0 && endX <= w);
  }
  if (dy > 0) return LegalIf(endY <= h && ys >= 0 && xs < w && endX >= -1);
  return LegalIf(endY >= -1 && ys < h && xs < w && endX >= -1);
}

}  // namespace

enCollisionStatus GetElementTransformState(const ItfHmiElement& element,
                                           const automation::Variant& collisionMap) {
  const automation::Array& map = collisionMap.Elements();
  const Limits limits{map.UpperBound(1), map.UpperBound(2)};
  Descriptor proposed;
  element.GetBoundingRect(proposed.xs, proposed.ys, proposed.dx, proposed.dy, kTransformed);
  return element.ElementType() == kLineElement ? JudgeLine(proposed, limits)
                                               : JudgeRectangle(proposed, limits);
}

}  // namespace quenzel7
