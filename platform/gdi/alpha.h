#pragma once

#include <cstdint>

namespace quenzel7::gdi {

/// Mixes the three channels of two words: (source * alpha + target * (255 - alpha)) / 255, each to the
/// nearest. The highest byte becomes 0.
constexpr std::uint32_t Mixed(std::uint32_t source, std::uint32_t target, std::uint32_t alpha) {
  // Two channels at a time, 16 bits each. With n = v + 128, (n + n / 256) / 256 is v / 255 to the nearest
  // for every v up to 255 * 255.
  constexpr std::uint32_t kChannels = 0x00FF00FF, kHalves = 0x00800080;
  const auto mix = [&](std::uint32_t s, std::uint32_t d) {
    const std::uint32_t n = (s & kChannels) * alpha + (d & kChannels) * (255 - alpha) + kHalves;
    return ((n + (n >> 8 & kChannels)) >> 8) & kChannels;
  };
  return mix(source, target) | (mix(source >> 8 & 0xFF, target >> 8 & 0xFF) << 8);
}

}  // namespace quenzel7::gdi
