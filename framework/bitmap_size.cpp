#include "framework/bitmap_size.h"

#include <cstdint>

#include "platform/gdi/gdi.h"

namespace quenzel7 {
namespace {

/// Whether the interface can have described a bitmap so.
bool IsBitmap(const gdi::BITMAP& description) {
  const std::int64_t rowBits = std::int64_t{description.bmWidth} * description.bmBitsPixel;
  return description.bmType == 0 && description.bmBits == 0 && description.bmPlanes == 1 &&
         (description.bmBitsPixel == 1 || description.bmBitsPixel == 32) && description.bmWidth > 0 &&
         description.bmHeight > 0 && description.bmWidthBytes == (rowBits + 15) / 16 * 2;
}

}  // namespace

BitmapSize BitmapSizeOf(gdi::HBITMAP bitmap) {
  gdi::BITMAP description{};
  // Pens and brushes describe themselves in fewer bytes; of a font as many are given as are asked for.
  const auto written = gdi::GetObjectA(bitmap, sizeof description, &description);
  if (written != sizeof description || !IsBitmap(description)) return {};
  return {description.bmWidth, description.bmHeight, description.bmBitsPixel};
}

}  // namespace quenzel7
