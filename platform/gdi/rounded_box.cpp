#include "platform/gdi/rounded_box.h"

#include <algorithm>

namespace quenzel7::gdi {

RoundedBox::RoundedBox(const Box& box, std::int64_t cornerWidth, std::int64_t cornerHeight)
    : box_(box),
      corner_(std::min(cornerWidth, box.Width()), std::min(cornerHeight, box.Height())),
      curveRows_(0) {
  const bool isSquare = cornerWidth <= 1 || cornerHeight <= 1;
  if (!isSquare && !box.IsEmpty()) curveRows_ = (std::min(cornerHeight, box.Height()) + 1) / 2;
}

RoundedBox::Row RoundedBox::At(std::int64_t y) const {
  const std::int64_t row = std::min(y - box_.top, box_.bottom - 1 - y);
  EllipseQuarter::Row curve{0, 0};
  if (row < curveRows_) curve = corner_.At(row);
  const std::int64_t left = box_.left + curve.first, right = box_.right - curve.first;
  const std::int64_t innerLeft = box_.left + curve.last + 1, innerRight = box_.right - curve.last - 1;
  if (row == 0 || innerLeft > innerRight) return {left, right, right, right};
  return {left, innerLeft, innerRight, right};
}

template <typename PaintRow, typename PaintBetween>
void RoundedBox::ForEachPart(const Bitmap& target, PaintRow&& paintRow, PaintBetween&& paintBetween) const {
  const Box visible = box_.ClippedTo(target);
  if (visible.IsEmpty()) return;
  const std::int64_t curveEnd = std::min(box_.top + curveRows_, box_.bottom);
  const std::int64_t curveStart = std::max(box_.bottom - curveRows_, curveEnd);
  for (std::int64_t y = visible.top; y < std::min(visible.bottom, curveEnd); ++y) paintRow(y, At(y));
  for (std::int64_t y = std::max(visible.top, curveStart); y < visible.bottom; ++y) paintRow(y, At(y));
  paintBetween(Box{box_.left, curveEnd, box_.right, curveStart});
}

void RoundedBox::FillInside(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(),
      [&](std::int64_t y, const Row& row) { painter.Span(y, row.innerLeft, row.innerRight); },
      [&](const Box& between) {
        const Box inside = box_.Inset(1);
        painter.Fill({inside.left, std::max(between.top, inside.top), inside.right,
                      std::min(between.bottom, inside.bottom)});
      });
}

void RoundedBox::PaintBorder(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(),
      [&](std::int64_t y, const Row& row) {
        painter.Span(y, row.left, row.innerLeft);
        painter.Span(y, row.innerRight, row.right);
      },
      [&](const Box& between) {
        Box sides = between;
        if (between.top == box_.top && !between.IsEmpty()) {
          painter.Span(sides.top, between.left, between.right);
          ++sides.top;
        }
        if (between.bottom == box_.bottom && !sides.IsEmpty()) {
          --sides.bottom;
          painter.Span(sides.bottom, between.left, between.right);
        }
        painter.Fill({sides.left, sides.top, sides.left + 1, sides.bottom});
        painter.Fill({std::max(sides.left + 1, sides.right - 1), sides.top, sides.right, sides.bottom});
      });
}

void RoundedBox::FillWhole(SpanPainter& painter) const {
  ForEachPart(
      painter.Target(), [&](std::int64_t y, const Row& row) { painter.Span(y, row.left, row.right); },
      [&](const Box& between) { painter.Fill(between); });
}

void RoundedBox::FillAround(const RoundedBox& hole, SpanPainter& painter) const {
  const Box visible = box_.ClippedTo(painter.Target());
  for (std::int64_t y = visible.top; y < visible.bottom; ++y) {
    const Row outer = At(y);
    const bool isAtHole = y >= hole.box_.top && y < hole.box_.bottom && !hole.box_.IsEmpty();
    const Row inner = isAtHole ? hole.At(y) : Row{outer.right, 0, 0, outer.right};
    painter.Span(y, outer.left, inner.left);
    painter.Span(y, inner.right, outer.right);
  }
}

}  // namespace quenzel7::gdi
