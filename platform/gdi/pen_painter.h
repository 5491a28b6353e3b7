#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/gdi/objects.h"
#include "platform/gdi/rounded_box.h"
#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// Fills with a context's brush; a null brush fills nothing.
class BrushFiller {
 public:
  explicit BrushFiller(Context& context) : BrushFiller(context, context.brush) {}
  BrushFiller(Context& context, const Brush& brush, std::uint8_t table = RasterTable(PATCOPY));

  void operator()(const Box& box) {
    if (painter_) painter_->Fill(box);
  }
  /// Null for a null brush.
  SpanPainter* Painter() { return painter_ ? &*painter_ : nullptr; }

 private:
  std::optional<SpanPainter> painter_;
};

/// Draws lines with a context's pen, which is not null.
class PenPainter {
 public:
  explicit PenPainter(Context& context);

  /// In the pen's colour, without gaps.
  SpanPainter& Painter() { return painter_; }

  /// Lines from point to point. Those of a thin pen leave the last point of all out, and their dashes go
  /// on from one line to the next.
  void Lines(std::span<const POINT> points);

  /// Lines from point to point and back to the first. All points at one place are one pixel for a thin pen.
  void Outline(std::span<const POINT> points);
  /// Lines along the border of a figure.
  void Outline(const RoundedBox& figure);

  /// The border of one pixel of a figure, with the dashes of the pen, and what is inside of it if there is a
  /// painter for that. For pens that are thin.
  void ThinBorder(const RoundedBox& figure, SpanPainter* inside = nullptr);

 private:
  void ThinLine(POINT from, POINT to);
  void ThinLines(std::span<const POINT> points);

  const Pen& pen_;
  SpanPainter painter_;
  std::uint64_t phase_ = 0;  ///< pixels since the pattern began
};

}  // namespace quenzel7::gdi
