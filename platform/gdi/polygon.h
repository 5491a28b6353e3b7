#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi/coverage.h"
#include "platform/gdi/span_painter.h"
#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// A point in 256ths of a pixel.
struct FinePoint {
  static constexpr std::int64_t kUnit = 256;

  static FinePoint At(POINT point) { return {point.x * kUnit, point.y * kUnit}; }
  /// Any coordinates within a few times 2^32 pixels, rounded.
  static FinePoint At(double x, double y);

  std::int64_t x, y;
};

using Polygon = std::vector<FinePoint>;

/// Fills what an odd number of outlines goes around. Each polygon is closed from its last point to its
/// first. Pixels are sampled at their whole coordinates; left and top edges are in, right and bottom
/// edges out. Exact for every polygon of the plane.
void FillPolygons(std::span<const Polygon> polygons, SpanPainter& painter);

/// Covers the same.
void CoverPolygons(std::span<const Polygon> polygons, Coverage& coverage);

/// Whether a convex polygon surely has no pixel in 0..width-1, 0..height-1: it lies beside them, or one of
/// its edges runs between. Takes a fraction of the time of looking at its rows.
bool IsConvexOutside(const Polygon& polygon, std::int32_t width, std::int32_t height);

}  // namespace quenzel7::gdi
