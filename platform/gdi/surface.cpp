#include "platform/gdi/surface.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/gdi/bitmap.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {

Surface::Surface(std::int32_t width, std::int32_t height, std::int32_t bitsPerPixel)
    : width_(width), height_(height), bitsPerPixel_(bitsPerPixel), dc_(CreateCompatibleDC(0)) {
  const bool hasSize = width > 0 && height > 0;
  bitmap_ = hasSize ? CreateBitmap(width, height, 1, static_cast<std::uint32_t>(bitsPerPixel), nullptr) : 0;
  if (bitmap_ == 0 || dc_ == 0) {
    DeleteDC(dc_);
    DeleteObject(bitmap_);
    throw std::invalid_argument("no surface of " + std::to_string(width) + " x " + std::to_string(height) +
                                " at " + std::to_string(bitsPerPixel) +
                                " bits a pixel; measures must be positive, bits 1 or 32");
  }
  SelectObject(dc_, bitmap_);
}

Surface::~Surface() {
  if (dc_ == 0) return;
  DeleteDC(dc_);
  DeleteObject(bitmap_);
}

Surface::Surface(Surface&& other) noexcept
    : width_(other.width_),
      height_(other.height_),
      bitsPerPixel_(other.bitsPerPixel_),
      dc_(std::exchange(other.dc_, 0)),
      bitmap_(std::exchange(other.bitmap_, 0)) {}

Surface& Surface::operator=(Surface&& other) noexcept {
  Surface taken(std::move(other));
  std::swap(width_, taken.width_);
  std::swap(height_, taken.height_);
  std::swap(bitsPerPixel_, taken.bitsPerPixel_);
  std::swap(dc_, taken.dc_);
  std::swap(bitmap_, taken.bitmap_);
  return *this;
}

std::span<std::uint32_t> Surface::Pixels() const {
  Bitmap* bitmap = Handles().Find<Bitmap>(bitmap_);
  return bitmap != nullptr ? bitmap->Pixels() : std::span<std::uint32_t>();
}

COLORREF Surface::At(std::int32_t x, std::int32_t y) const {
  const Bitmap* bitmap = Handles().Find<Bitmap>(bitmap_);
  return bitmap != nullptr && bitmap->Contains(x, y) ? bitmap->At(x, y) : CLR_INVALID;
}

void Surface::Set(std::int32_t x, std::int32_t y, COLORREF color) {
  Bitmap* bitmap = Handles().Find<Bitmap>(bitmap_);
  if (bitmap != nullptr && bitmap->Contains(x, y)) bitmap->Set(x, y, color);
}

void Surface::Clear(COLORREF color) {
  for (std::int32_t y = 0; y < height_; ++y) {
    for (std::int32_t x = 0; x < width_; ++x) Set(x, y, color);
  }
}

}  // namespace quenzel7::gdi
