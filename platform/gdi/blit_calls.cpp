#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/raster_copy.h"

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

}  // namespace quenzel7::gdi
