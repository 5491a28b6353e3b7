#include "platform/gdi/region.h"

#include <algorithm>

namespace quenzel7::gdi {

Box Region::Body(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  const Box box = Box::Between(left, top, right, bottom);
  return Box::Between(box.left, box.top, box.right - 1, box.bottom - 1);
}

bool Region::Contains(std::int64_t x, std::int64_t y) const { return Meets({x, y, x + 1, y + 1}); }

bool Region::Meets(const Box& box) const {
  const Box& body = figure_.Bounds();
  if (body.IsEmpty()) return false;
  const std::int64_t right = std::max(box.right, box.left + 1), bottom = std::max(box.bottom, box.top + 1);
  const std::int64_t top = std::max(box.top, body.top), last = std::min(bottom, body.bottom) - 1;
  if (top > last) return false;
  const std::int64_t middle = body.top + (body.Height() - 1) / 2;
  const RoundedBox::Row widest = figure_.At(std::clamp(middle, top, last));
  return box.left < widest.right && right > widest.left;
}

}  // namespace quenzel7::gdi
