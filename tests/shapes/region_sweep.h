#pragma once

#include <gtest/gtest.h>

#include <utility>

#include "framework/element_contract.h"
#include "framework/position.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/owned.h"

/// Walks of a shape's hit tests over its box and what lies around it, beside the platform's own region.
namespace quenzel7::test {

/// How far around the box the walks go.
inline constexpr Long kMargin = 3;

/// Compares HitTestByPoint with a region, point by point; gives the number of points that were hit.
inline int ComparePoints(const ItfHmiElement& shape, const Descriptor& box, gdi::HRGN region) {
  int hits = 0;
  for (Long y = box.ys - kMargin; y <= box.ys + box.dy + kMargin; ++y) {
    for (Long x = box.xs - kMargin; x <= box.xs + box.dx + kMargin; ++x) {
      const bool expected = gdi::PtInRegion(region, x, y) != 0;
      hits += expected;
      if (shape.HitTestByPoint(x, y) != expected) {
        ADD_FAILURE() << "size " << box.dx << " x " << box.dy << ", point " << x << ' ' << y << ": expected "
                      << expected;
        return hits;
      }
    }
  }
  return hits;
}

/// Compares HitTestByRect with a region for rectangles of some sizes, empty and turned ones too, everywhere
/// on the box; gives the number of rectangles that met it.
inline int CompareRects(const ItfHmiElement& shape, const Descriptor& box, gdi::HRGN region) {
  int hits = 0;
  for (const auto& [dx, dy] : {std::pair<Long, Long>{0, 0}, {1, 1}, {2, 5}, {5, 2}, {-2, 3}, {3, -2}}) {
    for (Long y = box.ys - kMargin; y <= box.ys + box.dy + kMargin; ++y) {
      for (Long x = box.xs - kMargin; x <= box.xs + box.dx + kMargin; ++x) {
        const gdi::RECT rect{x, y, x + dx, y + dy};
        const bool expected = gdi::RectInRegion(region, &rect) != 0;
        hits += expected;
        if (shape.HitTestByRect(x, y, dx, dy) != expected) {
          ADD_FAILURE() << "size " << box.dx << " x " << box.dy << ", rectangle " << x << ' ' << y << ' '
                        << dx << ' ' << dy << ": expected " << expected;
          return hits;
        }
      }
    }
  }
  return hits;
}

}  // namespace quenzel7::test
