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

  /// The rows from `top` to `bottom`, half open, that are all the same: where the sides go straight down.
  /// There may be none.
  struct Rows {
    std::int64_t top, bottom;
  };
  Rows StraightRows() const;

  /// Paints the border of one pixel and what is inside of it; either painter may be missing.
  void Paint(SpanPainter* border, SpanPainter* inside) const;
  /// Fills the inside without its border of one pixel.
  void FillInside(SpanPainter& painter) const { Paint(nullptr, &painter); }
  /// Paints the border of one pixel.
  void PaintBorder(SpanPainter& painter) const { Paint(&painter, nullptr); }
  /// Calls `plot(x, y, step)` for every pixel of that border, from the lower end of the top right corner's
  /// curve against the clock; `step` counts them, also those outside `target`, which are left out.
  template <typename Plot>
  void WalkBorder(const Bitmap& target, Plot&& plot) const;

  /// Whether its corners are square.
  bool IsSquare() const { return curveRows_ == 0; }
  /// Whether walking around pixel by pixel would take long.
  bool IsLarge() const { return std::max(box_.Width(), box_.Height()) > EllipseQuarter::kLargestTraced; }

  /// Adds to `points` those along the border, in the same order, such that thin lines through them paint it:
  /// all pixels of the curves, or of a large figure chords that leave the curve by less than half a pixel.
  void AddBorderPoints(std::vector<POINT>& points) const;

  /// Fills everything, border included.
  void FillWhole(SpanPainter& painter) const;
  /// Fills what is not in `hole`, which lies inside; it may be empty.
  void FillAround(const RoundedBox& hole, SpanPainter& painter) const;

 private:
  /// Adds the top left curve from its lower end to the top, in offsets from the corner of the box.
  void AddCurvePoints(std::vector<POINT>& points) const;

  Box box_;
  std::int64_t cornerWidth_, cornerHeight_;
  EllipseQuarter corner_;
  std::int64_t curveRows_;  ///< rows at the top, and as many at the bottom, that are not straight
};

inline RoundedBox::Row RoundedBox::At(std::int64_t y) const {
  const std::int64_t row = std::min(y - box_.top, box_.bottom - 1 - y);
  EllipseQuarter::Row curve{0, 0};
  if (row < curveRows_) curve = corner_.At(row);
  const std::int64_t left = box_.left + curve.first, right = box_.right - curve.first;
  const std::int64_t innerLeft = box_.left + curve.last + 1, innerRight = box_.right - curve.last - 1;
  if (row == 0 || innerLeft > innerRight) return {left, right, right, right};
  return {left, innerLeft, innerRight, right};
}

/// Paints the rows of a figure that are visible, their border and what is inside of it; either painter may be
/// missing. `rowAt` gives a row, and the same one for all `straight` rows.
template <typename RowAt>
void PaintRows(const Box& visible, const RoundedBox::Rows& straight, RowAt&& rowAt, SpanPainter* border,
               SpanPainter* inside) {
  const auto paintOneByOne = [&](std::int64_t top, std::int64_t bottom) {
    for (std::int64_t y = top; y < bottom; ++y) {
      const RoundedBox::Row row = rowAt(y);
      const auto clipped = static_cast<std::int32_t>(y);
      if (border != nullptr) border->RowSpan(clipped, row.left, row.innerLeft);
      if (inside != nullptr) inside->RowSpan(clipped, row.innerLeft, row.innerRight);
      if (border != nullptr) border->RowSpan(clipped, row.innerRight, row.right);
    }
  };
  paintOneByOne(visible.top, std::min(visible.bottom, straight.top));
  if (straight.top < straight.bottom) {
    const RoundedBox::Row row = rowAt(straight.top);
    const auto paint = [&](SpanPainter* painter, std::int64_t left, std::int64_t right) {
      if (painter != nullptr) painter->Fill({left, straight.top, right, straight.bottom});
    };
    paint(border, row.left, row.innerLeft);
    paint(inside, row.innerLeft, row.innerRight);
    paint(border, row.innerRight, row.right);
  }
  paintOneByOne(std::max({visible.top, straight.top, straight.bottom}), visible.bottom);
}

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
