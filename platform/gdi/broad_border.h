#pragma once

#include <cstdint>

#include "platform/gdi/ellipse.h"
#include "platform/gdi/rounded_box.h"

namespace quenzel7::gdi {

/// The border that a pen wider than 1 draws along a figure: the disc of the pen's width moved around the
/// figure's border of one pixel. So the line is equally wide everywhere, and a rectangle gets round corners
/// outside and square ones inside.
class BroadBorder {
 public:
  /// Discs wider than this take too long.
  static constexpr std::int64_t kWidest = 512;

  /// `middle` is not empty and outlives the border; `width` is 2 to kWidest.
  BroadBorder(const RoundedBox& middle, std::int64_t width);

  /// What the border goes around, itself included.
  const Box& Bounds() const { return bounds_; }

  /// One row: the border from `left` to `innerLeft` and from `innerRight` to `right`, half open, and the hole
  /// between. Where there is none, the first stretch is the whole row. `y` is inside the bounds.
  RoundedBox::Row At(std::int64_t y) const;

  /// Paints the border with one painter and, if there is another, the hole with that.
  void Paint(SpanPainter& border, SpanPainter* hole) const;

 private:
  const RoundedBox& middle_;
  std::int64_t width_;
  EllipseQuarter disc_;
  Box bounds_;
};

/// The box that a border of that width, centred on the border of one pixel of `box`, goes around. An even
/// width has one pixel more on the left and at the top.
Box OuterEdge(const Box& box, std::int64_t width);
/// The box around whose border of one pixel the border of that width just fills `box`.
Box MiddleOf(const Box& box, std::int64_t width);

}  // namespace quenzel7::gdi
