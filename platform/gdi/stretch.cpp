#include "platform/gdi/stretch.h"

#include <algorithm>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {
namespace {

/// The value that pixels meeting in one leave, from their words or, on one bit, from 0 and 1.
template <typename Pixel>
std::uint32_t Meeting(const StretchAxis::Pixels& columns, const StretchAxis::Pixels& rows, std::int32_t mode,
                      Pixel&& pixel) {
  if (mode == COLORONCOLOR) return pixel(columns.end - 1, rows.first);
  std::uint32_t met = pixel(columns.first, rows.first);
  for (std::int64_t y = rows.first; y < rows.end; ++y) {
    for (std::int64_t x = columns.first; x < columns.end; ++x) {
      met = mode == WHITEONBLACK ? met | pixel(x, y) : met & pixel(x, y);
    }
  }
  return met;
}

}  // namespace

StretchAxis::Pixels StretchAxis::At(std::int64_t k) const {
  if (isMirrored_) k = target_ - 1 - k;
  if (target_ < source_) return {FirstOf(k), FirstOf(k + 1)};
  // k and both lengths are at most 2^32, so the product fits without sign.
  const auto s = static_cast<std::uint64_t>(source_), d = static_cast<std::uint64_t>(target_);
  const std::uint64_t product = static_cast<std::uint64_t>(k) * s;
  const auto pixel = static_cast<std::int64_t>(product / d + (2 * (product % d) + s - 1) / (2 * d));
  return {pixel, pixel + 1};
}

std::int64_t StretchAxis::FirstOf(std::int64_t k) const {
  // The smallest q with (2q+1)d-1 >= 2sk.
  const auto s = static_cast<std::uint64_t>(source_), d = static_cast<std::uint64_t>(target_);
  const std::uint64_t product = static_cast<std::uint64_t>(k) * s;
  return static_cast<std::int64_t>(product / d + (2 * (product % d) + 1 > d ? 1 : 0));
}

Bitmap Stretched(const Bitmap& source, const std::vector<StretchAxis::Pixels>& columns,
                 const std::vector<StretchAxis::Pixels>& rows, std::int32_t mode) {
  const auto width = static_cast<int>(columns.size()), height = static_cast<int>(rows.size());
  Bitmap result(width, height, source.BitsPerPixel());
  for (int y = 0; y < height; ++y) {
    const StretchAxis::Pixels& row = rows[static_cast<std::size_t>(y)];
    for (int x = 0; x < width; ++x) {
      const StretchAxis::Pixels& column = columns[static_cast<std::size_t>(x)];
      if (source.IsMono()) {
        const auto bit = [&](std::int64_t u, std::int64_t v) -> std::uint32_t {
          return source.Bytes(static_cast<int>(v))[u / 8] >> (7 - u % 8) & 1;
        };
        const std::uint32_t met = Meeting(column, row, mode, bit);
        result.Bytes(y)[x / 8] |= static_cast<std::uint8_t>(met << (7 - x % 8));
      } else {
        const auto word = [&](std::int64_t u, std::int64_t v) {
          return source.Words(static_cast<int>(v))[u];
        };
        result.Words(y)[x] = Meeting(column, row, mode, word);
      }
    }
  }
  return result;
}

}  // namespace quenzel7::gdi
