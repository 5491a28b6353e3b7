#include "hosts/cli/diff_picture.h"

#include <algorithm>
#include <optional>

namespace quenzel7::cli {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

/// The pixel in grey, by the weights of ITU-R BT.601, at a third of its strength.
std::uint32_t Faded(std::uint32_t pixel) {
  const std::uint32_t red = pixel >> 16 & 0xFF, green = pixel >> 8 & 0xFF, blue = pixel & 0xFF;
  const std::uint32_t grey = (299 * red + 587 * green + 114 * blue) / 1000;
  return (0xFF - (0xFF - grey) / 3) * 0x010101;
}

struct Pixel {
  std::uint32_t colour;
  bool covered;
};

std::optional<Pixel> PixelAt(const PaintedPage& page, std::int32_t x, std::int32_t y) {
  if (x >= page.picture.width || y >= page.picture.height) return {};
  const auto at = static_cast<std::size_t>(y) * static_cast<std::size_t>(page.picture.width) +
                  static_cast<std::size_t>(x);
  return Pixel{page.picture.pixels[at], page.covered[at]};
}

std::uint32_t Shown(const std::optional<Pixel>& a, const std::optional<Pixel>& b) {
  if (!a && !b) return kWhite;
  if (!b) return kDiffersInA;
  if (!a) return kDiffersInB;
  if (a->colour == b->colour) return Faded(a->colour);
  if (a->covered == b->covered) return kDiffersInBoth;
  return a->covered ? kDiffersInA : kDiffersInB;
}

}  // namespace

Picture DiffPicture(const PaintedPage& a, const PaintedPage& b) {
  Picture picture{
      std::max(a.picture.width, b.picture.width), std::max(a.picture.height, b.picture.height), {}};
  for (std::int32_t y = 0; y < picture.height; ++y) {
    for (std::int32_t x = 0; x < picture.width; ++x) {
      picture.pixels.push_back(Shown(PixelAt(a, x, y), PixelAt(b, x, y)));
    }
  }
  return picture;
}

}  // namespace quenzel7::cli
