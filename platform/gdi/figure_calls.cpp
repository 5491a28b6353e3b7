#include <algorithm>

#include "platform/gdi/broad_border.h"
#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/rounded_box.h"
#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

/// A rectangle has corners of no size, a rounded one some, an ellipse as large as itself.
struct Corners {
  std::int64_t width, height;

  RoundedBox Of(const Box& box) const { return {box, width, height}; }
  /// Those of a parallel figure, `by` larger in each measure. Square ones stay so.
  Corners GrownBy(std::int64_t by) const {
    return width <= 1 || height <= 1 ? Corners{0, 0} : Corners{width + by, height + by};
  }
};

/// The pen's width, held back so that a line inside the frame fits into the box.
std::int64_t WidthIn(const Box& box, const Pen& pen) {
  if (pen.Line() != PS_INSIDEFRAME) return pen.width;
  return std::min<std::int64_t>({pen.width, box.Width(), box.Height()});
}

void DrawWide(Context& context, const Box& box, const Corners& corners) {
  const std::int64_t width = WidthIn(box, context.pen);
  const Box middle = context.pen.Line() == PS_INSIDEFRAME ? MiddleOf(box, width) : box;
  const RoundedBox figure = corners.Of(middle);
  BrushFiller fill(context);
  PenPainter stroke(context);
  if (figure.IsSquare() && (context.pen.style & PS_JOIN_MASK) != PS_JOIN_ROUND) {
    fill(OuterEdge(middle, width).Inset(width));
    stroke.Outline(figure);
  } else if (width == 1) {
    figure.Paint(&stroke.Painter(), fill.Painter());
  } else if (width <= BroadBorder::kWidest) {
    BroadBorder(figure, width).Paint(stroke.Painter(), fill.Painter());
  } else {
    // So wide a line is bordered by figures whose corners are larger and smaller by its width.
    const Box outer = OuterEdge(middle, width);
    const RoundedBox hole = corners.GrownBy(-width).Of(outer.Inset(width));
    if (fill.Painter() != nullptr) hole.FillWhole(*fill.Painter());
    const Corners outside = figure.IsSquare() ? Corners{width, width} : corners.GrownBy(width);
    outside.Of(outer).FillAround(hole, stroke.Painter());
  }
}

void DrawFigure(Context& context, const Box& box, const Corners& corners) {
  if (box.IsEmpty()) return;
  if (context.path.IsRecording()) {
    Scratch<POINT> points;
    corners.Of(box).AddBorderPoints(*points);
    context.path.AddFigure(*points, true);
    return;
  }
  BrushFiller fill(context);
  SpanPainter* const painter = fill.Painter();
  if (context.pen.IsNull()) {
    const Box less{box.left, box.top, box.right - 1, box.bottom - 1};
    if (painter != nullptr) corners.Of(less).FillWhole(*painter);
  } else if (context.pen.IsThin()) {
    PenPainter(context).ThinBorder(corners.Of(box), painter);
  } else {
    DrawWide(context, box, corners);
  }
}

}  // namespace

BOOL Ellipse(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  Note("Ellipse", Object{dc}, left, top, right, bottom);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  const Box box = Box::Between(left, top, right, bottom);
  DrawFigure(*context, box, {box.Width(), box.Height()});
  return 1;
}

BOOL RoundRect(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
               std::int32_t width, std::int32_t height) {
  Note("RoundRect", Object{dc}, left, top, right, bottom, width, height);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  DrawFigure(*context, Box::Between(left, top, right, bottom), {Magnitude(width), Magnitude(height)});
  return 1;
}

BOOL Rectangle(HDC dc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  Note("Rectangle", Object{dc}, left, top, right, bottom);
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  DrawFigure(*context, Box::Between(left, top, right, bottom), {0, 0});
  return 1;
}

}  // namespace quenzel7::gdi
