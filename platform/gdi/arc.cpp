#include "platform/gdi/arc.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "platform/gdi/ellipse.h"
#include "platform/gdi/scratch.h"

namespace quenzel7::gdi {
namespace {

constexpr std::uint32_t kLargestTraced = 4096;
constexpr double kMostTurns = 2;

std::int32_t Held(double value) {
  constexpr double kMin = std::numeric_limits<std::int32_t>::min(),
                   kMax = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::floor(value + 0.5), kMin, kMax));
}

/// Makes an empty list the pixels of a circle around (0, 0), each once, from the right end against the clock.
void AddCircle(std::int32_t radius, std::vector<POINT>& circle) {
  const EllipseQuarter quarter(2 * std::int64_t{radius} + 1, 2 * std::int64_t{radius} + 1);
  for (std::int32_t row = radius; row >= 0; --row) {
    const auto [first, last] = quarter.At(row);
    for (std::int64_t x = first; x <= last && x < radius; ++x) {
      circle.push_back({static_cast<std::int32_t>(radius - x), row - radius});
    }
  }
  const std::size_t perQuarter = circle.size();
  for (std::size_t i = 0; i < 3 * perQuarter; ++i) {
    const POINT turned = circle[i];
    circle.push_back({turned.y, -turned.x});
  }
}

std::int64_t NearestTo(const std::vector<POINT>& circle, POINT center, POINT point) {
  const auto distance = [&](const POINT& each) {
    const std::int64_t dx = std::int64_t{center.x} + each.x - point.x,
                       dy = std::int64_t{center.y} + each.y - point.y;
    return dx * dx + dy * dy;
  };
  return std::min_element(circle.begin(), circle.end(),
                          [&](const POINT& a, const POINT& b) { return distance(a) < distance(b); }) -
         circle.begin();
}

void AddChords(POINT center, std::uint32_t radius, double start, double sweep, std::vector<POINT>& points) {
  // The rise of a chord of angle s is about r s^2 / 8.
  const double step = std::sqrt(2.0 / radius) * 180 / std::numbers::pi;
  const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / step)));
  for (int i = 0; i <= count; ++i) points.push_back(PointOnCircle(center, radius, start + sweep * i / count));
}

}  // namespace

POINT PointOnCircle(POINT center, std::uint32_t radius, double angle) {
  const double radians = angle * std::numbers::pi / 180;
  return {Held(center.x + radius * std::cos(radians)), Held(center.y - radius * std::sin(radians))};
}

void AddArcPoints(POINT center, std::uint32_t radius, double start, double sweep,
                  std::vector<POINT>& points) {
  sweep = std::clamp(sweep, -360 * kMostTurns, 360 * kMostTurns);
  const POINT from = PointOnCircle(center, radius, start), to = PointOnCircle(center, radius, start + sweep);
  if (radius == 0) {
    points.insert(points.end(), {from, to});
    return;
  }
  if (radius > kLargestTraced) {
    AddChords(center, radius, start, sweep, points);
    return;
  }

  Scratch<POINT> circle;
  AddCircle(static_cast<std::int32_t>(radius), *circle);
  const auto size = static_cast<std::int64_t>(circle->size());
  const std::int64_t first = NearestTo(*circle, center, from);
  const std::int64_t direction = sweep < 0 ? -1 : 1;
  // From the nearest pixel of one end to that of the other, plus whole turns.
  std::int64_t steps = (NearestTo(*circle, center, to) - first) * direction % size;
  if (steps < 0) steps += size;
  const double turns = std::abs(sweep) / 360;
  // A sweep of nearly nothing or nearly a turn may begin and end at the same pixel.
  const double expected = turns * static_cast<double>(size);
  steps += size * std::llround((expected - static_cast<double>(steps)) / static_cast<double>(size));

  points.push_back(from);
  for (std::int64_t i = 0; i <= steps; ++i) {
    const POINT offset = (*circle)[static_cast<std::size_t>(((first + direction * i) % size + size) % size)];
    points.push_back({Held(double{0} + center.x + offset.x), Held(double{0} + center.y + offset.y)});
  }
  points.push_back(to);
}

}  // namespace quenzel7::gdi
