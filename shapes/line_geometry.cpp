#include "shapes/line_geometry.h"

#include <cmath>
#include <cstdint>

#include "framework/geometry.h"
#include "platform/automation/arithmetic.h"
#include "platform/automation/automation_error.h"

namespace quenzel7 {
namespace {

using automation::Add;
using automation::Negate;
using automation::RoundHalfEven;
using automation::Subtract;

/// u.w; exact for all lengths of panels.
Double Dot(LinePoint u, LinePoint w) { return Double{1} * u.x * w.x + Double{1} * u.y * w.y; }

LinePoint Between(LinePoint from, LinePoint to) { return {Subtract(to.x, from.x), Subtract(to.y, from.y)}; }

/// On which side of the segment q-r the point p lies: -1, 1, or 0 when it is on the line through them.
int SideOf(LinePoint p, LinePoint q, LinePoint r) {
  const LinePoint toQ = Between(p, q);
  const LinePoint toR = Between(p, r);
  // The sign of the cross product.
  const std::int64_t forward = std::int64_t{toQ.x} * toR.y;
  const std::int64_t backward = std::int64_t{toQ.y} * toR.x;
  return (forward > backward) - (forward < backward);
}

bool OnOppositeSides(LinePoint a, LinePoint b, LinePoint q, LinePoint r) {
  return SideOf(a, q, r) * SideOf(b, q, r) < 0;
}

/// Makes one side of a box start at its lower end.
void Normalise(Long& start, Long& size) {
  if (size >= 0) return;
  start = Add(start, size);
  size = Negate(size);
}

}  // namespace

LinePoint TailOf(const Descriptor& line) { return {Add(line.xs, line.dx), Add(line.ys, line.dy)}; }

bool PointNearBox(const Descriptor& line, Long penWidth, Long x, Long y) {
  auto [xs, ys, dx, dy] = line;
  const Long half = automation::IntDiv(penWidth, 2);
  if (dx == 0) {
    if (PointInRect(x, y, Subtract(xs, half), ys, half, dy)) return true;
  } else if (dy == 0) {
    if (PointInRect(x, y, xs, Subtract(ys, half), dx, half)) return true;
  }
  Normalise(xs, dx);
  Normalise(ys, dy);
  return PointInRect(x, y, xs, ys, dx, dy);
}

Single DistanceToLine(const Descriptor& line, Long x, Long y) {
  const LinePoint vector{line.dx, line.dy};
  const LinePoint toPoint = Between({line.xs, line.ys}, {x, y});
  const auto squaredLength = static_cast<Single>(Dot(vector, vector));
  if (squaredLength == 0) {
    throw automation::AutomationError(automation::ErrorNumber::DivisionByZero,
                                      "a line of length 0 has no distance from a point");
  }
  const Single along = static_cast<Single>(Dot(toPoint, vector)) / squaredLength;
  const LinePoint nearest{RoundHalfEven(along * static_cast<Single>(vector.x)),
                          RoundHalfEven(along * static_cast<Single>(vector.y))};
  const LinePoint off = Between(nearest, toPoint);
  return std::sqrt(static_cast<Single>(Dot(off, off)));
}

Long OutCode(const Descriptor& rectangle, LinePoint point) {
  const LinePoint far = TailOf(rectangle);
  const Long across = point.x < rectangle.xs ? 8 : point.x > far.x ? 4 : 0;
  const Long down = point.y > far.y ? 2 : point.y < rectangle.ys ? 1 : 0;
  return across + down;
}

bool SegmentsCross(LinePoint a, LinePoint b, LinePoint c, LinePoint d) {
  return OnOppositeSides(a, b, c, d) && OnOppositeSides(c, d, a, b);
}

bool LineMeetsRect(const Descriptor& line, const Descriptor& rectangle) {
  const LinePoint head{line.xs, line.ys};
  const LinePoint tail = TailOf(line);
  const Long headCode = OutCode(rectangle, head);
  const Long tailCode = OutCode(rectangle, tail);
  if (headCode == 0 || tailCode == 0) return true;
  if ((headCode & tailCode) != 0) return false;

  const LinePoint near{rectangle.xs, rectangle.ys};
  const LinePoint far = TailOf(rectangle);
  const LinePoint corners[] = {near, {far.x, near.y}, far, {near.x, far.y}, near};
  for (int side = 0; side < 4; ++side) {
    if (SegmentsCross(head, tail, corners[side], corners[side + 1])) return true;
  }
  return false;
}

}  // namespace quenzel7
