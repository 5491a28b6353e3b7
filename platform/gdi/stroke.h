#pragma once

#include <span>

#include "platform/gdi/objects.h"
#include "platform/gdi/polygon.h"
#include "platform/gdi/span_painter.h"

namespace quenzel7::gdi {

/// Paints lines of a pen wider than 1, with the pen's ends and joins. A line covers what is nearer to it
/// than half the width, pixels sampled as in `FillPolygons`: along a row or column that is exactly the
/// width, an even one with one pixel more to the left or above, and a flat end holds the smaller end
/// coordinate, not the larger. Round ends and joins are discs of the width. `isClosed` joins the last point
/// to the first instead of ending the line there. Mitred corners longer than ten times half the width are
/// bevelled.
void StrokeLines(std::span<const POINT> points, bool isClosed, const Pen& pen, SpanPainter& painter);

}  // namespace quenzel7::gdi
