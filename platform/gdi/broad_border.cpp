#include "platform/gdi/broad_border.h"

#include <algorithm>
#include <limits>

namespace quenzel7::gdi {

Box OuterEdge(const Box& box, std::int64_t width) {
  const std::int64_t before = width / 2, after = width - 1 - before;
  return {box.left - before, box.top - before, box.right + after, box.bottom + after};
}

Box MiddleOf(const Box& box, std::int64_t width) {
  const std::int64_t before = width / 2, after = width - 1 - before;
  return {box.left + before, box.top + before, box.right - after, box.bottom - after};
}

BroadBorder::BroadBorder(const RoundedBox& middle, std::int64_t width)
    : middle_(middle), width_(width), disc_(width, width), bounds_(OuterEdge(middle.Bounds(), width)) {}

RoundedBox::Row BroadBorder::At(std::int64_t y) const {
  const std::int64_t before = width_ / 2, after = width_ - 1 - before;
  std::int64_t left = bounds_.right, innerLeft = bounds_.left;
  bool hasHole = true;
  // Every row of the disc brings a row of the middle here.
  for (std::int64_t j = 0; j < width_; ++j) {
    const std::int64_t middleY = y + before - j;
    if (middleY < middle_.Bounds().top || middleY >= middle_.Bounds().bottom) continue;
    const RoundedBox::Row row = middle_.At(middleY);
    const std::int64_t offset = disc_.At(j).first;
    left = std::min(left, row.left - before + offset);
    innerLeft = std::max(innerLeft, row.innerLeft + after - offset);
    hasHole = hasHole && row.innerRight < row.right;
  }
  // Middle and disc are symmetric, each in itself.
  const std::int64_t mirror = bounds_.left + bounds_.right;
  if (!hasHole || innerLeft >= mirror - innerLeft) return {left, mirror - left, mirror - left, mirror - left};
  return {left, innerLeft, mirror - innerLeft, mirror - left};
}

void BroadBorder::Paint(SpanPainter& border, SpanPainter* hole) const {
  // Where the whole disc moves along straight sides, all rows are the same.
  const RoundedBox::Rows middle = middle_.StraightRows();
  const RoundedBox::Rows straight{middle.top + width_ - 1 - width_ / 2, middle.bottom - width_ / 2};
  PaintRows(
      bounds_.ClippedTo(border.Target()), straight, [&](std::int64_t y) { return At(y); }, &border, hole);
}

}  // namespace quenzel7::gdi
