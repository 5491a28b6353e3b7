#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/gdi/ellipse.h"
#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// A box whose corners are quarters of an ellipse: a rectangle, a rounded rectangle or, with corners as
/// large as the box, an ellipse. The layer from shapes to spans.
class RoundedBox {
 public:
  /// `cornerWidth` and `cornerHeight` are those of the whole ellipse, cut to the box; 0 or 1 gives square
  /// corners.
  RoundedBox(const Box& box, std::int64_t cornerWidth, std::int64_t cornerHeight);

  const Box& Bounds() const { return box_; }

  /// One row: the body from `left` to `right`, the inside without a border of one pixel from
  /// `innerLeft` to `innerRight`, both half open. `y` is inside the box.
  struct Row {
    std::int64_t left, innerLeft, innerRight, right;
  };
  Row At(std::int64_t y) const;

  /// Fills the inside without its border of one pixel.
  void FillInside(SpanPainter& painter) const;
  /// Paints the border of one pixel.
  void PaintBorder(SpanPainter& painter) const;
  /// Calls `plot(x, y, step)` for every pixel of that border, from the lower end of the top right corner's
  /// curve against the clock; `step` counts them, also those outside `target`, which are left out.
  template <typename Plot>
  void WalkBorder(const Bitmap& target, Plot&& plot) const;

  /// Whether its corners are square.
  bool IsSquare() const { return curveRows_ == 0; }
  /// Whether walking around pixel by pixel would take long.
  bool IsLarge() const { return std::max(box_.Width(), box_.Height()) > EllipseQuarter::kLargestTraced; }

  /// Points along the border, in the same order, such that thin lines through them paint it: all pixels of
  /// the curves, or of a large figure chords that leave the curve by less than half a pixel.
  std::vector<POINT> BorderPoints() const;

  /// Fills everything, border included.
  void FillWhole(SpanPainter& painter) const;
  /// Fills what is not in `hole`, which lies inside; it may be empty.
  void FillAround(const RoundedBox& hole, SpanPainter& painter) const;

 private:
  /// Calls `paint` for every visible row in one of the curves, and once for the box between.
  template <typename PaintRow, typename PaintBetween>
  void ForEachPart(const Bitmap& target, PaintRow&& paintRow, PaintBetween&& paintBetween) const;

  /// The top left curve from its lower end to the top, in offsets from the corner of the box.
  std::vector<POINT> CurvePoints() const;

  Box box_;
  std::int64_t cornerWidth_, cornerHeight_;
  EllipseQuarter corner_;
  std::int64_t curveRows_;  ///< rows at the top, and as many at the bottom, that are not straight
};

template <typename Plot>
void RoundedBox::WalkBorder(const Bitmap& target, Plot&& plot) const {
  const Box visible = box_.ClippedTo(target);
  std::uint64_t step = 0;
  // A stretch of a row from one column to another, both included.
  const auto walkRow = [&](std::int64_t y, std::int64_t from, std::int64_t to) {
    const std::int64_t direction = from <= to ? 1 : -1;
    const bool isVisible = y >= visible.top && y < visible.bottom;
    for (std::int64_t x = from; isVisible && x != to + direction; x += direction) {
      if (x < visible.left || x >= visible.right) continue;
      plot(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y),
           step + static_cast<std::uint64_t>((x - from) * direction));
    }
    step += static_cast<std::uint64_t>((to - from) * direction + 1);
  };
  const std::int64_t lastRow = box_.bottom - 1;
  const std::int64_t curveEnd = std::min(box_.top + std::max<std::int64_t>(curveRows_, 1), box_.bottom);
  // Where both sides meet in one stretch, the left side has walked it.
  const auto hasRightSide = [&](std::int64_t y) { return At(y).innerRight < At(y).right; };
  for (std::int64_t y = curveEnd - 1; y > box_.top; --y) {
    if (hasRightSide(y)) walkRow(y, At(y).right - 1, At(y).innerRight);
  }
  walkRow(box_.top, At(box_.top).right - 1, At(box_.top).left);
  if (box_.Height() == 1) return;
  for (std::int64_t y = box_.top + 1; y < lastRow; ++y) {
    const Row row = At(y);
    const bool goesOutward = y - box_.top >= box_.bottom - 1 - y;
    goesOutward ? walkRow(y, row.left, row.innerLeft - 1) : walkRow(y, row.innerLeft - 1, row.left);
  }
  walkRow(lastRow, At(lastRow).left, At(lastRow).right - 1);
  for (std::int64_t y = lastRow - 1; y >= curveEnd; --y) {
    if (hasRightSide(y)) walkRow(y, At(y).innerRight, At(y).right - 1);
  }
}

}  // namespace quenzel7::gdi
