#pragma once

#include <cstdint>
#include <vector>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The point of a circle at an angle in degrees, counted from the right against the clock, rounded to the
/// nearest pixel and held inside 32 bits.
POINT PointOnCircle(POINT center, std::uint32_t radius, double angle);

/// Adds to `points` the pixels along an arc from one end to the other, both included and each beside the
/// next, so that lines through them paint no others. `sweep` is in degrees, negative with the clock; of many
/// turns the first two count. The pixels lie on the circle of 2 * radius + 1 pixels across. Circles of more
/// than 4096 pixels radius are cut into chords that leave the true arc by less than half a pixel.
void AddArcPoints(POINT center, std::uint32_t radius, double start, double sweep, std::vector<POINT>& points);

}  // namespace quenzel7::gdi
