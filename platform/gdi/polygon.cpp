#include "platform/gdi/polygon.h"

#include <algorithm>
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

void AddCrossings(FinePoint from, FinePoint to, const Bitmap& target) {
  if (from.y > to.y) std::swap(from, to);
  const std::int64_t height = to.y - from.y;
  if (height == 0) return;
  const std::int64_t first = std::max<std::int64_t>(CeilDivided(from.y, FinePoint::kUnit), 0);
  const std::int64_t end = std::min<std::int64_t>(CeilDivided(to.y, FinePoint::kUnit), target.Height());
  for (std::int64_t y = first; y < end; ++y) {
    // x = from.x + (y - from.y) * width / height, in pixels
    const Wide along = Wide{y * FinePoint::kUnit - from.y} * (to.x - from.x) + Wide{from.x} * height;
    crossings.push_back({y, CeilDivided(along, Wide{height} * FinePoint::kUnit)});
  }
}

}  // namespace

FinePoint FinePoint::At(double x, double y) { return {std::llround(x * kUnit), std::llround(y * kUnit)}; }

void FillPolygons(std::span<const Polygon> polygons, SpanPainter& painter) {
  crossings.clear();
  for (const Polygon& polygon : polygons) {
    for (std::size_t i = 0; i < polygon.size(); ++i) {
      AddCrossings(polygon[i], polygon[i + 1 < polygon.size() ? i + 1 : 0], painter.Target());
    }
  }
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& a, const Crossing& b) { return std::tie(a.y, a.x) < std::tie(b.y, b.x); });
  // Every row has an even number of them, as each outline is closed.
  for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
    painter.Span(crossings[i].y, crossings[i].x, crossings[i + 1].x);
  }
}

}  // namespace quenzel7::gdi
