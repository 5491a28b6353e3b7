#include "framework/transparent_bitmap.h"

#include <cstdint>
#include <initializer_list>

#include "framework/bitmap_size.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

namespace quenzel7 {

using gdi::OwnedBitmap;
using gdi::OwnedContext;
using gdi::Selection;

void DrawBitmapTransparent(gdi::HDC dc, gdi::HBITMAP bitmap, Long x, Long y, gdi::COLORREF color) {
  // A structured binding cannot go into the lambda below.
  const BitmapSize size = BitmapSizeOf(bitmap);
  const Long w = size.w, h = size.h;

  const OwnedContext source(dc), save(dc), mask(dc), inverse(dc), work(dc);
  const OwnedBitmap maskBitmap(gdi::CreateBitmap(w, h, 1, 1, nullptr));
  const OwnedBitmap inverseBitmap(gdi::CreateBitmap(w, h, 1, 1, nullptr));
  const OwnedBitmap workBitmap(gdi::CreateCompatibleBitmap(dc, w, h));
  OwnedBitmap saveBitmap(gdi::CreateCompatibleBitmap(dc, w, h));
  // From a one-bit target's copy a picture in colours would come back black and white.
  if (size.bits > 1 && BitmapSizeOf(saveBitmap.Get()).bits < size.bits) {
    saveBitmap.Reset(gdi::CreateBitmap(w, h, 1, static_cast<std::uint32_t>(size.bits), nullptr));
  }
  for (const gdi::HBITMAP made :
       {maskBitmap.Get(), inverseBitmap.Get(), workBitmap.Get(), saveBitmap.Get()}) {
    // The one pixel that its context has instead would be painted, or the picture would be lost.
    if (made == 0) return;
  }
  const Selection picture(source.Get(), bitmap);
  const Selection inMask(mask.Get(), maskBitmap.Get()), inInverse(inverse.Get(), inverseBitmap.Get());
  const Selection inWork(work.Get(), workBitmap.Get()), inSave(save.Get(), saveBitmap.Get());

  const auto combine = [w, h](const OwnedContext& from, const OwnedContext& to, gdi::RasterCode code) {
    gdi::BitBlt(to.Get(), 0, 0, w, h, from.Get(), 0, 0, code);
  };
  combine(source, save, gdi::SRCCOPY);

  // White where the picture has the colour.
  const gdi::COLORREF backgroundBefore = gdi::SetBkColor(source.Get(), color);
  combine(source, mask, gdi::SRCCOPY);
  gdi::SetBkColor(source.Get(), backgroundBefore);
  combine(mask, inverse, gdi::NOTSRCCOPY);

  // The background with black where the picture is to be, and the picture with black around it, in one.
  gdi::BitBlt(work.Get(), 0, 0, w, h, dc, x, y, gdi::SRCCOPY);
  combine(mask, work, gdi::SRCAND);
  combine(inverse, source, gdi::SRCAND);
  combine(source, work, gdi::SRCPAINT);
  gdi::BitBlt(dc, x, y, w, h, work.Get(), 0, 0, gdi::SRCCOPY);

  combine(save, source, gdi::SRCCOPY);
}

}  // namespace quenzel7
