#include "framework/mono_bitmaps.h"

#include <vector>

#include "framework/bitmap_size.h"
#include "framework/library_state.h"
#include "framework/mono_bits.h"
#include "framework/picture_bytes.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {
namespace {

using gdi::HBITMAP;
using gdi::HDC;
using gdi::OwnedContext;

/// A bitmap of the context's own format, which in a new context is one bit, selected into it. Deleting the
/// context sets it free.
HBITMAP SelectNewBitmap(HDC dc, Long w, Long h) {
  const HBITMAP made = gdi::CreateCompatibleBitmap(dc, w, h);
  gdi::SelectObject(dc, made);
  return made;
}

}  // namespace

HBITMAP CopyMonoBitmap(HBITMAP bitmap) {
  const auto [w, h, bits] = BitmapSizeOf(bitmap);
  const OwnedContext source(0);
  gdi::SelectObject(source.Get(), bitmap);
  const OwnedContext target(0);
  const HBITMAP copy = SelectNewBitmap(target.Get(), w, h);
  gdi::BitBlt(target.Get(), 0, 0, w, h, source.Get(), 0, 0, gdi::SRCCOPY);
  return copy;
}

HBITMAP NewWhiteMonoBitmap(Long w, Long h) {
  const std::vector<Byte> bits = NewPictureBytes(static_cast<std::size_t>(WordAlignedSize(w, h)), w, h);
  const HBITMAP bitmap = gdi::CreateBitmap(w, h, 1, 1, bits.data());
  const OwnedContext context(0);
  gdi::SelectObject(context.Get(), bitmap);
  gdi::PatBlt(context.Get(), 0, 0, w, h, gdi::WHITENESS);
  return bitmap;
}

HBITMAP StretchMonoBitmap(HBITMAP bitmap, Long w, Long h) {
  // Refuses measures that no picture has.
  static_cast<void>(WordAlignedSize(w, h));
  const auto [sourceW, sourceH, bits] = BitmapSizeOf(bitmap);
  const OwnedContext target(0);
  const HBITMAP stretched = SelectNewBitmap(target.Get(), w, h);
  gdi::PatBlt(target.Get(), 0, 0, w, h, gdi::WHITENESS);
  const OwnedContext source(0);
  gdi::SelectObject(source.Get(), bitmap);
  const Long modeBefore = gdi::SetStretchBltMode(target.Get(), LibraryState::Current().StretchMode);
  gdi::StretchBlt(target.Get(), 0, 0, w, h, source.Get(), 0, 0, sourceW, sourceH, gdi::SRCCOPY);
  gdi::SetStretchBltMode(target.Get(), modeBefore);
  return stretched;
}

}  // namespace quenzel7
