#include <limits>
#include <memory>
#include <new>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {

using internal::Made;
using internal::Note;
using internal::Object;

namespace {

HBITMAP AddBitmap(std::int32_t width, std::int32_t height, int bitsPerPixel, const void* bits) {
  if (width == 0 || height == 0) return Handles().Add(std::make_unique<Bitmap>(1, 1, 1));
  if (!Bitmap::Fits(width, height, bitsPerPixel)) return 0;
  try {
    auto bitmap = std::make_unique<Bitmap>(width, height, bitsPerPixel);
    if (bits != nullptr) bitmap->Load(static_cast<const std::uint8_t*>(bits));
    return Handles().Add(std::move(bitmap));
  } catch (const std::bad_alloc&) {
    return 0;
  }
}

}  // namespace

HBITMAP CreateBitmap(std::int32_t width, std::int32_t height, std::uint32_t planes,
                     std::uint32_t bitsPerPixel, const void* bits) {
  Note("CreateBitmap", width, height, planes, bitsPerPixel);
  if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) return Made(0);
  return Made(AddBitmap(width, height, static_cast<int>(bitsPerPixel), bits));
}

HBITMAP CreateCompatibleBitmap(HDC dc, std::int32_t width, std::int32_t height) {
  Note("CreateCompatibleBitmap", Object{dc}, width, height);
  const Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return Made(0);
  return Made(AddBitmap(width, height, context->bitmap->BitsPerPixel(), nullptr));
}

std::int32_t GetBitmapBits(HBITMAP handle, std::int32_t size, void* out) {
  Note("GetBitmapBits", Object{handle}, size);
  const Bitmap defaultBitmap(1, 1, 1);
  const Bitmap* bitmap = handle == kDefaultBitmapHandle ? &defaultBitmap : Handles().Find<Bitmap>(handle);
  if (bitmap == nullptr) return 0;
  if (out == nullptr) return bitmap->WidthBytes() * bitmap->Height();
  if (size < 0) return 0;
  const std::span<std::uint8_t> room(static_cast<std::uint8_t*>(out), static_cast<std::size_t>(size));
  return static_cast<std::int32_t>(bitmap->Store(room));
}

COLORREF GetPixel(HDC dc, std::int32_t x, std::int32_t y) {
  Note("GetPixel", Object{dc}, x, y);
  const Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || !context->bitmap->Contains(x, y)) return CLR_INVALID;
  return context->bitmap->At(x, y);
}

}  // namespace quenzel7::gdi
