#include "framework/bitmap_size.h"

#include "platform/gdi/gdi.h"

namespace quenzel7 {

BitmapSize BitmapSizeOf(gdi::HBITMAP bitmap) {
  gdi::BITMAP description{};
  // Other objects describe themselves in other lengths, and what they write is no measure of a picture.
  const auto written = gdi::GetObjectA(bitmap, sizeof description, &description);
  if (written != sizeof description) return {};
  return {description.bmWidth, description.bmHeight};
}

}  // namespace quenzel7
