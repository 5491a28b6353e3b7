#include "platform/gdi/polygon.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quenzel7::gdi {
namespace {

__extension__ using Wide = __int128;

template <typename T>
std::int64_t FloorDivided(T value, T divisor) {
  const T quotient = value / divisor;
  return static_cast<std::int64_t>(quotient - (value < quotient * divisor ? 1 : 0));
}

template <typename T>
std::int64_t CeilDivided(T value, T divisor) {
  return -FloorDivided(-value, divisor);
}

/// On which side of a line a point lies: its sign tells, 0 is on it.
Wide Side(FinePoint from, FinePoint to, FinePoint point) {
  return Wide{to.x - from.x} * (point.y - from.y) - Wide{to.y - from.y} * (point.x - from.x);
}

}  // namespace

FinePoint FinePoint::At(double x, double y) { return {std::llround(x * kUnit), std::llround(y * kUnit)}; }

void PolygonFiller::AddEdge(FinePoint from, FinePoint to) {
  if (from.y > to.y) std::swap(from, to);
  const std::int64_t first = std::max<std::int64_t>(CeilDivided(from.y, FinePoint::kUnit), 0);
  const std::int64_t end = std::min(CeilDivided(to.y, FinePoint::kUnit), rows_);
  if (first >= end) return;
  // x = from.x + (y - from.y) * width / height, in 256ths; from one row to the next it grows by width /
  // height pixels.
  const std::int64_t width = to.x - from.x, height = to.y - from.y, unit = height * FinePoint::kUnit;
  const Wide along = Wide{first * FinePoint::kUnit - from.y} * width + Wide{from.x} * height;
  const std::int64_t x = CeilDivided(along, Wide{unit}), xStep = FloorDivided(width, height);
  edges_->push_back({static_cast<std::int32_t>(first), static_cast<std::int32_t>(end), x,
                     static_cast<std::int64_t>(Wide{x} * unit - along), xStep,
                     (width - xStep * height) * FinePoint::kUnit, unit});
}

template <typename Span>
void PolygonFiller::ForEachSpan(Span&& span) {
  std::sort(edges_->begin(), edges_->end(),
            [](const Edge& a, const Edge& b) { return a.firstRow < b.firstRow; });
  // The edges that cross the row, from left to right. Every row has an even number of them, as each outline
  // is closed.
  Scratch<Edge*> crossing;
  auto next = edges_->begin();
  for (std::int32_t y = 0, end = 0; next != edges_->end() || !crossing->empty(); y = end) {
    if (crossing->empty()) y = next->firstRow;
    for (; next != edges_->end() && next->firstRow == y; ++next) crossing->push_back(&*next);
    // Up to here the edges stay the same.
    end = next != edges_->end() ? next->firstRow : crossing->front()->endRow;
    for (const Edge* edge : *crossing) end = std::min(end, edge->endRow);
    std::int32_t row = y;
    if (crossing->size() == 2) {
      // The usual pair in registers.
      Edge one = *crossing->front(), other = *crossing->back();
      for (; row < end; ++row, one.StepDown(), other.StepDown()) {
        span(row, std::min(one.x, other.x), std::max(one.x, other.x));
      }
      *crossing->front() = one;
      *crossing->back() = other;
    }
    for (; row < end; ++row) {
      // Few change places from one row to the next.
      for (std::size_t i = 1; i < crossing->size(); ++i) {
        for (std::size_t j = i; j > 0 && (*crossing)[j]->x < (*crossing)[j - 1]->x; --j) {
          std::swap((*crossing)[j], (*crossing)[j - 1]);
        }
      }
      for (std::size_t i = 0; i + 1 < crossing->size(); i += 2) {
        span(row, (*crossing)[i]->x, (*crossing)[i + 1]->x);
      }
      for (Edge* const edge : *crossing) edge->StepDown();
    }
    std::erase_if(*crossing, [&](const Edge* edge) { return edge->endRow == end; });
  }
}

void PolygonFiller::Paint(SpanPainter& painter) {
  ForEachSpan(
      [&](std::int32_t y, std::int64_t left, std::int64_t right) { painter.RowSpan(y, left, right); });
}

void PolygonFiller::Cover(Coverage& coverage) {
  ForEachSpan([&](std::int32_t y, std::int64_t left, std::int64_t right) { coverage.Span(y, left, right); });
}

void PolygonFiller::AddPolygons(std::span<const Polygon> polygons) {
  for (const Polygon& polygon : polygons) {
    AddOutline(polygon, [](const FinePoint& point) { return point; });
  }
}

void FillPolygons(std::span<const Polygon> polygons, SpanPainter& painter) {
  PolygonFiller filler(painter.Target().Height());
  filler.AddPolygons(polygons);
  filler.Paint(painter);
}

void CoverPolygons(std::span<const Polygon> polygons, Coverage& coverage) {
  PolygonFiller filler(coverage.Height());
  filler.AddPolygons(polygons);
  filler.Cover(coverage);
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
