#include <algorithm>
#include <array>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/rounded_box.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

/// How far a pen's line reaches from its middle pixel to the left and up.
std::int64_t ReachBefore(std::int64_t width) { return width / 2; }

/// The outer edge of a wide pen's line along a box.
Box OuterEdge(const Box& box, const Pen& pen, std::int64_t width) {
  if (pen.Line() == PS_INSIDEFRAME) return box;
  const std::int64_t before = ReachBefore(width), after = width - 1 - before;
  return {box.left - before, box.top - before, box.right + after, box.bottom + after};
}

/// The pen's width, held back so that a line inside the frame fits into the box.
std::int64_t WidthIn(const Box& box, const Pen& pen) {
  if (pen.Line() != PS_INSIDEFRAME) return pen.width;
  return std::min<std::int64_t>({pen.width, box.Width(), box.Height()});
}

void DrawRectangle(Context& context, const Box& box) {
  if (box.IsEmpty()) return;
  const Pen& pen = context.pen;
  BrushFiller fill(context);
  if (pen.IsNull()) {
    fill({box.left, box.top, box.right - 1, box.bottom - 1});
    return;
  }
  PenPainter stroke(context);
  if (pen.IsThin()) {
    fill(box.Inset(1));
    if (pen.IsDashed()) {
      stroke.DashedFrame(box);
    } else {
      RoundedBox(box, 0, 0).PaintBorder(stroke.Painter());
    }
    return;
  }
  const std::int64_t width = WidthIn(box, pen);
  const Box outer = OuterEdge(box, pen, width);
  const Box hole = outer.Inset(width);
  fill(hole);
  RoundedBox(outer, width, width).FillAround(RoundedBox(hole, 0, 0), stroke.Painter());
}

void DrawRounded(Context& context, const Box& box, std::int64_t cornerWidth, std::int64_t cornerHeight) {
  if (box.IsEmpty()) return;
  const Pen& pen = context.pen;
  BrushFiller fill(context);
  if (pen.IsNull()) {
    const Box less{box.left, box.top, box.right - 1, box.bottom - 1};
    if (SpanPainter* painter = fill.Painter())
      RoundedBox(less, cornerWidth, cornerHeight).FillWhole(*painter);
    return;
  }
  PenPainter stroke(context);
  if (pen.IsThin()) {
    const RoundedBox figure(box, cornerWidth, cornerHeight);
    if (SpanPainter* painter = fill.Painter()) figure.FillInside(*painter);
    if (pen.IsDashed()) {
      stroke.DashedBorder(figure);
    } else {
      figure.PaintBorder(stroke.Painter());
    }
    return;
  }
  const std::int64_t width = WidthIn(box, pen);
  const Box outer = OuterEdge(box, pen, width);
  const std::int64_t grown = outer.Width() - box.Width();
  const RoundedBox body(outer, cornerWidth + grown, cornerHeight + grown);
  const Box hole = outer.Inset(width);
  const RoundedBox inside(hole, cornerWidth + grown - 2 * width, cornerHeight + grown - 2 * width);
  if (SpanPainter* painter = fill.Painter()) inside.FillWhole(*painter);
  body.FillAround(inside, stroke.Painter());
}

}  // namespace

BOOL Ellipse(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  Note("Ellipse", Object{dc}, left, top, right, bottom);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const Box box = Box::Between(left, top, right, bottom);
  DrawRounded(*context, box, box.Width(), box.Height());
  return 1;
}

BOOL RoundRect(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
               std::int32_t width, std::int32_t height) {
  Note("RoundRect", Object{dc}, left, top, right, bottom, width, height);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const auto measure = [](std::int64_t value) { return value < 0 ? -value : value; };
  DrawRounded(*context, Box::Between(left, top, right, bottom), measure(width), measure(height));
  return 1;
}

BOOL Rectangle(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  Note("Rectangle", Object{dc}, left, top, right, bottom);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  DrawRectangle(*context, Box::Between(left, top, right, bottom));
  return 1;
}

}  // namespace quenzel7::gdi
