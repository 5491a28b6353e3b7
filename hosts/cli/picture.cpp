#include "hosts/cli/picture.h"

#include <algorithm>

namespace quenzel7::cli {

std::size_t DifferingPixels(const Picture& a, const Picture& b) {
  if (a.width != b.width || a.height != b.height) return std::max(a.pixels.size(), b.pixels.size());
  std::size_t count = 0;
  for (std::size_t index = 0; index < a.pixels.size(); ++index) count += a.pixels[index] != b.pixels[index];
  return count;
}

}  // namespace quenzel7::cli
