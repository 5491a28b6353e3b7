#include "shapes/picture_painting.h"

#include <array>

#include "framework/transparent_bitmap.h"
#include "platform/gdi/gdi.h"

namespace quenzel7 {
namespace {

/// The first pixel of a bitmap in colours.
gdi::COLORREF FirstPixel(gdi::HBITMAP bitmap) {
  std::array<Byte, 4> pixel{};
  gdi::GetBitmapBits(bitmap, static_cast<std::int32_t>(pixel.size()), pixel.data());
  const auto [blue, green, red, unused] = pixel;
  return static_cast<gdi::COLORREF>(red | green << 8 | blue << 16);
}

}  // namespace

void TakeBitmap(gdi::OwnedBitmap& owned, gdi::HBITMAP bitmap) {
  if (bitmap != owned.Get()) owned.Reset(bitmap);
}

void FillInPanelColor(Long hdc, const gdi::RECT& area, Long color, corvane1::ColorService& colors) {
  const gdi::OwnedObject brush(gdi::CreateSolidBrush(colors.GetColor(color)));
  gdi::FillRect(hdc, &area, brush.Get());
}

void PaintOpaquePicture(Long hdc, Long x, Long y, gdi::HBITMAP bitmap, const BitmapSize& size) {
  const gdi::OwnedContext memory(hdc);
  const gdi::Selection selection(memory.Get(), bitmap);
  gdi::BitBlt(hdc, x, y, size.w, size.h, memory.Get(), 0, 0, gdi::SRCCOPY);
}

void PaintTransparentPicture(Long hdc, Long x, Long y, gdi::HBITMAP bitmap, const PixelBytes& pixels,
                             Long bits, corvane1::ColorService& colors) {
  // A picture that was painted by somebody else has a bitmap alone.
  const bool isInColors = bits == kTwoBytePixels || pixels.empty();
  const gdi::COLORREF key =
      isInColors ? FirstPixel(bitmap) : colors.GetColor(static_cast<Long>(pixels.front()));
  DrawBitmapTransparent(hdc, bitmap, x, y, key);
}

}  // namespace quenzel7
