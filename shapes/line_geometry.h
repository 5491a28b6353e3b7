#pragma once

#include "framework/position.h"
#include "platform/automation/types.h"

/// Geometry of straight lines. A line is a descriptor whose size is a vector: its head is (xs, ys), its tail
/// (xs + dx, ys + dy), and dx, dy may be negative or 0.
namespace quenzel7 {

/// A point of the page, or the vector from one point to another, in panel pixels.
struct LinePoint {
  Long x, y;
};

/// The tail of a line. Error 6 when it does not fit 32 bits.
LinePoint TailOf(const Descriptor& line);

/// Whether a point lies in the box of a line that is `penWidth` pixels wide. A horizontal line with its head
/// on the left has half the width more above it, a vertical one with its head on top to its left; all other
/// lines have no more than their ends span. Error 6 when a number does not fit 16 bits.
bool PointNearBox(const Descriptor& line, Long penWidth, Long x, Long y);

/// The distance, in pixels, from a point to the unbounded line through head and tail, by way of the nearest
/// point of the line in whole pixels. Error 11 for a line of length 0, 6 when a number does not fit 32 bits.
Single DistanceToLine(const Descriptor& line, Long x, Long y);

/// On which sides of the rectangle a point lies beyond its limits: 8 left, 4 right, and 2 below or 1 above; 0
/// inside, limits included (Cohen and Sutherland's codes). Of a rectangle with a negative size, left is tried
/// before right and below before above. Error 6 when a far side does not fit 32 bits, wherever the point
/// lies.
Long OutCode(const Descriptor& rectangle, LinePoint point);

/// Whether the segments a-b and c-d cross. An end that lies on the other segment does not count. Error 6 when
/// a distance between two of the points does not fit 32 bits.
bool SegmentsCross(LinePoint a, LinePoint b, LinePoint c, LinePoint d);

/// Whether a line and a rectangle meet: an end of the line lies in it, limits included, or the line crosses
/// one of its sides. Errors of OutCode and SegmentsCross.
bool LineMeetsRect(const Descriptor& line, const Descriptor& rectangle);

}  // namespace quenzel7
