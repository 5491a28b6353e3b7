#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The number of pixels of a line of one pixel, the last point left out.
inline std::uint64_t LineLength(POINT from, POINT to) {
  const std::int64_t dx = std::int64_t{to.x} - from.x, dy = std::int64_t{to.y} - from.y;
  return static_cast<std::uint64_t>(std::max(dx < 0 ? -dx : dx, dy < 0 ? -dy : dy));
}

namespace internal {

/// One axis of a line: where it begins and which way it goes.
struct Axis {
  std::int64_t start;
  std::int64_t direction;
  std::uint64_t length;

  Axis(std::int32_t from, std::int32_t to)
      : start(from),
        direction(from <= to ? 1 : -1),
        length(static_cast<std::uint64_t>((std::int64_t{to} - from) * direction)) {}
};

}  // namespace internal

/// Calls `plot(x, y, step)` for the pixels of a line inside 0..width-1, 0..height-1, from its start on;
/// `step` counts from the true start, also where that lies outside. The last point is left out. Where
/// the true line runs exactly between two pixels the upper (or left) one is taken, whatever the
/// direction. Clipping does not move pixels: the work is bound by the surface, not by the line.
template <typename Plot>
void WalkLine(POINT from, POINT to, std::int32_t width, std::int32_t height, Plot&& plot) {
  const internal::Axis alongX(from.x, to.x), alongY(from.y, to.y);
  const bool isFlat = alongX.length >= alongY.length;
  const internal::Axis& major = isFlat ? alongX : alongY;
  const internal::Axis& minor = isFlat ? alongY : alongX;
  const std::int64_t majorEnd = isFlat ? width : height, minorEnd = isFlat ? height : width;
  const std::uint64_t length = major.length;
  if (length == 0) return;

  // The steps for which the major axis is inside.
  const std::int64_t before = major.direction > 0 ? -major.start : major.start - majorEnd + 1;
  const std::int64_t inside = before + majorEnd;
  if (inside <= 0) return;
  const auto first = static_cast<std::uint64_t>(std::max<std::int64_t>(before, 0));
  const std::uint64_t end = std::min(static_cast<std::uint64_t>(inside), length);
  if (first >= end) return;

  // How far the minor axis has gone to the nearest pixel: whole pixels, and a remainder in parts of which two
  // times the length make a pixel. Both factors of the product are below 2^32, so it fits.
  const std::uint64_t unit = 2 * length, halfUp = minor.direction > 0 ? length - 1 : length;
  std::int64_t across =
      minor.start + minor.direction * static_cast<std::int64_t>(first * minor.length / length);
  std::uint64_t remainder = 2 * (first * minor.length % length) + halfUp;
  const auto carry = [&] {
    const bool isPast = remainder >= unit;
    across += isPast ? minor.direction : 0;
    remainder -= isPast ? unit : 0;
  };
  carry();
  const auto walk = [&](auto&& plotPixel) {
    for (std::uint64_t step = first; step < end; ++step) {
      if (across >= 0 && across < minorEnd) {
        const std::int64_t along = major.start + major.direction * static_cast<std::int64_t>(step);
        plotPixel(static_cast<std::int32_t>(along), static_cast<std::int32_t>(across), step);
      }
      remainder += 2 * minor.length;
      carry();
    }
  };
  if (isFlat) {
    walk([&](std::int32_t along, std::int32_t away, std::uint64_t step) { plot(along, away, step); });
  } else {
    walk([&](std::int32_t along, std::int32_t away, std::uint64_t step) { plot(away, along, step); });
  }
}

}  // namespace quenzel7::gdi
