#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "platform/gdi/arc.h"
#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

void DrawLines(Context& context, std::span<const POINT> points) {
  if (context.pen.IsNull()) return;
  PenPainter(context).ThinLines(points);
}

}  // namespace

BOOL MoveToEx(HDC dc, std::int32_t x, std::int32_t y, POINT* before) {
  Note("MoveToEx", Object{dc}, x, y);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const POINT old = std::exchange(context->position, POINT{x, y});
  if (before != nullptr) *before = old;
  return 1;
}

BOOL LineTo(HDC dc, std::int32_t x, std::int32_t y) {
  Note("LineTo", Object{dc}, x, y);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  DrawLines(*context, std::array<POINT, 2>{{context->position, {x, y}}});
  context->position = {x, y};
  return 1;
}

BOOL Polyline(HDC dc, const POINT* points, std::int32_t count) {
  const bool isUsable = points != nullptr && count >= 2;
  const std::span<const POINT> all(points,
                                   points != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0);
  Note("Polyline", Object{dc}, all);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !isUsable) return 0;
  DrawLines(*context, all);
  return 1;
}

BOOL AngleArc(HDC dc, std::int32_t x, std::int32_t y, std::uint32_t radius, float start, float sweep) {
  Note("AngleArc", Object{dc}, x, y, radius, start, sweep);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !std::isfinite(start) || !std::isfinite(sweep)) return 0;
  std::vector<POINT> points{context->position};
  const std::vector<POINT> arc = ArcPoints({x, y}, radius, start, sweep);
  points.insert(points.end(), arc.begin(), arc.end());
  DrawLines(*context, points);
  context->position = PointOnCircle({x, y}, radius, double{start} + sweep);
  return 1;
}

}  // namespace quenzel7::gdi
