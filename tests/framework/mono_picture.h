#pragma once

#include <rapidcheck.h>

#include <cstddef>
#include <vector>

#include "platform/automation/types.h"
#include "platform/gdi/gdi.h"

namespace quenzel7::test {

using Bytes = std::vector<Byte>;

/// A one-bit picture pixel by pixel: what the layouts in bytes are compared with.
struct MonoPicture {
  Long w = 0, h = 0;
  std::vector<bool> pixels;

  MonoPicture() = default;
  MonoPicture(Long width, Long height)
      : w(width), h(height), pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

  std::vector<bool>::reference At(Long column, Long row) {
    return pixels[static_cast<std::size_t>(row * w + column)];
  }
  bool At(Long column, Long row) const { return pixels[static_cast<std::size_t>(row * w + column)]; }

  Bytes Packed() const { return Rows((w + 7) / 8); }
  Bytes WordAligned() const { return Rows((w + 15) / 16 * 2); }
  /// The word-aligned rows and the trailer.
  Bytes Stored() const {
    Bytes bytes = WordAligned();
    for (const Long number : {w & 255, w >> 8, h & 255, h >> 8, 0})
      bytes.push_back(static_cast<Byte>(number));
    return bytes;
  }

 private:
  Bytes Rows(Long stride) const {
    Bytes bytes(static_cast<std::size_t>(stride) * static_cast<std::size_t>(h));
    for (Long row = 0; row < h; ++row) {
      for (Long column = 0; column < w; ++column) {
        Byte& byte = bytes[static_cast<std::size_t>(row * stride + column / 8)];
        if (At(column, row)) byte = static_cast<Byte>(byte | 0x80 >> column % 8);
      }
    }
    return bytes;
  }
};

/// Any picture of `least` to 40 pixels either way.
inline MonoPicture AnyMonoPicture(Long least = 0) {
  MonoPicture picture(*rc::gen::inRange(least, 41), *rc::gen::inRange(least, 41));
  picture.pixels = *rc::gen::container<std::vector<bool>>(picture.pixels.size(), rc::gen::arbitrary<bool>());
  return picture;
}

/// A one-bit bitmap of word-aligned rows.
inline gdi::HBITMAP Mono(Long w, Long h, const Bytes& bits) {
  return gdi::CreateBitmap(w, h, 1, 1, bits.data());
}

/// All bytes of a bitmap as the graphics interface gives them; empty for what is none.
inline Bytes BitsOf(gdi::HBITMAP bitmap) {
  Bytes bytes(static_cast<std::size_t>(gdi::GetBitmapBits(bitmap, 0, nullptr)));
  gdi::GetBitmapBits(bitmap, static_cast<Long>(bytes.size()), bytes.data());
  return bytes;
}

/// What a bitmap says of itself, for comparing: width, height, bits a pixel.
inline std::vector<Long> FormatOf(gdi::HBITMAP bitmap) {
  gdi::BITMAP description{};
  if (gdi::GetObjectA(bitmap, sizeof description, &description) != sizeof description) return {};
  return {description.bmWidth, description.bmHeight, description.bmBitsPixel};
}

}  // namespace quenzel7::test
