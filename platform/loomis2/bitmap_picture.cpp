#include "platform/loomis2/bitmap_picture.h"

#include <bit>

#include "platform/gdi/gdi.h"

namespace quenzel7::loomis2 {
namespace {

// The bytes of a pixel, blue first, are then those of its word.
static_assert(std::endian::native == std::endian::little);

constexpr std::uint32_t kBlack = 0, kWhite = 0xFFFFFF;

}  // namespace

std::optional<Picture> PictureOf(gdi::HBITMAP bitmap) {
  gdi::BITMAP form{};
  // Of other objects, as fonts, the first bytes would be taken for a bitmap's.
  if (gdi::GetObjectA(bitmap, 0, nullptr) != sizeof form) return {};
  gdi::GetObjectA(bitmap, sizeof form, &form);
  Picture picture{form.bmWidth, form.bmHeight, {}};
  picture.pixels.resize(static_cast<std::size_t>(form.bmWidth) * static_cast<std::size_t>(form.bmHeight));
  const std::int32_t size = gdi::GetBitmapBits(bitmap, 0, nullptr);
  if (form.bmBitsPixel != 1) {
    gdi::GetBitmapBits(bitmap, size, picture.pixels.data());
    return picture;
  }
  std::vector<Byte> bits(static_cast<std::size_t>(size));
  gdi::GetBitmapBits(bitmap, size, bits.data());
  auto pixel = picture.pixels.begin();
  for (std::int32_t y = 0; y < form.bmHeight; ++y) {
    const Byte* row = bits.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(form.bmWidthBytes);
    for (std::int32_t x = 0; x < form.bmWidth; ++x)
      *pixel++ = (row[x / 8] >> (7 - x % 8) & 1) != 0 ? kWhite : kBlack;
  }
  return picture;
}

gdi::HBITMAP BitmapOf(const Picture& picture) {
  return gdi::CreateBitmap(picture.width, picture.height, 1, 32, picture.pixels.data());
}

}  // namespace quenzel7::loomis2
