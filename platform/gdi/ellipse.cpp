#include "platform/gdi/ellipse.h"

#include <algorithm>
#include <cmath>

namespace quenzel7::gdi {
namespace {

/// An ellipse that narrow has no room for a curve.
constexpr std::int64_t kBar = 2;

}  // namespace

EllipseQuarter::EllipseQuarter(std::int64_t width, std::int64_t height) : width_(width), height_(height) {
  if (width > kBar && height > kBar && std::max(width, height) <= kLargestTraced) Trace();
}

void EllipseQuarter::Trace() {
  // With X and Y twice the distances of a pixel from the centre, the ellipse is where
  // f = b*b*X*X + a*a*Y*Y - a*a*b*b is 0. The trace begins at the left end of the middle row and goes
  // inward (x grows) and outward (to row 0).
  const std::int64_t a = width_ - 1, b = height_ - 1, isBetweenRows = b % 2;
  rows_->assign(static_cast<std::size_t>(b / 2 + 1), {width_, -1});
  std::int64_t x = 0, row = b / 2;
  std::int64_t inward = 4 * b * b * (1 - a);                         // change of f by one pixel inward
  std::int64_t outward = 4 * a * a * (1 + isBetweenRows);            // and by one outward
  std::int64_t diagonal = a * a * isBetweenRows + inward + outward;  // f one pixel inward and outward
  while (2 * x <= a) {
    Row& pixels = (*rows_)[static_cast<std::size_t>(row)];
    pixels.first = std::min(pixels.first, x);
    pixels.last = x;
    const bool goOutward = 2 * diagonal <= outward;
    const bool goInward = 2 * diagonal >= inward || !goOutward;
    if (goOutward) {
      --row;
      outward += 8 * a * a;
      diagonal += outward;
    }
    if (goInward) {
      ++x;
      inward += 8 * b * b;
      diagonal += inward;
    }
  }
  // A very slim ellipse reaches its axis early; the rest is its tip.
  for (Row& pixels : *rows_) {
    if (pixels.last >= 0) break;
    pixels = {x - 1, x - 1};
  }
}

std::int64_t EllipseQuarter::FloatFirst(std::int64_t row) const {
  const long double a = static_cast<long double>(width_ - 1) / 2,
                    b = static_cast<long double>(height_ - 1) / 2;
  // Where the true ellipse begins, `inward` rows nearer to the middle.
  const auto edge = [&](long double inward) {
    const long double y = (b - static_cast<long double>(row) - inward) / b;
    return a - a * std::sqrt(std::max(0.0L, 1 - y * y));
  };
  const auto nearest = [](long double x) { return static_cast<std::int64_t>(std::floor(x + 0.5L)); };
  // Where the outline is steep each row takes the nearest pixel, where it is flat each column does.
  const std::int64_t steep = nearest(edge(0)), before = nearest(edge(1));
  const auto flat = static_cast<std::int64_t>(std::ceil(edge(0.5L)));
  return flat <= before ? steep : std::min(flat, steep);
}

EllipseQuarter::Row EllipseQuarter::Untraced(std::int64_t row) const {
  const std::int64_t middle = (width_ - 1) / 2;
  if (width_ <= kBar || height_ <= kBar) return {0, middle};
  const std::int64_t first = FloatFirst(row);
  return {first, row == 0 ? middle : std::max(first, FloatFirst(row - 1) - 1)};
}

}  // namespace quenzel7::gdi
