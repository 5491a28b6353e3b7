#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi/coverage.h"
#include "platform/gdi/scratch.h"
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

/// Fills what an odd number of outlines goes around: first their edges are added, then the spans between
/// them painted. Pixels are sampled at their whole coordinates; left and top edges are in, right and bottom
/// edges out. Exact for everything of the plane.
class PolygonFiller {
 public:
  /// For a surface of that many rows; edges that meet none of them do not count.
  explicit PolygonFiller(std::int64_t rows) : rows_(rows) {}

  /// Adds the lines from point to point and back to the first.
  template <typename Points, typename Convert>
  void AddOutline(const Points& points, Convert&& convert) {
    for (std::size_t i = 0; i < points.size(); ++i) {
      AddEdge(convert(points[i]), convert(points[i + 1 < points.size() ? i + 1 : 0]));
    }
  }
  void AddPolygons(std::span<const Polygon> polygons);
  /// Paints the spans between the edges.
  void Paint(SpanPainter& painter);
  /// Covers the same.
  void Cover(Coverage& coverage);

 private:
  /// A line between two rows, and where it crosses the row that is being painted: the first pixel at or to
  /// the right of it, and how far behind that pixel it is, in parts of which `unit` make a pixel.
  struct Edge {
    std::int32_t firstRow, endRow;
    std::int64_t x, behind;
    std::int64_t xStep, behindStep, unit;

    void StepDown() {
      behind -= behindStep;
      const bool isPast = behind < 0;
      x += xStep + isPast;
      behind += isPast ? unit : 0;
    }
  };

  void AddEdge(FinePoint from, FinePoint to);
  /// Hands row, left and right end of every span to `span`.
  template <typename Span>
  void ForEachSpan(Span&& span);

  std::int64_t rows_;
  Scratch<Edge> edges_;
};

/// Fills what an odd number of polygons goes around. Each is closed from its last point to its first.
void FillPolygons(std::span<const Polygon> polygons, SpanPainter& painter);

/// Covers the same.
void CoverPolygons(std::span<const Polygon> polygons, Coverage& coverage);

/// Whether a convex polygon surely has no pixel in 0..width-1, 0..height-1: it lies beside them, or one of
/// its edges runs between. Takes a fraction of the time of looking at its rows.
bool IsConvexOutside(const Polygon& polygon, std::int32_t width, std::int32_t height);

}  // namespace quenzel7::gdi
