#pragma once

#include <cstdint>

#include "platform/gdi/objects.h"
#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// Where pixels come from: a place in a bitmap, and the colour that becomes bit 1 where 32 bits go to 1.
struct CopySource {
  const Bitmap& bitmap;
  std::int64_t x, y;  ///< the pixel that comes to the top left of the target box
  COLORREF background;
};

/// Combines pixels of a bitmap with a box of a context's bitmap by the truth table of a raster operation,
/// the context's brush being the pattern. Source and target may be the same bitmap and overlap. What lies
/// outside of either is left alone.
///
/// From 1 bit to 32, bit 0 becomes the context's text colour and bit 1 its background colour; from 32
/// bits to 1, pixels of exactly the source's background colour become 1 and all others 0.
void CopyPixels(Context& target, const Box& box, const CopySource& source, std::uint8_t table);

}  // namespace quenzel7::gdi
