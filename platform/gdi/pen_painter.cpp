#include "platform/gdi/pen_painter.h"

#include <algorithm>
#include <array>

#include "platform/gdi/dash_pattern.h"
#include "platform/gdi/line_walk.h"

namespace quenzel7::gdi {

BrushFiller::BrushFiller(Context& context, const Brush& brush, std::uint8_t table) {
  if (brush.style != BS_NULL) painter_.emplace(*context.bitmap, InkOf(brush, context.background), table);
}

PenPainter::PenPainter(Context& context)
    : pen_(context.pen), painter_(*context.bitmap, Ink{context.pen.color, context.background, nullptr}) {}

void PenPainter::ThinLine(POINT from, POINT to) {
  if (from.y == to.y && !pen_.IsDashed()) {
    // Along a row the left end belongs to the line if it is the start.
    const bool goesRight = from.x < to.x;
    const std::int64_t left = goesRight ? from.x : std::int64_t{to.x} + 1;
    painter_.Span(from.y, left, goesRight ? to.x : std::int64_t{from.x} + 1);
    return;
  }
  const DashPattern pattern(pen_.IsDashed() ? pen_.Line() : std::uint32_t{PS_SOLID});
  WalkLine(from, to, painter_.Target().Width(), painter_.Target().Height(),
           [&](std::int32_t x, std::int32_t y, std::uint64_t step) {
             painter_.ClippedPixel(x, y, pattern.IsGap(phase_ + step));
           });
  phase_ += LineLength(from, to);
}

void PenPainter::ThinLines(std::span<const POINT> points) {
  for (std::size_t i = 1; i < points.size(); ++i) ThinLine(points[i - 1], points[i]);
}

void PenPainter::DashedFrame(const Box& box) {
  const auto left = static_cast<std::int32_t>(box.left), right = static_cast<std::int32_t>(box.right - 1);
  const auto top = static_cast<std::int32_t>(box.top), bottom = static_cast<std::int32_t>(box.bottom - 1);
  if (box.Width() == 1 && box.Height() == 1) {
    painter_.Fill(box);
    return;
  }
  const std::array<POINT, 5> corners{
      {{right, top}, {left, top}, {left, bottom}, {right, bottom}, {right, top}}};
  ThinLines(corners);
}

void PenPainter::DashedBorder(const RoundedBox& figure) {
  const DashPattern pattern(pen_.Line());
  figure.WalkBorder(painter_.Target(), [&](std::int32_t x, std::int32_t y, std::uint64_t step) {
    painter_.ClippedPixel(x, y, pattern.IsGap(step));
  });
}

}  // namespace quenzel7::gdi
