#pragma once

#include <span>

#include "bench/canvas.h"

namespace quenzel7::bench {

/// As Peer::countHits: boxes by QRect, ellipses and rounded rectangles by a QPainterPath made for the
/// question, as the items of a QGraphicsScene do; lines, for which there is nothing so plain, by their box
/// and the distance from them, in floating point.
int CountQtHits(std::span<const HitGroup> groups, gdi::POINT point);

}  // namespace quenzel7::bench
