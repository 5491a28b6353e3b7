#pragma once

#include <cstdint>
#include <span>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// A memory context with a bitmap of its own selected, both deleted at the end, on the thread that made
/// them. One that outlives the handles of its thread, as in a static variable, has no pixels any more and
/// ends without harm. The way for hosts to have something painted and to get at the pixels.
class Surface {
 public:
  /// `bitsPerPixel` is 32 or 1. All pixels are black. Throws std::invalid_argument for other depths and for
  /// measures that are not positive or too large.
  Surface(std::int32_t width, std::int32_t height, std::int32_t bitsPerPixel = 32);
  ~Surface();
  Surface(Surface&& other) noexcept;
  Surface& operator=(Surface&& other) noexcept;

  HDC Dc() const { return dc_; }
  HBITMAP BitmapHandle() const { return bitmap_; }
  std::int32_t Width() const { return width_; }
  std::int32_t Height() const { return height_; }
  std::int32_t BitsPerPixel() const { return bitsPerPixel_; }

  /// All pixels of a 32-bit surface as words 0x00RRGGBB, `Stride()` words a row, rows from the top; empty
  /// for 1 bit. Valid until the surface ends.
  std::span<std::uint32_t> Pixels() const;
  std::int32_t Stride() const { return width_; }

  /// The colour of a pixel, CLR_INVALID outside. Sees the surface's own bitmap, whatever is selected.
  COLORREF At(std::int32_t x, std::int32_t y) const;
  /// Sets a pixel, not as one of the calls of the interface; nothing outside. On 1 bit colour 0 is bit 0
  /// and every other colour bit 1.
  void Set(std::int32_t x, std::int32_t y, COLORREF color);
  /// Sets all pixels alike.
  void Clear(COLORREF color);

 private:
  std::int32_t width_, height_, bitsPerPixel_;
  HDC dc_;
  HBITMAP bitmap_;
};

}  // namespace quenzel7::gdi
