#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "platform/gdi/bitmap.h"
#include "platform/gdi/objects.h"
#include "platform/gdi/raster_op.h"
#include "platform/gdi/types.h"
#include "platform/gdi/word_store.h"

namespace quenzel7::gdi {

/// What spans are filled with: a colour, or a pattern of 8 by 8 pixels anchored to the surface with a
/// second colour in its gaps.
struct Ink {
  COLORREF color = 0;
  std::optional<COLORREF> gap = 0;                     ///< nothing: the gaps stay as they are
  const std::array<std::uint8_t, 8>* hatch = nullptr;  ///< leftmost pixel in the highest bit; null if solid

  static Ink Solid(COLORREF color) { return {color, color, nullptr}; }
};

/// The amount of a measure whose sign does not count.
constexpr std::int64_t Magnitude(std::int64_t value) { return value < 0 ? -value : value; }

/// A half-open rectangle. Its numbers come from 32-bit coordinates by a few additions, so they never
/// overflow.
struct Box {
  std::int64_t left, top, right, bottom;

  /// The rectangle between two opposite corners, whichever they are.
  static Box Between(std::int64_t x0, std::int64_t y0, std::int64_t x1, std::int64_t y1) {
    return {x0 < x1 ? x0 : x1, y0 < y1 ? y0 : y1, x0 < x1 ? x1 : x0, y0 < y1 ? y1 : y0};
  }
  std::int64_t Width() const { return right - left; }
  std::int64_t Height() const { return bottom - top; }
  bool IsEmpty() const { return left >= right || top >= bottom; }
  /// Smaller by `by` on all sides; may become empty.
  Box Inset(std::int64_t by) const { return {left + by, top + by, right - by, bottom - by}; }
  Box ClippedTo(const Bitmap& bitmap) const {
    return {std::max<std::int64_t>(left, 0), std::max<std::int64_t>(top, 0),
            std::min<std::int64_t>(right, bitmap.Width()), std::min<std::int64_t>(bottom, bitmap.Height())};
  }
};

/// An operation with a pattern of one colour, in the form of the surface's pixels; without a colour it
/// changes nothing.
RasterTerms TermsFor(const Bitmap& target, std::optional<COLORREF> pattern, std::uint8_t table);

/// The layer from spans to pixels: ink, raster operation, and clipping to the surface. Shapes hand it
/// rectangles, spans and single pixels anywhere in the plane.
class SpanPainter {
 public:
  SpanPainter(Bitmap& target, const Ink& ink, std::uint8_t table = RasterTable(PATCOPY));

  void Fill(const Box& box);
  void Span(std::int64_t y, std::int64_t left, std::int64_t right) { Fill({left, y, right, y + 1}); }

  /// A span of a row that the caller has clipped; to the left and right it may lie outside.
  void RowSpan(std::int32_t y, std::int64_t left, std::int64_t right) {
    ClippedSpan(y, std::max<std::int64_t>(left, 0), std::min<std::int64_t>(right, target_.Width()));
  }
  /// One pixel of a line: the ink's colour, or its gap colour. For callers that have clipped.
  void ClippedPixel(std::int32_t x, std::int32_t y, bool isGap = false) {
    if (isPlain_ && !isGap) {
      target_.Words(y)[x] = color_.constant;
    } else {
      CombinePixel(x, y, isGap ? gap_ : color_);
    }
  }

  const Bitmap& Target() const { return target_; }

 private:
  // The callers of these have clipped; a span may be empty.
  void ClippedSpan(std::int32_t y, std::int64_t left, std::int64_t right) {
    if (isPlain_) {
      StoreWords(target_.Words(y) + left, right - left, color_.constant);
    } else if (left < right) {
      CombineSpan(y, static_cast<std::int32_t>(left), static_cast<std::int32_t>(right));
    }
  }
  void PrepareHatch();
  void CombineSpan(std::int32_t y, std::int32_t left, std::int32_t right);
  void CombineWords(std::int32_t y, std::int32_t left, std::int32_t right);
  void CombineBits(std::int32_t y, std::int32_t left, std::int32_t right);
  void CombinePixel(std::int32_t x, std::int32_t y, const RasterTerms& terms);

  Bitmap& target_;
  const std::array<std::uint8_t, 8>* hatch_;
  RasterTerms color_, gap_;
  /// Whether every pixel becomes the same word, whatever it was.
  bool isPlain_;
  /// Whether every pixel becomes one of two words, whatever it was; `hatchRows_` then has them for each row
  /// of the hatch, three times in a row so that twice eight can be had from any column on.
  bool isPlainHatch_;
  std::array<std::array<std::uint32_t, 24>, 8> hatchRows_;
};

/// The ink of a brush whose gaps have the colour `gap`. Callers have seen to it that the brush is not null.
Ink InkOf(const Brush& brush, std::optional<COLORREF> gap);

}  // namespace quenzel7::gdi
