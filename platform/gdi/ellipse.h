#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {

/// The top left quarter of the outline of the ellipse that just fills `width` x `height` pixels, row by
/// row from the top to the middle row; the other quarters mirror it.
///
/// From pixel to pixel the outline goes to the side of which the true ellipse passes nearer, judged by
/// the sum of its implicit function over the two pixels in question; all numbers are whole. Up to two
/// pixels wide or high the ellipse is a full bar. Beyond `kLargestTraced` pixels a row is computed by itself
/// in floating point, so that the work stays bound by what is looked at.
class EllipseQuarter {
 public:
  EllipseQuarter(std::int64_t width, std::int64_t height);

  /// The largest measures that are traced.
  static constexpr std::int64_t kLargestTraced = 16384;

  /// The outline's pixels in a row, both inclusive, counted from the left edge of the box.
  struct Row {
    std::int64_t first, last;
  };
  /// Any row of the box from the top, 0 to height-1.
  Row At(std::int64_t row) const {
    row = std::min(row, height_ - 1 - row);
    return rows_->empty() ? Untraced(row) : (*rows_)[static_cast<std::size_t>(row)];
  }

 private:
  void Trace();
  Row Untraced(std::int64_t row) const;
  std::int64_t FloatFirst(std::int64_t row) const;

  std::int64_t width_, height_;
  Scratch<Row> rows_;
};

}  // namespace quenzel7::gdi
