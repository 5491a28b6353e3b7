#include <memory>
#include <utility>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"

namespace quenzel7::gdi {

using internal::Hex;
using internal::Made;
using internal::Note;
using internal::Object;

namespace {

/// Moves a context's selection of one kind from the handle it holds to another; gives the old one.
HGDIOBJ Exchange(HGDIOBJ& held, HGDIOBJ object) {
  Handles().CountSelection(object, +1);
  Handles().CountSelection(held, -1);
  return std::exchange(held, object);
}

HGDIOBJ SelectBitmap(Context& context, HBITMAP handle, Bitmap* bitmap) {
  const bool isElsewhere = Handles().Selections(handle) > 0 && context.bitmapHandle != handle;
  if (isElsewhere) return 0;
  context.bitmap = bitmap;
  return Exchange(context.bitmapHandle, handle);
}

template <typename T>
T SetIn(HDC dc, T Context::*member, T value, T failure) {
  Context* context = Handles().Find<Context>(dc);
  return context != nullptr ? std::exchange(context->*member, value) : failure;
}

template <typename T>
T GetFrom(HDC dc, T Context::*member, T failure) {
  const Context* context = Handles().Find<Context>(dc);
  return context != nullptr ? context->*member : failure;
}

}  // namespace

HDC CreateCompatibleDC(HDC dc) {
  Note("CreateCompatibleDC", Object{dc});
  if (dc != 0 && Handles().Find<Context>(dc) == nullptr) return Made(0);
  return Made(Handles().Add(std::make_unique<Context>()));
}

BOOL DeleteDC(HDC dc) {
  Note("DeleteDC", Object{dc});
  const Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  for (const HGDIOBJ held :
       {context->bitmapHandle, context->penHandle, context->brushHandle, context->fontHandle}) {
    Handles().CountSelection(held, -1);
  }
  Handles().Remove(dc);
  return 1;
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
  Note("SelectObject", Object{dc}, Object{object});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  if (const auto pen = FindPen(object)) {
    context->pen = *pen;
    return Exchange(context->penHandle, object);
  }
  if (const auto brush = FindBrush(object)) {
    context->brush = *brush;
    return Exchange(context->brushHandle, object);
  }
  if (const LOGFONT* font = FindFont(object)) {
    context->font = *font;
    context->realizedFont = nullptr;
    return Exchange(context->fontHandle, object);
  }
  if (Bitmap* bitmap = Handles().Find<Bitmap>(object)) return SelectBitmap(*context, object, bitmap);
  if (object == kDefaultBitmapHandle) return SelectBitmap(*context, object, &context->defaultBitmap);
  return 0;
}

HGDIOBJ GetCurrentObject(HDC dc, std::uint32_t type) {
  Note("GetCurrentObject", Object{dc}, type);
  const Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  switch (type) {
    case OBJ_PEN:
      return context->penHandle;
    case OBJ_BRUSH:
      return context->brushHandle;
    case OBJ_FONT:
      return context->fontHandle;
    case OBJ_BITMAP:
      return context->bitmapHandle;
    default:
      return 0;
  }
}

COLORREF SetBkColor(HDC dc, COLORREF color) {
  Note("SetBkColor", Object{dc}, Hex{color});
  return SetIn(dc, &Context::background, color, CLR_INVALID);
}

COLORREF GetBkColor(HDC dc) {
  Note("GetBkColor", Object{dc});
  return GetFrom(dc, &Context::background, CLR_INVALID);
}

COLORREF SetTextColor(HDC dc, COLORREF color) {
  Note("SetTextColor", Object{dc}, Hex{color});
  return SetIn(dc, &Context::text, color, CLR_INVALID);
}

COLORREF GetTextColor(HDC dc) {
  Note("GetTextColor", Object{dc});
  return GetFrom(dc, &Context::text, CLR_INVALID);
}

std::int32_t SetBkMode(HDC dc, std::int32_t mode) {
  Note("SetBkMode", Object{dc}, mode);
  if (mode != TRANSPARENT && mode != OPAQUE) return 0;
  return SetIn(dc, &Context::backgroundMode, mode, 0);
}

std::int32_t GetBkMode(HDC dc) {
  Note("GetBkMode", Object{dc});
  return GetFrom(dc, &Context::backgroundMode, 0);
}

std::int32_t SetStretchBltMode(HDC dc, std::int32_t mode) {
  Note("SetStretchBltMode", Object{dc}, mode);
  if (mode < BLACKONWHITE || mode > COLORONCOLOR) return 0;
  return SetIn(dc, &Context::stretchMode, mode, 0);
}

}  // namespace quenzel7::gdi
