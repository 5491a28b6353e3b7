#pragma once

#include "platform/automation/types.h"

/// Geometry of points and rectangles that all elements share. A rectangle (x, y, dx, dy) spans x to x+dx and
/// y to y+dy, both ends included. Every argument is narrowed to a 16-bit value, and one outside -32768 to
/// 32767 raises error 6.
namespace quenzel7 {

/// Whether the point (x, y) lies in the rectangle.
bool PointInRect(Long x, Long y, Long rx, Long ry, Long rdx, Long rdy);

/// Whether two rectangles meet: a corner of one lies in the other, or they cross like the bars of a plus
/// sign. A far corner beyond 16 bits is error 6 only when it is tried: when no corner before it has met the
/// other rectangle.
bool RectsMeet(Long ax, Long ay, Long adx, Long ady, Long bx, Long by, Long bdx, Long bdy);

}  // namespace quenzel7
