#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The pixels of a bitmap of 32 or 1 bits a pixel, rows from the top down.
///
/// 32 bits: one word 0x00RRGGBB a pixel (in memory blue, green, red, unused), rows without padding.
/// 1 bit: the leftmost pixel in the highest bit of a byte, rows padded to 16 bits. Padding bits are 0.
class Bitmap {
 public:
  /// All bits 0. `width` and `height` are positive and `Fits` them; `bitsPerPixel` is 32 or 1.
  Bitmap(int width, int height, int bitsPerPixel);

  /// Whether a bitmap of these measures can be had: both positive and no more than 2^31-1 bytes.
  static bool Fits(std::int64_t width, std::int64_t height, int bitsPerPixel);

  int Width() const { return width_; }
  int Height() const { return height_; }
  int BitsPerPixel() const { return bitsPerPixel_; }
  bool IsMono() const { return bitsPerPixel_ == 1; }
  /// Bytes a row in the form of `GetBitmapBits`.
  int WidthBytes() const { return widthBytes_; }

  /// The words of row `y`; only for 32 bits.
  std::uint32_t* Words(int y) { return words_.data() + static_cast<std::size_t>(y) * width_; }
  const std::uint32_t* Words(int y) const { return words_.data() + static_cast<std::size_t>(y) * width_; }
  /// The bytes of row `y`; only for 1 bit.
  std::uint8_t* Bytes(int y) { return bytes_.data() + static_cast<std::size_t>(y) * widthBytes_; }
  const std::uint8_t* Bytes(int y) const { return bytes_.data() + static_cast<std::size_t>(y) * widthBytes_; }
  /// All words, row after row; empty for 1 bit.
  std::span<std::uint32_t> Pixels() { return words_; }

  bool Contains(std::int64_t x, std::int64_t y) const {
    return x >= 0 && y >= 0 && x < width_ && y < height_;
  }

  /// The colour of a pixel inside; of 1 bit black or white.
  COLORREF At(int x, int y) const;
  /// Sets a pixel inside. On 1 bit colour 0 is bit 0 and every other colour bit 1.
  void Set(int x, int y, COLORREF color);

  /// Takes all rows from bytes in the form of `GetBitmapBits`.
  void Load(const std::uint8_t* bytes);
  /// Gives the first bytes of all rows; returns how many were given.
  std::size_t Store(std::span<std::uint8_t> out) const;

 private:
  int width_, height_, bitsPerPixel_, widthBytes_;
  std::vector<std::uint32_t> words_;
  std::vector<std::uint8_t> bytes_;
};

/// Between 0x00BBGGRR and the word 0x00RRGGBB of a pixel, both ways; the highest byte becomes 0.
constexpr std::uint32_t SwapRedAndBlue(std::uint32_t color) {
  return (color & 0xFF) << 16 | (color & 0xFF00) | ((color >> 16) & 0xFF);
}

/// The bit that a colour becomes when something is drawn in it on 1 bit: the nearer of black and white.
constexpr bool IsNearerWhite(COLORREF color) {
  const std::uint32_t red = color & 0xFF, green = (color >> 8) & 0xFF, blue = (color >> 16) & 0xFF;
  return 299 * red + 587 * green + 114 * blue >= 1000 * 128;
}

}  // namespace quenzel7::gdi
