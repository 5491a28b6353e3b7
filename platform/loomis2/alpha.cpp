#include "platform/loomis2/alpha.h"

#include <algorithm>

namespace quenzel7::loomis2 {

std::uint32_t OverWhite(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  std::uint32_t shown = 0;
  for (const int shift : {16, 8, 0}) {
    const std::uint32_t color = pixel >> shift & 0xFF;
    shown |= (color * alpha + 0xFF * (0xFF - alpha) + 0x7F) / 0xFF << shift;
  }
  return shown;
}

bool BlendOverWhite(Picture& picture) {
  const bool isUsed = std::any_of(picture.pixels.begin(), picture.pixels.end(),
                                  [](std::uint32_t pixel) { return pixel >> 24 != 0; });
  if (isUsed) std::transform(picture.pixels.begin(), picture.pixels.end(), picture.pixels.begin(), OverWhite);
  return isUsed;
}

}  // namespace quenzel7::loomis2
