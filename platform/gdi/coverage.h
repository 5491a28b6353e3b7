#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// The pixels that the parts of a shape cover together. However often parts lie on each other, each pixel is
/// painted once, so that the work is bound by the outlines of the parts and not by their areas.
class Coverage {
 public:
  /// Nothing is covered of a surface of that size.
  void Begin(std::int32_t width, std::int32_t height);

  /// Covers a stretch of a row, half open; what lies outside the surface is cut off.
  void Span(std::int64_t y, std::int64_t left, std::int64_t right);
  /// Covers everything.
  void All();

  /// Whether nothing of a row of the surface, or of all rows, is left to be covered.
  bool IsFull(std::int64_t y) const {
    const Row& row = rows_[static_cast<std::size_t>(y)];
    return row.size() == 1 && row[0].left == 0 && row[0].right == width_;
  }
  bool IsFull() const { return fullRows_ == height_; }

  std::int32_t Width() const { return width_; }
  std::int32_t Height() const { return height_; }

  /// Paints what is covered.
  void Paint(SpanPainter& painter) const;

 private:
  struct Stretch {
    std::int32_t left, right;
  };
  /// From left to right, with gaps between.
  using Row = std::vector<Stretch>;

  /// Puts a stretch that does not lie behind all others into a row; it takes in all that it meets or touches.
  static void Join(Row& row, Stretch stretch);

  std::int32_t width_ = 0, height_ = 0, fullRows_ = 0;
  /// The rows that have been covered in part; beyond them all are empty.
  std::int32_t top_ = 0, bottom_ = 0;
  std::vector<Row> rows_;
};

}  // namespace quenzel7::gdi
