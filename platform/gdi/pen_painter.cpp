#include "platform/gdi/pen_painter.h"

#include <algorithm>

#include "platform/gdi/dash_pattern.h"
#include "platform/gdi/line_walk.h"
#include "platform/gdi/scratch.h"
#include "platform/gdi/stroke.h"

namespace quenzel7::gdi {

BrushFiller::BrushFiller(Context& context, const Brush& brush, std::uint8_t table) {
  if (brush.style != BS_NULL) painter_.emplace(*context.bitmap, InkOf(brush, context.GapColor()), table);
}

PenPainter::PenPainter(Context& context)
    : pen_(context.pen), painter_(*context.bitmap, Ink{context.pen.color, context.GapColor(), nullptr}) {}

void PenPainter::ThinLine(POINT from, POINT to) {
  const std::int32_t width = painter_.Target().Width(), height = painter_.Target().Height();
  if (!pen_.IsDashed()) {
    if (from.y == to.y) {
      // Along a row the left end belongs to the line if it is the start.
      const bool goesRight = from.x < to.x;
      const std::int64_t left = goesRight ? from.x : std::int64_t{to.x} + 1;
      painter_.Span(from.y, left, goesRight ? to.x : std::int64_t{from.x} + 1);
    } else {
      WalkLine(from, to, width, height,
               [&](std::int32_t x, std::int32_t y, std::uint64_t) { painter_.ClippedPixel(x, y); });
    }
    return;
  }
  const DashPattern pattern(pen_.Line());
  WalkLine(from, to, width, height, [&](std::int32_t x, std::int32_t y, std::uint64_t step) {
    painter_.ClippedPixel(x, y, pattern.IsGap(phase_ + step));
  });
  phase_ += LineLength(from, to);
}

void PenPainter::ThinLines(std::span<const POINT> points) {
  for (std::size_t i = 1; i < points.size(); ++i) ThinLine(points[i - 1], points[i]);
}

void PenPainter::Lines(std::span<const POINT> points) {
  if (pen_.IsThin()) {
    ThinLines(points);
  } else {
    StrokeLines(points, false, pen_, painter_);
  }
}

void PenPainter::Outline(std::span<const POINT> points) {
  if (points.empty()) return;
  if (!pen_.IsThin()) {
    StrokeLines(points, true, pen_, painter_);
    return;
  }
  ThinLines(points);
  ThinLine(points.back(), points.front());
  const bool isOnePixel = std::all_of(points.begin(), points.end(), [&](const POINT& point) {
    return point.x == points[0].x && point.y == points[0].y;
  });
  if (isOnePixel) painter_.Span(points[0].y, points[0].x, std::int64_t{points[0].x} + 1);
}

void PenPainter::Outline(const RoundedBox& figure) {
  Scratch<POINT> points;
  figure.AddBorderPoints(*points);
  Outline(*points);
}

void PenPainter::ThinBorder(const RoundedBox& figure, SpanPainter* inside) {
  if (!pen_.IsDashed()) {
    figure.Paint(&painter_, inside);
    return;
  }
  if (inside != nullptr) figure.FillInside(*inside);
  if (figure.IsSquare() || figure.IsLarge()) {
    Outline(figure);
    return;
  }
  const DashPattern pattern(pen_.Line());
  figure.WalkBorder(painter_.Target(), [&](std::int32_t x, std::int32_t y, std::uint64_t step) {
    painter_.ClippedPixel(x, y, pattern.IsGap(step));
  });
}

}  // namespace quenzel7::gdi
