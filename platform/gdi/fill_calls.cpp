#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/raster_op.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

/// Inverts every second pixel of a frame one pixel wide along the inner edge of a box, counted from the box's
/// top right corner. Only what lies on the painter's target is visited.
void InvertDots(SpanPainter& painter, const Box& box) {
  const Box visible = box.ClippedTo(painter.Target());
  // A step along the frame changes x + y by one, so counting from the corner is a chequer.
  const std::int64_t corner = box.right - 1 + box.top;
  const auto invert = [&](std::int64_t x, std::int64_t y) {
    const bool isInside = x >= visible.left && x < visible.right && y >= visible.top && y < visible.bottom;
    if (isInside && (x + y - corner) % 2 == 0) {
      painter.ClippedPixel(static_cast<std::int32_t>(x), static_cast<std::int32_t>(y));
    }
  };
  // Once around: each side up to the corner where the next begins. In a frame one pixel thin the way back
  // meets the way there and undoes all but the ends.
  for (std::int64_t x = visible.left; x < visible.right; ++x) {
    if (x > box.left) invert(x, box.top);
    if (x < box.right - 1) invert(x, box.bottom - 1);
  }
  for (std::int64_t y = visible.top; y < visible.bottom; ++y) {
    if (y < box.bottom - 1) invert(box.left, y);
    if (y > box.top) invert(box.right - 1, y);
  }
}

}  // namespace

BOOL FillRect(HDC dc, const RECT* rect, HBRUSH brush) {
  Note("FillRect", Object{dc}, rect, Object{brush});
  Context* context = Handles().Find<Context>(dc);
  const auto found = FindBrush(brush);
  if (context == nullptr || rect == nullptr || !found) return 0;
  BrushFiller(*context, *found)(Box::Between(rect->left, rect->top, rect->right, rect->bottom));
  return 1;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect) {
  Note("DrawFocusRect", Object{dc}, rect);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr || rect == nullptr) return 0;
  SpanPainter painter(*context->bitmap, Ink::Solid(0), RasterTable(DSTINVERT));
  InvertDots(painter, Box::Between(rect->left, rect->top, rect->right, rect->bottom));
  return 1;
}

}  // namespace quenzel7::gdi
