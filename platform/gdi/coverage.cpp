#include "platform/gdi/coverage.h"

#include <algorithm>

namespace quenzel7::gdi {

void Coverage::Begin(std::int32_t width, std::int32_t height) {
  for (std::int32_t y = top_; y < bottom_; ++y) rows_[static_cast<std::size_t>(y)].clear();
  width_ = width;
  height_ = height;
  fullRows_ = 0;
  top_ = height;
  bottom_ = 0;
  if (rows_.size() < static_cast<std::size_t>(height)) rows_.resize(static_cast<std::size_t>(height));
}

void Coverage::Span(std::int64_t y, std::int64_t left, std::int64_t right) {
  left = std::max<std::int64_t>(left, 0);
  right = std::min<std::int64_t>(right, width_);
  if (y < 0 || y >= height_ || left >= right || IsFull(y)) return;
  top_ = std::min(top_, static_cast<std::int32_t>(y));
  bottom_ = std::max(bottom_, static_cast<std::int32_t>(y) + 1);

  Row& row = rows_[static_cast<std::size_t>(y)];
  const Stretch stretch{static_cast<std::int32_t>(left), static_cast<std::int32_t>(right)};
  if (row.empty() || row.back().right < stretch.left) {
    row.push_back(stretch);
  } else {
    Join(row, stretch);
  }
  if (IsFull(y)) ++fullRows_;
}

void Coverage::Join(Row& row, Stretch stretch) {
  const auto first = std::lower_bound(row.begin(), row.end(), stretch.left,
                                      [](const Stretch& each, std::int32_t x) { return each.right < x; });
  Stretch all = stretch;
  auto last = first;
  for (; last != row.end() && last->left <= stretch.right; ++last) {
    all = {std::min(all.left, last->left), std::max(all.right, last->right)};
  }
  if (first == last) {
    row.insert(first, all);
  } else {
    *first = all;
    row.erase(first + 1, last);
  }
}

void Coverage::All() {
  for (std::int32_t y = 0; y < height_; ++y) Span(y, 0, width_);
}

void Coverage::Paint(SpanPainter& painter) const {
  for (std::int32_t y = top_; y < bottom_; ++y) {
    for (const Stretch& stretch : rows_[static_cast<std::size_t>(y)])
      painter.RowSpan(y, stretch.left, stretch.right);
  }
}

}  // namespace quenzel7::gdi
