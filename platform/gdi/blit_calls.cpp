#include <algorithm>
#include <vector>

#include "platform/gdi/alpha.h"
#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/raster_copy.h"
#include "platform/gdi/stretch.h"

namespace quenzel7::gdi {

using internal::Hex;
using internal::Note;
using internal::Object;

namespace {

/// The part of a blit for which no source is looked at.
void FillWithPattern(Context& context, const Box& box, std::uint8_t table) {
  if (NeedsPattern(table)) {
    BrushFiller(context, context.brush, table)(box);
  } else {
    SpanPainter(*context.bitmap, Ink::Solid(0), table).Fill(box);
  }
}

/// What of a stretched axis is to be drawn: target pixels from `start` on, each with its source pixels.
struct VisibleAxis {
  std::int64_t start = 0;
  std::vector<StretchAxis::Pixels> pixels;
};

/// One axis of a stretch: from `sourceLength` pixels at `sourceStart` to `length` at `start`; either
/// length may be negative, and if one is, the picture is mirrored. Target pixels are those inside 0 to
/// `surface`-1 with any source pixel inside 0 to `bitmap`-1.
VisibleAxis StretchAlong(std::int64_t start, std::int64_t length, std::int32_t surface,
                         std::int64_t sourceStart, std::int64_t sourceLength, std::int32_t bitmap) {
  const bool isMirrored = (length < 0) != (sourceLength < 0);
  const std::int64_t left = std::min(start, start + length), right = std::max(start, start + length);
  const std::int64_t from = std::min(sourceStart, sourceStart + sourceLength);
  const StretchAxis axis(Magnitude(sourceLength), Magnitude(length), isMirrored);
  VisibleAxis visible;
  for (std::int64_t x = std::max<std::int64_t>(left, 0); x < std::min<std::int64_t>(right, surface); ++x) {
    StretchAxis::Pixels pixels = axis.At(x - left);
    pixels.first = std::max<std::int64_t>(pixels.first + from, 0);
    pixels.end = std::min<std::int64_t>(pixels.end + from, bitmap);
    if (pixels.first >= pixels.end) continue;
    if (visible.pixels.empty()) visible.start = x;
    visible.pixels.push_back(pixels);
  }
  return visible;
}

Box PlaceOf(const VisibleAxis& columns, const VisibleAxis& rows) {
  const auto width = static_cast<std::int64_t>(columns.pixels.size());
  const auto height = static_cast<std::int64_t>(rows.pixels.size());
  return {columns.start, rows.start, columns.start + width, rows.start + height};
}

/// Mixes a picture into a context's bitmap, all of it inside.
void Blend(Context& context, const Box& box, const Bitmap& picture, std::uint32_t alpha) {
  const auto left = static_cast<int>(box.left), top = static_cast<int>(box.top);
  Bitmap& target = *context.bitmap;
  const bool isPlain = !target.IsMono() && !picture.IsMono();
  for (int y = 0; y < picture.Height(); ++y) {
    if (isPlain) {
      std::uint32_t* const to = target.Words(top + y) + left;
      const std::uint32_t* const from = picture.Words(y);
      for (int x = 0; x < picture.Width(); ++x) to[x] = Mixed(from[x], to[x], alpha);
      continue;
    }
    for (int x = 0; x < picture.Width(); ++x) {
      COLORREF color = picture.At(x, y);
      if (picture.IsMono()) color = color != 0 ? context.background : context.text;
      color = Mixed(color, target.At(left + x, top + y), alpha);
      target.Set(left + x, top + y, target.IsMono() ? IsNearerWhite(color) : color);
    }
  }
}

}  // namespace

BOOL PatBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height,
            std::uint32_t code) {
  Note("PatBlt", Object{dc}, x, y, width, height, Hex{code});
  Context* context = Handles().Find<Context>(dc);
  const std::uint8_t table = RasterTable(code);
  if (context == nullptr || NeedsSource(table)) return 0;
  FillWithPattern(*context, Box::Between(x, y, std::int64_t{x} + width, std::int64_t{y} + height), table);
  return 1;
}

BOOL BitBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
            std::int32_t sourceX, std::int32_t sourceY, std::uint32_t code) {
  Note("BitBlt", Object{dc}, x, y, width, height, Object{source}, sourceX, sourceY, Hex{code});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const Box box = Box::Between(x, y, std::int64_t{x} + width, std::int64_t{y} + height);
  const std::uint8_t table = RasterTable(code);
  if (!NeedsSource(table)) {
    FillWithPattern(*context, box, table);
    return 1;
  }
  const Context* from = Handles().Find<Context>(source);
  if (from == nullptr) return 0;
  const std::int64_t dx = std::int64_t{sourceX} - x, dy = std::int64_t{sourceY} - y;
  CopyPixels(*context, box, {*from->bitmap, box.left + dx, box.top + dy, from->background}, table);
  return 1;
}

BOOL StretchBlt(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
                std::int32_t sourceX, std::int32_t sourceY, std::int32_t sourceWidth,
                std::int32_t sourceHeight, std::uint32_t code) {
  Note("StretchBlt", Object{dc}, x, y, width, height, Object{source}, sourceX, sourceY, sourceWidth,
       sourceHeight, Hex{code});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const std::uint8_t table = RasterTable(code);
  if (!NeedsSource(table)) {
    FillWithPattern(*context, Box::Between(x, y, std::int64_t{x} + width, std::int64_t{y} + height), table);
    return 1;
  }
  const Context* from = Handles().Find<Context>(source);
  if (from == nullptr) return 0;
  if (sourceWidth == 0 || sourceHeight == 0) return 1;
  const Bitmap &surface = *context->bitmap, &bitmap = *from->bitmap;
  const VisibleAxis columns = StretchAlong(x, width, surface.Width(), sourceX, sourceWidth, bitmap.Width());
  const VisibleAxis rows = StretchAlong(y, height, surface.Height(), sourceY, sourceHeight, bitmap.Height());
  if (columns.pixels.empty() || rows.pixels.empty()) return 1;
  const Bitmap stretched = Stretched(bitmap, columns.pixels, rows.pixels, context->stretchMode);
  CopyPixels(*context, PlaceOf(columns, rows), {stretched, 0, 0, from->background}, table);
  return 1;
}

BOOL AlphaBlend(HDC dc, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height, HDC source,
                std::int32_t sourceX, std::int32_t sourceY, std::int32_t sourceWidth,
                std::int32_t sourceHeight, BLENDFUNCTION blend) {
  Note("AlphaBlend", Object{dc}, x, y, width, height, Object{source}, sourceX, sourceY, sourceWidth,
       sourceHeight, blend);
  Context* context = Handles().Find<Context>(dc);
  const Context* from = Handles().Find<Context>(source);
  const bool isKnown = blend.BlendOp == AC_SRC_OVER && blend.BlendFlags == 0 && blend.AlphaFormat == 0;
  const bool hasMeasures = width >= 0 && height >= 0 && sourceWidth >= 0 && sourceHeight >= 0;
  if (context == nullptr || from == nullptr || !isKnown || !hasMeasures) return 0;
  const Bitmap &surface = *context->bitmap, &bitmap = *from->bitmap;
  const bool isInside = sourceX >= 0 && sourceY >= 0 &&
                        std::int64_t{sourceX} + sourceWidth <= bitmap.Width() &&
                        std::int64_t{sourceY} + sourceHeight <= bitmap.Height();
  if (!isInside) return 0;
  if (sourceWidth == 0 || sourceHeight == 0) return 1;
  const VisibleAxis columns = StretchAlong(x, width, surface.Width(), sourceX, sourceWidth, bitmap.Width());
  const VisibleAxis rows = StretchAlong(y, height, surface.Height(), sourceY, sourceHeight, bitmap.Height());
  if (columns.pixels.empty() || rows.pixels.empty()) return 1;
  const Bitmap picture = Stretched(bitmap, columns.pixels, rows.pixels, COLORONCOLOR);
  Blend(*context, PlaceOf(columns, rows), picture, blend.SourceConstantAlpha);
  return 1;
}

}  // namespace quenzel7::gdi
