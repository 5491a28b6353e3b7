#include "platform/gdi/polygon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace quenzel7::gdi {
namespace {

__extension__ using Wide = __int128;

/// Where an outline crosses a row: the first pixel at or to the right of it.
struct Crossing {
  std::int64_t y, x;
};

thread_local std::vector<Crossing> crossings;

std::int64_t CeilDivided(Wide value, Wide divisor) {
  const Wide quotient = value / divisor;
  return static_cast<std::int64_t>(quotient + (value > quotient * divisor ? 1 : 0));
}

void AddCrossings(FinePoint from, FinePoint to, std::int32_t rows) {
  if (from.y > to.y) std::swap(from, to);
  const std::int64_t height = to.y - from.y;
  if (height == 0) return;
  const std::int64_t first = std::max<std::int64_t>(CeilDivided(from.y, FinePoint::kUnit), 0);
  const std::int64_t end = std::min<std::int64_t>(CeilDivided(to.y, FinePoint::kUnit), rows);
  for (std::int64_t y = first; y < end; ++y) {
    // x = from.x + (y - from.y) * width / height, in pixels
    const Wide along = Wide{y * FinePoint::kUnit - from.y} * (to.x - from.x) + Wide{from.x} * height;
    crossings.push_back({y, CeilDivided(along, Wide{height} * FinePoint::kUnit)});
  }
}

/// Hands the spans of the rows 0 to `rows`-1 to `span`.
template <typename Span>
void ForEachSpan(std::span<const Polygon> polygons, std::int32_t rows, Span&& span) {
  crossings.clear();
  for (const Polygon& polygon : polygons) {
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      AddCrossings(polygon[i], polygon[i + 1 < polygon.size() ? i + 1 : 0], rows);
    }
  }
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& a, const Crossing& b) { return std::tie(a.y, a.x) < std::tie(b.y, b.x); });
  // Every row has an even number of them, as each outline is closed.
  for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
    span(crossings[i].y, crossings[i].x, crossings[i + 1].x);
  }
}

/// On which side of a line a point lies: its sign tells, 0 is on it.
Wide Side(FinePoint from, FinePoint to, FinePoint point) {
  return Wide{to.x - from.x} * (point.y - from.y) - Wide{to.y - from.y} * (point.x - from.x);
}

}  // namespace

FinePoint FinePoint::At(double x, double y) { return {std::llround(x * kUnit), std::llround(y * kUnit)}; }

void FillPolygons(std::span<const Polygon> polygons, SpanPainter& painter) {
  ForEachSpan(polygons, painter.Target().Height(),
              [&](std::int64_t y, std::int64_t left, std::int64_t right) { painter.Span(y, left, right); });
}

void CoverPolygons(std::span<const Polygon> polygons, Coverage& coverage) {
  ForEachSpan(polygons, coverage.Height(),
              [&](std::int64_t y, std::int64_t left, std::int64_t right) { coverage.Span(y, left, right); });
}

bool IsConvexOutside(const Polygon& polygon, std::int32_t width, std::int32_t height) {
  // Pixels are sampled at their whole coordinates, so these are the outermost places that matter.
  const std::int32_t right = width - 1, bottom = height - 1;
  const std::array<FinePoint, 4> corners{FinePoint::At(POINT{0, 0}), FinePoint::At(POINT{right, 0}),
                                         FinePoint::At(POINT{0, bottom}),
                                         FinePoint::At(POINT{right, bottom})};
  const auto areAll = [](const auto& points, auto&& condition) {
    return std::all_of(points.begin(), points.end(), condition);
  };
  const bool isBeside = areAll(polygon, [](FinePoint p) { return p.x <= 0; }) ||
                        areAll(polygon, [](FinePoint p) { return p.y <= 0; }) ||
                        areAll(polygon, [&](FinePoint p) { return p.x > corners[3].x; }) ||
                        areAll(polygon, [&](FinePoint p) { return p.y > corners[3].y; });
  if (isBeside) return true;
  // Two convex shapes that do not meet have an edge of one of them between them.
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const FinePoint from = polygon[i], to = polygon[i + 1 < polygon.size() ? i + 1 : 0];
    const auto isLeft = [&](FinePoint p) { return Side(from, to, p) < 0; };
    const auto isRight = [&](FinePoint p) { return Side(from, to, p) > 0; };
    if (areAll(corners, isLeft) && std::none_of(polygon.begin(), polygon.end(), isLeft)) return true;
    if (areAll(corners, isRight) && std::none_of(polygon.begin(), polygon.end(), isRight)) return true;
  }
  return false;
}

}  // namespace quenzel7::gdi
