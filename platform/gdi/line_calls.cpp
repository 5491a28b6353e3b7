#include <array>
#include <cmath>
#include <utility>

#include "platform/gdi/arc.h"
#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

/// Lines from the pen position, the first of the points, on, or part of the path that is being recorded. The
/// last point becomes the pen position.
void LinesAlong(Context& context, std::span<const POINT> points) {
  if (context.path.IsRecording()) {
    context.path.AddLines(points.front(), points.subspan(1));
  } else if (!context.pen.IsNull()) {
    PenPainter(context).Lines(points);
  }
  context.position = points.back();
}

}  // namespace

BOOL MoveToEx(HDC dc, std::int32_t x, std::int32_t y, POINT* before) {
  Note("MoveToEx", Object{dc}, x, y);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const POINT old = std::exchange(context->position, POINT{x, y});
  context->path.Move();
  if (before != nullptr) *before = old;
  return 1;
}

BOOL LineTo(HDC dc, std::int32_t x, std::int32_t y) {
  Note("LineTo", Object{dc}, x, y);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  LinesAlong(*context, std::array<POINT, 2>{{context->position, {x, y}}});
  return 1;
}

BOOL Polyline(HDC dc, const POINT* points, std::int32_t count) {
  const bool isUsable = points != nullptr && count >= 2;
  const std::span<const POINT> all(points,
                                   points != nullptr && count > 0 ? static_cast<std::size_t>(count) : 0);
  Note("Polyline", Object{dc}, all);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !isUsable) return 0;
  if (context->path.IsRecording()) {
    context->path.AddFigure(all, false);
  } else if (!context->pen.IsNull()) {
    PenPainter(*context).Lines(all);
  }
  return 1;
}

BOOL AngleArc(HDC dc, std::int32_t x, std::int32_t y, std::uint32_t radius, float start, float sweep) {
  Note("AngleArc", Object{dc}, x, y, radius, start, sweep);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !std::isfinite(start) || !std::isfinite(sweep)) return 0;
  Scratch<POINT> points;
  points->push_back(context->position);
  AddArcPoints({x, y}, radius, start, sweep, *points);
  LinesAlong(*context, *points);
  return 1;
}

}  // namespace quenzel7::gdi
