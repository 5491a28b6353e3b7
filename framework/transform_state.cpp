#include "framework/transform_state.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "framework/element_types.h"
#include "framework/position.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/array.h"
#include "platform/automation/convert.h"

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

constexpr Long kMark = 1;

/// Whether a run of cells of a map, which all lie in it, holds the mark.
template <class Cell>
bool HoldsMark(std::span<const Cell> cells) {
  if constexpr (std::is_same_v<Cell, Byte>) {
    return !cells.empty() && std::memchr(cells.data(), kMark, cells.size()) != nullptr;
  } else {
    return std::find(cells.begin(), cells.end(), static_cast<Cell>(kMark)) != cells.end();
  }
}

template <class Cell>
bool HoldsMark(const automation::Array& map, const Descriptor& p) {
  const std::span<const Cell> cells = map.Cells<Cell>();
  const auto at = [&](Long x, Long y) {
    const std::int64_t row = std::int64_t{map.UpperBound(1)} - map.LowerBound(1) + 1;
    return static_cast<std::size_t>((std::int64_t{y} - map.LowerBound(2)) * row + x - map.LowerBound(1));
  };
  const std::size_t first = at(p.xs, p.ys), behind = at(p.xs + p.dx - 1, p.ys + p.dy - 1) + 1;
  // Where an element takes most of its rows, one look over all of them, with what lies between, mostly does.
  const bool isWide = std::int64_t{p.dx} * 2 > std::int64_t{map.UpperBound(1)} - map.LowerBound(1);
  if (isWide && !HoldsMark(cells.subspan(first, behind - first))) return false;
  for (Long y = p.ys; y < p.ys + p.dy; ++y) {
    if (HoldsMark(cells.subspan(at(p.xs, y), static_cast<std::size_t>(p.dx)))) return true;
  }
  return false;
}

bool HoldsMarkInAnyCells(const automation::Array& map, const Descriptor& p) {
  for (Long x = p.xs; x < p.xs + p.dx; ++x) {
    for (Long y = p.ys; y < p.ys + p.dy; ++y) {
      if (automation::To<Double>(map.At(x, y)) == kMark) return true;
    }
  }
  return false;
}

/// Whether a cell under a rectangle, which does not reach beyond the map's upper bounds, holds the mark.
bool StandsOnMark(const automation::Array& map, const Descriptor& p) {
  if (p.dx < 1 || p.dy < 1) return false;
  map.At(p.xs, p.ys);  // Error 9 before the first cells.
  switch (map.ElementKind()) {
    case automation::VariantKind::Byte:
      return HoldsMark<Byte>(map, p);
    case automation::VariantKind::Integer:
      return HoldsMark<Integer>(map, p);
    case automation::VariantKind::Long:
      return HoldsMark<Long>(map, p);
    default:
      return HoldsMarkInAnyCells(map, p);
  }
}

Descriptor ProposedOf(const ItfHmiElement& element) {
  Descriptor proposed;
  element.GetBoundingRect(proposed.xs, proposed.ys, proposed.dx, proposed.dy, kTransformed);
  return proposed;
}

}  // namespace

enCollisionStatus GetElementTransformState(const ItfHmiElement& element,
                                           const automation::Variant& collisionMap) {
  const automation::Array& map = collisionMap.Elements();
  const Limits limits{map.UpperBound(1), map.UpperBound(2)};
  const Descriptor proposed = ProposedOf(element);
  return element.ElementType() == kLineElement ? JudgeLine(proposed, limits)
                                               : JudgeRectangle(proposed, limits);
}

enCollisionStatus GetTouchTransformState(const ItfHmiElement& element,
                                         const automation::Variant& collisionMap) {
  const enCollisionStatus status = GetElementTransformState(element, collisionMap);
  if (status == eCS_OutOfRAnge) return status;
  return StandsOnMark(collisionMap.Elements(), ProposedOf(element)) ? eCS_Overlap : status;
}

}  // namespace quenzel7
