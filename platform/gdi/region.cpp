#include "platform/gdi/region.h"

#include <algorithm>

namespace quenzel7::gdi {

Box Region::Body(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
  const Box box = Box::Between(left, top, right, bottom);
  return Box::Between(box.left, box.top, box.right - 1, box.bottom - 1);
}

bool Region::Contains(std::int64_t x, std::int64_t y) const { return Meets({x, y, x + 1, y + 1}); }

bool Region::Meets(const Box& box) const {
  if (body_.IsEmpty()) return false;
  const std::int64_t right = std::max(box.right, box.left + 1), bottom = std::max(box.bottom, box.top + 1);
  const std::int64_t top = std::max(box.top, body_.top), last = std::min(bottom, body_.bottom) - 1;
  if (top > last || box.left >= body_.right || right <= body_.left) return false;
  const RoundedBox::Row widest = WidestRow(top, last);
  return box.left < widest.right && right > widest.left;
}

RoundedBox::Row Region::WidestRow(std::int64_t top, std::int64_t last) const {
  if (!figure_) figure_.emplace(body_, cornerWidth_, cornerHeight_);
  const std::int64_t middle = body_.top + (body_.Height() - 1) / 2;
  return figure_->At(std::clamp(middle, top, last));
}

}  // namespace quenzel7::gdi
