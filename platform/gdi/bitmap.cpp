#include "platform/gdi/bitmap.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace quenzel7::gdi {
namespace {

std::int64_t RowBytes(std::int64_t width, int bitsPerPixel) { return (width * bitsPerPixel + 15) / 16 * 2; }

}  // namespace

Bitmap::Bitmap(int width, int height, int bitsPerPixel)
    : width_(width),
      height_(height),
      bitsPerPixel_(bitsPerPixel),
      widthBytes_(static_cast<int>(RowBytes(width, bitsPerPixel))) {
  if (IsMono()) {
    bytes_.resize(static_cast<std::size_t>(widthBytes_) * height);
  } else {
    words_.resize(static_cast<std::size_t>(width) * height);
  }
}

bool Bitmap::Fits(std::int64_t width, std::int64_t height, int bitsPerPixel) {
  return width > 0 && height > 0 &&
         RowBytes(width, bitsPerPixel) <= std::numeric_limits<std::int32_t>::max() / height;
}

COLORREF Bitmap::At(int x, int y) const {
  if (IsMono()) return (Bytes(y)[x / 8] >> (7 - x % 8) & 1) != 0 ? 0xFFFFFF : 0;
  return SwapRedAndBlue(Words(y)[x]);
}

void Bitmap::Set(int x, int y, COLORREF color) {
  if (IsMono()) {
    const auto bit = static_cast<std::uint8_t>(0x80 >> x % 8);
    std::uint8_t& byte = Bytes(y)[x / 8];
    byte = static_cast<std::uint8_t>(color != 0 ? byte | bit : byte & ~bit);
  } else {
    Words(y)[x] = SwapRedAndBlue(color);
  }
}

void Bitmap::Load(const std::uint8_t* bytes) {
  if (!IsMono()) {
    // Four bytes at a time become one load, of which the fourth byte does not count.
    for (std::size_t i = 0; i < words_.size(); ++i) {
      const std::uint8_t* from = bytes + 4 * i;
      const std::uint32_t all = from[0] | static_cast<std::uint32_t>(from[1]) << 8 |
                                static_cast<std::uint32_t>(from[2]) << 16 |
                                static_cast<std::uint32_t>(from[3]) << 24;
      words_[i] = all & 0xFFFFFF;
    }
    return;
  }
  std::memcpy(bytes_.data(), bytes, bytes_.size());
  // The last columns of a widest row would not fit into an int.
  const std::int64_t padding = std::int64_t{widthBytes_} * 8 - width_;
  for (int y = 0; y < height_; ++y) {
    std::uint8_t* end = Bytes(y) + widthBytes_;
    for (std::int64_t bit = 0; bit < padding; ++bit)
      end[-1 - bit / 8] &= static_cast<std::uint8_t>(~(1 << bit % 8));
  }
}

std::size_t Bitmap::Store(std::span<std::uint8_t> out) const {
  if (IsMono()) {
    const std::size_t count = std::min(out.size(), bytes_.size());
    std::copy_n(bytes_.begin(), count, out.begin());
    return count;
  }
  const std::size_t count = std::min(out.size(), words_.size() * 4);
  const std::size_t whole = count / 4 * 4;
  // Four bytes at a time become one store.
  for (std::size_t i = 0; i < whole; i += 4) {
    const std::uint32_t word = words_[i / 4];
    out[i] = static_cast<std::uint8_t>(word);
    out[i + 1] = static_cast<std::uint8_t>(word >> 8);
    out[i + 2] = static_cast<std::uint8_t>(word >> 16);
    out[i + 3] = static_cast<std::uint8_t>(word >> 24);
  }
  for (std::size_t i = whole; i < count; ++i) out[i] = static_cast<std::uint8_t>(words_[i / 4] >> i % 4 * 8);
  return count;
}

}  // namespace quenzel7::gdi
