#include "shapes/figure_region.h"

#include "platform/automation/arithmetic.h"

namespace quenzel7 {

using automation::Add;

bool FigureRegion::HasPoint(Long x, Long y) const { return gdi::PtInRegion(region_.Get(), x, y) != 0; }

bool FigureRegion::MeetsRect(Long xs, Long ys, Long dx, Long dy) const {
  const gdi::RECT rect{xs, ys, Add(xs, dx), Add(ys, dy)};
  return gdi::RectInRegion(region_.Get(), &rect) != 0;
}

gdi::RECT RegionBox(const Descriptor& position) {
  const auto [xs, ys, dx, dy] = position;
  return {xs, ys, Add(Add(xs, dx), 1), Add(Add(ys, dy), 1)};
}

}  // namespace quenzel7
