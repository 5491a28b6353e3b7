#include "bench/picture_difference.h"

#include <algorithm>

#include "bench/canvas.h"

namespace quenzel7::bench {
namespace {

bool AreAlike(std::uint32_t a, std::uint32_t b) { return ((a ^ b) & 0xFFFFFF) == 0; }

/// Whether a pixel of one picture is in the other, there or beside: rules for edges differ by one pixel.
bool IsNear(Picture other, int x, int y, std::uint32_t color) {
  for (int v = std::max(y - 1, 0); v <= std::min(y + 1, kPageHeight - 1); ++v) {
    for (int u = std::max(x - 1, 0); u <= std::min(x + 1, kPageWidth - 1); ++u) {
      if (AreAlike(other[static_cast<std::size_t>(v * kPageWidth + u)], color)) return true;
    }
  }
  return false;
}

}  // namespace

double Difference(Picture one, Picture other) {
  int painted = 0, different = 0;
  for (int y = 0; y < kPageHeight; ++y) {
    for (int x = 0; x < kPageWidth; ++x) {
      const auto place = static_cast<std::size_t>(y * kPageWidth + x);
      if (AreAlike(one[place], kPaper) && AreAlike(other[place], kPaper)) continue;
      ++painted;
      if (!IsNear(other, x, y, one[place]) || !IsNear(one, x, y, other[place])) ++different;
    }
  }
  return painted > 0 ? 100.0 * different / painted : 100;
}

}  // namespace quenzel7::bench
