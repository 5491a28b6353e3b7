#pragma once

#include <array>
#include <cstdint>

#include "platform/gdi/types.h"

namespace quenzel7::gdi {

/// The gaps of a dashed pen, counted in pixels along the longer axis of a line.
class DashPattern {
 public:
  /// `style` is PS_DASH to PS_DASHDOTDOT; any other has no gaps.
  explicit constexpr DashPattern(std::uint32_t style) : gaps_(Gaps(style)) {}

  /// Whether a pixel is a gap, `phase` pixels from where the pattern began.
  constexpr bool IsGap(std::uint64_t phase) const { return (gaps_ >> phase % kPeriod & 1) != 0; }

 private:
  /// Every pattern repeats within this many pixels.
  static constexpr int kPeriod = 24;

  static constexpr std::uint32_t Gaps(std::uint32_t style) {
    // Dash, gap, dash, gap ... ended by 0.
    constexpr std::array<std::array<int, 7>, 4> kLengths{
        {{18, 6, 0}, {3, 3, 0}, {9, 6, 3, 6, 0}, {9, 3, 3, 3, 3, 3, 0}}};
    if (style < PS_DASH || style > PS_DASHDOTDOT) return 0;
    const std::array<int, 7>& lengths = kLengths[style - PS_DASH];
    std::uint32_t gaps = 0;
    std::size_t part = 0;
    int left = lengths[0];
    for (int i = 0; i < kPeriod; ++i) {
      if (left == 0) {
        part = lengths[part + 1] == 0 ? 0 : part + 1;
        left = lengths[part];
      }
      if (part % 2 == 1) gaps |= 1u << i;
      --left;
    }
    return gaps;
  }

  std::uint32_t gaps_;
};

}  // namespace quenzel7::gdi
