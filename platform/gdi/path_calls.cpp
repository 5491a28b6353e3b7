#include <span>

#include "platform/gdi/call_note.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/handle_table.h"
#include "platform/gdi/pen_painter.h"
#include "platform/gdi/polygon.h"

namespace quenzel7::gdi {

using internal::Note;
using internal::Object;

namespace {

using Figures = std::span<const Path::Figure>;

void FillFigures(Context& context, Figures figures) {
  BrushFiller fill(context);
  if (fill.Painter() == nullptr) return;
  PolygonFiller filler(context.bitmap->Height());
  for (const Path::Figure& figure : figures) {
    filler.AddOutline(figure.points, [](POINT point) { return FinePoint::At(point); });
  }
  filler.Paint(*fill.Painter());
}

void StrokeFigures(Context& context, Figures figures, bool closeAll) {
  if (context.pen.IsNull()) return;
  for (const Path::Figure& figure : figures) {
    PenPainter painter(context);
    if (figure.isClosed || closeAll) {
      painter.Outline(figure.points);
    } else {
      painter.Lines(figure.points);
    }
  }
}

}  // namespace

BOOL BeginPath(HDC dc) {
  Note("BeginPath", Object{dc});
  Context* context = Handles().Find<Context>(dc);
  if (context == nullptr) return 0;
  context->path.Begin();
  return 1;
}

BOOL EndPath(HDC dc) {
  Note("EndPath", Object{dc});
  Context* context = Handles().Find<Context>(dc);
  return context != nullptr && context->path.End();
}

BOOL StrokePath(HDC dc) {
  Note("StrokePath", Object{dc});
  Context* context = Handles().Find<Context>(dc);
  const auto figures = context != nullptr ? context->path.Take() : std::nullopt;
  if (!figures) return 0;
  StrokeFigures(*context, *figures, false);
  return 1;
}

BOOL StrokeAndFillPath(HDC dc) {
  Note("StrokeAndFillPath", Object{dc});
  Context* context = Handles().Find<Context>(dc);
  const auto figures = context != nullptr ? context->path.Take() : std::nullopt;
  if (!figures) return 0;
  FillFigures(*context, *figures);
  StrokeFigures(*context, *figures, true);
  return 1;
}

}  // namespace quenzel7::gdi
