#include "platform/loomis2/panel_pixels.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include "platform/automation/array.h"
#include "platform/gdi/bitmap.h"

namespace quenzel7::loomis2 {
namespace {

constexpr std::size_t kMostColors = 256;
constexpr Long kNoPicture = -1, kPaintedPicture = 0x3F3F3F3F;

bool IsPictureOf(std::span<const Byte> pixels, Long dx, Long dy, std::int64_t rowBytes) {
  return dx > 0 && dy > 0 && static_cast<std::int64_t>(pixels.size()) == rowBytes * dy;
}

/// A channel of that many bits as one of eight.
constexpr std::uint32_t Filled(std::uint32_t value, int bits) {
  return value << (8 - bits) | value >> (2 * bits - 8);
}

/// For each value of eight bits the nearest one of fewer.
template <int kBits>
std::array<std::uint16_t, 256> NearestOf() {
  std::array<std::uint16_t, 256> nearest{};
  std::uint16_t value = 0;
  for (std::uint32_t full = 0; full < nearest.size(); ++full) {
    while (value + 1 < 1 << kBits && Filled(value + 1u, kBits) + Filled(value, kBits) < 2 * full) ++value;
    nearest[full] = value;
  }
  return nearest;
}

/// Walks over palette indices as the colours that they stand for, so that pixels are written once and not
/// cleared before.
struct ColorIterator {
  using iterator_category = std::forward_iterator_tag;
  using value_type = std::uint32_t;
  using difference_type = std::ptrdiff_t;
  using pointer = const std::uint32_t*;
  using reference = const std::uint32_t&;

  const std::uint32_t* table;
  const Byte* index;

  reference operator*() const { return table[*index]; }
  ColorIterator& operator++() {
    ++index;
    return *this;
  }
  ColorIterator operator++(int) { return {table, index++}; }
  friend bool operator==(const ColorIterator& a, const ColorIterator& b) { return a.index == b.index; }
};

constexpr std::uint32_t ColorOf(std::uint32_t pixel) {
  return Filled(pixel >> 11, 5) << 16 | Filled(pixel >> 5 & 0x3F, 6) << 8 | Filled(pixel & 0x1F, 5);
}

}  // namespace

std::optional<PanelColors> PanelColorsOf(const automation::Variant& palette) {
  if (!palette.IsArray()) return {};
  const automation::Array& array = palette.Elements();
  const bool isPalette = array.ElementKind() == automation::VariantKind::Long && array.Dimensions() == 1 &&
                         array.Size() > 0 && array.Size() <= kMostColors;
  if (!isPalette) return {};
  PanelColors colors;
  for (const Long color : array.Cells<Long>())
    colors.push_back(gdi::SwapRedAndBlue(static_cast<std::uint32_t>(color)));
  return colors;
}

std::optional<Picture> PictureOf8bpp(std::span<const Byte> pixels, Long dx, Long dy,
                                     const PanelColors& colors) {
  const std::int64_t rowBytes = std::int64_t{dx} + dx % 2;
  if (!IsPictureOf(pixels, dx, dy, rowBytes)) return {};
  // Every byte has a colour here, so that pixels can be taken without a look at each.
  std::array<std::uint32_t, kMostColors> table{};
  std::copy(colors.begin(), colors.end(), table.begin());
  Picture picture{dx, dy, {}};
  picture.pixels.reserve(static_cast<std::size_t>(dx) * static_cast<std::size_t>(dy));
  for (const Byte* row = pixels.data(); row != pixels.data() + pixels.size(); row += rowBytes) {
    const Byte* const end = row + dx;
    if (colors.size() < kMostColors && *std::max_element(row, end) >= colors.size()) return {};
    picture.pixels.insert(picture.pixels.end(), ColorIterator{table.data(), row},
                          ColorIterator{table.data(), end});
  }
  return picture;
}

std::optional<Picture> PictureOf16bpp(std::span<const Byte> pixels, Long dx, Long dy) {
  if (!IsPictureOf(pixels, dx, dy, std::int64_t{dx} * 2)) return {};
  Picture picture{dx, dy, {}};
  picture.pixels.reserve(pixels.size() / 2);
  for (std::size_t i = 0; i < pixels.size(); i += 2)
    picture.pixels.push_back(ColorOf(pixels[i] | std::uint32_t{pixels[i + 1]} << 8));
  return picture;
}

PanelPixels PixelsOf16bpp(const Picture& picture) {
  static const auto kNearest5 = NearestOf<5>(), kNearest6 = NearestOf<6>();
  PanelPixels result;
  result.bytes.reserve(picture.pixels.size() * 2);
  for (const std::uint32_t color : picture.pixels) {
    const auto pixel = static_cast<std::uint32_t>(
        kNearest5[color >> 16 & 0xFF] << 11 | kNearest6[color >> 8 & 0xFF] << 5 | kNearest5[color & 0xFF]);
    result.bytes.push_back(static_cast<Byte>(pixel));
    result.bytes.push_back(static_cast<Byte>(pixel >> 8));
    result.isExact = result.isExact && ColorOf(pixel) == color;
  }
  return result;
}

Long PictureCrc(std::span<const Byte> bytes) {
  const auto crc = static_cast<Long>(static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size())));
  return crc == kNoPicture || crc == kPaintedPicture ? crc - 1 : crc;
}

}  // namespace quenzel7::loomis2
