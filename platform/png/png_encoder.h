#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/automation/types.h"

namespace quenzel7::png {

/// The largest enlargement of a picture.
inline constexpr int kLargestScale = 16;

/// Pixels of a caller, each 0x00RRGGBB with the highest byte of no meaning, row by row from the top without
/// gaps: width times height of them.
struct PixelView {
  std::int32_t width;
  std::int32_t height;
  std::span<const std::uint32_t> pixels;
};

/// Takes the next bytes of a file. What it throws ends the encoding and passes to its caller.
using ByteSink = std::function<void(std::span<const Byte>)>;

/// Gives the picture piece by piece as a PNG file, red, green and blue in 8 bits each, every pixel as a
/// square of `scale` (1 to kLargestScale) pixels. Measures are positive and no more than 1,000,000 when
/// enlarged. Throws std::bad_alloc.
void EncodePng(const PixelView& picture, int scale, const ByteSink& sink);

/// The bytes of that file.
std::vector<Byte> EncodePng(const PixelView& picture, int scale = 1);

}  // namespace quenzel7::png
